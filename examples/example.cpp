// A small look at the library's ground floor: a status that fails at a site and carries a
// report with elaboration items, as every exported call will return it.
#include <cstdio>

#include "status/report_writer.h"
#include "status/error_sites.h"
#include "zqvorex_status_codes.h"

int main() {
  zqerr::Status status;
  std::printf("fresh status: code %d, report %s\n", status.code, status.report ? status.report : "(none)");

  if (ZQ_FAIL(&status, kOutParametersBufferTooSmallForString)) {
    zqerr::ReportWriter items = zqerr::openOrderedData(&status, zqerr::kTranslatorZqvorex);
    items = zqerr::addItem(items, zqerr::usage::kUsageTypeBufferLength, uint32_t{4});
    zqerr::addItem(items, zqerr::usage::kUsageTypeReqBufSizeInBytes, int32_t{12});
  }
  std::printf("failed status: code %d\nreport: %s\n", status.code, status.report);
  return 0;
}
