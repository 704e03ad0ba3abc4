#include "boundary/string_adapter.h"

#include <cstring>
#include <stdexcept>

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqgopher {

namespace {

std::string& textOf(const zqgopher_IString* self) {
  return *static_cast<std::string*>(reinterpret_cast<const zqgopher_StringAdapterFields*>(self)->string);
}

uint64_t size(const zqgopher_IString* self, zqerr_Status* status) {
  return guarded(status, uint64_t{0}, [&] { return uint64_t{textOf(self).size()}; });
}

void copyTo(const zqgopher_IString* self, char* buffer, uint64_t bufferSize, zqerr_Status* status) {
  guarded(status, [&] {
    if (!buffer && bufferSize != 0) {
      ZQ_FAIL(status, kStringAdapterInvalidParameter);
      return;
    }
    const std::string& text = textOf(self);
    uint64_t n = text.size() < bufferSize ? text.size() : bufferSize;
    // A short buffer still gets the cut text; the caller decides what the status means.
    if (n < text.size()) ZQ_FAIL(status, kStringAdapterBufferTooSmall);
    if (n != 0) std::memcpy(buffer, text.data(), n);
    if (n < bufferSize) buffer[n] = '\0';
  });
}

void clear(zqgopher_IString* self, zqerr_Status* status) {
  guarded(status, [&] { textOf(self).clear(); });
}

void assign(zqgopher_IString* self, const char* text, uint64_t length, zqerr_Status* status) {
  guarded(status, [&] {
    if (!text && length != 0) {
      ZQ_FAIL(status, kStringAdapterInvalidParameter43);
      return;
    }
    if (length == 0)
      textOf(self).clear();
    else
      textOf(self).assign(text, length);
  });
}

const char* data(const zqgopher_IString* self, zqerr_Status* status) {
  return guarded(status, static_cast<const char*>(nullptr), [&]() -> const char* {
    const std::string& text = textOf(self);
    return text.empty() ? nullptr : text.data();
  });
}

char* mutableData(zqgopher_IString* self, zqerr_Status* status) {
  return guarded(status, static_cast<char*>(nullptr), [&]() -> char* {
    std::string& text = textOf(self);
    return text.empty() ? nullptr : text.data();
  });
}

void resize(zqgopher_IString* self, uint64_t length, zqerr_Status* status) {
  guarded(status, [&] {
    // A length the string cannot hold is a length error, like any too large request.
    if (length > textOf(self).max_size()) throw std::length_error("zqgopher::StringAdapter::resize");
    textOf(self).resize(static_cast<size_t>(length), '\0');
  });
}

}  // namespace

const zqgopher_IStringTable StringAdapter::kTable = {&size, &copyTo, &clear, &assign, &data, &mutableData, &resize};

StringAdapter::StringAdapter(std::string& text) noexcept : zqgopher_StringAdapterFields{{&kTable}, &text} {}

}  // namespace zqgopher
