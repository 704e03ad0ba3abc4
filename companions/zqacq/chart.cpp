#include "chart.h"

#include <algorithm>
#include <cmath>

#include "stats.h"

namespace zqacq {

namespace {

// A space and the eight block heights, as UTF-8.
const char* const kBlocks[] = {" ",
                               "\xe2\x96\x81",
                               "\xe2\x96\x82",
                               "\xe2\x96\x83",
                               "\xe2\x96\x84",
                               "\xe2\x96\x85",
                               "\xe2\x96\x86",
                               "\xe2\x96\x87",
                               "\xe2\x96\x88"};

std::vector<double> columnMeans(const double* samples, size_t count, size_t stride, size_t width) {
  const size_t columns = std::min(width, count);
  std::vector<double> means(columns, 0.0);
  for (size_t c = 0; c < columns; ++c) {
    const size_t from = c * count / columns, to = (c + 1) * count / columns;
    double sum = 0;
    for (size_t i = from; i < to; ++i) sum += samples[i * stride];
    means[c] = sum / static_cast<double>(to - from);
  }
  return means;
}

}  // namespace

std::vector<std::string> chartRows(const double* samples, size_t count, size_t stride, const ChartShape& shape) {
  std::vector<std::string> rows(shape.rows);
  if (count == 0 || shape.rows == 0 || shape.width == 0) return rows;
  const ChannelStats range = statsOf(samples, count, stride);
  const double span = range.max - range.min;
  const int levels = static_cast<int>(shape.rows) * 8;
  for (const double v : columnMeans(samples, count, stride, shape.width)) {
    // A flat signal is drawn as a line along the bottom; anything else from one eighth to full.
    const double share = span > 0 ? (v - range.min) / span : 0.0;
    const int level = 1 + static_cast<int>(std::lround(share * (levels - 1)));
    for (size_t r = 0; r < shape.rows; ++r) {
      const int below = static_cast<int>(shape.rows - 1 - r) * 8;
      rows[r] += kBlocks[std::clamp(level - below, 0, 8)];
    }
  }
  return rows;
}

void printChart(std::FILE* out, const std::vector<std::string>& names, const std::vector<double>& scans,
                const ChartShape& shape) {
  const size_t channels = names.size();
  if (channels == 0) return;
  const size_t count = scans.size() / channels;
  for (size_t c = 0; c < channels; ++c) {
    const ChannelStats range = statsOf(scans.data() + c, count, channels);
    const auto rows = chartRows(scans.data() + c, count, channels, shape);
    std::fprintf(out, "%s\n", names[c].c_str());
    for (size_t r = 0; r < rows.size(); ++r) {
      if (r == 0) {
        std::fprintf(out, "%9.3f |%s\n", range.max, rows[r].c_str());
      } else if (r + 1 == rows.size()) {
        std::fprintf(out, "%9.3f |%s\n", range.min, rows[r].c_str());
      } else {
        std::fprintf(out, "%9s |%s\n", "", rows[r].c_str());
      }
    }
  }
}

}  // namespace zqacq
