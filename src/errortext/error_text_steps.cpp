#include <algorithm>
#include <cstring>

#include "errortext/error_text.h"
#include "platform/platform.h"
#include "status/error_sites.h"
#include "status/report_reader.h"
#include "status/report_writer.h"
#include "text/nstring.h"

namespace zqerrortext {

namespace {

constexpr const char16_t* kProductKey = u"Software\\Torvane\\ZQ-Vorex\\CurrentVersion";
constexpr const char* kDebugDisplayValue = "enableErrorSrcDisplay";
constexpr uint32_t kDebugDisplayBuffer = 1023;
constexpr uint64_t kMaxReturnedSize = 0x7FFFFFFF;
constexpr std::string_view kTranslatorPrefix = "qxlator_";

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string translatorOf(const char* report) {
  std::string name;
  zqerr::json::ParsedValue parsed;
  const char* value = report ? zqerr::json::findKey(report, "translator") : nullptr;
  if (!value || !zqerr::json::parseValue(value, &parsed) || parsed.type != zqerr::json::kString ||
      !zqerr::json::decodeString(parsed.begin + 1, parsed.length - 2, &name))
    name.clear();
  return name;
}

int32_t orderedDataCount(const char* report) {
  const char* info = report ? zqerr::json::findKey(report, "translator_info") : nullptr;
  const char* data = info ? zqerr::json::findKey(info, "ordered_data") : nullptr;
  return data ? zqerr::json::countItems(data) : 0;
}

bool startsWith(const zqhtl::String& text, std::string_view prefix) { return text.view().starts_with(prefix); }

}  // namespace

uint32_t languageAndAdeOf(uint32_t language, uint32_t ade) {
  const uint32_t index = language >= 1 && language <= 5 ? language : 0;
  const uint32_t translatorAde = ade <= 2 ? ade + 1 : 2;
  return index | (translatorAde << 8);
}

bool debugDisplayEnabled() {
  zqplatform::RegistryKey key = 0;
  if (zqplatform::regOpenKey(zqplatform::kHkeyLocalMachine, kProductKey, zqplatform::kKeyRead, &key) != 0) return false;
  char buffer[kDebugDisplayBuffer];
  uint32_t size = kDebugDisplayBuffer;
  const bool set = zqplatform::regQueryValueNarrow(key, kDebugDisplayValue, nullptr, buffer, &size) == 0;
  zqplatform::regCloseKey(key);
  return set;
}

void putTaskName(zqerr_Status* copy, std::string_view taskName) {
  const std::string translator = translatorOf(copy->report);
  if (translator.empty()) {
    zqerr::addItem(zqerr::openOrderedData(copy, zqerr::kTranslatorZqvorex), zqerr::usage::kUsageTypeTaskName, taskName);
  } else if (translator == "mdbg") {
    zqerr::writeString(zqerr::openTranslatorInfo(copy, "mdbg"), "mdbg_task_name", taskName);
  } else if (translator.size() > kTranslatorPrefix.size() && translator.starts_with(kTranslatorPrefix)) {
    const bool hasItems = orderedDataCount(copy->report) >= 1;
    zqerr::ReportWriter w = zqerr::openOrderedData(copy, translator.c_str());
    if (hasItems) w = zqerr::addEmptyItem(w);
    zqerr::addItem(w, zqerr::usage::kUsageTypeTaskName, taskName);
  }
}

void repairText(zqhtl::String* text, int32_t code, zqerr_Status* status) {
  zqerr::Status own;
  if (!zqerr::isOpen(status)) {
    // The wrapper ended the text with the failure's report.
    const std::string_view report = status->report ? status->report : "";
    if (!report.empty() && text->view().ends_with(report)) {
      uint64_t end = text->size() - report.size();
      while (end > 0 && ((*text)[end - 1] == '\n' || (*text)[end - 1] == '\r')) --end;
      text->erase(end);
    }
    zqerr::clearReport(status);
    if (code != 0 && text->empty()) text->assign(kSubstituteText, &own);
  }
  if (code != 0 && startsWith(*text, kNotFoundText)) {
    text->erase(0, kNotFoundText.size());
    text->insert(0, kSubstituteText, &own);
  }
}

int32_t copyTextToCaller(std::string_view utf8, char* buffer, uint32_t bufferSize, bool* sizeQuery,
                         zqerr_Status* status) {
  std::string converted;
  std::string_view text = utf8;
  if (!isAscii(utf8)) {
    zqerr::StatusBridge bridge(status);
    zqwombat::utf8ToSystemText(utf8.data(), utf8.size(), &converted, bridge.fixed());
    text = converted;
  }
  if (!buffer || bufferSize == 0) {
    *sizeQuery = true;
    if (!zqerr::isOpen(status) || text.empty()) return 0;
    if (text.size() >= kMaxReturnedSize) {
      ZQ_FAIL(status, kCerrorinfoCalculationOverflow);
      return 0;
    }
    return static_cast<int32_t>(text.size() + 1);
  }
  if (!zqerr::isOpen(status)) text = {};
  const size_t length = std::min<size_t>(text.size(), bufferSize - 1);
  std::memcpy(buffer, text.data(), length);
  buffer[length] = '\0';
  if (length < text.size()) ZQ_FAIL(status, kCerrorinfoStringTruncated);
  return 0;
}

}  // namespace zqerrortext
