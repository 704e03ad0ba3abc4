// Channel types the simulated device does not model: each is refused with a status that names
// the type, never taken silently.
#include "channel_create.h"
#include "sim_export.h"

using namespace zqsim;

SIM_EXPORT void zqvorexSim_createChannel(zqvorexPlugin_Task_undefined*, const char* physical, const char*,
                                         int32_t, int32_t, int32_t, const char*, zqgopher_IItemAdder*,
                                         zqerr_Status* status) {
  refuseChannelType(physical, "Channel", status);
}

SIM_EXPORT void zqvorexSim_createTedsChannel(zqvorexPlugin_Task_undefined*, const char* physical, const char*,
                                             int32_t, int32_t, int32_t, const char*, zqgopher_IItemAdder*,
                                             zqerr_Status* status) {
  refuseChannelType(physical, "Teds", status);
}

SIM_EXPORT void zqvorexSim_createAIAccel4WireDCVoltageChannel(zqvorexPlugin_Task_undefined*,
                                                              const char* physical, const char*, int32_t,
                                                              double, double, int32_t, double, int32_t,
                                                              int32_t, double, uint32_t, const char*,
                                                              zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "AIAccel4WireDCVoltage", status);
}

SIM_EXPORT void zqvorexSim_createAIAccelChargeChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, int32_t, double, double, int32_t, double,
                                                      int32_t, const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "AIAccelCharge", status);
}

SIM_EXPORT void zqvorexSim_createAIChargeChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                 const char*, int32_t, double, double, int32_t, const char*,
                                                 zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "AICharge", status);
}

SIM_EXPORT void zqvorexSim_createAIPowerChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                const char*, double, double, uint32_t, zqgopher_IItemAdder*,
                                                zqerr_Status* status) {
  refuseChannelType(physical, "AIPower", status);
}

SIM_EXPORT void zqvorexSim_createAIVoltageRMSChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                     const char*, int32_t, double, double, int32_t,
                                                     const char*, zqgopher_IItemAdder*,
                                                     zqerr_Status* status) {
  refuseChannelType(physical, "AIVoltageRMS", status);
}

SIM_EXPORT void zqvorexSim_createAICurrentRMSChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                     const char*, int32_t, double, double, int32_t, int32_t,
                                                     double, const char*, zqgopher_IItemAdder*,
                                                     zqerr_Status* status) {
  refuseChannelType(physical, "AICurrentRMS", status);
}

SIM_EXPORT void zqvorexSim_createAIRosetteStrainGageChannel(zqvorexPlugin_Task_undefined*,
                                                            const char* physical, const char*, double, double,
                                                            int32_t, double, const zqgopher_ArrayView*,
                                                            int32_t, int32_t, double, double, double, double,
                                                            double, zqgopher_IItemAdder*,
                                                            zqerr_Status* status) {
  refuseChannelType(physical, "AIRosetteStrainGage", status);
}

SIM_EXPORT void zqvorexSim_createStrainRosetteChannels(zqvorexPlugin_Task_undefined*, const char* physical,
                                                       const char*, double, double, int32_t, double,
                                                       const zqgopher_ArrayView*, int32_t, int32_t, double,
                                                       double, double, double, double, zqgopher_IItemAdder*,
                                                       zqerr_Status* status) {
  refuseChannelType(physical, "StrainRosette", status);
}

SIM_EXPORT void zqvorexSim_createAIPosLVDTChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                  const char*, double, double, int32_t, double, int32_t,
                                                  int32_t, double, double, int32_t, const char*,
                                                  zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "AIPosLVDT", status);
}

SIM_EXPORT void zqvorexSim_createAIPosRVDTChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                  const char*, double, double, int32_t, double, int32_t,
                                                  int32_t, double, double, int32_t, const char*,
                                                  zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "AIPosRVDT", status);
}

SIM_EXPORT void zqvorexSim_createAIPosEddyCurrProxProbeChannel(zqvorexPlugin_Task_undefined*,
                                                               const char* physical, const char*, double,
                                                               double, int32_t, double, int32_t, const char*,
                                                               zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "AIPosEddyCurrProxProbe", status);
}

SIM_EXPORT void zqvorexSim_createCILinVelocityChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, double, double, int32_t, int32_t, double,
                                                      const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "CILinVelocity", status);
}

SIM_EXPORT void zqvorexSim_createCIAngVelocityChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, double, double, int32_t, int32_t, uint32_t,
                                                      const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "CIAngVelocity", status);
}

SIM_EXPORT void zqvorexSim_createCIGPSTimestampChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                       const char*, int32_t, int32_t, const char*,
                                                       zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "CIGPSTimestamp", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIVoltageChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, int32_t, double, double, int32_t,
                                                      const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIVoltage", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAICurrentChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, int32_t, double, double, int32_t, int32_t,
                                                      double, const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAICurrent", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIThrmcplChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, double, double, int32_t, int32_t, double,
                                                      const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIThrmcpl", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIRTDChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                  const char*, double, double, int32_t, int32_t, int32_t,
                                                  double, zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIRTD", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIThrmstrChannelIex(zqvorexPlugin_Task_undefined*, const char* physical,
                                                         const char*, double, double, int32_t, int32_t,
                                                         int32_t, double, zqgopher_IItemAdder*,
                                                         zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIThrmstrChannelIex", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIThrmstrChannelVex(zqvorexPlugin_Task_undefined*, const char* physical,
                                                         const char*, double, double, int32_t, int32_t,
                                                         int32_t, double, zqgopher_IItemAdder*,
                                                         zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIThrmstrChannelVex", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIResistanceChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                         const char*, double, double, int32_t, int32_t,
                                                         int32_t, double, const char*, zqgopher_IItemAdder*,
                                                         zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIResistance", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIStrainGageChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                         const char*, double, double, int32_t, int32_t,
                                                         double, double, double, const char*,
                                                         zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIStrainGage", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIForceBridgeChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                          const char*, double, double, int32_t, int32_t,
                                                          double, const char*, zqgopher_IItemAdder*,
                                                          zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIForceBridge", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIPressureBridgeChannel(zqvorexPlugin_Task_undefined*,
                                                             const char* physical, const char*, double,
                                                             double, int32_t, int32_t, double, const char*,
                                                             zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIPressureBridge", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAITorqueBridgeChannel(zqvorexPlugin_Task_undefined*,
                                                           const char* physical, const char*, double, double,
                                                           int32_t, int32_t, double, const char*,
                                                           zqgopher_IItemAdder*, zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAITorqueBridge", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIBridgeChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                     const char*, double, double, int32_t, int32_t, double,
                                                     const char*, zqgopher_IItemAdder*,
                                                     zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIBridge", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIVoltageChannelWithExcit(zqvorexPlugin_Task_undefined*,
                                                               const char* physical, const char*, int32_t,
                                                               double, double, int32_t, int32_t, double,
                                                               const char*, zqgopher_IItemAdder*,
                                                               zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIVoltageChannelWithExcit", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIPosLVDTChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, double, double, int32_t, int32_t, double,
                                                      double, int32_t, const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIPosLVDT", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIPosRVDTChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                      const char*, double, double, int32_t, int32_t, double,
                                                      double, int32_t, const char*, zqgopher_IItemAdder*,
                                                      zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIPosRVDT", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIAccelChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                    const char*, int32_t, double, double, int32_t, int32_t,
                                                    double, const char*, zqgopher_IItemAdder*,
                                                    zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIAccel", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIForceIEPEChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                        const char*, int32_t, double, double, int32_t,
                                                        int32_t, double, const char*, zqgopher_IItemAdder*,
                                                        zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIForceIEPE", status);
}

SIM_EXPORT void zqvorexSim_createTEDSAIMicrophoneChannel(zqvorexPlugin_Task_undefined*, const char* physical,
                                                         const char*, int32_t, int32_t, double, int32_t,
                                                         double, const char*, zqgopher_IItemAdder*,
                                                         zqerr_Status* status) {
  refuseChannelType(physical, "TEDSAIMicrophone", status);
}

SIM_SIGNATURE(createChannel);
SIM_SIGNATURE(createTedsChannel);
SIM_SIGNATURE(createAIAccel4WireDCVoltageChannel);
SIM_SIGNATURE(createAIAccelChargeChannel);
SIM_SIGNATURE(createAIChargeChannel);
SIM_SIGNATURE(createAIPowerChannel);
SIM_SIGNATURE(createAIVoltageRMSChannel);
SIM_SIGNATURE(createAICurrentRMSChannel);
SIM_SIGNATURE(createAIRosetteStrainGageChannel);
SIM_SIGNATURE(createStrainRosetteChannels);
SIM_SIGNATURE(createAIPosLVDTChannel);
SIM_SIGNATURE(createAIPosRVDTChannel);
SIM_SIGNATURE(createAIPosEddyCurrProxProbeChannel);
SIM_SIGNATURE(createCILinVelocityChannel);
SIM_SIGNATURE(createCIAngVelocityChannel);
SIM_SIGNATURE(createCIGPSTimestampChannel);
SIM_SIGNATURE(createTEDSAIVoltageChannel);
SIM_SIGNATURE(createTEDSAICurrentChannel);
SIM_SIGNATURE(createTEDSAIThrmcplChannel);
SIM_SIGNATURE(createTEDSAIRTDChannel);
SIM_SIGNATURE(createTEDSAIThrmstrChannelIex);
SIM_SIGNATURE(createTEDSAIThrmstrChannelVex);
SIM_SIGNATURE(createTEDSAIResistanceChannel);
SIM_SIGNATURE(createTEDSAIStrainGageChannel);
SIM_SIGNATURE(createTEDSAIForceBridgeChannel);
SIM_SIGNATURE(createTEDSAIPressureBridgeChannel);
SIM_SIGNATURE(createTEDSAITorqueBridgeChannel);
SIM_SIGNATURE(createTEDSAIBridgeChannel);
SIM_SIGNATURE(createTEDSAIVoltageChannelWithExcit);
SIM_SIGNATURE(createTEDSAIPosLVDTChannel);
SIM_SIGNATURE(createTEDSAIPosRVDTChannel);
SIM_SIGNATURE(createTEDSAIAccelChannel);
SIM_SIGNATURE(createTEDSAIForceIEPEChannel);
SIM_SIGNATURE(createTEDSAIMicrophoneChannel);
