// The frame of every table entry: nothing on a failed status, and no exception back into the
// plug-in that called.
#pragma once

#include <utility>

#include "status/error_sites.h"
#include "status/exceptions.h"
#include "status/status.h"

namespace zqgopher {

// Runs `body` unless `status` is null or already failed; returns `neutral` then, and after an
// exception, which goes into the status.
template <class Result, class Body>
Result guarded(zqerr_Status* status, Result neutral, Body&& body) noexcept {
  if (!status || !zqerr::isOpen(status)) return neutral;
  try {
    return std::forward<Body>(body)();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return neutral;
  }
}

template <class Body>
void guarded(zqerr_Status* status, Body&& body) noexcept {
  if (!status || !zqerr::isOpen(status)) return;
  try {
    std::forward<Body>(body)();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

}  // namespace zqgopher
