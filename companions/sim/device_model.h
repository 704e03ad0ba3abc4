// The simulated multifunction device: what it has (analog inputs and outputs, digital ports,
// counters, PFI terminals, internal signals), its limits, and how names of its channels and
// terminals read.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zqsim {

struct DeviceModel {
  static constexpr uint32_t kAnalogInputs = 16;
  static constexpr uint32_t kAnalogOutputs = 4;
  static constexpr uint32_t kPorts = 3;
  static constexpr uint32_t kLinesPerPort = 8;
  static constexpr uint32_t kCounters = 4;
  static constexpr uint32_t kPfiTerminals = 16;
  // Port 1 and port 2 lines are PFI0:7 and PFI8:15.
  static constexpr uint32_t kFirstPfiPort = 1;
  static constexpr uint32_t kResolutionBits = 16;
  static constexpr double kTimebase = 100e6;
  static constexpr std::array<double, 4> kInputRanges{0.2, 1.0, 5.0, 10.0};
  static constexpr double kOutputVoltageRange = 10.0;
  static constexpr double kOutputCurrentHigh = 0.02;
  static constexpr double kMinRate = 0.1;
  // Analog inputs share one converter: the rate times the channel count stays below this.
  static constexpr double kMaxAnalogInputAggregate = 4e6;
  static constexpr double kMaxAnalogOutputRate = 1e6;
  static constexpr double kMaxDigitalRate = 10e6;
  static constexpr double kMaxCounterRate = 10e6;
  // The shunt through which currents are sensed and sourced.
  static constexpr double kShuntOhms = 249.0;
};

// Default terminals of a counter: its output and the inputs of its measurements.
uint32_t counterOutputPfi(uint32_t counter);
uint32_t counterInputPfi(uint32_t counter);
uint32_t counterSecondInputPfi(uint32_t counter);

// One entry of a physical channel list, resolved against the model.
struct PhysicalName {
  enum class Kind { kAnalogInput, kAnalogOutput, kLine, kCounter };
  std::string device;  // as the caller wrote it
  Kind kind = Kind::kAnalogInput;
  uint32_t index = 0;      // channel, port or counter number
  uint32_t line = 0;       // for a line
  bool wholePort = false;  // written as a port: its lines form one group
  std::string text() const;
};

// A list such as "SimDev1/ai0:3, SimDev1/ai7", "SimDev1/port0/line0:3", "SimDev1/port1" or
// "SimDev1/ctr0". The error text says which entry is wrong and why; `tooHigh` tells a channel
// number beyond the model from text that is no name at all.
struct NameError {
  std::string entry;
  bool tooHigh = false;
};
std::optional<std::vector<PhysicalName>> parsePhysicalList(std::string_view list, NameError* error);

// A terminal: "/SimDev1/PFI3", "PFI3" (on the task's device), or an internal signal such as
// "/SimDev1/ai/SampleClock", "/SimDev1/ao/StartTrigger", "/SimDev1/Ctr0InternalOutput".
struct Terminal {
  std::string device;  // empty when the text named none
  bool isPfi = false;
  uint32_t pfi = 0;
  std::string signal;  // lower case, such as "ai/sampleclock" or "ctr0internaloutput"
};
std::optional<Terminal> parseTerminal(std::string_view text);

// Internal signals a task publishes.
inline constexpr const char* kSampleClock = "sampleclock";
inline constexpr const char* kStartTrigger = "starttrigger";
inline constexpr const char* kReferenceTrigger = "referencetrigger";
std::string subsystemSignal(std::string_view subsystem, std::string_view signal);
std::string counterOutputSignal(uint32_t counter);

}  // namespace zqsim
