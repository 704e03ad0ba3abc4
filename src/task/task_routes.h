// How the task runs each operation of its interface: the route stands in a column of the
// operation table (src/plugin/operations.tsv), generated into task_routes.inc, so that no
// operation is routed by the look of its name.
#pragma once

namespace zqvorexRedir {

enum class OpRoute {
  own,              // the task's own code (its ...Own method): rules of its own around or instead of the plug-in
  noDevice,         // the common frame; without a plug-in task: kErrorCanNotPerformOpWhenNoDevInTask
  noChannels,       // the common frame; without a plug-in task: kErrorCanNotPerformOpWhenNoChansInTask
  channelSetReset,  // the common frame; without a plug-in task: kErrorChanNotInTask, unless the list is empty
  channelCreation,  // the creation frame: the channel's devices may bind the task first
  nothing,          // the common frame; without a plug-in task: returns at once
  done,             // the common frame; without a plug-in task: answers true
};

struct TaskRoute {
  OpRoute route;
  bool mirrored;  // a read or write whose samples a debug target that asks for them is shown
};

namespace routes {
#define ZQ_TASK_ROUTE(op, route, mirrored) inline constexpr TaskRoute op{OpRoute::route, mirrored};
#include "task/task_routes.inc"
#undef ZQ_TASK_ROUTE
}  // namespace routes

}  // namespace zqvorexRedir
