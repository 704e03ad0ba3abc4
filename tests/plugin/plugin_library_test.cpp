// A real plug-in library, built beside the test and loaded by the plug-in binding: what it
// exports answers, everything else reports itself as not supported for the device.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "binding/load_library.h"
#include "plugin/plugin.h"
#include "report_query.h"
#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqvorexRedir::Plugin;

class SampleLibrary : public testing::Test {
 protected:
  void SetUp() override {
    zqerr::Status status;
    plugin_ = zqdynlib::loadPlugin<Plugin>("testplug", &status);
    ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
    ASSERT_TRUE(plugin_) << "testplug was not found beside the test";
  }

  std::shared_ptr<Plugin> plugin_;
};

TEST_F(SampleLibrary, OnlyTheExportedOperationsAreBound) {
  size_t bound = 0;
  for (size_t i = 0; i < Plugin::kOperationCount; ++i) bound += plugin_->slot(i) != nullptr;
  EXPECT_EQ(bound, 3u);
  EXPECT_TRUE(plugin_->hasCreateContext());
  EXPECT_TRUE(plugin_->hasDestroyContext());
  EXPECT_TRUE(plugin_->hasGetTaskAttributeU32());
  EXPECT_FALSE(plugin_->hasCreateTask());
}

TEST_F(SampleLibrary, BoundOperationsRunInTheLibrary) {
  zqerr::Status status;
  zqvorexPlugin_Context_undefined* context = plugin_->createContext("ctx", &status);
  ASSERT_NE(context, nullptr);
  EXPECT_EQ(plugin_->createContext("", &status), nullptr);
  EXPECT_EQ(plugin_->getTaskAttributeU32(nullptr, 0x1273, &status), 0x1274u);
  plugin_->destroyContext(context, &status);
  EXPECT_EQ(status.code, 0);
}

TEST_F(SampleLibrary, MissingOperationIsNotSupportedForTheDevice) {
  zqerr::Status status;
  auto* context = plugin_->createContext("ctx", &status);
  EXPECT_EQ(plugin_->createTask(context, "t", "", "", 0, &status), nullptr);
  EXPECT_EQ(status.code, nZQMSTS::kErrorFunctionNotSupportedForDevice);
  EXPECT_EQ(zqtest::reportAt(status.report, {"zqdynlib_debug", "zqdynlib_symbol"}), "createTask");
}

}  // namespace
