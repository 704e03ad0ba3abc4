// What zqacq asks of a task it made: its channel names, and a progress line for long runs.
#pragma once

#include <string>
#include <vector>

#include "failure.h"

namespace zqacq {

std::vector<std::string> channelNames(TaskHandle task);

// "\r  done/total samples" on stderr, for runs long enough to wonder whether anything happens.
class Progress {
 public:
  Progress(unsigned long total, double seconds) : total_(total), shown_(seconds >= 2.0) {}
  void update(unsigned long done) const;
  void finish() const;

 private:
  unsigned long total_;
  bool shown_;
};

}  // namespace zqacq
