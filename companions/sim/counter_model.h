// The counters: an output's pulse train, and what an input makes of the signal on its
// terminals: a count of edges, an encoder position, or one measurement after another of
// frequency, period, pulse width, semi-period, edge separation and duty cycle.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include "task.h"

namespace zqsim {

bool checkCounterChannels(const SimTask& task, zqerr_Status* status);
// Builds a counter output's train from its channel and puts it on its terminals.
bool startPulses(SimTask& task, Run& run, zqerr_Status* status);
// New pulse settings of a running output take effect from the next pulse.
bool changePulses(SimTask& task, zqerr_Status* status);

// The count or position of a counting input at time `tau` of its run.
double counterValue(const SimTask& task, const Channel& channel, double tau);
uint32_t counterTicks(const SimTask& task, const Channel& channel, double tau);

// One measurement of a measuring input: when it ended and what it found.
struct Measurement {
  double end = 0;
  double value = 0;  // in the channel's units
  double high = 0;   // seconds high and low, for the pair reads
  double low = 0;
};
// The next measurement after `cursor` complete by `now`; false when there is none yet, with
// the time it is expected in `expected` (NaN when unknown).
bool nextMeasurement(const Channel& channel, double cursor, double now, Measurement* m, double* expected);

}  // namespace zqsim
