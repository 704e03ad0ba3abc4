/* The boundary objects through which text, lists and sample arrays cross into a plug-in.
 *
 * Each object that a plug-in calls begins with one word: a pointer to a constant table of
 * functions. The order of every table, the types of its entries and the field order of the
 * objects below are a binary contract between this library and plug-ins compiled apart from
 * it; never reorder, insert or remove an entry.
 *
 * Rules for every table:
 * - each entry takes the object first;
 * - each entry except getCapabilities and getExtension takes the caller's status last, does
 *   nothing when that status already holds an error (code < 0) and then returns the neutral
 *   value: 0, null, or true for isEmpty;
 * - failures go to the status, never to the plug-in as an exception;
 * - an object lives for one call of the library: a plug-in keeps no pointer to it afterwards,
 *   and finishes with it before the call returns, on whatever thread it uses.
 *
 * A plug-in calls an object like this:
 *
 *   buffer->table->resize(buffer, 2, 100, status);
 *   double* samples = (double*)buffer->table->getMutableData(buffer, 0, status);
 */
#ifndef ZQGOPHER_BOUNDARY_H
#define ZQGOPHER_BOUNDARY_H

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#include "zqvorex_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- array view ------------------------------------------------------------------------- */

/* A read-only run of elements: double, int32_t, uint32_t (lines per channel) or a UTF-8 text
 * pointer (const char*), as the operation that takes it says. data is null when count is 0.
 *
 * A list of names (every channel list of an operation) is such a view of const char*: the
 * pointers lead into the library's strings, valid for the call. */
typedef struct zqgopher_ArrayView zqgopher_ArrayView;
struct zqgopher_ArrayView {
  const void* data;
  uint64_t count;
};

static inline const double* zqgopher_ArrayView_f64(const zqgopher_ArrayView* view) {
  return (const double*)view->data;
}
static inline const int32_t* zqgopher_ArrayView_i32(const zqgopher_ArrayView* view) {
  return (const int32_t*)view->data;
}
static inline const uint32_t* zqgopher_ArrayView_u32(const zqgopher_ArrayView* view) {
  return (const uint32_t*)view->data;
}
static inline const char* const* zqgopher_ArrayView_strings(const zqgopher_ArrayView* view) {
  return (const char* const*)view->data;
}

/* ---- text ------------------------------------------------------------------------------- */

/* A text string of the library, in UTF-8. */
typedef struct zqgopher_IString zqgopher_IString;
typedef struct zqgopher_IStringTable {
  /* Length in bytes. */
  uint64_t (*size)(const zqgopher_IString* self, zqerr_Status* status);
  /* Copies min(length, bufferSize) bytes and a terminating zero when there is room for it; a
   * text longer than bufferSize is cut and gives zqapalerr_bufferTooSmall (-52019). A text of
   * exactly bufferSize bytes is copied whole, without terminator and without error. */
  void (*copyTo)(const zqgopher_IString* self, char* buffer, uint64_t bufferSize, zqerr_Status* status);
  void (*clear)(zqgopher_IString* self, zqerr_Status* status);
  /* Replaces the content with length bytes of text. */
  void (*assign)(zqgopher_IString* self, const char* text, uint64_t length, zqerr_Status* status);
  /* Null when the string is empty. */
  const char* (*data)(const zqgopher_IString* self, zqerr_Status* status);
  char* (*mutableData)(zqgopher_IString* self, zqerr_Status* status);
  /* Cuts the string, or extends it with zero bytes. */
  void (*resize)(zqgopher_IString* self, uint64_t length, zqerr_Status* status);
} zqgopher_IStringTable;

struct zqgopher_IString {
  const zqgopher_IStringTable* table;
};

/* The library's string object: the table, then its own string, which only the library reads. */
typedef struct zqgopher_StringAdapterFields {
  zqgopher_IString base;
  void* string;
} zqgopher_StringAdapterFields;

/* ---- lists ------------------------------------------------------------------------------ */

/* A list of the library that a plug-in fills. Its element type is fixed by the operation that
 * passes it: the plug-in calls through the member of the table union that matches. */
typedef struct zqgopher_IItemAdder zqgopher_IItemAdder;

typedef struct zqgopher_IItemAdderI32Table {
  /* Makes room for count items beyond the present ones. */
  void (*reserve)(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status);
  void (*clear)(zqgopher_IItemAdder* self, zqerr_Status* status);
  void (*add)(zqgopher_IItemAdder* self, int32_t item, zqerr_Status* status);
  /* Null items with a non-zero count give zqapalerr_invalidParameter (-52005). */
  void (*addRange)(zqgopher_IItemAdder* self, const int32_t* items, uint64_t count, zqerr_Status* status);
} zqgopher_IItemAdderI32Table;

typedef struct zqgopher_IItemAdderF64Table {
  void (*reserve)(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status);
  void (*clear)(zqgopher_IItemAdder* self, zqerr_Status* status);
  void (*add)(zqgopher_IItemAdder* self, double item, zqerr_Status* status);
  void (*addRange)(zqgopher_IItemAdder* self, const double* items, uint64_t count, zqerr_Status* status);
} zqgopher_IItemAdderF64Table;

typedef struct zqgopher_IItemAdderStringTable {
  void (*reserve)(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status);
  void (*clear)(zqgopher_IItemAdder* self, zqerr_Status* status);
  /* item: zero-terminated UTF-8; null gives zqapalerr_invalidParameter. */
  void (*add)(zqgopher_IItemAdder* self, const char* item, zqerr_Status* status);
  /* A null among the items gives zqapalerr_invalidParameter, and nothing is added. */
  void (*addRange)(zqgopher_IItemAdder* self, const char* const* items, uint64_t count, zqerr_Status* status);
} zqgopher_IItemAdderStringTable;

struct zqgopher_IItemAdder {
  union {
    const zqgopher_IItemAdderI32Table* i32;
    const zqgopher_IItemAdderF64Table* f64;
    const zqgopher_IItemAdderStringTable* strings;
  } table;
};

/* The library's list object: the table, then its own vector, which only the library reads. */
typedef struct zqgopher_ItemAdderAdapterFields {
  zqgopher_IItemAdder base;
  void* items;
} zqgopher_ItemAdderAdapterFields;

/* ---- sample arrays ---------------------------------------------------------------------- */

/* The caller's sample array. One data pointer serves all channels: a plug-in lays the array
 * out itself from the shape and the read layout of the operation, so getData and
 * getMutableData accept only channel 0. Counts are in elements; the element type is the
 * operation's.
 *
 * getCapabilities bits: 1 extension present, 8 several channels fit, 16 a channel may have
 * several lines, 32 a channel may have several samples. */
typedef struct zqgopher_IArrayBuffer zqgopher_IArrayBuffer;
typedef struct zqgopher_IArrayBufferTable {
  uint32_t (*getCapabilities)(const zqgopher_IArrayBuffer* self);
  bool (*isEmpty)(const zqgopher_IArrayBuffer* self, zqerr_Status* status);
  uint32_t (*getNumChannels)(const zqgopher_IArrayBuffer* self, zqerr_Status* status);
  uint64_t (*getNumSampsPerChan)(const zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status);
  const void* (*getData)(const zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status);
  void (*reserved1)(const zqgopher_IArrayBuffer* self, zqerr_Status* status);
  void (*reserved2)(const zqgopher_IArrayBuffer* self, zqerr_Status* status);
  uint64_t (*getExtension)(const zqgopher_IArrayBuffer* self);
  /* The mutable part. An array that a plug-in only reads (a write) answers these with
   * zqapalerr_featureUnsupported (-52002). */
  void (*clear)(zqgopher_IArrayBuffer* self, zqerr_Status* status);
  /* A shape beyond the capacity gives -200229 and leaves the shape as it was. */
  void (*resize)(zqgopher_IArrayBuffer* self, uint32_t numChannels, uint64_t numSampsPerChan,
                 zqerr_Status* status);
  void* (*getMutableData)(zqgopher_IArrayBuffer* self, uint32_t channel, zqerr_Status* status);
  void (*reserved3)(zqgopher_IArrayBuffer* self, zqerr_Status* status);
  void (*reserved4)(zqgopher_IArrayBuffer* self, zqerr_Status* status);
  /* The same value as getExtension: the mutable part repeats it. */
  uint64_t (*getMutableExtension)(const zqgopher_IArrayBuffer* self);
} zqgopher_IArrayBufferTable;

struct zqgopher_IArrayBuffer {
  const zqgopher_IArrayBufferTable* table;
};

/* The array of a read, which a plug-in resizes and fills. */
typedef struct zqgopher_ArrayBufferReadFields {
  zqgopher_IArrayBuffer base;
  void* data;
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  uint64_t totalElements; /* numChannels * numSampsPerChan */
  uint64_t capacity;      /* elements available, fixed at construction */
  uint64_t extension;     /* 0 in every object of this library */
} zqgopher_ArrayBufferReadFields;

/* The array of a write, which a plug-in only reads: no capacity. */
typedef struct zqgopher_ArrayBufferWriteFields {
  zqgopher_IArrayBuffer base;
  const void* data;
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  uint64_t totalElements;
  uint64_t extension;
} zqgopher_ArrayBufferWriteFields;

/* The one-value array shown to a debug target, with its constraint: kind 0 one sample of
 * several channels, kind 1 one channel of several samples (the only kind this library makes). */
typedef struct zqgopher_ArrayBufferScalarFields {
  zqgopher_ArrayBufferReadFields buffer;
  uint32_t kind;
} zqgopher_ArrayBufferScalarFields;

/* ---- digital line arrays ---------------------------------------------------------------- */

/* The caller's byte array of digital lines: one element for each line of each sample. */
typedef struct zqgopher_IArrayLineBuffer zqgopher_IArrayLineBuffer;
typedef struct zqgopher_IArrayLineBufferTable {
  uint32_t (*getCapabilities)(const zqgopher_IArrayLineBuffer* self);
  bool (*isEmpty)(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  uint32_t (*getNumChannels)(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  uint64_t (*getNumSampsPerChan)(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status);
  uint32_t (*getNumLines)(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status);
  const void* (*getData)(const zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status);
  void (*reserved1)(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  void (*reserved2)(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  uint64_t (*getExtension)(const zqgopher_IArrayLineBuffer* self);
  /* The mutable part; zqapalerr_featureUnsupported on the array of a write. */
  void (*clear)(zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  /* linesPerChannel: a view of uint32_t, one entry for each channel. A total beyond the
   * capacity gives zqpalerr_badCount (-50008) and leaves the shape as it was. */
  void (*resize)(zqgopher_IArrayLineBuffer* self, const zqgopher_ArrayView* linesPerChannel,
                 uint64_t numSampsPerChan, zqerr_Status* status);
  void* (*getMutableData)(zqgopher_IArrayLineBuffer* self, uint32_t channel, zqerr_Status* status);
  void (*reserved3)(zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  void (*reserved4)(zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  uint64_t (*getMutableExtension)(const zqgopher_IArrayLineBuffer* self);
  /* 0xFFFFFFFF unless linesMode says otherwise; linesMode is 0 in this library. */
  uint32_t (*getUniformNumLines)(const zqgopher_IArrayLineBuffer* self, zqerr_Status* status);
  uint32_t (*getNumLinesOfChannel)(const zqgopher_IArrayLineBuffer* self, uint32_t channel,
                                   zqerr_Status* status);
} zqgopher_IArrayLineBufferTable;

struct zqgopher_IArrayLineBuffer {
  const zqgopher_IArrayLineBufferTable* table;
};

/* The line counts of the channels, owned by the library object. */
typedef struct zqgopher_LineCounts {
  uint32_t* data;
  uint64_t size;
  uint64_t capacity;
} zqgopher_LineCounts;

/* Both the read and the write form have these fields; only their tables differ. */
typedef struct zqgopher_ArrayLineBufferFields {
  zqgopher_IArrayLineBuffer base;
  void* data;
  uint32_t numChannels;
  uint64_t numSampsPerChan;
  zqgopher_LineCounts linesPerChannel;
  uint64_t totalElements; /* sum over channels of lines * numSampsPerChan */
  uint64_t capacity;
  uint32_t linesMode; /* 0 in every object of this library */
  uint64_t extension; /* 0 in every object of this library */
} zqgopher_ArrayLineBufferFields;

/* The one-value line array shown to a debug target: kind 0 one line of several channels,
 * kind 1 several lines of one channel (the only kind this library makes). */
typedef struct zqgopher_ArrayLineBufferScalarFields {
  zqgopher_ArrayLineBufferFields buffer;
  uint32_t kind;
} zqgopher_ArrayLineBufferScalarFields;

/* ---- events ----------------------------------------------------------------------------- */

typedef struct zqgopher_IEventDone zqgopher_IEventDone;
typedef struct zqgopher_IEventEveryNSamples zqgopher_IEventEveryNSamples;
typedef struct zqgopher_IEventSignal zqgopher_IEventSignal;

/* The objects through which a plug-in raises a task's events. registerEveryNSamplesEvent,
 * registerDoneEvent and registerSignalEvent hand one over; unlike the objects above it outlives
 * the call, so it is reference counted:
 * - the plug-in takes a reference with addRef when it keeps the object, and gives it back with
 *   release when the event is unregistered or its task is destroyed; the last release destroys
 *   the object, so the plug-in must not touch it afterwards;
 * - fire may be called from any thread of the plug-in, as often as the event occurs, between
 *   addRef and the matching release; it never blocks on the task, and it runs the
 *   application's callback at once (without the synchronous option) or queues it for the
 *   registering thread (with it);
 * - addRef and release return the new count; the as... entries give the same object through
 *   the table of its kind, or null when the object is of another kind.
 * The three tables share their first six entries, which are the whole table of
 * zqgopher_IEventBase. */
typedef struct zqgopher_IEventBase zqgopher_IEventBase;

#define ZQGOPHER_EVENT_TABLE_HEAD(Self)                                   \
  uint32_t (*addRef)(Self * self);                                        \
  uint32_t (*release)(Self * self);                                       \
  zqgopher_IEventBase* (*asBase)(Self * self);                            \
  zqgopher_IEventEveryNSamples* (*asEveryNSamples)(Self * self);          \
  zqgopher_IEventDone* (*asDone)(Self * self);                            \
  zqgopher_IEventSignal* (*asSignal)(Self * self);

typedef struct zqgopher_IEventBaseTable {
  ZQGOPHER_EVENT_TABLE_HEAD(zqgopher_IEventBase)
} zqgopher_IEventBaseTable;

/* The task is done: taskStatus holds the code the task ended with (0, a warning or the error
 * that ended it); only its code is read. */
typedef struct zqgopher_IEventDoneTable {
  ZQGOPHER_EVENT_TABLE_HEAD(zqgopher_IEventDone)
  void (*fire)(zqgopher_IEventDone* self, const zqerr_Status* taskStatus, zqerr_Status* status);
} zqgopher_IEventDoneTable;

/* count events of N samples each have happened since the last fire; reserved is 0. */
typedef struct zqgopher_IEventEveryNSamplesTable {
  ZQGOPHER_EVENT_TABLE_HEAD(zqgopher_IEventEveryNSamples)
  void (*fire)(zqgopher_IEventEveryNSamples* self, uint32_t count, uint32_t reserved, zqerr_Status* status);
} zqgopher_IEventEveryNSamplesTable;

/* The signal occurred count times since the last fire. */
typedef struct zqgopher_IEventSignalTable {
  ZQGOPHER_EVENT_TABLE_HEAD(zqgopher_IEventSignal)
  void (*fire)(zqgopher_IEventSignal* self, uint32_t count, zqerr_Status* status);
} zqgopher_IEventSignalTable;

#undef ZQGOPHER_EVENT_TABLE_HEAD

struct zqgopher_IEventBase {
  const zqgopher_IEventBaseTable* table;
};
struct zqgopher_IEventDone {
  const zqgopher_IEventDoneTable* table;
};
struct zqgopher_IEventEveryNSamples {
  const zqgopher_IEventEveryNSamplesTable* table;
};
struct zqgopher_IEventSignal {
  const zqgopher_IEventSignalTable* table;
};

/* The library's event object, as it lies in memory: the plug-in's pointer leads to
 * interfaceTable, and the reference count lies in front of it. */
typedef struct zqgopher_EventAdapterFields {
  const void* baseTable; /* the library's own, destruction only */
  uint32_t referenceCount;
  const void* interfaceTable;
  void* action; /* the library's reference to what the event runs */
} zqgopher_EventAdapterFields;

#ifdef __cplusplus
}
#endif

#endif
