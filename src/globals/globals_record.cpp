// The record's pointer, the one-time record, the getters, and what runs at load and at exit.
#include <atomic>

#include "globals/globals_record.h"
#include "globals/one_time.h"
#include "tracing/trace_state.h"

namespace nZQCAI100 {

namespace detail {
constinit std::atomic<SharedGlobals*> gSharedGlobals{nullptr};
}  // namespace detail

namespace {

constinit OneTimeRecord gOnce{{0}, {0}, &buildSharedGlobals, &abandonSharedGlobals, 1};

template <class T>
std::shared_ptr<T> getField(std::shared_ptr<T> SharedGlobals::*field, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  runOnce(gOnce, status);
  if (!zqerr::isOpen(status)) return nullptr;
  SharedGlobals* globals = detail::gSharedGlobals.load(std::memory_order_acquire);
  return globals ? globals->*field : nullptr;
}

// Exit, in the reverse order of load: the record is abandoned first; a record that a build in
// progress still holds is destroyed second; the last-error store goes after both.
struct LoadAndExit {
  LoadAndExit() {
    tlsManager();  // made first, so its own end comes last
    zqtrace::initialiseState(zqerr::makeFixedStatus());
  }
  ~LoadAndExit() {
    gOnce.finish();
    delete detail::gSharedGlobals.exchange(nullptr, std::memory_order_acq_rel);
  }
};

LoadAndExit gLoadAndExit;

}  // namespace

OneTimeRecord& oneTimeRecord() { return gOnce; }

void abandonSharedGlobals() {
  uint32_t built = 1;
  if (gOnce.state.compare_exchange_strong(built, 0, std::memory_order_acq_rel))
    detail::gSharedGlobals.store(nullptr, std::memory_order_release);  // left to the process's end
}

SharedGlobals* currentSharedGlobals() { return detail::gSharedGlobals.load(std::memory_order_acquire); }

std::shared_ptr<zqvorexRedir::IContextManager> getContextManager(zqerr_Status* status) {
  return getField(&SharedGlobals::contextManager, status);
}

std::shared_ptr<zqvorexRedir::ITaskFactory> getTaskFactory(zqerr_Status* status) {
  return getField(&SharedGlobals::taskFactory, status);
}

std::shared_ptr<zqvorexRedir::ITaskNameGenerator> getTaskNameGenerator(zqerr_Status* status) {
  return getField(&SharedGlobals::taskNameGenerator, status);
}

std::shared_ptr<IExtendedErrorInfoManager> getTlsManager(zqerr_Status* status) {
  return getField(&SharedGlobals::tlsManager, status);
}

std::shared_ptr<ITaskPool> getTaskPool(zqerr_Status* status) { return getField(&SharedGlobals::taskPool, status); }

std::shared_ptr<ICTaskEventsList> getTaskEventsList(zqerr_Status* status) {
  return getField(&SharedGlobals::taskEventsList, status);
}

std::shared_ptr<zqqxl::ThreadSafeQxlWrapper> getTranslator(zqerr_Status* status) {
  return getField(&SharedGlobals::translator, status);
}

}  // namespace nZQCAI100
