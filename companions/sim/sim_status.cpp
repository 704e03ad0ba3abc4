#include "sim_status.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <new>

#include "attribute_table.h"

namespace zqsim {

namespace {

constexpr const char* kComponent = "zqvorexSim";
constexpr const char* kTranslator = "qxlator_zqvorex";
constexpr char kSentinel = 'J';

void appendEscaped(std::string& out, std::string_view text) {
  for (char ch : text) {
    const auto c = static_cast<unsigned char>(ch);
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (c < 0x20 || c == 0x7F) {
          char hex[8];
          std::snprintf(hex, sizeof hex, "\\u%04x", c);
          out += hex;
        } else {
          out += ch;
        }
    }
  }
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string out = "\"";
  appendEscaped(out, text);
  out += '"';
  return out;
}

std::string formatReal(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Inf" : "-Inf";
  char digits[40];
  std::snprintf(digits, sizeof digits, "%.10g", value);
  return digits;
}

const char* siteName(const char* path) {
  const char* name = path;
  for (const char* p = path; *p; ++p)
    if (*p == '/' || *p == '\\') name = p + 1;
  return name;
}

void Items::begin(const char* usage) {
  if (!json_.empty()) json_ += ',';
  json_ += "{\"type\":\"usage\",\"usage\":" + quoted(usage);
}

Items& Items::text(const char* usage, std::string_view value) {
  begin(usage);
  json_ += ",\"value\":" + quoted(value) + ",\"value_type\":\"string\"}";
  return *this;
}

Items& Items::texts(const char* usage, const std::vector<std::string>& values) {
  begin(usage);
  json_ += ",\"value\":[";
  for (size_t i = 0; i < values.size(); ++i) json_ += (i ? "," : "") + quoted(values[i]);
  json_ += "],\"value_type\":\"string\"}";
  return *this;
}

Items& Items::i32(const char* usage, int32_t value) {
  begin(usage);
  json_ += ",\"value\":" + std::to_string(value) + ",\"value_type\":\"int32_t\"}";
  return *this;
}

Items& Items::u32(const char* usage, uint32_t value) {
  begin(usage);
  json_ += ",\"value\":" + std::to_string(value) + ",\"value_type\":\"uint32_t\"}";
  return *this;
}

Items& Items::u64(const char* usage, uint64_t value) {
  begin(usage);
  json_ += ",\"value\":" + std::to_string(value) + ",\"value_type\":\"uint64_t\"}";
  return *this;
}

Items& Items::f64(const char* usage, double value) { return text(usage, formatReal(value)); }

Items& Items::attribute(int32_t id) {
  begin(usage::kAttribute);
  const char* name = attributeName(id);
  json_ += ",\"value\":" + std::to_string(id) +
           ",\"value_type\":\"int32_t\",\"comment\":" + quoted(name ? name : "Not Available") + "}";
  return *this;
}

void writeReport(zqerr_Status* status, std::string_view report) {
  if (status->storage == nullptr) return;
  // The buffer form: the text, a zero fill, and the sentinel in the last byte.
  const uint64_t needed = report.size() + 2;
  if (needed > 0x7FFFFFFFu || !status->storage(status, static_cast<uint32_t>(needed))) return;
  if (status->report == nullptr || status->capacity < needed) return;
  std::memcpy(status->report, report.data(), report.size());
  std::memset(status->report + report.size(), 0, status->capacity - report.size());
  status->report[status->capacity - 1] = kSentinel;
}

namespace {

bool growLocal(zqerr_Status* status, uint32_t size) {
  if (size == 0) {
    delete[] status->report;
    status->report = nullptr;
    status->capacity = 0;
    return true;
  }
  if (size <= status->capacity) return true;
  uint32_t capacity = 512;
  while (capacity < size && capacity < 0x40000000u) capacity <<= 1;
  if (capacity < size) return false;
  char* buffer = new (std::nothrow) char[capacity];
  if (!buffer) return false;
  const char* old = status->report ? status->report : "{}";
  const size_t length = std::strlen(old);
  std::memcpy(buffer, old, length);
  std::memset(buffer + length, 0, capacity - length);
  buffer[capacity - 1] = kSentinel;
  delete[] status->report;
  status->report = buffer;
  status->capacity = capacity;
  return true;
}

}  // namespace

LocalStatus::LocalStatus() : zqerr_Status{0, 0, &growLocal, nullptr} {}

LocalStatus::~LocalStatus() {
  if (report) storage(this, 0);
}

void merge(zqerr_Status* to, const zqerr_Status& from) {
  if (to == nullptr || !replaces(to->code, from.code)) return;
  to->code = from.code;
  writeReport(to, from.report ? std::string_view(from.report) : std::string_view("{}"));
}

bool fail(zqerr_Status* status, Code code, const char* where, uint32_t line, const Items& items) {
  if (status == nullptr || !replaces(status->code, code.value)) return false;
  status->code = code.value;
  std::string report = "{\"error_constant\":" + quoted(code.constant) + ",\"file\":" + quoted(where) +
                       ",\"line\":" + std::to_string(line) + ",\"component\":" + quoted(kComponent);
  if (!items.empty()) {
    report += ",\"translator\":" + quoted(kTranslator) +
              ",\"translator_info\":{\"is_debug\":\"0\",\"version\":1,\"ordered_data\":[" + items.json() +
              "]}";
  }
  report += '}';
  writeReport(status, report);
  return true;
}

}  // namespace zqsim
