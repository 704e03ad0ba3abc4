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

void destroyTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  record("destroyTask:" + handleText(task), status);
}
void destroyContext(zqvorexPlugin_Context_undefined* context, zqerr_Status* status) {
  record("destroyContext:" + handleText(context), status);
}
void destroyDebugSession(zqvorexPlugin_Task_undefined* session, zqerr_Status* status) {
  record("destroyDebugSession:" + handleText(session), status);
}
zqvorexPlugin_Task_undefined* createDebugSession(const char* name, zqerr_Status* status) {
  record(std::string("createDebugSession:") + name, status);
  return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&taskObject);
}
void commitDebugSession(zqvorexPlugin_Task_undefined* session, zqerr_Status* status) {
  record("commitDebugSession:" + handleText(session), status);
}
double getChannelAttributeF64(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels,
                              int32_t id, zqerr_Status* status) {
  record("getChannelAttributeF64:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id), status);
  return 2.5;
}
void setChannelAttributeF64(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                            double value, zqerr_Status* status) {
  record("setChannelAttributeF64:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id) + ":" +
             std::to_string(value),
         status);
}
uint32_t isTaskDone(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  record("isTaskDone:" + handleText(task), status);
  return 0;
}
void abortTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  record("abortTask:" + handleText(task), status);
}
void saveTask(zqvorexPlugin_Task_undefined* task, const char* name, const char* author, bool option0, bool option1,
              bool option2, bool option3, zqerr_Status* status) {
  std::string options = std::to_string(option0) + std::to_string(option1) + std::to_string(option2) +
                        std::to_string(option3);
  record("saveTask:" + handleText(task) + ":" + name + ":" + author + ":" + options, status);
}
int32_t getTaskAttributeI32(zqvorexPlugin_Task_undefined* task, int32_t id, zqerr_Status* status) {
  record("getTaskAttributeI32:" + handleText(task) + ":" + std::to_string(id), status);
  return 77;
}
void getTaskAttributeString(zqvorexPlugin_Task_undefined* task, int32_t id, zqgopher_IString* value,
                            zqerr_Status* status) {
  record("getTaskAttributeString:" + handleText(task) + ":" + std::to_string(id), status);
  if (value) value->table->assign(value, "from plug-in", 12, status);
}
void setTaskAttributeBool(zqvorexPlugin_Task_undefined* task, int32_t id, uint32_t value, zqerr_Status* status) {
  record("setTaskAttributeBool:" + handleText(task) + ":" + std::to_string(id) + ":" + std::to_string(value), status);
}
void setTaskAttributeI32(zqvorexPlugin_Task_undefined* task, int32_t id, int32_t value, zqerr_Status* status) {
  record("setTaskAttributeI32:" + handleText(task) + ":" + std::to_string(id) + ":" + std::to_string(value), status);
}
void setTaskAttributeString(zqvorexPlugin_Task_undefined* task, int32_t id, const char* value,
                            zqerr_Status* status) {
  record("setTaskAttributeString:" + handleText(task) + ":" + std::to_string(id) + ":" + value, status);
}
void setTaskAttributeStringVtr(zqvorexPlugin_Task_undefined* task, int32_t id, const zqgopher_ArrayView* value,
                               zqerr_Status* status) {
  record("setTaskAttributeStringVtr:" + handleText(task) + ":" + std::to_string(id) + ":" + namesOf(value), status);
}

void setReadAttributeI32(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                         int32_t value, zqerr_Status* status) {
  record("setReadAttributeI32:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id) + ":" +
             std::to_string(value),
         status);
}
void resetReadAttributeI32(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                           zqerr_Status* status) {
  record("resetReadAttributeI32:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id), status);
}
void configureLogging(zqvorexPlugin_Task_undefined* task, const char* path, int32_t mode, const char* group,
                      int32_t operation, zqerr_Status* status) {
  record("configureLogging:" + handleText(task) + ":" + path + ":" + std::to_string(mode) + ":" + group + ":" +
             std::to_string(operation),
         status);
}

zqvorexPlugin_Context_undefined* createContext(const char* name, zqerr_Status* status) {
  record(std::string("createContext:") + name, status);
  return reinterpret_cast<zqvorexPlugin_Context_undefined*>(&contextObject);
}
zqvorexPlugin_Task_undefined* createTask(zqvorexPlugin_Context_undefined* context, const char* name,
                                         const char* saved, const char* channels, uint32_t kind,
                                         zqerr_Status* status) {
  record("createTask:" + handleText(context) + ":" + name + ":" + saved + ":" + channels + ":" + std::to_string(kind),
         status);
  return reinterpret_cast<zqvorexPlugin_Task_undefined*>(&taskObject);
}
void createAIVoltageChannel(zqvorexPlugin_Task_undefined* task, const char* physicalChannel, const char*, int32_t,
                            double, double, int32_t, const char*, zqgopher_IItemAdder*, zqerr_Status* status) {
  record("createAIVoltageChannel:" + handleText(task) + ":" + physicalChannel, status);
}

void addChannelsToTask(zqvorexPlugin_Task_undefined* task, const char* channelNames, zqerr_Status* status) {
  record("addChannelsToTask:" + handleText(task) + ":" + channelNames, status);
}

SlotTaskContents& contents() {
  static SlotTaskContents stored;
  return stored;
}
void rollbackFailedChannelCreations(zqvorexPlugin_Task_undefined* task, const char* channelNames,
                                    zqerr_Status* status) {
  record("rollbackFailedChannelCreations:" + handleText(task) + ":" + channelNames, status);
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

void setTimingAttributeStringVtr(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                                 const zqgopher_ArrayView* value, zqerr_Status* status) {
  record("setTimingAttributeStringVtr:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id) + ":" +
             namesOf(value),
         status);
}
void setDeviceAttributeI32(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                           int32_t value, zqerr_Status* status) {
  record("setDeviceAttributeI32:" + handleText(task) + ":" + namesOf(channels) + ":" + std::to_string(id) + ":" +
             std::to_string(value),
         status);
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
void unregisterEvent(zqvorexPlugin_Task_undefined* task, zqvorexPlugin_EventToken token, zqerr_Status* status) {
  record("unregisterEvent:" + handleText(task) + ":" + std::to_string(token), status);
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
  bind(*plugin, "destroyTask", &destroyTask);
  bind(*plugin, "destroyContext", &destroyContext);
  bind(*plugin, "destroyDebugSession", &destroyDebugSession);
  bind(*plugin, "createDebugSession", &createDebugSession);
  bind(*plugin, "commitDebugSession", &commitDebugSession);
  bind(*plugin, "getChannelAttributeF64", &getChannelAttributeF64);
  bind(*plugin, "setChannelAttributeF64", &setChannelAttributeF64);
  bind(*plugin, "isTaskDone", &isTaskDone);
  bind(*plugin, "abortTask", &abortTask);
  bind(*plugin, "saveTask", &saveTask);
  bind(*plugin, "getTaskAttributeI32", &getTaskAttributeI32);
  bind(*plugin, "getTaskAttributeString", &getTaskAttributeString);
  bind(*plugin, "setTaskAttributeBool", &setTaskAttributeBool);
  bind(*plugin, "setTaskAttributeI32", &setTaskAttributeI32);
  bind(*plugin, "setTaskAttributeString", &setTaskAttributeString);
  bind(*plugin, "setTaskAttributeStringVtr", &setTaskAttributeStringVtr);
  bind(*plugin, "createContext", &createContext);
  bind(*plugin, "createTask", &createTask);
  bind(*plugin, "createAIVoltageChannel", &createAIVoltageChannel);
  bind(*plugin, "addChannelsToTask", &addChannelsToTask);
  bind(*plugin, "setTimingAttributeStringVtr", &setTimingAttributeStringVtr);
  bind(*plugin, "setDeviceAttributeI32", &setDeviceAttributeI32);
  bind(*plugin, "rollbackFailedChannelCreations", &rollbackFailedChannelCreations);
  bind(*plugin, "getTaskAttributeStringVtr", &getTaskAttributeStringVtr);
  bind(*plugin, "getChannelAttributeString", &getChannelAttributeString);
  bind(*plugin, "setReadAttributeI32", &setReadAttributeI32);
  bind(*plugin, "resetReadAttributeI32", &resetReadAttributeI32);
  bind(*plugin, "configureLogging", &configureLogging);
  bind(*plugin, "registerEveryNSamplesEvent", &registerEveryNSamplesEvent);
  bind(*plugin, "registerDoneEvent", &registerDoneEvent);
  bind(*plugin, "registerSignalEvent", &registerSignalEvent);
  bind(*plugin, "unregisterEvent", &unregisterEvent);
  return plugin;
}

}  // namespace zqtest
