// Every operation of the task interface, generated from the operation table with the route of
// its row: the ones the task writes out itself go to their own code, all others run the common
// frame and forward to the plug-in operation of the same name.
#include "status/report_writer.h"
#include "status/error_sites.h"
#include "task/channel_creation_scope.h"
#include "task/sample_mirror.h"
#include "task/task_routes.h"

namespace zqvorexRedir {

namespace {

template <class R, OpRoute route, class... Args>
R answerUnbound(const Task& task, Args&... args) {
  zqerr_Status* status = taskframe::statusOf(args...);
  if constexpr (route == OpRoute::noDevice) task.failNoDevice(status);
  if constexpr (route == OpRoute::noChannels) task.failNoChannels(status);
  if constexpr (route == OpRoute::channelSetReset) task.failChannelNotInTask(taskframe::firstOf(args...), status);
  if constexpr (route == OpRoute::done) return R(1);
  return R();
}

}  // namespace

void Task::failNoDevice(zqerr_Status* status) const {
  ZQ_FAIL(status, kTaskCanNotPerformOpWhenNoDevInTask);
}

void Task::failNoChannels(zqerr_Status* status) const {
  ZQ_FAIL(status, kTaskCanNotPerformOpWhenNoChansInTask);
}

void Task::failChannelNotInTask(const zqgopher::StringArrayView& channels, zqerr_Status* status) const {
  if (channels.empty()) return;
  if (!ZQ_FAIL(status, kTaskChanNotInTask)) return;
  zqerr::ReportWriter items = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  items = zqerr::addItem(items, zqerr::usage::kUsageTypeChannelName, channels[0]);
  zqerr::addItem(items, zqerr::usage::kUsageTypeTaskName, std::string_view(name_));
}

#define ZQ_TASK_ARGS(...) __VA_ARGS__
#define ZQ_TASK_OP(R, op, params, args)                                                               \
  R Task::op params {                                                                                 \
    return [&](auto& self) -> R {                                                                     \
      constexpr OpRoute route = routes::op.route;                                                     \
      auto forward = [&](auto& plugin, auto* handle) -> R {                                           \
        return taskframe::callPlugin([&](auto... converted) -> R { return plugin.op(handle, converted...); }, \
                                     ZQ_TASK_ARGS args);                                              \
      };                                                                                              \
      if constexpr (route == OpRoute::own) {                                                      \
        return self.op##Own args;                                                                     \
      } else if constexpr (route == OpRoute::channelCreation) {                                       \
        return self.template runChannelCreation<R>(status, taskframe::firstOf(ZQ_TASK_ARGS args), forward); \
      } else if constexpr (routes::op.mirrored) {                                                     \
        auto mirrored = [&](auto& plugin, auto* handle) -> R {                                        \
          auto count = forward(plugin, handle);                                                       \
          mirrorSamples<mirrorRowOf(#op)>(self.debugTarget_.get(), self.targetFlags_, count, ZQ_TASK_ARGS args); \
          return count;                                                                               \
        };                                                                                            \
        return self.template runFrame<R>(                                                             \
            status, mirrored,                                                                         \
            [&]() -> R { return answerUnbound<R, route>(self, ZQ_TASK_ARGS args); });                \
      } else {                                                                                        \
        return self.template runFrame<R>(                                                             \
            status, forward, [&]() -> R { return answerUnbound<R, route>(self, ZQ_TASK_ARGS args); }); \
      }                                                                                               \
    }(*this);                                                                                         \
  }
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP
#undef ZQ_TASK_ARGS

}  // namespace zqvorexRedir
