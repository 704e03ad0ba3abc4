// Feeds arbitrary text to the report reader and, when it is a valid object, edits it with the
// writer: the reader must never overrun, and every edit must leave valid JSON behind.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "status/report_reader.h"
#include "status/report_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string text(reinterpret_cast<const char*>(data), size);
  text = text.c_str();  // the reader works on NUL-terminated text
  zqerr::json::ParsedValue parsed;
  zqerr::json::parseValue(text.c_str(), &parsed);
  zqerr::json::countItems(text.c_str());
  const char* end = zqerr::json::endOfValue(text.c_str());
  if (const char* value = zqerr::json::findKey(text.c_str(), "file")) zqerr::json::readInt(value);
  if (!end || text[0] != '{') return 0;

  zqerr::Status status;
  if (!zqerr::growReport(&status, static_cast<uint32_t>(end - text.c_str() + 3))) return 0;
  std::memcpy(status.report, text.c_str(), static_cast<size_t>(end - text.c_str() + 1));
  status.report[end - text.c_str() + 1] = '\0';
  zqerr::ReportWriter w = zqerr::openOrderedData(&status, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeInvalidString, std::string_view(text.c_str(), size % 700));
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeAttributeId, static_cast<int32_t>(size));
  if (w && !zqerr::json::endOfValue(status.report)) __builtin_trap();
  if (std::strlen(status.report) + 1 >= status.capacity || status.report[status.capacity - 1] != 'J') __builtin_trap();
  return 0;
}
