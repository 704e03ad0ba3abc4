#include "frame/text_value.h"

#include <cstring>
#include <string>
#include <vector>

#include "frame/channel_argument.h"
#include "frame/scalar_frame.h"
#include "status/report_writer.h"
#include "zqvorex_status_codes.h"
#include "text/list_parser.h"
#include "text/nstring.h"
#include "text/trim_split.h"

namespace zqframe {

std::string textValueArgument(const char* data, zqerr_Status* status) {
  std::string value;
  if (!zqerr::isOpen(status) || !data || !*data) return value;
  {
    zqerr::StatusBridge bridge(status);
    zqwombat::systemTextToUtf8(data, std::strlen(data), &value, bridge.fixed());
  }
  zqwombat::trimText(&value, status);
  return value;
}

void requireOneTerminal(const AccessorInfo& info, const std::string& value, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  std::vector<std::string> terminals;
  zqwombat::parseCommaList(value, &terminals, status);
  if (!zqerr::isOpen(status) || terminals.size() <= 1) return;
  if (!zqerr::setWithLocation(status, nZQMSTS100::kErrorMoreThanOneTerminal,
                              {kModule, info.line, zqerr::kComponent, "nZQMSTS100::kErrorMoreThanOneTerminal"}))
    return;
  zqerr::ReportWriter w = zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeAttributeIdentifier, int32_t{info.attributeId});
  zqerr::addItem(w, zqerr::usage::kUsageTypeRequestedNumberTerminals, static_cast<uint32_t>(terminals.size()));
}

}  // namespace zqframe
