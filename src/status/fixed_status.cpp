#include <algorithm>
#include <cstring>
#include <string>

#include "status/report_reader.h"
#include "status/report_writer.h"
#include "status/status.h"

namespace zqerr {

namespace {

constexpr size_t kComponentMax = sizeof(FixedStatus::component) - 1;  // 9
constexpr size_t kFileMax = sizeof(FixedStatus::file) - 1;            // 100
constexpr size_t kFileHalf = 49;

void storeCut(char* out, size_t max, const char* text) {
  size_t n = std::min(std::strlen(text), max);
  std::memcpy(out, text, n);
  out[n] = '\0';
}

// The raw JSON text of a string member's value, without its quotes; empty when absent.
std::string_view rawString(const char* report, std::string_view key) {
  const char* value = json::findKey(report, key);
  json::ParsedValue parsed;
  if (!value || !json::parseValue(value, &parsed) || parsed.type != json::kString) return {};
  return {parsed.begin + 1, parsed.length - 2};
}

}  // namespace

bool setFixed(FixedStatus* fixed, int32_t code, const char* component, const char* file, uint32_t line) {
  if (!replaces(fixed->code, code)) return false;
  fixed->code = code;
  if (code == 0 || fixed->structSize < kFixedStatusSize) return true;
  storeCut(fixed->component, kComponentMax, component ? component : "");
  const char* f = file ? file : "";
  size_t length = std::strlen(f);
  if (length <= kFileMax) {
    std::memcpy(fixed->file, f, length + 1);
  } else {
    std::memcpy(fixed->file, f, kFileHalf);
    std::memcpy(fixed->file + kFileHalf, "..", 2);
    std::memcpy(fixed->file + kFileHalf + 2, f + length - kFileHalf, kFileHalf);
    fixed->file[kFileMax] = '\0';
  }
  fixed->line = line;
  std::memset(fixed->extra, 0, sizeof fixed->extra);
  return true;
}

void copyStatusDown(const zqerr_Status& status, FixedStatus* fixed) {
  if (status.code == 0) return;
  std::string component, file;
  uint32_t line = 0;
  if (status.report) {
    std::string_view raw = rawString(status.report, "component");
    json::decodeString(raw.data(), raw.size(), &component);
    if (component.size() > kComponentMax) component.resize(kComponentMax);
    raw = rawString(status.report, "file");
    if (raw.size() > kFileMax) {
      // Keep the last 100 characters, but never start inside an escape.
      raw.remove_prefix(raw.size() - kFileMax);
      while (!raw.empty() && raw.front() == '\\') raw.remove_prefix(1);
    }
    json::decodeString(raw.data(), raw.size(), &file);
    if (const char* l = json::findKey(status.report, "line")) line = static_cast<uint32_t>(json::readInt(l));
  }
  setFixed(fixed, status.code, component.c_str(), file.c_str(), line);
}

void copyFixedUp(const FixedStatus& fixed, zqerr_Status* status) {
  if (fixed.code == 0 || !replaces(status->code, fixed.code)) return;
  status->code = fixed.code;
  if (status->capacity < 258 && !status->storage(status, 258)) return;
  if (!resetReport(status)) return;
  if (fixed.structSize < kFixedStatusSize) return;
  ReportWriter w = rootWriter(status);
  if (fixed.file[0]) {
    w = writeString(w, "file", std::string_view(fixed.file, strnlen(fixed.file, kFileMax)));
    w = writeUint32(w, "line", fixed.line);
  }
  if (fixed.component[0]) writeString(w, "component", std::string_view(fixed.component, strnlen(fixed.component, kComponentMax)));
}

StatusBridge::StatusBridge(zqerr_Status* status) : status_(status), fixed_(makeFixedStatus()) {
  copyStatusDown(*status, &fixed_);
}

StatusBridge::~StatusBridge() { copyFixedUp(fixed_, status_); }

}  // namespace zqerr
