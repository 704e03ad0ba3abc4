// The enumerated values that the simulated device understands in channel, timing and trigger
// settings, as the numbers callers pass: the public values where the header has them. Attribute ids
// come from the generated catalogue header.
#pragma once

#include <cstdint>

#include "zqcai_rd_mbcs_attribute_ids.h"
#include "zqcai_rd_mbcs_values.h"

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
inline constexpr int32_t kFiniteSamps = Vorex_Val_FiniteSamps;
inline constexpr int32_t kContSamps = Vorex_Val_ContSamps;
inline constexpr int32_t kHWTimedSinglePoint = Vorex_Val_HWTimedSinglePoint;

// Edges, slopes, levels.
inline constexpr int32_t kRising = Vorex_Val_Rising;
inline constexpr int32_t kFalling = Vorex_Val_Falling;
inline constexpr int32_t kHigh = Vorex_Val_High;
inline constexpr int32_t kLow = Vorex_Val_Low;

// Trigger types and conditions.
inline constexpr int32_t kNone = 10230;
inline constexpr int32_t kAnlgEdge = 10099;
inline constexpr int32_t kAnlgWin = 10103;
inline constexpr int32_t kDigEdge = 10150;
inline constexpr int32_t kDigPattern = 10398;
inline constexpr int32_t kTime = 15996;
inline constexpr int32_t kEnteringWin = Vorex_Val_EnteringWin;
inline constexpr int32_t kLeavingWin = Vorex_Val_LeavingWin;
inline constexpr int32_t kPatternMatches = 10254;
inline constexpr int32_t kPatternDoesNotMatch = 10253;

// Read and write behaviour.
inline constexpr int32_t kOverwriteUnreadSamps = Vorex_Val_OverwriteUnreadSamps;
inline constexpr int32_t kDoNotOverwriteUnreadSamps = Vorex_Val_DoNotOverwriteUnreadSamps;
inline constexpr int32_t kAllowRegen = Vorex_Val_AllowRegen;
inline constexpr int32_t kDoNotAllowRegen = Vorex_Val_DoNotAllowRegen;
inline constexpr int32_t kFirstSample = Vorex_Val_FirstSample;
inline constexpr int32_t kCurrReadPos = Vorex_Val_CurrReadPos;
inline constexpr int32_t kMostRecentSamp = Vorex_Val_MostRecentSamp;

// Units.
inline constexpr int32_t kVolts = Vorex_Val_Volts;
inline constexpr int32_t kAmps = Vorex_Val_Amps;
inline constexpr int32_t kDegC = Vorex_Val_DegC;
inline constexpr int32_t kDegF = Vorex_Val_DegF;
inline constexpr int32_t kKelvins = Vorex_Val_Kelvins;
inline constexpr int32_t kDegR = Vorex_Val_DegR;
inline constexpr int32_t kFromCustomScale = Vorex_Val_FromCustomScale;
inline constexpr int32_t kOhms = Vorex_Val_Ohms;
inline constexpr int32_t kStrain = Vorex_Val_Strain;
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
inline constexpr int32_t kHz = Vorex_Val_Hz;
inline constexpr int32_t kSeconds = Vorex_Val_Seconds;
inline constexpr int32_t kTicks = Vorex_Val_Ticks;
inline constexpr int32_t kMeters = Vorex_Val_Meters;
inline constexpr int32_t kInches = Vorex_Val_Inches;
inline constexpr int32_t kDegrees = Vorex_Val_Degrees;
inline constexpr int32_t kRadians = Vorex_Val_Radians;

// Sensor sensitivity units.
inline constexpr int32_t kMilliVoltsPerG = 12509;
inline constexpr int32_t kVoltsPerG = 12510;
inline constexpr int32_t kMilliVoltsPerNewton = 15891;
inline constexpr int32_t kMilliVoltsPerPound = 15892;
inline constexpr int32_t kMilliVoltsPerMillimeterPerSecond = 15963;
inline constexpr int32_t kMilliVoltsPerInchPerSecond = 15964;

// Terminal configuration, excitation, sources.
inline constexpr int32_t kCfgDefault = Vorex_Val_Cfg_Default;
inline constexpr int32_t kRSE = Vorex_Val_RSE;
inline constexpr int32_t kNRSE = Vorex_Val_NRSE;
inline constexpr int32_t kDiff = Vorex_Val_Diff;
inline constexpr int32_t kPseudoDiff = Vorex_Val_PseudoDiff;
inline constexpr int32_t kInternal = Vorex_Val_Internal;
inline constexpr int32_t kExternal = Vorex_Val_External;
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
inline constexpr int32_t kChanPerLine = Vorex_Val_ChanPerLine;
inline constexpr int32_t kChanForAllLines = Vorex_Val_ChanForAllLines;

// Counters.
inline constexpr int32_t kCountUp = Vorex_Val_CountUp;
inline constexpr int32_t kCountDown = Vorex_Val_CountDown;
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
