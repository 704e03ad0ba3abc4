// What every exported operation shares: the plug-in's handles, the guard that turns any
// exception into a status, and the check that each export has its operation's signature.
#pragma once

#include <exception>
#include <memory>
#include <new>
#include <type_traits>

#include "native_export.h"
#include "sim_status.h"
#include "task.h"
#include "zqvorex_plugin.h"

namespace zqsim {

struct ContextHandle {
  std::shared_ptr<Context> context;
};
struct TaskHandle {
  std::shared_ptr<SimTask> task;
};

inline ContextHandle* contextOf(zqvorexPlugin_Context_undefined* handle) {
  return reinterpret_cast<ContextHandle*>(handle);
}
inline SimTask* taskOf(zqvorexPlugin_Task_undefined* handle) {
  auto* h = reinterpret_cast<TaskHandle*>(handle);
  return h ? h->task.get() : nullptr;
}

// Runs `body` when the status is clean; any exception becomes a status, never crosses out.
template <class R, class F>
R guarded(zqerr_Status* status, R fallback, F&& body) {
  if (!isOpen(status)) return fallback;
  try {
    return body();
  } catch (const std::bad_alloc&) {
    SIM_FAIL(status, zqapalerr_memoryFull);
  } catch (const std::exception& e) {
    SIM_FAIL(status, zqpalerr_softwareFault, Items().text(usage::kDetail, e.what()));
  } catch (...) {
    SIM_FAIL(status, zqpalerr_softwareFault);
  }
  return fallback;
}

template <class F>
void guardedVoid(zqerr_Status* status, F&& body) {
  guarded(status, 0, [&] {
    body();
    return 0;
  });
}

// The task of a handle; a null handle is refused.
inline SimTask* requireTask(zqvorexPlugin_Task_undefined* handle, zqerr_Status* status) {
  SimTask* task = taskOf(handle);
  if (!task) SIM_FAIL(status, nZQMSTS::kErrorInvalidTask);
  return task;
}

}  // namespace zqsim

#define SIM_EXPORT extern "C" ZQ_NATIVE_EXPORT
// Each export has exactly its operation's signature.
#define SIM_SIGNATURE(operation) \
  static_assert(std::is_same_v<decltype(&zqvorexSim_##operation), zqvorexPlugin_##operation##_fn>, #operation)
