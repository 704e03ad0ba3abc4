// A device by name, and for a name that the storage does not know, the names it does know.
#include <string_view>

#include "boundary/string_adapter.h"
#include "selection/selection_constants.h"
#include "selection/task_plugin_selector.h"
#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

// Stops at the first failure and keeps what was read before it.
std::vector<std::string> TaskPluginSelector::configuredDeviceNames(uint64_t lock) const {
  zqerr::Status local;
  std::vector<zqvorexStorageCpp::ObjectId> ids;
  zqvorexStorageCpp::ObjectIdList idsOut(ids);
  storage_->getConfiguredDevices(lock, selection::kDeviceClass, idsOut.boundary(), &local);
  std::vector<std::string> names;
  for (const zqvorexStorageCpp::ObjectId& id : ids) {
    if (!zqerr::isOpen(&local)) break;
    std::string name;
    zqgopher::StringAdapter nameOut(name);
    storage_->getObjectName(lock, &id, nameOut.boundary(), &local);
    if (zqerr::isOpen(&local)) names.push_back(std::move(name));
  }
  return names;
}

void TaskPluginSelector::findDevice(uint64_t lock, const std::string& device,
                                    zqvorexStorageCpp::ObjectId* objectId, zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return;
  if (!storage_) {
    ZQ_FAIL(status, kTaskpluginselectorBadPointer);
    return;
  }
  zqerr::Status local;
  storage_->getObjectIDForNameInNamespace(lock, selection::kDeviceClass, device.c_str(), objectId, &local);
  if (local.code != zqvorexStorage_errorObjectNotFound && local.code != zqvorexStorage_errorDeviceNotFound) {
    if (local.code != 0) zqerr::adopt(status, &local);
    return;
  }
  if (!ZQ_FAIL(status, kTaskpluginselectorInvalidDeviceID)) return;
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeDeviceSpecified, device);
  const std::vector<std::string> known = configuredDeviceNames(lock);
  if (known.empty()) return;
  const std::vector<std::string_view> views(known.begin(), known.end());
  zqerr::addItem(w, zqerr::usage::kUsageTypeSuggestedDevices, views.data(), views.size());
}

}  // namespace zqvorexRedir
