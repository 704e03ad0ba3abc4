// Thin owners of an SQLite connection and a prepared statement. Every SQLite failure becomes a
// StorageError whose code says what a caller can do about it (unreadable store, busy store,
// full disk), with SQLite's own message in the report.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "error.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zqstorage {

class Database {
 public:
  // path as SQLite takes it (UTF-8; "file:" URIs allowed); `label` names the store in reports.
  Database(const std::string& path, const std::string& label);
  ~Database();
  Database(const Database&) = delete;
  Database& operator=(const Database&) = delete;

  sqlite3* handle() const { return db_; }
  const std::string& label() const { return label_; }
  void exec(const char* sql);
  int64_t totalChanges() const;
  // Rows changed by the last statement.
  int64_t changes() const;
  [[noreturn]] void raise(int rc, Site site, std::string_view doing) const;

 private:
  sqlite3* db_ = nullptr;
  std::string label_;
};

class Statement {
 public:
  Statement(Database& db, const char* sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  Statement& bind(int index, int64_t value);
  Statement& bind(int index, double value);
  Statement& bindText(int index, std::string_view text);
  Statement& bindBlob(int index, const void* data, size_t size);
  Statement& bindNull(int index);
  // True while a row is there; false when done.
  bool step();
  // Runs a statement that returns no rows.
  void run();
  void reset();

  bool isNull(int column) const;
  int64_t int64(int column) const;
  double real(int column) const;
  std::string text(int column) const;
  std::string blob(int column) const;

 private:
  Database& db_;
  sqlite3_stmt* stmt_ = nullptr;
};

}  // namespace zqstorage
