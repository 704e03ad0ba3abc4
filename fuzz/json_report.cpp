// Feeds arbitrary text to the report reader and, when it is a valid object, edits it with the
// writer: the reader must never overrun, and every edit must leave valid JSON behind.
//
// Input: the text up to the first NUL, then the edits, one byte each with the bytes it takes.
// Without edits the text gets two items of ordered data.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "status/report_reader.h"
#include "status/report_writer.h"

namespace {

using namespace zqerr;

void check(bool condition) {
  if (!condition) __builtin_trap();
}

// The bytes an edit takes, as they come.
class Edits {
 public:
  Edits(std::string_view bytes, std::string_view text) : bytes_(bytes), text_(text) {}
  bool done() const { return bytes_.empty(); }
  uint8_t byte() {
    if (bytes_.empty()) return 0;
    const auto b = static_cast<uint8_t>(bytes_.front());
    bytes_.remove_prefix(1);
    return b;
  }
  uint64_t number() {
    uint64_t n = 0;
    for (int i = 0; i < 8; ++i) n = n << 8 | byte();
    return n;
  }
  const char* usage() { return usage::kAllUsages[byte() % std::size(usage::kAllUsages)]; }
  // A piece of the text, escapes, quotes and bytes of no code page included.
  std::string_view piece() {
    const size_t at = text_.empty() ? 0 : byte() % text_.size();
    return text_.substr(at, byte());
  }
  std::string key() { return std::string(piece().substr(0, 12)); }

 private:
  std::string_view bytes_;
  std::string_view text_;
};

// Walks what the reader gives: a string value decoded, an array stepped through element by element.
void read(const std::string& text) {
  json::ParsedValue parsed;
  if (json::parseValue(text.c_str(), &parsed) && parsed.type == json::kString) {
    std::string decoded;
    json::decodeString(parsed.begin + 1, parsed.length - 2, &decoded);
  }
  json::countItems(text.c_str());
  int steps = 0;
  for (const char* item = json::arrayBegin(text.c_str()); item && steps < 1000; ++steps) {
    json::ParsedValue element;
    if (!json::parseValue(item, &element)) break;
    item = json::arrayNext(element.begin + element.length);
  }
  if (const char* value = json::findKey(text.c_str(), "file")) json::readInt(value);
}

// One edit on the status: each opens its own writer, since an edit may move the report.
ReportWriter edit(Status* status, Edits& in) {
  const uint8_t op = in.byte();
  switch (op % 10) {
    case 0: {
      ReportWriter w = openOrderedData(status, kTranslatorZqvorex);
      w = addItem(w, in.usage(), static_cast<int32_t>(in.number()));
      return addPlainItem(w, in.usage(), static_cast<int32_t>(in.number()));
    }
    case 1: {
      ReportWriter w = openOrderedData(status, kTranslatorZqvorex);
      w = addItem(w, in.usage(), static_cast<uint32_t>(in.number()));
      return addItem(w, in.usage(), in.number());
    }
    case 2: return addItem(openOrderedData(status, kTranslatorZqvorex), in.usage(), in.piece());
    case 3: {
      const std::string_view values[] = {in.piece(), in.piece(), in.piece()};
      return addItem(openOrderedData(status, kTranslatorZqvorex), in.usage(), values, in.byte() % 4);
    }
    case 4: return addEmptyItem(openOrderedData(status, kTranslatorZqvorex));
    case 5: {
      const std::string key = in.key();
      ReportWriter w = writeString(rootWriter(status), key.c_str(), in.piece());
      w = writeInt32(w, "i", static_cast<int32_t>(in.number()));
      w = writeUint32(w, "u", static_cast<uint32_t>(in.number()));
      return writeUint64(w, "q", in.number());
    }
    case 6: {
      // A value the reader accepts goes in raw.
      const std::string raw(in.piece());
      json::ParsedValue parsed;
      if (!json::parseValue(raw.c_str(), &parsed)) return rootWriter(status);
      return writeRaw(rootWriter(status), "raw", std::string_view(parsed.begin, parsed.length));
    }
    case 7: {
      ReportWriter w = writeObject(rootWriter(status), in.key().c_str());
      if (!w) return w;
      --w.cursor;  // inside the new object
      return writeString(w, "inner", in.piece());
    }
    case 8: {
      ReportWriter w = writeArray(rootWriter(status), "list");
      if (!w) return w;
      --w.cursor;  // inside the new array
      for (uint8_t n = in.byte() % 4; n > 0; --n) w = writeInt32(w, nullptr, static_cast<int32_t>(in.number()));
      return w;
    }
    default: {
      addExceptionWhat(status, std::string(in.piece()).c_str());
      // Another translator's info: made only where none stands yet.
      return openTranslatorInfo(status, "qxlator_other");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string text(input.substr(0, input.find('\0')));  // the reader works on NUL-terminated text
  read(text);
  const char* end = json::endOfValue(text.c_str());
  if (!end || text[0] != '{') return 0;

  Status status;
  const auto length = static_cast<size_t>(end - text.c_str() + 1);
  if (!growReport(&status, static_cast<uint32_t>(length + 2))) return 0;
  std::memcpy(status.report, text.c_str(), length);
  status.report[length] = '\0';
  const std::string_view edits = text.size() < input.size() ? input.substr(text.size() + 1) : std::string_view();
  Edits in(edits, text);
  ReportWriter w{};
  if (in.done()) {
    w = openOrderedData(&status, kTranslatorZqvorex);
    w = addItem(w, usage::kUsageTypeInvalidString, std::string_view(text).substr(0, size % 700));
    w = addItem(w, usage::kUsageTypeAttributeId, static_cast<int32_t>(size));
  }
  for (int n = 0; !in.done() && n < 64; ++n) {
    w = edit(&status, in);
    if (w) check(json::endOfValue(status.report) != nullptr);
  }
  if (w && !json::endOfValue(status.report)) __builtin_trap();
  if (std::strlen(status.report) + 1 >= status.capacity || status.report[status.capacity - 1] != kSentinel) __builtin_trap();
  return 0;
}
