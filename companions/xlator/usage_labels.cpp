#include "usage_labels.h"

#include <cctype>

namespace qxlator {

namespace {

struct Label {
  const char* usage;
  const char* label;
};

// Usages the driver writes, then usages its plug-ins write.
constexpr Label kLabels[] = {
    {"kUsageTypeBufferLength", "Buffer Length"},
    {"kUsageTypeReqBufSizeInBytes", "Required Buffer Size in Bytes"},
    {"kUsageTypeReqBufSizeInSamps", "Required Buffer Size in Samples"},
    {"kUsageTypeAttributeIdentifier", "Attribute"},
    {"kUsageTypeRequestedNumberTerminals", "Number of Terminals Given"},
    {"kUsageTypeParamNum", "Parameter Number"},
    {"kUsageTypeNumSampsToWrite", "Samples per Channel to Write"},
    {"kUsageTypeRequestedNumberSamples", "Samples per Channel Requested"},
    {"kUsageTypeRequestedIndex", "Index Requested"},
    {"kUsageTypeNumberOfChannelsInTask", "Number of Channels in Task"},
    {"kUsageTypeNumberOfDevicesInTask", "Number of Devices in Task"},
    {"kUsageTypeTaskName", "Task Name"},
    {"kUsageTypeChannelName", "Channel Name"},
    {"kUsageTypeLibraryName", "Library"},
    {"kUsageTypeProcedureName", "Function"},
    {"kUsageTypeInvalidTaskName", "Task Name Given"},
    {"kUsageTypeInvalidString", "Text Given"},
    {"kUsageTypePositionOfInvalidCharacter", "Position of Invalid Character"},
    {"kUsageTypeMaxNumObjects", "Largest Number of Items in a Range"},
    {"kUsageTypeMaxNumberInRange", "Largest Number Allowed in a Range"},
    {"kUsageTypeDeviceSpecified", "Device"},
    {"kUsageTypeSuggestedDevices", "Devices Available"},
    {"kUsageTypeSignalEventType", "Signal"},
    {"kUsageTypeAttributeId", "Attribute"},
    {"kUsageTypeAffectedAttribute", "Affected Attribute"},
    {"kUsageTypeConflictingAttr", "Conflicting Attribute"},
    {"kUsageTypeConflictingProperty", "Conflicting Property"},
    {"kUsageTypeUnspecifiedProperty", "Property"},
    {"kUsageTypePhysicalChannel", "Physical Channel"},
};

constexpr std::string_view kPrefix = "kUsageType";

bool isUpper(char c) { return std::isupper(static_cast<unsigned char>(c)) != 0; }
bool isLower(char c) { return std::islower(static_cast<unsigned char>(c)) != 0; }

}  // namespace

const char* tableLabel(std::string_view usage) {
  for (const Label& row : kLabels)
    if (usage == row.usage) return row.label;
  return nullptr;
}

std::string usageLabel(std::string_view usage) {
  if (const char* label = tableLabel(usage)) return label;
  std::string_view name = usage.starts_with(kPrefix) && usage.size() > kPrefix.size() ? usage.substr(kPrefix.size()) : usage;
  std::string words;
  for (size_t i = 0; i < name.size(); ++i) {
    // A word starts at a capital that follows a small letter, or that ends a run of capitals.
    const bool startsWord = i > 0 && isUpper(name[i]) &&
                            (isLower(name[i - 1]) || (i + 1 < name.size() && isLower(name[i + 1])));
    if (startsWord) words += ' ';
    words += name[i];
  }
  return words;
}

}  // namespace qxlator
