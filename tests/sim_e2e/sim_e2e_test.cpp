// The simulated device SimDev1 from end to end, as an application drives it: the public interface
// alone, in an installation of this program's own (sim_installation.h), and the translator library
// in the system folder, which writes the items of the plug-in's reports into the extended error
// text. Input n sees a sine of 1 + 0.5 n V peak with 1 mV of noise.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "installation.h"
#include "sim_installation.h"
#include "zqcai_rd_mbcs.h"
#include "zqvorex_status_codes.h"

namespace {

using zqsimrun::awaitPumping;

// The default signal's noise peak, with room for the 16-bit converter's step.
constexpr double kNoise = 0.0015;

class Installation : public testing::Environment {
 public:
  void SetUp() override {
    zqsimrun::installSimulatedDevices("sim_e2e");
    translator_ = std::make_unique<zqtest::TranslatorFolder>();
    translator_->install(ZQ_TEST_XLATOR);
  }
  void TearDown() override { translator_.reset(); }

 private:
  std::unique_ptr<zqtest::TranslatorFolder> translator_;
};

const testing::Environment* const kInstallation = testing::AddGlobalTestEnvironment(new Installation);

std::string lastReport() {
  char report[2048] = "";
  VorexGetExtendedErrorInfo(report, sizeof report);
  return report;
}

// A call that must succeed; a failure brings the extended report along.
testing::AssertionResult ok(int32 code) {
  if (code == 0) return testing::AssertionSuccess();
  return testing::AssertionFailure() << "status " << code << ": " << lastReport();
}

// Makes tasks of voltage channels and clears them at the test's end, under a hang guard.
class SimEndToEnd : public testing::Test {
 protected:
  ~SimEndToEnd() override {
    for (TaskHandle task : tasks_) VorexClearTask(task);
  }
  TaskHandle voltageTask(const char* name, const char* channel, double rate, int32 mode, uInt64 samples) {
    TaskHandle task = makeTask(name);
    EXPECT_TRUE(
        ok(VorexCreateAIVoltageChan(task, channel, "", Vorex_Val_Cfg_Default, -5, 5, Vorex_Val_Volts, nullptr)));
    EXPECT_TRUE(ok(VorexCfgSampClkTiming(task, "", rate, Vorex_Val_Rising, mode, samples)));
    return task;
  }
  int32 clear(TaskHandle task) {
    tasks_.erase(std::remove(tasks_.begin(), tasks_.end(), task), tasks_.end());
    return VorexClearTask(task);
  }
  TaskHandle makeTask(const char* name) {
    TaskHandle task = nullptr;
    EXPECT_TRUE(ok(VorexCreateTask(name, &task)));
    tasks_.push_back(task);
    return task;
  }

 private:
  zqsimrun::HangGuard guard_{testing::UnitTest::GetInstance()->current_test_info()->name()};
  std::vector<TaskHandle> tasks_;
};

// What a done callback saw.
struct Done {
  TaskHandle task = nullptr;
  std::atomic<int> calls{0};
  std::atomic<int32> status{1};
  std::atomic<bool> sameTask{false};

  void registerOn(TaskHandle on) {
    task = on;
    ASSERT_TRUE(ok(VorexRegisterDoneEvent(on, 0, &Done::told, this)));
  }
  static int32 told(TaskHandle task, int32 status, void* data) {
    auto* done = static_cast<Done*>(data);
    done->sameTask = task == done->task;
    done->status = status;
    ++done->calls;
    return 0;
  }
};

int32 readAnalog(TaskHandle task, int32 samples, double timeout, std::vector<float64>& values, int32* read) {
  return VorexReadAnalogF64(task, samples, timeout, Vorex_Val_GroupByChannel, values.data(),
                            static_cast<uInt32>(values.size()), read, nullptr);
}

// Reads in every-N callbacks of four channels at 100 kS/s, as an application does.
struct Stream {
  static constexpr int32 kN = 10000;
  static constexpr int kCallbacks = 20;
  std::atomic<int> callbacks{0};
  std::atomic<int32> failure{0};
  // Written by the callbacks, one at a time, and looked at once the stop has returned.
  int wrongCounts = 0;
  double peak = 0;
  std::vector<float64> block = std::vector<float64>(4 * kN);

  static int32 read(TaskHandle task, int32, uInt32 told, void* data) {
    auto* s = static_cast<Stream*>(data);
    if (s->callbacks >= kCallbacks || s->failure != 0) return 0;
    int32 read = 0;
    s->failure = readAnalog(task, static_cast<int32>(told), 10.0, s->block, &read);
    s->wrongCounts += told != kN || read != kN;
    for (int32 k = 0; k < 4 * read; ++k) s->peak = std::max(s->peak, std::fabs(s->block[k]));
    ++s->callbacks;
    return 0;
  }
};

TEST_F(SimEndToEnd, EveryNSamplesCallbacksReadWhatTheyAreTold) {
  Stream s;
  TaskHandle task = voltageTask("E2eStream", "SimDev1/ai0:3", 100000, Vorex_Val_ContSamps, Stream::kN);
  // 20 s of room: a callback held up on a busy machine (or ThreadSanitizer) is no overrun.
  ASSERT_TRUE(ok(VorexCfgInputBuffer(task, 2000000)));
  ASSERT_TRUE(
      ok(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, Stream::kN, 0, &Stream::read, &s)));
  ASSERT_TRUE(ok(VorexStartTask(task)));
  ASSERT_TRUE(awaitPumping([&] { return s.callbacks >= Stream::kCallbacks || s.failure != 0; }));
  ASSERT_TRUE(ok(VorexStopTask(task)));
  EXPECT_EQ(s.failure, 0);
  EXPECT_EQ(s.wrongCounts, 0);
  EXPECT_LE(s.peak, 2.5 + kNoise) << "ai3's sine is the largest";
  uInt64 position = 0;
  ASSERT_TRUE(ok(VorexGetReadCurrReadPos(task, &position)));
  EXPECT_EQ(position, static_cast<uInt64>(Stream::kN) * s.callbacks) << "every chunk read once";
}

TEST_F(SimEndToEnd, TheSampleClockSignalIsToldOncePerSample) {
  std::atomic<int> ticks{0};
  TaskHandle task = voltageTask("E2eClock", "SimDev1/ai5", 20000, Vorex_Val_FiniteSamps, 1000);
  const auto tick = [](TaskHandle, int32, void* data) -> int32 {
    ++*static_cast<std::atomic<int>*>(data);
    return 0;
  };
  ASSERT_TRUE(ok(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, 0, tick, &ticks)));
  ASSERT_TRUE(ok(VorexStartTask(task)));
  ASSERT_TRUE(ok(VorexWaitUntilTaskDone(task, 60.0)));
  ASSERT_TRUE(awaitPumping([&] { return ticks >= 1000; }));
  EXPECT_EQ(ticks, 1000);
}

TEST_F(SimEndToEnd, AFiniteAcquisitionTellsItIsDoneAndKeepsItsSamples) {
  constexpr int32 kSamples = 2000;
  Done done;
  TaskHandle task = voltageTask("E2eFinite", "SimDev1/ai2", 10000, Vorex_Val_FiniteSamps, kSamples);
  done.registerOn(task);
  ASSERT_TRUE(ok(VorexStartTask(task)));
  ASSERT_TRUE(awaitPumping([&] { return done.calls > 0; }));
  EXPECT_EQ(done.status, 0);
  EXPECT_TRUE(done.sameTask);
  bool32 isDone = 0;
  uInt64 acquired = 0;
  ASSERT_TRUE(ok(VorexIsTaskDone(task, &isDone)));
  EXPECT_EQ(isDone, 1u);
  ASSERT_TRUE(ok(VorexGetReadTotalSampPerChanAcquired(task, &acquired)));
  EXPECT_EQ(acquired, static_cast<uInt64>(kSamples));
  // "Whatever there is" of a finite acquisition is all of it, there without waiting.
  std::vector<float64> values(kSamples + 1);
  int32 read = -1;
  ASSERT_TRUE(ok(readAnalog(task, -1, 0.0, values, &read)));
  ASSERT_EQ(read, kSamples);
  for (int32 i = 0; i < kSamples; ++i) ASSERT_LE(std::fabs(values[i]), 2.0 + kNoise) << i;
  EXPECT_EQ(readAnalog(task, 1, 0.0, values, &read), nZQMDEV::kErrorReadBeyondEnd);
  ASSERT_TRUE(ok(VorexStopTask(task)));
  EXPECT_EQ(done.calls, 1);
}

TEST_F(SimEndToEnd, AReaderThatStopsReadingOverrunsAndTheRunSaysSo) {
  Done done;
  TaskHandle task = voltageTask("E2eOverrun", "SimDev1/ai5", 10000, Vorex_Val_ContSamps, 1000);
  ASSERT_TRUE(ok(VorexCfgInputBuffer(task, 1000)));
  done.registerOn(task);
  ASSERT_TRUE(ok(VorexStartTask(task)));
  std::vector<float64> values(100);
  int32 read = 0;
  ASSERT_TRUE(ok(readAnalog(task, 100, 10.0, values, &read)));
  EXPECT_EQ(read, 100);
  // The reader stops; the failure ends the run, which the done event tells.
  ASSERT_TRUE(awaitPumping([&] { return done.calls > 0; }));
  EXPECT_EQ(done.status, nZQMDEV::kErrorReadOverrun);
  EXPECT_EQ(readAnalog(task, 100, 10.0, values, &read), nZQMDEV::kErrorReadOverrun);
  const std::string report = lastReport();
  EXPECT_NE(report.find("Buffer Size In Samps: 1000"), std::string::npos) << report;
  EXPECT_NE(report.find("Read Position: 100"), std::string::npos) << report;
  EXPECT_EQ(readAnalog(task, 100, 10.0, values, &read), nZQMDEV::kErrorReadOverrun) << "the run stays failed";
  EXPECT_EQ(done.calls, 1);
}

TEST_F(SimEndToEnd, AnAbortFromAnotherThreadOvertakesAReadThatWaits) {
  // 10 S/s: the read's 100,000 samples would take hours.
  TaskHandle task = voltageTask("E2eAbort", "SimDev1/ai5", 10, Vorex_Val_ContSamps, 1000);
  ASSERT_TRUE(ok(VorexStartTask(task)));
  std::atomic<bool> started{false}, finished{false};
  std::vector<float64> values(100000);
  int32 code = 0, read = 0;
  std::thread reader([&] {
    started = true;
    code = readAnalog(task, 100000, Vorex_Val_WaitInfinitely, values, &read);
    finished = true;
  });
  // No assertion until the join: the reader must not outlive what it reads into.
  awaitPumping([&] { return started.load(); });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  // An abort that came before the read began to wait would only stop the task; each poll
  // aborts again until the read has ended.
  const bool ended = awaitPumping([&] {
    VorexTaskControl(task, Vorex_Val_Task_Abort);
    return finished.load();
  });
  if (!ended) std::abort();
  reader.join();
  EXPECT_EQ(code, nZQMDEV::kErrorOperationAborted);
  EXPECT_LT(read, 100000);
  // The aborted task runs again.
  ASSERT_TRUE(ok(VorexStartTask(task)));
  ASSERT_TRUE(ok(readAnalog(task, 1, 10.0, values, &read)));
  EXPECT_EQ(read, 1);
}

struct ReservedCase {
  const char* holder;
  const char* latecomer;
  bool counter;
  const char* resource;  // the report's item
};

class Reserved : public SimEndToEnd, public testing::WithParamInterface<ReservedCase> {
 protected:
  // Inputs reserve their subsystem even on demand, so no timing is needed.
  TaskHandle inputTask(const char* name, const char* channel) {
    TaskHandle task = makeTask(name);
    EXPECT_TRUE(ok(GetParam().counter
                       ? VorexCreateCICountEdgesChan(task, channel, "", Vorex_Val_Rising, 0, Vorex_Val_CountUp)
                       : VorexCreateAIVoltageChan(task, channel, "", Vorex_Val_Cfg_Default, -10, 10, Vorex_Val_Volts,
                                                  nullptr)));
    return task;
  }
};

TEST_P(Reserved, ASecondTaskIsRefusedTheSubsystemTheFirstHolds) {
  TaskHandle holder = inputTask("E2eHolder", GetParam().holder);
  TaskHandle latecomer = inputTask("E2eLatecomer", GetParam().latecomer);
  ASSERT_TRUE(ok(VorexStartTask(holder)));
  EXPECT_EQ(VorexStartTask(latecomer), nZQMDEV::kErrorResourceReserved);
  const std::string report = lastReport();
  EXPECT_NE(report.find("Reserving Task Name: E2eHolder"), std::string::npos) << report;
  EXPECT_NE(report.find(GetParam().resource), std::string::npos) << report;
  EXPECT_EQ(VorexTaskControl(latecomer, Vorex_Val_Task_Reserve), nZQMDEV::kErrorResourceReserved);
  ASSERT_TRUE(ok(VorexStopTask(holder)));
  ASSERT_TRUE(ok(VorexStartTask(latecomer)));
  EXPECT_EQ(VorexStartTask(holder), nZQMDEV::kErrorResourceReserved);
  EXPECT_NE(lastReport().find("Reserving Task Name: E2eLatecomer"), std::string::npos) << lastReport();
  ASSERT_TRUE(ok(clear(latecomer)));
  EXPECT_TRUE(ok(VorexStartTask(holder))) << "a cleared task frees what it held";
}

INSTANTIATE_TEST_SUITE_P(Subsystems, Reserved,
                         testing::Values(ReservedCase{"SimDev1/ai0", "SimDev1/ai1", false, "Resource Name: ai"},
                                         ReservedCase{"SimDev1/ctr2", "SimDev1/ctr2", true, "Resource Name: ctr2"}));

}  // namespace
