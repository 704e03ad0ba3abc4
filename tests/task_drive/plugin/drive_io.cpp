// Reads and abort of zqtestDrive. A blocking read waits on the task's condition with
// the task's mutex released, so that abortTask, which may come while the read is in progress,
// gets in and ends it.
#include "drive_state.h"
#include "native_export.h"

using namespace zqtestdrive;

namespace {

constexpr int32_t kNoChannelsCode = -200478;
// What a read for "all available samples" (-1) gives.
constexpr uint64_t kAvailableSamples = 4;

uint32_t waitForAbort(DriveTask& record, std::unique_lock<std::mutex>& guard, zqerr_Status* status) {
  const uint64_t generation = record.abortGeneration;
  noteBlockedRead(1);
  record.aborted.wait(guard, [&] { return record.abortGeneration != generation; });
  noteBlockedRead(-1);
  count(zqtestDrive_readsAborted);
  fail(status, zqtestDrive_kReadAbortedCode);
  return 0;
}


void endBlockedReads(DriveTask& record) {
  {
    std::lock_guard<std::mutex> guard(record.mutex);
    ++record.abortGeneration;
    count(zqtestDrive_aborts);
  }
  record.aborted.notify_all();
}

}  // namespace

extern "C" {

ZQ_NATIVE_EXPORT uint32_t zqtestDrive_readScaledVectorF64(zqvorexPlugin_Task_undefined* task, uint32_t,
                                                          zqgopher_IArrayBuffer* buffer,
                                                          const zqvorexPlugin_ReadLayout* layout,
                                                          int64_t numSampsPerChan, double, void*,
                                                          zqerr_Status* status) {
  if (!isOpen(status)) return 0;
  DriveTask& record = *asTask(task);
  std::unique_lock<std::mutex> guard(record.mutex);
  if (readsBlockFor(record.name)) return waitForAbort(record, guard, status);
  const auto channels = static_cast<uint32_t>(record.channels.size());
  if (channels == 0) {
    fail(status, kNoChannelsCode);
    return 0;
  }
  const uint64_t samples = numSampsPerChan < 0 ? kAvailableSamples : static_cast<uint64_t>(numSampsPerChan);
  buffer->table->resize(buffer, channels, samples, status);
  auto* data = static_cast<double*>(buffer->table->getMutableData(buffer, 0, status));
  if (!isOpen(status) || !data) return 0;
  const bool byScan = layout && layout->groupByScanNumber != 0;
  for (uint32_t c = 0; c < channels; ++c) {
    for (uint64_t s = 0; s < samples; ++s)
      data[byScan ? s * channels + c : c * samples + s] = zqtestDrive_sample(c, s);
  }
  count(zqtestDrive_reads);
  return static_cast<uint32_t>(samples);
}

ZQ_NATIVE_EXPORT void zqtestDrive_abortTask(zqvorexPlugin_Task_undefined* task, zqerr_Status* status) {
  if (!isOpen(status)) return;
  endBlockedReads(*asTask(task));
}

ZQ_NATIVE_EXPORT void zqtestDrive_testEndBlockedReads(const char* taskName) {
  forEachTaskNamed(taskName ? taskName : "", [](DriveTask& task) { endBlockedReads(task); });
}

}  // extern "C"

ZQTEST_DRIVE_OPERATION(readScaledVectorF64);
ZQTEST_DRIVE_OPERATION(abortTask);
ZQTEST_DRIVE_SWITCH(testEndBlockedReads);
