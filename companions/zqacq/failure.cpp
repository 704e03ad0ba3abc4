#include "failure.h"

#include <cstdio>
#include <vector>

namespace zqacq {

namespace {

std::string extendedText() {
  const int32 size = VorexGetExtendedErrorInfo(nullptr, 0);
  if (size <= 0) return {};
  std::vector<char> text(static_cast<size_t>(size));
  VorexGetExtendedErrorInfo(text.data(), static_cast<uInt32>(text.size()));
  return text.data();
}

}  // namespace

void check(int32 code) {
  if (code < 0) throw Failure(code, extendedText());
  if (code > 0) std::fprintf(stderr, "zqacq: warning %d: %s\n", code, extendedText().c_str());
}

std::string errorText(int32 code) {
  const int32 size = VorexGetErrorString(code, nullptr, 0);
  if (size <= 0) return {};
  std::vector<char> text(static_cast<size_t>(size));
  VorexGetErrorString(code, text.data(), static_cast<uInt32>(text.size()));
  return text.data();
}

TaskGuard::TaskGuard(const char* name) { check(VorexCreateTask(name, &task_)); }

TaskGuard::~TaskGuard() {
  if (task_) VorexClearTask(task_);
}

}  // namespace zqacq
