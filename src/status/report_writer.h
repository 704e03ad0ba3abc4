// The in-place JSON editor of status reports. A writer is a cursor into the report plus a
// grow callback; every operation returns the next writer, with a null cursor when the text
// did not fit and could not be grown. Operations on a null cursor do nothing, so a chain of
// writes needs one test at its end.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>

#include "status.h"

namespace zqerr {

// Grows the buffer behind `cursor` and returns the cursor at the same offset, or null.
using GrowFn = char* (*)(void* context, char* cursor);

struct ReportWriter {
  char* cursor = nullptr;
  GrowFn grow = nullptr;
  void* context = nullptr;
  explicit operator bool() const { return cursor != nullptr; }
};

// The standard grow callback over a zqerr_Status context.
char* growStatusReport(void* status, char* cursor);

// A writer on the root object's closing brace, after raising the capacity to 4 and checking
// the text. Null cursor when the report is not a valid object.
ReportWriter rootWriter(zqerr_Status* status);

// A null key writes an array element. The cursor stands on the closing character of the
// container to append to, or on its opening character to prepend.
ReportWriter writeString(ReportWriter w, const char* key, std::string_view text);
ReportWriter writeInt32(ReportWriter w, const char* key, int32_t value);
ReportWriter writeUint32(ReportWriter w, const char* key, uint32_t value);
ReportWriter writeUint64(ReportWriter w, const char* key, uint64_t value);
ReportWriter writeRaw(ReportWriter w, const char* key, std::string_view json);
// These write an empty container; step the cursor back one byte to land inside it.
ReportWriter writeObject(ReportWriter w, const char* key);
ReportWriter writeArray(ReportWriter w, const char* key);

// The "translator_info" object of `translatorName`, made if missing; null cursor if the
// report belongs to another translator or is not valid JSON.
ReportWriter openTranslatorInfo(zqerr_Status* status, const char* translatorName);
// A writer inside "ordered_data" of "translator_info", ready to append items.
ReportWriter openOrderedData(zqerr_Status* status, const char* translatorName);

inline constexpr const char* kTranslatorZqvorex = "qxlator_zqvorex";

// Usage items, each followed by the next. The int32 form adds "comment" for the usages that
// carry an attribute id.
ReportWriter addItem(ReportWriter w, const char* usage, int32_t value);
// An int32 item that never carries the comment, whatever its usage.
ReportWriter addPlainItem(ReportWriter w, const char* usage, int32_t value);
ReportWriter addItem(ReportWriter w, const char* usage, uint32_t value);
ReportWriter addItem(ReportWriter w, const char* usage, uint64_t value);
ReportWriter addItem(ReportWriter w, const char* usage, std::string_view value);
inline ReportWriter addItem(ReportWriter w, const char* usage, const char* value) {
  return addItem(w, usage, std::string_view(value ? value : ""));
}
ReportWriter addItem(ReportWriter w, const char* usage, const std::string_view* values, size_t count);
ReportWriter addEmptyItem(ReportWriter w);

// Adds "std_exception_what" at the root.
void addExceptionWhat(zqerr_Status* status, const char* what);

// The attribute rule: true for the usages whose int32 value is an attribute id.
bool isAttributeUsage(std::string_view usage);

}  // namespace zqerr

// Usage names, written as they stand into "usage": every usage that this library writes, and
// those that plug-ins write into the reports the library reads.
#define ZQ_USAGE_NAMES(X) \
  X(kUsageTypeBufferLength) \
  X(kUsageTypeReqBufSizeInBytes) \
  X(kUsageTypeReqBufSizeInSamps) \
  X(kUsageTypeAttributeIdentifier) \
  X(kUsageTypeRequestedNumberTerminals) \
  X(kUsageTypeParamNum) \
  X(kUsageTypeNumSampsToWrite) \
  X(kUsageTypeRequestedNumberSamples) \
  X(kUsageTypeRequestedIndex) \
  X(kUsageTypeNumberOfChannelsInTask) \
  X(kUsageTypeNumberOfDevicesInTask) \
  X(kUsageTypeTaskName) \
  X(kUsageTypeChannelName) \
  X(kUsageTypeLibraryName) \
  X(kUsageTypeProcedureName) \
  X(kUsageTypeInvalidTaskName) \
  X(kUsageTypeInvalidString) \
  X(kUsageTypePositionOfInvalidCharacter) \
  X(kUsageTypeMaxNumObjects) \
  X(kUsageTypeMaxNumberInRange) \
  X(kUsageTypeDeviceSpecified) \
  X(kUsageTypeSuggestedDevices) \
  X(kUsageTypeSignalEventType) \
  X(kUsageTypeAttributeId) \
  X(kUsageTypeAffectedAttribute) \
  X(kUsageTypeConflictingAttr) \
  X(kUsageTypeConflictingProperty) \
  X(kUsageTypeUnspecifiedProperty)

namespace zqerr::usage {
#define ZQ_USAGE(name) inline constexpr const char* name = #name;
ZQ_USAGE_NAMES(ZQ_USAGE)
#undef ZQ_USAGE
#define ZQ_USAGE(name) name,
inline constexpr const char* kAllUsages[] = {ZQ_USAGE_NAMES(ZQ_USAGE)};
#undef ZQ_USAGE
}  // namespace zqerr::usage
