/* Test-only export of the companion storage library: how many handles its callers hold open,
 * so that a test can tell that every session, lock and specification it caused was released.
 * No real caller uses it. */
#ifndef ZQVOREX_STORAGE_TEST_H
#define ZQVOREX_STORAGE_TEST_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Test-only. Sessions, locks (specification tokens among them) and specifications that are
 * live now, over all threads. */
typedef uint64_t (*zqvorexStorage_testOnly_liveHandles_fn)(void);

#ifdef __cplusplus
}
#endif

#endif
