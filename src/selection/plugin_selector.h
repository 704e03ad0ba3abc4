// Which plug-in serves a task: the question that the task asks whenever it learns its devices.
#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "status/status.h"

namespace zqvorexRedir {

// Device and physical channel names, in ascending byte order.
using NameSet = std::set<std::string>;

// Every operation does nothing when `status` holds an error on entry. `pluginName` and
// `debuggable` are written only on success; `devices` and `channels` receive the names found,
// beside what they held, and after a failure may hold what was found so far.
class IPluginSelector {
 public:
  virtual ~IPluginSelector() = default;

  virtual void selectForDevices(const NameSet& devices, const std::string& contextName,
                                std::string* pluginName, bool* debuggable, zqerr_Status* status) = 0;
  // `names` is a saved task's name or a channel list. True when it named a saved task.
  virtual bool selectForNames(const std::string& names, const std::string& contextName,
                              std::string* pluginName, bool* debuggable, NameSet* devices, NameSet* channels,
                              zqerr_Status* status) = 0;
  virtual void selectForTask(const std::string& savedTaskName, const std::string& channelNames,
                             const std::string& contextName, std::string* pluginName, bool* debuggable,
                             NameSet* devices, NameSet* channels, zqerr_Status* status) = 0;
  // A task that exists only as configuration text (INI): its devices are the local system's.
  virtual void selectForConfigString(uint32_t format, const std::string& configString,
                                     std::string* pluginName, bool* debuggable, NameSet* devices,
                                     NameSet* channels, zqerr_Status* status) = 0;
};

}  // namespace zqvorexRedir
