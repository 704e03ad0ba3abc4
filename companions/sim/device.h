// One simulated device as the process sees it: its settings from the store, its clock, which
// task holds which of its resources, and what drives its outputs, lines and terminals, so that
// one task's output is another task's input, like hardware with a loopback cable.
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "device_model.h"
#include "digital_signal.h"
#include "sim_clock.h"
#include "waveform.h"
#include "zqvorex_status.h"

namespace zqsim {

// What drives an analog output: a held value, a generator, a buffered stream.
class OutputSource {
 public:
  virtual ~OutputSource() = default;
  virtual double value(double tau) const = 0;
};

class ConstantOutput final : public OutputSource {
 public:
  explicit ConstantOutput(double value) : value_(value) {}
  double value(double) const override { return value_; }

 private:
  double value_;
};

struct AnalogSpan {
  double from = 0;
  double to = kForever;
  std::shared_ptr<const OutputSource> source;
  uint64_t owner = 0;
};

// What one analog input sees over a read: its own waveform, and what drove the output wired
// to it (ai0:3 see ao0:3) while something did.
struct InputView {
  Waveform wave;
  std::vector<AnalogSpan> drives;
  std::string error;  // why the input's signal setting could not be used
  double value(double tau, double origin) const;
  void fill(const SampleTimes& times, uint64_t count, double origin, double* out, size_t stride) const;
};

class Device {
 public:
  // The device of that name, made on first use from its settings in the store. A name the
  // store does not know gives nZQMSTS::kErrorInvalidDeviceID.
  static std::shared_ptr<Device> find(std::string_view name, zqerr_Status* status);
  // Forgets every device of the process: the next use reads the store afresh. For tests.
  static void forgetAll();

  Device(std::string name, double speed);
  const std::string& name() const { return name_; }
  const DeviceClock& clock() const { return clock_; }
  double now() const { return clock_.now(); }

  // Reads the signal settings again when the store changed since they were read; the store is
  // asked at most twice a second, so that single-point reads and writes stay cheap.
  void refresh();
  InputView input(uint32_t channel) const;

  // Resources are "ai", "ao", "di", "do" and "ctr0".."ctr3". False, with the holder's name,
  // when another task holds it.
  bool reserve(const std::string& resource, uint64_t owner, const std::string& ownerName,
               std::string* holder);
  void release(uint64_t owner);

  void driveOutput(uint32_t channel, double from, std::shared_ptr<const OutputSource> source, uint64_t owner);
  void writeLine(uint32_t port, uint32_t line, bool level, double tau, uint64_t owner);
  // Drives an internal signal ("ai/sampleclock", "ctr0internaloutput") or a terminal ("pfi5").
  void driveSignal(const std::string& key, double from, SignalPtr source, uint64_t owner);
  // The internal signals and terminals `owner` drives stop at `at`: a task stopped.
  void endSignals(uint64_t owner, double at);
  // Everything `owner` drives stops at `at`: outputs and signals let go, lines fall low. A
  // task is gone.
  void endDrives(uint64_t owner, double at);

  // A line's level over time, including what drives its PFI terminal.
  SignalPtr line(uint32_t port, uint32_t line) const;
  // A terminal or internal signal; null for a name the device does not have.
  SignalPtr terminal(const Terminal& terminal) const;

 private:
  struct Settings {
    std::array<SignalSetting, DeviceModel::kAnalogInputs> signals{};
    std::array<std::shared_ptr<const Recording>, DeviceModel::kAnalogInputs> recordings{};
    std::array<std::string, DeviceModel::kAnalogInputs> errors{};
    uint64_t seed = 0;
    uint64_t changeNumber = 0;
  };
  static Settings readSettings(const std::string& name, double* speed, bool* found);
  SignalPtr signalLocked(const std::string& key, SignalPtr fallback) const;
  SignalPtr lineLocked(uint32_t port, uint32_t line) const;

  const std::string name_;
  const DeviceClock clock_;
  mutable std::mutex mutex_;
  Settings settings_;
  std::chrono::steady_clock::time_point lastRefresh_{};
  std::map<std::string, std::pair<uint64_t, std::string>> reservations_;
  std::array<std::vector<AnalogSpan>, DeviceModel::kAnalogOutputs> outputs_;
  std::map<std::string, std::vector<DriveSpan>> signals_;
  std::array<std::array<std::shared_ptr<const LevelHistory>, DeviceModel::kLinesPerPort>, DeviceModel::kPorts>
      lines_;
  std::array<std::array<uint64_t, DeviceModel::kLinesPerPort>, DeviceModel::kPorts> lineOwners_{};
};

}  // namespace zqsim
