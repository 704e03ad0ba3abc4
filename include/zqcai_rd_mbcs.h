/* zqcai_rd_mbcs: the C interface of the data-acquisition driver.
 *
 * Every function returns a signed 32-bit status: 0 for success, a negative error or a positive
 * warning. The only other positive result is the size a size query returns: a string or array
 * Get with a null buffer or a size of 0 returns the size it needs. Text is in the system's
 * multi-byte code page. */
#ifndef ZQCAI_RD_MBCS_H
#define ZQCAI_RD_MBCS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef void* TaskHandle; /* the task object's address; 0 for none */
typedef uint32_t bool32;  /* 0 or 1 */
typedef int32_t int32;
typedef uint32_t uInt32;
typedef uint64_t uInt64;
typedef double float64;

/* An absolute time: seconds since 1904-01-01 00:00:00 UTC and the fraction of a second in units
 * of 2^-64. */
typedef struct VorexAbsoluteTime {
  uInt64 fraction;
  int64_t seconds;
} VorexAbsoluteTime;

/* Generated from the attribute catalogue: the attribute id constants and the named accessors;
 * and from the table of values, the enumerated values callers pass. */
#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqcai_rd_mbcs_accessors.h"
#include "zqcai_rd_mbcs_values.h"

/* Tasks. */
#include "zqcai_rd_mbcs_tasks.h"

/* The read functions. */
#include "zqcai_rd_mbcs_read.h"

/* The write functions. */
#include "zqcai_rd_mbcs_write.h"

/* Event registration. */
#include "zqcai_rd_mbcs_events.h"

/* The elements of a task's lists by number. */
#include "zqcai_rd_mbcs_utilities.h"

/* Channel creation, generated from its table. */
#include "zqcai_rd_mbcs_channels.h"

/* Timing, triggers, buffers, signal export, calibration and watchdog tasks. */
#include "zqcai_rd_mbcs_configuration.h"

/* The error text functions. */
#include "zqcai_rd_mbcs_errortext.h"

/* Attributes by id, the hand-written and absolute-time accessors, and the obsolete ones. */
#include "zqcai_rd_mbcs_attributes.h"

/* Saving tasks and global channels, and tasks as INI text. */
#include "zqcai_rd_mbcs_saved_tasks.h"

#ifdef __cplusplus
}
#endif

#endif
