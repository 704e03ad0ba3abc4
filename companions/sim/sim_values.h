// The enumerated values that the simulated device understands in channel, timing and trigger
// settings, as the numbers callers pass. Attribute ids come from the generated catalogue header.
#pragma once

#include <cstdint>

#include "zqcai_rd_mbcs_attribute_ids.h"

namespace zqsim::val {

// Channel kinds, also the channelKind argument of reads and writes.
inline constexpr int32_t kAI = 10100;
inline constexpr int32_t kAO = 10102;
inline constexpr int32_t kDI = 10151;
inline constexpr int32_t kDO = 10153;
inline constexpr int32_t kCI = 10131;
inline constexpr int32_t kCO = 10132;

// Sample timing types and modes.
inline constexpr int32_t kSampClk = 10388;
inline constexpr int32_t kHandshake = 10389;
inline constexpr int32_t kOnDemand = 10390;
inline constexpr int32_t kImplicit = 10451;
inline constexpr int32_t kChangeDetection = 12504;
inline constexpr int32_t kFiniteSamps = 10178;
inline constexpr int32_t kContSamps = 10123;
inline constexpr int32_t kHWTimedSinglePoint = 12522;

// Edges, slopes, levels.
inline constexpr int32_t kRising = 10280;
inline constexpr int32_t kFalling = 10171;
inline constexpr int32_t kHigh = 10192;
inline constexpr int32_t kLow = 10214;

// Trigger types and conditions.
inline constexpr int32_t kNone = 10230;
inline constexpr int32_t kAnlgEdge = 10099;
inline constexpr int32_t kAnlgWin = 10103;
inline constexpr int32_t kDigEdge = 10150;
inline constexpr int32_t kDigPattern = 10398;
inline constexpr int32_t kTime = 15996;
inline constexpr int32_t kEnteringWin = 10163;
inline constexpr int32_t kLeavingWin = 10208;
inline constexpr int32_t kPatternMatches = 10254;
inline constexpr int32_t kPatternDoesNotMatch = 10253;

// Read and write behaviour.
inline constexpr int32_t kOverwriteUnreadSamps = 10252;
inline constexpr int32_t kDoNotOverwriteUnreadSamps = 10159;
inline constexpr int32_t kAllowRegen = 10097;
inline constexpr int32_t kDoNotAllowRegen = 10158;
inline constexpr int32_t kFirstSample = 10424;
inline constexpr int32_t kCurrReadPos = 10425;
inline constexpr int32_t kMostRecentSamp = 10428;

// Units.
inline constexpr int32_t kVolts = 10348;
inline constexpr int32_t kAmps = 10342;
inline constexpr int32_t kDegC = 10143;
inline constexpr int32_t kDegF = 10144;
inline constexpr int32_t kKelvins = 10325;
inline constexpr int32_t kDegR = 10145;
inline constexpr int32_t kFromCustomScale = 10065;
inline constexpr int32_t kOhms = 10384;
inline constexpr int32_t kStrain = 10299;
inline constexpr int32_t kVoltsPerVolt = 15896;
inline constexpr int32_t kMilliVoltsPerVolt = 15897;
inline constexpr int32_t kNewtons = 15875;
inline constexpr int32_t kPounds = 15876;
inline constexpr int32_t kKilogramForce = 15877;
inline constexpr int32_t kPascals = 10081;
inline constexpr int32_t kPoundsPerSquareInch = 15879;
inline constexpr int32_t kBar = 15880;
inline constexpr int32_t kNewtonMeters = 15881;
inline constexpr int32_t kInchOunces = 15882;
inline constexpr int32_t kInchPounds = 15883;
inline constexpr int32_t kFootPounds = 15884;
inline constexpr int32_t kG = 10186;
inline constexpr int32_t kMetersPerSecondSquared = 12470;
inline constexpr int32_t kMetersPerSecond = 15959;
inline constexpr int32_t kInchesPerSecond = 15960;
inline constexpr int32_t kHz = 10373;
inline constexpr int32_t kSeconds = 10364;
inline constexpr int32_t kTicks = 10304;
inline constexpr int32_t kMeters = 10219;
inline constexpr int32_t kInches = 10379;
inline constexpr int32_t kDegrees = 10146;
inline constexpr int32_t kRadians = 10273;

// Sensor sensitivity units.
inline constexpr int32_t kMilliVoltsPerG = 12509;
inline constexpr int32_t kVoltsPerG = 12510;
inline constexpr int32_t kMilliVoltsPerNewton = 15891;
inline constexpr int32_t kMilliVoltsPerPound = 15892;
inline constexpr int32_t kMilliVoltsPerMillimeterPerSecond = 15963;
inline constexpr int32_t kMilliVoltsPerInchPerSecond = 15964;

// Terminal configuration, excitation, sources.
inline constexpr int32_t kCfgDefault = -1;
inline constexpr int32_t kRSE = 10083;
inline constexpr int32_t kNRSE = 10078;
inline constexpr int32_t kDiff = 10106;
inline constexpr int32_t kPseudoDiff = 12529;
inline constexpr int32_t kInternal = 10200;
inline constexpr int32_t kExternal = 10167;
inline constexpr int32_t kBuiltIn = 10200;
inline constexpr int32_t kConstVal = 10116;
inline constexpr int32_t kChan = 10113;

// Measurement and output types.
inline constexpr int32_t kMeasVoltage = 10322;
inline constexpr int32_t kMeasCurrent = 10134;
inline constexpr int32_t kMeasTempTC = 10303;
inline constexpr int32_t kMeasTempRTD = 10301;
inline constexpr int32_t kMeasTempThrmstr = 10302;
inline constexpr int32_t kMeasTempBuiltIn = 10311;
inline constexpr int32_t kMeasResistance = 10278;
inline constexpr int32_t kMeasStrainGage = 10300;
inline constexpr int32_t kMeasBridge = 15908;
inline constexpr int32_t kMeasVoltageWithExcit = 10323;
inline constexpr int32_t kMeasAccel = 10356;
inline constexpr int32_t kMeasVelocityIEPE = 15966;
inline constexpr int32_t kMeasForceIEPE = 15895;
inline constexpr int32_t kMeasMicrophone = 10354;
inline constexpr int32_t kMeasForceBridge = 15918;
inline constexpr int32_t kMeasPressureBridge = 15902;
inline constexpr int32_t kMeasTorqueBridge = 15905;
inline constexpr int32_t kMeasFreqVoltage = 10181;
inline constexpr int32_t kMeasFuncGen = 14750;
inline constexpr int32_t kMeasCountEdges = 10125;
inline constexpr int32_t kMeasFreq = 10179;
inline constexpr int32_t kMeasPeriod = 10256;
inline constexpr int32_t kMeasPulseWidth = 10359;
inline constexpr int32_t kMeasSemiPeriod = 10289;
inline constexpr int32_t kMeasTwoEdgeSep = 10267;
inline constexpr int32_t kMeasDutyCycle = 16070;
inline constexpr int32_t kMeasLinEncoder = 10361;
inline constexpr int32_t kMeasAngEncoder = 10360;
inline constexpr int32_t kMeasLinVelocity = 16078;
inline constexpr int32_t kMeasAngVelocity = 16079;
inline constexpr int32_t kMeasPulseFreq = 15864;
inline constexpr int32_t kMeasPulseTime = 15865;
inline constexpr int32_t kMeasPulseTicks = 15866;
inline constexpr int32_t kPulseTime = 10269;
inline constexpr int32_t kPulseFreq = 10119;
inline constexpr int32_t kPulseTicks = 10268;
// A digital channel's type, in the same place as a measurement type.
inline constexpr int32_t kMeasDigital = 0;

// Function generator waveforms.
inline constexpr int32_t kFuncSine = 14751;
inline constexpr int32_t kFuncTriangle = 14752;
inline constexpr int32_t kFuncSquare = 14753;
inline constexpr int32_t kFuncSawtooth = 14754;

// Digital line grouping.
inline constexpr int32_t kChanPerLine = 0;
inline constexpr int32_t kChanForAllLines = 1;

// Counters.
inline constexpr int32_t kCountUp = 10128;
inline constexpr int32_t kCountDown = 10124;
inline constexpr int32_t kDecodingX1 = 10090;
inline constexpr int32_t kDecodingX2 = 10091;
inline constexpr int32_t kDecodingX4 = 10092;
inline constexpr int32_t kTwoPulseCounting = 10313;

// Thermocouple and RTD types.
inline constexpr int32_t kThermocoupleTypes[] = {10047, 10055, 10072, 10073, 10077, 10082, 10085, 10086};
inline constexpr int32_t kRTDTypes[] = {12481, 10071, 12482, 10069, 10053, 12483, 10137};

// Task control actions.
inline constexpr int32_t kActionStart = 0;
inline constexpr int32_t kActionStop = 1;
inline constexpr int32_t kActionVerify = 2;
inline constexpr int32_t kActionCommit = 3;
inline constexpr int32_t kActionReserve = 4;
inline constexpr int32_t kActionUnreserve = 5;
inline constexpr int32_t kActionAbort = 6;

// Event ids that reach the plug-in, and the signals of signal events.
inline constexpr int32_t kEventDone = 12576;
inline constexpr int32_t kEventAcquiredIntoBuffer = 12580;
inline constexpr int32_t kEventTransferredFromBuffer = 12581;
inline constexpr int32_t kEventSignal = 12575;
inline constexpr int32_t kSignalSampleClock = 12487;
inline constexpr int32_t kSignalCounterOutput = 12494;
inline constexpr int32_t kSignalChangeDetection = 12511;
inline constexpr int32_t kSignalSampleComplete = 12530;

// Buffer attributes as the buffer functions pass them.
inline constexpr int32_t kBufInput = 6252;
inline constexpr int32_t kBufOutput = 6253;

}  // namespace zqsim::val
