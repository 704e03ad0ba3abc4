// What each request hands the translator: a status made from a code, or the thread's last
// failure, as it stands or as a private copy that carries the task name or asks for debug items.
#include <cstdlib>
#include <memory>

#include "errortext/error_text.h"
#include "globals/shared_globals.h"
#include "status/error_sites.h"
#include "status/report_reader.h"
#include "status/report_writer.h"
#include "translator/json1.h"
#include "translator/session.h"

namespace zqerrortext {

namespace {

using zqxlator::kDebugFlag;
using zqxlator::kDynamicFlag;
using zqxlator::kStaticFlag;

nZQCAI100::ExtendedErrorInfo* threadRecord(zqerr_Status* status) {
  std::shared_ptr<nZQCAI100::IExtendedErrorInfoManager> manager = nZQCAI100::getTlsManager(status);
  return manager ? manager->getThreadRecord() : nullptr;
}

bool makeCopy(const zqerr_Status& source, zqerr_Status* copy, zqerr_Status* status) {
  if (zqerr::copyStatus(copy, source)) return true;
  ZQ_FAIL(status, kCerrorinfoMemoryFull);
  return false;
}

bool namesTranslator(const char* report) {
  zqerr::json::ParsedValue parsed;
  const char* value = report ? zqerr::json::findKey(report, "translator") : nullptr;
  return value && zqerr::json::parseValue(value, &parsed) && parsed.type == zqerr::json::kString && parsed.length > 2;
}

// The formatter of the raw description: the translator's JSON, handed on unchanged.
void describeReport(zqxlator::Session* session, const zqerr_Status& input, uint32_t languageAndAde, uint32_t,
                    zqhtl::String* out, zqerr_Status* status) {
  std::unique_ptr<char, decltype(&std::free)> description(session->getDynamicDesc(input.report, languageAndAde, status),
                                                          &std::free);
  if (description) out->append(std::string_view(description.get()), status);
}

}  // namespace

void codeText(int32_t code, uint32_t languageAndAde, zqhtl::String* text, zqerr_Status* status) {
  zqerr::Status input;
  zqerr::setPlain(&input, code, zqsite::kCerrorinfoErrorCode.location);
  std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> translator = nZQCAI100::getTranslator(status);
  if (!translator) return;
  translator->translate(input, languageAndAde, kStaticFlag, &zqxlator::json1::translateErrStatusToRawText, text, status);
  repairText(text, code, status);
}

void lastErrorText(uint32_t languageAndAde, uint32_t flags, bool debugAsked, zqhtl::String* text,
                   zqerr_Status* status) {
  const nZQCAI100::ExtendedErrorInfo* record = threadRecord(status);
  if (!record) return;
  const bool debug = debugAsked || debugDisplayEnabled();
  zqerr::Status copy;
  const zqerr_Status* input = &record->status;
  if (debug || !record->taskName.empty()) {
    if (!makeCopy(record->status, &copy, status)) return;
    input = &copy;
  }
  if (debug) {
    flags |= kDebugFlag;
    zqerr::openOrderedData(&copy, zqerr::kTranslatorZqvorex);
  }
  if (!record->taskName.empty()) putTaskName(&copy, record->taskName);
  std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> translator = nZQCAI100::getTranslator(status);
  if (!translator) return;
  translator->translate(*input, languageAndAde, flags, &zqxlator::json1::translateErrStatusToRawText, text, status);
  repairText(text, input->code, status);
}

void lastErrorDescription(uint32_t languageAndAde, zqhtl::String* text, zqerr_Status* status) {
  const nZQCAI100::ExtendedErrorInfo* record = threadRecord(status);
  if (!record) return;
  zqerr::Status copy;
  const zqerr_Status* input = &record->status;
  if (!namesTranslator(record->status.report)) {
    if (!makeCopy(record->status, &copy, status)) return;
    zqerr::openOrderedData(&copy, zqerr::kTranslatorZqvorex);
    input = &copy;
  }
  std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> translator = nZQCAI100::getTranslator(status);
  if (!translator) return;
  translator->translate(*input, languageAndAde, kDynamicFlag, &describeReport, text, status);
  // Only the failure's report leaves the text; the description is raw, no sentence replaces it.
  repairText(text, 0, status);
}

}  // namespace zqerrortext
