#include "attribute_table.h"

#include <algorithm>
#include <array>
#include <limits>

#include "device_model.h"
#include "sim_values.h"

namespace zqsim {

namespace {

using namespace val;
constexpr double kLo = -std::numeric_limits<double>::max();
constexpr double kHi = std::numeric_limits<double>::max();
constexpr double kU32Max = 4294967295.0;

constexpr int32_t kEdges[] = {kRising, kFalling};
constexpr int32_t kSampleModes[] = {kFiniteSamps, kContSamps, kHWTimedSinglePoint};
constexpr int32_t kTimingTypes[] = {kSampClk, kOnDemand, kImplicit, kChangeDetection};
constexpr int32_t kStartTriggers[] = {kNone, kDigEdge, kAnlgEdge, kAnlgWin, kDigPattern, kTime};
constexpr int32_t kRefTriggers[] = {kNone, kDigEdge, kAnlgEdge, kAnlgWin, kDigPattern};
constexpr int32_t kWindowWhen[] = {kEnteringWin, kLeavingWin};
constexpr int32_t kPatternWhen[] = {kPatternMatches, kPatternDoesNotMatch};
constexpr int32_t kOverwrite[] = {kOverwriteUnreadSamps, kDoNotOverwriteUnreadSamps};
constexpr int32_t kRegen[] = {kAllowRegen, kDoNotAllowRegen};
constexpr int32_t kReadRelative[] = {kFirstSample, kCurrReadPos, kMostRecentSamp};
constexpr int32_t kWriteRelative[] = {kFirstSample, 10430};
constexpr int32_t kAdvanceTriggers[] = {kNone};
constexpr int32_t kTermCfgs[] = {kRSE, kNRSE, kDiff, kPseudoDiff};
constexpr int32_t kVoltageUnits[] = {kVolts};
constexpr int32_t kCurrentUnits[] = {kAmps};
constexpr int32_t kTempUnits[] = {kDegC, kDegF, kKelvins, kDegR};
constexpr int32_t kResistanceUnits[] = {kOhms};
constexpr int32_t kStrainUnits[] = {kStrain};
constexpr int32_t kBridgeUnits[] = {kVoltsPerVolt, kMilliVoltsPerVolt};
constexpr int32_t kForceUnits[] = {kNewtons, kPounds, kKilogramForce};
constexpr int32_t kPressureUnits[] = {kPascals, kPoundsPerSquareInch, kBar};
constexpr int32_t kTorqueUnits[] = {kNewtonMeters, kInchOunces, kInchPounds, kFootPounds};
constexpr int32_t kAccelUnits[] = {kG, kMetersPerSecondSquared};
constexpr int32_t kVelocityUnits[] = {kMetersPerSecond, kInchesPerSecond};
constexpr int32_t kSoundUnits[] = {kPascals};
constexpr int32_t kFreqUnits[] = {kHz};
constexpr int32_t kTimeUnits[] = {kSeconds, kTicks};
constexpr int32_t kFreqOrTicks[] = {kHz, kTicks};
constexpr int32_t kSecondsOnly[] = {kSeconds};
constexpr int32_t kAccelSensUnits[] = {kMilliVoltsPerG, kVoltsPerG};
constexpr int32_t kForceSensUnits[] = {kMilliVoltsPerNewton, kMilliVoltsPerPound};
constexpr int32_t kVelocitySensUnits[] = {kMilliVoltsPerMillimeterPerSecond, kMilliVoltsPerInchPerSecond};
constexpr int32_t kIdleStates[] = {kHigh, kLow};
constexpr int32_t kCountDirections[] = {kCountUp, kCountDown};
constexpr int32_t kFuncTypes[] = {kFuncSine, kFuncTriangle, kFuncSquare, kFuncSawtooth};
constexpr int32_t kDecodings[] = {kDecodingX1, kDecodingX2, kDecodingX4, kTwoPulseCounting};
constexpr int32_t kLinearUnits[] = {kMeters, kInches, kTicks};
constexpr int32_t kAngularUnits[] = {kDegrees, kRadians, kTicks};
constexpr int32_t kFreqMethods[] = {10105, 10157, 10205, 16065};

constexpr std::span<const int32_t> kAny{};

constexpr AttrDef def(int32_t id, const char* name, Scope scope, AttrType type, uint32_t flags,
                      uint32_t kinds, double min = kLo, double max = kHi,
                      std::span<const int32_t> allowed = kAny, double initial = 0) {
  return AttrDef{id, name, scope, type, flags, kinds, min, max, allowed, initial};
}

#define ID(name) Vorex_##name, #name
using S = Scope;
using T = AttrType;

constexpr AttrDef kTable[] = {
    // Task: what the task holds, worked out on demand.
    def(ID(TaskChannels), S::kTask, T::kStrings, kReadOnly | kComputed, kBitAll),
    def(ID(TaskDevices), S::kTask, T::kStrings, kReadOnly | kComputed, kBitAll),
    def(ID(TaskNumChans), S::kTask, T::kU32, kReadOnly | kComputed, kBitAll),
    def(ID(TaskNumDevices), S::kTask, T::kU32, kReadOnly | kComputed, kBitAll),
    def(ID(TaskComplete), S::kTask, T::kBool, kReadOnly | kComputed, kBitAll),

    // Timing.
    def(ID(SampTimingType), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kTimingTypes, kOnDemand),
    def(ID(SampQuantSampMode), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kSampleModes, kFiniteSamps),
    def(ID(SampQuantSampPerChan), S::kTiming, T::kU64, 0, kBitAll, 1, 281474976710656.0, kAny, 1000),
    def(ID(SampClkRate), S::kTiming, T::kF64, kCoerced, kBitAll, DeviceModel::kMinRate,
        DeviceModel::kMaxDigitalRate, kAny, 1000),
    def(ID(SampClkActiveEdge), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kEdges, kRising),
    def(ID(SampClkSrc), S::kTiming, T::kString, 0, kBitAll),
    def(ID(SampClkTimebaseRate), S::kTiming, T::kF64, kReadOnly | kComputed, kBitAll),
    def(ID(SampClkMaxRate), S::kTiming, T::kF64, kReadOnly | kComputed, kBitAll),
    def(ID(SampClkTerm), S::kTiming, T::kString, kReadOnly | kComputed, kBitAll),
    def(ID(ChangeDetectDIRisingEdgePhysicalChans), S::kTiming, T::kStrings, 0, kBitDI),
    def(ID(ChangeDetectDIFallingEdgePhysicalChans), S::kTiming, T::kStrings, 0, kBitDI),

    // Start trigger.
    def(ID(StartTrigType), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kStartTriggers, kNone),
    def(ID(StartTrigTerm), S::kTiming, T::kString, kReadOnly | kComputed, kBitAll),
    def(ID(DigEdgeStartTrigSrc), S::kTiming, T::kString, 0, kBitAll),
    def(ID(DigEdgeStartTrigEdge), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kEdges, kRising),
    def(ID(AnlgEdgeStartTrigSrc), S::kTiming, T::kString, 0, kBitAI),
    def(ID(AnlgEdgeStartTrigSlope), S::kTiming, T::kI32, 0, kBitAI, kLo, kHi, kEdges, kRising),
    def(ID(AnlgEdgeStartTrigLvl), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(AnlgEdgeStartTrigHyst), S::kTiming, T::kF64, 0, kBitAI, 0, kHi),
    def(ID(AnlgWinStartTrigSrc), S::kTiming, T::kString, 0, kBitAI),
    def(ID(AnlgWinStartTrigTrigWhen), S::kTiming, T::kI32, 0, kBitAI, kLo, kHi, kWindowWhen, kEnteringWin),
    def(ID(AnlgWinStartTrigTop), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(AnlgWinStartTrigBtm), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(DigPatternStartTrigSrc), S::kTiming, T::kStrings, 0, kBitAll),
    def(ID(DigPatternStartTrigPattern), S::kTiming, T::kString, 0, kBitAll),
    def(ID(DigPatternStartTrigTrigWhen), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kPatternWhen,
        kPatternMatches),
    def(ID(StartTrigDelay), S::kTiming, T::kF64, 0, kBitAll, 0, 1e6),
    def(ID(AdvTrigType), S::kTiming, T::kI32, 0, kBitAll, kLo, kHi, kAdvanceTriggers, kNone),

    // Reference trigger: an acquisition's own.
    def(ID(RefTrigType), S::kTiming, T::kI32, 0, kBitAI | kBitDI, kLo, kHi, kRefTriggers, kNone),
    def(ID(RefTrigPreTrigSamples), S::kTiming, T::kU32, 0, kBitAI | kBitDI, 2, kU32Max, kAny, 2),
    def(ID(RefTrigTerm), S::kTiming, T::kString, kReadOnly | kComputed, kBitAI | kBitDI),
    def(ID(DigEdgeRefTrigSrc), S::kTiming, T::kString, 0, kBitAI | kBitDI),
    def(ID(DigEdgeRefTrigEdge), S::kTiming, T::kI32, 0, kBitAI | kBitDI, kLo, kHi, kEdges, kRising),
    def(ID(AnlgEdgeRefTrigSrc), S::kTiming, T::kString, 0, kBitAI),
    def(ID(AnlgEdgeRefTrigSlope), S::kTiming, T::kI32, 0, kBitAI, kLo, kHi, kEdges, kRising),
    def(ID(AnlgEdgeRefTrigLvl), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(AnlgEdgeRefTrigHyst), S::kTiming, T::kF64, 0, kBitAI, 0, kHi),
    def(ID(AnlgWinRefTrigSrc), S::kTiming, T::kString, 0, kBitAI),
    def(ID(AnlgWinRefTrigTrigWhen), S::kTiming, T::kI32, 0, kBitAI, kLo, kHi, kWindowWhen, kEnteringWin),
    def(ID(AnlgWinRefTrigTop), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(AnlgWinRefTrigBtm), S::kTiming, T::kF64, 0, kBitAI),
    def(ID(DigPatternRefTrigSrc), S::kTiming, T::kStrings, 0, kBitAI | kBitDI),
    def(ID(DigPatternRefTrigPattern), S::kTiming, T::kString, 0, kBitAI | kBitDI),
    def(ID(DigPatternRefTrigTrigWhen), S::kTiming, T::kI32, 0, kBitAI | kBitDI, kLo, kHi, kPatternWhen,
        kPatternMatches),

    // Signal export: the terminals an internal signal is routed to.
    def(ID(ExportedSampClkOutputTerm), S::kTiming, T::kStrings, 0, kBitAll),
    def(ID(ExportedStartTrigOutputTerm), S::kTiming, T::kStrings, 0, kBitAll),
    def(ID(ExportedRefTrigOutputTerm), S::kTiming, T::kStrings, 0, kBitAI | kBitDI),
    def(ID(ExportedCtrOutEventOutputTerm), S::kTiming, T::kStrings, 0, kBitCO),

    // Read.
    def(ID(ReadOverWrite), S::kRead, T::kI32, 0, kBitInput, kLo, kHi, kOverwrite, kDoNotOverwriteUnreadSamps),
    def(ID(ReadRelativeTo), S::kRead, T::kI32, 0, kBitInput, kLo, kHi, kReadRelative, kCurrReadPos),
    def(ID(ReadOffset), S::kRead, T::kI32, 0, kBitInput, -2147483648.0, 2147483647.0),
    def(ID(ReadReadAllAvailSamp), S::kRead, T::kBool, 0, kBitInput),
    def(ID(ReadAutoStart), S::kRead, T::kBool, 0, kBitInput, 0, 1, kAny, 1),
    def(ID(ReadChannelsToRead), S::kRead, T::kStrings, kComputed, kBitInput),
    def(ID(ReadAvailSampPerChan), S::kRead, T::kU32, kReadOnly | kComputed, kBitInput),
    def(ID(ReadTotalSampPerChanAcquired), S::kRead, T::kU64, kReadOnly | kComputed, kBitInput),
    def(ID(ReadCurrReadPos), S::kRead, T::kU64, kReadOnly | kComputed, kBitInput),
    def(ID(ReadNumChans), S::kRead, T::kU32, kReadOnly | kComputed, kBitInput),
    def(ID(ReadRawDataWidth), S::kRead, T::kU32, kReadOnly | kComputed, kBitInput),
    def(ID(ReadDigitalLinesBytesPerChan), S::kRead, T::kU32, kReadOnly | kComputed, kBitInput),
    def(ID(ReadOverloadedChansExist), S::kRead, T::kBool, kReadOnly | kComputed, kBitInput),

    // Write.
    def(ID(WriteRegenMode), S::kWrite, T::kI32, 0, kBitOutput, kLo, kHi, kRegen, kAllowRegen),
    def(ID(RelativeTo), S::kWrite, T::kI32, 0, kBitOutput, kLo, kHi, kWriteRelative, 10430),
    def(ID(WriteOffset), S::kWrite, T::kI32, 0, kBitOutput, -2147483648.0, 2147483647.0),
    def(ID(WriteNumChans), S::kWrite, T::kU32, kReadOnly | kComputed, kBitAll),
    def(ID(WriteRawDataWidth), S::kWrite, T::kU32, kReadOnly | kComputed, kBitOutput),
    def(ID(WriteDigitalLinesBytesPerChan), S::kWrite, T::kU32, kReadOnly | kComputed, kBitOutput),
    def(ID(WriteTotalSampPerChanGenerated), S::kWrite, T::kU64, kReadOnly | kComputed, kBitOutput),
    def(ID(WriteCurrWritePos), S::kWrite, T::kU64, kReadOnly | kComputed, kBitOutput),
    def(ID(WriteSpaceAvail), S::kWrite, T::kU32, kReadOnly | kComputed, kBitOutput),

    // Buffers, in samples per channel; 0 asks for none.
    def(ID(BufInputBufSize), S::kBuffer, T::kU32, kComputed, kBitInput, 0, 100000000.0),
    def(ID(BufOutputBufSize), S::kBuffer, T::kU32, kComputed, kBitOutput, 0, 100000000.0),
    def(ID(BufInputOnbrdBufSize), S::kBuffer, T::kU32, kReadOnly | kComputed, kBitInput),
    def(ID(BufOutputOnbrdBufSize), S::kBuffer, T::kU32, kReadOnly | kComputed, kBitOutput),

    // Every channel.
    def(ID(ChanType), S::kChannel, T::kI32, kReadOnly, kBitAll),
    def(ID(PhysicalChanName), S::kChannel, T::kString, kReadOnly, kBitAll),
    def(ID(ChanDescr), S::kChannel, T::kString, 0, kBitAll),
    def(ID(ChanIsGlobal), S::kChannel, T::kBool, kReadOnly | kComputed, kBitAll),

    // Analog inputs.
    def(ID(AIMeasType), S::kChannel, T::kI32, kReadOnly, kBitAI),
    def(ID(AIMax), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIMin), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIRngHigh), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAI),
    def(ID(AIRngLow), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAI),
    def(ID(AIResolution), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAI),
    def(ID(AIRawSampSize), S::kChannel, T::kU32, kReadOnly | kComputed, kBitAI),
    def(ID(AITermCfg), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kTermCfgs),
    def(ID(AIVoltageUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kVoltageUnits),
    def(ID(AICurrentUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kCurrentUnits),
    def(ID(AICurrentShuntResistance), S::kChannel, T::kF64, 0, kBitAI, 1e-3, 1e6),
    def(ID(AITempUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kTempUnits),
    def(ID(AIThrmcplType), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kThermocoupleTypes),
    def(ID(AIThrmcplCJCSrc), S::kChannel, T::kI32, kReadOnly, kBitAI),
    def(ID(AIThrmcplCJCVal), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIThrmcplCJCChan), S::kChannel, T::kString, kReadOnly, kBitAI),
    def(ID(AIRTDType), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kRTDTypes),
    def(ID(AIRTDR0), S::kChannel, T::kF64, 0, kBitAI, 1, 1e6),
    def(ID(AIThrmstrA), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIThrmstrB), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIThrmstrC), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIThrmstrR1), S::kChannel, T::kF64, 0, kBitAI, 0, 1e9),
    def(ID(AIResistanceCfg), S::kChannel, T::kI32, 0, kBitAI, 2, 4),
    def(ID(AIResistanceUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kResistanceUnits),
    def(ID(AIExcitSrc), S::kChannel, T::kI32, 0, kBitAI),
    def(ID(AIExcitVal), S::kChannel, T::kF64, 0, kBitAI, 0, 10),
    def(ID(AIStrainUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kStrainUnits),
    def(ID(AIStrainGageCfg), S::kChannel, T::kI32, 0, kBitAI),
    def(ID(AIStrainGageGageFactor), S::kChannel, T::kF64, 0, kBitAI, 0.01, 1000),
    def(ID(AIStrainGagePoissonRatio), S::kChannel, T::kF64, 0, kBitAI, 0, 0.5),
    def(ID(AIBridgeCfg), S::kChannel, T::kI32, 0, kBitAI),
    def(ID(AIBridgeNomResistance), S::kChannel, T::kF64, 0, kBitAI, 1, 1e6),
    def(ID(AIBridgeInitialVoltage), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIBridgeUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kBridgeUnits),
    def(ID(AIBridgeScaleType), S::kChannel, T::kI32, kReadOnly, kBitAI),
    def(ID(AIBridgeElectricalUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kBridgeUnits),
    def(ID(AIBridgePhysicalUnits), S::kChannel, T::kI32, 0, kBitAI),
    def(ID(AIBridgeTwoPointLinFirstElectricalVal), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIBridgeTwoPointLinFirstPhysicalVal), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIBridgeTwoPointLinSecondElectricalVal), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIBridgeTwoPointLinSecondPhysicalVal), S::kChannel, T::kF64, 0, kBitAI),
    def(ID(AIBridgeTableElectricalVals), S::kChannel, T::kF64s, 0, kBitAI),
    def(ID(AIBridgeTablePhysicalVals), S::kChannel, T::kF64s, 0, kBitAI),
    def(ID(AIBridgePolyForwardCoeff), S::kChannel, T::kF64s, 0, kBitAI),
    def(ID(AIBridgePolyReverseCoeff), S::kChannel, T::kF64s, 0, kBitAI),
    def(ID(AIForceUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kForceUnits),
    def(ID(AIPressureUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kPressureUnits),
    def(ID(AITorqueUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kTorqueUnits),
    def(ID(AIAccelUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kAccelUnits),
    def(ID(AIAccelSensitivity), S::kChannel, T::kF64, 0, kBitAI, 1e-6, 1e6),
    def(ID(AIAccelSensitivityUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kAccelSensUnits),
    def(ID(AIForceIEPESensorSensitivity), S::kChannel, T::kF64, 0, kBitAI, 1e-6, 1e6),
    def(ID(AIForceIEPESensorSensitivityUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kForceSensUnits),
    def(ID(AIVelocityIEPESensorSensitivity), S::kChannel, T::kF64, 0, kBitAI, 1e-6, 1e6),
    def(ID(AIVelocityIEPESensorSensitivityUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi,
        kVelocitySensUnits),
    def(ID(AIVelocityUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kVelocityUnits),
    def(ID(AIMicrophoneSensitivity), S::kChannel, T::kF64, 0, kBitAI, 1e-6, 1e6),
    def(ID(AISoundPressureUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kSoundUnits),
    def(ID(AIFreqUnits), S::kChannel, T::kI32, 0, kBitAI, kLo, kHi, kFreqUnits),
    def(ID(AIFreqThreshVoltage), S::kChannel, T::kF64, 0, kBitAI, -10, 10),
    def(ID(AIFreqHyst), S::kChannel, T::kF64, 0, kBitAI, 0, 10),

    // Analog outputs.
    def(ID(AOOutputType), S::kChannel, T::kI32, kReadOnly, kBitAO),
    def(ID(AOMax), S::kChannel, T::kF64, 0, kBitAO),
    def(ID(AOMin), S::kChannel, T::kF64, 0, kBitAO),
    def(ID(AOVoltageUnits), S::kChannel, T::kI32, 0, kBitAO, kLo, kHi, kVoltageUnits),
    def(ID(AOCurrentUnits), S::kChannel, T::kI32, 0, kBitAO, kLo, kHi, kCurrentUnits),
    def(ID(AOResolution), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAO),
    def(ID(AODACRngHigh), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAO),
    def(ID(AODACRngLow), S::kChannel, T::kF64, kReadOnly | kComputed, kBitAO),
    def(ID(AOFuncGenType), S::kChannel, T::kI32, 0, kBitAO, kLo, kHi, kFuncTypes),
    def(ID(AOFuncGenFreq), S::kChannel, T::kF64, 0, kBitAO, 0, 1e6),
    def(ID(AOFuncGenAmplitude), S::kChannel, T::kF64, 0, kBitAO, 0, 10),
    def(ID(AOFuncGenOffset), S::kChannel, T::kF64, 0, kBitAO, -10, 10),

    // Digital lines.
    def(ID(DINumLines), S::kChannel, T::kU32, kReadOnly | kComputed, kBitDI),
    def(ID(DONumLines), S::kChannel, T::kU32, kReadOnly | kComputed, kBitDO),
    def(ID(DIInvertLines), S::kChannel, T::kBool, 0, kBitDI),
    def(ID(DOInvertLines), S::kChannel, T::kBool, 0, kBitDO),

    // Counter inputs.
    def(ID(CIMeasType), S::kChannel, T::kI32, kReadOnly, kBitCI),
    def(ID(CICount), S::kChannel, T::kU32, kReadOnly | kComputed, kBitCI),
    def(ID(CICtrTimebaseRate), S::kChannel, T::kF64, kReadOnly | kComputed, kBitCI),
    def(ID(CICountEdgesTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CICountEdgesActiveEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CICountEdgesDir), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kCountDirections),
    def(ID(CICountEdgesInitialCnt), S::kChannel, T::kU32, 0, kBitCI, 0, kU32Max),
    def(ID(CIFreqTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIFreqUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kFreqOrTicks),
    def(ID(CIFreqStartingEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CIFreqMeasMeth), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kFreqMethods),
    def(ID(CIFreqMeasTime), S::kChannel, T::kF64, 0, kBitCI, 1e-6, 1000),
    def(ID(CIFreqDiv), S::kChannel, T::kU32, 0, kBitCI, 1, kU32Max),
    def(ID(CIPeriodTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIPeriodUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kTimeUnits),
    def(ID(CIPeriodStartingEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CIPulseWidthTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIPulseWidthUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kTimeUnits),
    def(ID(CIPulseWidthStartingEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CISemiPeriodTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CISemiPeriodUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kTimeUnits),
    def(ID(CITwoEdgeSepFirstTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CITwoEdgeSepSecondTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CITwoEdgeSepFirstEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CITwoEdgeSepSecondEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CITwoEdgeSepUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kTimeUnits),
    def(ID(CIDutyCycleTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIDutyCycleStartingEdge), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kEdges),
    def(ID(CIPulseFreqTerminal), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIPulseFreqUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kFreqUnits),
    def(ID(CIPulseTimeTerminal), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIPulseTimeUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kSecondsOnly),
    def(ID(CIPulseTicksTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIEncoderAInputTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIEncoderBInputTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIEncoderZInputTerm), S::kChannel, T::kString, 0, kBitCI),
    def(ID(CIEncoderDecodingType), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kDecodings),
    def(ID(CIEncoderZIndexEnable), S::kChannel, T::kBool, 0, kBitCI),
    def(ID(CIEncoderZIndexVal), S::kChannel, T::kF64, 0, kBitCI),
    def(ID(CIEncoderZIndexPhase), S::kChannel, T::kI32, 0, kBitCI),
    def(ID(CILinEncoderDistPerPulse), S::kChannel, T::kF64, 0, kBitCI, 1e-12, 1e12),
    def(ID(CILinEncoderUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kLinearUnits),
    def(ID(CILinEncoderInitialPos), S::kChannel, T::kF64, 0, kBitCI),
    def(ID(CIAngEncoderPulsesPerRev), S::kChannel, T::kU32, 0, kBitCI, 1, kU32Max),
    def(ID(CIAngEncoderUnits), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kAngularUnits),
    def(ID(CIAngEncoderInitialAngle), S::kChannel, T::kF64, 0, kBitCI),
    def(ID(CIVelocityLinEncoderDistPerPulse), S::kChannel, T::kF64, 0, kBitCI, 1e-12, 1e12),
    def(ID(CIVelocityLinEncoderUnits), S::kChannel, T::kI32, 0, kBitCI),
    def(ID(CIVelocityAngEncoderPulsesPerRev), S::kChannel, T::kU32, 0, kBitCI, 1, kU32Max),
    def(ID(CIVelocityAngEncoderUnits), S::kChannel, T::kI32, 0, kBitCI),
    def(ID(CIVelocityEncoderDecodingType), S::kChannel, T::kI32, 0, kBitCI, kLo, kHi, kDecodings),

    // Counter outputs.
    def(ID(COOutputType), S::kChannel, T::kI32, kReadOnly, kBitCO),
    def(ID(COPulseTerm), S::kChannel, T::kString, 0, kBitCO),
    def(ID(COPulseIdleState), S::kChannel, T::kI32, 0, kBitCO, kLo, kHi, kIdleStates),
    def(ID(COPulseFreq), S::kChannel, T::kF64, 0, kBitCO, 0.01, 50e6),
    def(ID(COPulseDutyCyc), S::kChannel, T::kF64, 0, kBitCO, 1e-6, 1 - 1e-6),
    def(ID(COPulseFreqUnits), S::kChannel, T::kI32, 0, kBitCO, kLo, kHi, kFreqUnits),
    def(ID(COPulseFreqInitialDelay), S::kChannel, T::kF64, 0, kBitCO, 0, 1e6),
    def(ID(COPulseHighTime), S::kChannel, T::kF64, 0, kBitCO, 1e-8, 1e6),
    def(ID(COPulseLowTime), S::kChannel, T::kF64, 0, kBitCO, 1e-8, 1e6),
    def(ID(COPulseTimeUnits), S::kChannel, T::kI32, 0, kBitCO, kLo, kHi, kSecondsOnly),
    def(ID(COPulseTimeInitialDelay), S::kChannel, T::kF64, 0, kBitCO, 0, 1e6),
    def(ID(COPulseHighTicks), S::kChannel, T::kU32, 0, kBitCO, 1, kU32Max),
    def(ID(COPulseLowTicks), S::kChannel, T::kU32, 0, kBitCO, 1, kU32Max),
    def(ID(COPulseTicksInitialDelay), S::kChannel, T::kU32, 0, kBitCO, 0, kU32Max),
    def(ID(COCtrTimebaseSrc), S::kChannel, T::kString, 0, kBitCO),
    def(ID(COCtrTimebaseRate), S::kChannel, T::kF64, kReadOnly | kComputed, kBitCO),
    def(ID(COCount), S::kChannel, T::kU32, kReadOnly | kComputed, kBitCO),
    def(ID(COOutputState), S::kChannel, T::kI32, kReadOnly | kComputed, kBitCO),
    def(ID(COPulseDone), S::kChannel, T::kBool, kReadOnly | kComputed, kBitCO),
};

#undef ID

}  // namespace

uint32_t kindBit(int32_t channelKind) {
  switch (channelKind) {
    case kAI:
      return kBitAI;
    case kAO:
      return kBitAO;
    case kDI:
      return kBitDI;
    case kDO:
      return kBitDO;
    case kCI:
      return kBitCI;
    case kCO:
      return kBitCO;
    default:
      return 0;
  }
}

const AttrDef* findAttribute(int32_t id) {
  for (const AttrDef& d : kTable)
    if (d.id == id) return &d;
  return nullptr;
}

const char* attributeName(int32_t id) {
  const AttrDef* d = findAttribute(id);
  return d ? d->name : nullptr;
}

std::span<const AttrDef> allAttributes() { return kTable; }

}  // namespace zqsim
