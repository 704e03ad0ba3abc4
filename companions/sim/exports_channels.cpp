// Channel creation: each supported type with the settings its parameters give.
#include <cmath>

#include "channel_create.h"
#include "sim_export.h"
#include "sim_values.h"

using namespace zqsim;
using namespace zqsim::val;

namespace {

using Settings = std::initializer_list<std::pair<const int32_t, Value>>;

void create(zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, int32_t kind,
            int32_t type, Settings settings, const char* customScale, zqgopher_IItemAdder* created,
            zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t || !refuseCustomScale(customScale, status)) return;
    createChannels(*t, physical, name, kind, type, Store(settings), created, status);
  });
}

int32_t termCfg(int32_t value) { return value == kCfgDefault ? kRSE : value; }

std::vector<double> reals(const zqgopher_ArrayView* view) {
  std::vector<double> out;
  for (uint64_t i = 0; view && view->data && i < view->count; ++i)
    out.push_back(zqgopher_ArrayView_f64(view)[i]);
  return out;
}

// The settings of a force, pressure or torque bridge and its scale.
Store bridge(double minVal, double maxVal, int32_t unitsId, int32_t units, int32_t bridgeConfig,
             int32_t excitSource, double excitVal, double resistance, int32_t electricalUnits,
             int32_t physicalUnits) {
  return Store{{Vorex_AIMin, Value::f64(minVal)},
               {Vorex_AIMax, Value::f64(maxVal)},
               {unitsId, Value::i32(units)},
               {Vorex_AIBridgeCfg, Value::i32(bridgeConfig)},
               {Vorex_AIExcitSrc, Value::i32(excitSource)},
               {Vorex_AIExcitVal, Value::f64(excitVal)},
               {Vorex_AIBridgeNomResistance, Value::f64(resistance)},
               {Vorex_AIBridgeElectricalUnits, Value::i32(electricalUnits)},
               {Vorex_AIBridgePhysicalUnits, Value::i32(physicalUnits)}};
}

void createBridge(zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, int32_t type,
                  Store settings, const char* customScale, zqgopher_IItemAdder* created,
                  zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t || !refuseCustomScale(customScale, status)) return;
    createChannels(*t, physical, name, kAI, type, settings, created, status);
  });
}

Store twoPoint(Store s, double e1, double e2, double p1, double p2) {
  s[Vorex_AIBridgeScaleType] = Value::i32(1);
  s[Vorex_AIBridgeTwoPointLinFirstElectricalVal] = Value::f64(e1);
  s[Vorex_AIBridgeTwoPointLinSecondElectricalVal] = Value::f64(e2);
  s[Vorex_AIBridgeTwoPointLinFirstPhysicalVal] = Value::f64(p1);
  s[Vorex_AIBridgeTwoPointLinSecondPhysicalVal] = Value::f64(p2);
  return s;
}

Store table(Store s, const zqgopher_ArrayView* electrical, const zqgopher_ArrayView* physical) {
  s[Vorex_AIBridgeScaleType] = Value::i32(2);
  s[Vorex_AIBridgeTableElectricalVals] = Value::f64s(reals(electrical));
  s[Vorex_AIBridgeTablePhysicalVals] = Value::f64s(reals(physical));
  return s;
}

Store polynomial(Store s, const zqgopher_ArrayView* forward, const zqgopher_ArrayView* reverse) {
  s[Vorex_AIBridgeScaleType] = Value::i32(3);
  s[Vorex_AIBridgePolyForwardCoeff] = Value::f64s(reals(forward));
  s[Vorex_AIBridgePolyReverseCoeff] = Value::f64s(reals(reverse));
  return s;
}

// A temperature range of 0 to 100 degrees Celsius in the channel's units.
std::pair<double, double> builtInRange(int32_t units) {
  switch (units) {
    case kDegF:
      return {32, 212};
    case kKelvins:
      return {273.15, 373.15};
    case kDegR:
      return {491.67, 671.67};
    default:
      return {0, 100};
  }
}

}  // namespace

SIM_EXPORT void zqvorexSim_createAIVoltageChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, int32_t terminalConfig, double minVal,
                                                  double maxVal, int32_t units, const char* customScaleName,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasVoltage,
         {{Vorex_AITermCfg, Value::i32(termCfg(terminalConfig))},
          {Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIVoltageUnits, Value::i32(units)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAICurrentChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, int32_t terminalConfig, double minVal,
                                                  double maxVal, int32_t units, int32_t shuntResistorLoc,
                                                  double extShuntResistorVal, const char* customScaleName,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  const double shunt = shuntResistorLoc == kExternal ? extShuntResistorVal : DeviceModel::kShuntOhms;
  create(task, physical, name, kAI, kMeasCurrent,
         {{Vorex_AITermCfg, Value::i32(termCfg(terminalConfig))},
          {Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AICurrentUnits, Value::i32(units)},
          {Vorex_AICurrentShuntResistance, Value::f64(shunt)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAIThrmcplChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, double minVal, double maxVal,
                                                  int32_t units, int32_t thermocoupleType, int32_t cjcSource,
                                                  double cjcVal, const char* cjcChannel,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasTempTC,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AITempUnits, Value::i32(units)},
          {Vorex_AIThrmcplType, Value::i32(thermocoupleType)},
          {Vorex_AIThrmcplCJCSrc, Value::i32(cjcSource)},
          {Vorex_AIThrmcplCJCVal, Value::f64(cjcVal)},
          {Vorex_AIThrmcplCJCChan, Value::string(cjcChannel ? cjcChannel : "")}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createAIRTDChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                              const char* name, double minVal, double maxVal, int32_t units,
                                              int32_t rtdType, int32_t resistanceConfig,
                                              int32_t currentExcitSource, double currentExcitVal,
                                              zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasTempRTD,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AITempUnits, Value::i32(units)},
          {Vorex_AIRTDType, Value::i32(rtdType)},
          {Vorex_AIRTDR0, Value::f64(100)},
          {Vorex_AIResistanceCfg, Value::i32(resistanceConfig)},
          {Vorex_AIExcitSrc, Value::i32(currentExcitSource)},
          {Vorex_AIExcitVal, Value::f64(currentExcitVal)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createAIThrmstrChannelIex(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                     const char* name, double minVal, double maxVal,
                                                     int32_t units, int32_t resistanceConfig,
                                                     int32_t currentExcitSource, double currentExcitVal,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasTempThrmstr,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AITempUnits, Value::i32(units)},
          {Vorex_AIResistanceCfg, Value::i32(resistanceConfig)},
          {Vorex_AIExcitSrc, Value::i32(currentExcitSource)},
          {Vorex_AIExcitVal, Value::f64(currentExcitVal)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createAIThrmstrChannelVex(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                     const char* name, double minVal, double maxVal,
                                                     int32_t units, int32_t resistanceConfig,
                                                     int32_t voltageExcitSource, double voltageExcitVal,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasTempThrmstr,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AITempUnits, Value::i32(units)},
          {Vorex_AIResistanceCfg, Value::i32(resistanceConfig)},
          {Vorex_AIExcitSrc, Value::i32(voltageExcitSource)},
          {Vorex_AIExcitVal, Value::f64(voltageExcitVal)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createAITempBuiltInSensorChannel(zqvorexPlugin_Task_undefined* task,
                                                            const char* physical, const char* name,
                                                            int32_t units, zqgopher_IItemAdder* created,
                                                            zqerr_Status* status) {
  const auto [low, high] = builtInRange(units);
  create(task, physical, name, kAI, kMeasTempBuiltIn,
         {{Vorex_AIMin, Value::f64(low)},
          {Vorex_AIMax, Value::f64(high)},
          {Vorex_AITempUnits, Value::i32(units)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createAIResistanceChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                     const char* name, double minVal, double maxVal,
                                                     int32_t units, int32_t resistanceConfig,
                                                     int32_t currentExcitSource, double currentExcitVal,
                                                     const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasResistance,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIResistanceUnits, Value::i32(units)},
          {Vorex_AIResistanceCfg, Value::i32(resistanceConfig)},
          {Vorex_AIExcitSrc, Value::i32(currentExcitSource)},
          {Vorex_AIExcitVal, Value::f64(currentExcitVal)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAIStrainGageChannel(
    zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, double minVal, double maxVal,
    int32_t units, int32_t strainConfig, int32_t excitSource, double voltageExcitVal, double gageFactor,
    double initialBridgeVoltage, double nominalGageResistance, double poissonRatio, double,
    const char* customScaleName, zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasStrainGage,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIStrainUnits, Value::i32(units)},
          {Vorex_AIStrainGageCfg, Value::i32(strainConfig)},
          {Vorex_AIExcitSrc, Value::i32(excitSource)},
          {Vorex_AIExcitVal, Value::f64(voltageExcitVal)},
          {Vorex_AIStrainGageGageFactor, Value::f64(gageFactor)},
          {Vorex_AIBridgeInitialVoltage, Value::f64(initialBridgeVoltage)},
          {Vorex_AIBridgeNomResistance, Value::f64(nominalGageResistance)},
          {Vorex_AIStrainGagePoissonRatio, Value::f64(poissonRatio)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAIBridgeChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                 const char* name, double minVal, double maxVal,
                                                 int32_t units, int32_t voltageExcitSource,
                                                 double voltageExcitVal, double nominalBridgeResistance,
                                                 const char* customScaleName, zqgopher_IItemAdder* created,
                                                 zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasBridge,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIBridgeUnits, Value::i32(units)},
          {Vorex_AIExcitSrc, Value::i32(voltageExcitSource)},
          {Vorex_AIExcitVal, Value::f64(voltageExcitVal)},
          {Vorex_AIBridgeNomResistance, Value::f64(nominalBridgeResistance)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAIVoltageChannelWithExcit(
    zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, int32_t terminalConfig,
    double minVal, double maxVal, int32_t units, int32_t bridgeConfig, int32_t excitSource,
    double voltageExcitVal, uint32_t useExcitForScaling, const char* customScaleName,
    zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasVoltageWithExcit,
         {{Vorex_AITermCfg, Value::i32(termCfg(terminalConfig))},
          {Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIVoltageUnits, Value::i32(units)},
          {Vorex_AIBridgeCfg, Value::i32(bridgeConfig)},
          {Vorex_AIExcitSrc, Value::i32(excitSource)},
          {Vorex_AIExcitVal, Value::f64(voltageExcitVal)},
          {Vorex_AIExcitUseForScaling, Value::boolean(useExcitForScaling != 0)}},
         customScaleName, created, status);
}

#define SIM_IEPE(operation, type, unitsId, sensitivityId, sensitivityUnitsId)                             \
  SIM_EXPORT void zqvorexSim_##operation(                                                                 \
      zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, int32_t terminalConfig, \
      double minVal, double maxVal, int32_t units, double sensitivity, int32_t sensitivityUnits,          \
      int32_t currentExcitSource, double currentExcitVal, const char* customScaleName,                    \
      zqgopher_IItemAdder* created, zqerr_Status* status) {                                               \
    create(task, physical, name, kAI, type,                                                               \
           {{Vorex_AITermCfg, Value::i32(termCfg(terminalConfig))},                                       \
            {Vorex_AIMin, Value::f64(minVal)},                                                            \
            {Vorex_AIMax, Value::f64(maxVal)},                                                            \
            {unitsId, Value::i32(units)},                                                                 \
            {sensitivityId, Value::f64(sensitivity)},                                                     \
            {sensitivityUnitsId, Value::i32(sensitivityUnits)},                                           \
            {Vorex_AIExcitSrc, Value::i32(currentExcitSource)},                                           \
            {Vorex_AIExcitVal, Value::f64(currentExcitVal)}},                                             \
           customScaleName, created, status);                                                             \
  }
SIM_IEPE(createAIAccelChannel, kMeasAccel, Vorex_AIAccelUnits, Vorex_AIAccelSensitivity,
         Vorex_AIAccelSensitivityUnits)
SIM_IEPE(createAIVelocityIEPEChannel, kMeasVelocityIEPE, Vorex_AIVelocityUnits,
         Vorex_AIVelocityIEPESensorSensitivity, Vorex_AIVelocityIEPESensorSensitivityUnits)
SIM_IEPE(createAIForceIEPEChannel, kMeasForceIEPE, Vorex_AIForceUnits, Vorex_AIForceIEPESensorSensitivity,
         Vorex_AIForceIEPESensorSensitivityUnits)
#undef SIM_IEPE

SIM_EXPORT void zqvorexSim_createAIMicrophoneChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                     const char* name, int32_t terminalConfig, int32_t units,
                                                     double micSensitivity, double maxSndPressLevel,
                                                     int32_t currentExcitSource, double currentExcitVal,
                                                     const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  // The range is the pressure of the loudest sound: 20 micropascal at 0 dB.
  const double peak = 20e-6 * std::pow(10.0, maxSndPressLevel / 20.0);
  create(task, physical, name, kAI, kMeasMicrophone,
         {{Vorex_AITermCfg, Value::i32(termCfg(terminalConfig))},
          {Vorex_AIMin, Value::f64(-peak)},
          {Vorex_AIMax, Value::f64(peak)},
          {Vorex_AISoundPressureUnits, Value::i32(units)},
          {Vorex_AIMicrophoneSensitivity, Value::f64(micSensitivity)},
          {Vorex_AIExcitSrc, Value::i32(currentExcitSource)},
          {Vorex_AIExcitVal, Value::f64(currentExcitVal)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAIFreqVoltageChannel(zqvorexPlugin_Task_undefined* task,
                                                      const char* physical, const char* name, double minVal,
                                                      double maxVal, int32_t units, double thresholdLevel,
                                                      double hysteresis, const char* customScaleName,
                                                      zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAI, kMeasFreqVoltage,
         {{Vorex_AIMin, Value::f64(minVal)},
          {Vorex_AIMax, Value::f64(maxVal)},
          {Vorex_AIFreqUnits, Value::i32(units)},
          {Vorex_AIFreqThreshVoltage, Value::f64(thresholdLevel)},
          {Vorex_AIFreqHyst, Value::f64(hysteresis)}},
         customScaleName, created, status);
}

#define SIM_BRIDGES(Kind, type, unitsId)                                                                    \
  SIM_EXPORT void zqvorexSim_createAI##Kind##BridgeTwoPointLinChannel(                                      \
      zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, double minVal,            \
      double maxVal, int32_t units, int32_t bridgeConfig, int32_t voltageExcitSource,                       \
      double voltageExcitVal, double nominalGageResistance, double firstElectricalValue,                    \
      double secondElectricalValue, int32_t electricalUnits, double firstPhysicalValue,                     \
      double secondPhysicalValue, int32_t physicalUnits, const char* customScaleName,                       \
      zqgopher_IItemAdder* created, zqerr_Status* status) {                                                 \
    createBridge(                                                                                           \
        task, physical, name, type,                                                                         \
        twoPoint(bridge(minVal, maxVal, unitsId, units, bridgeConfig, voltageExcitSource, voltageExcitVal,  \
                        nominalGageResistance, electricalUnits, physicalUnits),                             \
                 firstElectricalValue, secondElectricalValue, firstPhysicalValue, secondPhysicalValue),     \
        customScaleName, created, status);                                                                  \
  }                                                                                                         \
  SIM_EXPORT void zqvorexSim_createAI##Kind##BridgeTableChannel(                                            \
      zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, double minVal,            \
      double maxVal, int32_t units, int32_t bridgeConfig, int32_t voltageExcitSource,                       \
      double voltageExcitVal, double nominalGageResistance, const zqgopher_ArrayView* electricalValues,     \
      int32_t electricalUnits, const zqgopher_ArrayView* physicalValues, int32_t physicalUnits,             \
      const char* customScaleName, zqgopher_IItemAdder* created, zqerr_Status* status) {                    \
    createBridge(task, physical, name, type,                                                                \
                 table(bridge(minVal, maxVal, unitsId, units, bridgeConfig, voltageExcitSource,             \
                              voltageExcitVal, nominalGageResistance, electricalUnits, physicalUnits),      \
                       electricalValues, physicalValues),                                                   \
                 customScaleName, created, status);                                                         \
  }                                                                                                         \
  SIM_EXPORT void zqvorexSim_createAI##Kind##BridgePolynomialChannel(                                       \
      zqvorexPlugin_Task_undefined* task, const char* physical, const char* name, double minVal,            \
      double maxVal, int32_t units, int32_t bridgeConfig, int32_t voltageExcitSource,                       \
      double voltageExcitVal, double nominalGageResistance, const zqgopher_ArrayView* forwardCoeffs,        \
      const zqgopher_ArrayView* reverseCoeffs, int32_t electricalUnits, int32_t physicalUnits,              \
      const char* customScaleName, zqgopher_IItemAdder* created, zqerr_Status* status) {                    \
    createBridge(task, physical, name, type,                                                                \
                 polynomial(bridge(minVal, maxVal, unitsId, units, bridgeConfig, voltageExcitSource,        \
                                   voltageExcitVal, nominalGageResistance, electricalUnits, physicalUnits), \
                            forwardCoeffs, reverseCoeffs),                                                  \
                 customScaleName, created, status);                                                         \
  }
SIM_BRIDGES(Force, kMeasForceBridge, Vorex_AIForceUnits)
SIM_BRIDGES(Pressure, kMeasPressureBridge, Vorex_AIPressureUnits)
SIM_BRIDGES(Torque, kMeasTorqueBridge, Vorex_AITorqueUnits)
#undef SIM_BRIDGES

SIM_EXPORT void zqvorexSim_createAOVoltageChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, double minVal, double maxVal,
                                                  int32_t units, const char* customScaleName,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAO, kMeasVoltage,
         {{Vorex_AOMin, Value::f64(minVal)},
          {Vorex_AOMax, Value::f64(maxVal)},
          {Vorex_AOVoltageUnits, Value::i32(units)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAOCurrentChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, double minVal, double maxVal,
                                                  int32_t units, const char* customScaleName,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAO, kMeasCurrent,
         {{Vorex_AOMin, Value::f64(minVal)},
          {Vorex_AOMax, Value::f64(maxVal)},
          {Vorex_AOCurrentUnits, Value::i32(units)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createAOFuncGenChannel(zqvorexPlugin_Task_undefined* task, const char* physical,
                                                  const char* name, int32_t type, double freq,
                                                  double amplitude, double offset,
                                                  zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, physical, name, kAO, kMeasFuncGen,
         {{Vorex_AOFuncGenType, Value::i32(type)},
          {Vorex_AOFuncGenFreq, Value::f64(freq)},
          {Vorex_AOFuncGenAmplitude, Value::f64(amplitude)},
          {Vorex_AOFuncGenOffset, Value::f64(offset)},
          {Vorex_AOMin, Value::f64(-DeviceModel::kOutputVoltageRange)},
          {Vorex_AOMax, Value::f64(DeviceModel::kOutputVoltageRange)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createDIChannel(zqvorexPlugin_Task_undefined* task, const char* lines,
                                           const char* name, int32_t lineGrouping,
                                           zqgopher_IItemAdder* created, zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status))
      createDigitalChannels(*t, lines, name, kDI, lineGrouping, created, status);
  });
}

SIM_EXPORT void zqvorexSim_createDOChannel(zqvorexPlugin_Task_undefined* task, const char* lines,
                                           const char* name, int32_t lineGrouping,
                                           zqgopher_IItemAdder* created, zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status))
      createDigitalChannels(*t, lines, name, kDO, lineGrouping, created, status);
  });
}

SIM_EXPORT void zqvorexSim_createCIFreqChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                               const char* name, double, double, int32_t units,
                                               int32_t startingEdge, int32_t measMethod, double measTime,
                                               uint32_t divisor, const char* customScaleName,
                                               zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasFreq,
         {{Vorex_CIFreqUnits, Value::i32(units)},
          {Vorex_CIFreqStartingEdge, Value::i32(startingEdge)},
          {Vorex_CIFreqMeasMeth, Value::i32(measMethod)},
          {Vorex_CIFreqMeasTime, Value::f64(measTime)},
          {Vorex_CIFreqDiv, Value::u32(divisor)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCIPeriodChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                 const char* name, double, double, int32_t units,
                                                 int32_t startingEdge, int32_t, double, uint32_t,
                                                 const char* customScaleName, zqgopher_IItemAdder* created,
                                                 zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasPeriod,
         {{Vorex_CIPeriodUnits, Value::i32(units)}, {Vorex_CIPeriodStartingEdge, Value::i32(startingEdge)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCICountEdgesChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, int32_t edge, uint32_t initialCount,
                                                     int32_t countDirection, zqgopher_IItemAdder* created,
                                                     zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasCountEdges,
         {{Vorex_CICountEdgesActiveEdge, Value::i32(edge)},
          {Vorex_CICountEdgesInitialCnt, Value::u32(initialCount)},
          {Vorex_CICountEdgesDir, Value::i32(countDirection)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createCIDutyCycleChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                    const char* name, double, double, int32_t startingEdge,
                                                    const char* customScaleName, zqgopher_IItemAdder* created,
                                                    zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasDutyCycle,
         {{Vorex_CIDutyCycleStartingEdge, Value::i32(startingEdge)}}, customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCIPulseWidthChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, double, double, int32_t units,
                                                     int32_t startingEdge, const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasPulseWidth,
         {{Vorex_CIPulseWidthUnits, Value::i32(units)},
          {Vorex_CIPulseWidthStartingEdge, Value::i32(startingEdge)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCISemiPeriodChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, double, double, int32_t units,
                                                     const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasSemiPeriod, {{Vorex_CISemiPeriodUnits, Value::i32(units)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCITwoEdgeSepChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, double, double, int32_t units,
                                                     int32_t firstEdge, int32_t secondEdge,
                                                     const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasTwoEdgeSep,
         {{Vorex_CITwoEdgeSepUnits, Value::i32(units)},
          {Vorex_CITwoEdgeSepFirstEdge, Value::i32(firstEdge)},
          {Vorex_CITwoEdgeSepSecondEdge, Value::i32(secondEdge)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCILinEncoderChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, int32_t decodingType,
                                                     uint32_t ZidxEnable, double ZidxVal, int32_t ZidxPhase,
                                                     int32_t units, double distPerPulse, double initialPos,
                                                     const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasLinEncoder,
         {{Vorex_CIEncoderDecodingType, Value::i32(decodingType)},
          {Vorex_CIEncoderZIndexEnable, Value::boolean(ZidxEnable != 0)},
          {Vorex_CIEncoderZIndexVal, Value::f64(ZidxVal)},
          {Vorex_CIEncoderZIndexPhase, Value::i32(ZidxPhase)},
          {Vorex_CILinEncoderUnits, Value::i32(units)},
          {Vorex_CILinEncoderDistPerPulse, Value::f64(distPerPulse)},
          {Vorex_CILinEncoderInitialPos, Value::f64(initialPos)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCIAngEncoderChannel(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, int32_t decodingType,
                                                     uint32_t ZidxEnable, double ZidxVal, int32_t ZidxPhase,
                                                     int32_t units, uint32_t pulsesPerRev,
                                                     double initialAngle, const char* customScaleName,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasAngEncoder,
         {{Vorex_CIEncoderDecodingType, Value::i32(decodingType)},
          {Vorex_CIEncoderZIndexEnable, Value::boolean(ZidxEnable != 0)},
          {Vorex_CIEncoderZIndexVal, Value::f64(ZidxVal)},
          {Vorex_CIEncoderZIndexPhase, Value::i32(ZidxPhase)},
          {Vorex_CIAngEncoderUnits, Value::i32(units)},
          {Vorex_CIAngEncoderPulsesPerRev, Value::u32(pulsesPerRev)},
          {Vorex_CIAngEncoderInitialAngle, Value::f64(initialAngle)}},
         customScaleName, created, status);
}

SIM_EXPORT void zqvorexSim_createCIPulseChannelFreq(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                    const char* name, double, double, int32_t units,
                                                    zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasPulseFreq, {{Vorex_CIPulseFreqUnits, Value::i32(units)}}, nullptr,
         created, status);
}

SIM_EXPORT void zqvorexSim_createCIPulseChannelTime(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                    const char* name, double, double, int32_t units,
                                                    zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCI, kMeasPulseTime, {{Vorex_CIPulseTimeUnits, Value::i32(units)}}, nullptr,
         created, status);
}

SIM_EXPORT void zqvorexSim_createCIPulseChannelTicks(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, const char* sourceTerminal, double,
                                                     double, zqgopher_IItemAdder* created,
                                                     zqerr_Status* status) {
  (void)sourceTerminal;  // the timebase whose ticks are counted: always the 100 MHz one
  create(task, counter, name, kCI, kMeasPulseTicks, {}, nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createCOPulseChannelFreq(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                    const char* name, int32_t units, int32_t idleState,
                                                    double initialDelay, double freq, double dutyCycle,
                                                    zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCO, kPulseFreq,
         {{Vorex_COPulseFreqUnits, Value::i32(units)},
          {Vorex_COPulseIdleState, Value::i32(idleState)},
          {Vorex_COPulseFreqInitialDelay, Value::f64(initialDelay)},
          {Vorex_COPulseFreq, Value::f64(freq)},
          {Vorex_COPulseDutyCyc, Value::f64(dutyCycle)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createCOPulseChannelTime(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                    const char* name, int32_t units, int32_t idleState,
                                                    double initialDelay, double lowTime, double highTime,
                                                    zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCO, kPulseTime,
         {{Vorex_COPulseTimeUnits, Value::i32(units)},
          {Vorex_COPulseIdleState, Value::i32(idleState)},
          {Vorex_COPulseTimeInitialDelay, Value::f64(initialDelay)},
          {Vorex_COPulseLowTime, Value::f64(lowTime)},
          {Vorex_COPulseHighTime, Value::f64(highTime)}},
         nullptr, created, status);
}

SIM_EXPORT void zqvorexSim_createCOPulseChannelTicks(zqvorexPlugin_Task_undefined* task, const char* counter,
                                                     const char* name, const char* sourceTerminal,
                                                     int32_t idleState, int32_t initialDelay,
                                                     int32_t lowTicks, int32_t highTicks,
                                                     zqgopher_IItemAdder* created, zqerr_Status* status) {
  create(task, counter, name, kCO, kPulseTicks,
         {{Vorex_COCtrTimebaseSrc, Value::string(sourceTerminal ? sourceTerminal : "")},
          {Vorex_COPulseIdleState, Value::i32(idleState)},
          {Vorex_COPulseTicksInitialDelay, Value::u32(static_cast<uint32_t>(std::max(initialDelay, 0)))},
          {Vorex_COPulseLowTicks, Value::u32(static_cast<uint32_t>(std::max(lowTicks, 0)))},
          {Vorex_COPulseHighTicks, Value::u32(static_cast<uint32_t>(std::max(highTicks, 0)))}},
         nullptr, created, status);
}

SIM_SIGNATURE(createAIVoltageChannel);
SIM_SIGNATURE(createAICurrentChannel);
SIM_SIGNATURE(createAIThrmcplChannel);
SIM_SIGNATURE(createAIRTDChannel);
SIM_SIGNATURE(createAIThrmstrChannelIex);
SIM_SIGNATURE(createAIThrmstrChannelVex);
SIM_SIGNATURE(createAITempBuiltInSensorChannel);
SIM_SIGNATURE(createAIResistanceChannel);
SIM_SIGNATURE(createAIStrainGageChannel);
SIM_SIGNATURE(createAIBridgeChannel);
SIM_SIGNATURE(createAIVoltageChannelWithExcit);
SIM_SIGNATURE(createAIAccelChannel);
SIM_SIGNATURE(createAIVelocityIEPEChannel);
SIM_SIGNATURE(createAIForceIEPEChannel);
SIM_SIGNATURE(createAIMicrophoneChannel);
SIM_SIGNATURE(createAIFreqVoltageChannel);
SIM_SIGNATURE(createAIForceBridgeTwoPointLinChannel);
SIM_SIGNATURE(createAIForceBridgeTableChannel);
SIM_SIGNATURE(createAIForceBridgePolynomialChannel);
SIM_SIGNATURE(createAIPressureBridgeTwoPointLinChannel);
SIM_SIGNATURE(createAIPressureBridgeTableChannel);
SIM_SIGNATURE(createAIPressureBridgePolynomialChannel);
SIM_SIGNATURE(createAITorqueBridgeTwoPointLinChannel);
SIM_SIGNATURE(createAITorqueBridgeTableChannel);
SIM_SIGNATURE(createAITorqueBridgePolynomialChannel);
SIM_SIGNATURE(createAOVoltageChannel);
SIM_SIGNATURE(createAOCurrentChannel);
SIM_SIGNATURE(createAOFuncGenChannel);
SIM_SIGNATURE(createDIChannel);
SIM_SIGNATURE(createDOChannel);
SIM_SIGNATURE(createCIFreqChannel);
SIM_SIGNATURE(createCIPeriodChannel);
SIM_SIGNATURE(createCICountEdgesChannel);
SIM_SIGNATURE(createCIDutyCycleChannel);
SIM_SIGNATURE(createCIPulseWidthChannel);
SIM_SIGNATURE(createCISemiPeriodChannel);
SIM_SIGNATURE(createCITwoEdgeSepChannel);
SIM_SIGNATURE(createCILinEncoderChannel);
SIM_SIGNATURE(createCIAngEncoderChannel);
SIM_SIGNATURE(createCIPulseChannelFreq);
SIM_SIGNATURE(createCIPulseChannelTime);
SIM_SIGNATURE(createCIPulseChannelTicks);
SIM_SIGNATURE(createCOPulseChannelFreq);
SIM_SIGNATURE(createCOPulseChannelTime);
SIM_SIGNATURE(createCOPulseChannelTicks);
