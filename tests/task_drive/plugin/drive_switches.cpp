// The test-only exports of zqtestDrive; drive_switches.h tells what each does.
#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

extern "C" {

ZQ_NATIVE_EXPORT void zqtestDrive_testSetBlockReads(const char* taskName, int32_t on) {
  setBlockReads(taskName ? taskName : "", on != 0);
}

ZQ_NATIVE_EXPORT int32_t zqtestDrive_testAwaitBlockedReads(uint32_t count, uint32_t limitMs) {
  return awaitBlockedReads(count, limitMs) ? 1 : 0;
}

ZQ_NATIVE_EXPORT int64_t zqtestDrive_testCounter(int32_t counter) { return counterValue(counter); }

}  // extern "C"

ZQTEST_DRIVE_SWITCH(testSetBlockReads);
ZQTEST_DRIVE_SWITCH(testAwaitBlockedReads);
ZQTEST_DRIVE_SWITCH(testCounter);
