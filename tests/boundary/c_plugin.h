/* A plug-in's side of the boundary objects, written in C against the published header: it
 * calls every table entry as a plug-in would and records what it saw, and it builds the
 * objects that a plug-in hands to the library. */
#ifndef ZQ_TEST_C_PLUGIN_H
#define ZQ_TEST_C_PLUGIN_H

#include <stddef.h>

#include "zqgopher_boundary.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- calling the library's objects ---- */

/* A read: resize to the shape, then fill every element with index / 2 as a double. */
void cplug_readRamp(zqgopher_IArrayBuffer* buffer, uint32_t numChannels, uint64_t numSampsPerChan,
                    zqerr_Status* status);
/* A write: the sum of all samples, after checking the shape through the table. */
double cplug_sumSamples(const zqgopher_IArrayBuffer* buffer, zqerr_Status* status);

/* A digital read: resize to the lines, then write line l of sample s of channel c as
 * 100 * c + 10 * s + l, channel after channel. */
void cplug_readLines(zqgopher_IArrayLineBuffer* buffer, const uint32_t* lines, uint64_t channels,
                     uint64_t numSampsPerChan, zqerr_Status* status);

/* ---- objects a plug-in builds and hands to the library ---- */

/* A text sink over a fixed buffer; only assign is expected of the library. */
typedef struct cplug_TextSink {
  zqgopher_IString base;
  char text[64];
  uint64_t length;
  int assignCalls;
} cplug_TextSink;
void cplug_initTextSink(cplug_TextSink* sink);

/* A string list that records each call, and fails the add numbered failAt (from 1; 0 never)
 * with code failCode. */
typedef struct cplug_RecordingAdder {
  zqgopher_IItemAdder base;
  char calls[256]; /* "reserve(3) add(a) ..." */
  int adds;
  int failAt;
  int32_t failCode;
} cplug_RecordingAdder;
void cplug_initRecordingAdder(cplug_RecordingAdder* adder, int failAt, int32_t failCode);

#ifdef __cplusplus
}
#endif

#endif
