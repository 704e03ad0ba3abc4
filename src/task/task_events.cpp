// The task's event operations: the frame and the plug-in's registration, then the registry
// keeps or forgets the plug-in's token.
#include "task/task_frame.h"

namespace zqvorexRedir {

EventTokens Task::getEvents(int32_t eventId, zqerr_Status* status) { return events_.getEvents(eventId, status); }

zqvorexPlugin_EventToken Task::registerEveryNSamplesEventOwn(int32_t eventId, uint32_t nSamples, bool direct,
                                                             zqgopher_IEventEveryNSamples* event,
                                                             zqerr_Status* status) {
  return runFrame<zqvorexPlugin_EventToken>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto token = plugin.registerEveryNSamplesEvent(task, eventId, nSamples, direct, event, status);
        return events_.keep(plugin, task, eventId, token, event, debug_.target(), status);
      },
      [&] {
        failNoDevice(status);
        return zqvorexPlugin_EventToken(0);
      });
}

zqvorexPlugin_EventToken Task::registerDoneEventOwn(bool direct, zqgopher_IEventDone* event,
                                                    zqerr_Status* status) {
  return runFrame<zqvorexPlugin_EventToken>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto token = plugin.registerDoneEvent(task, direct, event, status);
        return events_.keep(plugin, task, kPluginEventDone, token, event, debug_.target(), status);
      },
      [&] {
        failNoDevice(status);
        return zqvorexPlugin_EventToken(0);
      });
}

zqvorexPlugin_EventToken Task::registerSignalEventOwn(int32_t signalId, bool direct,
                                                      zqgopher_IEventSignal* event, zqerr_Status* status) {
  return runFrame<zqvorexPlugin_EventToken>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto token = plugin.registerSignalEvent(task, signalId, direct, event, status);
        return events_.keep(plugin, task, kPluginEventSignal, token, event, debug_.target(), status);
      },
      [&] {
        failNoDevice(status);
        return zqvorexPlugin_EventToken(0);
      });
}

void Task::unregisterEventOwn(zqvorexPlugin_EventToken token, zqerr_Status* status) {
  runFrame<void>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        plugin.unregisterEvent(task, token, status);
        events_.forget(token, debug_.target(), status);
      },
      [&] { failNoDevice(status); });
}

}  // namespace zqvorexRedir
