// The translator library zqxlator and its translator "qxlator_zqvorex": a label for every usage
// the driver writes, each kind of item of a real report as a labelled line, and the report's
// location as debug lines.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "status/error_sites.h"
#include "status/report_writer.h"
#include "translator/json1.h"
#include "translator/qxl_wrapper.h"
#include "translator/session.h"
#include "translator_fixture.h"
#include "usage_labels.h"
#include "zqvorex_status_codes.h"

namespace {

TEST(UsageLabels, EveryUsageTheDriverWritesHasALabelOfItsOwn) {
  for (const char* usage : zqerr::usage::kAllUsages) {
    SCOPED_TRACE(usage);
    const char* label = qxlator::tableLabel(usage);
    ASSERT_NE(label, nullptr);
    EXPECT_FALSE(std::string_view(label).starts_with("kUsageType"));
  }
}

TEST(UsageLabels, AUsageWithoutLabelIsShownAsItsNameInWords) {
  EXPECT_EQ(qxlator::usageLabel("kUsageTypeSampleClockRate"), "Sample Clock Rate");
  EXPECT_EQ(qxlator::usageLabel("kUsageTypeAIChannelCount"), "AI Channel Count");
  EXPECT_EQ(qxlator::usageLabel("plain"), "plain");
}

class ZqvorexTranslator : public zqtest::TranslatorTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(library_.clear());
    library_.install(ZQ_TEST_XLATOR);
    folders_.copyFolder(ZQ_TEST_ERRORS_FOLDER "/English", "English");
  }

  std::string translate(const zqerr_Status& input, uint32_t flags) {
    zqhtl::String out;
    wrapper_.translate(input, 0x200, flags, &zqxlator::json1::translateErrStatusToRawText, &out, &status_);
    return std::string(out.view());
  }

  // The English text of a code, as the default translator gives it.
  std::string describe(int32_t code) {
    zqerr::Status bare;
    bare.code = code;
    return translate(bare, 1);
  }

  zqerr::Status status_;
  zqerr::Status made_;
  zqqxl::ThreadSafeQxlWrapper wrapper_{&made_};
};

TEST_F(ZqvorexTranslator, TurnsEveryKindOfItemIntoALabelledLine) {
  zqerr::Status failed;
  ASSERT_TRUE(ZQ_FAIL(&failed, kOutParametersBufferTooSmallForString));
  const std::string_view devices[] = {"Dev1", "Dev2"};
  zqerr::ReportWriter w = zqerr::openOrderedData(&failed, zqerr::kTranslatorZqvorex);
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeReqBufSizeInSamps, uint64_t{5000000000});
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeAttributeIdentifier, int32_t{0x1276});
  w = zqerr::addItem(w, zqerr::usage::kUsageTypeAffectedAttribute, int32_t{0x7FFF0001});
  ASSERT_TRUE(zqerr::addItem(w, zqerr::usage::kUsageTypeSuggestedDevices, devices, 2));

  // Sizes, lengths, the empty item and the task's name: ExtendedErrorInfo in tests/errortext.
  EXPECT_EQ(translate(failed, 3), describe(-200228) +
                                      "\n\nRequired Buffer Size in Samples: 5000000000"
                                      "\nAttribute: TaskName (0x1276)"
                                      "\nAffected Attribute: 0x7FFF0001"
                                      "\nDevices Available: Dev1, Dev2");
  EXPECT_EQ(status_.code, 0) << status_.report;
}

TEST_F(ZqvorexTranslator, RefusesTranslatorsItDoesNotMake) {
  wrapper_.withSession([this](zqxlator::Session* session) {
    EXPECT_EQ(session->findTranslator("qxlator_other", &status_), nullptr);
    EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
    EXPECT_NE(session->findTranslator("qxlator_zqvorex", &made_), nullptr);
  });
}

}  // namespace
