// The build of the shared services. Each step's arguments come from the steps before it, so
// the order is fixed; the first failure ends the build and nothing of it stays behind.
#include <memory>
#include <string>

#include "binding/load_library.h"
#include "globals/globals_record.h"
#include "debug/debug_server_factory.h"
#include "globals/one_time.h"
#include "globals/shared_factory.h"
#include "globals/toggle_reader.h"
#include "paths/system_paths.h"
#include "selection/task_plugin_selector.h"
#include "status/exceptions.h"
#include "tasknames/local_task_name_generator.h"
#include "tasknames/shared_task_name_generator.h"

namespace nZQCAI100 {

namespace {

constexpr const char* kLibrarySubfolder = "qxef";

// The folder of every library that is bound by name: the 64-bit shared folder and "qxef".
std::string libraryFolder(zqerr_Status* status) {
  std::string shared;
  zqsysq::getSharedFolder64(&shared, status);
  return shared + "\\" + kLibrarySubfolder;
}

std::string libraryPath(const std::string& folder, const char* name) { return folder + "\\" + name; }

void makeSettings(SharedGlobals& g, zqerr_Status* status) {
  zqerr::StatusBridge bridge(status);
  g.systemSettings = std::make_shared<FeatureToggles>(bridge.fixed());
}

// The task catalog is optional: without it names are counted in this process.
void makeNameGenerator(SharedGlobals& g, const std::string& folder) {
  zqerr::Status own;
  g.nameGeneratorLibrary = zqvorexTaskCatalogCpp::bindNameGenerator(
      libraryPath(folder, zqvorexTaskCatalogCpp::kTaskCatalogLibrary).c_str(), &own);
  g.nameGenerator = g.nameGeneratorLibrary;
  if (g.nameGenerator)
    g.taskNameGenerator = std::make_shared<zqvorexRedir::SharedTaskNameGenerator>(g.nameGenerator);
  else
    g.taskNameGenerator = std::make_shared<zqvorexRedir::LocalTaskNameGenerator>();
}

// The storage library is not optional. Each class binds it on its own reference.
void bindStorage(SharedGlobals& g, const std::string& folder, zqerr_Status* status) {
  using namespace zqvorexStorageCpp;
  std::string path = libraryPath(folder, kStorageLibrary);
  g.storageLibrary = zqdynlib::loadBoundLibrary<Storage>(path.c_str(), status, kStoragePrefix);
  g.capabilitiesLibrary = zqdynlib::loadBoundLibrary<Capabilities>(path.c_str(), status, kStoragePrefix);
  g.storageSpecLibrary = zqdynlib::loadBoundLibrary<StorageSpec>(path.c_str(), status, kStoragePrefix);
  g.channelSpecificationLibrary =
      zqdynlib::loadBoundLibrary<ChannelSpecification>(path.c_str(), status, kStoragePrefix);
  g.channelTaskSpecificationLibrary =
      zqdynlib::loadBoundLibrary<ChannelTaskSpecification>(path.c_str(), status, kStoragePrefix);
}

void useStorage(SharedGlobals& g) {
  g.storage = g.storageLibrary;
  g.capabilities = g.capabilitiesLibrary;
  g.storageSpec = g.storageSpecLibrary;
  g.channelSpecification = g.channelSpecificationLibrary;
  g.channelTaskSpecification = g.channelTaskSpecificationLibrary;
}

void makeSelector(SharedGlobals& g) {
  zqvorexStorageCpp::StorageBindings bindings{g.capabilities, g.storage, g.storageSpec, g.channelSpecification,
                                               g.channelTaskSpecification};
  g.pluginSelector = std::make_shared<zqvorexRedir::TaskPluginSelector>(
      bindings, std::make_shared<ToggleReader>(togglesOf(g.systemSettings)));
}

// The debug server library is bound at the first request for a server, not here.
void makeDebugServerFactory(SharedGlobals& g, const std::string& folder) {
  auto plain = std::make_shared<zqvorexRedir::DebugServerFactory>(
      libraryPath(folder, zqvorexRedir::kDebugServerLibrary));
  g.debugServerFactory = std::make_shared<zqvorexRedir::DebugServerFactoryWithCache>(std::move(plain));
}

// Steps in order; each returns with the status failed or runs the next.
void build(SharedGlobals& g, zqerr_Status* status) {
  makeSettings(g, status);
  g.contextManager = std::make_shared<zqvorexRedir::ContextManager>();
  std::string folder = libraryFolder(status);
  if (!zqerr::isOpen(status)) return;
  g.pluginManager = std::make_shared<zqvorexRedir::PluginManager>(folder);
  g.taskFactory = std::make_shared<SharedFactory>();
  g.taskEventsList = std::make_shared<CTaskEventsList>();
  makeNameGenerator(g, folder);
  g.tlsManager = std::shared_ptr<IExtendedErrorInfoManager>(&tlsManager(), [](IExtendedErrorInfoManager*) {});
  g.taskPool = std::make_shared<TaskPool>(status);
  if (!zqerr::isOpen(status)) return;
  bindStorage(g, folder, status);
  if (!zqerr::isOpen(status)) return;
  useStorage(g);
  makeSelector(g);
  makeDebugServerFactory(g, folder);
  g.translator = std::make_shared<zqqxl::ThreadSafeQxlWrapper>(status);
}

}  // namespace

void buildSharedGlobals(zqerr_Status* status) noexcept {
  try {
    delete detail::gSharedGlobals.exchange(new SharedGlobals{}, std::memory_order_acq_rel);
    build(*detail::gSharedGlobals.load(std::memory_order_acquire), status);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
  if (zqerr::isOpen(status)) return;
  // Released here, on the building thread: a partly built record never stays behind.
  delete detail::gSharedGlobals.exchange(nullptr, std::memory_order_acq_rel);
}

}  // namespace nZQCAI100
