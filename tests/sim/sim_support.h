// What the tests over the simulated device plug-in share: a store made with the zqstorage tool
// holding SimDev1 and what its inputs see, tasks over the real plug-in manager and selector,
// and short forms of the task operations the tests make.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "status/status.h"
#include "task/task.h"
#include "zqcai_rd_mbcs_values.h"

namespace zqtest::sim {

inline constexpr const char* kPlugin = "zqvorexSim";
inline constexpr const char* kContextName = "127.0.0.1";
// Simulated seconds per wall-clock second in these programs.
inline constexpr double kSpeed = 5.0;

// The kinds of channel the plug-in's read and write operations take.
inline constexpr uint32_t kAnalogInput = 10100;
inline constexpr uint32_t kAnalogOutput = 10102;
inline constexpr uint32_t kDigitalInput = 10151;
inline constexpr uint32_t kDigitalOutput = 10153;
inline constexpr uint32_t kCounterInput = 10131;
inline constexpr uint32_t kCounterOutput = 10132;

// What the store says ai5 and ai6 see, and the recording ai7 plays.
inline constexpr double kConstantVolts = 1.25;
const std::vector<double>& recording();

// Makes the store on first use (zqstorage new-sim-store, set-signal) and makes it the local
// store; the time of this program's devices runs at kSpeed.
void useSimStore();

std::shared_ptr<zqvorexRedir::Task> makeTask(const std::string& name);
// A task of one voltage output channel.
std::shared_ptr<zqvorexRedir::Task> voltageOutput(const std::string& physical);

// Each gives the status code and keeps the report for a message.
struct Outcome {
  int32_t code = 0;
  std::string report;
};
Outcome take(const zqerr_Status& status);

Outcome addVoltage(zqvorexRedir::ITask& task, const std::string& physical, double range = 10.0);
Outcome sampleClock(zqvorexRedir::ITask& task, double rate, int32_t mode, uint64_t samples);
Outcome control(zqvorexRedir::ITask& task, int32_t action);
// A task of voltage inputs of +-`range` V on the sample clock.
std::shared_ptr<zqvorexRedir::Task> clockedVoltage(const std::string& name, const std::string& physical, double rate,
                                                   int32_t mode, uint64_t samples, double range = 10.0);

struct Samples {
  Outcome outcome;
  uint32_t count = 0;
  std::vector<double> data;
};
Samples readVoltages(zqvorexRedir::ITask& task, int64_t samples, double timeout, uint64_t capacity);
// The write of `values`, grouped by channel, `channels` channels.
Outcome writeVoltages(zqvorexRedir::ITask& task, const std::vector<double>& values, uint32_t channels,
                      bool autoStart, uint32_t* written = nullptr);

double timingF64(zqvorexRedir::ITask& task, int32_t id);
uint64_t readU64(zqvorexRedir::ITask& task, int32_t id);

// The one quantized value an input of range +-`range` volts reads for `volts`.
double quantized(double volts, double range);
// A usage item's value in a report, as text; "" when the report has none of that usage.
std::string itemValue(const std::string& report, const std::string& usage);

// Waits, up to a hang guard, until `done` holds; false when the guard ran out.
bool eventually(const std::function<bool()>& done);

}  // namespace zqtest::sim
