// The test-only exports: a test plays the outside tool through them.
#include <algorithm>
#include <cstring>
#include <thread>

#include "native_export.h"
#include "server_state.h"

#define ZQDS_EXPORT extern "C" ZQ_NATIVE_EXPORT

namespace {

const zqvorexDebugServer_Callbacks* callbacksOf(zqvorexDebugServer_Target* target) {
  std::lock_guard<std::mutex> guard(zqdebugserver::registryLock());
  return target ? target->state.callbacks : nullptr;
}

// The server calls its tasks from threads of its own, never holding its lock meanwhile. A
// thread that cannot start is a status, not an exception out of the export.
template <class Work>
void onServerThread(Work work, zqerr_Status* status) {
  try {
    std::thread(work).join();
  } catch (...) {
    zqdebugserver::fail(status, -52000);
  }
}

}  // namespace

ZQDS_EXPORT void zqvorexDebugServer_testOnly_setFlags(zqvorexDebugServer_Target* target,
                                                      bool controlCheckPending, bool cacheSamples,
                                                      zqerr_Status* status) {
  const zqvorexDebugServer_Callbacks* callbacks = callbacksOf(target);
  if (!zqdebugserver::isOpen(status) || !callbacks) return;
  onServerThread([&] {
    callbacks->table->lockTask(callbacks, status);
    if (!zqdebugserver::isOpen(status)) return;
    callbacks->table->setControlCheckPending(callbacks, controlCheckPending, status);
    callbacks->table->setCacheSamples(callbacks, cacheSamples, status);
    callbacks->table->unlockTask(callbacks, status);
  }, status);
}

ZQDS_EXPORT void zqvorexDebugServer_testOnly_abortTask(zqvorexDebugServer_Target* target,
                                                       zqerr_Status* status) {
  const zqvorexDebugServer_Callbacks* callbacks = callbacksOf(target);
  if (!zqdebugserver::isOpen(status) || !callbacks) return;
  onServerThread([&] { callbacks->table->abortTask(callbacks, status); }, status);
}

ZQDS_EXPORT uint32_t zqvorexDebugServer_testOnly_targetFlags(zqvorexDebugServer_Target* target) {
  std::lock_guard<std::mutex> guard(zqdebugserver::registryLock());
  return target ? target->state.flags : 0;
}

ZQDS_EXPORT uint64_t zqvorexDebugServer_testOnly_batchCount(zqvorexDebugServer_Target* target) {
  std::lock_guard<std::mutex> guard(zqdebugserver::registryLock());
  return target ? target->state.batches.size() : 0;
}

ZQDS_EXPORT bool zqvorexDebugServer_testOnly_batch(zqvorexDebugServer_Target* target, uint64_t index,
                                                   zqvorexDebugServer_TestBatch* batch, void* bytes,
                                                   uint64_t capacity) {
  std::lock_guard<std::mutex> guard(zqdebugserver::registryLock());
  if (!target || index >= target->state.batches.size()) return false;
  const zqdebugserver::Batch& kept = target->state.batches[index];
  if (batch) *batch = kept.record;
  if (bytes && !kept.bytes.empty())
    std::memcpy(bytes, kept.bytes.data(), std::min<uint64_t>(capacity, kept.bytes.size()));
  return true;
}
