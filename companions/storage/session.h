// A session: one connection to one store, and the transaction that its locks share.
//
// Read locks of a session share one read transaction, begun with the first of them, so that
// they all see the state of that moment. A write lock holds a write transaction of its own
// (BEGIN IMMEDIATE, waiting while another process writes); save commits it and revert drops
// it, and the next write under the lock begins a new one. Ending the write lock drops what was
// not saved. Every single operation runs under the session's mutex, and every write inside a
// savepoint, so that a failed operation leaves nothing half done.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <type_traits>

#include "sqlite_db.h"

namespace zqstorage {

class Session {
 public:
  // A session on the store a url names (see store_location.h).
  static std::shared_ptr<Session> open(std::string_view url);
  // A session on the store in a given file.
  static std::shared_ptr<Session> openFile(const std::string& path);
  // A session on a private memory store filled from INI task text.
  static std::shared_ptr<Session> fromConfigText(std::string_view text);
  // A new memory store of this process; gives its url.
  static std::string newMemoryStore();

  explicit Session(std::unique_ptr<Database> db) : db_(std::move(db)) {}

  std::mutex& mutex() { return mutex_; }
  Database& db() { return *db_; }

  // With the mutex held:
  void beginRead();
  void endRead();
  void beginWrite();
  void endWrite();
  void save();
  void revert();
  // Makes sure the transaction of the present locks is open (after a save or a revert).
  void resume();
  bool writing() const { return writer_; }
  bool reading() const { return reads_ > 0; }
  // Ends whatever is open, dropping unsaved writes; the session is then unusable.
  void close();
  bool closed() const { return closed_; }

 private:
  void openTransaction(bool write);
  void closeTransaction(bool commit);

  std::mutex mutex_;
  std::unique_ptr<Database> db_;
  int reads_ = 0;
  bool writer_ = false;
  bool open_ = false;
  bool closed_ = false;
  int64_t changesAtBegin_ = 0;
};

// The number of saved changes of the store, inside the caller's transaction.
uint64_t changeNumber(Database& db);

// Runs one write inside a savepoint of the open write transaction.
template <class F>
auto atomically(Database& db, F&& body) {
  db.exec("SAVEPOINT zq_operation");
  try {
    if constexpr (std::is_void_v<decltype(body())>) {
      body();
      db.exec("RELEASE zq_operation");
    } else {
      auto result = body();
      db.exec("RELEASE zq_operation");
      return result;
    }
  } catch (...) {
    db.exec("ROLLBACK TO zq_operation");
    db.exec("RELEASE zq_operation");
    throw;
  }
}

}  // namespace zqstorage
