#include "timing/timestamp_events.h"

namespace zqtiming {

const char* timestampEventName(int32_t event) noexcept {
  switch (event) {
    case 12490: return "ReferenceTrigger";
    case 12491: return "StartTrigger";
    case 14641: return "ArmStartTrigger";
    case 16130: return "FirstSample";
    default: return "";
  }
}

}  // namespace zqtiming
