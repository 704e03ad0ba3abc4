// One loaded plug-in per name, shared by all tasks of that plug-in. A name is a plug-in the
// moment it is asked for; nothing lists or enumerates them.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "plugin/plugin.h"
#include "status/status.h"

namespace zqvorexRedir {

class IPluginManager {
 public:
  virtual ~IPluginManager() = default;
  // The plug-in of that name, loaded on first request; empty on failure.
  virtual std::shared_ptr<Plugin> getPlugin(std::string_view name, zqerr_Status* status) = 0;
  // The same for a library given by path, entered under the path's file stem.
  virtual std::shared_ptr<Plugin> getPluginFromPath(std::string_view path, zqerr_Status* status) = 0;
  // Forgets every plug-in; libraries no task holds unload here.
  virtual void clear() = 0;
};

class PluginManager final : public IPluginManager {
 public:
  // `folder` is where plug-in libraries lie; empty means the loader's own search.
  explicit PluginManager(std::string folder) : folder_(std::move(folder)) {}
  ~PluginManager() override;
  PluginManager(const PluginManager&) = delete;
  PluginManager& operator=(const PluginManager&) = delete;

  std::shared_ptr<Plugin> getPlugin(std::string_view name, zqerr_Status* status) override;
  std::shared_ptr<Plugin> getPluginFromPath(std::string_view path, zqerr_Status* status) override;
  void clear() override;

  const std::string& folder() const { return folder_; }
  // How many plug-ins are loaded now.
  size_t pluginCount() const;

 private:
  std::shared_ptr<Plugin> getOrLoad(const std::string& key, const std::string& path, zqerr_Status* status);

  const std::string folder_;
  mutable zqplatform::SlimLock lock_;
  // Byte order then length, which is std::string's own order.
  std::map<std::string, std::shared_ptr<Plugin>> plugins_;
};

}  // namespace zqvorexRedir
