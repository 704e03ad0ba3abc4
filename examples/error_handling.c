/* What a program sees when a call fails, and how to report it.
 *
 * Every function returns a status: 0 for success, a negative code for an error, a positive one
 * for a warning. VorexGetErrorString gives the code's text; VorexGetExtendedErrorInfo gives the
 * full report of this thread's last error, with the names and values involved. The program
 * makes three real errors on purpose and reports each; it fails if one of them does not come. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

/* Prints a failed call's code, the code's text and the extended report; returns the code. */
static int32 report(const char* what, int32 code) {
  char text[512];
  char extended[2048];
  VorexGetErrorString(code, text, sizeof text);
  VorexGetExtendedErrorInfo(extended, sizeof extended);
  printf("%s\n  code: %d\n  text: %s\n  extended: %s\n", what, (int)code, text, extended);
  return code;
}

/* The errors this program expects; anything else is a failure of the program itself. */
static int expect(const char* what, int32 code, int32 expected) {
  if (code == expected) {
    report(what, code);
    return 0;
  }
  fprintf(stderr, "%s: expected %d, got %d\n", what, (int)expected, (int)code);
  if (code < 0) report(what, code);
  return 1;
}

int main(void) {
  TaskHandle task = 0;
  int32 code;
  int failures = 0;
  float64 values[100];
  int32 read = 0;

  if ((code = VorexCreateTask("ErrorHandling", &task)) < 0) return report("creating the task", code), 1;

  /* 1. A channel the device does not have: SimDev1 has ai0 to ai15. */
  code = VorexCreateAIVoltageChan(task, "SimDev1/ai99", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts, NULL);
  failures += expect("a channel the device lacks (SimDev1/ai99)", code, -209507);

  /* 2. A value outside its range: 10 MS/s is more than the device's 4 MS/s. */
  if ((code = VorexCreateAIVoltageChan(task, "SimDev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts,
                                       NULL)) < 0) {
    VorexClearTask(task);
    return report("making the channel", code), 1;
  }
  code = VorexCfgSampClkTiming(task, "", 1e7, Vorex_Val_Rising, Vorex_Val_FiniteSamps, 100);
  failures += expect("a sample rate beyond the device (10 MS/s)", code, -209503);

  /* 3. A read that times out: 100 samples at 10 S/s take 10 s; the read waits only 0.1 s.
   * The samples that did come are kept in the array, and their count is in `read`. */
  if ((code = VorexCfgSampClkTiming(task, "", 10.0, Vorex_Val_Rising, Vorex_Val_FiniteSamps, 100)) < 0) {
    VorexClearTask(task);
    return report("configuring the timing", code), 1;
  }
  code = VorexReadAnalogF64(task, 100, 0.1, Vorex_Val_GroupByChannel, values, 100, &read, NULL);
  failures += expect("a read that times out (0.1 s for 10 s of samples)", code, -209500);
  printf("  samples that came in time: %d\n", (int)read);

  VorexClearTask(task);
  printf("%s\n", failures == 0 ? "all three errors were reported" : "an expected error did not come");
  return failures == 0 ? 0 : 1;
}
