// Stands in the one-time record's build function: counts the builds and, when asked, holds
// the first one until a second caller has arrived, then runs the real build.
#pragma once

#include <atomic>
#include <thread>

#include "globals/one_time.h"
#include "platform/platform.h"

namespace zqtest {

struct BuildProbe {
  static inline std::atomic<int> builds{0};
  static inline std::atomic<bool> holdFirst{false};
  static inline std::atomic<bool> secondArrived{false};

  static void initialise(zqerr_Status* status) {
    if (builds.fetch_add(1) == 0 && holdFirst) {
      while (!secondArrived) std::this_thread::yield();
      zqplatform::sleepMs(20);  // room for the second caller to reach the flag; no result depends on it
    }
    nZQCAI100::buildSharedGlobals(status);
  }

  static void install(bool hold) {
    holdFirst = hold;
    nZQCAI100::oneTimeRecord().initialise = &initialise;
  }
};

}  // namespace zqtest
