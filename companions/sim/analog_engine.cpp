#include "analog_engine.h"

namespace zqsim {

void computeScaled(const std::vector<AnalogPlan>& plans, const SampleTimes& times, uint64_t count,
                   double origin, double* out, bool byScan) {
  const size_t channels = plans.size();
  const size_t stride = byScan ? channels : 1;
  for (size_t c = 0; c < channels; ++c) {
    double* column = out + (byScan ? c : c * count);
    const AnalogPlan& plan = plans[c];
    plan.view.fill(times, count, origin, column, stride);
    for (uint64_t k = 0; k < count; ++k) {
      double& sample = column[k * stride];
      sample = plan.scale.quantize(plan.scale.toUnits(sample));
    }
  }
}

void computeCodes(const std::vector<AnalogPlan>& plans, const SampleTimes& times, uint64_t count,
                  double origin, int16_t* out, bool byScan) {
  const size_t channels = plans.size();
  const size_t stride = byScan ? channels : 1;
  for (size_t c = 0; c < channels; ++c) {
    int16_t* column = out + (byScan ? c : c * count);
    const AnalogPlan& plan = plans[c];
    for (uint64_t k = 0; k < count; ++k)
      column[k * stride] = plan.scale.code(plan.scale.toUnits(plan.view.value(times.at(k), origin)));
  }
}

double scaledSample(const AnalogPlan& plan, double tau, double origin) {
  return plan.scale.quantize(plan.scale.toUnits(plan.view.value(tau, origin)));
}

}  // namespace zqsim
