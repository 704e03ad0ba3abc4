#include "report_query.h"

#include <cstdlib>

#include "status/report_reader.h"

namespace zqtest {

namespace {

const char* skipSpace(const char* p) {
  while (zqerr::json::isSpace(*p)) ++p;
  return p;
}

const char* element(const char* array, long index) {
  if (*array != '[') return nullptr;
  const char* p = skipSpace(array + 1);
  for (; index > 0; --index) {
    zqerr::json::ParsedValue value;
    if (!zqerr::json::parseValue(p, &value)) return nullptr;
    p = skipSpace(value.begin + value.length);
    if (*p != ',') return nullptr;
    p = skipSpace(p + 1);
  }
  return *p == ']' ? nullptr : p;
}

const char* locate(const char* report, std::initializer_list<std::string_view> path) {
  const char* at = report;
  for (std::string_view step : path) {
    if (!at) return nullptr;
    at = skipSpace(at);
    if (!step.empty() && step[0] == '#')
      at = element(at, std::strtol(std::string(step.substr(1)).c_str(), nullptr, 10));
    else
      at = *at == '{' ? zqerr::json::findKey(at, step) : nullptr;
  }
  return at ? skipSpace(at) : nullptr;
}

}  // namespace

std::string reportAt(const char* report, std::initializer_list<std::string_view> path) {
  const char* at = locate(report, path);
  zqerr::json::ParsedValue value;
  if (!at || !zqerr::json::parseValue(at, &value)) return kAbsent;
  std::string text;
  if (value.type == zqerr::json::kString &&
      zqerr::json::decodeString(value.begin + 1, value.length - 2, &text))
    return text;
  return std::string(value.begin, value.length);
}

std::vector<std::string> reportKeys(const char* report, std::initializer_list<std::string_view> path) {
  std::vector<std::string> keys;
  const char* at = locate(report, path);
  if (!at || *at != '{') return keys;
  at = skipSpace(at + 1);
  zqerr::json::ParsedValue key, value;
  while (*at == '"' && zqerr::json::parseValue(at, &key)) {
    std::string name;
    zqerr::json::decodeString(key.begin + 1, key.length - 2, &name);
    keys.push_back(name);
    at = skipSpace(key.begin + key.length);
    if (*at != ':' || !zqerr::json::parseValue(at + 1, &value)) break;
    at = skipSpace(value.begin + value.length);
    if (*at != ',') break;
    at = skipSpace(at + 1);
  }
  return keys;
}

}  // namespace zqtest
