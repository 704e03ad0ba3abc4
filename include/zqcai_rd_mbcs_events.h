/* Event registration: callbacks for every N samples, for the end of a task and for hardware
 * signals. Included by zqcai_rd_mbcs.h.
 *
 * A null callbackFunction unregisters. Bit 0 of options (Vorex_Val_SynchronousEventCallbacks)
 * asks for the callback to run on behalf of the registering thread, one callback at a time, in
 * the order the events occurred; without it the callback runs at once on a thread of the
 * device's plug-in. The synchronous callbacks of one task all belong to the thread that
 * registered the first of them.
 *
 * On Windows synchronous callbacks arrive through a hidden window of the registering thread,
 * which must run a message loop. On Linux, where programs have no message loop, the library
 * gives each registering thread one delivery thread of its own that runs its synchronous
 * callbacks, strictly in post order and never two at once; no call of the application is
 * needed. That thread and its queue go away, with whatever is still queued, when the
 * registering thread's last registration goes, when that thread ends, or when the library is
 * unloaded.
 *
 * After VorexStopTask or VorexClearTask returns, no callback of the task's earlier run is
 * running on another thread, and none that was queued before the stop will run. A callback must
 * not wait for the thread that stops, clears or unregisters its task. */
#ifndef ZQCAI_RD_MBCS_EVENTS_H
#define ZQCAI_RD_MBCS_EVENTS_H

#define Vorex_Val_Acquired_Into_Buffer 1
#define Vorex_Val_Transferred_From_Buffer 2
#define Vorex_Val_SynchronousEventCallbacks (1u << 0)

/* Signal ids of VorexRegisterSignalEvent. */
#define Vorex_Val_SampleClock 12487
#define Vorex_Val_SampleCompleteEvent 12530
#define Vorex_Val_ChangeDetectionEvent 12511
#define Vorex_Val_CounterOutputEvent 12494

/* The callbacks' results are ignored. */
typedef int32 (*VorexEveryNSamplesEventCallbackPtr)(TaskHandle taskHandle, int32 everyNsamplesEventType,
                                                    uInt32 nSamples, void* callbackData);
typedef int32 (*VorexDoneEventCallbackPtr)(TaskHandle taskHandle, int32 status, void* callbackData);
typedef int32 (*VorexSignalEventCallbackPtr)(TaskHandle taskHandle, int32 signalID, void* callbackData);

int32 VorexRegisterEveryNSamplesEvent(TaskHandle task, int32 everyNsamplesEventType, uInt32 nSamples,
                                      uInt32 options, VorexEveryNSamplesEventCallbackPtr callbackFunction,
                                      void* callbackData);
int32 VorexRegisterDoneEvent(TaskHandle task, uInt32 options, VorexDoneEventCallbackPtr callbackFunction,
                             void* callbackData);
int32 VorexRegisterSignalEvent(TaskHandle task, int32 signalID, uInt32 options,
                               VorexSignalEventCallbackPtr callbackFunction, void* callbackData);

#endif
