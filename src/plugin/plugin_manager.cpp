#include "plugin/plugin_manager.h"

#include <mutex>

#include "binding/load_library.h"
#include "status/exceptions.h"

namespace zqvorexRedir {

PluginManager::~PluginManager() { clear(); }

std::shared_ptr<Plugin> PluginManager::getPlugin(std::string_view name, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  try {
    std::string key(name);
    std::string path = folder_;
    if (!path.empty()) path += '\\';
    path += key;
    return getOrLoad(key, path, status);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

std::shared_ptr<Plugin> PluginManager::getPluginFromPath(std::string_view path, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  try {
    std::string text(path);
    std::string key;
    if (!zqdynlib::pluginPrefix(text.c_str(), &key, status)) return {};
    key.pop_back();  // the prefix's "_"
    return getOrLoad(key, text, status);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

// The lock stays held through the load, so that one library never loads twice at once. A
// failed load leaves no entry: the next request tries the file system again.
std::shared_ptr<Plugin> PluginManager::getOrLoad(const std::string& key, const std::string& path,
                                                 zqerr_Status* status) {
  std::lock_guard<zqplatform::SlimLock> guard(lock_);
  auto found = plugins_.find(key);
  if (found != plugins_.end()) return found->second;
  std::shared_ptr<Plugin> plugin = zqdynlib::loadPlugin<Plugin>(path.c_str(), status);
  if (!zqerr::isOpen(status) || !plugin) return {};
  plugins_.emplace(key, plugin);
  return plugin;
}

void PluginManager::clear() {
  std::map<std::string, std::shared_ptr<Plugin>> dropped;
  {
    std::lock_guard<zqplatform::SlimLock> guard(lock_);
    dropped.swap(plugins_);
  }
  // Libraries unload here, outside the lock: their unload routines may take locks of their own.
}

size_t PluginManager::pluginCount() const {
  std::lock_guard<zqplatform::SlimLock> guard(lock_);
  return plugins_.size();
}

}  // namespace zqvorexRedir
