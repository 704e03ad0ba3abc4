#include "write/write_checks.h"

#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqwrite {

namespace {

zqerr::ReportWriter items(zqerr_Status* status) {
  return zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
}

}  // namespace

void checkReserved(const void* reserved, zqerr_Status* status) {
  if (reserved) ZQ_FAIL(status, kCwriteReservedParamNotNULL);
}

void checkArray(const void* array, int32_t count, int32_t paramNum, zqerr_Status* status) {
  if (array || count == 0) return;
  if (ZQ_FAIL(status, kCwriteNullArray))
    zqerr::addItem(items(status), zqerr::usage::kUsageTypeParamNum, paramNum);
}

void checkCount(int32_t count, zqerr_Status* status) {
  if (count >= 0) return;
  if (ZQ_FAIL(status, kCwriteInvalidNumberSamplesToWrite))
    zqerr::addItem(items(status), zqerr::usage::kUsageTypeNumSampsToWrite, count);
}

}  // namespace zqwrite
