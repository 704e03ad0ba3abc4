// Elaboration items of "ordered_data" and the other report additions.
#include <cstring>

#include "catalogue/attribute_names.h"
#include "status/report_writer.h"

namespace zqerr {

namespace {

// Opens an item object at the cursor and writes "type" and "usage"; the cursor ends inside it.
ReportWriter beginItem(ReportWriter w, const char* usage) {
  w = writeObject(w, nullptr);
  if (w) --w.cursor;
  w = writeString(w, "type", "usage");
  return writeString(w, "usage", usage);
}

// Steps past the item's closing brace so that the next item follows.
ReportWriter endItem(ReportWriter w) {
  if (w) ++w.cursor;
  return w;
}

}  // namespace

bool isAttributeUsage(std::string_view usage) {
  static constexpr const char* kAttributeUsages[] = {
      usage::kUsageTypeAttributeId,         usage::kUsageTypeAttributeIdentifier,
      usage::kUsageTypeAffectedAttribute,   usage::kUsageTypeConflictingAttr,
      usage::kUsageTypeConflictingProperty, usage::kUsageTypeUnspecifiedProperty};
  for (const char* name : kAttributeUsages)
    if (usage == name) return true;
  return false;
}

ReportWriter addItem(ReportWriter w, const char* usage, int32_t value) {
  if (!isAttributeUsage(usage)) return addPlainItem(w, usage, value);
  w = beginItem(w, usage);
  w = writeInt32(w, "value", value);
  w = writeString(w, "value_type", "int32_t");
  const char* name = zqcatalogue::attributeName(value);
  w = writeString(w, "comment", name ? name : "Not Available");
  return endItem(w);
}

ReportWriter addPlainItem(ReportWriter w, const char* usage, int32_t value) {
  w = beginItem(w, usage);
  w = writeInt32(w, "value", value);
  w = writeString(w, "value_type", "int32_t");
  return endItem(w);
}

ReportWriter addItem(ReportWriter w, const char* usage, uint32_t value) {
  w = beginItem(w, usage);
  w = writeUint32(w, "value", value);
  w = writeString(w, "value_type", "uint32_t");
  return endItem(w);
}

ReportWriter addItem(ReportWriter w, const char* usage, uint64_t value) {
  w = beginItem(w, usage);
  w = writeUint64(w, "value", value);
  w = writeString(w, "value_type", "uint64_t");
  return endItem(w);
}

ReportWriter addItem(ReportWriter w, const char* usage, std::string_view value) {
  w = beginItem(w, usage);
  w = writeString(w, "value", value);
  w = writeString(w, "value_type", "string");
  return endItem(w);
}

ReportWriter addItem(ReportWriter w, const char* usage, const std::string_view* values, size_t count) {
  w = beginItem(w, usage);
  w = writeArray(w, "value");
  if (w) --w.cursor;
  for (size_t i = 0; i < count; ++i) w = writeString(w, nullptr, values[i]);
  if (w) ++w.cursor;
  w = writeString(w, "value_type", "string");
  return endItem(w);
}

ReportWriter addEmptyItem(ReportWriter w) { return writeRaw(w, nullptr, "{\"type\":\"empty\"}"); }

void addExceptionWhat(zqerr_Status* status, const char* what) {
  writeString(rootWriter(status), "std_exception_what", what ? what : "");
}

}  // namespace zqerr
