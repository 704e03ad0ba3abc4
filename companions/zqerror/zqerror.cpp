// zqerror [--language N] CODE...
//
// Prints, for each code, the names the status table gives it and the driver's text for it:
//
//   $ zqerror -200228
//   -200228  nZQMSTS::kErrorBufferTooSmallForString
//   The buffer is too small for the text to be returned. ...
//
// A code may be decimal or hexadecimal (0x...). The language is 0 English (the default),
// 1 French, 2 German, 3 Japanese, 4 Korean or 5 Simplified Chinese; a language without texts
// gives the English ones. Exit status: 0 when every code was printed, 1 when the driver could
// not give a text, 2 for a bad command line.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "zqcai_rd_mbcs.h"
#include "zqvorex_status_codes.h"

namespace {

constexpr const char* kUsage = "usage: zqerror [--language N] CODE...\n";

bool readNumber(const char* text, long long low, long long high, long long* value) {
  char* end = nullptr;
  errno = 0;
  const bool hex = std::strstr(text, "0x") || std::strstr(text, "0X");
  long long number = std::strtoll(text, &end, hex ? 16 : 10);
  if (errno != 0 || end == text || *end != '\0' || number < low || number > high) return false;
  *value = number;
  return true;
}

// The constants of the status table that stand for `code`, joined with ", ".
std::string constantsOf(int32_t code) {
  std::string names;
#define ZQERROR_NAME(value, constant, report, from) \
  if ((value) == code) names += (names.empty() ? "" : ", ") + std::string(constant);
  ZQVOREX_STATUS_CODES(ZQERROR_NAME)
#undef ZQERROR_NAME
  return names.empty() ? "(not in the status table)" : names;
}

// The driver's text of the code; false with the driver's own failure when it could not give one.
bool printText(uint32_t language, int32_t code) {
  int32_t size = VorexInternalGetLocalizedErrorString(language, code, nullptr, 0);
  std::vector<char> text(size > 0 ? static_cast<size_t>(size) : 1, '\0');
  int32_t result = size < 0 ? size : VorexInternalGetLocalizedErrorString(language, code, text.data(),
                                                                          static_cast<uInt32>(text.size()));
  std::printf("%d  %s\n", code, constantsOf(code).c_str());
  if (result < 0) {
    std::vector<char> why(2048, '\0');
    VorexGetExtendedErrorInfo(why.data(), static_cast<uInt32>(why.size()));
    std::fprintf(stderr, "zqerror: the driver could not give the text of %d (status %d)\n%s\n", code, result,
                 why.data());
    return false;
  }
  std::printf("%s\n", text.data());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  long long language = 0;
  std::vector<int32_t> codes;
  for (int i = 1; i < argc; ++i) {
    long long value = 0;
    if (std::strcmp(argv[i], "--language") == 0 && i + 1 < argc && readNumber(argv[i + 1], 0, 255, &language)) {
      ++i;
    } else if (readNumber(argv[i], INT32_MIN, UINT32_MAX, &value)) {
      codes.push_back(static_cast<int32_t>(static_cast<uint32_t>(value)));
    } else {
      std::fputs(kUsage, stderr);
      return 2;
    }
  }
  if (codes.empty()) {
    std::fputs(kUsage, stderr);
    return 2;
  }
  bool all = true;
  for (size_t i = 0; i < codes.size(); ++i) {
    if (i > 0) std::printf("\n");
    all = printText(static_cast<uint32_t>(language), codes[i]) && all;
  }
  return all ? 0 : 1;
}
