// Watchdog timer tasks: a task on one device with no channels, its timeout and the states its
// digital lines take when it expires.
#pragma once

#include <cstdarg>
#include <cstdint>
#include <string>
#include <vector>

#include "frame/task_holder.h"
#include "task/itask.h"

namespace zqwatchdog {

// The arguments of a creation, as the caller gave them.
struct Request {
  const char* deviceName;
  const char* taskName;
  zqframe::TaskHandle* taskHandle;
  double timeout;
};

// One pair of the variable arguments, as the caller gave it.
struct RawPair {
  const char* lines;
  int32_t expState;
};

// The variable arguments of VorexCreateWatchdogTimerTask: the first pair and the rest.
struct PairSource {
  const char* lines;
  int32_t expState;
  std::va_list* rest;
};

// The pairs from the first on, up to the first null `lines`.
std::vector<RawPair> collectPairs(const PairSource& source);

// The expiration states in the form the task takes them: one entry of lines for each state.
struct ExpirationStates {
  std::vector<std::string> lines;
  std::vector<int32_t> states;
};

// Converts and strips each pair's lines, stopping at the first failure.
ExpirationStates convertPairs(const std::vector<RawPair>& pairs, zqerr_Status* status);

// A new watchdog task's configuration: the timeout, then the expiration states.
void configureNewWatchdog(zqvorexRedir::ITask& task, double timeout, const ExpirationStates& states,
                          zqerr_Status* status);

// The whole creation under the trace record of `function`, with expiration states from `pairs`
// when it is not null: the handle is written only when everything succeeded, and a task that
// failed after it was made leaves the pool again.
int32_t createTimerTask(const char* function, const Request& request, const PairSource* pairs);

}  // namespace zqwatchdog
