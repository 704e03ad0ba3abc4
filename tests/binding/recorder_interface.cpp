#include <cstring>

#include "test_sites.h"
#include "zqvorex_status_codes.h"
#include "test_interfaces.h"

namespace zqtest {

namespace {

void reportUnbound(zqerr_Status* status) {
  if (status) ZQ_TEST_FAIL(status, nZQMSTS::kErrorFunctionNotSupportedForDevice, "recorder_interface", 1);
}

}  // namespace

const char* const Recorder::kNames[kOperationCount] = {"bump", "add", "journal", "rewind"};

void Recorder::setSlot(size_t index, void* address) noexcept {
  if (index < kOperationCount)
    std::memcpy(reinterpret_cast<char*>(&table_) + index * sizeof(void*), &address, sizeof(void*));
}

int32_t Recorder::bump(zqerr_Status* status) {
  if (table_.bump) return table_.bump(status);
  reportUnbound(status);
  return 0;
}

int32_t Recorder::add(int32_t a, int32_t b, zqerr_Status* status) {
  if (table_.add) return table_.add(a, b, status);
  reportUnbound(status);
  return 0;
}

const char* Recorder::journal(zqerr_Status* status) {
  if (table_.journal) return table_.journal(status);
  reportUnbound(status);
  return nullptr;
}

void Recorder::rewind(zqerr_Status* status) {
  if (table_.rewind) return table_.rewind(status);
  reportUnbound(status);
}

}  // namespace zqtest
