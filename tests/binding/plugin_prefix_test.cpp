#include <gtest/gtest.h>

#include <string>

#include "binding/load_library.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"

namespace {

struct PrefixCase {
  const char* path;
  const char* prefix;  // null: refused
};

class PluginPrefix : public testing::TestWithParam<PrefixCase> {};

TEST_P(PluginPrefix, IsTheFileStemAndAnUnderscore) {
  const PrefixCase& c = GetParam();
  zqerr::Status status;
  std::string prefix = "untouched";
  bool made = zqdynlib::pluginPrefix(c.path, &prefix, &status);
  EXPECT_EQ(made, c.prefix != nullptr);
  if (c.prefix) {
    EXPECT_EQ(prefix, c.prefix);
    EXPECT_EQ(status.code, 0);
    return;
  }
  EXPECT_EQ(prefix, "untouched");
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(zqtest::reportAt(status.report, {"error_constant"}), "zqapalerr_invalidParameter");
  EXPECT_EQ(zqtest::reportAt(status.report, {"file"}), "pluginutilities");
}

INSTANTIATE_TEST_SUITE_P(
    Paths, PluginPrefix,
    testing::Values(PrefixCase{"C:\\Shared\\qxef\\zqvorexPAL", "zqvorexPAL_"},
                    PrefixCase{"/opt/shared/qxef/zqvorexPAL", "zqvorexPAL_"},
                    PrefixCase{"zqvorexPAL", "zqvorexPAL_"},                      // no separator: the whole path
                    PrefixCase{"C:\\dir/mixed\\name.dll", "name_"},                // the last of either separator
                    PrefixCase{"a/b.c/plugin", "plugin_"},                         // a dot before the last separator
                    PrefixCase{"x\\lib.tar.gz", "lib_"},                           // up to the first dot after it
                    PrefixCase{"x\\.hidden", "_"},                                 // something follows, if only a dot
                    PrefixCase{"C:\\Shared\\qxef\\", nullptr},                     // nothing after the separator
                    PrefixCase{"dir/", nullptr}, PrefixCase{"", nullptr}));

}  // namespace
