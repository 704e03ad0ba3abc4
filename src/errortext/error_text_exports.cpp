// The five error text functions. Each runs the frame of every export: trace record, status,
// last-error recorder and the guard that keeps exceptions inside; a failure to translate is
// repaired into text, so only the buffer, memory and the composition root can fail them.
#include <cstring>

#include "errortext/error_text.h"
#include "frame/export.h"
#include "lasterror/last_error.h"
#include "status/exceptions.h"
#include "task/itask.h"
#include "tracing/trace.h"
#include "translator/translation.h"
#include "zqcai_rd_mbcs.h"

namespace {

using zqerrortext::kDefaultLanguageAndAde;

constexpr uint32_t kLastErrorFlags = zqxlator::kStaticFlag | zqxlator::kDynamicFlag;
constexpr uint32_t kSectionFlags = zqxlator::kStaticFlag | zqxlator::kDynamicFlag | zqxlator::kDebugFlag;

// One request and the copy of its text to the caller. The result is the size of a size query,
// else the code.
template <class Request>
int32_t textCall(char* buffer, uint32_t bufferSize, zqtrace::TraceCall* trace, Request request) {
  zqerr::Status status;
  nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, nullptr, nullptr);
  int32_t size = 0;
  bool sizeQuery = false;
  try {
    zqhtl::String text;
    request(&text, &status);
    if (zqerr::isOpen(&status)) size = zqerrortext::copyTextToCaller(text.view(), buffer, bufferSize, &sizeQuery, &status);
  } catch (...) {
    zqerr::convertCurrentException(&status);
  }
  if (sizeQuery && zqerr::isOpen(&status)) {
    if (trace) trace->retSize(size);
    return size;
  }
  if (trace && *trace) {
    const void* end = buffer ? std::memchr(buffer, '\0', bufferSize) : nullptr;
    const size_t length = end ? static_cast<size_t>(static_cast<const char*>(end) - buffer) : 0;
    trace->retText("errorString", buffer, length);
  }
  if (trace) trace->retval(status.code);
  return status.code;
}

void traceBuffer(zqtrace::TraceCall& trace, const char* buffer, uint32_t bufferSize) {
  trace.param("errorString", buffer ? zqtrace::kTextBuffer : zqtrace::kPointer, buffer);
  trace.param("bufferSize", zqtrace::kSize, bufferSize);
  trace.endParams();
}

}  // namespace

ZQ_EXPORT int32 VorexGetErrorString(int32 errorCode, char errorString[], uInt32 bufferSize) {
  zqtrace::TraceCall trace("VorexGetErrorString");
  if (trace) {
    trace.param("errorCode", zqtrace::kI32, errorCode);
    traceBuffer(trace, errorString, bufferSize);
  }
  return textCall(errorString, bufferSize, &trace, [&](zqhtl::String* text, zqerr_Status* status) {
    zqerrortext::codeText(errorCode, kDefaultLanguageAndAde, text, status);
  });
}

ZQ_EXPORT int32 VorexInternalGetLocalizedErrorString(uInt32 language, int32 errorCode, char errorString[],
                                                     uInt32 bufferSize) {
  const uint32_t languageAndAde = zqerrortext::languageAndAdeOf(language, 1);
  return textCall(errorString, bufferSize, nullptr, [&](zqhtl::String* text, zqerr_Status* status) {
    zqerrortext::codeText(errorCode, languageAndAde, text, status);
  });
}

ZQ_EXPORT int32 VorexGetExtendedErrorInfo(char errorString[], uInt32 bufferSize) {
  zqtrace::TraceCall trace("VorexGetExtendedErrorInfo");
  if (trace) traceBuffer(trace, errorString, bufferSize);
  return textCall(errorString, bufferSize, &trace, [&](zqhtl::String* text, zqerr_Status* status) {
    zqerrortext::lastErrorText(kDefaultLanguageAndAde, kLastErrorFlags, false, text, status);
  });
}

ZQ_EXPORT int32 VorexInternalGetLastErrorFormattedText(uInt32 ade, uInt32 language, uInt32 flags, char errorString[],
                                                       uInt32 bufferSize) {
  const uint32_t languageAndAde = zqerrortext::languageAndAdeOf(language, ade);
  const uint32_t sections = flags & kSectionFlags;
  return textCall(errorString, bufferSize, nullptr, [&](zqhtl::String* text, zqerr_Status* status) {
    zqerrortext::lastErrorText(languageAndAde, sections, (sections & zqxlator::kDebugFlag) != 0, text, status);
  });
}

ZQ_EXPORT int32 VorexInternalGetLastErrorDescription(uInt32 ade, int32 language, char errorString[],
                                                     uInt32 bufferSize) {
  const uint32_t languageAndAde = zqerrortext::languageAndAdeOf(static_cast<uint32_t>(language), ade);
  return textCall(errorString, bufferSize, nullptr, [&](zqhtl::String* text, zqerr_Status* status) {
    zqerrortext::lastErrorDescription(languageAndAde, text, status);
  });
}
