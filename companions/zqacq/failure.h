// A failed call of the library, carried to main as an exception with the code and the extended
// error text of the thread, which is what the user reads.
#pragma once

#include <stdexcept>
#include <string>

#include "zqcai_rd_mbcs.h"

namespace zqacq {

class Failure : public std::runtime_error {
 public:
  Failure(int32 code, const std::string& text) : std::runtime_error(text), code_(code) {}
  int32 code() const { return code_; }

 private:
  int32 code_;
};

// A mistake on the command line: the usage is printed with it.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Throws a Failure for a negative code; a warning (positive) is printed and the run goes on.
void check(int32 code);

// The text of a code as the library gives it.
std::string errorText(int32 code);

// A task that is cleared however the command ends.
class TaskGuard {
 public:
  explicit TaskGuard(const char* name);
  ~TaskGuard();
  TaskGuard(const TaskGuard&) = delete;
  TaskGuard& operator=(const TaskGuard&) = delete;
  TaskHandle get() const { return task_; }

 private:
  TaskHandle task_ = nullptr;
};

}  // namespace zqacq
