#include "pool/task_pool.h"

#include <mutex>
#include <shared_mutex>
#include <tuple>

#include "status/exceptions.h"
#include "status/error_sites.h"

namespace nZQCAI100 {

namespace {

constexpr size_t kBuckets = 16;

}  // namespace

TaskPool::TaskPool(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  byHandle_ = std::make_unique<ByHandle>(kBuckets);
  byHandle_->max_load_factor(1.0f);
  byName_ = std::make_unique<ByName>(kBuckets);
  byName_->max_load_factor(1.0f);
}

void TaskPool::addTask(TaskRef task, zqerr_Status* status) {
  TaskRef argument = std::move(task);  // declared first: released after the lock
  if (!zqerr::isOpen(status)) return;
  if (!argument || !byHandle_) {
    ZQ_FAIL(status, kTaskPoolAddNull);
    return;
  }
  std::lock_guard<zqplatform::SlimLock> lock(lock_);
  insert(argument, status);
}

void TaskPool::insert(const TaskRef& task, zqerr_Status* status) {
  ByHandle::iterator handleNode;
  ByName::iterator nameNode;
  bool madeHandle = false, madeName = false;
  try {
    std::tie(handleNode, madeHandle) = byHandle_->emplace(taskAddress(*task), task);
    std::tie(nameNode, madeName) = byName_->emplace(task->getName(), task);
    if (!madeHandle || !madeName) ZQ_FAIL(status, kTaskPoolDuplicateTask);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
  if (zqerr::isOpen(status)) return;
  // Undo this call's half of a refused insertion; what stood there before stays.
  if (madeName) byName_->erase(nameNode);
  if (madeHandle) byHandle_->erase(handleNode);
}

void TaskPool::removeTask(TaskRef task, zqerr_Status* status) {
  TaskRef argument = std::move(task);  // declared first: the task may die here, never under the lock
  if (!zqerr::isOpen(status)) return;
  if (!argument || !byHandle_) {
    ZQ_FAIL(status, kTaskPoolRemoveNull);
    return;
  }
  size_t erased = 0;
  try {
    std::lock_guard<zqplatform::SlimLock> lock(lock_);
    erased = erase(argument);
  } catch (...) {
    zqerr::convertCurrentException(status);
    return;
  }
  if (erased == 0) ZQ_FAIL(status, kTaskPoolRemoveUnknown);
}

size_t TaskPool::erase(const TaskRef& task) {
  size_t erased = byHandle_->erase(taskAddress(*task));
  return erased + byName_->erase(task->getName());
}

TaskRef TaskPool::findTask(TaskHandle handle) {
  if (!byHandle_) return nullptr;
  std::shared_lock<zqplatform::SlimLock> lock(lock_);
  auto found = byHandle_->find(handle);
  return found == byHandle_->end() ? nullptr : found->second;
}

TaskRef TaskPool::getTask(TaskHandle handle, zqerr_Status* status) {
  TaskRef task;
  getTaskInto(handle, &task, status);
  return task;
}

void TaskPool::getTaskInto(TaskHandle handle, TaskRef* task, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  *task = findTask(handle);
  if (!*task) ZQ_FAIL(status, kTaskPoolGetUnknown);
}

}  // namespace nZQCAI100
