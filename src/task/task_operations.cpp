// Every operation of the task interface, generated from the operation table with the route of
// its row: the ones the task writes out itself go to their own code, all others run a frame
// and forward to the plug-in operation of the same name.
#include "status/error_sites.h"
#include "status/report_writer.h"
#include "task/sample_mirror.h"
#include "task/task_frame.h"

namespace zqvorexRedir {

void Task::failNoDevice(zqerr_Status* status) const { ZQ_FAIL(status, kTaskCanNotPerformOpWhenNoDevInTask); }

void Task::failNoChannels(zqerr_Status* status) const { ZQ_FAIL(status, kTaskCanNotPerformOpWhenNoChansInTask); }

void Task::failChannelNotInTask(const zqgopher::StringArrayView& channels, zqerr_Status* status) const {
  if (channels.empty()) return;
  if (!ZQ_FAIL(status, kTaskChanNotInTask)) return;
  zqerr::ReportWriter items = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  items = zqerr::addItem(items, zqerr::usage::kUsageTypeChannelName, channels[0]);
  zqerr::addItem(items, zqerr::usage::kUsageTypeTaskName, std::string_view(identity_.name));
}

template <class R, OpRoute route, class... Args>
R Task::answerUnbound(Args&... args) const {
  zqerr_Status* status = taskframe::statusOf(args...);
  if constexpr (route == OpRoute::noDevice) failNoDevice(status);
  if constexpr (route == OpRoute::noChannels) failNoChannels(status);
  if constexpr (route == OpRoute::channelSetReset) failChannelNotInTask(taskframe::firstOf(args...), status);
  if constexpr (route == OpRoute::done) return R(1);
  return R();
}

// `forward(plugin, handle, converted arguments...)` calls the plug-in operation, `own(task,
// arguments...)` the task's own code. Both are generic, so that only the one that the route
// takes is ever compiled: the plug-in has no operation for some, the task no own code for most.
template <class R, TaskRoute route, size_t mirrorRow, class Forward, class Own, class... Args>
R Task::runOperation(Forward&& forward, Own&& own, Args&... args) {
  if constexpr (route.route == OpRoute::own) {
    return own(*this, args...);
  } else {
    zqerr_Status* status = taskframe::statusOf(args...);
    auto call = [&](Plugin& plugin, zqvorexPlugin_Task_undefined* handle) -> R {
      return taskframe::callPlugin([&](auto... converted) -> R { return forward(plugin, handle, converted...); },
                                   args...);
    };
    if constexpr (route.route == OpRoute::channelCreation) {
      // The first argument names the physical channels, or the counter.
      const Text& physicalChannels = taskframe::firstOf(args...);
      return runChannelCreation<R>(
          status,
          [&](PluginBinder& binding, ChannelCreationScope& scope) {
            binding.attachPhysicalChannels(physicalChannels, scope, status);
          },
          call, [&] { failNoDevice(status); });
    } else if constexpr (route.mirrored) {
      auto mirrored = [&](Plugin& plugin, zqvorexPlugin_Task_undefined* handle) -> R {
        R count = call(plugin, handle);
        mirrorSamples<mirrorRow>(debug_.target(), debug_.flags(), count, args...);
        return count;
      };
      return runFrame<R>(status, mirrored, [&]() -> R { return answerUnbound<R, route.route>(args...); });
    } else {
      return runFrame<R>(status, call, [&]() -> R { return answerUnbound<R, route.route>(args...); });
    }
  }
}

#define ZQ_TASK_ARGS(...) __VA_ARGS__
#define ZQ_TASK_OP(R, op, params, args)                                                                     \
  R Task::op params {                                                                                       \
    return runOperation<R, routes::op, routes::op.mirrored ? mirrorRowOf(#op) : mirror::kRowCount>(         \
        [](auto& plugin, auto* handle, auto... converted) -> R { return plugin.op(handle, converted...); }, \
        [](auto& task, auto&... arguments) -> R { return task.op##Own(arguments...); }, ZQ_TASK_ARGS args); \
  }
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP
#undef ZQ_TASK_ARGS

}  // namespace zqvorexRedir
