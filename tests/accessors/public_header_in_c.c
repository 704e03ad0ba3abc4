/* The public header is C: this file compiles only if every generated prototype is. */
#include "zqcai_rd_mbcs.h"

/* One accessor of each shape taken by address, so a prototype that C reads differently fails. */
int32 (*const zqtestCGetScalar)(TaskHandle, const char*, float64*) = VorexGetAIMax;
int32 (*const zqtestCGetString)(TaskHandle, const char*, char*, uInt32) = VorexGetAICustomScaleName;
int32 (*const zqtestCSetArray)(TaskHandle, const char*, const float64*, uInt32) = VorexSetAIChanCalTablePreScaledVals;
