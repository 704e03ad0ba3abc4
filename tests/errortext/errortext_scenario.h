/* The C scenario's entry points, called by the test program. */
#ifndef ZQTEST_ERRORTEXT_SCENARIO_H
#define ZQTEST_ERRORTEXT_SCENARIO_H

#include "zqcai_rd_mbcs.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The number of constants in the status table. */
int32 zqtestCountCodes(void);
/* The first code of the status table whose text is missing, empty or the substitute; 0 when
 * every code has its own. */
int32 zqtestFirstCodeWithoutText(const char* substitute);
/* A named accessor with a null task handle: -200230. */
int32 zqtestFailWithNullHandle(void);

#ifdef __cplusplus
}
#endif

#endif
