#include "attributes.h"

#include <cmath>

#include "attribute_table.h"
#include "counter_model.h"
#include "run_setup.h"
#include "scaling.h"
#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

namespace {

using namespace val;

bool integral(AttrType t) {
  return t == AttrType::kI32 || t == AttrType::kU32 || t == AttrType::kU64 || t == AttrType::kBool;
}

bool compatible(AttrType have, AttrType wanted) {
  return have == wanted ||
         (integral(have) && integral(wanted) && have != AttrType::kBool && wanted != AttrType::kBool);
}

bool notSupported(zqerr_Status* status, int32_t id) {
  SIM_FAIL(status, nZQMSTS::kErrorAttributeNotSupportedInTaskContext, Items().attribute(id));
  return false;
}

// The definition of `id` for this task and the operation's type; null with the status set.
const AttrDef* definition(const SimTask& task, int32_t id, AttrType wanted, zqerr_Status* status) {
  const AttrDef* def = findAttribute(id);
  if (!def || !compatible(def->type, wanted)) {
    notSupported(status, id);
    return nullptr;
  }
  const uint32_t bit = kindBit(task.kind());
  if (bit != 0 && (def->kinds & bit) == 0) {
    notSupported(status, id);
    return nullptr;
  }
  return def;
}

// The channels a list names; all of them for an empty list.
std::vector<Channel*> channelsOf(SimTask& task, const zqgopher_ArrayView* list, zqerr_Status* status) {
  std::vector<Channel*> out;
  if (!list || list->count == 0) {
    for (Channel& c : task.channels) out.push_back(&c);
    return out;
  }
  const char* const* names = zqgopher_ArrayView_strings(list);
  for (uint64_t i = 0; i < list->count; ++i) {
    Channel* c = names[i] ? task.findChannel(names[i]) : nullptr;
    if (!c) {
      SIM_FAIL(status, nZQMSTS::kErrorChanNotInTask,
               Items().text(usage::kChannelName, names[i] ? names[i] : ""));
      return {};
    }
    out.push_back(c);
  }
  return out;
}

uint32_t maxLines(const SimTask& task) {
  size_t lines = 0;
  for (const Channel& c : task.channels) lines = std::max(lines, c.physical.size());
  return static_cast<uint32_t>(lines);
}

std::string terminalName(const SimTask& task, const char* signal) {
  const auto device = task.device();
  if (!device) return "";
  const char* sub = task.kind() == kAI ? "ai" : task.kind() == kAO ? "ao" : task.kind() == kDI ? "di" : "do";
  return "/" + device->name() + "/" + sub + "/" + signal;
}

bool computedTask(SimTask& task, int32_t id, Value* v) {
  const uint64_t position = task.run ? task.run->readPosition : 0;
  const uint64_t progress = task.running ? task.progress() : task.run ? task.progress() : 0;
  const auto nch = static_cast<uint32_t>(task.channels.size());
  switch (id) {
    case Vorex_TaskChannels:
      *v = Value::strings(task.channelNames());
      return true;
    case Vorex_TaskDevices:
      *v = Value::strings(task.deviceNames());
      return true;
    case Vorex_TaskNumChans:
      *v = Value::u32(nch);
      return true;
    case Vorex_TaskNumDevices:
      *v = Value::u32(static_cast<uint32_t>(task.deviceNames().size()));
      return true;
    case Vorex_TaskComplete:
      *v = Value::boolean(task.done());
      return true;
    case Vorex_SampClkTimebaseRate:
      *v = Value::f64(DeviceModel::kTimebase);
      return true;
    case Vorex_SampClkMaxRate:
      *v = Value::f64(maximumRate(task));
      return true;
    case Vorex_SampClkTerm:
      *v = Value::string(terminalName(task, "SampleClock"));
      return true;
    case Vorex_StartTrigTerm:
      *v = Value::string(terminalName(task, "StartTrigger"));
      return true;
    case Vorex_RefTrigTerm:
      *v = Value::string(terminalName(task, "ReferenceTrigger"));
      return true;
    case Vorex_ReadAvailSampPerChan:
      *v = Value::u32(
          static_cast<uint32_t>(std::min<uint64_t>(progress - std::min(progress, position), 0xFFFFFFFFu)));
      return true;
    case Vorex_ReadTotalSampPerChanAcquired:
      *v = Value::u64(progress);
      return true;
    case Vorex_ReadCurrReadPos:
      *v = Value::u64(position);
      return true;
    case Vorex_ReadNumChans:
    case Vorex_WriteNumChans:
      *v = Value::u32(nch);
      return true;
    case Vorex_ReadChannelsToRead:
      *v = Value::strings(task.channelNames());
      return true;
    case Vorex_ReadRawDataWidth:
    case Vorex_WriteRawDataWidth:
      *v = Value::u32(2 * nch);
      return true;
    case Vorex_ReadDigitalLinesBytesPerChan:
    case Vorex_WriteDigitalLinesBytesPerChan:
      *v = Value::u32(maxLines(task));
      return true;
    case Vorex_ReadOverloadedChansExist:
      *v = Value::boolean(false);
      return true;
    case Vorex_WriteTotalSampPerChanGenerated:
      *v = Value::u64(progress);
      return true;
    case Vorex_WriteCurrWritePos:
      *v = Value::u64(task.pendingStream ? task.pendingStream->written() : 0);
      return true;
    case Vorex_WriteSpaceAvail: {
      const auto device = task.device();
      const uint64_t space =
          task.pendingStream && device ? task.pendingStream->space(device->now()) : task.outputBufferSize();
      *v = Value::u32(static_cast<uint32_t>(std::min<uint64_t>(space, 0xFFFFFFFFu)));
      return true;
    }
    case Vorex_BufInputBufSize:
      *v = Value::u32(static_cast<uint32_t>(task.inputBufferSize()));
      return true;
    case Vorex_BufOutputBufSize:
      *v = Value::u32(static_cast<uint32_t>(task.outputBufferSize()));
      return true;
    case Vorex_BufInputOnbrdBufSize:
      *v = Value::u32(4095);
      return true;
    case Vorex_BufOutputOnbrdBufSize:
      *v = Value::u32(8191);
      return true;
    default:
      return false;
  }
}

bool computedChannel(SimTask& task, const Channel& c, int32_t id, Value* v) {
  const double now = c.device->now();
  switch (id) {
    case Vorex_ChanIsGlobal:
      *v = Value::boolean(!c.globalName.empty());
      return true;
    case Vorex_AIResolution:
    case Vorex_AOResolution:
      *v = Value::f64(DeviceModel::kResolutionBits);
      return true;
    case Vorex_AIRawSampSize:
      *v = Value::u32(DeviceModel::kResolutionBits);
      return true;
    case Vorex_AIRngHigh:
    case Vorex_AIRngLow: {
      AnalogScale scale;
      std::string error;
      compileScale(c, 0, &scale, &error);
      *v = Value::f64(id == Vorex_AIRngHigh ? scale.high : scale.low);
      return true;
    }
    case Vorex_AODACRngHigh:
    case Vorex_AODACRngLow: {
      const double high =
          c.type == kMeasCurrent ? DeviceModel::kOutputCurrentHigh : DeviceModel::kOutputVoltageRange;
      *v = Value::f64(id == Vorex_AODACRngHigh ? high : (c.type == kMeasCurrent ? 0 : -high));
      return true;
    }
    case Vorex_DINumLines:
    case Vorex_DONumLines:
      *v = Value::u32(static_cast<uint32_t>(c.physical.size()));
      return true;
    case Vorex_CICount:
      *v = Value::u32(task.running ? counterTicks(task, c, now) : c.u32(Vorex_CICountEdgesInitialCnt));
      return true;
    case Vorex_CICtrTimebaseRate:
    case Vorex_COCtrTimebaseRate:
      *v = Value::f64(DeviceModel::kTimebase);
      return true;
    case Vorex_COCount:
      *v = Value::u32(task.run && task.run->pulses ? static_cast<uint32_t>(task.progress()) : 0);
      return true;
    case Vorex_COOutputState: {
      const bool high = task.run && task.run->pulses ? task.run->pulses->level(now)
                                                     : c.i32(Vorex_COPulseIdleState, kLow) == kHigh;
      *v = Value::i32(high ? kHigh : kLow);
      return true;
    }
    case Vorex_COPulseDone:
      *v = Value::boolean(task.done());
      return true;
    default:
      return false;
  }
}

bool settableWhileRunning(const AttrDef& def) {
  if (def.scope == Scope::kRead) return true;
  switch (def.id) {
    case Vorex_COPulseFreq:
    case Vorex_COPulseDutyCyc:
    case Vorex_COPulseHighTime:
    case Vorex_COPulseLowTime:
    case Vorex_COPulseHighTicks:
    case Vorex_COPulseLowTicks:
    case Vorex_ChanDescr:
      return true;
    default:
      return false;
  }
}

std::string allowedText(const AttrDef& def) {
  std::vector<std::string> values;
  for (int32_t v : def.allowed) values.push_back(std::to_string(v));
  return joinList(values);
}

}  // namespace

double coerceRate(double rate) {
  const double divisor = std::max(1.0, std::round(DeviceModel::kTimebase / rate));
  return DeviceModel::kTimebase / divisor;
}

bool checkValue(const AttrDef& def, const Value& value, zqerr_Status* status) {
  if (!def.allowed.empty()) {
    for (int32_t v : def.allowed)
      if (value.asI32() == v) return true;
    SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
             Items()
                 .attribute(def.id)
                 .i32(usage::kValueRequested, value.asI32())
                 .text(usage::kAllowedValues, allowedText(def)));
    return false;
  }
  if (def.type == AttrType::kString || def.type == AttrType::kStrings || def.type == AttrType::kF64s ||
      def.type == AttrType::kI32s || def.type == AttrType::kBool)
    return true;
  const double n = value.asNumber();
  if (n >= def.min && n <= def.max) return true;
  SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
           Items()
               .attribute(def.id)
               .f64(usage::kValueRequested, n)
               .f64(usage::kMinimum, def.min)
               .f64(usage::kMaximum, def.max));
  return false;
}

Value getAttribute(SimTask& task, const zqgopher_ArrayView* list, int32_t id, AttrType wanted,
                   zqerr_Status* status) {
  Value v;
  if (!isOpen(status)) return v;
  std::lock_guard<std::mutex> guard(task.mutex);
  const AttrDef* def = definition(task, id, wanted, status);
  if (!def) return v;
  if (def->scope != Scope::kChannel) {
    if (!(def->flags & kComputed) || !computedTask(task, id, &v)) v = task.setting(id);
    return v;
  }
  const std::vector<Channel*> channels = channelsOf(task, list, status);
  if (channels.empty()) {
    if (isOpen(status)) notSupported(status, id);
    return v;
  }
  Channel& c = *channels.front();
  if ((kindBit(c.kind) & def->kinds) == 0) {
    notSupported(status, id);
    return v;
  }
  if (def->flags & kComputed) {
    computedChannel(task, c, id, &v);
    return v;
  }
  if (id == Vorex_PhysicalChanName) return Value::string(c.physicalText());
  const auto found = c.store.find(id);
  if (found == c.store.end()) {
    notSupported(status, id);
    return v;
  }
  return found->second;
}

void setAttribute(SimTask& task, const zqgopher_ArrayView* list, int32_t id, Value value,
                  zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  const AttrDef* def = definition(task, id, value.type, status);
  if (!def) return;
  if (def->flags & kReadOnly || (def->flags & kComputed && def->scope != Scope::kBuffer)) {
    SIM_FAIL(status, nZQMSTS100::kErrorAttrCannotBeSet, Items().attribute(id));
    return;
  }
  if (task.running && !settableWhileRunning(*def)) {
    SIM_FAIL(status, nZQMDEV::kErrorTaskRunning, Items().attribute(id).text(usage::kTaskName, task.name));
    return;
  }
  value.type = def->type;
  if (def->flags & kCoerced) {
    if (!checkRate(task, value.real, status)) return;
    value.real = coerceRate(value.real);
  } else if (!checkValue(*def, value, status)) {
    return;
  }
  if (def->scope != Scope::kChannel) {
    task.storeFor(id)[id] = value;
    task.invalidate();
    return;
  }
  const std::vector<Channel*> channels = channelsOf(task, list, status);
  for (Channel* c : channels) {
    if ((kindBit(c->kind) & def->kinds) == 0) {
      notSupported(status, id);
      return;
    }
  }
  for (Channel* c : channels) c->store[id] = value;
  task.invalidate();
  if (task.running) changePulses(task, status);
}

void resetAttribute(SimTask& task, const zqgopher_ArrayView* list, int32_t id, zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  const AttrDef* def = findAttribute(id);
  if (!def) {
    notSupported(status, id);
    return;
  }
  if (def->flags & kReadOnly || (def->flags & kComputed && def->scope != Scope::kBuffer)) {
    SIM_FAIL(status, nZQMSTS100::kErrorAttrCannotBeReset, Items().attribute(id));
    return;
  }
  if (task.running && !settableWhileRunning(*def)) {
    SIM_FAIL(status, nZQMDEV::kErrorTaskRunning, Items().attribute(id).text(usage::kTaskName, task.name));
    return;
  }
  if (def->scope != Scope::kChannel) {
    task.storeFor(id).erase(id);
    task.invalidate();
    return;
  }
  for (Channel* c : channelsOf(task, list, status)) {
    const auto created = c->created.find(id);
    if (created == c->created.end()) {
      c->store.erase(id);
    } else {
      c->store[id] = created->second;
    }
  }
  task.invalidate();
  if (task.running) changePulses(task, status);
}

}  // namespace zqsim
