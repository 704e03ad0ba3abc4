// The plug-in of a set of devices: each device's object tells whether the debug plug-in
// serves it; otherwise its class's capability data names the plug-in.
#include "boundary/string_adapter.h"
#include "selection/selection_constants.h"
#include "selection/task_plugin_selector.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

namespace {

// The report item that says why two plug-ins cannot serve one task.
void addAcrossPluginsComment(zqerr_Status* status) {
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::writeObject(w, nullptr);
  if (w) --w.cursor;
  w = zqerr::writeString(w, "type", "comment");
  zqerr::writeString(w, "comment", selection::kAcrossPluginsComment);
}

}  // namespace

bool TaskPluginSelector::debugSessionsEnabled() const {
  if (!runtimeToggles_) return selection::kDebugSessionDefault;
  return runtimeToggles_->readToggle(selection::kDebugSessionToggle, selection::kDebugSessionDefault);
}

// A property that the device lacks reads as false and leaves no failure behind.
bool TaskPluginSelector::readFlag(uint64_t lock, const zqvorexStorageCpp::ObjectId& device, uint32_t property,
                                  zqerr_Status* status) const {
  zqerr::Status local;
  const bool value = storage_->getObjectBoolProperty(lock, &device, property, &local);
  if (local.code == zqvorexStorage_errorPropertyNotFound) return false;
  if (local.code != 0) zqerr::adopt(status, &local);
  return zqerr::isOpen(status) && value;
}

std::string TaskPluginSelector::devicePlugin(uint64_t lock, const zqvorexStorageCpp::ObjectId& device,
                                             const std::string& contextName, bool debugEnabled,
                                             bool* debuggable, zqerr_Status* status) const {
  bool servedByDebugPlugin = false;
  if (debugEnabled) {
    servedByDebugPlugin = readFlag(lock, device, selection::kDebugPluginProperty, status);
    *debuggable = readFlag(lock, device, selection::kDebuggableProperty, status) || *debuggable;
  }
  if (servedByDebugPlugin) return selection::kDebugPlugin;
  uint32_t classId = 0;
  storage_->getClassIDForObject(lock, &device, &classId, status);
  std::string name;
  zqgopher::StringAdapter nameOut(name);
  capabilities_->getSDCClassAttributeString(contextName.c_str(), classId, selection::kPluginNameAttribute,
                                            nameOut.boundary(), status);
  return zqerr::isOpen(status) ? name : std::string();
}

void TaskPluginSelector::pluginFromDevices(uint64_t lock, const NameSet& devices,
                                           const std::string& contextName, std::string* pluginName,
                                           bool* debuggable, zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return;
  if (devices.empty()) {
    ZQ_FAIL(status, kTaskpluginselectorPhysicalChannelNotSpecified);
    return;
  }
  if (!storage_ || !capabilities_) {
    ZQ_FAIL(status, kTaskpluginselectorBadPointer216);
    return;
  }
  const bool debugEnabled = debugSessionsEnabled();
  std::string chosen;
  bool anyDebuggable = false;
  for (const std::string& device : devices) {
    zqvorexStorageCpp::ObjectId objectId{};
    findDevice(lock, device, &objectId, status);
    if (!zqerr::isOpen(status)) return;
    const std::string name = devicePlugin(lock, objectId, contextName, debugEnabled, &anyDebuggable, status);
    if (!zqerr::isOpen(status)) return;
    if (chosen.empty()) {
      chosen = name;
    } else if (!name.empty() && name != chosen) {
      if (ZQ_FAIL(status, kTaskpluginselectorFeatureUnsupported))
        addAcrossPluginsComment(status);
      return;
    }
  }
  *pluginName = chosen;
  *debuggable = anyDebuggable;
}

}  // namespace zqvorexRedir
