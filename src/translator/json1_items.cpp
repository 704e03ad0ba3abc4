// The items of a dynamic or debug section.
#include <string>
#include <string_view>

#include "paths/system_error_items.h"
#include "status/error_sites.h"
#include "status/report_reader.h"
#include "translator/json1.h"

namespace zqxlator::json1 {

namespace {

namespace json = zqerr::json;

void put(zqhtl::String& text, const char* part, zqerr_Status* status) {
  if (part) text.append(std::string_view(part), status);
}

// The text of a value as far as it parses, else all that follows it.
std::string_view valueText(const char* value) {
  json::ParsedValue parsed;
  if (json::parseValue(value, &parsed)) return {parsed.begin, parsed.length};
  return value;
}

// The decoded string at `value`, or false when it is no string.
bool stringAt(const char* value, std::string* text) {
  json::ParsedValue parsed;
  text->clear();
  return value && json::parseValue(value, &parsed) && parsed.type == json::kString &&
         json::decodeString(parsed.begin + 1, parsed.length - 2, text);
}

zqerr::ReportWriter failItems(zqerr_Status* status, const zqerr::Site& site, const char* what) {
  if (!zqerr::fail(status, site)) return {};
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
  return zqerr::writeString(w, "formatDynamicReportItems", what);
}

const ItemFormat& formatOf(const ItemFormatRow* table, const std::string& type) {
  const ItemFormatRow* row = table;
  while (row->type && type != row->type) ++row;
  return *row->format;
}

// One string of a value; false with the failure when it is no string.
bool putString(zqhtl::String& text, const ItemFormat& format, const char* element, zqerr_Status* status) {
  json::ParsedValue parsed;
  std::string decoded;
  if (!json::parseValue(element, &parsed) || parsed.type != json::kString ||
      !json::decodeString(parsed.begin + 1, parsed.length - 2, &decoded)) {
    zqerr::ReportWriter w =
        failItems(status, zqsite::kJson1ValueNotString, "json1 dynamic object invalid. value can only be string");
    zqerr::writeInt32(w, "value type", parsed.type);
    return false;
  }
  put(text, format.stringBegin, status);
  text.append(decoded, status);
  put(text, format.stringEnd, status);
  return true;
}

// A string, or each string of an array with the separator between them.
bool putValue(zqhtl::String& text, const ItemFormat& format, const char* value, const char* arrayText,
              zqerr_Status* status) {
  json::ParsedValue parsed;
  if (!json::parseValue(value, &parsed)) {
    zqerr::ReportWriter w = failItems(status, zqsite::kJson1ValueUnparsed,
                                      "json1 dynamic object invalid. something's wrong with value item");
    w = zqerr::writeString(w, "json1DynamicObjectBegin", valueText(arrayText));
    zqerr::writeString(w, "value", value);
    return false;
  }
  put(text, format.valueBegin, status);
  if (parsed.type != json::kArray) {
    if (!putString(text, format, value, status)) return false;
  } else {
    bool first = true;
    for (const char* element = json::arrayBegin(value); element; first = false) {
      if (!first) put(text, format.arraySeparator, status);
      if (!putString(text, format, element, status)) return false;
      json::parseValue(element, &parsed);
      element = json::arrayNext(parsed.begin + parsed.length);
    }
  }
  put(text, format.valueEnd, status);
  return true;
}

bool putItem(zqhtl::String& text, const ItemFormatRow* table, const char* item, const char* arrayText,
             zqerr_Status* status) {
  std::string type, key;
  stringAt(json::findKey(item, "type"), &type);
  const ItemFormat& format = formatOf(table, type);
  put(text, format.itemBegin, status);
  if (stringAt(json::findKey(item, "key"), &key) && !key.empty()) {
    put(text, format.keyBegin, status);
    text.append(key, status);
    put(text, format.keyEnd, status);
  }
  if (const char* value = json::findKey(item, "value"))
    if (!putValue(text, format, value, arrayText, status)) return false;
  put(text, format.itemEnd, status);
  return true;
}

}  // namespace

void formatDynamicReportItems(const ItemFormatRow* table, const char* arrayText, zqhtl::String* out,
                              zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  zqhtl::String text;
  for (const char* element = json::arrayBegin(arrayText); element;) {
    json::ParsedValue parsed;
    if (!json::parseValue(element, &parsed) || parsed.type != json::kObject) {
      zqerr::ReportWriter w = failItems(status, zqsite::kJson1ItemNotObject,
                                        "json1 dynamic object invalid. each array item must be an object");
      zqerr::writeString(w, "json1DynamicObjectBegin", valueText(arrayText));
      break;
    }
    if (!putItem(text, table, element, arrayText, status)) break;
    element = json::arrayNext(parsed.begin + parsed.length);
  }
  if (zqerr::isOpen(status)) out->append(text.view(), status);
}

}  // namespace zqxlator::json1
