#include "selection_support.h"

#include <gtest/gtest.h>

#include "test_support.h"

namespace zqtest {

namespace {

const char* const kSavedTasks = R"ini(
[task SavedSim]
channels = ai
[channel ai]
task = SavedSim
device = SimA
physical_channels = SimA/ai0, SimA/ai1

[task Mixed]
channels = own, GlobalB
[channel own]
task = Mixed
device = SimA
physical_channels = SimA/ai2

[task SavedOther]
channels = x
[channel x]
task = SavedOther
device = Other
physical_channels = Other/ai0

[channel GlobalB]
device = SimB
physical_channels = SimB/ai3
[channel GlobalOther]
device = Other
physical_channels = Other/ai1
[channel GlobalGhost]
device = Ghost
physical_channels = Ghost/ai0
)ini";

std::string makeSelectionStore() {
  const std::string path = useFreshStore("selection_store");
  writeFile("storage_tmp/selection_tasks.ini", kSavedTasks);
  const std::string tool = siblingProgram("zqstorage") + " --store " + path + " ";
  for (const char* command : {
           "define-class 4660 --plugin zqvorexSim",
           "define-class 4662 --plugin zqvorexSim",
           "define-class 4661 --plugin zqvorexOther --product 777",
           "add-device SimA --class 4660 --debuggable",
           "add-device SimB --class 4662",
           "add-device Other --class 4661",
           "add-device AaOther --class 4661",
           "add-device ZzOther --class 4661",
           "add-device DebugDev --class 4661 --debuggable --debug-plugin",
           "add-device DebugOrphan --class 4999 --debug-plugin",
           "import storage_tmp/selection_tasks.ini",
       }) {
    EXPECT_EQ(runCommand(tool + command + " > storage_tmp/selection_setup.txt 2>&1"), 0) << command;
  }
  return path;
}

}  // namespace

void useSelectionStore() {
  static const std::string path = makeSelectionStore();
  setEnvironment("ZQCAI_STORAGE_FILE", path);
}

void useEmptyStore() { useFreshStore("selection_empty"); }

std::unique_ptr<zqvorexRedir::TaskPluginSelector> makeSelector(std::shared_ptr<FakeToggles> toggles) {
  return std::make_unique<zqvorexRedir::TaskPluginSelector>(storageBindings(), std::move(toggles));
}

}  // namespace zqtest
