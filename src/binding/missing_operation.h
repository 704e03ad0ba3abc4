// Calling an operation of a leniently bound library: the bound function when there is one,
// otherwise a report that the library lacks it, set in the status at the call. The status is
// every such operation's last argument.
#pragma once

#include <cstdint>
#include <tuple>
#include <type_traits>

#include "status/status.h"

namespace zqdynlib {

// `code` at `site`, and the "zqdynlib_debug" object that names the missing `symbol`.
void reportMissingOperation(zqerr_Status* status, int32_t code, const zqerr::SourceLocation& site,
                            const char* symbol);

// `report(index, status)` runs only when `fn` is null: one test and one indirect call otherwise.
template <class Result, class... Params>
Result forwardOrReport(Result (*fn)(Params...), void (*report)(uint32_t, zqerr_Status*), uint32_t index,
                       Params... args) {
  if (fn) return fn(args...);
  report(index, std::get<sizeof...(Params) - 1>(std::tie(args...)));
  if constexpr (!std::is_void_v<Result>) return Result{};
}

}  // namespace zqdynlib
