#include "run_setup.h"

#include <cmath>

#include "attribute_table.h"
#include "counter_model.h"
#include "sim_values.h"
#include "text_util.h"

namespace zqsim {

namespace {

using namespace val;

bool isCounting(int32_t type) {
  return type == kMeasCountEdges || type == kMeasLinEncoder || type == kMeasAngEncoder;
}

bool timingAllowed(const SimTask& task, int32_t timing) {
  switch (task.kind()) {
    case kAI:
    case kAO:
    case kDI:
      return timing == kOnDemand || timing == kSampClk;
    case kDO:
      return timing == kOnDemand;
    case kCI:
      return isCounting(task.channels.front().type) ? timing == kOnDemand || timing == kSampClk
                                                    : timing == kOnDemand || timing == kImplicit;
    case kCO:
      return timing == kOnDemand || timing == kImplicit;
    default:
      return false;
  }
}

const char* subsystemOf(int32_t kind) {
  switch (kind) {
    case kAI:
      return "ai";
    case kAO:
      return "ao";
    case kDI:
      return "di";
    case kDO:
      return "do";
    default:
      return "";
  }
}

bool checkClockSource(const SimTask& task, zqerr_Status* status) {
  const std::string source(trim(task.settingText(Vorex_SampClkSrc)));
  if (source.empty() || iequals(source, "OnboardClock")) return true;
  const auto terminal = parseTerminal(source);
  const bool own = terminal && !terminal->isPfi &&
                   terminal->signal == subsystemSignal(subsystemOf(task.kind()), kSampleClock) &&
                   (terminal->device.empty() || iequals(terminal->device, task.device()->name()));
  if (own) return true;
  SIM_FAIL(status, nZQMDEV::kErrorRouteNotSupported,
           Items().attribute(Vorex_SampClkSrc).text(usage::kTerminal, source));
  return false;
}

// The attributes of one trigger, start or reference.
struct TriggerIds {
  int32_t type, digitalSource, digitalEdge, analogSource, slope, level, hysteresis, windowSource, windowWhen,
      top, bottom, patternSource, pattern, patternWhen;
};
constexpr TriggerIds kStartIds{Vorex_StartTrigType,
                               Vorex_DigEdgeStartTrigSrc,
                               Vorex_DigEdgeStartTrigEdge,
                               Vorex_AnlgEdgeStartTrigSrc,
                               Vorex_AnlgEdgeStartTrigSlope,
                               Vorex_AnlgEdgeStartTrigLvl,
                               Vorex_AnlgEdgeStartTrigHyst,
                               Vorex_AnlgWinStartTrigSrc,
                               Vorex_AnlgWinStartTrigTrigWhen,
                               Vorex_AnlgWinStartTrigTop,
                               Vorex_AnlgWinStartTrigBtm,
                               Vorex_DigPatternStartTrigSrc,
                               Vorex_DigPatternStartTrigPattern,
                               Vorex_DigPatternStartTrigTrigWhen};
constexpr TriggerIds kReferenceIds{Vorex_RefTrigType,
                                   Vorex_DigEdgeRefTrigSrc,
                                   Vorex_DigEdgeRefTrigEdge,
                                   Vorex_AnlgEdgeRefTrigSrc,
                                   Vorex_AnlgEdgeRefTrigSlope,
                                   Vorex_AnlgEdgeRefTrigLvl,
                                   Vorex_AnlgEdgeRefTrigHyst,
                                   Vorex_AnlgWinRefTrigSrc,
                                   Vorex_AnlgWinRefTrigTrigWhen,
                                   Vorex_AnlgWinRefTrigTop,
                                   Vorex_AnlgWinRefTrigBtm,
                                   Vorex_DigPatternRefTrigSrc,
                                   Vorex_DigPatternRefTrigPattern,
                                   Vorex_DigPatternRefTrigTrigWhen};

// An analog trigger's view of its channel, fetched afresh now and then so that what an output
// drives onto the input during the wait is seen.
struct AnalogProbe {
  std::shared_ptr<Device> device;
  uint32_t input = 0;
  AnalogScale scale;
  double origin = 0;
  std::shared_ptr<InputView> view = std::make_shared<InputView>();
  std::shared_ptr<uint32_t> calls = std::make_shared<uint32_t>(0);
  double operator()(double tau) const {
    if ((*calls)++ % 4096 == 0) *view = device->input(input);
    return scale.quantize(scale.toUnits(view->value(tau, origin)));
  }
};

bool analogTrigger(const SimTask& task, const std::string& source, int32_t attributeId, double origin,
                   TriggerSetup* trigger, zqerr_Status* status) {
  const Channel* channel = channelBySource(task, source);
  if (!channel || channel->kind != kAI) {
    SIM_FAIL(status, nZQMDEV::kErrorRouteNotSupported,
             Items()
                 .attribute(attributeId)
                 .text(usage::kTerminal, source)
                 .text(usage::kDetail,
                       "an analog trigger's source must be a "
                       "channel of the task"));
    return false;
  }
  AnalogPlan plan;
  if (!planFor(*channel, &plan, status)) return false;
  trigger->analog = AnalogProbe{channel->device, channel->physical.front().index, plan.scale, origin};
  return true;
}

bool patternTrigger(const SimTask& task, const TriggerIds& ids, TriggerSetup* trigger, zqerr_Status* status) {
  const std::vector<std::string> sources = task.setting(ids.patternSource).texts;
  NameError error;
  const auto lines = parsePhysicalList(joinList(sources, ","), &error);
  if (!lines || std::any_of(lines->begin(), lines->end(),
                            [](const PhysicalName& p) { return p.kind != PhysicalName::Kind::kLine; })) {
    SIM_FAIL(status, nZQMDEV::kErrorPhysicalChannelNotFound,
             Items().attribute(ids.patternSource).text(usage::kPhysicalChannel, error.entry));
    return false;
  }
  trigger->pattern = task.settingText(ids.pattern);
  const bool valid = trigger->pattern.size() == lines->size() &&
                     trigger->pattern.find_first_not_of("01Xx") == std::string::npos;
  if (!valid) {
    SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
             Items()
                 .attribute(ids.pattern)
                 .text(usage::kValueRequested, trigger->pattern)
                 .text(usage::kDetail,
                       "one of 0, 1 or X for each of the " + std::to_string(lines->size()) + " lines"));
    return false;
  }
  const std::shared_ptr<Device> device = task.device();
  for (const PhysicalName& line : *lines)
    trigger->lines.push_back([device, line] { return device->line(line.index, line.line); });
  trigger->when = task.settingI32(ids.patternWhen);
  return true;
}

bool compileTrigger(const SimTask& task, const TriggerIds& ids, double origin, TriggerSetup* trigger,
                    zqerr_Status* status) {
  trigger->type = task.settingI32(ids.type);
  switch (trigger->type) {
    case kDigEdge:
      trigger->edge = edgeOf(task.settingI32(ids.digitalEdge));
      return terminalSource(task, task.settingText(ids.digitalSource), &trigger->digital, status,
                            ids.digitalSource);
    case kAnlgEdge:
      trigger->edge = edgeOf(task.settingI32(ids.slope));
      trigger->level = task.settingF64(ids.level);
      trigger->hysteresis = task.settingF64(ids.hysteresis);
      return analogTrigger(task, task.settingText(ids.analogSource), ids.analogSource, origin, trigger,
                           status);
    case kAnlgWin:
      trigger->when = task.settingI32(ids.windowWhen);
      trigger->top = task.settingF64(ids.top);
      trigger->bottom = task.settingF64(ids.bottom);
      if (trigger->top < trigger->bottom) {
        SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
                 Items()
                     .attribute(ids.top)
                     .f64(usage::kValueRequested, trigger->top)
                     .f64(usage::kMinimum, trigger->bottom));
        return false;
      }
      return analogTrigger(task, task.settingText(ids.windowSource), ids.windowSource, origin, trigger,
                           status);
    case kDigPattern:
      return patternTrigger(task, ids, trigger, status);
    case kTime: {
      const auto when = task.timing.find(Vorex_TimeStartTrigWhen);
      trigger->time =
          when == task.timing.end() ? 0 : task.device()->clock().fromSystemSeconds(when->second.real);
      return true;
    }
    default:
      return true;
  }
}

bool checkTriggers(const SimTask& task, zqerr_Status* status) {
  TriggerSetup start;
  TriggerSetup reference;
  if (!compileTrigger(task, kStartIds, 0, &start, status)) return false;
  const bool analog = start.type == kAnlgEdge || start.type == kAnlgWin;
  if (analog && task.settingI32(Vorex_SampTimingType) != kSampClk) {
    SIM_FAIL(status, nZQMDEV::kErrorTimingNotSupported,
             Items()
                 .attribute(Vorex_StartTrigType)
                 .text(usage::kDetail, "an analog trigger needs sample-clock timing"));
    return false;
  }
  if (task.settingI32(Vorex_RefTrigType) == kNone) return true;
  const bool finite = task.settingI32(Vorex_SampTimingType) == kSampClk && task.finite();
  if (!finite || task.settingU64(Vorex_RefTrigPreTrigSamples) >= task.samplesPerChannel()) {
    SIM_FAIL(status, nZQMDEV::kErrorReferenceTriggerNeedsFinite,
             Items()
                 .attribute(Vorex_RefTrigPreTrigSamples)
                 .u64(usage::kValueRequested, task.settingU64(Vorex_RefTrigPreTrigSamples))
                 .u64(usage::kRequestedSamples, finite ? task.samplesPerChannel() : 0));
    return false;
  }
  return compileTrigger(task, kReferenceIds, 0, &reference, status);
}

bool checkOutputRange(const Channel& channel, zqerr_Status* status) {
  const bool current = channel.type == kMeasCurrent;
  const double low = current ? 0.0 : -DeviceModel::kOutputVoltageRange;
  const double high = current ? DeviceModel::kOutputCurrentHigh : DeviceModel::kOutputVoltageRange;
  for (int32_t id : {Vorex_AOMin, Vorex_AOMax}) {
    const double value = channel.f64(id);
    if (value < low - 1e-12 || value > high + 1e-12 || channel.f64(Vorex_AOMin) >= channel.f64(Vorex_AOMax)) {
      SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
               Items()
                   .attribute(id)
                   .f64(usage::kValueRequested, value)
                   .f64(usage::kMinimum, low)
                   .f64(usage::kMaximum, high)
                   .text(usage::kChannelName, channel.name));
      return false;
    }
  }
  return true;
}

bool checkChannels(const SimTask& task, zqerr_Status* status) {
  for (const Channel& channel : task.channels) {
    AnalogPlan plan;
    if (channel.kind == kAI && !planFor(channel, &plan, status)) return false;
    if (channel.kind == kAO && channel.type != kMeasFuncGen && !checkOutputRange(channel, status))
      return false;
  }
  return true;
}

// What the input wired to an output sees per unit written: a current flows through the shunt.
double electricalFactor(const Channel& channel) {
  return channel.type == kMeasCurrent ? DeviceModel::kShuntOhms : 1.0;
}

void driveFunctionGenerator(const Channel& channel, double start, uint64_t owner) {
  SignalSetting signal;
  const int32_t type = channel.i32(Vorex_AOFuncGenType, kFuncSine);
  signal.kind = type == kFuncSquare     ? WaveKind::kSquare
                : type == kFuncTriangle ? WaveKind::kTriangle
                : type == kFuncSawtooth ? WaveKind::kSawtooth
                                        : WaveKind::kSine;
  signal.amplitude = channel.f64(Vorex_AOFuncGenAmplitude, 1);
  signal.frequency = channel.f64(Vorex_AOFuncGenFreq, 1000);
  signal.offset = channel.f64(Vorex_AOFuncGenOffset, 0);
  signal.noise = 0;
  // The generator's phase starts at 0 when it starts.
  signal.phase = -360.0 * std::fmod(signal.frequency * start, 1.0);
  channel.device->driveOutput(channel.physical.front().index, start,
                              std::make_shared<WaveOutput>(Waveform(signal, 0, 0, nullptr)), owner);
}

bool setUpOutputs(SimTask& task, Run& run, zqerr_Status* status) {
  if (task.kind() != kAO) return true;
  if (task.channels.front().type == kMeasFuncGen) {
    for (const Channel& channel : task.channels) driveFunctionGenerator(channel, run.start, task.id);
    return true;
  }
  if (run.onDemand) return true;
  std::shared_ptr<OutputStream> next = task.pendingStream ? task.pendingStream->restarted() : nullptr;
  if (!next || next->written() == 0) {
    SIM_FAIL(status, nZQMDEV::kErrorNoSamplesWritten, Items().text(usage::kTaskName, task.name));
    return false;
  }
  run.stream = next;
  task.pendingStream = next;
  run.stream->start(run.timeline);
  for (uint32_t c = 0; c < task.channels.size(); ++c) {
    task.channels[c].device->driveOutput(
        task.channels[c].physical.front().index, run.start,
        std::make_shared<StreamOutput>(run.stream, c, electricalFactor(task.channels[c])), task.id);
  }
  return true;
}

}  // namespace

double maximumRate(const SimTask& task) {
  const double channels = static_cast<double>(std::max<size_t>(task.channels.size(), 1));
  switch (task.kind()) {
    case kAI:
      return DeviceModel::kMaxAnalogInputAggregate / channels;
    case kAO:
      return DeviceModel::kMaxAnalogOutputRate;
    case kCI:
    case kCO:
      return DeviceModel::kMaxCounterRate;
    default:
      return DeviceModel::kMaxDigitalRate;
  }
}

bool checkRate(const SimTask& task, double rate, zqerr_Status* status) {
  const double maximum = maximumRate(task);
  if (rate >= DeviceModel::kMinRate && rate <= maximum * (1 + 1e-9)) return true;
  SIM_FAIL(status, nZQMDEV::kErrorSampleRateOutOfRange,
           Items()
               .attribute(Vorex_SampClkRate)
               .f64(usage::kValueRequested, rate)
               .f64(usage::kMinimum, DeviceModel::kMinRate)
               .f64(usage::kMaximum, maximum));
  return false;
}

const Channel* channelBySource(const SimTask& task, const std::string& source) {
  const std::string_view wanted = trim(source);
  for (const Channel& channel : task.channels) {
    if (iequals(channel.name, wanted)) return &channel;
    std::string physical = channel.physicalText();
    if (iequals(physical, wanted) || iequals("/" + physical, wanted)) return &channel;
  }
  return nullptr;
}

bool terminalSource(const SimTask& task, const std::string& text, std::function<SignalPtr()>* source,
                    zqerr_Status* status, int32_t attributeId) {
  const std::shared_ptr<Device> device = task.device();
  const auto terminal = parseTerminal(text);
  if (!terminal || (!terminal->device.empty() && !iequals(terminal->device, device->name())) ||
      !device->terminal(*terminal)) {
    SIM_FAIL(
        status, nZQMDEV::kErrorPhysicalChannelNotFound,
        Items().attribute(attributeId).text(usage::kTerminal, text).text(usage::kDevice, device->name()));
    return false;
  }
  *source = [device, t = *terminal] { return device->terminal(t); };
  return true;
}

bool planFor(const Channel& channel, AnalogPlan* plan, zqerr_Status* status) {
  const uint32_t input = channel.physical.front().index;
  plan->view = channel.device->input(input);
  if (!plan->view.error.empty()) {
    SIM_FAIL(status, nZQMDEV::kErrorInvalidSignalSetting,
             Items()
                 .text(usage::kDevice, channel.device->name())
                 .text(usage::kPhysicalChannel, channel.physicalText())
                 .text(usage::kDetail, plan->view.error));
    return false;
  }
  std::string error;
  if (!compileScale(channel, plan->view.wave.frequency(), &plan->scale, &error)) {
    const double range = DeviceModel::kInputRanges.back();
    SIM_FAIL(status, nZQMDEV::kErrorValueOutOfRange,
             Items()
                 .attribute(Vorex_AIMax)
                 .f64(usage::kValueRequested, channel.f64(Vorex_AIMax))
                 .f64(usage::kMinimum, -range)
                 .f64(usage::kMaximum, range)
                 .text(usage::kChannelName, channel.name)
                 .text(usage::kDetail, error));
    return false;
  }
  return true;
}

bool verifyConfiguration(SimTask& task, zqerr_Status* status) {
  const int32_t timing = task.settingI32(Vorex_SampTimingType);
  if (!timingAllowed(task, timing)) {
    SIM_FAIL(status, nZQMDEV::kErrorTimingNotSupported,
             Items().attribute(Vorex_SampTimingType).i32(usage::kValueRequested, timing));
    return false;
  }
  if (timing == kSampClk && (!checkRate(task, task.rate(), status) || !checkClockSource(task, status)))
    return false;
  return checkTriggers(task, status) && checkChannels(task, status) && checkCounterChannels(task, status);
}

bool setUpRun(SimTask& task, Run& run, zqerr_Status* status) {
  const std::shared_ptr<Device> device = task.device();
  const int32_t timing = task.settingI32(Vorex_SampTimingType);
  run.start = device->now();
  run.onDemand = timing == kOnDemand;
  run.measureCursor = run.start;
  if (task.kind() == kAI) {
    for (const Channel& channel : task.channels) {
      AnalogPlan plan;
      if (!planFor(channel, &plan, status)) return false;
      run.plans.push_back(std::move(plan));
    }
  }
  if (timing == kSampClk) {
    TimelineConfig config;
    config.arm = run.start;
    config.rate = task.rate();
    config.finite = task.finite();
    config.samples = task.samplesPerChannel();
    config.start.delay = task.settingF64(Vorex_StartTrigDelay);
    if (!compileTrigger(task, kStartIds, run.start, &config.start, status) ||
        !compileTrigger(task, kReferenceIds, run.start, &config.reference, status))
      return false;
    if (config.reference.type != kNone)
      config.pretrigger = static_cast<uint32_t>(task.settingU64(Vorex_RefTrigPreTrigSamples));
    run.timeline = std::make_shared<Timeline>(device, std::move(config));
  }
  if (task.kind() == kAI || task.kind() == kDI || task.kind() == kCI) {
    run.bufferSize = task.inputBufferSize();
    run.overwrite = task.settingI32(Vorex_ReadOverWrite) == kOverwriteUnreadSamps;
  }
  if (!setUpOutputs(task, run, status)) return false;
  if (task.kind() == kCO) return startPulses(task, run, status);
  return true;
}

void publishSignals(SimTask& task) {
  const Run& run = *task.run;
  const std::shared_ptr<Device> device = task.device();
  const auto route = [&](int32_t attributeId, const SignalPtr& signal) {
    for (const std::string& text : task.setting(attributeId).texts) {
      const auto terminal = parseTerminal(text);
      if (terminal && terminal->isPfi)
        device->driveSignal("pfi" + std::to_string(terminal->pfi), run.start, signal, task.id);
    }
  };
  if (run.timeline) {
    const std::string sub = subsystemOf(task.kind());
    const SignalPtr clock = timelineSignal(run.timeline, TimelineSignalKind::kSampleClock);
    const SignalPtr start = timelineSignal(run.timeline, TimelineSignalKind::kStartTrigger);
    device->driveSignal(subsystemSignal(sub, kSampleClock), run.start, clock, task.id);
    device->driveSignal(subsystemSignal(sub, kStartTrigger), run.start, start, task.id);
    route(Vorex_ExportedSampClkOutputTerm, clock);
    route(Vorex_ExportedStartTrigOutputTerm, start);
    if (run.timeline->config().reference.type != kNone) {
      const SignalPtr reference = timelineSignal(run.timeline, TimelineSignalKind::kReferenceTrigger);
      device->driveSignal(subsystemSignal(sub, kReferenceTrigger), run.start, reference, task.id);
      route(Vorex_ExportedRefTrigOutputTerm, reference);
    }
  }
  if (run.pulses) route(Vorex_ExportedCtrOutEventOutputTerm, run.pulses);
}

}  // namespace zqsim
