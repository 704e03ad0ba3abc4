// The translators built into the library, found by name, and the one among them: the default
// translator "zqxlator_default", which takes a code's description from the explanation files.
#pragma once

#include <cstdint>
#include <string_view>

#include "status/status.h"
#include "zqxlator_translator.h"

namespace zqxlator {

inline constexpr const char* kDefaultTranslator = "zqxlator_default";

// A node of the static list of built-in translators: the factory makes the translator record.
struct BuiltInTranslator {
  BuiltInTranslator* next;
  BuiltInTranslator* previous;
  const char* name;
  const char* info;  // handed to the factory
  zqxlator_Translator* (*factory)(const char* name, const char* info, zqerr_Status* status);
};

// The node whose name is exactly `name`, or null.
const BuiltInTranslator* findBuiltInTranslator(std::string_view name);

// The default translator's description of a code: the explanation files of the language,
// falling back to English when the language's folder is missing or has no text or fails;
// a failure that English alone meets is final. Text in UTF-8 from `reallocate`, or null.
char* defaultStaticDesc(int32_t code, uint32_t languageAndAde, zqxlator_ReallocateFn reallocate, void* argument,
                        zqerr_Status* status);

}  // namespace zqxlator
