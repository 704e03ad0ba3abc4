/* Continuous acquisition read in a callback every N samples.
 *
 * One voltage channel is sampled without end at 1 kS/s. Each time 100 new samples are in the
 * buffer the library calls back, and the callback reads exactly those 100. After 10 callbacks
 * the main thread stops the task. A done callback is registered too: a continuous task is never
 * done by itself, so it is only called when an error (an overrun, say) ends the acquisition. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define SAMPLES_PER_CALLBACK 100
#define CALLBACKS_WANTED 10

/* What the callbacks keep. They run one after another on a thread of the device's plug-in; the
 * main thread looks at this only after the task has stopped, when no callback runs any more, so
 * no lock is needed. While the task runs, the main thread follows it through the library. */
typedef struct {
  int callbacks;
  long samples;
  double minimum, maximum;
  int32 failure; /* the first failure of a read in the callback, 0 if none */
  int doneCalled;
  int32 doneStatus;
} Acquisition;

static void printError(int32 code) {
  char text[2048];
  VorexGetExtendedErrorInfo(text, sizeof text);
  fprintf(stderr, "error %d: %s\n", (int)code, text);
}

static int32 everyN(TaskHandle task, int32 eventType, uInt32 nSamples, void* data) {
  Acquisition* acquisition = (Acquisition*)data;
  float64 values[SAMPLES_PER_CALLBACK];
  int32 read = 0;
  (void)eventType;
  if (acquisition->failure != 0 || acquisition->callbacks >= CALLBACKS_WANTED) return 0;
  int32 code = VorexReadAnalogF64(task, (int32)nSamples, 10.0, Vorex_Val_GroupByChannel, values,
                                  SAMPLES_PER_CALLBACK, &read, NULL);
  if (code < 0) {
    acquisition->failure = code;
    printError(code);
    return 0;
  }
  for (int32 i = 0; i < read; ++i) {
    if (values[i] < acquisition->minimum) acquisition->minimum = values[i];
    if (values[i] > acquisition->maximum) acquisition->maximum = values[i];
  }
  acquisition->samples += read;
  printf("callback %d: read %d samples\n", acquisition->callbacks + 1, (int)read);
  acquisition->callbacks += 1;
  return 0;
}

static int32 done(TaskHandle task, int32 status, void* data) {
  Acquisition* acquisition = (Acquisition*)data;
  (void)task;
  acquisition->doneStatus = status;
  acquisition->doneCalled = 1;
  return 0;
}

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                   \
  do {                                \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle task = 0;
  int32 code = 0;
  Acquisition acquisition = {0, 0, 1e300, -1e300, 0, 0, 0};

  CHECK(VorexCreateTask("ContinuousEveryN", &task));
  CHECK(VorexCreateAIVoltageChan(task, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts, NULL));
  CHECK(VorexCfgSampClkTiming(task, "", 1000.0, Vorex_Val_Rising, Vorex_Val_ContSamps, SAMPLES_PER_CALLBACK));
  /* Room for 100 s of samples, so that a callback held up on a busy machine does not overrun. */
  CHECK(VorexCfgInputBuffer(task, 100000));
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, SAMPLES_PER_CALLBACK, 0, everyN,
                                        &acquisition));
  CHECK(VorexRegisterDoneEvent(task, 0, done, &acquisition));
  CHECK(VorexStartTask(task));
  printf("acquiring: stopping after %d callbacks\n", CALLBACKS_WANTED);

  /* Wait until the callbacks have read their samples: the task's read position says how far
   * they came. A continuous task is never done, so each wait of a tenth of a second ends with
   * the wait timeout (-209519); a done task (ended by an error) ends the loop. 60 s at most. */
  for (int step = 0; step < 600; ++step) {
    uInt64 position = 0;
    bool32 isDone = 0;
    int32 waited = VorexWaitUntilTaskDone(task, 0.1);
    if (waited < 0 && waited != -209519) {
      code = waited; /* the run failed */
      goto end;
    }
    CHECK(VorexGetReadCurrReadPos(task, &position));
    CHECK(VorexIsTaskDone(task, &isDone));
    if (position >= (uInt64)SAMPLES_PER_CALLBACK * CALLBACKS_WANTED || isDone) break;
  }
  /* Once the stop returns, no callback runs: the main thread may look at what they kept. */
  CHECK(VorexStopTask(task));
  if (acquisition.failure) {
    code = acquisition.failure;
    goto end;
  }
  printf("callbacks: %d\n", acquisition.callbacks);
  printf("samples read: %ld\n", acquisition.samples);
  printf("minimum: %.3f V, maximum: %.3f V\n", acquisition.minimum, acquisition.maximum);
  if (acquisition.doneCalled) {
    fprintf(stderr, "the acquisition ended by itself with status %d\n", (int)acquisition.doneStatus);
    VorexClearTask(task);
    return 1;
  }
  if (acquisition.callbacks < CALLBACKS_WANTED) {
    fprintf(stderr, "only %d of %d callbacks came\n", acquisition.callbacks, CALLBACKS_WANTED);
    VorexClearTask(task);
    return 1;
  }

end:
  if (code < 0) printError(code);
  VorexClearTask(task);
  return code < 0 ? 1 : 0;
}
