#include "sqlite_db.h"

#include <sqlite3.h>

namespace zqstorage {

namespace {

struct Meaning {
  ErrorConstant constant;
  const char* desc;
};

Meaning meaningOf(int rc) {
  switch (rc & 0xFF) {
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return {kResourceNotFound, "the store file is not a store or is damaged"};
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return {kResourceNotFound, "the store file cannot be opened"};
    case SQLITE_READONLY:
      return {kResourceNotFound, "the store file cannot be written"};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {kOsFault, "the store is busy: another session or process kept it locked too long"};
    case SQLITE_NOMEM:
      return {kMemoryFull, "out of memory"};
    case SQLITE_FULL:
    case SQLITE_IOERR:
      return {kOsFault, "the store file could not be read or written"};
    case SQLITE_CONSTRAINT:
      return {kInvalidParameter, "the change breaks a rule of the store"};
    default:
      return {kSoftwareFault, "the store failed"};
  }
}

}  // namespace

Database::Database(const std::string& path, const std::string& label) : label_(label) {
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_URI | SQLITE_OPEN_FULLMUTEX;
  const int rc = sqlite3_open_v2(path.c_str(), &db_, flags, nullptr);
  if (rc != SQLITE_OK) {
    try {
      raise(rc, ZQS_HERE, "opening");
    } catch (...) {
      sqlite3_close_v2(db_);
      db_ = nullptr;
      throw;
    }
  }
  sqlite3_extended_result_codes(db_, 1);
}

Database::~Database() { sqlite3_close_v2(db_); }

void Database::exec(const char* sql) {
  const int rc = sqlite3_exec(db_, sql, nullptr, nullptr, nullptr);
  if (rc != SQLITE_OK) raise(rc, ZQS_HERE, sql);
}

int64_t Database::totalChanges() const { return sqlite3_total_changes64(db_); }

int64_t Database::changes() const { return sqlite3_changes64(db_); }

void Database::raise(int rc, Site site, std::string_view doing) const {
  const Meaning meaning = meaningOf(rc);
  StorageError error(meaning.constant, site, meaning.desc);
  error.with("store", label_);
  error.with("while", std::string(doing));
  error.with("sqlite", db_ ? sqlite3_errmsg(db_) : sqlite3_errstr(rc));
  throw error;
}

Statement::Statement(Database& db, const char* sql) : db_(db) {
  const int rc = sqlite3_prepare_v2(db.handle(), sql, -1, &stmt_, nullptr);
  if (rc != SQLITE_OK) db.raise(rc, ZQS_HERE, sql);
}

Statement::~Statement() { sqlite3_finalize(stmt_); }

Statement& Statement::bind(int index, int64_t value) {
  sqlite3_bind_int64(stmt_, index, value);
  return *this;
}

Statement& Statement::bind(int index, double value) {
  sqlite3_bind_double(stmt_, index, value);
  return *this;
}

Statement& Statement::bindText(int index, std::string_view text) {
  sqlite3_bind_text64(stmt_, index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  return *this;
}

Statement& Statement::bindBlob(int index, const void* data, size_t size) {
  // A zero-length blob is still a blob, not NULL.
  static const char kEmpty = 0;
  sqlite3_bind_blob64(stmt_, index, size ? data : &kEmpty, size, SQLITE_TRANSIENT);
  return *this;
}

Statement& Statement::bindNull(int index) {
  sqlite3_bind_null(stmt_, index);
  return *this;
}

bool Statement::step() {
  const int rc = sqlite3_step(stmt_);
  if (rc == SQLITE_ROW) return true;
  if (rc == SQLITE_DONE) return false;
  db_.raise(rc, ZQS_HERE, sqlite3_sql(stmt_));
}

void Statement::run() {
  while (step()) {
  }
}

void Statement::reset() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

bool Statement::isNull(int column) const { return sqlite3_column_type(stmt_, column) == SQLITE_NULL; }

int64_t Statement::int64(int column) const { return sqlite3_column_int64(stmt_, column); }

double Statement::real(int column) const { return sqlite3_column_double(stmt_, column); }

std::string Statement::text(int column) const {
  const auto* text = sqlite3_column_text(stmt_, column);
  const int size = sqlite3_column_bytes(stmt_, column);
  return text ? std::string(reinterpret_cast<const char*>(text), static_cast<size_t>(size)) : std::string();
}

std::string Statement::blob(int column) const {
  const void* data = sqlite3_column_blob(stmt_, column);
  const int size = sqlite3_column_bytes(stmt_, column);
  return data ? std::string(static_cast<const char*>(data), static_cast<size_t>(size)) : std::string();
}

}  // namespace zqstorage
