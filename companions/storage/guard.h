// The frame of every exported function: skip on a failed status, run the body, and turn
// anything it throws into the caller's status. No exception leaves the library.
#pragma once

#include <exception>
#include <new>

#include "error.h"
#include "status_report.h"
#include "zqvorex_status.h"

namespace zqstorage {

// Records the exception in flight; called from a catch block.
void recordCurrentException(zqerr_Status* status);

// Runs body() unless the status holds an error; on failure returns `neutral`. A null status
// runs the body against a private one, so that releases still happen.
template <class R, class Body>
R guarded(zqerr_Status* status, R neutral, Body&& body) noexcept {
  zqerr_Status local{0, 0, nullptr, nullptr};
  if (status == nullptr) status = &local;
  if (status->code < 0) return neutral;
  try {
    return body();
  } catch (...) {
    recordCurrentException(status);
  }
  return neutral;
}

template <class Body>
void guardedVoid(zqerr_Status* status, Body&& body) noexcept {
  guarded(status, 0, [&] {
    body();
    return 0;
  });
}

}  // namespace zqstorage

