/* The test-only side of the plug-in library zqtestDrive: switches a test turns and counters it
 * reads, exported beside the plug-in operations as zqtestDrive_test<Name>. A test program finds
 * them by name through the platform's library loading; the library under test never calls them.
 *
 * The plug-in itself:
 * - createContext/destroyContext, createTask/destroyTask keep simple records; the log file
 *   named by the environment variable ZQTEST_DRIVE_LOG receives one line per event:
 *   "load", "createContext <context>", "createTask <task>", "destroyTask <task>",
 *   "destroyContext <context>", "unload" (the last from the library's own exit).
 * - createAIVoltageChannel adds one channel per entry of the physical channel list; an entry
 *   whose channel part is "fail" makes it report zqtestDrive_kChannelFailCode after adding the
 *   entries before it, as a device that fails half way would.
 * - readScaledVectorF64 fills every channel with zqtestDrive_sample(channel, sample). When reads
 *   block for the task (a switch, by task name), it waits inside the plug-in until abortTask is
 *   called on that task, then reports zqtestDrive_kReadAbortedCode.
 * - registerDoneEvent, registerEveryNSamplesEvent, registerSignalEvent keep the event object with
 *   a reference and hand out tokens 1, 2, 3... per task; unregisterEvent takes one back (and the
 *   reference) and fails for an unknown token; destroyTask lets go of the rest. Events fire
 *   only when a test asks (zqtestDrive_testFire, zqtestDrive_testFireStorm), always from a
 *   thread of the plug-in's own.
 * - controlTask counts starts and other actions; waitUntilTaskDone returns at once. */
#ifndef ZQTEST_DRIVE_SWITCHES_H
#define ZQTEST_DRIVE_SWITCHES_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* What a read that abortTask interrupted reports: the driver's "operation aborted". */
#define zqtestDrive_kReadAbortedCode (-88710)
/* What a channel creation with a "fail" channel reports. */
#define zqtestDrive_kChannelFailCode (-200170)
/* An unknown event token given to unregisterEvent. */
#define zqtestDrive_kUnknownTokenCode (-200985)

/* The value a read writes for sample `sample` of channel `channel`. */
static inline double zqtestDrive_sample(uint32_t channel, uint64_t sample) {
  return (double)channel * 1000.0 + (double)sample + 0.5;
}

/* The counters of zqtestDrive_testCounter. */
enum {
  zqtestDrive_contextsLive = 0,
  zqtestDrive_tasksLive,
  zqtestDrive_reads,        /* reads that returned data */
  zqtestDrive_readsAborted, /* reads ended by abortTask */
  zqtestDrive_aborts,
  zqtestDrive_attributeSets,
  zqtestDrive_channelsCreated,
  zqtestDrive_eventsRegistered,
  zqtestDrive_eventsUnregistered,
  zqtestDrive_eventRefs,  /* references the plug-in holds on event objects */
  zqtestDrive_eventsFired,
  zqtestDrive_starts,
  zqtestDrive_controls, /* controlTask with any action but start */
  zqtestDrive_counterCount
};

/* Reads of the task named `taskName` block until aborted (on != 0) or return at once. */
typedef void (*zqtestDrive_testSetBlockReads_fn)(const char* taskName, int32_t on);
/* Waits until at least `count` reads are blocked in the plug-in; gives 0 when `limitMs` passes
 * first (a guard against a hang, not a measure of time). */
typedef int32_t (*zqtestDrive_testAwaitBlockedReads_fn)(uint32_t count, uint32_t limitMs);
typedef int64_t (*zqtestDrive_testCounter_fn)(int32_t counter);
/* Ends the reads blocked in the named task as its abort would, from the plug-in's side. */
typedef void (*zqtestDrive_testEndBlockedReads_fn)(const char* taskName);
/* Fires, from a new thread of the plug-in, every registered event `eventId` (12576 done, 12580,
 * 12581, 12575 signal, 0 any) of the named task: every N samples and signals `times` times
 * each, done once with `code`. Returns once all fired: the number of events, -1 for no such
 * task. */
typedef int32_t (*zqtestDrive_testFire_fn)(const char* taskName, int32_t eventId, uint32_t times, int32_t code);
/* The first registered event `eventId` of the named task, with a reference for the caller, who
 * may fire it as the plug-in would and must release it; null when there is none. */
typedef void* (*zqtestDrive_testTakeEvent_fn)(const char* taskName, int32_t eventId);
/* A thread of the plug-in fires every event of every live task over and over (on != 0), or
 * stops and is joined. */
typedef void (*zqtestDrive_testFireStorm_fn)(int32_t on);

#ifdef __cplusplus
}
#endif

#endif
