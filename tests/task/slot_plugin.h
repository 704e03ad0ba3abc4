// A real Plugin table whose slots point at functions of this test program instead of a
// library's: each records its call in callLog(), so that tests see what reached the plug-in,
// with which handle and arguments, and in what order handles were destroyed.
#pragma once

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
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
// The handle texts of the log: "task", "context", "other" or "null"; name lists joined by commas.
std::string slotHandleText(const void* handle);
std::string slotNamesText(const zqgopher_ArrayView* view);

// The text of one argument in the log: handles by name, name lists joined, numbers in decimal.
template <class T>
std::string argText(T value) {
  if constexpr (std::is_same_v<T, const char*>) {
    return value;
  } else if constexpr (std::is_same_v<T, const zqgopher_ArrayView*>) {
    return slotNamesText(value);
  } else if constexpr (std::is_pointer_v<T>) {
    return slotHandleText(value);
  } else {
    return std::to_string(value);
  }
}

template <size_t N>
struct OpName {
  constexpr OpName(const char (&text)[N]) { std::copy_n(text, N, name); }  // NOLINT: from a literal
  char name[N];
};

// A slot that records "op:argument:..." of every argument before the status, fails as asked
// and answers the slots' handle of its kind, or `Answer`.
template <OpName Op, class Fn, auto Answer = 0>
struct Recorded;
template <OpName Op, class R, class... A, auto Answer>
struct Recorded<Op, R (*)(A...), Answer> {
  static R call(A... args) {
    auto all = std::tie(args...);
    std::string entry = Op.name;
    [&]<size_t... I>(std::index_sequence<I...>) {
      ((entry += ":" + argText(std::get<I>(all))), ...);
    }(std::make_index_sequence<sizeof...(A) - 1>());
    recordSlotCall(std::move(entry), std::get<sizeof...(A) - 1>(all));
    if constexpr (std::is_same_v<R, zqvorexPlugin_Task_undefined*>) {
      return slotTaskHandle();
    } else if constexpr (std::is_same_v<R, zqvorexPlugin_Context_undefined*>) {
      return slotContextHandle();
    } else if constexpr (!std::is_void_v<R>) {
      return static_cast<R>(Answer);
    }
  }
};
#define BIND_RECORDED(plugin, op, ...) \
  ::zqtest::bindSlot(plugin, #op, &::zqtest::Recorded<#op, zqvorexPlugin_##op##_fn __VA_OPT__(, ) __VA_ARGS__>::call)

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
