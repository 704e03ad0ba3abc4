#include "plugin/plugin.h"

#include <cstring>

#include "binding/missing_operation.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace zqvorexRedir {

namespace {

// The one place where this class sets a status: the library lacks the operation.
void reportUnbound(uint32_t index, zqerr_Status* status) {
  const zqerr::SourceLocation site{"Plugin", index + 1, zqerr::kComponent,
                                   "nZQMSTS::kErrorFunctionNotSupportedForDevice"};
  zqdynlib::reportMissingOperation(status, nZQMSTS::kErrorFunctionNotSupportedForDevice, site,
                                   Plugin::kNames[index]);
}

}  // namespace

const char* const Plugin::kNames[kOperationCount] = {
#define ZQ_PLUGIN_OPERATION(index, Op, op, ...) #op,
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION
};

void Plugin::setSlot(size_t index, void* address) noexcept {
  if (index < kOperationCount)
    std::memcpy(reinterpret_cast<char*>(&table_) + index * sizeof(void*), &address, sizeof(void*));
}

void* Plugin::slot(size_t index) const noexcept {
  void* address = nullptr;
  if (index < kOperationCount)
    std::memcpy(&address, reinterpret_cast<const char*>(&table_) + index * sizeof(void*), sizeof(void*));
  return address;
}

#define ZQ_PLUGIN_OPERATION(index, Op, op, Result, Params, ...)    \
  bool Plugin::has##Op() const { return table_.op != nullptr; }    \
  Result Plugin::op Params {                                      \
    return zqdynlib::forwardOrReport(table_.op, reportUnbound, index, __VA_ARGS__); \
  }
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION

}  // namespace zqvorexRedir
