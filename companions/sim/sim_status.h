// How the plug-in reports: the caller's status record takes a code by the common rule (the
// first error wins, an error replaces a warning, 0 is replaced by anything) and a JSON report
// written through the record's own storage callback, with usage items for the translator.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "zqvorex_status.h"
#include "zqvorex_status_codes.h"

namespace zqsim {

// A status code with the name its report carries as "error_constant".
struct Code {
  int32_t value;
  const char* constant;
};
#define SIM_CODE(name) \
  ::zqsim::Code { name, #name }

inline bool isOpen(const zqerr_Status* status) { return status != nullptr && status->code >= 0; }
inline bool replaces(int32_t present, int32_t next) {
  return (present == 0 && next != 0) || (present > 0 && next < 0);
}

// A status of the plug-in's own, for steps whose outcome is dropped (closing sessions) or
// looked at before it reaches the caller. It frees its report at the end.
class LocalStatus : public zqerr_Status {
 public:
  LocalStatus();
  ~LocalStatus();
  LocalStatus(const LocalStatus&) = delete;
  LocalStatus& operator=(const LocalStatus&) = delete;
};
// Moves code and report of `from` into `to` under the rule.
void merge(zqerr_Status* to, const zqerr_Status& from);

// Usage items of "ordered_data", in the order the explanation wants them.
class Items {
 public:
  Items& text(const char* usage, std::string_view value);
  Items& texts(const char* usage, const std::vector<std::string>& values);
  Items& i32(const char* usage, int32_t value);
  Items& u32(const char* usage, uint32_t value);
  Items& u64(const char* usage, uint64_t value);
  // A real number goes as text: the report has no floating-point value type.
  Items& f64(const char* usage, double value);
  // The attribute, with its name as the comment when the plug-in knows it.
  Items& attribute(int32_t id);
  bool empty() const { return json_.empty(); }
  const std::string& json() const { return json_; }

 private:
  void begin(const char* usage);
  std::string json_;
};

// Sets `code` under the rule; when it took, the report becomes the site and the items.
// Returns whether the code took.
bool fail(zqerr_Status* status, Code code, const char* where, uint32_t line, const Items& items = Items());
#define SIM_FAIL(status, code, ...) \
  ::zqsim::fail(status, SIM_CODE(code), ::zqsim::siteName(__FILE__), __LINE__ __VA_OPT__(, ) __VA_ARGS__)

// The file part of a path, without folders: what the report shows as "file".
const char* siteName(const char* path);

// Writes `report` as the status's whole report text through its storage callback.
void writeReport(zqerr_Status* status, std::string_view report);

// JSON text of a string, quotes included.
std::string quoted(std::string_view text);
std::string formatReal(double value);

// Usage names of this plug-in's reports beside those the library writes.
namespace usage {
inline constexpr const char* kAttribute = "kUsageTypeAttributeIdentifier";
inline constexpr const char* kValueRequested = "kUsageTypeValueRequested";
inline constexpr const char* kMinimum = "kUsageTypeMinimumValue";
inline constexpr const char* kMaximum = "kUsageTypeMaximumValue";
inline constexpr const char* kAllowedValues = "kUsageTypeAllowedValues";
inline constexpr const char* kChannelName = "kUsageTypeChannelName";
inline constexpr const char* kPhysicalChannel = "kUsageTypePhysicalChannelName";
inline constexpr const char* kDevice = "kUsageTypeDeviceSpecified";
inline constexpr const char* kTerminal = "kUsageTypeTerminalName";
inline constexpr const char* kTaskName = "kUsageTypeTaskName";
inline constexpr const char* kOtherTask = "kUsageTypeReservingTaskName";
inline constexpr const char* kResource = "kUsageTypeResourceName";
inline constexpr const char* kTimeout = "kUsageTypeTimeout";
inline constexpr const char* kRequestedSamples = "kUsageTypeRequestedNumberSamples";
inline constexpr const char* kAvailableSamples = "kUsageTypeAvailableSamples";
inline constexpr const char* kReadPosition = "kUsageTypeReadPosition";
inline constexpr const char* kBufferSize = "kUsageTypeBufferSizeInSamps";
inline constexpr const char* kSamplesGenerated = "kUsageTypeSamplesGenerated";
inline constexpr const char* kSamplesWritten = "kUsageTypeSamplesWritten";
inline constexpr const char* kMeasurementType = "kUsageTypeMeasurementType";
inline constexpr const char* kOperation = "kUsageTypeOperationName";
inline constexpr const char* kEventType = "kUsageTypeSignalEventType";
inline constexpr const char* kFile = "kUsageTypeFileName";
inline constexpr const char* kDetail = "kUsageTypeDetail";
}  // namespace usage

}  // namespace zqsim
