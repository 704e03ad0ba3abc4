#include "translator/languages.h"

#include "paths/system_error_items.h"
#include "status/error_sites.h"
#include "text/sstutf8.h"

namespace zqxlator {

namespace {

struct Language {
  const char* folder;
  uint32_t encoding;
};

constexpr Language kLanguages[] = {
    {"English", 1}, {"French", 2}, {"German", 3}, {"Japanese", 4}, {"Korean", 5}, {"ChineseS", 6},
};
constexpr uint32_t kLanguageCount = sizeof kLanguages / sizeof kLanguages[0];

bool known(uint32_t language, zqerr_Status* status) {
  if (language < kLanguageCount) return true;
  if (ZQ_FAIL(status, kGferrorsparserInvalidLanguage)) {
    zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
    w = zqerr::writeString(w, "gferrorsparser", "invalid language");
    zqerr::writeUint32(w, "lang", language);
  }
  return false;
}

}  // namespace

const char* languageFolder(uint32_t language, zqerr_Status* status) {
  return known(language, status) ? kLanguages[language].folder : "";
}

uint32_t languageEncoding(uint32_t language, zqerr_Status* status) {
  return known(language, status) ? kLanguages[language].encoding : 1;
}

void failConversion(int32_t result, zqerr_Status* status) {
  zqerr::fail(status, result == zqsstutf8::kErrorConversion ? zqsite::kSstutf8Conversion : zqsite::kSstutf8MemoryFull);
}

}  // namespace zqxlator
