// What a user first asks of an acquisition: per channel, the range, the mean and the spread.
#pragma once

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace zqacq {

struct ChannelStats {
  double min = 0;
  double max = 0;
  double mean = 0;
  double rms = 0;
  double stddev = 0;
};

// Over count samples of one channel, a sample every stride values.
ChannelStats statsOf(const double* samples, size_t count, size_t stride);

// A table, one line per channel, of samples grouped by scan (channel after channel per sample).
void printStats(std::FILE* out, const std::vector<std::string>& names, const std::vector<double>& scans);

}  // namespace zqacq
