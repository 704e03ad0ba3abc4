/* Attributes beyond the generated accessors: the generic entries that take an attribute id, the
 * accessors written by hand, the absolute times, and the functions kept only to refuse.
 * Included by zqcai_rd_mbcs.h. */
#ifndef ZQCAI_RD_MBCS_ATTRIBUTES_H
#define ZQCAI_RD_MBCS_ATTRIBUTES_H

/* The variable part of a generic entry (zqcai_rd_mbcs_generic.h), for callers that build it
 * themselves and call a __Vorex...FromParmInfo function: a ParmInfo is the address of an array
 * of 8-byte slots, read by the value type of the attribute the id names.
 *
 *   Value type              Get: `value`, and the slots        Set: the slots
 *   int32, uInt32, bool32   the out-pointer; no slot           slot 0: the value in its low 32 bits
 *   uInt64, float64         the out-pointer; no slot           slot 0: the value (a float64's bits)
 *   VorexAbsoluteTime       the out-pointer; no slot           slot 0: the record's address; the
 *                                                              entry copies the record
 *   text, list of names     the buffer; slot 0: bufferSize     slot 0: the const char*
 *   float64[], int32[]      the array; slot 0: its size        slot 0: the pointer, slot 1: the
 *                           in elements                        count in its low 32 bits
 *
 * A null ParmInfo reads as slots of zeros, so a text Get asks for the size. A Set of an absolute
 * time whose slot holds a null address gives -200604.
 *
 * On Windows x64 the variable arguments of a call are laid out exactly so, and a va_list started
 * after the last fixed argument is the address of the first slot: it may be passed as it is
 * (cast to const VorexParmSlot*). On Linux x86-64 the System V va_list is not an array and must
 * not be passed: build the array. The variadic entries do that themselves. */
typedef uint64_t VorexParmSlot;

/* The task's own name, for any task. The string Get: a null data or a bufferSize of 0 returns
 * the size with the terminator. */
int32 VorexGetTaskName(TaskHandle task, char* data, uInt32 bufferSize);

/* The channels a read returns, as a comma-separated list. */
int32 VorexGetReadChannelsToRead(TaskHandle task, char* data, uInt32 bufferSize);
int32 VorexSetReadChannelsToRead(TaskHandle task, const char* data);
int32 VorexResetReadChannelsToRead(TaskHandle task);

/* A null data is no error: nothing is stored. */
int32 VorexGetChanIsGlobal(TaskHandle task, const char* channel, bool32* data);
/* Not traced. The Get stores 0 or 1 only on success; a null data is no error. */
int32 VorexGetSigmodCalEnable(TaskHandle task, const char* channel, bool32* data);
int32 VorexSetSigmodCalEnable(TaskHandle task, const char* channel, bool32 data);

/* Always 0. */
int32 VorexIsReadOrWriteLate(int32 errorCode);

/* Not supported: each refuses with -200197, without looking at the task or writing *data. */
int32 VorexGetSampClkTimingResponseMode(TaskHandle task, int32* data);
int32 VorexSetSampClkTimingResponseMode(TaskHandle task, int32 data);
int32 VorexResetSampClkTimingResponseMode(TaskHandle task);

/* Absolute times. A Get with a null timestamp gives -200604; a failed Get leaves *timestamp as
 * it was. */
int32 VorexGetArmStartTrigTrigWhen(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexSetArmStartTrigTrigWhen(TaskHandle task, VorexAbsoluteTime timestamp);
int32 VorexResetArmStartTrigTrigWhen(TaskHandle task);
int32 VorexGetSyncPulseTimeWhen(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexSetSyncPulseTimeWhen(TaskHandle task, VorexAbsoluteTime timestamp);
int32 VorexResetSyncPulseTimeWhen(TaskHandle task);
int32 VorexGetStartTrigTrigWhen(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexSetStartTrigTrigWhen(TaskHandle task, VorexAbsoluteTime timestamp);
int32 VorexResetStartTrigTrigWhen(TaskHandle task);
int32 VorexGetFirstSampClkWhen(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexSetFirstSampClkWhen(TaskHandle task, VorexAbsoluteTime timestamp);
int32 VorexResetFirstSampClkWhen(TaskHandle task);
int32 VorexGetStartTrigTimestampVal(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexGetRefTrigTimestampVal(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexGetFirstSampTimestampVal(TaskHandle task, VorexAbsoluteTime* timestamp);
int32 VorexGetArmStartTrigTimestampVal(TaskHandle task, VorexAbsoluteTime* timestamp);

/* Obsolete: each fails with -209823 and a report that names it, whatever its arguments. */
int32 VorexGetTimingSyncPulseForce(TaskHandle task, bool32* data);
int32 VorexSetTimingSyncPulseForce(TaskHandle task, bool32 data);
int32 VorexResetTimingSyncPulseForce(TaskHandle task);
int32 VorexGetWriteNextWriteIsLast(TaskHandle task, bool32* data);
int32 VorexSetWriteNextWriteIsLast(TaskHandle task, bool32 data);
int32 VorexResetWriteNextWriteIsLast(TaskHandle task);

/* Generated from the attribute catalogue: the generic entries. */
#include "zqcai_rd_mbcs_generic.h"

#endif
