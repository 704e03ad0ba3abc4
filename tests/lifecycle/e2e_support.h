/* What the end-to-end scenarios, written in C against the public header alone, get from their
 * harness: the test plug-in's switches, the calling thread's message loop, threads and a hang
 * guard. */
#ifndef ZQ_E2E_SUPPORT_H
#define ZQ_E2E_SUPPORT_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* The plug-in fires, from a thread of its own, the named task's events `eventId` (12576 done,
 * 12580, 12581, 12575 signal, 0 any) `times` times (done once, with `code`). Returns once they
 * fired: the number of event objects, -1 without such a task. */
int32_t e2e_fire(const char* taskName, int32_t eventId, uint32_t times, int32_t code);
/* A thread of the plug-in fires every event of every task, over and over, until turned off. */
void e2e_storm(int on);
/* The plug-in's counters (drive_switches.h). */
int64_t e2e_counter(int32_t which);

/* Runs the calling thread's message loop until `reached(context)` holds: 1, or 0 when the hang
 * guard of several minutes ran out. Where synchronous callbacks have a delivery thread of the
 * library, the loop only waits. */
int e2e_await(int (*reached)(void* context), void* context);
/* 1 where synchronous callbacks run on a delivery thread of the library, 0 where they run in
 * the registering thread's message loop. */
int e2e_delivery_thread(void);
uint32_t e2e_thread_id(void);
/* Runs `body(context)` on a new thread and waits for it. */
void e2e_on_other_thread(void (*body)(void* context), void* context);
void e2e_sleep_ms(uint32_t milliseconds);

/* The scenarios: 0 when every check held, else the failed check's line, with `why` telling. */
int e2e_run_lifecycle(char* why, size_t size);
int e2e_run_direct_restart(char* why, size_t size);
int e2e_run_stop_drops_queued(char* why, size_t size);
int e2e_run_clear_ends_callbacks(char* why, size_t size);
int e2e_run_wait_in_flood(char* why, size_t size);
int e2e_run_foreign_thread(char* why, size_t size);
int e2e_run_registration_errors(char* why, size_t size);
int e2e_run_task_calls(char* why, size_t size);
int e2e_run_task_as_text(char* why, size_t size);

#ifdef __cplusplus
}
#endif

#endif
