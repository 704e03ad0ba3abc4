// The levels of a translated status and the raw text layout.
#include "translator/json1.h"

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "paths/system_error_items.h"
#include "status/error_sites.h"
#include "status/report_reader.h"
#include "translator/default_translator.h"
#include "translator/session.h"

namespace zqxlator::json1 {

namespace {

namespace json = zqerr::json;

constexpr std::string_view kIndent = "   ";
constexpr std::string_view kBetweenLevels = "\n\n";

struct FreeText {
  void operator()(char* text) const { std::free(text); }
};
using Description = std::unique_ptr<char, FreeText>;

void put(zqhtl::String& text, const char* part, zqerr_Status* status) {
  if (part) text.append(std::string_view(part), status);
}

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

void trimLineEnds(zqhtl::String* text) {
  uint64_t end = text->size();
  while (end > 0 && isLineEnd((*text)[end - 1])) --end;
  text->erase(end);
  uint64_t begin = 0;
  while (begin < text->size() && isLineEnd((*text)[begin])) ++begin;
  text->erase(0, begin);
}

// The report's "translator" when it is a non-empty string, else the default translator.
std::string translatorName(const char* report) {
  std::string name;
  json::ParsedValue parsed;
  const char* value = report ? json::findKey(report, "translator") : nullptr;
  if (value && json::parseValue(value, &parsed) && parsed.type == json::kString &&
      json::decodeString(parsed.begin + 1, parsed.length - 2, &name) && !name.empty())
    return name;
  return kDefaultTranslator;
}

void putSection(zqhtl::String& text, const char* begin, const char* end, const ItemFormatRow* table,
                const char* description, const char* key, zqerr_Status* status) {
  put(text, begin, status);
  if (const char* items = json::findKey(description, key)) formatDynamicReportItems(table, items, &text, status);
  put(text, end, status);
}

void failNested(zqerr_Status* status, const zqerr::Site& site, const char* what, const char* report, const char* kindKey,
                int kind) {
  if (!zqerr::fail(status, site)) return;
  zqerr::ReportWriter w = zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
  w = zqerr::writeString(w, "translateErrStatusToFormattedText", what);
  w = zqerr::writeString(w, "json", report);
  zqerr::writeInt32(w, kindKey, kind);
}

// The layout of the error text functions.
class RawTextFormatter final : public NestedFormatter {
 public:
  void format(uint32_t level, zqhtl::String* text, zqerr_Status* status) override {
    trimLineEnds(text);
    if (level != 0) {
      std::string indent;
      for (uint32_t i = 0; i < level; ++i) indent += kIndent;
      text->insert(0, indent, status);
      for (uint64_t i = indent.size(); i < text->size(); ++i)
        if ((*text)[i] == '\n') text->insert(i + 1, indent, status);
    }
    text->append(kBetweenLevels, status);
  }
};

constexpr SectionMarkers kRawMarkers{nullptr, "\n", nullptr, "\n", nullptr, nullptr};
constexpr ItemFormat kRawDefault{"\n", nullptr, nullptr, ": ", nullptr, nullptr, nullptr, nullptr, ", "};
constexpr ItemFormat kRawElaboration{};
constexpr ItemFormatRow kRawTable[] = {{"elaboration", &kRawElaboration}, {nullptr, &kRawDefault}};

struct Level {
  Session* session;
  const SectionMarkers& markers;
  const ItemFormatRow* table;
  NestedFormatter& formatter;
  uint32_t languageAndAde;
};

void formatLevel(const Level& how, uint32_t level, int32_t code, const char* report, uint32_t flags, zqhtl::String* out,
                 zqerr_Status* status);

// A nested error: its own code and report, one level deeper.
void formatNestedObject(const Level& how, uint32_t level, const json::ParsedValue& object, uint32_t flags,
                        zqhtl::String* out, zqerr_Status* status) {
  const std::string copy(object.begin, object.length);
  const int32_t code = json::readInt(json::findKey(copy.c_str(), "code"));
  formatLevel(how, level + 1, code, copy.c_str(), flags, out, status);
}

void formatNested(const Level& how, uint32_t level, const char* report, uint32_t flags, zqhtl::String* out,
                  zqerr_Status* status) {
  const char* nested = report ? json::findKey(report, "nested_error") : nullptr;
  json::ParsedValue parsed;
  if (!nested || !json::parseValue(nested, &parsed)) return;
  if (parsed.type == json::kObject) return formatNestedObject(how, level, parsed, flags, out, status);
  if (parsed.type != json::kArray) {
    return failNested(status, zqsite::kJson1NestedInvalidType, "nested_error contains invalid json type", report,
                      "jsonz_type", parsed.type);
  }
  for (const char* element = json::arrayBegin(nested); element && zqerr::isOpen(status);) {
    json::ParsedValue item;
    if (!json::parseValue(element, &item) || item.type != json::kObject) {
      return failNested(status, zqsite::kJson1NestedElementNotObject,
                        "nested_error contains invalid json type on one of the element", report, "invalid json_type",
                        item.type);
    }
    formatNestedObject(how, level, item, flags, out, status);
    element = json::arrayNext(item.begin + item.length);
  }
}

void formatLevel(const Level& how, uint32_t level, int32_t code, const char* report, uint32_t flags, zqhtl::String* out,
                 zqerr_Status* status) {
  const std::string name = translatorName(report);
  Description staticDesc, dynamicDesc;
  if (flags & kStaticFlag) staticDesc.reset(how.session->getStaticDesc(code, name.c_str(), how.languageAndAde, status));
  if ((flags & (kDynamicFlag | kDebugFlag)) && name != kDefaultTranslator)
    dynamicDesc.reset(how.session->getDynamicDesc(report, how.languageAndAde, status));
  zqhtl::String text;
  if ((flags & kStaticFlag) && staticDesc) {
    put(text, how.markers.staticBegin, status);
    put(text, staticDesc.get(), status);
    put(text, how.markers.staticEnd, status);
  }
  if ((flags & kDynamicFlag) && dynamicDesc)
    putSection(text, how.markers.dynamicBegin, how.markers.dynamicEnd, how.table, dynamicDesc.get(), "dynamic", status);
  if ((flags & kDebugFlag) && dynamicDesc)
    putSection(text, how.markers.debugBegin, how.markers.debugEnd, how.table, dynamicDesc.get(), "debug", status);
  how.formatter.format(level, &text, status);
  out->append(text.view(), status);
  if (!zqerr::isOpen(status) || !(flags & kNestedFlag)) return;
  // A nested error gets static, dynamic and nested sections, and debug only if its parent did.
  const uint32_t nestedFlags = (flags & kDebugFlag) ? 15 : 11;
  formatNested(how, level, report, nestedFlags, out, status);
}

}  // namespace

void translateErrStatusToFormattedText(Session* session, const SectionMarkers& markers, const ItemFormatRow* table,
                                       NestedFormatter& formatter, uint32_t level, int32_t code, const char* report,
                                       uint32_t languageAndAde, uint32_t flags, zqhtl::String* out,
                                       zqerr_Status* status) {
  formatLevel(Level{session, markers, table, formatter, languageAndAde}, level, code, report, flags, out, status);
}

void translateErrStatusToRawText(Session* session, const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                 zqhtl::String* out, zqerr_Status* status) {
  RawTextFormatter formatter;
  if (input.code == 0 || !zqerr::isOpen(status)) return;
  translateErrStatusToFormattedText(session, kRawMarkers, kRawTable, formatter, 0, input.code, input.report,
                                    languageAndAde, flags, out, status);
  trimLineEnds(out);
}

}  // namespace zqxlator::json1
