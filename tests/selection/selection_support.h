// The store that the selection tests read, set up once by the zqstorage tool as a user would,
// the selector over the real storage library, and a toggle store that the tests control.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "selection/task_plugin_selector.h"

namespace zqtest {

// Device classes 4660 and 4662 name the plug-in "zqvorexSim", 4661 "zqvorexOther" (product
// 777); 4999 is not defined. Devices, with their boolean properties:
//   SimA (4660, debuggable), SimB (4662), Other, AaOther, ZzOther (4661),
//   DebugDev (4661, debuggable, debug plug-in), DebugOrphan (4999, debug plug-in).
// Saved tasks: SavedSim (channel "ai" on SimA/ai0, SimA/ai1), Mixed (its own channel on
// SimA/ai2 and the global GlobalB), SavedOther (Other/ai0). Global channels: GlobalB
// (SimB/ai3), GlobalOther (Other/ai1), GlobalGhost (on the unknown device Ghost).
// Makes the store on first use and makes it the local store.
void useSelectionStore();
// A fresh store without any device.
void useEmptyStore();

class FakeToggles final : public zqvorexRedir::IToggleReader {
 public:
  explicit FakeToggles(bool debugSession) : debugSession_(debugSession) {}
  bool readToggle(std::string_view name, bool defaultValue) override {
    asked.emplace_back(std::string(name), defaultValue);
    return name == "DebugSession" ? debugSession_ : defaultValue;
  }
  std::vector<std::pair<std::string, bool>> asked;

 private:
  bool debugSession_;
};

// A selector over the companion storage library, bound once per process.
std::unique_ptr<zqvorexRedir::TaskPluginSelector> makeSelector(std::shared_ptr<FakeToggles> toggles);

// What an out-parameter holds when the operation did not write it.
inline constexpr const char* kUntouched = "<untouched>";

// A table of cases over the selection store, each case named by its `label`.
template <class Case>
class SelectionCases : public testing::TestWithParam<Case> {
 protected:
  void SetUp() override { useSelectionStore(); }
};

inline constexpr auto kCaseLabel = [](const auto& info) { return std::string(info.param.label); };

}  // namespace zqtest
