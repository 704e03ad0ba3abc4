// Conversion between UTF-8 and the encodings of the message languages. These return a code
// instead of taking a status: the translator decides where a failure is reported.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "status/status.h"
#include "zqvorex_status_codes.h"
#include "text/basic_string.h"

namespace zqsstutf8 {


// Where converted bytes go. `write` appends and returns false when it cannot take them.
class ByteSink {
 public:
  virtual bool write(const char* bytes, size_t count) = 0;

 protected:
  ~ByteSink() = default;
};

class StdStringSink final : public ByteSink {
 public:
  explicit StdStringSink(std::string* out) : out_(out) {}
  bool write(const char* bytes, size_t count) override;

 private:
  std::string* out_;
};

class StringSink final : public ByteSink {
 public:
  explicit StringSink(zqhtl::String* out) : out_(out) {}
  bool write(const char* bytes, size_t count) override;

 private:
  zqhtl::String* out_;
  zqerr::FixedStatus status_ = zqerr::makeFixedStatus();
};

// 0 the system code page, 1 to 3 page 1252, 4 page 932, 5 page 949, 6 page 936, else 65535.
uint32_t codePageOfEncoding(uint32_t encoding);

// A null or empty text writes nothing. Results: 0, kErrorConversion, or -52000 when memory or
// the sink fails.
int32_t mbsToUtf8(const char* text, uint32_t encoding, ByteSink& out);
int32_t utf8ToMbs(const char* text, uint32_t encoding, ByteSink& out);

// UTF-16 to UTF-8. A high surrogate takes the next unit as its partner unchecked; one that ends
// the text stands for itself. False when the sink fails.
bool utf16ToUtf8(const char16_t* units, size_t count, ByteSink& out);

}  // namespace zqsstutf8
