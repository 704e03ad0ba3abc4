// Status constants under the names that error sites write. The name text is part of the
// report ("error_constant"), so each stands under the namespace its sites use.
#pragma once

#include <cstdint>

inline constexpr int32_t zqpalerr_badSelector = -50003;
inline constexpr int32_t zqpalerr_badPointer = -50004;
inline constexpr int32_t zqpalerr_badCount = -50008;
inline constexpr int32_t zqpalerr_softwareFault = -50150;
inline constexpr int32_t zqpalerr_calculationOverflow = -50175;
inline constexpr int32_t zqapalerr_memoryFull = -52000;
inline constexpr int32_t zqapalerr_featureUnsupported = -52002;
inline constexpr int32_t zqapalerr_dynamicCastFailed = -52004;
inline constexpr int32_t zqapalerr_invalidParameter = -52005;
inline constexpr int32_t zqapalerr_resourceNotFound = -52006;
inline constexpr int32_t zqapalerr_osFault = -52008;
inline constexpr int32_t zqapalerr_bufferTooSmall = -52019;

namespace nZQMSTS {
inline constexpr int32_t kErrorInvalidTask = -200088;
inline constexpr int32_t kErrorDuplicateTask = -200089;
inline constexpr int32_t kErrorLibraryNotPresent = -200090;
inline constexpr int32_t kErrorFunctionNotInLibrary = -200091;
inline constexpr int32_t kErrorFunctionNotSupportedForDeviceTasks = -200092;
inline constexpr int32_t kErrorPhysicalChannelNotSpecified = -200099;
inline constexpr int32_t kErrorInvalidDeviceID = -200220;
inline constexpr int32_t kErrorBufferTooSmallForString = -200228;
inline constexpr int32_t kErrorNULLPtrForC_Api = -200230;
inline constexpr int32_t kErrorInvalidSignalTypeExportSignal = -200374;
inline constexpr int32_t kErrorUnsupportedSignalTypeExportSignal = -200375;
inline constexpr int32_t kErrorGrafoInvalidTaskOrChans = -200428;
inline constexpr int32_t kErrorGrafoEmptyTaskOrChans = -200429;
inline constexpr int32_t kErrorAttributeNotSupportedInTaskContext = -200452;
inline constexpr int32_t kErrorCanNotPerformOpWhenNoDevInTask = -200477;
inline constexpr int32_t kErrorCanNotPerformOpWhenNoChansInTask = -200478;
inline constexpr int32_t kErrorTaskNotInDataNeighborhood = -200485;
inline constexpr int32_t kErrorChanNotInTask = -200486;
inline constexpr int32_t kErrorNULLPtr = -200604;
inline constexpr int32_t kErrorMismatchedInputArraySizes = -200672;
inline constexpr int32_t kErrorSignalEventAlreadyRegistered = -200949;
inline constexpr int32_t kErrorDoneEventAlreadyRegistered = -200950;
inline constexpr int32_t kErrorEveryNSampsAcqIntoBufferEventAlreadyRegistered = -200966;
inline constexpr int32_t kErrorEveryNSampsTransferredFromBufferEventAlreadyRegistered = -200967;
inline constexpr int32_t kErrorFunctionNotSupportedForDevice = -209876;
}  // namespace nZQMSTS

namespace nZQMSTS100 {
inline constexpr int32_t kErrorInvalidTask = -200088;
inline constexpr int32_t kErrorInvalidNumberSamplesToRead = -200096;
inline constexpr int32_t kErrorMoreThanOneTerminal = -200098;
inline constexpr int32_t kErrorReadBufferTooSmall = -200229;
inline constexpr int32_t kErrorNULLPtrForC_Api = -200230;
inline constexpr int32_t kErrorAttrCannotBeSet = -200231;
inline constexpr int32_t kErrorSpecifiedAttrNotValid = -200233;
inline constexpr int32_t kErrorAttrCannotBeReset = -200236;
inline constexpr int32_t kErrorVirtualChanDoesNotExist = -200488;
inline constexpr int32_t kErrorReservedParamNotNULL = -200492;
inline constexpr int32_t kErrorNULLPtr = -200604;
inline constexpr int32_t kErrorNonbufferedOrNoChannels = -201395;
inline constexpr int32_t kErrorInvalidNumberSamplesToWrite = -200622;
inline constexpr int32_t kErrorFunctionObsolete = -209823;
}  // namespace nZQMSTS100

namespace nZQMESL {
inline constexpr int32_t kInternalErrorDebugConfigurationNotCommitted = -223804;
inline constexpr int32_t kInternalErrorObjectNotFound = -223807;
inline constexpr int32_t kInternalErrorCannotSetPropertyWhenDebugSessionCommitted = -223841;
inline constexpr int32_t kInternalErrorEventAlreadyRegisteredInTask = -229672;
}  // namespace nZQMESL

namespace nZQMESL100 {
inline constexpr int32_t kInternalErrorIllegalNumberOfTasksFoundInTaskINI = -224514;
}  // namespace nZQMESL100
