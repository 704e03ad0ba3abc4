// zqacq read: analog input voltage from the channels given, finite or continuous, optionally
// triggered; a chart and statistics of what came, and the samples as CSV if asked.
#include <algorithm>
#include <cstdio>
#include <fstream>

#include "chart.h"
#include "commands.h"
#include "options.h"
#include "stats.h"
#include "task_info.h"

namespace zqacq {

namespace {

// --trigger SOURCE is a digital rising edge; SOURCE,LEVEL an analog edge, rising unless
// SOURCE,LEVEL,falling.
void configureTrigger(TaskHandle task, const std::string& option) {
  const size_t comma = option.find(',');
  if (comma == std::string::npos) {
    check(VorexCfgDigEdgeStartTrig(task, option.c_str(), Vorex_Val_Rising));
    return;
  }
  const std::string source = option.substr(0, comma);
  std::string rest = option.substr(comma + 1);
  int32 slope = Vorex_Val_Rising;
  const size_t second = rest.find(',');
  if (second != std::string::npos) {
    const std::string edge = rest.substr(second + 1);
    if (edge != "rising" && edge != "falling") throw UsageError("--trigger: the slope is rising or falling");
    slope = edge == "falling" ? Vorex_Val_Falling : Vorex_Val_Rising;
    rest.resize(second);
  }
  check(VorexCfgAnlgEdgeStartTrig(task, source.c_str(), slope, parseNumber(rest, "--trigger's level")));
}

void writeCsv(const std::string& path, const std::vector<std::string>& names, const std::vector<double>& scans,
              double rate) {
  std::ofstream out(path, std::ios::trunc);
  if (!out) throw UsageError("cannot write " + path);
  out << "time_s";
  for (const auto& name : names) out << ',' << name;
  out << '\n';
  const size_t count = scans.size() / names.size();
  for (size_t i = 0; i < count; ++i) {
    out << static_cast<double>(i) / rate;
    for (size_t c = 0; c < names.size(); ++c) out << ',' << scans[i * names.size() + c];
    out << '\n';
  }
  std::fprintf(stderr, "wrote %zu samples per channel to %s\n", count, path.c_str());
}

// Reads samples per channel in pieces of about a tenth of a second, straight into scans.
void readAll(TaskHandle task, size_t channels, unsigned long samples, double rate, std::vector<double>& scans) {
  const unsigned long piece = std::max(1ul, static_cast<unsigned long>(rate / 10));
  const Progress progress(samples, samples / rate);
  scans.assign(samples * channels, 0.0);
  unsigned long done = 0;
  while (done < samples) {
    const unsigned long want = std::min(piece, samples - done);
    int32 got = 0;
    check(VorexReadAnalogF64(task, static_cast<int32>(want), 10.0 + want / rate, Vorex_Val_GroupByScanNumber,
                             scans.data() + done * channels, static_cast<uInt32>(want * channels), &got, nullptr));
    done += static_cast<unsigned long>(got);
    progress.update(done);
  }
  progress.finish();
}

}  // namespace

int readCommand(int argc, char** argv) {
  const Options options(argc, argv, 2, {"rate", "samples", "trigger", "csv", "min", "max", "width", "rows"},
                        {"continuous"});
  const std::string& channels = options.operand("the channels to read, e.g. SimDev1/ai0:3");
  const double rate = options.number("rate", 1000.0);
  const unsigned long samples = options.count("samples", 1000);
  const bool continuous = options.flag("continuous");

  TaskGuard task("zqacq read");
  check(VorexCreateAIVoltageChan(task.get(), channels.c_str(), "", Vorex_Val_Cfg_Default, options.number("min", -10),
                                 options.number("max", 10), Vorex_Val_Volts, nullptr));
  check(VorexCfgSampClkTiming(task.get(), "", rate, Vorex_Val_Rising,
                              continuous ? Vorex_Val_ContSamps : Vorex_Val_FiniteSamps, samples));
  if (options.has("trigger")) configureTrigger(task.get(), options.text("trigger", ""));
  const std::vector<std::string> names = channelNames(task.get());

  check(VorexStartTask(task.get()));
  std::vector<double> scans;
  readAll(task.get(), names.size(), samples, rate, scans);
  check(VorexStopTask(task.get()));

  std::printf("%lu samples per channel from %zu channel%s at %g S/s%s\n\n", samples, names.size(),
              names.size() == 1 ? "" : "s", rate, continuous ? ", continuous" : "");
  ChartShape shape;
  shape.width = options.count("width", shape.width);
  shape.rows = options.count("rows", shape.rows);
  printChart(stdout, names, scans, shape);
  std::printf("\n");
  printStats(stdout, names, scans);
  if (options.has("csv")) writeCsv(options.text("csv", ""), names, scans, rate);
  return 0;
}

}  // namespace zqacq
