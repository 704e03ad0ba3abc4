/* What an application written in C sees of the error text functions, through the public header
 * and the shared library alone. */
#include <string.h>

#include "zqcai_rd_mbcs.h"
#include "zqvorex_status_codes.h"

#include "errortext_scenario.h"

static const int32 kAllCodes[] = {
#define ZQTEST_CODE(code, constant, report, from) code,
    ZQVOREX_STATUS_CODES(ZQTEST_CODE)
#undef ZQTEST_CODE
};

int32 zqtestCountCodes(void) { return (int32)(sizeof kAllCodes / sizeof kAllCodes[0]); }

int32 zqtestFirstCodeWithoutText(const char* substitute) {
  char text[2048];
  int32 i;
  for (i = 0; i < zqtestCountCodes(); ++i) {
    if (VorexGetErrorString(kAllCodes[i], text, sizeof text) != 0) return kAllCodes[i];
    if (text[0] == '\0' || strcmp(text, substitute) == 0) return kAllCodes[i];
  }
  return 0;
}

int32 zqtestFailWithNullHandle(void) {
  char name[32];
  return VorexGetAICustomScaleName(0, "Dev1/ai0", name, sizeof name);
}
