// A waveform drawn in the terminal with the eight Unicode block heights, a few rows per channel,
// so an acquisition can be looked at over ssh or in a log with no window.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace zqacq {

struct ChartShape {
  size_t width = 100;  // columns of the drawing
  size_t rows = 4;    // text rows per channel, eight heights each
};

// The rows of one channel's drawing, top first, each value of a column the mean of the samples
// that fall into it, scaled between the channel's own minimum and maximum.
std::vector<std::string> chartRows(const double* samples, size_t count, size_t stride, const ChartShape& shape);

// Every channel of scans (channel after channel per sample), with its name and range.
void printChart(std::FILE* out, const std::vector<std::string>& names, const std::vector<double>& scans,
                const ChartShape& shape);

}  // namespace zqacq
