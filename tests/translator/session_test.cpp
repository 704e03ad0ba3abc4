// The session: translators found by exact name, built in or loaded once and kept; a failed
// load kept for the session's life; operations a translator lacks.
#include "translator/session.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>

#include "report_query.h"
#include "translator_fixture.h"
#include "zqvorex_status_codes.h"

namespace {

using zqtest::reportAt;
using zqxlator::Session;

class TranslatorSession : public zqtest::TranslatorTest {
 protected:
  zqerr::Status status_;
  std::unique_ptr<Session> session_{Session::create(&status_)};
};

TEST_F(TranslatorSession, TheFirstRequestLoadsTheLibraryAndTheSecondFindsItsTranslator) {
  EXPECT_FALSE(session_->libraryLoaded()) << "creating a session touches no library";
  zqxlator_Translator* first = session_->findTranslator("qxlator_test", &status_);
  ASSERT_NE(first, nullptr) << status_.report;
  EXPECT_TRUE(session_->libraryLoaded());
  EXPECT_EQ(session_->findTranslator("qxlator_test", &status_), first);
  EXPECT_EQ(fakeCounter("zqxlatortest_created"), 1);
  EXPECT_EQ(fakeCounter("zqxlatortest_sessions"), 1);
}

TEST_F(TranslatorSession, NamesCompareExactly) {
  for (const char* name : {"QXLATOR_TEST", "Zqxlator_default", "qxlator_test "}) {
    SCOPED_TRACE(name);
    zqerr::clearReport(&status_);
    EXPECT_EQ(session_->findTranslator(name, &status_), nullptr);
    EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
  }
}

TEST_F(TranslatorSession, AFailedLoadIsKeptAndRepeatedWithoutTryingAgain) {
  ASSERT_TRUE(library_.clear());
  EXPECT_EQ(session_->findTranslator("qxlator_test", &status_), nullptr);
  const int32_t code = status_.code;
  EXPECT_EQ(code, zqapalerr_invalidParameter);
  EXPECT_EQ(reportAt(status_.report, {"zqdynlib_debug", "debug"}), "failed to zqdynlib_load library");
  EXPECT_EQ(session_->loadStatus().code, code);
  library_.install(ZQ_TEST_FAKE_XLATOR);
  zqerr::Status again;
  EXPECT_EQ(session_->findTranslator("qxlator_test", &again), nullptr);
  EXPECT_EQ(again.code, code);
  EXPECT_EQ(std::string(again.report), std::string(status_.report));
  EXPECT_FALSE(session_->libraryLoaded());
}

TEST_F(TranslatorSession, ALibraryWithoutTheFourFunctionsIsNotUsed) {
  ASSERT_TRUE(library_.clear());
  library_.install(ZQ_TEST_EMPTY_LIBRARY);
  EXPECT_EQ(session_->findTranslator("qxlator_test", &status_), nullptr);
  EXPECT_EQ(reportAt(status_.report, {"zqdynlib_debug", "zqdynlib_symbol"}), "zqxlatormgr_createSession");
  EXPECT_FALSE(session_->libraryLoaded());
  EXPECT_EQ(session_->loadStatus().code, status_.code);
}

struct MissingOperation {
  const char* name;
  const char* report;
  bool dynamic;
  const char* debug;
  const char* key;
  const char* value;
};

TEST_F(TranslatorSession, AnOperationATranslatorLacksIsAFailure) {
  const MissingOperation cases[] = {
      {"static", nullptr, false, "xlator doesn't support getStaticDesc", "xlatorName", "qxlator_nostatic"},
      {"dynamic", R"({"translator":"qxlator_nodynamic"})", true, "xlator doesn't support getDynamicDesc", "xlatorName",
       "qxlator_nodynamic"},
      {"dynamic_of_the_default", R"({"translator":"zqxlator_default"})", true, "xlator doesn't support getDynamicDesc",
       "xlatorName", "zqxlator_default"},
      {"no_translator_key", R"({"file":"x"})", true, "could not find translator key in json", "json", R"({"file":"x"})"},
      {"empty_translator_key", R"({"translator":""})", true, "could not find translator key in json", "json",
       R"({"translator":""})"},
  };
  for (const MissingOperation& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::clearReport(&status_);
    char* text = c.dynamic ? session_->getDynamicDesc(c.report, 0x200, &status_)
                           : session_->getStaticDesc(-5, "qxlator_nostatic", 0x200, &status_);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(status_.code, zqapalerr_resourceNotFound);
    EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", "debug"}), c.debug);
    EXPECT_EQ(reportAt(status_.report, {"zqxlator_debug", c.key}), c.value);
  }
}

TEST_F(TranslatorSession, EndingTheSessionEndsItsTranslatorsAndTheLibrarysSession) {
  ASSERT_NE(session_->findTranslator("qxlator_test", &status_), nullptr);
  // Held here, the library outlives the session, so its counters can be read afterwards.
  zqplatform::LibraryHandle held = zqplatform::loadLibrary(libraryPath().c_str(), 0);
  ASSERT_NE(held, nullptr);
  EXPECT_EQ(fakeCounter("zqxlatortest_live"), 1);
  session_.reset();
  EXPECT_EQ(fakeCounter("zqxlatortest_live"), 0);
  EXPECT_EQ(fakeCounter("zqxlatortest_sessions"), 0);
  zqplatform::freeLibrary(held);
}

}  // namespace
