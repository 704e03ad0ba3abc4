/* Analog output read back by an analog input.
 *
 * On the simulated device SimDev1 the outputs ao0:3 are wired to the inputs ai0:3. The program
 * sets ao0 to two levels in turn and measures each on ai0 as the mean of 100 samples. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define SAMPLES 100

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                    \
  do {                                 \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle output = 0, input = 0;
  int32 code = 0;
  const float64 levels[] = {2.5, -1.25};

  /* An output written on demand: each write sets the level, which holds until the next. */
  CHECK(VorexCreateTask("LoopbackOut", &output));
  CHECK(VorexCreateAOVoltageChan(output, "SimDev1/ao0", "", -10.0, 10.0, Vorex_Val_Volts, NULL));

  /* A finite acquisition of ai0, which reads start (and stop) by themselves. */
  CHECK(VorexCreateTask("LoopbackIn", &input));
  CHECK(VorexCreateAIVoltageChan(input, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts,
                                 NULL));
  CHECK(VorexCfgSampClkTiming(input, "", 1000.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, SAMPLES));

  for (int i = 0; i < 2; ++i) {
    float64 values[SAMPLES];
    int32 read = 0;
    float64 sum = 0;
    CHECK(VorexWriteAnalogScalarF64(output, 1, 10.0, levels[i], NULL));
    CHECK(VorexReadAnalogF64(input, SAMPLES, 10.0, Vorex_Val_GroupByChannel, values, SAMPLES, &read, NULL));
    for (int32 s = 0; s < read; ++s) sum += values[s];
    printf("wrote %.3f V to ao0, read %d samples on ai0, mean %.3f V\n", levels[i], (int)read, sum / read);
  }

end:
  if (code < 0) {
    char text[2048];
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "error %d: %s\n", (int)code, text);
  }
  VorexClearTask(input);
  VorexClearTask(output);
  return code < 0 ? 1 : 0;
}
