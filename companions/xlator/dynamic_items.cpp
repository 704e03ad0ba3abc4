#include "dynamic_items.h"

#include <cstdio>
#include <string_view>

#include "status/report_reader.h"
#include "status/report_writer.h"
#include "usage_labels.h"
#include "xlator_sites.h"

namespace qxlator {

namespace {

namespace json = zqerr::json;

constexpr std::string_view kNotAvailable = "Not Available";

// The value of `key` in `object`, parsed; false when it is missing.
bool member(const char* object, const char* key, json::ParsedValue* value) {
  const char* at = object ? json::findKey(object, key) : nullptr;
  return at && json::parseValue(at, value);
}

// A value as a person reads it: strings decoded, anything else as its JSON text.
std::string textOf(const json::ParsedValue& value) {
  std::string text;
  if (value.type == json::kString && json::decodeString(value.begin + 1, value.length - 2, &text)) return text;
  return std::string(value.begin, value.length);
}

// An attribute id with the name the report gave it: "AIMax (0x17DD)", or the id alone.
std::string attributeText(const json::ParsedValue& comment, const json::ParsedValue& value) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%X", static_cast<unsigned>(json::readInt(value.begin)));
  const std::string name = textOf(comment);
  return name.empty() || name == kNotAvailable ? std::string(hex) : name + " (" + hex + ")";
}

// An object item inside the array at the cursor, with "key" and "value" or nothing.
zqerr::ReportWriter beginItem(zqerr::ReportWriter w) {
  w = zqerr::writeObject(w, nullptr);
  if (w) --w.cursor;
  return w;
}

zqerr::ReportWriter endContainer(zqerr::ReportWriter w) {
  if (w) ++w.cursor;
  return w;
}

zqerr::ReportWriter writeLabelled(zqerr::ReportWriter w, std::string_view key, std::string_view value) {
  w = beginItem(w);
  w = zqerr::writeString(w, "key", key);
  return endContainer(zqerr::writeString(w, "value", value));
}

zqerr::ReportWriter writeUsage(zqerr::ReportWriter w, const char* item) {
  json::ParsedValue usage, value;
  if (!member(item, "usage", &usage) || !member(item, "value", &value)) return w;
  const std::string name = textOf(usage);
  // The driver names the attribute of an attribute-valued usage in "comment".
  json::ParsedValue comment;
  if (value.type == json::kNumber && member(item, "comment", &comment))
    return writeLabelled(w, usageLabel(name), attributeText(comment, value));
  if (value.type != json::kArray) return writeLabelled(w, usageLabel(name), textOf(value));
  w = beginItem(w);
  w = zqerr::writeString(w, "key", usageLabel(name));
  w = zqerr::writeArray(w, "value");
  if (w) --w.cursor;
  for (const char* element = json::arrayBegin(value.begin); element;) {
    json::ParsedValue parsed;
    if (!json::parseValue(element, &parsed)) break;
    w = zqerr::writeString(w, nullptr, textOf(parsed));
    element = json::arrayNext(parsed.begin + parsed.length);
  }
  return endContainer(endContainer(w));
}

zqerr::ReportWriter writeDynamic(zqerr::ReportWriter w, const char* report) {
  w = zqerr::writeArray(w, "dynamic");
  if (w) --w.cursor;
  const char* info = json::findKey(report, "translator_info");
  const char* data = info ? json::findKey(info, "ordered_data") : nullptr;
  for (const char* element = json::arrayBegin(data); element;) {
    json::ParsedValue item, type;
    if (!json::parseValue(element, &item)) break;
    const std::string kind = member(item.begin, "type", &type) ? textOf(type) : std::string();
    if (kind == "usage") w = writeUsage(w, item.begin);
    if (kind == "empty") w = endContainer(beginItem(w));  // a separator: an item with nothing in it
    element = json::arrayNext(item.begin + item.length);
  }
  return endContainer(w);
}

struct DebugKey {
  const char* reportKey;
  const char* label;
};

constexpr DebugKey kDebugKeys[] = {
    {"file", "File"}, {"line", "Line"}, {"error_constant", "Constant"}, {"component", "Component"},
    {"std_exception_what", "Exception"},
};

zqerr::ReportWriter writeDebug(zqerr::ReportWriter w, const char* report) {
  w = zqerr::writeArray(w, "debug");
  if (w) --w.cursor;
  for (const DebugKey& key : kDebugKeys) {
    json::ParsedValue value;
    if (member(report, key.reportKey, &value)) w = writeLabelled(w, key.label, textOf(value));
  }
  json::ParsedValue system;
  if (member(report, "internal_error", &system) && system.type == json::kObject) {
    json::ParsedValue api, code, text;
    std::string said = member(system.begin, "api", &api) ? textOf(api) : "system";
    if (member(system.begin, "code", &code)) said += " " + textOf(code);
    if (member(system.begin, "string", &text)) said += ": " + textOf(text);
    w = writeLabelled(w, "System Error", said);
  }
  return endContainer(w);
}

}  // namespace

bool describeReport(const char* report, std::string* description, zqerr_Status* status) {
  json::ParsedValue parsed;
  if (!report || !json::parseValue(report, &parsed) || parsed.type != json::kObject) {
    if (zqerr::setWithLocation(status, zqapalerr_invalidParameter, kReportNotObject))
      zqerr::writeString(zqerr::rootWriter(status), "zqxlator_debug", "the report is not a JSON object");
    return false;
  }
  zqerr::Status out;
  zqerr::ReportWriter w = zqerr::rootWriter(&out);
  w = writeDebug(writeDynamic(w, report), report);
  if (!w) {
    zqerr::setWithLocation(status, zqapalerr_memoryFull, kDescriptionMemory);
    return false;
  }
  description->assign(out.report);
  return true;
}

}  // namespace qxlator
