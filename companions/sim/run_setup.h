// What a task's start checks and builds: the configuration checked against the device, the
// run's timeline with its triggers, the analog input plans, the output streams and pulse
// trains, and the internal signals the run puts on the device for other tasks to use.
#pragma once

#include <string>

#include "task.h"

namespace zqsim {

bool verifyConfiguration(SimTask& task, zqerr_Status* status);
bool setUpRun(SimTask& task, Run& run, zqerr_Status* status);
void publishSignals(SimTask& task);

// The analog plan of one input channel; false with the failure in `status`.
bool planFor(const Channel& channel, AnalogPlan* plan, zqerr_Status* status);
// The task's channel named by `source` (its name or its physical channel), or null.
const Channel* channelBySource(const SimTask& task, const std::string& source);
// The largest sample rate the task's channels allow, and the check of a rate against it.
double maximumRate(const SimTask& task);
bool checkRate(const SimTask& task, double rate, zqerr_Status* status);
// A terminal of the task's device, as a source that is looked up each time it is asked.
bool terminalSource(const SimTask& task, const std::string& text, std::function<SignalPtr()>* source,
                    zqerr_Status* status, int32_t attributeId);

}  // namespace zqsim
