// The process-wide services, built on first need by whichever call gets there first, in one
// fixed order, then read without a lock until the process ends. Inside the library, code gets
// its collaborators through the getters below for the time of one call; only the objects built
// here hold references to each other.
#pragma once

#include <memory>

#include "contexts/context.h"
#include "debug/debug_interfaces.h"
#include "events/task_events_list.h"
#include "lasterror/last_error.h"
#include "plugin/plugin_manager.h"
#include "pool/task_pool.h"
#include "selection/plugin_selector.h"
#include "status/status.h"
#include "storage/storage_binding.h"
#include "task/itask_factory.h"
#include "tasknames/task_name_generator.h"
#include "toggles/feature_toggles.h"
#include "translator/qxl_wrapper.h"

namespace nZQCAI100 {

// Fields in the record's order; destruction releases them from the last to the first.
struct SharedGlobals {
  std::shared_ptr<FeatureToggles> systemSettings;
  std::shared_ptr<zqvorexRedir::IContextManager> contextManager;
  std::shared_ptr<zqvorexRedir::IPluginManager> pluginManager;
  std::shared_ptr<zqvorexRedir::ITaskFactory> taskFactory;
  // The bound class owns its library, so the binding and its interface are one reference.
  std::shared_ptr<zqvorexTaskCatalogCpp::NameGenerator> nameGeneratorLibrary;  // null without the catalog
  std::shared_ptr<zqvorexTaskCatalogCpp::NameGenerator> nameGenerator;
  std::shared_ptr<zqvorexRedir::ITaskNameGenerator> taskNameGenerator;
  std::shared_ptr<IExtendedErrorInfoManager> tlsManager;  // the static manager; never deleted
  std::shared_ptr<ITaskPool> taskPool;
  std::shared_ptr<zqvorexRedir::IPluginSelector> pluginSelector;
  std::shared_ptr<zqvorexRedir::IDebugServerFactory> debugServerFactory;
  std::shared_ptr<ICTaskEventsList> taskEventsList;
  std::shared_ptr<zqvorexStorageCpp::Capabilities> capabilities;
  std::shared_ptr<zqvorexStorageCpp::ChannelSpecification> channelSpecification;
  std::shared_ptr<zqvorexStorageCpp::Storage> storage;
  std::shared_ptr<zqvorexStorageCpp::StorageSpec> storageSpec;
  std::shared_ptr<zqvorexStorageCpp::ChannelTaskSpecification> channelTaskSpecification;
  // The five library bindings. Each is the same object as the interface above it: the bound
  // class owns its library, and the record keeps the interface and the binding as the build
  // names them, so the release at exit runs in the record's order.
  std::shared_ptr<zqvorexStorageCpp::Capabilities> capabilitiesLibrary;
  std::shared_ptr<zqvorexStorageCpp::ChannelSpecification> channelSpecificationLibrary;
  std::shared_ptr<zqvorexStorageCpp::Storage> storageLibrary;
  std::shared_ptr<zqvorexStorageCpp::StorageSpec> storageSpecLibrary;
  std::shared_ptr<zqvorexStorageCpp::ChannelTaskSpecification> channelTaskSpecificationLibrary;
  std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> translator;
};

// The getters: with a failed status, null. Otherwise the one-time build runs if it has not
// succeeded yet; a failed build leaves its failure in `status` and gives null.
std::shared_ptr<zqvorexRedir::IContextManager> getContextManager(zqerr_Status* status);
std::shared_ptr<zqvorexRedir::ITaskFactory> getTaskFactory(zqerr_Status* status);
std::shared_ptr<zqvorexRedir::ITaskNameGenerator> getTaskNameGenerator(zqerr_Status* status);
std::shared_ptr<IExtendedErrorInfoManager> getTlsManager(zqerr_Status* status);
std::shared_ptr<ITaskPool> getTaskPool(zqerr_Status* status);
std::shared_ptr<ICTaskEventsList> getTaskEventsList(zqerr_Status* status);
std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> getTranslator(zqerr_Status* status);

// The record itself, for the objects that read it whenever they are asked (the task factory);
// null before a successful build and after exit.
SharedGlobals* currentSharedGlobals();

}  // namespace nZQCAI100
