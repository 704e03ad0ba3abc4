#include "debug/debug_server_api.h"

#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>

#include "status/report_writer.h"
#include "status/status.h"
#include "status/status_codes.h"

namespace zqvorexRedir {

namespace {

enum OperationIndex : uint32_t {
#define ZQ_DEBUG_OPERATION(Result, op, ...) kIndex_##op,
  ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION
};

// The one place where this class sets a status: the library lacks the operation.
void reportUnbound(uint32_t index, zqerr_Status* status) {
  if (!status) return;
  const zqerr::SourceLocation site{"DebugServerApi", index + 1, zqerr::kComponent,
                                   "nZQMSTS::kErrorFunctionNotInLibrary"};
  if (!zqerr::setWithLocation(status, nZQMSTS::kErrorFunctionNotInLibrary, site)) return;
  zqerr::ReportWriter w = zqerr::rootWriter(status);
  w = zqerr::writeObject(w, "zqdynlib_debug");
  if (w) --w.cursor;
  w = zqerr::writeString(w, "debug", "failed to get symbol");
  zqerr::writeString(w, "zqdynlib_symbol", DebugServerApi::kNames[index]);
}

template <class Result, class... Params>
Result forward(Result (*fn)(Params...), uint32_t index, Params... args) {
  if (fn) return fn(args...);
  reportUnbound(index, std::get<sizeof...(Params) - 1>(std::tie(args...)));
  if constexpr (!std::is_void_v<Result>) return Result{};
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
  Result DebugServerApi::op Params { return forward(table_.op, kIndex_##op, __VA_ARGS__); }
ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION

}  // namespace zqvorexRedir
