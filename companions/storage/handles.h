// The opaque 64-bit handles of the C interface: sessions, locks and specifications, each kind
// in a table of its own, told apart by the top byte, so that a value of one kind is never
// taken for another. 0 is never a handle. Every operation on a store goes through readWith or
// writeWith, which find the session, hold its mutex and open what transaction it needs.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>

#include "session.h"
#include "stored_definitions.h"

namespace zqstorage {

uint64_t addSession(std::shared_ptr<Session> session);
// Ends the session's locks too, dropping unsaved writes.
void releaseSession(uint64_t handle);
uint64_t beginLock(uint64_t session, bool write);
// `write` says which end was called; a lock of the other kind is refused.
void endLock(uint64_t lock, bool write);
void saveLock(uint64_t lock);
void revertLock(uint64_t lock);

// What a handle given to an operation on a store stands for.
struct Target {
  std::shared_ptr<Session> session;
  enum Kind { kSession, kReadLock, kWriteLock } kind = kSession;
};
Target resolve(uint64_t handle);

// Runs body(db) in a consistent read: inside the locks' transaction, or, for a bare session
// without locks, inside a transaction of its own.
template <class F>
auto readWith(uint64_t handle, F&& body) {
  Target target = resolve(handle);
  Session& session = *target.session;
  std::lock_guard<std::mutex> guard(session.mutex());
  session.resume();
  if (target.kind != Target::kSession || session.reading() || session.writing()) return body(session.db());
  session.beginRead();
  struct End {
    Session& s;
    ~End() {
      try {
        s.endRead();
      } catch (...) {
      }
    }
  } end{session};
  return body(session.db());
}

// Runs body(db) as one atomic write: under a write lock, or, for a bare session without
// locks, as a transaction of its own that is saved at once.
template <class F>
auto writeWith(uint64_t handle, F&& body) {
  Target target = resolve(handle);
  Session& session = *target.session;
  std::lock_guard<std::mutex> guard(session.mutex());
  session.resume();
  if (target.kind == Target::kReadLock) fail(kInvalidParameter, ZQS_HERE, "a read lock cannot write: begin a write operation");
  if (session.writing()) return atomically(session.db(), [&] { return body(session.db()); });
  session.beginWrite();
  struct End {
    Session& s;
    ~End() {
      try {
        s.endWrite();
      } catch (...) {
      }
    }
  } end{session};
  if constexpr (std::is_void_v<decltype(body(session.db()))>) {
    body(session.db());
    session.save();
  } else {
    auto result = body(session.db());
    session.save();
    return result;
  }
}

// Sessions, locks and specifications not yet released: what a caller holds open.
uint64_t liveHandleCount();

// Specifications: copies in memory, owned through their handles.
uint64_t addChannelSpec(std::shared_ptr<ChannelSpec> definition);
uint64_t addTaskSpec(std::shared_ptr<TaskSpec> definition);
// -50004 for a handle that is not a live specification of the kind.
std::shared_ptr<ChannelSpec> channelSpec(uint64_t handle);
std::shared_ptr<TaskSpec> taskSpec(uint64_t handle);
void destroyChannelSpec(uint64_t handle);
void destroyTaskSpec(uint64_t handle);

}  // namespace zqstorage
