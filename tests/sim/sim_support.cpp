#include "sim_support.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <functional>
#include <thread>

#include "boundary/array_buffer_adapter.h"
#include "contexts/context.h"
#include "plugin/plugin_manager.h"
#include "selection/task_plugin_selector.h"
#include "storage/storage_binding.h"
#include "test_support.h"

namespace zqtest::sim {

namespace {

void tool(const std::string& store, const std::string& arguments) {
  const std::string output = "storage_tmp/sim_drive_setup.txt";
  const std::string line =
      siblingProgram("zqstorage") + " --store " + store + " " + arguments + " > " + output + " 2>&1";
  EXPECT_EQ(runCommand(line), 0) << arguments << ": " << readFile(output);
}

std::string makeStore() {
  const std::string path = useFreshStore("sim_drive_store");
  const std::string csv = "storage_tmp/sim_drive_recording.csv";
  std::string text = "volts\n";
  for (double v : recording()) text += std::to_string(v) + "\n";
  writeFile(csv, text);
  tool(path, "new-sim-store --force");
  tool(path, "set-signal SimDev1 ai5 constant value=" + std::to_string(kConstantVolts));
  tool(path, "set-signal SimDev1 ai6 constant value=-2.5");
  tool(path, "set-signal SimDev1 ai7 file path=" + csv + " rate=1000");
  return path;
}

std::shared_ptr<zqvorexRedir::IPluginSelector> selector() {
  static const zqvorexStorageCpp::StorageBindings bindings = [] {
    zqerr::Status status;
    auto bound = zqvorexStorageCpp::bindStorage(zqvorexStorageCpp::kStorageLibrary, &status);
    EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
    return bound;
  }();
  static const auto shared = std::make_shared<zqvorexRedir::TaskPluginSelector>(bindings, nullptr);
  return shared;
}

// One manager for the program, never destroyed: as in the library, the plug-in stays loaded to
// the process's end, so what it keeps for the process (its device registry) stays reachable.
std::shared_ptr<zqvorexRedir::PluginManager> manager() {
  using Manager = zqvorexRedir::PluginManager;
  static const auto* shared = new std::shared_ptr<Manager>(std::make_shared<Manager>(siblingProgram(".")));
  return *shared;
}

}  // namespace

const std::vector<double>& recording() {
  static const std::vector<double> values{0.5, -1.0, 2.25, 3.0, -0.75, 1.5, 0.0, -3.25};
  return values;
}

void useSimStore() {
  static const std::string path = makeStore();
  setEnvironment("ZQCAI_STORAGE_FILE", path);
}

std::shared_ptr<zqvorexRedir::Task> makeTask(const std::string& name) {
  useSimStore();
  zqvorexRedir::TaskParts parts;
  parts.context = std::make_shared<zqvorexRedir::Context>(kContextName);
  parts.taskKind = zqvorexRedir::kTaskKindCreated;
  parts.pluginManager = manager();
  parts.pluginSelector = selector();
  parts.name = name;
  return std::make_shared<zqvorexRedir::Task>(std::move(parts));
}

std::shared_ptr<zqvorexRedir::Task> voltageOutput(const std::string& physical) {
  auto task = makeTask("output " + physical);
  zqerr::Status status;
  task->createAOVoltageChannel(physical, "", -10, 10, Vorex_Val_Volts, "", nullptr, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return task;
}

Outcome take(const zqerr_Status& status) { return {status.code, status.report ? status.report : ""}; }

Outcome addVoltage(zqvorexRedir::ITask& task, const std::string& physical, double range) {
  zqerr::Status status;
  task.createAIVoltageChannel(physical, "", -1, -range, range, Vorex_Val_Volts, "", nullptr, &status);
  return take(status);
}

Outcome sampleClock(zqvorexRedir::ITask& task, double rate, int32_t mode, uint64_t samples) {
  zqerr::Status status;
  task.configureSampleClockTiming("", rate, Vorex_Val_Rising, mode, samples, &status);
  return take(status);
}

Outcome control(zqvorexRedir::ITask& task, int32_t action) {
  zqerr::Status status;
  task.controlTask(action, true, &status);
  return take(status);
}

std::shared_ptr<zqvorexRedir::Task> clockedVoltage(const std::string& name, const std::string& physical, double rate,
                                                   int32_t mode, uint64_t samples, double range) {
  auto task = makeTask(name);
  EXPECT_EQ(addVoltage(*task, physical, range).code, 0);
  EXPECT_EQ(sampleClock(*task, rate, mode, samples).code, 0);
  return task;
}

Samples readVoltages(zqvorexRedir::ITask& task, int64_t samples, double timeout, uint64_t capacity) {
  Samples out;
  out.data.assign(capacity, -99.0);
  zqerr::Status status;
  zqgopher::ArrayBufferAdapter buffer(out.data.data(), capacity, &status);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  out.count =
      task.readScaledVectorF64(kAnalogInput, buffer.boundary(), &layout, samples, timeout, nullptr, &status);
  out.outcome = take(status);
  return out;
}

Outcome writeVoltages(zqvorexRedir::ITask& task, const std::vector<double>& values, uint32_t channels,
                      bool autoStart, uint32_t* written) {
  zqerr::Status status;
  zqgopher::ArrayBufferWriteAdapter buffer(values.data(), channels, values.size() / channels, &status);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  const uint32_t n =
      task.writeScaledVectorF64(kAnalogOutput, buffer.boundary(), &layout, autoStart, 10.0, nullptr, &status);
  if (written) *written = n;
  return take(status);
}

double timingF64(zqvorexRedir::ITask& task, int32_t id) {
  zqerr::Status status;
  const double value = task.getTimingAttributeF64(zqgopher::StringArrayView(), id, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return value;
}

uint64_t readU64(zqvorexRedir::ITask& task, int32_t id) {
  zqerr::Status status;
  const uint64_t value = task.getReadAttributeU64(zqgopher::StringArrayView(), id, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  return value;
}

double quantized(double volts, double range) {
  const double lsb = 2 * range / 65535.0;
  return -range + std::nearbyint((volts + range) / lsb) * lsb;
}

std::string itemValue(const std::string& report, const std::string& usage) {
  const std::string key = "\"usage\":\"" + usage + "\",\"value\":";
  const size_t at = report.find(key);
  if (at == std::string::npos) return "";
  size_t begin = at + key.size();
  size_t end = begin;
  if (report[begin] == '"') {
    end = report.find('"', ++begin);
  } else {
    end = report.find_first_of(",}", begin);
  }
  return report.substr(begin, end - begin);
}

bool eventually(const std::function<bool()>& done) {
  // A guard against a hang, not a measure of time.
  const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(120);
  while (!done()) {
    if (std::chrono::steady_clock::now() > limit) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  return true;
}

}  // namespace zqtest::sim
