/* Counting the edges of a pulse train.
 *
 * Counter ctr0 of SimDev1 generates 500 pulses at 1 kHz on its output terminal PFI12. Counter
 * ctr1 counts rising edges on that terminal (its own input is PFI9, so the program routes it).
 * The count is read while the train runs and once more when it is over. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

#define PULSES 500

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                    \
  do {                                 \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle pulses = 0, counter = 0;
  int32 code = 0;
  uInt32 count = 0;

  CHECK(VorexCreateTask("PulseTrain", &pulses));
  CHECK(VorexCreateCOPulseChanFreq(pulses, "SimDev1/ctr0", "", Vorex_Val_Hz, Vorex_Val_Low, 0.0, 1000.0, 0.5));
  CHECK(VorexCfgImplicitTiming(pulses, Vorex_Val_FiniteSamps, PULSES));

  CHECK(VorexCreateTask("EdgeCounter", &counter));
  CHECK(VorexCreateCICountEdgesChan(counter, "SimDev1/ctr1", "", Vorex_Val_Rising, 0, Vorex_Val_CountUp));
  CHECK(VorexSetCICountEdgesTerm(counter, "", "/SimDev1/PFI12"));

  /* The counter first, so that it sees every edge of the train. */
  CHECK(VorexStartTask(counter));
  CHECK(VorexStartTask(pulses));
  CHECK(VorexReadCounterScalarU32(counter, 10.0, &count, NULL));
  printf("while the train runs: %u edges\n", (unsigned)count);
  CHECK(VorexWaitUntilTaskDone(pulses, 10.0));
  CHECK(VorexReadCounterScalarU32(counter, 10.0, &count, NULL));
  printf("after %d pulses: %u edges\n", PULSES, (unsigned)count);

end:
  if (code < 0) {
    char text[2048];
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "error %d: %s\n", (int)code, text);
  }
  VorexClearTask(counter);
  VorexClearTask(pulses);
  return code < 0 ? 1 : 0;
}
