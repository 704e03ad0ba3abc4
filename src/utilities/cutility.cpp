#include "utilities/cutility.h"

#include <cstring>

#include "boundary/array_view.h"
#include "status/error_sites.h"
#include "status/report_writer.h"
#include "text/list_parser.h"
#include "text/nstring.h"
#include "text/trim_split.h"

namespace zqutility {

void checkOneTerminal(int32_t attributeId, const char* text, std::string* terminal, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  terminal->clear();
  if (text) {
    zqerr::StatusBridge bridge(status);
    zqwombat::systemTextToUtf8(text, std::strlen(text), terminal, bridge.fixed());
  }
  zqwombat::trimText(terminal, status);
  std::vector<std::string> names;
  zqwombat::parseCommaList(*terminal, &names, status);
  if (!zqerr::isOpen(status) || names.size() <= 1) return;
  if (!ZQ_FAIL(status, kCutilityMoreThanOneTerminal)) return;
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::addPlainItem(w, zqerr::usage::kUsageTypeAttributeIdentifier, attributeId);
  zqerr::addItem(w, zqerr::usage::kUsageTypeRequestedNumberTerminals, static_cast<uint32_t>(names.size()));
}

uint32_t writeAttributeU32(zqvorexRedir::ITask& task, int32_t attributeId, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return 0;
  const zqgopher::StringArrayView none;
  return task.getWriteAttributeU32(none, attributeId, status);
}

}  // namespace zqutility
