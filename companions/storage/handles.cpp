#include "handles.h"

#include <unordered_map>
#include <vector>

namespace zqstorage {

namespace {

struct Lock {
  std::shared_ptr<Session> session;
  bool write = false;
};

template <class T>
class HandleTable {
 public:
  explicit HandleTable(uint64_t tag) : tag_(tag << 56) {}

  uint64_t add(std::shared_ptr<T> item) {
    std::lock_guard<std::mutex> guard(mutex_);
    const uint64_t handle = tag_ | (next_++ & 0x00FFFFFFFFFFFFFFull);
    items_.emplace(handle, std::move(item));
    return handle;
  }
  std::shared_ptr<T> find(uint64_t handle) {
    std::lock_guard<std::mutex> guard(mutex_);
    auto it = items_.find(handle);
    return it == items_.end() ? nullptr : it->second;
  }
  std::shared_ptr<T> take(uint64_t handle) {
    std::lock_guard<std::mutex> guard(mutex_);
    auto it = items_.find(handle);
    if (it == items_.end()) return nullptr;
    auto item = std::move(it->second);
    items_.erase(it);
    return item;
  }
  size_t size() {
    std::lock_guard<std::mutex> guard(mutex_);
    return items_.size();
  }
  template <class Pred>
  std::vector<std::shared_ptr<T>> takeIf(Pred pred) {
    std::lock_guard<std::mutex> guard(mutex_);
    std::vector<std::shared_ptr<T>> taken;
    for (auto it = items_.begin(); it != items_.end();) {
      if (pred(*it->second)) {
        taken.push_back(std::move(it->second));
        it = items_.erase(it);
      } else {
        ++it;
      }
    }
    return taken;
  }

 private:
  std::mutex mutex_;
  std::unordered_map<uint64_t, std::shared_ptr<T>> items_;
  uint64_t tag_;
  uint64_t next_ = 1;
};

// The tables live as long as the library: a driver may unload it and load it again many times
// in one process, and tables left behind by an unload would be lost with whatever they hold.
HandleTable<Session>& sessions() {
  static HandleTable<Session> table(0x51);
  return table;
}
HandleTable<Lock>& locks() {
  static HandleTable<Lock> table(0x52);
  return table;
}
HandleTable<ChannelSpec>& channelSpecs() {
  static HandleTable<ChannelSpec> table(0x53);
  return table;
}
HandleTable<TaskSpec>& taskSpecs() {
  static HandleTable<TaskSpec> table(0x54);
  return table;
}

[[noreturn]] void badHandle(const char* what, uint64_t handle) {
  StorageError error(kBadPointer, ZQS_HERE, std::string("not a live ") + what);
  throw error.with("handle", std::to_string(handle));
}

std::shared_ptr<Lock> requireLock(uint64_t handle) {
  auto lock = locks().find(handle);
  if (!lock) badHandle("lock", handle);
  return lock;
}

}  // namespace

uint64_t addSession(std::shared_ptr<Session> session) { return sessions().add(std::move(session)); }

void releaseSession(uint64_t handle) {
  auto session = sessions().take(handle);
  if (!session) badHandle("session", handle);
  locks().takeIf([&](const Lock& lock) { return lock.session == session; });
  std::lock_guard<std::mutex> guard(session->mutex());
  session->close();
}

uint64_t beginLock(uint64_t handle, bool write) {
  auto session = sessions().find(handle);
  if (!session) badHandle("session", handle);
  {
    std::lock_guard<std::mutex> guard(session->mutex());
    if (write) {
      session->beginWrite();
    } else {
      session->beginRead();
    }
  }
  return locks().add(std::make_shared<Lock>(Lock{session, write}));
}

void endLock(uint64_t handle, bool write) {
  auto lock = requireLock(handle);
  if (lock->write != write) {
    fail(kInvalidParameter, ZQS_HERE, write ? "this is a read lock: end it as a read operation"
                                            : "this is a write lock: end it as a write operation");
  }
  locks().take(handle);
  std::lock_guard<std::mutex> guard(lock->session->mutex());
  if (write) {
    lock->session->endWrite();
  } else {
    lock->session->endRead();
  }
}

void saveLock(uint64_t handle) {
  auto lock = requireLock(handle);
  if (!lock->write) fail(kInvalidParameter, ZQS_HERE, "only a write lock has changes to save");
  std::lock_guard<std::mutex> guard(lock->session->mutex());
  lock->session->save();
}

void revertLock(uint64_t handle) {
  auto lock = requireLock(handle);
  if (!lock->write) fail(kInvalidParameter, ZQS_HERE, "only a write lock has changes to revert");
  std::lock_guard<std::mutex> guard(lock->session->mutex());
  lock->session->revert();
}

Target resolve(uint64_t handle) {
  if (auto lock = locks().find(handle)) return Target{lock->session, lock->write ? Target::kWriteLock : Target::kReadLock};
  if (auto session = sessions().find(handle)) return Target{session, Target::kSession};
  badHandle("session or lock", handle);
}

uint64_t liveHandleCount() {
  return sessions().size() + locks().size() + channelSpecs().size() + taskSpecs().size();
}

uint64_t addChannelSpec(std::shared_ptr<ChannelSpec> definition) { return channelSpecs().add(std::move(definition)); }
uint64_t addTaskSpec(std::shared_ptr<TaskSpec> definition) { return taskSpecs().add(std::move(definition)); }

std::shared_ptr<ChannelSpec> channelSpec(uint64_t handle) {
  auto definition = channelSpecs().find(handle);
  if (!definition) badHandle("channel specification", handle);
  return definition;
}

std::shared_ptr<TaskSpec> taskSpec(uint64_t handle) {
  auto definition = taskSpecs().find(handle);
  if (!definition) badHandle("task specification", handle);
  return definition;
}

void destroyChannelSpec(uint64_t handle) {
  if (!channelSpecs().take(handle)) badHandle("channel specification", handle);
}

void destroyTaskSpec(uint64_t handle) {
  if (!taskSpecs().take(handle)) badHandle("task specification", handle);
}

}  // namespace zqstorage
