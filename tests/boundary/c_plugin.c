/* Compiled as C: the boundary header must serve a plug-in author as it stands. */
#include "c_plugin.h"

#include <stdio.h>
#include <string.h>

/* The layout a plug-in compiled apart relies on, seen by the C compiler. */
_Static_assert(sizeof(zqgopher_ArrayView) == 16, "view");
_Static_assert(offsetof(zqgopher_ArrayView, count) == 8, "view count");
_Static_assert(sizeof(zqgopher_IStringTable) == 7 * sizeof(void*), "string table");
_Static_assert(offsetof(zqgopher_IStringTable, resize) == 6 * sizeof(void*), "string resize");
_Static_assert(sizeof(zqgopher_IItemAdder) == sizeof(void*), "one word");
_Static_assert(offsetof(zqgopher_IItemAdderStringTable, addRange) == 3 * sizeof(void*), "adder addRange");
_Static_assert(sizeof(zqgopher_IArrayBufferTable) == 14 * sizeof(void*), "array table");
_Static_assert(offsetof(zqgopher_IArrayBufferTable, getExtension) == 7 * sizeof(void*), "array getExtension");
_Static_assert(offsetof(zqgopher_IArrayBufferTable, clear) == 8 * sizeof(void*), "array clear");
_Static_assert(offsetof(zqgopher_IArrayBufferTable, getMutableExtension) == 13 * sizeof(void*), "array last");
_Static_assert(sizeof(zqgopher_ArrayBufferReadFields) == 56, "read fields");
_Static_assert(offsetof(zqgopher_ArrayBufferReadFields, capacity) == 40, "read capacity");
_Static_assert(sizeof(zqgopher_ArrayBufferWriteFields) == 48, "write fields");
_Static_assert(offsetof(zqgopher_ArrayBufferWriteFields, extension) == 40, "write extension");
_Static_assert(offsetof(zqgopher_ArrayBufferScalarFields, kind) == 56, "scalar kind");
_Static_assert(sizeof(zqgopher_IArrayLineBufferTable) == 17 * sizeof(void*), "line table");
_Static_assert(offsetof(zqgopher_IArrayLineBufferTable, getNumLines) == 4 * sizeof(void*), "line getNumLines");
_Static_assert(offsetof(zqgopher_IArrayLineBufferTable, getNumLinesOfChannel) == 16 * sizeof(void*), "line last");
_Static_assert(sizeof(zqgopher_ArrayLineBufferFields) == 88, "line fields");
_Static_assert(offsetof(zqgopher_ArrayLineBufferFields, linesPerChannel) == 32, "line counts");
_Static_assert(offsetof(zqgopher_ArrayLineBufferFields, extension) == 80, "line extension");
_Static_assert(offsetof(zqgopher_ArrayLineBufferScalarFields, kind) == 88, "line kind");

/* ---- sample arrays ---- */

void cplug_readRamp(zqgopher_IArrayBuffer* buffer, uint32_t numChannels, uint64_t numSampsPerChan,
                    zqerr_Status* status) {
  const zqgopher_IArrayBufferTable* t = buffer->table;
  t->resize(buffer, numChannels, numSampsPerChan, status);
  if (status->code < 0) return;
  uint64_t total = 0;
  for (uint32_t c = 0; c < t->getNumChannels(buffer, status); ++c) total += t->getNumSampsPerChan(buffer, c, status);
  double* samples = (double*)t->getMutableData(buffer, 0, status);
  if (!samples) return;
  for (uint64_t i = 0; i < total; ++i) samples[i] = (double)i / 2.0;
}

double cplug_sumSamples(const zqgopher_IArrayBuffer* buffer, zqerr_Status* status) {
  const zqgopher_IArrayBufferTable* t = buffer->table;
  if (t->isEmpty(buffer, status)) return 0.0;
  uint64_t total = 0;
  for (uint32_t c = 0; c < t->getNumChannels(buffer, status); ++c) total += t->getNumSampsPerChan(buffer, c, status);
  const double* samples = (const double*)t->getData(buffer, 0, status);
  double sum = 0.0;
  for (uint64_t i = 0; samples && i < total; ++i) sum += samples[i];
  return sum;
}

/* ---- line arrays ---- */

void cplug_readLines(zqgopher_IArrayLineBuffer* buffer, const uint32_t* lines, uint64_t channels,
                     uint64_t numSampsPerChan, zqerr_Status* status) {
  const zqgopher_IArrayLineBufferTable* t = buffer->table;
  zqgopher_ArrayView view = {lines, channels};
  t->resize(buffer, &view, numSampsPerChan, status);
  uint8_t* bytes = (uint8_t*)t->getMutableData(buffer, 0, status);
  if (!bytes) return;
  uint64_t at = 0;
  for (uint32_t c = 0; c < t->getNumChannels(buffer, status); ++c)
    for (uint64_t s = 0; s < t->getNumSampsPerChan(buffer, c, status); ++s)
      for (uint32_t l = 0; l < t->getNumLines(buffer, c, status); ++l) bytes[at++] = (uint8_t)(100 * c + 10 * s + l);
}

/* ---- objects of the plug-in ---- */

static void sinkAssign(zqgopher_IString* self, const char* text, uint64_t length, zqerr_Status* status) {
  cplug_TextSink* sink = (cplug_TextSink*)self;
  (void)status;
  sink->assignCalls++;
  if (length >= sizeof sink->text) length = sizeof sink->text - 1;
  memcpy(sink->text, text, (size_t)length);
  sink->text[length] = '\0';
  sink->length = length;
}

static const zqgopher_IStringTable kSinkTable = {NULL, NULL, NULL, sinkAssign, NULL, NULL, NULL};

void cplug_initTextSink(cplug_TextSink* sink) {
  memset(sink, 0, sizeof *sink);
  sink->base.table = &kSinkTable;
}

static void record(cplug_RecordingAdder* adder, const char* call) {
  size_t used = strlen(adder->calls);
  snprintf(adder->calls + used, sizeof adder->calls - used, "%s%s", used ? " " : "", call);
}

static void recReserve(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status) {
  char call[32];
  (void)status;
  snprintf(call, sizeof call, "reserve(%llu)", (unsigned long long)count);
  record((cplug_RecordingAdder*)self, call);
}

static void recAdd(zqgopher_IItemAdder* self, const char* item, zqerr_Status* status) {
  cplug_RecordingAdder* adder = (cplug_RecordingAdder*)self;
  char call[48];
  snprintf(call, sizeof call, "add(%s)", item);
  record(adder, call);
  if (++adder->adds == adder->failAt) status->code = adder->failCode;
}

static void recClear(zqgopher_IItemAdder* self, zqerr_Status* status) {
  (void)status;
  record((cplug_RecordingAdder*)self, "clear");
}

static void recAddRange(zqgopher_IItemAdder* self, const char* const* items, uint64_t count, zqerr_Status* status) {
  (void)items;
  (void)count;
  (void)status;
  record((cplug_RecordingAdder*)self, "addRange");
}

static const zqgopher_IItemAdderStringTable kRecordingTable = {recReserve, recClear, recAdd, recAddRange};

void cplug_initRecordingAdder(cplug_RecordingAdder* adder, int failAt, int32_t failCode) {
  memset(adder, 0, sizeof *adder);
  adder->base.table.strings = &kRecordingTable;
  adder->failAt = failAt;
  adder->failCode = failCode;
}
