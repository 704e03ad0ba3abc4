#include "translator/default_translator.h"

#include <cstring>
#include <string>

#include "paths/system_error_items.h"
#include "paths/system_paths.h"
#include "status/error_sites.h"
#include "status/exceptions.h"
#include "text/sstutf8.h"
#include "translator/explanation_files.h"
#include "translator/languages.h"

namespace zqxlator {

namespace {

char* staticDescOfRecord(zqxlator_Translator*, int32_t code, uint32_t languageAndAde, zqxlator_ReallocateFn reallocate,
                         void* argument, zqerr_Status* status) {
  try {
    return defaultStaticDesc(code, languageAndAde, reallocate, argument, status);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return nullptr;
  }
}

void destroyNothing(zqxlator_Translator*) {}

zqxlator_Translator gDefaultRecord{32, &destroyNothing, &staticDescOfRecord, nullptr};

zqxlator_Translator* makeDefault(const char*, const char*, zqerr_Status* status) {
  return zqerr::isOpen(status) ? &gDefaultRecord : nullptr;
}

// The circular list with its sentinel head, linked before any code runs.
struct Registry {
  BuiltInTranslator head;
  BuiltInTranslator defaultNode;
};

constinit Registry gRegistry{
    {&gRegistry.defaultNode, &gRegistry.defaultNode, nullptr, nullptr, nullptr},
    {&gRegistry.head, &gRegistry.head, kDefaultTranslator, "{}", &makeDefault},
};

void searchWithFallback(const std::string& base, int32_t code, uint32_t* language, zqhtl::String* text,
                        zqerr_Status* status) {
  zqerr::Status search;
  while (true) {
    searchExplanations(base, code, *language, text, &search);
    if (zqerr::isOpen(&search) && (!text->empty() || *language == kEnglish)) return;
    if (!zqerr::isOpen(&search) && *language == kEnglish) break;
    zqerr::clearReport(&search);
    *language = kEnglish;
  }
  zqerr::adopt(status, &search);
}

void failNoDescription(zqerr_Status* status, int32_t code, uint32_t language, uint32_t ade) {
  if (!ZQ_FAIL(status, kZqxlatorDefaultNotFound)) return;
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
  w = zqerr::writeString(w, "zqxlator_defaultTranslator", "couldn't find description for code");
  w = zqerr::writeInt32(w, "code", code);
  w = zqerr::writeUint32(w, "lang", language);
  zqerr::writeUint32(w, "ade", ade);
}

// From the language's encoding to UTF-8.
bool toUtf8(const zqhtl::String& text, uint32_t language, std::string* utf8, zqerr_Status* status) {
  zqerr::Status ignored;
  zqsstutf8::StdStringSink sink(utf8);
  int32_t result = zqsstutf8::mbsToUtf8(text.c_str(), languageEncoding(language, &ignored), sink);
  if (result == 0) return true;
  failConversion(result, status);
  return false;
}

}  // namespace

const BuiltInTranslator* findBuiltInTranslator(std::string_view name) {
  for (const BuiltInTranslator* node = gRegistry.head.next; node != &gRegistry.head; node = node->next)
    if (name == node->name) return node;
  return nullptr;
}

char* defaultStaticDesc(int32_t code, uint32_t languageAndAde, zqxlator_ReallocateFn reallocate, void* argument,
                        zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  std::string base;
  zqsysq::getSharedFolder(&base, status);
  if (!zqerr::isOpen(status)) return nullptr;
  base += "\\errors";
  uint32_t language = languageOf(languageAndAde);
  zqhtl::String text;
  searchWithFallback(base, code, &language, &text, status);
  if (!zqerr::isOpen(status)) return nullptr;
  if (text.empty()) {
    failNoDescription(status, code, language, adeOf(languageAndAde));
    return nullptr;
  }
  std::string utf8;
  if (!toUtf8(text, language, &utf8, status)) return nullptr;
  auto* copy = static_cast<char*>(reallocate(nullptr, utf8.size() + 1, argument, status));
  if (copy) std::memcpy(copy, utf8.c_str(), utf8.size() + 1);
  return copy;
}

}  // namespace zqxlator
