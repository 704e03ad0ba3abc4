/* The simulated device SimDev1 from end to end, as an application drives it: only the public
 * header and the shared library, in an installation with the storage library and the
 * simulated device's plug-in. Input n sees by default a sine of 1 + 0.5 n V peak at 10 (n + 1) Hz
 * with 1 mV of noise; ao0:3 drive ai0:3. Every check that fails returns its line. */
#include <math.h>
#include <stdatomic.h>
#include <stdio.h>
#include <string.h>

#include "zqcai_rd_mbcs.h"

#include "sim_e2e_support.h"

#define READ_TIMEOUT (-209500)
#define READ_OVERRUN (-209501)
#define RESOURCE_RESERVED (-209504)
#define OPERATION_ABORTED (-209508)
#define READ_BEYOND_END (-209518)

/* The default signal's noise peak, with room for the 16-bit converter's step. */
#define NOISE 0.0015

/* A failed check jumps to the scenario's end, which clears its tasks; `failed` holds its line. */
#define CHECK(condition)                                  \
  do {                                                    \
    if (!(condition)) {                                   \
      failed = fail(why, size, __LINE__, #condition, 0);  \
      goto end;                                           \
    }                                                     \
  } while (0)
/* A call that must succeed; a failure brings the extended report along. */
#define CALL(call)                                          \
  do {                                                      \
    int32 code_ = (call);                                   \
    if (code_ != 0) {                                       \
      failed = fail(why, size, __LINE__, #call, code_);     \
      goto end;                                             \
    }                                                       \
  } while (0)

static int fail(char* why, size_t size, int line, const char* what, int32 code) {
  char report[768] = "";
  if (code != 0) VorexGetExtendedErrorInfo(report, sizeof report);
  snprintf(why, size, "line %d: %s (status %d) %s", line, what, (int)code, report);
  return line;
}

/* The last error's extended report on this thread holds `text`; else the why tells the report
 * and where the failure was raised. */
#define CHECK_REPORT(text)                                    \
  do {                                                        \
    if (!reportHolds(text, why, size, __LINE__)) {            \
      failed = __LINE__;                                      \
      goto end;                                               \
    }                                                         \
  } while (0)

static int reportHolds(const char* text, char* why, size_t size, int line) {
  char report[2048] = "", description[2048] = "";
  VorexGetExtendedErrorInfo(report, sizeof report);
  if (strstr(report, text) != NULL) return 1;
  VorexInternalGetLastErrorDescription(1, 0, description, sizeof description);
  snprintf(why, size, "line %d: no \"%s\" in: %s [described: %s]", line, text, report, description);
  return 0;
}

/* Names the case of a table that a failed check was in. */
static void inCase(char* why, size_t size, const char* name) {
  const size_t used = strlen(why);
  if (name && used < size) snprintf(why + used, size - used, " [case %s]", name);
}

static double amplitudeOf(int input) { return 1.0 + 0.5 * input; }
static double frequencyOf(int input) { return 10.0 * (input + 1); }

/* ---- Continuous acquisition of ai0:3 at 100 kS/s, read every N samples in a callback. ---- */

#define STREAM_CHANNELS 4
#define STREAM_RATE 100000.0
#define STREAM_N 10000
#define STREAM_CALLBACKS 20

/* Rising zero crossings of one channel, with hysteresis so that the noise does not count. */
typedef struct Crossings {
  int below;
  long count, first, last;
} Crossings;

/* Written by the callbacks (one at a time, on the plug-in's thread), read by the scenario once
 * the stop has returned; `callbacks` and `failure` are followed while the task runs. */
typedef struct Stream {
  atomic_int callbacks;
  atomic_int failure;
  atomic_int done;
  int shortReads, wrongN;
  long samples;
  double minimum[STREAM_CHANNELS], maximum[STREAM_CHANNELS];
  Crossings crossings[STREAM_CHANNELS];
  float64 block[STREAM_CHANNELS * STREAM_N];
} Stream;

static void countCrossings(Crossings* c, const float64* values, long n, long at, double hysteresis) {
  for (long i = 0; i < n; ++i) {
    if (values[i] < -hysteresis) c->below = 1;
    if (c->below && values[i] > hysteresis) {
      c->below = 0;
      if (c->count++ == 0) c->first = at + i;
      c->last = at + i;
    }
  }
}

static int32 onStreamBlock(TaskHandle task, int32 type, uInt32 nSamples, void* data) {
  Stream* s = (Stream*)data;
  int32 read = 0;
  (void)type;
  if (atomic_load(&s->failure) != 0 || atomic_load(&s->callbacks) >= STREAM_CALLBACKS) return 0;
  if (nSamples != STREAM_N) s->wrongN += 1;
  const int32 code = VorexReadAnalogF64(task, (int32)nSamples, 10.0, Vorex_Val_GroupByChannel, s->block,
                                        STREAM_CHANNELS * STREAM_N, &read, NULL);
  if (code != 0) {
    atomic_store(&s->failure, code);
    return 0;
  }
  if (read != (int32)nSamples) s->shortReads += 1;
  for (int c = 0; c < STREAM_CHANNELS; ++c) {
    const float64* values = s->block + (long)c * read;
    for (int32 i = 0; i < read; ++i) {
      if (values[i] < s->minimum[c]) s->minimum[c] = values[i];
      if (values[i] > s->maximum[c]) s->maximum[c] = values[i];
    }
    countCrossings(&s->crossings[c], values, read, s->samples, 0.1 * amplitudeOf(c));
  }
  s->samples += read;
  atomic_fetch_add(&s->callbacks, 1);
  return 0;
}

static int32 onStreamDone(TaskHandle task, int32 status, void* data) {
  (void)task, (void)status;
  atomic_fetch_add(&((Stream*)data)->done, 1);
  return 0;
}

static int streamSettled(void* data) {
  Stream* s = (Stream*)data;
  return atomic_load(&s->callbacks) >= STREAM_CALLBACKS || atomic_load(&s->failure) != 0 ||
         atomic_load(&s->done) != 0;
}

static int continuousEveryN(char* why, size_t size) {
  static Stream s;
  int failed = 0;
  TaskHandle task = 0;
  uInt64 position = 0, acquired = 0;
  float64 rate = 0;
  memset(&s, 0, sizeof s);
  for (int c = 0; c < STREAM_CHANNELS; ++c) s.minimum[c] = 1e300, s.maximum[c] = -1e300;

  CALL(VorexCreateTask("E2eStream", &task));
  CALL(VorexCreateAIVoltageChan(task, "SimDev1/ai0:3", "", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts, NULL));
  CALL(VorexCfgSampClkTiming(task, "", STREAM_RATE, Vorex_Val_Rising, Vorex_Val_ContSamps, STREAM_N));
  /* Ten seconds of room: a callback held up on a busy machine is no overrun. */
  CALL(VorexCfgInputBuffer(task, 1000000));
  CALL(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, STREAM_N, 0, onStreamBlock, &s));
  CALL(VorexRegisterDoneEvent(task, 0, onStreamDone, &s));
  CALL(VorexStartTask(task));
  CHECK(sim_e2e_await(streamSettled, &s));
  CALL(VorexGetReadCurrReadPos(task, &position));
  CALL(VorexGetReadTotalSampPerChanAcquired(task, &acquired));
  CALL(VorexGetSampClkRate(task, &rate));
  CALL(VorexStopTask(task));

  CHECK(atomic_load(&s.failure) == 0);
  CHECK(atomic_load(&s.done) == 0);
  CHECK(atomic_load(&s.callbacks) == STREAM_CALLBACKS);
  CHECK(s.wrongN == 0 && s.shortReads == 0);
  CHECK(s.samples == (long)STREAM_N * STREAM_CALLBACKS);
  CHECK(position == (uInt64)STREAM_N * STREAM_CALLBACKS);
  CHECK(acquired >= position);
  CHECK(rate == STREAM_RATE);
  for (int c = 0; c < STREAM_CHANNELS; ++c) {
    const Crossings* x = &s.crossings[c];
    CHECK(s.maximum[c] <= amplitudeOf(c) + NOISE && s.maximum[c] >= amplitudeOf(c) - 0.01);
    CHECK(s.minimum[c] >= -amplitudeOf(c) - NOISE && s.minimum[c] <= -amplitudeOf(c) + 0.01);
    CHECK(x->count >= 10);
    const double frequency = (double)(x->count - 1) * STREAM_RATE / (double)(x->last - x->first);
    CHECK(fabs(frequency - frequencyOf(c)) < 0.002 * frequencyOf(c));
  }
end:
  VorexClearTask(task);
  return failed;
}

#define FINITE_SAMPLES 2000

/* ---- A finite acquisition that tells each sample clock and that it is done. ---- */

typedef struct Done {
  atomic_int calls;
  atomic_int status;
  TaskHandle task;
  atomic_int sameTask;
  atomic_int ticks;
} Done;

static int32 onDone(TaskHandle task, int32 status, void* data) {
  Done* d = (Done*)data;
  atomic_store(&d->sameTask, task == d->task);
  atomic_store(&d->status, status);
  atomic_fetch_add(&d->calls, 1);
  return 0;
}

static int32 onTick(TaskHandle task, int32 signal, void* data) {
  (void)task, (void)signal;
  atomic_fetch_add(&((Done*)data)->ticks, 1);
  return 0;
}

static int doneCalled(void* data) { return atomic_load(&((Done*)data)->calls) > 0; }
static int everyTick(void* data) { return atomic_load(&((Done*)data)->ticks) >= FINITE_SAMPLES; }

static int finiteWithDone(char* why, size_t size) {
  static float64 values[FINITE_SAMPLES + 1];
  static Done d;
  int failed = 0;
  TaskHandle task = 0;
  int32 read = -1;
  bool32 isDone = 0;
  uInt64 acquired = 0;
  memset(&d, 0, sizeof d);

  CALL(VorexCreateTask("E2eFinite", &task));
  d.task = task;
  CALL(VorexCreateAIVoltageChan(task, "SimDev1/ai2", "", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts, NULL));
  CALL(VorexCfgSampClkTiming(task, "", 10000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, FINITE_SAMPLES));
  CALL(VorexRegisterDoneEvent(task, 0, onDone, &d));
  CALL(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, 0, onTick, &d));
  CALL(VorexStartTask(task));
  CHECK(sim_e2e_await(doneCalled, &d));
  CHECK(sim_e2e_await(everyTick, &d));
  CHECK(atomic_load(&d.status) == 0);
  CHECK(atomic_load(&d.sameTask));
  CALL(VorexIsTaskDone(task, &isDone));
  CHECK(isDone == 1);
  CALL(VorexGetReadTotalSampPerChanAcquired(task, &acquired));
  CHECK(acquired == FINITE_SAMPLES);
  /* "Whatever there is" of a finite acquisition is all of it, there without waiting. */
  CALL(VorexReadAnalogF64(task, -1, 0.0, Vorex_Val_GroupByChannel, values, FINITE_SAMPLES + 1, &read, NULL));
  CHECK(read == FINITE_SAMPLES);
  for (int i = 0; i < FINITE_SAMPLES; ++i) CHECK(fabs(values[i]) <= amplitudeOf(2) + NOISE);
  CHECK(VorexReadAnalogF64(task, 1, 0.0, Vorex_Val_GroupByChannel, values, 1, &read, NULL) == READ_BEYOND_END);
  CALL(VorexStopTask(task));
  CHECK(atomic_load(&d.calls) == 1 && atomic_load(&d.ticks) == FINITE_SAMPLES);
end:
  VorexClearTask(task);
  return failed;
}

/* ---- Analog edge start triggers: the first sample is where the signal crosses the level. ---- */

typedef struct EdgeCase {
  const char* channel;
  int32 slope;
  double level;
} EdgeCase;

/* Slopes of at least 5 mV a sample at 10 kS/s, well above the noise. */
static const EdgeCase kEdgeCases[] = {
    {"SimDev1/ai1", Vorex_Val_Rising, 0.75},
    {"SimDev1/ai1", Vorex_Val_Falling, -0.75},
};

#define EDGE_SAMPLES 200

static int analogEdgeStart(char* why, size_t size) {
  static float64 values[EDGE_SAMPLES];
  int failed = 0;
  TaskHandle task = 0;
  const char* at = NULL;
  for (size_t k = 0; k < sizeof kEdgeCases / sizeof kEdgeCases[0]; ++k) {
    const EdgeCase* e = &kEdgeCases[k];
    at = e->channel;
    int32 read = 0;
    CALL(VorexCreateTask("E2eEdgeStart", &task));
    CALL(VorexCreateAIVoltageChan(task, e->channel, "Signal", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts,
                                  NULL));
    CALL(VorexCfgSampClkTiming(task, "", 10000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, EDGE_SAMPLES));
    CALL(VorexCfgAnlgEdgeStartTrig(task, "Signal", e->slope, e->level));
    CALL(VorexStartTask(task));
    CALL(VorexReadAnalogF64(task, EDGE_SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, EDGE_SAMPLES, &read, NULL));
    CHECK(read == EDGE_SAMPLES);
    /* The sample before the first, from the slope of the first few: on the other side of the
     * level, so the trigger is within one sample of the crossing. */
    const double step = (values[4] - values[0]) / 4.0;
    const double before = values[0] - step;
    const double sign = e->slope == Vorex_Val_Rising ? 1.0 : -1.0;
    CHECK(sign * step > 0.004);
    CHECK(sign * (values[0] - e->level) >= 0 && sign * (before - e->level) < NOISE);
    CALL(VorexClearTask(task));
    task = 0;
  }
end:
  if (failed) inCase(why, size, at);
  VorexClearTask(task);
  return failed;
}

/* ---- A reference trigger keeps exactly its pretrigger samples before it. ---- */

#define REF_SAMPLES 1000
#define REF_PRETRIGGER 300
#define REF_RATE 10000.0

static int referenceTrigger(char* why, size_t size) {
  static float64 values[REF_SAMPLES];
  int failed = 0;
  TaskHandle task = 0;
  int32 read = 0;
  uInt64 acquired = 0;
  const double pi = 3.14159265358979323846;

  CALL(VorexCreateTask("E2eReference", &task));
  CALL(VorexCreateAIVoltageChan(task, "SimDev1/ai0", "Signal", Vorex_Val_Cfg_Default, -2.0, 2.0, Vorex_Val_Volts,
                                NULL));
  CALL(VorexCfgSampClkTiming(task, "", REF_RATE, Vorex_Val_Rising, Vorex_Val_FiniteSamps, REF_SAMPLES));
  CALL(VorexCfgAnlgEdgeRefTrig(task, "Signal", Vorex_Val_Rising, 0.0, REF_PRETRIGGER));
  CALL(VorexStartTask(task));
  CALL(VorexReadAnalogF64(task, REF_SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, REF_SAMPLES, &read, NULL));
  CHECK(read == REF_SAMPLES);
  /* The rising zero crossing of ai0's sine is between the pretrigger samples and the rest... */
  CHECK(values[REF_PRETRIGGER - 1] < 0.0 && values[REF_PRETRIGGER] >= 0.0);
  /* ...and the first sample is the pretrigger samples' time before it on that sine. */
  const double first = -sin(2 * pi * frequencyOf(0) * REF_PRETRIGGER / REF_RATE);
  CHECK(fabs(values[0] - first) < 0.01);
  CALL(VorexGetReadTotalSampPerChanAcquired(task, &acquired));
  CHECK(acquired == REF_SAMPLES);
end:
  VorexClearTask(task);
  return failed;
}

/* ---- An acquisition started by the output's start trigger sees each sample of the output. ---- */

#define RAMP_SAMPLES 500

static int startedByOutput(char* why, size_t size) {
  static float64 ramp[RAMP_SAMPLES], values[RAMP_SAMPLES];
  int failed = 0;
  TaskHandle output = 0, input = 0;
  int32 count = 0;
  for (int k = 0; k < RAMP_SAMPLES; ++k) ramp[k] = -2.5 + 0.01 * k;

  CALL(VorexCreateTask("E2eRampOut", &output));
  CALL(VorexCreateAOVoltageChan(output, "SimDev1/ao0", "", -10.0, 10.0, Vorex_Val_Volts, NULL));
  CALL(VorexCfgSampClkTiming(output, "", 10000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, RAMP_SAMPLES));
  CALL(VorexWriteAnalogF64(output, RAMP_SAMPLES, 0, 10.0, Vorex_Val_GroupByChannel, ramp, &count, NULL));
  CHECK(count == RAMP_SAMPLES);

  CALL(VorexCreateTask("E2eRampIn", &input));
  CALL(VorexCreateAIVoltageChan(input, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts, NULL));
  CALL(VorexCfgSampClkTiming(input, "", 10000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, RAMP_SAMPLES));
  CALL(VorexCfgDigEdgeStartTrig(input, "/SimDev1/ao/StartTrigger", Vorex_Val_Rising));
  CALL(VorexStartTask(input));
  /* Nothing is acquired before the output starts. */
  CHECK(VorexReadAnalogF64(input, 1, 0.0, Vorex_Val_GroupByChannel, values, 1, &count, NULL) == READ_TIMEOUT);
  CHECK(count == 0);
  CALL(VorexStartTask(output));
  CALL(VorexReadAnalogF64(input, RAMP_SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, RAMP_SAMPLES, &count, NULL));
  CHECK(count == RAMP_SAMPLES);
  for (int k = 0; k < RAMP_SAMPLES; ++k) CHECK(fabs(values[k] - ramp[k]) < 2 * NOISE);
end:
  VorexClearTask(input);
  VorexClearTask(output);
  return failed;
}

/* ---- A reader that stops reading overruns, and the run says so. ---- */

static int overrunWhenTheReaderStops(char* why, size_t size) {
  static float64 values[100];
  static Done d;
  int failed = 0;
  TaskHandle task = 0;
  int32 read = 0;
  memset(&d, 0, sizeof d);

  CALL(VorexCreateTask("E2eOverrun", &task));
  d.task = task;
  CALL(VorexCreateAIVoltageChan(task, "SimDev1/ai5", "", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts, NULL));
  CALL(VorexCfgSampClkTiming(task, "", 10000.0, Vorex_Val_Rising, Vorex_Val_ContSamps, 1000));
  CALL(VorexCfgInputBuffer(task, 1000));
  CALL(VorexRegisterDoneEvent(task, 0, onDone, &d));
  CALL(VorexStartTask(task));
  CALL(VorexReadAnalogF64(task, 100, 10.0, Vorex_Val_GroupByChannel, values, 100, &read, NULL));
  CHECK(read == 100);
  /* The reader stops; the failure ends the run, which the done event tells. */
  CHECK(sim_e2e_await(doneCalled, &d));
  CHECK(atomic_load(&d.status) == READ_OVERRUN);
  CHECK(VorexReadAnalogF64(task, 100, 10.0, Vorex_Val_GroupByChannel, values, 100, &read, NULL) == READ_OVERRUN);
  CHECK_REPORT("Buffer Size In Samps: 1000");
  CHECK_REPORT("Read Position: 100");
  CHECK(VorexReadAnalogF64(task, 100, 10.0, Vorex_Val_GroupByChannel, values, 100, &read, NULL) == READ_OVERRUN);
  CHECK(atomic_load(&d.calls) == 1);
end:
  VorexClearTask(task);
  return failed;
}

/* ---- An abort from another thread overtakes a read that waits. ---- */

#define SLOW_SAMPLES 100000

typedef struct BlockedRead {
  TaskHandle task;
  atomic_int started;
  atomic_int finished;
  int32 code, read;
  float64 values[SLOW_SAMPLES];
} BlockedRead;

static void readForever(void* data) {
  BlockedRead* r = (BlockedRead*)data;
  atomic_store(&r->started, 1);
  r->code = VorexReadAnalogF64(r->task, SLOW_SAMPLES, Vorex_Val_WaitInfinitely, Vorex_Val_GroupByChannel, r->values,
                               SLOW_SAMPLES, &r->read, NULL);
  atomic_store(&r->finished, 1);
}

static int readStarted(void* data) { return atomic_load(&((BlockedRead*)data)->started); }

/* An abort that came before the read began to wait would only stop the task; each poll aborts
 * again until the read has ended. */
static int abortUntilTheReadEnds(void* data) {
  BlockedRead* r = (BlockedRead*)data;
  VorexTaskControl(r->task, Vorex_Val_Task_Abort);
  return atomic_load(&r->finished);
}

static int abortFromAnotherThread(char* why, size_t size) {
  static BlockedRead r;
  static float64 one[1];
  int failed = 0;
  void* reader = NULL;
  int32 read = 0;
  memset(&r, 0, sizeof r);

  CALL(VorexCreateTask("E2eAbort", &r.task));
  CALL(VorexCreateAIVoltageChan(r.task, "SimDev1/ai5", "", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts, NULL));
  /* 10 S/s: the read's 100,000 samples would take hours. */
  CALL(VorexCfgSampClkTiming(r.task, "", 10.0, Vorex_Val_Rising, Vorex_Val_ContSamps, 1000));
  CALL(VorexStartTask(r.task));
  reader = sim_e2e_start(readForever, &r);
  CHECK(sim_e2e_await(readStarted, &r));
  sim_e2e_sleep_ms(50);
  CHECK(sim_e2e_await(abortUntilTheReadEnds, &r));
  sim_e2e_join(reader);
  reader = NULL;
  CHECK(r.code == OPERATION_ABORTED);
  CHECK(r.read < SLOW_SAMPLES);
  /* The aborted task runs again. */
  CALL(VorexStartTask(r.task));
  CALL(VorexReadAnalogF64(r.task, 1, 10.0, Vorex_Val_GroupByChannel, one, 1, &read, NULL));
  CHECK(read == 1);
  CALL(VorexStopTask(r.task));
end:
  if (reader) {
    /* A failed check left the read waiting: the abort ends it before the join. */
    sim_e2e_await(abortUntilTheReadEnds, &r);
    sim_e2e_join(reader);
  }
  VorexClearTask(r.task);
  return failed;
}

/* ---- A second task is refused the subsystem the first one holds. ---- */

typedef struct ReservedCase {
  const char* holder;
  const char* latecomer;
  int counter;
  const char* resource; /* the report's item */
} ReservedCase;

/* Inputs reserve their subsystem even on demand, so no timing is needed. */
static const ReservedCase kReservedCases[] = {
    {"SimDev1/ai0", "SimDev1/ai1", 0, "Resource Name: ai"},
    {"SimDev1/ctr2", "SimDev1/ctr2", 1, "Resource Name: ctr2"},
};

static int32 makeInputTask(const char* name, const char* channel, int counter, TaskHandle* task) {
  int32 code = VorexCreateTask(name, task);
  if (code != 0) return code;
  if (counter) return VorexCreateCICountEdgesChan(*task, channel, "", Vorex_Val_Rising, 0, Vorex_Val_CountUp);
  return VorexCreateAIVoltageChan(*task, channel, "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts, NULL);
}

static int reservedSubsystem(char* why, size_t size) {
  int failed = 0;
  TaskHandle holder = 0, latecomer = 0;
  const char* at = NULL;
  for (size_t k = 0; k < sizeof kReservedCases / sizeof kReservedCases[0]; ++k) {
    const ReservedCase* c = &kReservedCases[k];
    at = c->resource;
    CALL(makeInputTask("E2eHolder", c->holder, c->counter, &holder));
    CALL(makeInputTask("E2eLatecomer", c->latecomer, c->counter, &latecomer));
    CALL(VorexStartTask(holder));
    CHECK(VorexStartTask(latecomer) == RESOURCE_RESERVED);
    CHECK_REPORT("Reserving Task Name: E2eHolder");
    CHECK_REPORT(c->resource);
    /* Reserving is refused as well. */
    CHECK(VorexTaskControl(latecomer, Vorex_Val_Task_Reserve) == RESOURCE_RESERVED);
    CALL(VorexStopTask(holder));
    CALL(VorexStartTask(latecomer));
    CHECK(VorexStartTask(holder) == RESOURCE_RESERVED);
    CHECK_REPORT("Reserving Task Name: E2eLatecomer");
    CALL(VorexClearTask(latecomer));
    latecomer = 0;
    CALL(VorexStartTask(holder));
    CALL(VorexClearTask(holder));
    holder = 0;
  }
end:
  if (failed) inCase(why, size, at);
  VorexClearTask(latecomer);
  VorexClearTask(holder);
  return failed;
}

const SimE2eCase kSimE2eCases[] = {
    {"ContinuousEveryN", continuousEveryN},
    {"FiniteWithDone", finiteWithDone},
    {"AnalogEdgeStart", analogEdgeStart},
    {"ReferenceTrigger", referenceTrigger},
    {"StartedByOutput", startedByOutput},
    {"Overrun", overrunWhenTheReaderStops},
    {"AbortFromAnotherThread", abortFromAnotherThread},
    {"ReservedSubsystem", reservedSubsystem},
};
const size_t kSimE2eCaseCount = sizeof kSimE2eCases / sizeof kSimE2eCases[0];
