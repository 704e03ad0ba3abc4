// Functions of attributes that no longer exist, kept so that old programs still link: each
// fails, whatever its arguments, with a report that names it. The trace record carries the same
// name, qualified, in place of the plain export name. The failure is the thread's last, like any
// other, so that the report can be read.
#include "zqcai_rd_mbcs.h"

#include "frame/export.h"
#include "lasterror/last_error.h"
#include "status/error_sites.h"
#include "status/report_writer.h"
#include "task/itask.h"
#include "tracing/trace.h"

namespace {

int32_t obsolete(const char* name, const zqerr::Site& site) {
  zqtrace::TraceCall trace(name);
  trace.endParams();
  zqerr::Status status;
  if (zqerr::fail(&status, site))
    zqerr::addItem(zqerr::openOrderedData(&status, zqerr::kTranslatorZqvorex), zqerr::usage::kUsageTypeProcedureName,
                   name);
  trace.retval(status.code);
  nZQCAI100::LastErrorRecorder<zqvorexRedir::ITask> recorder(&status, nullptr, nullptr);
  return status.code;
}

}  // namespace

ZQ_EXPORT int32 VorexGetTimingSyncPulseForce(TaskHandle, bool32*) {
  return obsolete("nZQCAI100::VorexGetTimingSyncPulseForce", zqsite::kCobsoleteGetTimingSyncPulseForce);
}
ZQ_EXPORT int32 VorexSetTimingSyncPulseForce(TaskHandle, bool32) {
  return obsolete("nZQCAI100::VorexSetTimingSyncPulseForce", zqsite::kCobsoleteSetTimingSyncPulseForce);
}
ZQ_EXPORT int32 VorexResetTimingSyncPulseForce(TaskHandle) {
  return obsolete("nZQCAI100::VorexResetTimingSyncPulseForce", zqsite::kCobsoleteResetTimingSyncPulseForce);
}
ZQ_EXPORT int32 VorexGetWriteNextWriteIsLast(TaskHandle, bool32*) {
  return obsolete("nZQCAI100::VorexGetWriteNextWriteIsLast", zqsite::kCobsoleteGetWriteNextWriteIsLast);
}
ZQ_EXPORT int32 VorexSetWriteNextWriteIsLast(TaskHandle, bool32) {
  return obsolete("nZQCAI100::VorexSetWriteNextWriteIsLast", zqsite::kCobsoleteSetWriteNextWriteIsLast);
}
ZQ_EXPORT int32 VorexResetWriteNextWriteIsLast(TaskHandle) {
  return obsolete("nZQCAI100::VorexResetWriteNextWriteIsLast", zqsite::kCobsoleteResetWriteNextWriteIsLast);
}
