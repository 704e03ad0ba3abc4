// The four functions that the driver binds from this library. No exception leaves them.
#include <new>
#include <string_view>

#include "native_export.h"
#include "status/report_writer.h"
#include "xlator_sites.h"
#include "zqvorex_translator.h"
#include "zqxlator_translator.h"

#define ZQXLATOR_EXPORT extern "C" ZQ_NATIVE_EXPORT

namespace {

// The library keeps nothing between calls; a session is a token that its translators belong to.
struct XlatorSession {
  unsigned translators = 0;
};

void failWithName(zqerr_Status* status, const zqerr::SourceLocation& site, int32_t code, const char* debug,
                  const char* name) {
  if (!zqerr::setWithLocation(status, code, site)) return;
  zqerr::ReportWriter w = zqerr::writeObject(zqerr::rootWriter(status), "zqxlator_debug");
  if (w) --w.cursor;
  zqerr::writeString(zqerr::writeString(w, "debug", debug), "xlatorName", name ? name : "");
}

}  // namespace

ZQXLATOR_EXPORT void* zqxlatormgr_createSession(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  auto* session = new (std::nothrow) XlatorSession;
  if (!session) zqerr::setWithLocation(status, zqapalerr_memoryFull, qxlator::kSessionMemory);
  return session;
}

ZQXLATOR_EXPORT void zqxlatormgr_destroySession(void* session) { delete static_cast<XlatorSession*>(session); }

ZQXLATOR_EXPORT zqxlator_Translator* zqxlatormgr_createXlator(void* session, const char* name, zqerr_Status* status,
                                                              uint64_t) {
  if (!zqerr::isOpen(status)) return nullptr;
  if (!session || !name || std::string_view(name) != qxlator::kZqvorexTranslator) {
    failWithName(status, qxlator::kUnknownTranslator, zqapalerr_resourceNotFound, "no translator of this name", name);
    return nullptr;
  }
  zqxlator_Translator* translator = qxlator::makeZqvorexTranslator();
  if (!translator) {
    failWithName(status, qxlator::kTranslatorMemory, zqapalerr_memoryFull, "no memory for the translator", name);
    return nullptr;
  }
  ++static_cast<XlatorSession*>(session)->translators;
  return translator;
}

ZQXLATOR_EXPORT void zqxlatormgr_destroyXlator(void* session, zqxlator_Translator* translator) {
  if (!translator) return;
  if (session) --static_cast<XlatorSession*>(session)->translators;
  translator->destroy(translator);
}
