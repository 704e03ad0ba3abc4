/* A program of someone else's, built against an installation of the library: it makes a task,
 * reads a code's text and clears the task, and prints what it got. */
#include <stdio.h>

#include "zqcai_rd_mbcs.h"

int main(void) {
  TaskHandle task = 0;
  char text[512];
  int32 code = VorexCreateTask("Outside", &task);
  if (code == 0) code = VorexGetErrorString(-200088, text, sizeof text);
  if (code != 0) {
    VorexGetExtendedErrorInfo(text, sizeof text);
    fprintf(stderr, "failed with %d: %s\n", code, text);
    return 1;
  }
  printf("%s\n", text);
  return VorexClearTask(task) == 0 ? 0 : 1;
}
