/* The status records that cross the plug-in boundary. Field order and sizes are a binary
 * contract: plug-ins set codes and write JSON reports through these records. */
#ifndef ZQVOREX_STATUS_H
#define ZQVOREX_STATUS_H

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

typedef struct zqerr_Status zqerr_Status;

/* The report's allocator. size 0 frees the report; otherwise the buffer grows to hold at least
 * size bytes, keeping the text. Returns false when it cannot. */
typedef bool (*zqerr_StorageFn)(zqerr_Status* status, uint32_t size);

/* A call's status: a signed code (0 success, negative error, positive warning) and a JSON
 * report. The report text is NUL-terminated; every byte after the terminator is 0 up to the
 * last byte of the buffer, which is the sentinel 'J'. */
struct zqerr_Status {
  int32_t code;
  uint32_t capacity;
  zqerr_StorageFn storage;
  char* report;
};

/* The fixed-size status of low-level code. structSize is 208; readers treat component, file,
 * line and extra as absent when it is smaller. */
typedef struct zqerr_FixedStatus {
  uint32_t structSize;
  int32_t code;
  char component[10];
  char file[101];
  uint32_t line;
  uint64_t extra[10];
} zqerr_FixedStatus;

#ifdef __cplusplus
}
#endif

#endif
