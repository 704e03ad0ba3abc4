#include "debug/debug_server_api.h"

#include <cstdint>
#include <cstring>

#include "binding/missing_operation.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace zqvorexRedir {

namespace {

enum OperationIndex : uint32_t {
#define ZQ_DEBUG_OPERATION(Result, op, ...) kIndex_##op,
  ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION
};

// The one place where this class sets a status: the library lacks the operation.
void reportUnbound(uint32_t index, zqerr_Status* status) {
  const zqerr::SourceLocation site{"DebugServerApi", index + 1, zqerr::kComponent,
                                   "nZQMSTS::kErrorFunctionNotInLibrary"};
  zqdynlib::reportMissingOperation(status, nZQMSTS::kErrorFunctionNotInLibrary, site,
                                   DebugServerApi::kNames[index]);
}

}  // namespace

const char* const DebugServerApi::kNames[kOperationCount] = {
#define ZQ_DEBUG_OPERATION(Result, op, ...) #op,
    ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION
};

void DebugServerApi::setSlot(size_t index, void* address) noexcept {
  if (index < kOperationCount)
    std::memcpy(reinterpret_cast<char*>(&table_) + index * sizeof(void*), &address, sizeof(void*));
}

#define ZQ_DEBUG_OPERATION(Result, op, Params, ...)                      \
  bool DebugServerApi::has_##op() const { return table_.op != nullptr; } \
  Result DebugServerApi::op Params {                                     \
    return zqdynlib::forwardOrReport(table_.op, reportUnbound, kIndex_##op, __VA_ARGS__); \
  }
ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION

}  // namespace zqvorexRedir
