// Feeds arbitrary text to the explanation file reader as a file on disk: it must never overrun,
// and a failure must leave no text behind. The first two bytes choose the code looked for.
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "status/status.h"
#include "translator/explanation_files.h"

namespace {

// The file each input is written to, removed when the run ends.
struct ScratchFile {
  std::string path = "/tmp/zqcai-fuzz-explanation-" + std::to_string(getpid()) + ".txt";
  ~ScratchFile() { std::remove(path.c_str()); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  static const ScratchFile scratch;
  const std::string& path = scratch.path;
  const auto code = static_cast<int16_t>(data[0] | (data[1] << 8));
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (!file) return 0;
  std::fwrite(data + 2, 1, size - 2, file);
  std::fclose(file);

  zqerr::Status status;
  zqhtl::String text;
  zqxlator::readExplanationFile(path.c_str(), code, &text, &status);
  if (!zqerr::isOpen(&status) && !text.empty()) __builtin_trap();
  if (text.size() > size) __builtin_trap();  // the text is a part of the file
  return 0;
}
