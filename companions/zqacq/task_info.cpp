#include "task_info.h"

#include <cstdio>

namespace zqacq {

std::vector<std::string> channelNames(TaskHandle task) {
  uInt32 count = 0;
  check(VorexGetTaskNumChans(task, &count));
  std::vector<std::string> names;
  for (uInt32 i = 1; i <= count; ++i) {
    const int32 size = VorexGetNthTaskChannel(task, i, nullptr, 0);
    check(size < 0 ? size : 0);
    std::vector<char> name(static_cast<size_t>(size));
    check(VorexGetNthTaskChannel(task, i, name.data(), size));
    names.emplace_back(name.data());
  }
  return names;
}

void Progress::update(unsigned long done) const {
  if (!shown_) return;
  std::fprintf(stderr, "\r  %lu/%lu samples (%lu%%)", done, total_, done * 100 / total_);
  std::fflush(stderr);
}

void Progress::finish() const {
  if (shown_) std::fprintf(stderr, "\n");
}

}  // namespace zqacq
