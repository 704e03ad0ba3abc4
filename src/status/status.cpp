#include "status/status.h"

#include <cstring>
#include <new>

#include "status/report_writer.h"

namespace zqerr {

namespace {

// Writes `text` into a buffer of `capacity` bytes in the report form: text, zero fill, sentinel.
void writeBufferForm(char* buffer, uint32_t capacity, const char* text, size_t length) {
  std::memmove(buffer, text, length);
  std::memset(buffer + length, 0, capacity - length);
  buffer[capacity - 1] = kSentinel;
}

bool writeLocation(zqerr_Status* status, const SourceLocation& location, bool withConstant) {
  if (!resetReport(status)) return false;
  ReportWriter w = rootWriter(status);
  if (withConstant) w = writeString(w, "error_constant", location.errorConstant ? location.errorConstant : "");
  w = writeString(w, "file", location.file ? location.file : "");
  w = writeUint32(w, "line", location.line);
  if (location.component) w = writeString(w, "component", location.component);
  return static_cast<bool>(w);
}

}  // namespace

bool growReport(zqerr_Status* status, uint32_t size) {
  if (size == 0) {
    delete[] status->report;
    status->report = nullptr;
    status->capacity = 0;
    return true;
  }
  if (size <= status->capacity) return true;
  if (size > 0x7FFFFFFFu) return false;
  uint32_t capacity = 512;
  while (capacity < size) capacity <<= 1;
  char* buffer = new (std::nothrow) char[capacity];
  if (!buffer) return false;
  const char* text = status->report ? status->report : "{}";
  writeBufferForm(buffer, capacity, text, std::strlen(text));
  delete[] status->report;
  status->report = buffer;
  status->capacity = capacity;
  return true;
}

bool resetReport(zqerr_Status* status) {
  if ((status->capacity < 4 || !status->report) && !status->storage(status, 4)) return false;
  if (!status->report || status->capacity < 4) return false;
  writeBufferForm(status->report, status->capacity, "{}", 2);
  return true;
}

bool setWithLocation(zqerr_Status* status, int32_t code, const SourceLocation& location) {
  if (!replaces(status->code, code)) return false;
  status->code = code;
  writeLocation(status, location, true);
  return true;
}

bool setPlain(zqerr_Status* status, int32_t code, const SourceLocation& location) {
  if (!replaces(status->code, code)) return false;
  status->code = code;
  writeLocation(status, location, false);
  return true;
}

bool adopt(zqerr_Status* destination, zqerr_Status* source) {
  if (!replaces(destination->code, source->code)) return false;
  destination->code = source->code;
  if (destination->storage == source->storage) {
    if (destination->report) destination->storage(destination, 0);
    destination->report = source->report;
    destination->capacity = source->capacity;
    source->report = nullptr;
    source->capacity = 0;
    return true;
  }
  if (!source->report) {
    resetReport(destination);
    return true;
  }
  size_t length = std::strlen(source->report);
  if (length + 2 > 0xFFFFFFFFu) return true;
  auto needed = static_cast<uint32_t>(length + 2);
  if ((destination->capacity < needed || !destination->report) && !destination->storage(destination, needed)) {
    resetReport(destination);
    return true;
  }
  if (destination->report && destination->capacity >= needed)
    writeBufferForm(destination->report, destination->capacity, source->report, length);
  return true;
}

bool copyStatus(zqerr_Status* destination, const zqerr_Status& source) {
  destination->code = source.code;
  const size_t length = source.report ? std::strlen(source.report) : 0;
  const bool fits = source.report && length + 2 <= 0x7FFFFFFFu &&
                    destination->storage(destination, static_cast<uint32_t>(length + 2)) && destination->report &&
                    destination->capacity >= length + 2;
  if (fits) {
    writeBufferForm(destination->report, destination->capacity, source.report, length);
    return true;
  }
  if (destination->report) resetReport(destination);
  return !source.report;
}

void clearReport(zqerr_Status* status) {
  status->code = 0;
  if (status->report) resetReport(status);
}

}  // namespace zqerr
