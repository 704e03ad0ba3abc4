/* What the simulated device's end-to-end scenarios, written in C against the public header
 * alone, get from their runner: threads, sleeps and waits with a hang guard, and the scenario
 * table the runner goes through. */
#ifndef ZQ_SIM_E2E_SUPPORT_H
#define ZQ_SIM_E2E_SUPPORT_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Polls `reached(context)` every millisecond until it holds: 1, or 0 when the hang guard of a
 * few minutes ran out. */
int sim_e2e_await(int (*reached)(void* context), void* context);
void sim_e2e_sleep_ms(uint32_t milliseconds);
/* Starts `body(context)` on a new thread; sim_e2e_join waits for it and frees the handle. */
void* sim_e2e_start(void (*body)(void* context), void* context);
void sim_e2e_join(void* thread);

/* A scenario: 0 when every check held, else the failed check's line, with `why` telling. */
typedef int (*SimE2eScenario)(char* why, size_t size);
typedef struct SimE2eCase {
  const char* name;
  SimE2eScenario run;
} SimE2eCase;
extern const SimE2eCase kSimE2eCases[];
extern const size_t kSimE2eCaseCount;

#ifdef __cplusplus
}
#endif

#endif
