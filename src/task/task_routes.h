// Which way an operation of Task goes, told by its name: its own code, or the common frame
// with the answer that a task without a plug-in task gives for the operation's family.
#pragma once

#include <array>
#include <string_view>

namespace zqvorexRedir {

enum class OpRoute {
  own,              // written out by the task: local rules before or around the plug-in
  noDevice,         // without a plug-in task: kErrorCanNotPerformOpWhenNoDevInTask
  noChannels,       // without a plug-in task: kErrorCanNotPerformOpWhenNoChansInTask
  channelSetReset,  // without a plug-in task: kErrorChanNotInTask, unless the list is empty
  channelCreation,  // the creation frame: the channel's devices may bind the task first
  nothing,          // without a plug-in task: returns at once
  done,             // without a plug-in task: answers true
  mirrored,         // reads and writes: a debug target that asks for them is shown the samples
};

inline constexpr std::array<std::string_view, 28> kOwnOperations = {
    "commitDebugSession",      "abortTask",
    "getTaskAttributeBool",    "getTaskAttributeI32",
    "getTaskAttributeString",  "getTaskAttributeStringVtr",
    "getTaskAttributeU32",     "setTaskAttributeBool",
    "setTaskAttributeI32",     "setTaskAttributeString",
    "setTaskAttributeStringVtr", "resetTaskAttributeBool",
    "resetTaskAttributeI32",   "resetTaskAttributeString",
    "resetTaskAttributeStringVtr", "exportSignal",
    "configureWatchdogAOExpirStates", "configureWatchdogCOExpirStates",
    "configureWatchdogDOExpirStates", "setReadAttributeI32",
    "resetReadAttributeI32",   "configureLogging",
    "addChannelsToTask",       "rollbackFailedChannelCreations",
    "registerEveryNSamplesEvent", "registerDoneEvent",
    "registerSignalEvent",     "unregisterEvent",
};

constexpr bool startsWith(std::string_view name, std::string_view prefix) { return name.starts_with(prefix); }

constexpr bool isOwnOperation(std::string_view name) {
  for (std::string_view own : kOwnOperations)
    if (own == name) return true;
  return false;
}

// What a task without a plug-in task answers, by the operation's family.
constexpr OpRoute unboundRouteOf(std::string_view name) {
  if (name == "isTaskDone") return OpRoute::done;
  if (name == "waitUntilTaskDone") return OpRoute::nothing;
  if (startsWith(name, "setChannelAttribute") || startsWith(name, "resetChannelAttribute"))
    return OpRoute::channelSetReset;
  if (name == "controlTask" || startsWith(name, "getChannelAttribute") ||
      startsWith(name, "getDesiredChannelAttribute") || startsWith(name, "read") ||
      startsWith(name, "writeRaw") || startsWith(name, "perform"))
    return OpRoute::noChannels;
  return OpRoute::noDevice;
}

constexpr bool mirrorsSamples(std::string_view name) { return startsWith(name, "read") || startsWith(name, "write"); }

constexpr OpRoute routeOf(std::string_view name) {
  if (isOwnOperation(name)) return OpRoute::own;
  if (startsWith(name, "create") && name != "createTimingSource") return OpRoute::channelCreation;
  if (mirrorsSamples(name)) return OpRoute::mirrored;
  return unboundRouteOf(name);
}

}  // namespace zqvorexRedir
