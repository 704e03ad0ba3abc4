// Reading one explanation file for one code.
#include <cstdio>
#include <cstring>

#include "paths/system_error_items.h"
#include "platform/platform.h"
#include "status/error_sites.h"
#include "translator/explanation_files.h"

namespace zqxlator {

namespace {

struct Tag {
  const char* text;
  size_t compared;  // the first characters only: the header's closing '>' is not compared
};

constexpr Tag kXmlHeader{"<?xml version=\"1.0\">", 19};
constexpr Tag kDocument{"<zqdocument>", 12};
constexpr Tag kDocumentEnd{"</zqdocument>", 13};
constexpr Tag kEntry{"<zqerror code=\"", 15};
constexpr Tag kEntryEnd{"</zqerror>", 10};
constexpr Tag kComment{"<zqcomment>", 11};
constexpr Tag kCommentEnd{"</zqcomment>", 12};

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool startsWith(const char* line, Tag tag) {
  for (size_t i = 0; i < tag.compared; ++i)
    if (lower(line[i]) != lower(tag.text[i])) return false;  // a shorter line differs at its zero
  return true;
}

// The lines of an open file, 1023 bytes at most each; the file is closed on every way out.
class LineReader {
 public:
  explicit LineReader(std::FILE* file) : file_(file) {}
  ~LineReader() {
    if (file_) std::fclose(file_);
  }
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;

  explicit operator bool() const { return file_ != nullptr; }
  bool next() { return std::fgets(line_, sizeof line_, file_) != nullptr; }
  const char* line() const { return line_; }

 private:
  std::FILE* file_;
  char line_[kLineBufferSize] = {};
};

zqerr::ReportWriter debugObject(zqerr_Status* status) {
  return zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
}

void failDamaged(zqerr_Status* status, const zqerr::Site& site, const char* debug) {
  if (zqerr::fail(status, site)) zqerr::writeString(debugObject(status), "debug", debug);
}

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

// The body loses its trailing line ends, unless it is nothing else.
void cutLineEnds(zqhtl::String* text) {
  uint64_t end = text->size();
  while (end > 0 && isLineEnd((*text)[end - 1])) --end;
  if (end > 0) text->erase(end);
}

enum class EntryEnd { kOther, kWanted, kFailed };

// The lines of one entry, from the line after its opening to its closing line. Only the
// wanted code's lines are kept; a failed append leaves the text empty.
EntryEnd readEntry(LineReader& reader, int32_t code, zqhtl::String* text, zqerr_Status* status) {
  int value = 0;
  int count = std::sscanf(reader.line() + kEntry.compared, "%i", &value);
  if (count != 1) {
    if (ZQ_FAIL(status, kGferrorsparserReadCode)) {
      zqerr::ReportWriter w = zqerr::writeString(debugObject(status), "debug", "Could not successfully read the status data!");
      zqerr::writeInt32(w, "sscanf", count);
    }
    return EntryEnd::kFailed;
  }
  const bool wanted = static_cast<int32_t>(value) == code;
  zqerr::Status appendStatus;
  while (reader.next()) {
    if (startsWith(reader.line(), kEntryEnd)) {
      if (!wanted) return EntryEnd::kOther;
      if (zqerr::isOpen(&appendStatus)) cutLineEnds(text);
      else text->clear();
      return EntryEnd::kWanted;
    }
    if (wanted) text->append(reader.line(), std::strlen(reader.line()), &appendStatus);
  }
  failDamaged(status, zqsite::kGferrorsparserEntryNotClosed,
              "Bad explanation file. Could not find the end of the status code definition !");
  text->clear();
  return EntryEnd::kFailed;
}

// Skips up to and including the first line that begins with the closing tag, the opening line
// tested first; false when the file ends before it.
bool skipComment(LineReader& reader) {
  do {
    if (startsWith(reader.line(), kCommentEnd)) return true;
  } while (reader.next());
  return false;
}

}  // namespace

void readExplanationFile(const char* path, int32_t code, zqhtl::String* text, zqerr_Status* status) {
  text->clear();
  if (!zqerr::isOpen(status)) return;
  LineReader reader(zqplatform::openTextFileForReading(path));
  if (!reader) {
    if (ZQ_FAIL(status, kGferrorsparserOpenFile)) {
      zqerr::ReportWriter w = zqerr::writeString(debugObject(status), "debug", "Could not open status explanations file");
      zqerr::writeString(w, "path", path);
    }
    return;
  }
  if (!reader.next() || !startsWith(reader.line(), kXmlHeader)) return;
  if (!reader.next() || !startsWith(reader.line(), kDocument)) return;
  while (reader.next()) {
    const char* line = reader.line();
    if (startsWith(line, kDocumentEnd)) return;
    if (startsWith(line, kEntry)) {
      if (readEntry(reader, code, text, status) != EntryEnd::kOther) return;
    } else if (startsWith(line, kComment)) {
      if (!skipComment(reader)) return;
    } else if (line[0] == '\0') {
      failDamaged(status, zqsite::kGferrorsparserBadHeading, "Bad explanation file. Unidentified section heading !");
      return;
    }
  }
}

}  // namespace zqxlator
