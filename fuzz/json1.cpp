// Feeds arbitrary text to the json1 formatter, as a translator's array of items and as a status
// report with nested errors: it must never overrun, and a failure appends nothing to the output.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

#include "status/report_reader.h"
#include "status/status.h"
#include "translator/json1.h"
#include "translator/session.h"

namespace {

using namespace zqxlator::json1;

constexpr ItemFormat kDefault{"\n", nullptr, nullptr, ": ", nullptr, nullptr, nullptr, nullptr, ", "};
constexpr ItemFormat kElaboration{};
constexpr ItemFormatRow kTable[] = {{"elaboration", &kElaboration}, {nullptr, &kDefault}};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  const uint32_t flags = data[0] & 0x0F;
  std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  text = text.c_str();

  zqerr::Status status;
  zqhtl::String out;
  out.assign("before", 6, &status);
  formatDynamicReportItems(kTable, text.c_str(), &out, &status);
  if (!zqerr::isOpen(&status) && out.view() != "before") __builtin_trap();

  // As a report: the session finds no explanation files and no translator library here, so
  // every description fails and the formatter walks what it can.
  static zqerr::Status made;
  static zqxlator::Session* session = zqxlator::Session::create(&made);
  const char* end = zqerr::json::endOfValue(text.c_str());
  if (!session || !end || text[0] != '{') return 0;
  zqerr::Status input;
  input.code = -1;
  if (!zqerr::growReport(&input, static_cast<uint32_t>(text.size() + 2))) return 0;
  std::memcpy(input.report, text.c_str(), text.size() + 1);
  zqerr::Status translated;
  zqhtl::String raw;
  translateErrStatusToRawText(session, input, 0x200, flags, &raw, &translated);
  return 0;
}
