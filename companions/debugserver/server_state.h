// The companion server's objects: a server owns its targets' records; a target keeps what its
// task told it and the samples it was handed.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "debugserver_test.h"
#include "zqvorex_debugserver.h"

struct zqvorexDebugServer_Target;

namespace zqdebugserver {

struct Batch {
  zqvorexDebugServer_TestBatch record{};
  std::vector<unsigned char> bytes;
};

struct TargetState {
  std::string taskName;
  const zqvorexDebugServer_Callbacks* callbacks = nullptr;
  std::string pluginName;
  zqvorexPlugin_Task_undefined* pluginTask = nullptr;
  std::set<std::string> devices;
  std::set<std::string> channels;
  uint32_t flags = 0;
  std::vector<Batch> batches;
};

struct ServerState {
  uint32_t privilegeLevel = 0;
  std::string name;
  std::string pipeName;
};

// Sets `code` when the status is clean or holds a warning: the first error wins.
void fail(zqerr_Status* status, int32_t code);
inline bool isOpen(const zqerr_Status* status) { return status && status->code >= 0; }

// Which of the boolean flags an operation sets.
void setFlag(TargetState& target, uint32_t bit, bool on);

// Copies the view's texts; false (and the status failed) for a null text.
bool readNames(const zqgopher_ArrayView* view, std::vector<std::string>& names, zqerr_Status* status);
void fillNames(const std::set<std::string>& names, zqgopher_IItemAdder* list, zqerr_Status* status);
void fillText(const std::string& text, zqgopher_IString* out, zqerr_Status* status);

// Records one hand-over: the record, and the samples the buffer holds for `count` per channel.
void recordArray(TargetState& target, uint32_t operation, uint32_t elementSize, uint32_t channelKind,
                 uint32_t formatCode, const zqgopher_IArrayBuffer* buffer, const zqerr_Status* callerStatus,
                 uint64_t count, zqerr_Status* status);
void recordLines(TargetState& target, uint32_t channelKind, uint32_t formatCode,
                 const zqgopher_IArrayLineBuffer* buffer, const zqerr_Status* callerStatus, uint64_t count,
                 zqerr_Status* status);

// Every server's and target's object lives here; the handles are their addresses.
std::mutex& registryLock();

}  // namespace zqdebugserver

struct zqvorexDebugServer_Server {
  zqdebugserver::ServerState state;
};

struct zqvorexDebugServer_Target {
  zqdebugserver::TargetState state;
};
