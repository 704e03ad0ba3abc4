#include "lifecycle/task_creation.h"

#include "globals/shared_globals.h"
#include "status/error_sites.h"
#include "text/name_rule.h"
#include "text/nstring.h"
#include "task/task.h"

namespace nZQCAI100 {

namespace {

// A name the application gave must pass the rule for task names.
void validateTaskName(const std::string& name, zqerr_Status* status) {
  std::u16string wide;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::utf8ToWide(name.data(), name.size(), &wide, bridge.fixed());
  }
  if (!zqerr::isOpen(status)) return;
  int32_t kind = zqwombat::kNameKindTask;
  zqwombat::validateObjectName(wide, &kind, status);
}

}  // namespace

TaskCreation::TaskCreation(zqerr_Status* status)
    : status_(status),
      contexts_(getContextManager(status)),
      factory_(getTaskFactory(status)),
      rollback_(getTaskPool(status), status) {}

TaskRef TaskCreation::enter(TaskRef task) {
  auto pool = getTaskPool(status_);
  if (!pool) return nullptr;
  pool->addTask(task, status_);
  if (!zqerr::isOpen(status_)) return nullptr;
  rollback_.arm(task);
  return task;
}

std::string newTaskName(const std::string& name, zqerr_Status* status) {
  std::string taskName = name;
  if (!zqerr::isOpen(status)) return taskName;
  if (taskName.empty()) {
    if (auto generator = getTaskNameGenerator(status)) taskName = generator->generateTaskName(status);
  } else {
    validateTaskName(taskName, status);
  }
  return taskName;
}

TaskRef createNamedTask(TaskCreation& creation, const std::string& name, zqerr_Status* status) {
  const std::string taskName = newTaskName(name, status);
  return creation.make([&](zqvorexRedir::ITaskFactory& factory, auto context, zqerr_Status* s) {
    return factory.createTask(std::move(context), "", "", taskName, zqvorexRedir::kTaskKindCreated, s);
  });
}

TaskRef createTaskFromText(TaskCreation& creation, const std::string& name, const std::string& iniText,
                           zqerr_Status* status) {
  const std::string taskName = newTaskName(name, status);
  return creation.make([&](zqvorexRedir::ITaskFactory& factory, auto context, zqerr_Status* s) {
    return factory.createTaskFromString(std::move(context), taskName, kIniTextFormat, iniText, s);
  });
}

TaskRef loadSavedTask(TaskCreation& creation, const std::string& name, zqerr_Status* status) {
  if (zqerr::isOpen(status) && name.empty()) ZQ_FAIL(status, kCtaskLoadEmptyName);
  return creation.make([&](zqvorexRedir::ITaskFactory& factory, auto context, zqerr_Status* s) {
    return factory.loadTask(std::move(context), name, s);
  });
}

}  // namespace nZQCAI100
