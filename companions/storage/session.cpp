#include "session.h"

#include <sqlite3.h>

#include <atomic>
#include <map>

#include "error.h"
#include "ini_reader.h"
#include "schema.h"
#include "store_location.h"

namespace zqstorage {

namespace {

// The memory stores of this process, each kept alive by one connection of its own.
struct MemoryStores {
  std::mutex mutex;
  std::map<std::string, std::unique_ptr<Database>> keepers;  // by SQLite path
  uint64_t next = 1;
};

// Lives as long as the library, like the handle tables: an unload closes the memory stores.
MemoryStores& memoryStores() {
  static MemoryStores stores;
  return stores;
}

}  // namespace

std::shared_ptr<Session> Session::open(std::string_view url) {
  switch (classifyUrl(url)) {
    case UrlKind::kLocal:
      return openFile(localStorePath());
    case UrlKind::kMemory: {
      const std::string path = memoryStorePath(url);
      {
        std::lock_guard<std::mutex> guard(memoryStores().mutex);
        if (!memoryStores().keepers.count(path)) {
          StorageError error(kResourceNotFound, ZQS_HERE, "no memory store of this process has this url");
          throw error.with("url", std::string(url));
        }
      }
      auto db = std::make_unique<Database>(path, std::string(trimmed(url)));
      prepareStore(*db, StoreKind::kMemory);
      return std::make_shared<Session>(std::move(db));
    }
    case UrlKind::kUnsupported:
      break;
  }
  StorageError error(kFeatureUnsupported, ZQS_HERE, "only the local store and memory stores can be reached; no remote host");
  throw error.with("url", std::string(url));
}

std::shared_ptr<Session> Session::openFile(const std::string& path) {
  auto db = std::make_unique<Database>(path, path);
  prepareStore(*db, StoreKind::kFile);
  return std::make_shared<Session>(std::move(db));
}

std::shared_ptr<Session> Session::fromConfigText(std::string_view text) {
  auto db = std::make_unique<Database>(":memory:", "INI text");
  prepareStore(*db, StoreKind::kMemory);
  auto session = std::make_shared<Session>(std::move(db));
  Database& store = session->db();
  store.exec("BEGIN IMMEDIATE");
  try {
    loadIniText(store, text);
    store.exec("COMMIT");
  } catch (...) {
    sqlite3_exec(store.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    throw;
  }
  return session;
}

std::string Session::newMemoryStore() {
  MemoryStores& stores = memoryStores();
  std::lock_guard<std::mutex> guard(stores.mutex);
  const std::string url = std::string(kMemoryUrlPrefix) + std::to_string(stores.next++);
  const std::string path = memoryStorePath(url);
  auto keeper = std::make_unique<Database>(path, url);
  prepareStore(*keeper, StoreKind::kMemory);
  stores.keepers.emplace(path, std::move(keeper));
  return url;
}

void Session::openTransaction(bool write) {
  db_->exec(write ? "BEGIN IMMEDIATE" : "BEGIN");
  if (!write) {
    // A deferred transaction takes its snapshot at its first read: take it now.
    Statement pin(*db_, "SELECT value FROM meta WHERE key = 'change_number'");
    pin.step();
  }
  open_ = true;
  changesAtBegin_ = db_->totalChanges();
}

void Session::closeTransaction(bool commit) {
  if (!open_) return;
  open_ = false;
  if (commit) {
    try {
      db_->exec("COMMIT");
    } catch (...) {
      sqlite3_exec(db_->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
      throw;
    }
  } else {
    sqlite3_exec(db_->handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

void Session::beginRead() {
  if (reads_ == 0 && !writer_) openTransaction(false);
  ++reads_;
}

void Session::endRead() {
  if (reads_ == 0) return;
  if (--reads_ == 0 && !writer_) closeTransaction(true);
}

void Session::beginWrite() {
  if (writer_) fail(kInvalidParameter, ZQS_HERE, "this session holds a write lock already");
  if (reads_ > 0) {
    fail(kInvalidParameter, ZQS_HERE,
         "this session holds read locks: end them first, or write through another session");
  }
  openTransaction(true);
  writer_ = true;
}

void Session::endWrite() {
  if (!writer_) return;
  writer_ = false;
  closeTransaction(false);
  if (reads_ > 0) openTransaction(false);
}

void Session::save() {
  if (!open_) return;
  if (db_->totalChanges() != changesAtBegin_) {
    db_->exec("UPDATE meta SET value = value + 1 WHERE key = 'change_number'");
  }
  closeTransaction(true);
}

void Session::revert() { closeTransaction(false); }

void Session::resume() {
  if (closed_) fail(kBadPointer, ZQS_HERE, "the session was released");
  if (!open_ && (writer_ || reads_ > 0)) openTransaction(writer_);
}

void Session::close() {
  closeTransaction(false);
  reads_ = 0;
  writer_ = false;
  closed_ = true;
}

uint64_t changeNumber(Database& db) {
  Statement select(db, "SELECT value FROM meta WHERE key = 'change_number'");
  return select.step() ? static_cast<uint64_t>(select.int64(0)) : 0;
}

}  // namespace zqstorage
