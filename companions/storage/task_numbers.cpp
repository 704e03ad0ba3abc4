#include "task_numbers.h"

#include <cstdio>

#include "session.h"
#include "store_location.h"

namespace zqstorage {

uint64_t takeTaskNumber() {
  const auto session = Session::open(kLocalUrl);
  std::lock_guard<std::mutex> guard(session->mutex());
  session->beginWrite();
  Database& db = session->db();
  Statement select(db, "SELECT value FROM meta WHERE key = 'next_task_number'");
  const uint64_t number = select.step() ? static_cast<uint64_t>(select.int64(0)) : 0;
  Statement update(db, "UPDATE meta SET value = ?1 WHERE key = 'next_task_number'");
  update.bind(1, static_cast<int64_t>(number + 1));
  update.run();
  session->save();
  session->endWrite();
  return number;
}

std::string taskNameFor(uint64_t number) {
  char name[64];
  std::snprintf(name, sizeof name, "_unnamedTask<%llX>", static_cast<unsigned long long>(number));
  return name;
}

}  // namespace zqstorage
