// The four roads to a plug-in: devices, a saved task or channel list, a saved task with
// channels, and configuration text. Each opens its storage scopes in the fixed order (session,
// then section) and they end in reverse order on every path.
#include "selection/task_plugin_selector.h"

#include "boundary/guard.h"
#include "boundary/string_adapter.h"
#include "selection/selection_constants.h"
#include "status/error_sites.h"
#include "storage/auto_storage_session.h"
#include "storage/auto_storage_session_reader_with_lock.h"
#include "storage/auto_storage_session_spec_reader_with_lock.h"
#include "storage/open_session.h"
#include "text/list_parser.h"

namespace zqvorexRedir {

using zqvorexStorageCpp::AutoStorageSession;
using zqvorexStorageCpp::AutoStorageSessionReaderWithLock;
using zqvorexStorageCpp::AutoStorageSessionSpecReaderWithLock;

namespace {

void failNoDevice(zqerr_Status* status) {
  ZQ_FAIL(status, kTaskpluginselectorPhysicalChannelNotSpecified97);
}

}  // namespace

TaskPluginSelector::TaskPluginSelector(const zqvorexStorageCpp::StorageBindings& bindings,
                                       std::shared_ptr<IToggleReader> runtimeToggles)
    : capabilities_(bindings.capabilities),
      storage_(bindings.storage),
      storageSpec_(bindings.storageSpec),
      channelSpecification_(bindings.channelSpecification),
      channelTaskSpecification_(bindings.channelTaskSpecification),
      runtimeToggles_(std::move(runtimeToggles)) {}

void TaskPluginSelector::pluginFromSession(uint64_t session, const NameSet& devices,
                                           const std::string& contextName, std::string* pluginName,
                                           bool* debuggable, zqerr_Status* status) const {
  AutoStorageSessionReaderWithLock reader(storage_, session, status);
  pluginFromDevices(reader.get(), devices, contextName, pluginName, debuggable, status);
}

void TaskPluginSelector::selectForDevices(const NameSet& devices, const std::string& contextName,
                                          std::string* pluginName, bool* debuggable, zqerr_Status* status) {
  zqgopher::guarded(status, [&] {
    if (devices.empty()) return failNoDevice(status);
    AutoStorageSession session(
        storage_, zqvorexStorageCpp::openSession(storage_.get(), contextName.c_str(), status), status);
    pluginFromSession(session.get(), devices, contextName, pluginName, debuggable, status);
  });
}

bool TaskPluginSelector::selectForNames(const std::string& names, const std::string& contextName,
                                        std::string* pluginName, bool* debuggable, NameSet* devices,
                                        NameSet* channels, zqerr_Status* status) {
  return zqgopher::guarded(status, false, [&] {
    if (names.empty()) {
      ZQ_FAIL(status, kTaskpluginselectorGrafoEmptyTaskOrChans);
      return false;
    }
    AutoStorageSession session(
        storage_, zqvorexStorageCpp::openSession(storage_.get(), contextName.c_str(), status), status);
    bool isTask = false;
    {
      AutoStorageSessionSpecReaderWithLock specReader(storageSpec_, session.get(), status);
      std::vector<std::string> channelList = savedTaskChannels(specReader.get(), names, &isTask, status);
      if (!isTask) zqwombat::parseCommaList(names, &channelList, status);
      resolveChannels(specReader.get(), isTask ? names : std::string(), channelList, devices, channels,
                      status);
    }
    if (!zqerr::isOpen(status)) return false;
    if (devices->empty()) {
      failNoDevice(status);
      return false;
    }
    pluginFromSession(session.get(), *devices, contextName, pluginName, debuggable, status);
    return zqerr::isOpen(status) && isTask;
  });
}

void TaskPluginSelector::selectForTask(const std::string& savedTaskName, const std::string& channelNames,
                                       const std::string& contextName, std::string* pluginName,
                                       bool* debuggable, NameSet* devices, NameSet* channels,
                                       zqerr_Status* status) {
  zqgopher::guarded(status, [&] {
    if (savedTaskName.empty() && channelNames.empty()) return failNoDevice(status);
    AutoStorageSession session(
        storage_, zqvorexStorageCpp::openSession(storage_.get(), contextName.c_str(), status), status);
    {
      AutoStorageSessionSpecReaderWithLock specReader(storageSpec_, session.get(), status);
      std::vector<std::string> channelList;
      zqwombat::parseCommaList(channelNames, &channelList, status);
      if (!channelList.empty())
        resolveChannels(specReader.get(), std::string(), channelList, devices, channels, status);
      if (!savedTaskName.empty())
        resolveSavedTask(specReader.get(), savedTaskName, devices, channels, status);
    }
    if (!zqerr::isOpen(status)) return;
    if (devices->empty()) return failNoDevice(status);
    pluginFromSession(session.get(), *devices, contextName, pluginName, debuggable, status);
  });
}

// The names of the objects of a storage class, in the storage's order.
std::vector<std::string> TaskPluginSelector::objectNames(uint64_t lock, uint32_t storageClass,
                                                         zqerr_Status* status) const {
  std::vector<zqvorexStorageCpp::ObjectId> ids;
  zqvorexStorageCpp::ObjectIdList idsOut(ids);
  storage_->appendObjectsForStorageClass(lock, storageClass, idsOut.boundary(), status);
  std::vector<std::string> names;
  for (const zqvorexStorageCpp::ObjectId& id : ids) {
    std::string name;
    zqgopher::StringAdapter nameOut(name);
    storage_->getObjectName(lock, &id, nameOut.boundary(), status);
    if (!zqerr::isOpen(status)) break;
    names.push_back(std::move(name));
  }
  return names;
}

void TaskPluginSelector::selectForConfigString(uint32_t format, const std::string& configString,
                                               std::string* pluginName, bool* debuggable, NameSet* devices,
                                               NameSet* channels, zqerr_Status* status) {
  zqgopher::guarded(status, [&] {
    if (!storage_) {
      ZQ_FAIL(status, kTaskpluginselectorBadPointer232);
      return;
    }
    AutoStorageSession textSession(
        storage_, storage_->getSessionFromConfigString(configString.c_str(), format, status), status);
    AutoStorageSessionReaderWithLock textReader(storage_, textSession.get(), status);
    if (!zqerr::isOpen(status)) return;
    const std::vector<std::string> tasks = objectNames(textReader.get(), selection::kTaskClass, status);
    if (!zqerr::isOpen(status)) return;
    if (tasks.size() != 1) {
      ZQ_FAIL(status, kTaskpluginselectorIllegalNumberOfTasksFoundInTaskINI);
      return;
    }
    const std::vector<std::string> channelList =
        objectNames(textReader.get(), selection::kChannelClass, status);
    AutoStorageSessionSpecReaderWithLock textSpecReader(storageSpec_, textSession.get(), status);
    resolveChannels(textSpecReader.get(), tasks.front(), channelList, devices, channels, status);
    if (!zqerr::isOpen(status)) return;
    // The devices of configuration text are those of the local system.
    AutoStorageSession localSession(storage_, storage_->getSession(selection::kLocalContext, status), status);
    pluginFromSession(localSession.get(), *devices, selection::kLocalContext, pluginName, debuggable, status);
  });
}

}  // namespace zqvorexRedir
