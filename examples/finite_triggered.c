/* Finite acquisitions that wait for the signal: an analog edge start trigger, then an analog
 * edge reference trigger with samples from before the trigger.
 *
 * The simulated SimDev1/ai0 sees a 1 V sine at 10 Hz. The first acquisition starts where the
 * signal rises through 0.5 V, so its first sample is at or just above 0.5 V. The second keeps
 * 500 samples from before the signal falls through 0 V and 500 from then on. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define RATE 10000.0
#define SAMPLES 1000
#define PRETRIGGER 500

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                    \
  do {                                 \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle task = 0;
  int32 code = 0;
  int32 read = 0;
  static float64 values[SAMPLES];

  CHECK(VorexCreateTask("FiniteTriggered", &task));
  CHECK(VorexCreateAIVoltageChan(task, "SimDev1/ai0", "Signal", Vorex_Val_Cfg_Default, -2.0, 2.0, Vorex_Val_Volts,
                                 NULL));
  CHECK(VorexCfgSampClkTiming(task, "", RATE, Vorex_Val_Rising, Vorex_Val_FiniteSamps, SAMPLES));

  /* The start trigger's source is a channel of the task, by its name. */
  CHECK(VorexCfgAnlgEdgeStartTrig(task, "Signal", Vorex_Val_Rising, 0.5));
  CHECK(VorexStartTask(task));
  CHECK(VorexReadAnalogF64(task, SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, SAMPLES, &read, NULL));
  CHECK(VorexStopTask(task));
  printf("start trigger: %d samples, the first %.4f V (rising through 0.5 V)\n", (int)read, values[0]);

  /* The same task again, now with a reference trigger instead. */
  CHECK(VorexDisableStartTrig(task));
  CHECK(VorexCfgAnlgEdgeRefTrig(task, "Signal", Vorex_Val_Falling, 0.0, PRETRIGGER));
  CHECK(VorexStartTask(task));
  CHECK(VorexReadAnalogF64(task, SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, SAMPLES, &read, NULL));
  CHECK(VorexStopTask(task));
  printf("reference trigger: %d samples, %d of them before the trigger\n", (int)read, PRETRIGGER);
  printf("last sample before the trigger: %.4f V\n", values[PRETRIGGER - 1]);
  printf("sample at the trigger: %.4f V (falling through 0 V)\n", values[PRETRIGGER]);

end:
  if (code < 0) {
    char text[2048];
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "error %d: %s\n", (int)code, text);
  }
  VorexClearTask(task);
  return code < 0 ? 1 : 0;
}
