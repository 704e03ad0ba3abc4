// The json1 formatter: a status and its report made into the final text. The static
// description of the code, the dynamic and debug items that the report's translator derives
// from the report, and, on request, the same for every nested error, indented by depth:
//
//   The static description.
//                                  (an empty line)
//   Label: value
//   Label: value, value
//
//      A nested error's description, three spaces in per level.
//
// A translator's dynamic description is JSON: {"dynamic":[item...],"debug":[item...]}, an item
// {"type":..,"key":..,"value":string or array of strings}, any key may be missing.
#pragma once

#include <cstdint>

#include "status/status.h"
#include "text/basic_string.h"
#include "translator/translation.h"

namespace zqxlator::json1 {

// Texts put around the sections; null puts nothing.
struct SectionMarkers {
  const char* staticBegin;
  const char* staticEnd;
  const char* dynamicBegin;
  const char* dynamicEnd;
  const char* debugBegin;
  const char* debugEnd;
};

// Texts put around the parts of an item; null puts nothing.
struct ItemFormat {
  const char* itemBegin;
  const char* itemEnd;
  const char* keyBegin;
  const char* keyEnd;
  const char* valueBegin;
  const char* valueEnd;
  const char* stringBegin;
  const char* stringEnd;
  const char* arraySeparator;
};

// An item's "type" selects its format; the table ends in a row with a null type and the
// default format.
struct ItemFormatRow {
  const char* type;
  const ItemFormat* format;
};

// Rewrites one level's text in place.
class NestedFormatter {
 public:
  virtual ~NestedFormatter() = default;
  virtual void format(uint32_t level, zqhtl::String* text, zqerr_Status* status) = 0;
};

// The formatter of the error text functions: the layout above, without line ends at either end.
void translateErrStatusToRawText(Session* session, const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                 zqhtl::String* out, zqerr_Status* status);

// One level, then its nested errors when `flags` asks for them.
void translateErrStatusToFormattedText(Session* session, const SectionMarkers& markers, const ItemFormatRow* table,
                                       NestedFormatter& formatter, uint32_t level, int32_t code, const char* report,
                                       uint32_t languageAndAde, uint32_t flags, zqhtl::String* out,
                                       zqerr_Status* status);

// The items of one section's array, appended to `out` only when all of them could be read.
void formatDynamicReportItems(const ItemFormatRow* table, const char* arrayText, zqhtl::String* out,
                              zqerr_Status* status);

}  // namespace zqxlator::json1
