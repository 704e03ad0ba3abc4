/* End-to-end scenarios of tasks and events, as an application writes them: only the public
 * header, a real installation, storage and plug-in. The test plug-in zqtestDrive serves Dev1;
 * the global channel "Volts0" lives on Dev1. Every check that fails returns its line. */
#include <stdatomic.h>
#include <stdio.h>
#include <string.h>

#include "zqcai_rd_mbcs.h"

#include "e2e_support.h"

#define EVENT_DONE 12576
#define EVENT_ACQUIRED 12580
#define EVENT_SIGNAL 12575
#define SYNC Vorex_Val_SynchronousEventCallbacks

/* Counters read by the drive plug-in's switches (drive_switches.h). */
#define COUNTER_EVENT_REFS 9
#define COUNTER_STARTS 11
#define COUNTER_CONTROLS 12

#define CHECK(condition)                                                  \
  do {                                                                    \
    if (!(condition)) {                                                   \
      snprintf(why, size, "line %d: %s", __LINE__, #condition);           \
      return __LINE__;                                                    \
    }                                                                     \
  } while (0)

/* What the callbacks of one task saw. */
typedef struct Tally {
  atomic_int everyN;
  atomic_int signal;
  atomic_int done;
  atomic_int doneCode;
  atomic_int running;   /* synchronous callbacks running now */
  atomic_int overlaps;  /* synchronous callbacks that found another running */
  atomic_int strays;    /* synchronous callbacks on an unexpected thread */
  atomic_uint syncThread;
  atomic_int length;
  char sequence[64];    /* N or S per synchronous callback, in the order they ran */
  uint32_t registering;
} Tally;

static void startTally(Tally* tally) {
  memset(tally, 0, sizeof *tally);
  tally->registering = e2e_thread_id();
}

/* A synchronous callback runs on the registering thread, or on its one delivery thread, and
 * never beside another. */
static void enterSync(Tally* tally, char kind) {
  if (atomic_fetch_add(&tally->running, 1) != 0) atomic_fetch_add(&tally->overlaps, 1);
  const uint32_t self = e2e_thread_id();
  if (e2e_delivery_thread()) {
    unsigned expected = 0;
    if (self == tally->registering ||
        (!atomic_compare_exchange_strong(&tally->syncThread, &expected, self) && expected != self))
      atomic_fetch_add(&tally->strays, 1);
  } else if (self != tally->registering) {
    atomic_fetch_add(&tally->strays, 1);
  }
  int at = atomic_fetch_add(&tally->length, 1);
  if (at < (int)sizeof tally->sequence - 1) tally->sequence[at] = kind;
}

static void leaveSync(Tally* tally) { atomic_fetch_sub(&tally->running, 1); }

static int32 onEveryN(TaskHandle task, int32 type, uInt32 nSamples, void* data) {
  (void)task, (void)type, (void)nSamples;
  Tally* tally = (Tally*)data;
  enterSync(tally, 'N');
  atomic_fetch_add(&tally->everyN, 1);
  leaveSync(tally);
  return 0;
}

static int32 onSignal(TaskHandle task, int32 signalID, void* data) {
  (void)task, (void)signalID;
  Tally* tally = (Tally*)data;
  enterSync(tally, 'S');
  atomic_fetch_add(&tally->signal, 1);
  leaveSync(tally);
  return 0;
}

/* Direct callbacks run on the plug-in's thread. */
static int32 onEveryNDirect(TaskHandle task, int32 type, uInt32 nSamples, void* data) {
  (void)task, (void)type, (void)nSamples;
  Tally* tally = (Tally*)data;
  if (e2e_thread_id() == tally->registering) atomic_fetch_add(&tally->strays, 1);
  atomic_fetch_add(&tally->everyN, 1);
  return 0;
}

/* Inside a done callback the thread's last error is the task's ending status. */
static int doneIsLastError(int32 status) {
  char described[512], extended[1024];
  if (VorexGetErrorString(status, described, sizeof described) != 0) return 0;
  if (VorexGetExtendedErrorInfo(extended, sizeof extended) != 0) return 0;
  return strncmp(extended, described, strlen(described)) == 0;
}

static int32 onDone(TaskHandle task, int32 status, void* data) {
  (void)task;
  Tally* tally = (Tally*)data;
  if (e2e_thread_id() == tally->registering) atomic_fetch_add(&tally->strays, 1);
  if (status < 0 && !doneIsLastError(status)) atomic_fetch_add(&tally->strays, 1);
  atomic_store(&tally->doneCode, status);
  atomic_fetch_add(&tally->done, 1);
  return 0;
}

/* Waiting for a counter to reach a value, through the calling thread's message loop. */
typedef struct Goal {
  atomic_int* counter;
  int value;
} Goal;

static int goalReached(void* context) {
  Goal* goal = (Goal*)context;
  return atomic_load(goal->counter) >= goal->value;
}

static int awaitCount(atomic_int* counter, int value) {
  Goal goal = {counter, value};
  return e2e_await(goalReached, &goal);
}

/* A task on Dev1 with the global channel. */
static int32 makeTask(const char* name, TaskHandle* task) {
  int32 code = VorexCreateTask(name, task);
  return code < 0 ? code : VorexAddGlobalChansToTask(*task, "Volts0");
}

/* Everything queued for this thread so far has been handled once a signal of the marker task
 * has come through: the queue keeps its order. */
typedef struct Marker {
  TaskHandle task;
  Tally tally;
} Marker;

static int32 openMarker(Marker* marker, const char* name) {
  startTally(&marker->tally);
  int32 code = makeTask(name, &marker->task);
  if (code >= 0) code = VorexRegisterSignalEvent(marker->task, Vorex_Val_SampleClock, SYNC, onSignal, &marker->tally);
  return code < 0 ? code : VorexStartTask(marker->task);
}

static int passMarker(Marker* marker, const char* name) {
  int before = atomic_load(&marker->tally.signal);
  return e2e_fire(name, EVENT_SIGNAL, 1, 0) == 1 && awaitCount(&marker->tally.signal, before + 1);
}

int e2e_run_lifecycle(char* why, size_t size) {
  static Tally tally;
  static Marker marker;
  startTally(&tally);
  CHECK(openMarker(&marker, "E2E Marker") == 0);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Lifecycle", &task) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, 100, SYNC, onEveryN, &tally) == 0);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, SYNC, onSignal, &tally) == 0);
  CHECK(VorexRegisterDoneEvent(task, 0, onDone, &tally) == 0);
  CHECK(VorexStartTask(task) == 0);

  CHECK(e2e_fire("E2E Lifecycle", EVENT_ACQUIRED, 5, 0) == 1);
  CHECK(e2e_fire("E2E Lifecycle", EVENT_SIGNAL, 3, 0) == 1);
  CHECK(e2e_fire("E2E Lifecycle", EVENT_DONE, 0, -200088) == 1);
  /* A direct callback has run before the plug-in's fire returned, its status the last error. */
  CHECK(atomic_load(&tally.done) == 1 && atomic_load(&tally.doneCode) == -200088);
  CHECK(atomic_load(&tally.strays) == 0);
  CHECK(awaitCount(&tally.signal, 3));
  CHECK(atomic_load(&tally.everyN) == 5 && atomic_load(&tally.signal) == 3);
  CHECK(strcmp(tally.sequence, "NNNNNSSS") == 0);

  /* None lost before a stop: all five of the first run came, and the stop takes nothing back. */
  CHECK(VorexStopTask(task) == 0);
  CHECK(VorexStartTask(task) == 0);
  /* The next run's events arrive once the queue has passed the stop's sentinel. */
  CHECK(passMarker(&marker, "E2E Marker"));
  CHECK(e2e_fire("E2E Lifecycle", EVENT_ACQUIRED, 2, 0) == 1);
  CHECK(awaitCount(&tally.everyN, 7));
  CHECK(passMarker(&marker, "E2E Marker"));
  CHECK(atomic_load(&tally.everyN) == 7 && atomic_load(&tally.signal) == 3);
  CHECK(atomic_load(&tally.overlaps) == 0 && atomic_load(&tally.strays) == 0);

  CHECK(VorexClearTask(task) == 0 && VorexClearTask(marker.task) == 0);
  return 0;
}

int e2e_run_direct_restart(char* why, size_t size) {
  static Tally tally;
  startTally(&tally);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Direct", &task) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Transferred_From_Buffer, 10, 0, onEveryNDirect, &tally) ==
        0);
  CHECK(VorexRegisterDoneEvent(task, 0, onDone, &tally) == 0);
  for (int run = 1; run <= 3; ++run) {
    /* Only direct callbacks: nothing is queued, so a start lets events through at once. */
    CHECK(VorexStartTask(task) == 0);
    CHECK(e2e_fire("E2E Direct", 12581, 4, 0) == 1);
    CHECK(e2e_fire("E2E Direct", EVENT_DONE, 0, 0) == 1);
    CHECK(atomic_load(&tally.everyN) == 4 * run && atomic_load(&tally.done) == run);
    CHECK(VorexStopTask(task) == 0);
    /* Stopped: the plug-in's events are dropped. */
    CHECK(e2e_fire("E2E Direct", 0, 2, 0) == 2);
    CHECK(atomic_load(&tally.everyN) == 4 * run && atomic_load(&tally.done) == run);
  }
  CHECK(atomic_load(&tally.strays) == 0);
  CHECK(VorexClearTask(task) == 0);
  return 0;
}

/* The gate of the queue: a synchronous callback of another task that holds the delivery thread
 * until it opens, so that later messages stay queued. Where the registering thread pumps, not
 * pumping holds them. */
static atomic_int gateHeld;
static atomic_int gateOpen;

static int32 holdAtGate(TaskHandle task, int32 signalID, void* data) {
  (void)task, (void)signalID, (void)data;
  atomic_store(&gateHeld, 1);
  while (!atomic_load(&gateOpen)) e2e_sleep_ms(1);
  return 0;
}

static int gateReached(void* context) {
  (void)context;
  return atomic_load(&gateHeld);
}

int e2e_run_stop_drops_queued(char* why, size_t size) {
  static Tally tally;
  static Marker marker;
  startTally(&tally);
  atomic_store(&gateHeld, 0);
  atomic_store(&gateOpen, 0);
  CHECK(openMarker(&marker, "E2E Drop Marker") == 0);
  TaskHandle gate = 0, task = 0;
  CHECK(makeTask("E2E Gate", &gate) == 0);
  CHECK(VorexRegisterSignalEvent(gate, Vorex_Val_SampleClock, SYNC, holdAtGate, NULL) == 0);
  CHECK(VorexStartTask(gate) == 0);
  CHECK(makeTask("E2E Drop", &task) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, 100, SYNC, onEveryN, &tally) == 0);
  CHECK(VorexStartTask(task) == 0);

  if (e2e_delivery_thread()) {
    CHECK(e2e_fire("E2E Gate", EVENT_SIGNAL, 1, 0) == 1);
    CHECK(e2e_await(gateReached, NULL));
  }
  CHECK(e2e_fire("E2E Drop", EVENT_ACQUIRED, 4, 0) == 1); /* queued behind the gate */
  CHECK(VorexStopTask(task) == 0);
  CHECK(VorexStartTask(task) == 0);
  CHECK(e2e_fire("E2E Drop", EVENT_ACQUIRED, 2, 0) == 1); /* the new run, behind the sentinels */
  atomic_store(&gateOpen, 1);
  CHECK(passMarker(&marker, "E2E Drop Marker"));
  /* The four queued before the stop were dropped. The new run's two were fired while the task
   * was still marked (its sentinel not yet handled): a run's events flow once the queue has
   * passed the sentinel, so they are gone too. */
  CHECK(atomic_load(&tally.everyN) == 0);
  CHECK(e2e_fire("E2E Drop", EVENT_ACQUIRED, 3, 0) == 1);
  CHECK(awaitCount(&tally.everyN, 3));
  CHECK(passMarker(&marker, "E2E Drop Marker"));
  CHECK(atomic_load(&tally.everyN) == 3);
  CHECK(VorexClearTask(task) == 0 && VorexClearTask(gate) == 0 && VorexClearTask(marker.task) == 0);
  return 0;
}

int e2e_run_clear_ends_callbacks(char* why, size_t size) {
  static Tally tally, direct;
  static Marker marker;
  startTally(&tally);
  startTally(&direct);
  CHECK(openMarker(&marker, "E2E Clear Marker") == 0);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Clear", &task) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Acquired_Into_Buffer, 1, SYNC, onEveryN, &tally) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, Vorex_Val_Transferred_From_Buffer, 1, 0, onEveryNDirect, &direct) ==
        0);
  CHECK(VorexStartTask(task) == 0);
  e2e_storm(1);
  CHECK(awaitCount(&tally.everyN, 50) && awaitCount(&direct.everyN, 50));
  CHECK(VorexClearTask(task) == 0);
  const int synchronous = atomic_load(&tally.everyN), immediate = atomic_load(&direct.everyN);
  /* Long after: the marker's events keep coming through the same queue, the task's never. */
  const int markerSeen = atomic_load(&marker.tally.signal);
  CHECK(awaitCount(&marker.tally.signal, markerSeen + 50));
  e2e_storm(0);
  CHECK(passMarker(&marker, "E2E Clear Marker"));
  CHECK(atomic_load(&tally.everyN) == synchronous && atomic_load(&direct.everyN) == immediate);
  CHECK(atomic_load(&tally.overlaps) == 0 && atomic_load(&tally.strays) == 0 && atomic_load(&direct.strays) == 0);
  CHECK(VorexClearTask(marker.task) == 0);
  return 0;
}

/* Each callback of the flood fires its event twice more while the flood is on, so its queue
 * never empties: a wait for a count must still come back. */
static atomic_int floodOn;

static int32 onSignalRefire(TaskHandle task, int32 signalID, void* data) {
  (void)task, (void)signalID;
  Tally* tally = (Tally*)data;
  atomic_fetch_add(&tally->signal, 1);
  if (atomic_load(&floodOn)) e2e_fire("E2E Flood", EVENT_SIGNAL, 2, 0);
  return 0;
}

/* A task cleared before at the same address may leave its mark until the sentinel queued behind
 * it is handled, and the events fired until then are dropped: the flood is kicked again until
 * its first callback has run. */
static int floodGoal(void* context) {
  Tally* tally = (Tally*)context;
  const int seen = atomic_load(&tally->signal);
  if (seen == 0) e2e_fire("E2E Flood", EVENT_SIGNAL, 1, 0);
  return seen >= 500;
}

int e2e_run_wait_in_flood(char* why, size_t size) {
  static Tally tally;
  startTally(&tally);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Flood", &task) == 0);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, SYNC, onSignalRefire, &tally) == 0);
  CHECK(VorexStartTask(task) == 0);
  atomic_store(&floodOn, 1);
  const int reached = e2e_await(floodGoal, &tally);
  atomic_store(&floodOn, 0);
  CHECK(reached);
  CHECK(VorexClearTask(task) == 0); /* drops what the flood left queued */
  return 0;
}

typedef struct ForeignCall {
  TaskHandle task;
  int32 stop, clear, control, registerSync, registerDirect;
} ForeignCall;

static int32 nothing(TaskHandle task, int32 status, void* data) {
  (void)task, (void)status, (void)data;
  return 0;
}

static void callFromOtherThread(void* context) {
  ForeignCall* call = (ForeignCall*)context;
  call->stop = VorexStopTask(call->task);
  call->clear = VorexClearTask(call->task);
  call->control = VorexTaskControl(call->task, Vorex_Val_Task_Verify);
  call->registerSync = VorexRegisterDoneEvent(call->task, SYNC, nothing, NULL);
  call->registerDirect = VorexRegisterDoneEvent(call->task, 0, nothing, NULL);
}

int e2e_run_foreign_thread(char* why, size_t size) {
  static Tally tally;
  startTally(&tally);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Foreign", &task) == 0);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, SYNC, onSignal, &tally) == 0);
  CHECK(VorexStartTask(task) == 0);
  const int64_t controls = e2e_counter(COUNTER_CONTROLS);
  ForeignCall call = {task, 0, 0, 0, 0, 0};
  e2e_on_other_thread(callFromOtherThread, &call);
  /* The registering thread owns the task's stop and clear; the plug-in heard of neither. */
  CHECK(call.stop == -200979 && call.clear == -200979);
  CHECK(e2e_counter(COUNTER_CONTROLS) == controls + 1); /* only the verify */
  CHECK(call.control == 0);
  CHECK(call.registerSync == -200990);
  /* Without the synchronous option the thread does not matter: a done registration goes in. */
  CHECK(call.registerDirect == 0);
  /* The task is still there: its own thread stops and clears it. */
  CHECK(VorexStopTask(task) == 0 && VorexClearTask(task) == 0);
  return 0;
}

int e2e_run_registration_errors(char* why, size_t size) {
  static Tally tally;
  startTally(&tally);
  TaskHandle task = 0;
  CHECK(makeTask("E2E Registrations", &task) == 0);
  CHECK(VorexRegisterDoneEvent(task, 0, NULL, NULL) == -223807);
  CHECK(VorexRegisterDoneEvent(task, 0, onDone, &tally) == 0);
  CHECK(VorexRegisterDoneEvent(task, SYNC, onDone, &tally) == -200950);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 1, 10, SYNC, onEveryN, &tally) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 1, 10, SYNC, onEveryN, &tally) == -200966);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 2, 10, SYNC, onEveryN, &tally) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 2, 10, 0, onEveryNDirect, &tally) == -200967);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 3, 10, 0, onEveryNDirect, &tally) == -200077);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 3, 10, 0, NULL, NULL) == -200077);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, SYNC, onSignal, &tally) == 0);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_CounterOutputEvent, SYNC, onSignal, &tally) == -200949);
  /* Unregistering under another signal id takes the one signal registration back. */
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_CounterOutputEvent, SYNC, NULL, NULL) == 0);
  CHECK(VorexRegisterSignalEvent(task, Vorex_Val_SampleClock, SYNC, NULL, NULL) == -223807);
  CHECK(VorexRegisterDoneEvent(task, 0, NULL, NULL) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 1, 0, 0, NULL, NULL) == 0);
  CHECK(VorexRegisterEveryNSamplesEvent(task, 2, 0, 0, NULL, NULL) == 0);
  /* The plug-in holds no event object of the task any more. */
  CHECK(e2e_counter(COUNTER_EVENT_REFS) == 0);
  CHECK(VorexRegisterDoneEvent(NULL, 0, onDone, &tally) == -200230);
  CHECK(VorexClearTask(task) == 0);
  return 0;
}

int e2e_run_task_calls(char* why, size_t size) {
  TaskHandle first = 0, second = (TaskHandle)1, generated = 0, other = 0;
  CHECK(VorexCreateTask("  E2E Named  ", &first) == 0 && first != 0);
  /* Names are unique whatever their case, and blanks around them do not count. */
  CHECK(VorexCreateTask("e2e named", &second) == -200089 && second == 0);
  CHECK(VorexCreateTask("", &generated) == 0 && generated != 0);
  CHECK(VorexCreateTask(NULL, &other) == 0 && other != 0 && other != generated);
  CHECK(VorexCreateTask("Bad/Name", &second) == -200552 && second == 0);
  CHECK(VorexLoadTask("", &second) == -200088 && second == 0);
  CHECK(VorexLoadTask("No Such Saved Task", &second) == -200485 && second == 0);
  /* A task without a channel answers by itself: no plug-in is bound yet. */
  bool32 done = 1;
  CHECK(VorexIsTaskDone(first, NULL) == -200604);
  CHECK(VorexIsTaskDone(NULL, &done) == -200230 && done == 0);
  CHECK(VorexWaitUntilTaskDone(first, Vorex_Val_WaitInfinitely) == 0);
  const int64_t starts = e2e_counter(COUNTER_STARTS);
  CHECK(VorexAddGlobalChansToTask(first, " Volts0 ") == 0);
  CHECK(VorexStartTask(first) == 0 && e2e_counter(COUNTER_STARTS) == starts + 1);
  CHECK(VorexTaskControl(first, Vorex_Val_Task_Abort) == 0 && e2e_counter(COUNTER_STARTS) == starts + 1);

  /* The index's bounds, the size query and the short buffer are proven over the recording task. */
  char name[64];
  CHECK(VorexGetNthTaskDevice(first, 1, name, sizeof name) == 0 && strcmp(name, "Dev1") == 0);

  CHECK(VorexClearTask(first) == 0 && VorexClearTask(0) == 0);
  CHECK(VorexClearTask(generated) == 0 && VorexClearTask(other) == 0);
  /* The name is free again. */
  CHECK(VorexCreateTask("E2E NAMED", &first) == 0 && VorexClearTask(first) == 0);
  return 0;
}

/* ASCII to UTF-16 and back, for the INI text functions. */
static void toUtf16(const char* text, VorexUtf16Char* out, size_t size) {
  size_t i = 0;
  for (; text[i] && i + 1 < size; ++i) out[i] = (VorexUtf16Char)(unsigned char)text[i];
  out[i] = 0;
}

static void toNarrow(const VorexUtf16Char* text, char* out, size_t size) {
  size_t i = 0;
  for (; text[i] && i + 1 < size; ++i) out[i] = (char)text[i];
  out[i] = 0;
}

#define COUNTER_TASKS_LIVE 1
#define INI_UNITS 1024

int e2e_run_task_as_text(char* why, size_t size) {
  static VorexUtf16Char text[INI_UNITS], wide[INI_UNITS], name[64];
  static char narrow[INI_UNITS], joined[INI_UNITS + 64];
  TaskHandle task = 0, copy = 0, refused = (TaskHandle)1;
  CHECK(makeTask("E2E Text", &task) == 0);
  /* The size query, the short buffer and the name given are proven over the recording task. */
  CHECK(VorexGetTaskAsINI(NULL, &task, text, INI_UNITS) == 0);
  toNarrow(text, narrow, sizeof narrow);
  CHECK(strncmp(narrow, "[task E2E Text]\n", 16) == 0 && strstr(narrow, "[channel Volts0]\n") != NULL);

  /* A new task from the text: the same channel, on the same device. */
  const int64_t live = e2e_counter(COUNTER_TASKS_LIVE);
  toUtf16("E2E From Text", name, 64);
  CHECK(VorexCreateTaskFromINI(name, text, &copy) == 0 && copy != 0);
  char found[64];
  CHECK(VorexGetNthTaskDevice(copy, 1, found, sizeof found) == 0 && strcmp(found, "Dev1") == 0);
  CHECK(VorexGetTaskAsINI(NULL, &copy, wide, INI_UNITS) == 0);
  toNarrow(wide, narrow, sizeof narrow);
  CHECK(strcmp(narrow, "[task E2E From Text]\nchannels = Volts0\n\n[channel Volts0]\ntask = E2E From Text\n"
                       "type = 10322\ndevice = Dev1\nphysical_channels = Dev1/Volts0\n") == 0);

  /* Two tasks in one text: refused, and nothing is left of the attempt. */
  snprintf(joined, sizeof joined, "[task E2E Second]\nchannels = \n\n%s", narrow);
  toUtf16(joined, wide, INI_UNITS);
  toUtf16("E2E Two", name, 64);
  CHECK(VorexCreateTaskFromINI(name, wide, &refused) == -224514 && refused == 0);
  CHECK(e2e_counter(COUNTER_TASKS_LIVE) == live + 1);
  CHECK(VorexCreateTask("E2E Two", &refused) == 0 && VorexClearTask(refused) == 0);

  CHECK(VorexClearTask(copy) == 0 && VorexClearTask(task) == 0);
  return 0;
}
