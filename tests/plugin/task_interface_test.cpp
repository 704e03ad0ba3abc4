// The task interface's attribute operations as the accessor frame calls them: a list view and
// the id, then the value or the out object, then the status; scalars come back as results.
#include <type_traits>

#include "frame/op_traits.h"
#include "task/itask.h"

namespace {

using zqvorexRedir::ITask;
using zqvorexRedir::Text;
using View = const zqgopher::StringArrayView&;
using Status = zqerr_Status*;

template <auto Op, class Expected>
constexpr bool has = std::is_same_v<decltype(Op), Expected>;

// get of each scalar type
static_assert(has<&ITask::getChannelAttributeBool, uint32_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getChannelAttributeI32, int32_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getChannelAttributeU32, uint32_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getTimingAttributeU64, uint64_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getChannelAttributeF64, double (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getBufferAttributeSize, uint64_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getReadAttributeOffset, int64_t (ITask::*)(View, int32_t, Status)>);
static_assert(has<&ITask::getDesiredTimingAttributeF64, double (ITask::*)(View, int32_t, Status)>);
// get through an out object
static_assert(has<&ITask::getChannelAttributeString, void (ITask::*)(View, int32_t, zqgopher_IString*, Status)>);
static_assert(has<&ITask::getDeviceAttributeStringVtr, void (ITask::*)(View, int32_t, zqgopher_IItemAdder*, Status)>);
static_assert(has<&ITask::getTimingAttributeF64Vtr, void (ITask::*)(View, int32_t, zqgopher_IItemAdder*, Status)>);
static_assert(has<&ITask::getChannelAttributeI32Vtr, void (ITask::*)(View, int32_t, zqgopher_IItemAdder*, Status)>);
static_assert(has<&ITask::getChannelAttributeU32Vtr, void (ITask::*)(View, int32_t, zqgopher_IItemAdder*, Status)>);
static_assert(has<&ITask::getChannelAttributeAbsoluteTime,
                  void (ITask::*)(View, int32_t, zqvorexPlugin_AbsoluteTime*, Status)>);
// set takes the value, reset nothing
static_assert(has<&ITask::setChannelAttributeBool, void (ITask::*)(View, int32_t, uint32_t, Status)>);
static_assert(has<&ITask::setReadAttributeOffset, void (ITask::*)(View, int32_t, int64_t, Status)>);
static_assert(has<&ITask::setBufferAttributeSize, void (ITask::*)(View, int32_t, uint64_t, Status)>);
static_assert(has<&ITask::setChannelAttributeString, void (ITask::*)(View, int32_t, const Text&, Status)>);
static_assert(has<&ITask::setReadAttributeStringVtr,
                  void (ITask::*)(View, int32_t, const zqgopher_ArrayView*, Status)>);
static_assert(has<&ITask::setTimingAttributeAbsoluteTime,
                  void (ITask::*)(View, int32_t, const zqvorexPlugin_AbsoluteTime*, Status)>);
static_assert(has<&ITask::resetWriteAttributeOffset, void (ITask::*)(View, int32_t, Status)>);
// the Task class has no list
static_assert(has<&ITask::getTaskAttributeU32, uint32_t (ITask::*)(int32_t, Status)>);
static_assert(has<&ITask::setTaskAttributeString, void (ITask::*)(int32_t, const Text&, Status)>);
static_assert(has<&ITask::resetTaskAttributeStringVtr, void (ITask::*)(int32_t, Status)>);
static_assert(zqframe::OpTraits<decltype(&ITask::getWriteAttributeU32)>::kTakesList);
static_assert(!zqframe::OpTraits<decltype(&ITask::getTaskAttributeI32)>::kTakesList);

// forwarded operations lose the plug-in's handle; the task's own ones never had one
static_assert(has<&ITask::commitDebugSession, void (ITask::*)(Status)>);
static_assert(has<&ITask::isTaskDone, uint32_t (ITask::*)(Status)>);
static_assert(has<&ITask::controlTask, void (ITask::*)(int32_t, bool, Status)>);
static_assert(has<&ITask::addChannelsToTask, void (ITask::*)(const Text&, Status)>);
static_assert(has<&ITask::exportSignal, void (ITask::*)(int32_t, View, View, Status)>);
static_assert(has<&ITask::configureWatchdogDOExpirStates,
                  void (ITask::*)(const zqgopher_ArrayView*, const zqgopher_ArrayView*, Status)>);
static_assert(has<&ITask::performStrainShuntCalibration,
                  void (ITask::*)(View, double, int32_t, int32_t, int32_t, bool, Status)>);
static_assert(has<&ITask::registerDoneEvent,
                  zqvorexPlugin_EventToken (ITask::*)(bool, zqgopher_IEventDone*, Status)>);
static_assert(std::is_abstract_v<ITask> && std::has_virtual_destructor_v<ITask>);

}  // namespace
