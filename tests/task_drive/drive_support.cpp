#include "drive_support.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "boundary/array_buffer_adapter.h"
#include "boundary/item_adder_adapter.h"
#include "contexts/context.h"
#include "platform/platform.h"
#include "selection/task_plugin_selector.h"
#include "storage/storage_binding.h"
#include "test_support.h"

namespace zqtest {

namespace {

// The programs of this folder run at the same time in one working folder: each has a store
// and a tool output of its own.
std::string programStem() {
  std::string name = programPath().substr(programPath().find_last_of("/\\") + 1);
  return name.substr(0, name.find('.'));
}

std::string makeDriveStore() {
  const std::string path = useFreshStore("drive_store_" + programStem());
  const std::string tool = siblingProgram("zqstorage") + " --store " + path + " ";
  const std::string output = "storage_tmp/drive_setup_" + programStem() + ".txt";
  for (const char* command : {
           "define-class 7100 --plugin zqtestDrive",
           "add-device Dev1 --class 7100",
           "add-device Dev2 --class 7100",
           "add-device Dev3 --class 7100",
       }) {
    EXPECT_EQ(runCommand(tool + command + " > " + output + " 2>&1"), 0) << command;
  }
  return path;
}

template <class Fn>
Fn symbol(void* library, const char* name) {
  return reinterpret_cast<Fn>(zqplatform::findSymbol(library, name));
}

}  // namespace

void useDriveStore() {
  static const std::string path = makeDriveStore();
  setEnvironment("ZQCAI_STORAGE_FILE", path);
}

std::string binFolder() {
  const std::string& program = programPath();
  const size_t slash = program.find_last_of("/\\");
  return slash == std::string::npos ? std::string() : program.substr(0, slash);
}

std::shared_ptr<zqvorexRedir::IPluginSelector> driveSelector() {
  static const zqvorexStorageCpp::StorageBindings bindings = [] {
    zqerr::Status status;
    auto bound = zqvorexStorageCpp::bindStorage(zqvorexStorageCpp::kStorageLibrary, &status);
    EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
    return bound;
  }();
  static const auto selector = std::make_shared<zqvorexRedir::TaskPluginSelector>(bindings, nullptr);
  return selector;
}

std::shared_ptr<zqvorexRedir::Task> makeDriveTask(std::shared_ptr<zqvorexRedir::IPluginManager> manager,
                                                  std::string name) {
  zqvorexRedir::TaskParts parts;
  parts.context = std::make_shared<zqvorexRedir::Context>(kContextName);
  parts.taskKind = zqvorexRedir::kTaskKindCreated;
  parts.pluginManager = std::move(manager);
  parts.pluginSelector = driveSelector();
  parts.name = std::move(name);
  return std::make_shared<zqvorexRedir::Task>(std::move(parts));
}

int32_t addChannel(zqvorexRedir::ITask& task, const std::string& physical) {
  zqerr::Status status;
  task.createAIVoltageChannel(physical, "", -1, -10.0, 10.0, 10348, "", nullptr, &status);
  if (status.code != 0 && status.report && status.report[0])
    std::fprintf(stderr, "createAIVoltageChannel %s: %s\n", physical.c_str(), status.report);
  return status.code;
}

std::vector<std::string> taskDevices(zqvorexRedir::ITask& task, int32_t* code) {
  zqerr::Status status;
  std::vector<std::string> devices;
  zqgopher::ItemAdderAdapter<std::string> list(devices);
  task.getTaskAttributeStringVtr(kTaskDevicesId, list.boundary(), &status);
  *code = status.code;
  return devices;
}

ReadResult readF64(zqvorexRedir::ITask& task, int64_t samples, uint64_t capacity) {
  ReadResult result;
  result.data.assign(capacity, -1.0);
  zqerr::Status status;
  zqgopher::ArrayBufferAdapter buffer(result.data.data(), capacity, &status);
  const zqvorexPlugin_ReadLayout layout{0, 0};
  result.samples = task.readScaledVectorF64(0, buffer.boundary(), &layout, samples, 10.0, nullptr, &status);
  result.code = status.code;
  return result;
}

bool holdsPluginData(const ReadResult& result, uint32_t channels) {
  if (result.code != 0 || result.samples == 0) return false;
  for (uint32_t c = 0; c < channels; ++c) {
    for (uint64_t s = 0; s < result.samples; ++s) {
      if (result.data.at(c * result.samples + s) != zqtestDrive_sample(c, s)) return false;
    }
  }
  return true;
}

DriveSwitches::DriveSwitches() : library_(zqplatform::loadLibrary(kDrivePlugin, 0)) {
  if (!library_) return;
  blockReads_ = symbol<zqtestDrive_testSetBlockReads_fn>(library_, "zqtestDrive_testSetBlockReads");
  counter_ = symbol<zqtestDrive_testCounter_fn>(library_, "zqtestDrive_testCounter");
  if (!blockReads_) counter_ = nullptr;
}

DriveSwitches::~DriveSwitches() {
  if (library_) zqplatform::freeLibrary(library_);
}

void failDeadlocked(const char* what) {
  std::fprintf(stderr, "deadlock: %s did not finish\n", what);
  std::fflush(stderr);
  std::_Exit(3);
}

const std::string& driveLog() {
  static const std::string path = "zqtest_drive_" + programStem() + ".log";
  return path;
}

void clearDriveLog() { std::ofstream(driveLog(), std::ios::binary | std::ios::trunc); }

std::vector<std::string> driveLogLines() {
  std::ifstream in(driveLog(), std::ios::binary);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

}  // namespace zqtest
