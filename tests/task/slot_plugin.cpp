#include "slot_plugin.h"

#include <cstring>
#include <map>

namespace zqtest {

namespace {

int taskObject;
int contextObject;
int32_t nextFailure;
std::map<std::string, int32_t>& failures() {
  static std::map<std::string, int32_t> byOperation;
  return byOperation;
}

void record(std::string entry, zqerr_Status* status) {
  int32_t code = nextFailure;
  nextFailure = 0;
  auto failure = failures().find(entry.substr(0, entry.find(':')));
  if (failure != failures().end()) code = failure->second;
  callLog().push_back(std::move(entry));
  if (code != 0 && status && status->code == 0) status->code = code;
}

std::string handleText(const void* handle) {
  if (handle == &taskObject) return "task";
  if (handle == &contextObject) return "context";
  return handle ? "other" : "null";
}

std::string namesOf(const zqgopher_ArrayView* view) {
  std::string text;
  if (!view) return "null";
  for (uint64_t i = 0; i < view->count; ++i) text += std::string(i ? "," : "") + zqgopher_ArrayView_strings(view)[i];
  return text;
}

void getTaskAttributeString(zqvorexPlugin_Task_undefined* task, int32_t id, zqgopher_IString* value,
                            zqerr_Status* status) {
  record("getTaskAttributeString:" + handleText(task) + ":" + std::to_string(id), status);
  if (value) value->table->assign(value, "from plug-in", 12, status);
}

void createAIVoltageChannel(zqvorexPlugin_Task_undefined* task, const char* physicalChannel, const char*, int32_t,
                            double, double, int32_t, const char*, zqgopher_IItemAdder*, zqerr_Status* status) {
  record("createAIVoltageChannel:" + handleText(task) + ":" + physicalChannel, status);
}

SlotTaskContents& contents() {
  static SlotTaskContents stored;
  return stored;
}
void getTaskAttributeStringVtr(zqvorexPlugin_Task_undefined* task, int32_t id, zqgopher_IItemAdder* value,
                               zqerr_Status* status) {
  record("getTaskAttributeStringVtr:" + handleText(task) + ":" + std::to_string(id), status);
  std::vector<const char*> items;
  if (id == 0x230E)
    for (const std::string& device : contents().devices) items.push_back(device.c_str());
  if (id == 0x1273)
    for (const auto& channel : contents().physicalNames) items.push_back(channel.first.c_str());
  if (!items.empty()) value->table.strings->addRange(value, items.data(), items.size(), status);
}
void getChannelAttributeString(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                               zqgopher_IString* value, zqerr_Status* status) {
  record("getChannelAttributeString:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id), status);
  const std::string& text = contents().physicalNames[namesOf(channels)];
  value->table->assign(value, text.data(), text.size(), status);
}

zqvorexPlugin_EventToken nextEventToken = 1;
zqvorexPlugin_EventToken takeEventToken(zqerr_Status* status) { return status->code < 0 ? 0 : nextEventToken++; }
zqvorexPlugin_EventToken registerEveryNSamplesEvent(zqvorexPlugin_Task_undefined* task, int32_t id, uint32_t n, bool,
                                                    zqgopher_IEventEveryNSamples*, zqerr_Status* status) {
  record("registerEveryNSamplesEvent:" + handleText(task) + ":" + std::to_string(id) + ":" + std::to_string(n), status);
  return takeEventToken(status);
}
zqvorexPlugin_EventToken registerDoneEvent(zqvorexPlugin_Task_undefined* task, bool, zqgopher_IEventDone*,
                                           zqerr_Status* status) {
  record("registerDoneEvent:" + handleText(task), status);
  return takeEventToken(status);
}
zqvorexPlugin_EventToken registerSignalEvent(zqvorexPlugin_Task_undefined* task, int32_t signal, bool,
                                             zqgopher_IEventSignal*, zqerr_Status* status) {
  record("registerSignalEvent:" + handleText(task) + ":" + std::to_string(signal), status);
  return takeEventToken(status);
}

template <class Fn>
void bind(zqvorexRedir::Plugin& plugin, const char* name, Fn function) {
  bindSlot(plugin, name, function);
}

}  // namespace

std::vector<std::string>& callLog() {
  static std::vector<std::string> log;
  return log;
}

zqvorexPlugin_Task_undefined* slotTaskHandle() { return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&taskObject); }
zqvorexPlugin_Context_undefined* slotContextHandle() {
  return reinterpret_cast<zqvorexPlugin_Context_undefined*>(&contextObject);
}

void recordSlotCall(std::string entry, zqerr_Status* status) { record(std::move(entry), status); }
std::string slotHandleText(const void* handle) { return handleText(handle); }
std::string slotNamesText(const zqgopher_ArrayView* view) { return namesOf(view); }

void failNextSlotCall(int32_t code) { nextFailure = code; }
void setNextSlotEventToken(zqvorexPlugin_EventToken token) { nextEventToken = token; }
SlotTaskContents& slotTaskContents() { return contents(); }
void failSlotCalls(const std::string& op, int32_t code) { failures()[op] = code; }
void clearSlotFailures() {
  failures().clear();
  nextFailure = 0;
}

std::shared_ptr<zqvorexRedir::Plugin> makeSlotPlugin() {
  auto plugin = std::make_shared<zqvorexRedir::Plugin>();
  BIND_RECORDED(*plugin, destroyTask);
  BIND_RECORDED(*plugin, destroyContext);
  BIND_RECORDED(*plugin, destroyDebugSession);
  BIND_RECORDED(*plugin, createDebugSession);
  BIND_RECORDED(*plugin, commitDebugSession);
  BIND_RECORDED(*plugin, getChannelAttributeF64, 2.5);
  BIND_RECORDED(*plugin, setChannelAttributeF64);
  BIND_RECORDED(*plugin, isTaskDone);
  BIND_RECORDED(*plugin, abortTask);
  BIND_RECORDED(*plugin, saveTask);
  BIND_RECORDED(*plugin, getTaskAttributeI32, 77);
  bind(*plugin, "getTaskAttributeString", &getTaskAttributeString);
  BIND_RECORDED(*plugin, setTaskAttributeBool);
  BIND_RECORDED(*plugin, setTaskAttributeI32);
  BIND_RECORDED(*plugin, setTaskAttributeString);
  BIND_RECORDED(*plugin, setTaskAttributeStringVtr);
  BIND_RECORDED(*plugin, createContext);
  BIND_RECORDED(*plugin, createTask);
  bind(*plugin, "createAIVoltageChannel", &createAIVoltageChannel);
  BIND_RECORDED(*plugin, addChannelsToTask);
  BIND_RECORDED(*plugin, setTimingAttributeStringVtr);
  BIND_RECORDED(*plugin, setDeviceAttributeI32);
  BIND_RECORDED(*plugin, rollbackFailedChannelCreations);
  bind(*plugin, "getTaskAttributeStringVtr", &getTaskAttributeStringVtr);
  bind(*plugin, "getChannelAttributeString", &getChannelAttributeString);
  BIND_RECORDED(*plugin, setReadAttributeI32);
  BIND_RECORDED(*plugin, resetReadAttributeI32);
  BIND_RECORDED(*plugin, configureLogging);
  bind(*plugin, "registerEveryNSamplesEvent", &registerEveryNSamplesEvent);
  bind(*plugin, "registerDoneEvent", &registerDoneEvent);
  bind(*plugin, "registerSignalEvent", &registerSignalEvent);
  BIND_RECORDED(*plugin, unregisterEvent);
  return plugin;
}

}  // namespace zqtest
