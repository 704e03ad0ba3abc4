// soak [MINUTES] [WARMUP_SECONDS]: a long run against the simulated device through the public
// header. A continuous acquisition on SimDev1 whose every-N callbacks read the samples, attribute
// calls on that task from a second thread, and tasks on SimDev2 made, configured, started, read,
// stopped and cleared in a loop on a third. Prints the figures every minute and at the end; exits
// 1 when a sample was lost, a call failed, or the resident memory grew by 1 MB or more after the
// warm-up.
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "sim_installation.h"
#include "zqcai_rd_mbcs.h"

namespace {

constexpr int kChannels = 4;
constexpr float64 kRate = 10000;
constexpr uInt32 kEveryN = 1000;
constexpr int32 kChurnSamples = 100;
constexpr long kGrowthLimit = 1 << 20;

// Failed calls by status code.
class Errors {
 public:
  // The code when it is a failure; warnings and success pass.
  int32 note(int32 code) {
    if (code < 0) {
      std::lock_guard<std::mutex> held(lock_);
      ++counts_[code];
    }
    return code;
  }
  std::string text() {
    std::lock_guard<std::mutex> held(lock_);
    std::string out;
    for (const auto& [code, count] : counts_) out += " " + std::to_string(code) + "x" + std::to_string(count);
    return out.empty() ? " none" : out;
  }
  long total() {
    std::lock_guard<std::mutex> held(lock_);
    long sum = 0;
    for (const auto& entry : counts_) sum += entry.second;
    return sum;
  }

 private:
  std::mutex lock_;
  std::map<int32, long> counts_;
};

struct Figures {
  Errors errors;
  std::atomic<int64_t> told{0};  // samples per channel the every-N callbacks were told of
  std::atomic<int64_t> read{0};  // samples per channel they read
  std::atomic<int64_t> callbacks{0};
  std::atomic<int64_t> attributeCalls{0};
  std::atomic<int64_t> tasksMade{0};
  std::atomic<int64_t> churnSamples{0};
  std::atomic<int64_t> churnCallbacks{0};
  std::atomic<bool> running{true};
};

Figures figures;

long residentBytes() {
  long pages = 0, resident = 0;
  std::FILE* file = std::fopen("/proc/self/statm", "r");
  if (!file) return -1;
  if (std::fscanf(file, "%ld %ld", &pages, &resident) != 2) resident = -1;
  std::fclose(file);
  return resident < 0 ? -1 : resident * sysconf(_SC_PAGESIZE);
}

// On the plug-in's thread: reads exactly the samples the event tells of.
int32 readSamples(TaskHandle task, int32, uInt32 nSamples, void*) {
  static std::vector<float64> buffer(static_cast<size_t>(kEveryN) * kChannels);
  int32 read = 0;
  figures.told += nSamples;
  const int32 code = figures.errors.note(VorexReadAnalogF64(task, static_cast<int32>(nSamples), 10.0,
                                                            Vorex_Val_GroupByScanNumber, buffer.data(),
                                                            static_cast<uInt32>(buffer.size()), &read, nullptr));
  if (code >= 0) figures.read += read;
  ++figures.callbacks;
  return 0;
}

int32 countChurn(TaskHandle, int32, uInt32, void*) {
  ++figures.churnCallbacks;
  return 0;
}

TaskHandle makeTask(const char* name, const char* channels, int32 mode, uInt64 samples) {
  TaskHandle task = nullptr;
  Errors& e = figures.errors;
  if (e.note(VorexCreateTask(name, &task)) < 0) return nullptr;
  ++figures.tasksMade;
  e.note(VorexCreateAIVoltageChan(task, channels, "", Vorex_Val_Cfg_Default, -10, 10, Vorex_Val_Volts, nullptr));
  e.note(VorexCfgSampClkTiming(task, "", kRate, Vorex_Val_Rising, mode, samples));
  return task;
}

// The second thread: reads and settings of the acquisition's attributes while it runs.
void attributeTraffic(TaskHandle task) {
  Errors& e = figures.errors;
  while (figures.running) {
    uInt32 available = 0;
    uInt64 acquired = 0;
    float64 rate = 0;
    int32 overwrite = 0;
    e.note(VorexGetReadAvailSampPerChan(task, &available));
    e.note(VorexGetReadTotalSampPerChanAcquired(task, &acquired));
    e.note(VorexGetSampClkRate(task, &rate));
    e.note(VorexGetReadOverWrite(task, &overwrite));
    e.note(VorexSetReadOverWrite(task, Vorex_Val_DoNotOverwriteUnreadSamps));
    figures.attributeCalls += 5;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

// The third thread: a finite task on the other device, from creation to clearing, over and
// over, with a synchronous callback of this thread's own.
void taskChurn() {
  Errors& e = figures.errors;
  std::vector<float64> samples(kChurnSamples);
  while (figures.running) {
    TaskHandle task = makeTask("Soak Churn", "SimDev2/ai0", Vorex_Val_FiniteSamps, kChurnSamples);
    if (!task) continue;
    e.note(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, kChurnSamples / 2,
                                           Vorex_Val_SynchronousEventCallbacks, countChurn, nullptr));
    int32 read = 0;
    if (e.note(VorexStartTask(task)) >= 0 &&
        e.note(VorexReadAnalogF64(task, kChurnSamples, 10.0, Vorex_Val_GroupByChannel, samples.data(),
                                  kChurnSamples, &read, nullptr)) >= 0)
      figures.churnSamples += read;
    e.note(VorexStopTask(task));
    e.note(VorexClearTask(task));
  }
}

void report(const char* when, long resident) {
  std::printf("%s: samples %lld of %lld told (x%d channels), callbacks %lld, attribute calls %lld, tasks made %lld "
              "(churn samples %lld, churn callbacks %lld), errors%s, resident %ld kB\n",
              when, static_cast<long long>(figures.read.load()), static_cast<long long>(figures.told.load()), kChannels,
              static_cast<long long>(figures.callbacks.load()), static_cast<long long>(figures.attributeCalls.load()),
              static_cast<long long>(figures.tasksMade.load()), static_cast<long long>(figures.churnSamples.load()),
              static_cast<long long>(figures.churnCallbacks.load()), figures.errors.text().c_str(), resident / 1024);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const double minutes = argc > 1 ? std::atof(argv[1]) : 10.0;
  const double warmup = argc > 2 ? std::atof(argv[2]) : 30.0;
  if (minutes <= 0 || warmup < 0) {
    std::fprintf(stderr, "usage: soak [MINUTES > 0] [WARMUP_SECONDS]\n");
    return 2;
  }
  zqsimrun::installSimulatedDevices("soak");
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  const auto end = start + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(minutes * 60));
  const auto warmed = start + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(warmup));

  TaskHandle acquisition = makeTask("Soak Acquisition", "SimDev1/ai0:3", Vorex_Val_ContSamps, 100000);
  if (!acquisition) return 1;
  Errors& e = figures.errors;
  e.note(VorexRegisterEveryNSamplesEvent(acquisition, Vorex_Val_Acquired_Into_Buffer, kEveryN, 0, readSamples,
                                         nullptr));
  e.note(VorexStartTask(acquisition));
  std::thread attributes(attributeTraffic, acquisition);
  std::thread churn(taskChurn);

  long residentStart = -1;
  auto nextReport = start + std::chrono::minutes(1);
  int minute = 0;
  while (Clock::now() < end) {
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    if (residentStart < 0 && Clock::now() >= warmed) {
      residentStart = residentBytes();
      report("after warm-up", residentStart);
    }
    if (Clock::now() >= nextReport) {
      report(("minute " + std::to_string(++minute)).c_str(), residentBytes());
      nextReport += std::chrono::minutes(1);
    }
  }
  const long residentEnd = residentBytes();
  figures.running = false;
  attributes.join();
  churn.join();
  // After the stop no callback runs: the totals are final.
  e.note(VorexStopTask(acquisition));
  e.note(VorexClearTask(acquisition));
  report("end", residentEnd);

  if (residentStart < 0) residentStart = residentEnd;  // a run shorter than its warm-up
  const long growth = residentEnd - residentStart;
  std::printf("resident memory: %ld kB after warm-up, %ld kB at the end, growth %ld kB (limit %ld kB)\n",
              residentStart / 1024, residentEnd / 1024, growth / 1024, kGrowthLimit / 1024);
  bool failed = false;
  auto fail = [&](const std::string& why) {
    std::printf("FAIL: %s\n", why.c_str());
    failed = true;
  };
  if (growth >= kGrowthLimit) fail("memory grew by 1 MB or more");
  // An overrun is a failed call as well, counted below.
  if (figures.read != figures.told)
    fail("samples lost: read " + std::to_string(figures.read.load()) + " of " + std::to_string(figures.told.load()));
  if (figures.callbacks == 0 || figures.tasksMade < 2) fail("nothing moved");
  if (e.total() != 0) fail("calls failed:" + e.text());
  std::printf("%s\n", failed ? "soak FAILED" : "soak passed");
  return failed ? 1 : 0;
}
