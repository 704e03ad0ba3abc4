// The zqerror tool, run as a person runs it, against the installation of this program.
#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

struct ToolRun {
  int status;
  std::string out;
};

ToolRun zqerror(const std::string& arguments) {
  ToolRun run{-1, {}};
  std::FILE* pipe = popen(("\"" ZQ_TEST_ZQERROR "\" " + arguments + " 2>/dev/null").c_str(), "r");
  if (!pipe) return run;
  char chunk[512];
  while (size_t n = std::fread(chunk, 1, sizeof chunk, pipe)) run.out.append(chunk, n);
  run.status = pclose(pipe);
  return run;
}

TEST(Zqerror, PrintsTheNamesAndTheTextOfEachCode) {
  const ToolRun run = zqerror("-200228 0xFFFCF19A 200026");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("-200228  nZQMSTS::kErrorBufferTooSmallForString\nThe buffer is too small"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("-200294  (not in the status table)\nError code could not be found."), std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("200026  nZQMSTS::kWarningStringTruncatedToFitBuffer\nThe text was cut"), std::string::npos);
}

}  // namespace
