// What the translator wrapper, the formatters and the error text functions share: the section
// flags of a request and the shape of a formatter.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "text/basic_string.h"

namespace zqxlator {

class Session;

enum TranslateFlags : uint32_t {
  kStaticFlag = 1,            // the static description of the code
  kDynamicFlag = 2,           // the dynamic items of the report
  kDebugFlag = 4,             // the debug items of the report
  kNestedFlag = 8,            // nested errors as well
  kLanguageEncodingFlag = 0x40000000,  // the result in the language's encoding instead of UTF-8
};

// Makes the text of `input` into `out`; a failure goes to `status`.
using Formatter = void (*)(Session* session, const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                           zqhtl::String* out, zqerr_Status* status);

}  // namespace zqxlator
