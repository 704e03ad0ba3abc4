// Event registration: the plug-in gives a token for each registered event, and the task keeps
// it in its cache under the event id. A debug target hears of events only at the change from
// none to some and back.
#include "task/task_frame.h"

namespace zqvorexRedir {

EventTokens Task::getEvents(int32_t eventId, zqerr_Status* status) {
  return eventCache_.getEvents(eventId, status);
}

zqvorexPlugin_EventToken Task::keepEventToken(Plugin& plugin, zqvorexPlugin_Task_undefined* pluginTask,
                                              int32_t eventId, zqvorexPlugin_EventToken token,
                                              const void* boundaryObject, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return token;
  const bool wasEmpty = eventCache_.isEmpty(status);
  eventCache_.add(eventId, token, boundaryObject, status);
  bool targetTold = false;
  if (debugTarget_ && wasEmpty && !eventCache_.isEmpty(status) && zqerr::isOpen(status)) {
    debugTarget_->setEventsEnabled(true, status);
    targetTold = true;
  }
  if (zqerr::isOpen(status)) return token;
  // The plug-in holds a registration that the task could not keep: take it back. The first
  // failure is the one the caller sees.
  zqerr::Status unregistered;
  plugin.unregisterEvent(pluginTask, token, &unregistered);
  zqerr::adopt(status, &unregistered);
  if (targetTold) {
    zqerr::Status disabled;
    debugTarget_->setEventsEnabled(false, &disabled);
    zqerr::adopt(status, &disabled);
  }
  return 0;
}

zqvorexPlugin_EventToken Task::registerEveryNSamplesEventOwn(int32_t eventId, uint32_t nSamples, bool direct,
                                                             zqgopher_IEventEveryNSamples* event,
                                                             zqerr_Status* status) {
  return runFrame<zqvorexPlugin_EventToken>(
      status,
      [&](Plugin& plugin, zqvorexPlugin_Task_undefined* task) {
        auto token = plugin.registerEveryNSamplesEvent(task, eventId, nSamples, direct, event, status);
        return keepEventToken(plugin, task, eventId, token, event, status);
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
        return keepEventToken(plugin, task, kPluginEventDone, token, event, status);
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
        return keepEventToken(plugin, task, kPluginEventSignal, token, event, status);
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
        if (!zqerr::isOpen(status)) return;
        const bool wasEmpty = eventCache_.isEmpty(status);
        eventCache_.remove(token, status);
        if (debugTarget_ && !wasEmpty && eventCache_.isEmpty(status) && zqerr::isOpen(status))
          debugTarget_->setEventsEnabled(false, status);
      },
      [&] { failNoDevice(status); });
}

}  // namespace zqvorexRedir
