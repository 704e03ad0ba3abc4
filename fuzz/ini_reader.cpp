// Arbitrary task INI text through the storage companion's reader. A refusal is a StorageError
// (-52005 naming the line, or -52002 for a newer version), nothing else escapes; what is read
// is written back and must read back as the same records.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "error.h"
#include "ini_reader.h"
#include "ini_writer.h"

namespace {

void check(bool condition) {
  if (!condition) __builtin_trap();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  zqstorage::IniDocument doc;
  try {
    doc = zqstorage::parseIniText(text);
  } catch (const zqstorage::StorageError& e) {
    const int32_t code = e.constant().code;
    check(code == zqstorage::kInvalidParameter.code || code == zqstorage::kFeatureUnsupported.code);
    return 0;
  }
  for (const zqstorage::TaskSpec& task : doc.tasks) check(task.globalChannels.size() == task.channels.size());
  const std::string written = zqstorage::writeIniText(doc.tasks, doc.channels);
  try {
    const zqstorage::IniDocument again = zqstorage::parseIniText(written);
    check(again.tasks == doc.tasks && again.channels == doc.channels);
  } catch (const zqstorage::StorageError&) {
    check(false);  // the writer's own text must read
  }
  return 0;
}
