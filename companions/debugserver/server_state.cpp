#include "server_state.h"

#include <algorithm>
#include <cstring>

#include "zqvorex_status_codes.h"

namespace zqdebugserver {

void fail(zqerr_Status* status, int32_t code) {
  if (status && status->code >= 0) status->code = code;
}

void setFlag(TargetState& target, uint32_t bit, bool on) {
  if (on)
    target.flags |= bit;
  else
    target.flags &= ~bit;
}

bool readNames(const zqgopher_ArrayView* view, std::vector<std::string>& names, zqerr_Status* status) {
  names.clear();
  if (!view) return true;
  for (uint64_t i = 0; i < view->count; ++i) {
    const char* name = zqgopher_ArrayView_strings(view)[i];
    if (!name) {
      fail(status, zqapalerr_invalidParameter);
      return false;
    }
    names.emplace_back(name);
  }
  return true;
}

void fillNames(const std::set<std::string>& names, zqgopher_IItemAdder* list, zqerr_Status* status) {
  if (!list) return fail(status, zqapalerr_invalidParameter);
  for (const std::string& name : names) list->table.strings->add(list, name.c_str(), status);
}

void fillText(const std::string& text, zqgopher_IString* out, zqerr_Status* status) {
  if (!out) return fail(status, zqapalerr_invalidParameter);
  out->table->assign(out, text.data(), text.size(), status);
}

namespace {

Batch& newBatch(TargetState& target, uint32_t operation, uint32_t channelKind, uint32_t formatCode,
                const zqerr_Status* callerStatus, uint64_t count) {
  Batch& batch = target.batches.emplace_back();
  batch.record.operation = operation;
  batch.record.channelKind = channelKind;
  batch.record.formatCode = formatCode;
  batch.record.callerCode = callerStatus ? callerStatus->code : 0;
  batch.record.count = count;
  return batch;
}

void keepBytes(Batch& batch, const void* data, uint64_t size) {
  if (!data || size == 0) return;
  const auto* bytes = static_cast<const unsigned char*>(data);
  batch.bytes.assign(bytes, bytes + size);
  batch.record.byteCount = size;
}

}  // namespace

void recordArray(TargetState& target, uint32_t operation, uint32_t elementSize, uint32_t channelKind,
                 uint32_t formatCode, const zqgopher_IArrayBuffer* buffer, const zqerr_Status* callerStatus,
                 uint64_t count, zqerr_Status* status) {
  Batch& batch = newBatch(target, operation, channelKind, formatCode, callerStatus, count);
  if (!buffer) return;
  uint32_t channels = buffer->table->getNumChannels(buffer, status);
  uint64_t perChannel = std::min(count, buffer->table->getNumSampsPerChan(buffer, 0, status));
  keepBytes(batch, buffer->table->getData(buffer, 0, status), uint64_t{channels} * perChannel * elementSize);
}

void recordLines(TargetState& target, uint32_t channelKind, uint32_t formatCode,
                 const zqgopher_IArrayLineBuffer* buffer, const zqerr_Status* callerStatus, uint64_t count,
                 zqerr_Status* status) {
  Batch& batch = newBatch(target, 12, channelKind, formatCode, callerStatus, count);
  if (!buffer) return;
  uint32_t channels = buffer->table->getNumChannels(buffer, status);
  uint64_t perChannel = std::min(count, buffer->table->getNumSampsPerChan(buffer, 0, status));
  uint64_t lines = 0;
  for (uint32_t c = 0; c < channels; ++c) lines += buffer->table->getNumLines(buffer, c, status);
  keepBytes(batch, buffer->table->getData(buffer, 0, status), lines * perChannel);
}

std::mutex& registryLock() {
  static std::mutex lock;
  return lock;
}

}  // namespace zqdebugserver
