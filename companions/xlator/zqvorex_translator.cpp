#include "zqvorex_translator.h"

#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "dynamic_items.h"
#include "status/exceptions.h"
#include "status/report_writer.h"
#include "translator/default_translator.h"
#include "xlator_sites.h"

namespace qxlator {

namespace {

constexpr std::string_view kFormat = "json1";

void destroy(zqxlator_Translator* self) { delete self; }

char* getStaticDesc(zqxlator_Translator*, int32_t code, uint32_t languageAndAde, zqxlator_ReallocateFn reallocate,
                    void* argument, zqerr_Status* status) {
  try {
    return zqxlator::defaultStaticDesc(code, languageAndAde, reallocate, argument, status);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return nullptr;
  }
}

char* getDynamicDesc(zqxlator_Translator*, const char* report, uint32_t, const char* formatName,
                     zqxlator_ReallocateFn reallocate, void* argument, zqerr_Status* status) {
  try {
    if (!zqerr::isOpen(status)) return nullptr;
    if (!formatName || formatName != kFormat) {
      if (zqerr::setWithLocation(status, zqapalerr_featureUnsupported, kUnsupportedFormat))
        zqerr::writeString(zqerr::rootWriter(status), "zqxlator_debug", formatName ? formatName : "");
      return nullptr;
    }
    std::string description;
    if (!describeReport(report, &description, status)) return nullptr;
    auto* text = static_cast<char*>(reallocate(nullptr, description.size() + 1, argument, status));
    if (text) std::memcpy(text, description.c_str(), description.size() + 1);
    return text;
  } catch (...) {
    zqerr::convertCurrentException(status);
    return nullptr;
  }
}

}  // namespace

zqxlator_Translator* makeZqvorexTranslator() {
  return new (std::nothrow) zqxlator_Translator{32, &destroy, &getStaticDesc, &getDynamicDesc};
}

}  // namespace qxlator
