// A real Plugin table whose slots point at functions of this test program instead of a
// library's: each records its call in callLog(), so that tests see what reached the plug-in,
// with which handle and arguments, and in what order handles were destroyed.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "plugin/plugin.h"
#include "plugin/plugin_handles.h"

namespace zqtest {

// "op" for each call that reached a slot, "op:detail" where the call carries one.
std::vector<std::string>& callLog();

// The handles the slots hand out and expect.
zqvorexPlugin_Task_undefined* slotTaskHandle();
zqvorexPlugin_Context_undefined* slotContextHandle();

// Code that the next slot call sets in its status (0: none); cleared after one call.
void failNextSlotCall(int32_t code);
// Every call of `op` sets `code`, until clearSlotFailures().
void failSlotCalls(const std::string& op, int32_t code);
void clearSlotFailures();

// What the slots' plug-in task holds: its devices, and its channels with their physical
// channel text (TaskDevices, TaskChannels, PhysicalChanName).
struct SlotTaskContents {
  std::vector<std::string> devices;
  std::map<std::string, std::string> physicalNames;
};
SlotTaskContents& slotTaskContents();

// Records a call as the slots do, failing it as asked above; for slots that a test adds.
void recordSlotCall(std::string entry, zqerr_Status* status);
// The handle texts of the log: "task", "context", "other" or "null".
std::string slotHandleText(const void* handle);

// Puts `function` into the slot of the operation `name`.
template <class Fn>
void bindSlot(zqvorexRedir::Plugin& plugin, const char* name, Fn function) {
  for (size_t i = 0; i < zqvorexRedir::Plugin::kOperationCount; ++i)
    if (std::string_view(zqvorexRedir::Plugin::kNames[i]) == name) plugin.setSlot(i, reinterpret_cast<void*>(function));
}

// The token that the next event registration of the slots gives; each one counts up from it.
void setNextSlotEventToken(zqvorexPlugin_EventToken token);

// A plug-in with the slots of this program filled.
std::shared_ptr<zqvorexRedir::Plugin> makeSlotPlugin();

}  // namespace zqtest
