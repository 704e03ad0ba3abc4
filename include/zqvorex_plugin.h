/* The plug-in boundary: what a device plug-in library exports and the types its operations
 * take. A plug-in named <stem> (its file stem) exports each operation it supports as the C
 * function <stem>_<operation>; any subset may be exported, and a missing one is reported to
 * the caller as not supported for the device.
 *
 * Rules for every operation:
 * - the last argument is the caller's status record; the plug-in reports errors and warnings
 *   only through it, never through a result, and throws nothing;
 * - an operation on a task takes the plug-in's task handle first;
 * - strings go in as UTF-8, valid for the call; text, lists and samples coming out travel
 *   through the boundary objects, which the plug-in must not keep after the call returns.
 *
 * The operations, their order and their parameter lists are generated into
 * zqvorex_plugin_operations.h: one function-pointer type zqvorexPlugin_<operation>_fn for each,
 * and the X-macro ZQVOREX_PLUGIN_OPERATIONS(X), which calls X(result, operation, (parameters))
 * once per operation in table order. A plug-in declares its exports with it:
 *
 *   #define MYDEV_DECLARE(result, operation, parameters) result mydev_##operation parameters;
 *   ZQVOREX_PLUGIN_OPERATIONS(MYDEV_DECLARE)
 */
#ifndef ZQVOREX_PLUGIN_H
#define ZQVOREX_PLUGIN_H

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#include "zqgopher_boundary.h"
#include "zqvorex_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Handles made by the plug-in; opaque to everyone else. */
typedef struct zqvorexPlugin_Context_undefined zqvorexPlugin_Context_undefined;
typedef struct zqvorexPlugin_Task_undefined zqvorexPlugin_Task_undefined; /* also a debug session */
typedef struct zqvorexPlugin_TimingSource_undefined zqvorexPlugin_TimingSource_undefined;

/* What a registration gives back, for unregisterEvent. */
typedef uint64_t zqvorexPlugin_EventToken;

/* An absolute time: seconds since 1904-01-01 00:00:00 and the fraction of a second in units
 * of 2^-64. */
typedef struct zqvorexPlugin_AbsoluteTime {
  uint64_t fraction;
  int64_t seconds;
} zqvorexPlugin_AbsoluteTime;

/* How a vector read or write lays channels out in the buffer. */
typedef struct zqvorexPlugin_ReadLayout {
  uint32_t groupByScanNumber; /* 0: grouped by channel; 1: interleaved by scan */
  uint64_t reserved;          /* 0 */
} zqvorexPlugin_ReadLayout;

/* The sample pairs of counter and power reads and writes. */
typedef struct zqvorexPlugin_DutyCycleAndFrequencyF64 {
  double dutyCycle;
  double frequency;
} zqvorexPlugin_DutyCycleAndFrequencyF64;

typedef struct zqvorexPlugin_HighAndLowTimesF64 {
  double highTime;
  double lowTime;
} zqvorexPlugin_HighAndLowTimesF64;

typedef struct zqvorexPlugin_HighAndLowTicksU32 {
  uint32_t highTicks;
  uint32_t lowTicks;
} zqvorexPlugin_HighAndLowTicksU32;

typedef struct zqvorexPlugin_VoltageAndCurrentF64 {
  double voltage;
  double current;
} zqvorexPlugin_VoltageAndCurrentF64;

typedef struct zqvorexPlugin_VoltageAndCurrentI16 {
  int16_t voltage;
  int16_t current;
} zqvorexPlugin_VoltageAndCurrentI16;

#include "zqvorex_plugin_operations.h"

#ifdef __cplusplus
}
#endif

#endif
