// The plug-in's own sample computation for analog inputs: each sample is worked out from its
// time on the device's timeline and written straight into the caller's array, grouped by
// channel or interleaved by scan.
#pragma once

#include <cstdint>
#include <vector>

#include "device.h"
#include "scaling.h"
#include "waveform.h"

namespace zqsim {

struct AnalogPlan {
  InputView view;
  AnalogScale scale;
};

// Scaled values: `count` samples of each plan at `times`.
void computeScaled(const std::vector<AnalogPlan>& plans, const SampleTimes& times, uint64_t count,
                   double origin, double* out, bool byScan);
// The converter's codes of the same samples.
void computeCodes(const std::vector<AnalogPlan>& plans, const SampleTimes& times, uint64_t count,
                  double origin, int16_t* out, bool byScan);
// One scaled sample of one plan.
double scaledSample(const AnalogPlan& plan, double tau, double origin);

}  // namespace zqsim
