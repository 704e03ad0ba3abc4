/* Digital output and input on the same lines.
 *
 * One task drives the eight lines of SimDev1/port0 as one channel; another reads them back,
 * first as one number for the whole port, then line by line. Written lines hold their level
 * until written again, so the input sees what the output wrote. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

/* Every call is checked: a failure jumps to the end, which reports it. */
#define CHECK(call)                    \
  do {                                 \
    if ((code = (call)) < 0) goto end; \
  } while (0)

int main(void) {
  TaskHandle output = 0, port = 0, lines = 0;
  int32 code = 0;
  const uInt32 patterns[] = {0xA5, 0x3C};

  CHECK(VorexCreateTask("DigitalOut", &output));
  CHECK(VorexCreateDOChan(output, "SimDev1/port0/line0:7", "", Vorex_Val_ChanForAllLines));
  CHECK(VorexCreateTask("DigitalInPort", &port));
  CHECK(VorexCreateDIChan(port, "SimDev1/port0/line0:7", "", Vorex_Val_ChanForAllLines));
  /* One channel for each line: a read gives one byte (0 or 1) per line. */
  CHECK(VorexCreateTask("DigitalInLines", &lines));
  CHECK(VorexCreateDIChan(lines, "SimDev1/port0/line0:7", "", Vorex_Val_ChanPerLine));

  for (int i = 0; i < 2; ++i) {
    uInt32 value = 0;
    uint8_t levels[8];
    int32 read = 0, bytesPerSample = 0;
    CHECK(VorexWriteDigitalScalarU32(output, 1, 10.0, patterns[i], NULL));
    CHECK(VorexReadDigitalScalarU32(port, 10.0, &value, NULL));
    CHECK(VorexReadDigitalLines(lines, 1, 10.0, Vorex_Val_GroupByChannel, levels, sizeof levels, &read,
                                &bytesPerSample, NULL));
    printf("wrote 0x%02X, read 0x%02X, lines 0 to 7:", (unsigned)patterns[i], (unsigned)value);
    for (int line = 0; line < 8; ++line) printf(" %d", levels[line]);
    printf("\n");
  }

end:
  if (code < 0) {
    char text[2048];
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "error %d: %s\n", (int)code, text);
  }
  VorexClearTask(lines);
  VorexClearTask(port);
  VorexClearTask(output);
  return code < 0 ? 1 : 0;
}
