#include "stats.h"

#include <algorithm>
#include <cmath>

namespace zqacq {

ChannelStats statsOf(const double* samples, size_t count, size_t stride) {
  ChannelStats s;
  if (count == 0) return s;
  s.min = s.max = samples[0];
  double sum = 0, squares = 0;
  for (size_t i = 0; i < count; ++i) {
    const double v = samples[i * stride];
    s.min = std::min(s.min, v);
    s.max = std::max(s.max, v);
    sum += v;
    squares += v * v;
  }
  s.mean = sum / static_cast<double>(count);
  s.rms = std::sqrt(squares / static_cast<double>(count));
  // Around the mean in a second pass: the sum of squares cancels badly for a large offset.
  double spread = 0;
  for (size_t i = 0; i < count; ++i) spread += (samples[i * stride] - s.mean) * (samples[i * stride] - s.mean);
  s.stddev = std::sqrt(spread / static_cast<double>(count));
  return s;
}

void printStats(std::FILE* out, const std::vector<std::string>& names, const std::vector<double>& scans) {
  const size_t channels = names.size();
  if (channels == 0) return;
  const size_t count = scans.size() / channels;
  std::fprintf(out, "%-16s %10s %10s %10s %10s %10s\n", "channel", "min", "max", "mean", "rms", "std dev");
  for (size_t c = 0; c < channels; ++c) {
    const ChannelStats s = statsOf(scans.data() + c, count, channels);
    std::fprintf(out, "%-16s %10.4f %10.4f %10.4f %10.4f %10.4f\n", names[c].c_str(), s.min, s.max, s.mean, s.rms,
                 s.stddev);
  }
}

}  // namespace zqacq
