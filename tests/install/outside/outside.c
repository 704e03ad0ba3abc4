/* A program of someone else's, built against an installation of the library: it acquires 100
 * samples from the simulated device SimDev1 and prints how many came and the first of them,
 * then a code's text from the installation's explanation files. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define SAMPLES 100

int main(void) {
  TaskHandle task = 0;
  float64 values[SAMPLES];
  int32 read = 0;
  char text[2048];
  int32 code = VorexCreateTask("Outside", &task);
  if (code >= 0)
    code = VorexCreateAIVoltageChan(task, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts,
                                    NULL);
  if (code >= 0) code = VorexCfgSampClkTiming(task, "", 1000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, SAMPLES);
  if (code >= 0)
    code = VorexReadAnalogF64(task, SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, SAMPLES, &read, NULL);
  if (code >= 0) code = VorexGetErrorString(-200088, text, sizeof text);
  if (code < 0) {
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "failed with %d: %s\n", (int)code, text);
    VorexClearTask(task);
    return 1;
  }
  printf("read %d samples from SimDev1/ai0, the first %.3f V\n", (int)read, values[0]);
  printf("%s\n", text);
  return VorexClearTask(task) == 0 ? 0 : 1;
}
