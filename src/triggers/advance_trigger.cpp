#include "triggers/advance_trigger.h"

#include "boundary/array_view.h"
#include "zqcai_rd_mbcs.h"

namespace zqtriggers {

void configureDigitalEdgeAdvance(zqvorexRedir::ITask& task, const std::string& source, int32_t edge,
                                 zqerr_Status* status) {
  const zqgopher::StringArrayView none;
  if (zqerr::isOpen(status)) task.setTimingAttributeI32(none, Vorex_AdvTrigType, kAdvTrigDigitalEdge, status);
  if (zqerr::isOpen(status)) task.setTimingAttributeString(none, Vorex_DigEdgeAdvTrigSrc, source, status);
  if (zqerr::isOpen(status)) task.setTimingAttributeI32(none, Vorex_DigEdgeAdvTrigEdge, edge, status);
}

}  // namespace zqtriggers
