/* Saving a task into the store and loading it back.
 *
 * The program makes a task (a channel, its timing), saves it under a name, clears it, loads the
 * saved task by that name and acquires with it. Saving with Vorex_Val_Save_Overwrite replaces
 * a task saved by an earlier run, so the program can run any number of times. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define SAVED_NAME "ExampleSavedTask"
#define SAMPLES 200

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                    \
  do {                                 \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle task = 0;
  int32 code = 0;
  int32 read = 0;
  float64 rate = 0;
  uInt64 samples = 0;
  float64 values[SAMPLES];

  CHECK(VorexCreateTask("ToBeSaved", &task));
  CHECK(VorexCreateAIVoltageChan(task, "SimDev1/ai1", "Pressure", Vorex_Val_Cfg_Default, -5.0, 5.0, Vorex_Val_Volts,
                                 NULL));
  CHECK(VorexCfgSampClkTiming(task, "", 2000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, SAMPLES));
  CHECK(VorexSaveTask(task, SAVED_NAME, "examples", Vorex_Val_Save_Overwrite));
  CHECK(VorexClearTask(task));
  task = 0;
  printf("saved the task as %s\n", SAVED_NAME);

  /* The loaded task has the saved channel and timing: nothing to configure. */
  CHECK(VorexLoadTask(SAVED_NAME, &task));
  CHECK(VorexGetSampClkRate(task, &rate));
  CHECK(VorexGetSampQuantSampPerChan(task, &samples));
  printf("loaded %s: %.0f S/s, %u samples per channel\n", SAVED_NAME, rate, (unsigned)samples);
  CHECK(VorexReadAnalogF64(task, SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, SAMPLES, &read, NULL));
  printf("read %d samples from the loaded task\n", (int)read);

end:
  if (code < 0) {
    char text[2048];
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "error %d: %s\n", (int)code, text);
  }
  VorexClearTask(task);
  return code < 0 ? 1 : 0;
}
