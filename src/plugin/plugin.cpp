#include "plugin/plugin.h"

#include <cstring>
#include <tuple>
#include <type_traits>

#include "status/report_writer.h"
#include "status/status.h"
#include "status/status_codes.h"

namespace zqvorexRedir {

namespace {

// The one place where this class sets a status: the library lacks the operation.
void reportUnbound(uint32_t index, zqerr_Status* status) {
  if (!status) return;
  const zqerr::SourceLocation site{"Plugin", index + 1, zqerr::kComponent,
                                   "nZQMSTS::kErrorFunctionNotSupportedForDevice"};
  if (!zqerr::setWithLocation(status, nZQMSTS::kErrorFunctionNotSupportedForDevice, site)) return;
  zqerr::ReportWriter w = zqerr::rootWriter(status);
  w = zqerr::writeObject(w, "zqdynlib_debug");
  if (w) --w.cursor;
  w = zqerr::writeString(w, "debug", "failed to get symbol");
  zqerr::writeString(w, "zqdynlib_symbol", Plugin::kNames[index]);
}

// One test and one indirect call; the status is every operation's last argument.
template <class Result, class... Params>
Result forward(Result (*fn)(Params...), uint32_t index, Params... args) {
  if (fn) return fn(args...);
  reportUnbound(index, std::get<sizeof...(Params) - 1>(std::tie(args...)));
  if constexpr (!std::is_void_v<Result>) return Result{};
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
  Result Plugin::op Params { return forward(table_.op, index, __VA_ARGS__); }
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION

}  // namespace zqvorexRedir
