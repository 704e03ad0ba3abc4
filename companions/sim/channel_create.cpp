#include "channel_create.h"

#include "attribute_table.h"
#include "attributes.h"
#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

namespace {

using namespace val;

PhysicalName::Kind physicalKind(int32_t kind) {
  switch (kind) {
    case kAI:
      return PhysicalName::Kind::kAnalogInput;
    case kAO:
      return PhysicalName::Kind::kAnalogOutput;
    case kCI:
    case kCO:
      return PhysicalName::Kind::kCounter;
    default:
      return PhysicalName::Kind::kLine;
  }
}

const char* kindWord(int32_t kind) {
  switch (kind) {
    case kAI:
      return "an analog input";
    case kAO:
      return "an analog output";
    case kCI:
    case kCO:
      return "a counter";
    default:
      return "a digital line";
  }
}

std::string pfi(const std::string& device, uint32_t n) { return "/" + device + "/PFI" + std::to_string(n); }

// The settings every channel of a kind starts with, before those of its creation.
void defaults(Channel& c) {
  const std::string& dev = c.device->name();
  const uint32_t n = c.physical.front().index;
  c.set(Vorex_ChanType, Value::i32(c.kind));
  switch (c.kind) {
    case kAI:
      c.set(Vorex_AIMeasType, Value::i32(c.type));
      c.set(Vorex_AITermCfg, Value::i32(kRSE));
      break;
    case kAO:
      c.set(Vorex_AOOutputType, Value::i32(c.type));
      break;
    case kCI:
      c.set(Vorex_CIMeasType, Value::i32(c.type));
      for (int32_t id : {Vorex_CICountEdgesTerm, Vorex_CIFreqTerm, Vorex_CIPeriodTerm, Vorex_CIPulseWidthTerm,
                         Vorex_CISemiPeriodTerm, Vorex_CITwoEdgeSepFirstTerm, Vorex_CIDutyCycleTerm,
                         Vorex_CIPulseFreqTerminal, Vorex_CIPulseTimeTerminal, Vorex_CIPulseTicksTerm,
                         Vorex_CIEncoderAInputTerm}) {
        c.set(id, Value::string(pfi(dev, counterInputPfi(n))));
      }
      c.set(Vorex_CITwoEdgeSepSecondTerm, Value::string(pfi(dev, counterSecondInputPfi(n))));
      c.set(Vorex_CIEncoderBInputTerm, Value::string(pfi(dev, counterSecondInputPfi(n))));
      break;
    case kCO:
      c.set(Vorex_COOutputType, Value::i32(c.type));
      c.set(Vorex_COPulseTerm, Value::string(pfi(dev, counterOutputPfi(n))));
      break;
    default:
      break;
  }
}

// The names of the new channels: the caller's list, one name with numbers for several channels,
// or the physical channels themselves.
std::vector<std::string> namesFor(const char* names, const std::vector<std::string>& physical) {
  const std::vector<std::string> given = splitList(names ? names : "");
  if (given.empty()) return physical;
  if (given.size() == physical.size()) return given;
  std::vector<std::string> out;
  for (size_t i = 0; i < physical.size(); ++i)
    out.push_back(i == 0 ? given.front() : given.front() + std::to_string(i));
  return out;
}

bool checkSettings(const Channel& c, zqerr_Status* status) {
  for (const auto& [id, value] : c.store) {
    const AttrDef* def = findAttribute(id);
    if (def && !checkValue(*def, value, status)) return false;
  }
  return true;
}

bool addToTask(SimTask& task, std::vector<Channel>& fresh, zqgopher_IItemAdder* created,
               zqerr_Status* status) {
  for (size_t i = 0; i < fresh.size(); ++i) {
    const bool taken = task.findChannel(fresh[i].name) != nullptr ||
                       std::any_of(fresh.begin(), fresh.begin() + static_cast<std::ptrdiff_t>(i),
                                   [&](const Channel& c) { return iequals(c.name, fresh[i].name); });
    if (taken) {
      SIM_FAIL(status, nZQMDEV::kErrorDuplicateChannelName, Items().text(usage::kChannelName, fresh[i].name));
      return false;
    }
    if (!checkSettings(fresh[i], status)) return false;
  }
  if (task.running) {
    SIM_FAIL(status, nZQMDEV::kErrorTaskRunning, Items().text(usage::kTaskName, task.name));
    return false;
  }
  for (Channel& c : fresh) {
    c.created = c.store;
    if (created) created->table.strings->add(created, c.name.c_str(), status);
    task.channels.push_back(std::move(c));
  }
  task.invalidate();
  return true;
}

// The device and names of a physical channel list of one kind, checked against the task.
bool resolve(SimTask& task, const char* physical, int32_t kind, std::vector<PhysicalName>* names,
             std::shared_ptr<Device>* device, zqerr_Status* status) {
  NameError error;
  const auto parsed = parsePhysicalList(physical ? physical : "", &error);
  if (!parsed) {
    SIM_FAIL(status, nZQMDEV::kErrorPhysicalChannelNotFound,
             Items()
                 .text(usage::kPhysicalChannel, error.entry)
                 .text(usage::kDetail, error.tooHigh ? "the device has no channel of that number"
                                                     : "not a channel name of the device"));
    return false;
  }
  for (const PhysicalName& p : *parsed) {
    if (p.kind != physicalKind(kind)) {
      SIM_FAIL(status, nZQMDEV::kErrorPhysicalChannelNotFound,
               Items()
                   .text(usage::kPhysicalChannel, p.text())
                   .text(usage::kDetail, std::string("the channel must be ") + kindWord(kind)));
      return false;
    }
    if (!iequals(p.device, parsed->front().device) ||
        (task.device() && !iequals(p.device, task.device()->name()))) {
      SIM_FAIL(status, nZQMDEV::kErrorOperationNotSupportedForChannels,
               Items()
                   .text(usage::kPhysicalChannel, p.text())
                   .text(usage::kDetail, "the channels of a task lie on one device"));
      return false;
    }
  }
  if (task.kind() != 0 && task.kind() != kind) {
    SIM_FAIL(status, nZQMDEV::kErrorMixedChannelKinds,
             Items().text(usage::kPhysicalChannel, physical).text(usage::kTaskName, task.name));
    return false;
  }
  *device = Device::find(parsed->front().device, status);
  *names = *parsed;
  return *device != nullptr;
}

}  // namespace

bool createChannels(SimTask& task, const char* physical, const char* names, int32_t kind, int32_t type,
                    const Store& settings, zqgopher_IItemAdder* created, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  std::lock_guard<std::mutex> guard(task.mutex);
  std::vector<PhysicalName> entries;
  std::shared_ptr<Device> device;
  if (!resolve(task, physical, kind, &entries, &device, status)) return false;
  std::vector<std::string> texts;
  for (const PhysicalName& p : entries) texts.push_back(p.text());
  const std::vector<std::string> channelNames = namesFor(names, texts);
  std::vector<Channel> fresh;
  for (size_t i = 0; i < entries.size(); ++i) {
    Channel c;
    c.name = channelNames[i];
    c.kind = kind;
    c.type = type;
    c.device = device;
    c.physical = {entries[i]};
    defaults(c);
    for (const auto& [id, value] : settings) c.store[id] = value;
    fresh.push_back(std::move(c));
  }
  return addToTask(task, fresh, created, status);
}

bool createDigitalChannels(SimTask& task, const char* lines, const char* names, int32_t kind,
                           int32_t grouping, zqgopher_IItemAdder* created, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  if (grouping != kChanPerLine && grouping != kChanForAllLines) {
    SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
             Items()
                 .i32(usage::kValueRequested, grouping)
                 .text(usage::kAllowedValues, "0, 1")
                 .text(usage::kDetail, "line grouping"));
    return false;
  }
  std::lock_guard<std::mutex> guard(task.mutex);
  std::vector<PhysicalName> entries;
  std::shared_ptr<Device> device;
  if (!resolve(task, lines, kind, &entries, &device, status)) return false;
  std::vector<std::vector<PhysicalName>> groups;
  if (grouping == kChanForAllLines) {
    groups.push_back(entries);
  } else {
    for (const PhysicalName& p : entries) groups.push_back({p});
  }
  std::vector<std::string> texts;
  for (const auto& group : groups) {
    std::vector<std::string> parts;
    for (const PhysicalName& p : group) parts.push_back(p.text());
    texts.push_back(joinList(parts, ","));
  }
  const std::vector<std::string> channelNames = namesFor(names, texts);
  std::vector<Channel> fresh;
  for (size_t i = 0; i < groups.size(); ++i) {
    Channel c;
    c.name = channelNames[i];
    c.kind = kind;
    c.type = kMeasDigital;
    c.device = device;
    c.physical = groups[i];
    defaults(c);
    fresh.push_back(std::move(c));
  }
  return addToTask(task, fresh, created, status);
}

void refuseChannelType(const char* physical, const char* operation, zqerr_Status* status) {
  if (!isOpen(status)) return;
  SIM_FAIL(status, nZQMDEV::kErrorChannelTypeNotSupported,
           Items()
               .text(usage::kPhysicalChannel, physical ? physical : "")
               .text(usage::kMeasurementType, operation));
}

bool refuseCustomScale(const char* scaleName, zqerr_Status* status) {
  if (!isOpen(status) || !scaleName || trim(scaleName).empty()) return isOpen(status);
  SIM_FAIL(status, zqapalerr_featureUnsupported,
           Items()
               .text("kUsageTypeScaleName", scaleName)
               .text(usage::kDetail, "the simulated device applies no custom scales"));
  return false;
}

void removeChannels(SimTask& task, const char* names, zqerr_Status* status) {
  if (!isOpen(status)) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  for (const std::string& name : splitList(names ? names : "")) {
    auto it = std::find_if(task.channels.begin(), task.channels.end(),
                           [&](const Channel& c) { return iequals(c.name, name); });
    if (it != task.channels.end()) task.channels.erase(it);
  }
  task.invalidate();
}

bool restoreChannel(SimTask& task, const std::string& name, const std::string& physical,
                    const Store& settings, const std::string& globalName, zqerr_Status* status) {
  if (!isOpen(status)) return false;
  const auto kindValue = settings.find(Vorex_ChanType);
  if (kindValue == settings.end()) {
    SIM_FAIL(status, nZQMDEV::kErrorInvalidSavedTask, Items().text(usage::kChannelName, name));
    return false;
  }
  const int32_t kind = kindValue->second.asI32();
  std::lock_guard<std::mutex> guard(task.mutex);
  std::vector<PhysicalName> entries;
  std::shared_ptr<Device> device;
  if (!resolve(task, physical.c_str(), kind, &entries, &device, status)) return false;
  Channel c;
  c.name = name;
  c.kind = kind;
  c.device = device;
  c.physical = entries;
  c.store = settings;
  c.globalName = globalName;
  for (int32_t id : {Vorex_AIMeasType, Vorex_AOOutputType, Vorex_CIMeasType, Vorex_COOutputType}) {
    if (c.has(id)) c.type = c.i32(id);
  }
  std::vector<Channel> fresh;
  fresh.push_back(std::move(c));
  return addToTask(task, fresh, nullptr, status);
}

}  // namespace zqsim
