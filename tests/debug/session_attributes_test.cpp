// The session record: its set rule before and after the commit, its answers to gets, and the
// hand-over to a real plug-in library.
#include <gtest/gtest.h>

#include <functional>

#include "binding/dynload.h"
#include "binding/load_library.h"
#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "debug/debug_session_attributes.h"
#include "plugin/plugin.h"
#include "zqvorex_status_codes.h"

namespace zqvorexRedir {
namespace {

using Names = std::vector<std::string>;

bool setList(DebugSessionAttributes& record, int32_t id, const Names& items, zqerr_Status* status) {
  zqgopher::StringArrayView view(items);
  return record.setStringVtr(id, view.boundary(), status);
}

Names getList(const DebugSessionAttributes& record, int32_t id) {
  Names list;
  zqgopher::ItemAdderAdapter<std::string> adapter(list);
  zqerr::Status status;
  EXPECT_TRUE(record.getStringVtr(id, adapter.boundary(), &status));
  return list;
}

std::string getText(const DebugSessionAttributes& record, int32_t id) {
  std::string text;
  zqgopher::StringAdapter adapter(text);
  zqerr::Status status;
  EXPECT_TRUE(record.getString(id, adapter.boundary(), &status));
  return text;
}

DebugSessionAttributes filled() {
  DebugSessionAttributes record;
  zqerr::Status status;
  record.setBool(kDebugSessionId, 1, &status);
  record.setU32(kDebugValue1Id, 7, &status);
  record.setU32(kDebugValue2Id, 0xFFFFFFFEu, &status);
  record.setString(kDebugText1Id, "alpha", &status);
  record.setString(kDebugText2Id, "beta", &status);
  setList(record, kDebugList1Id, {"/x", "y"}, &status);
  setList(record, kDebugList2Id, {"/a", "b/c", "//d"}, &status);
  EXPECT_EQ(status.code, 0);
  return record;
}

TEST(SessionAttributesTest, GetsAnswerFromTheRecordBeforeTheCommit) {
  DebugSessionAttributes record = filled();
  uint32_t value = 0;
  EXPECT_TRUE(record.getBool(kDebugSessionId, value));
  EXPECT_EQ(value, 1u);
  EXPECT_TRUE(record.getU32(kDebugValue2Id, value));
  EXPECT_EQ(value, 0xFFFFFFFEu);
  EXPECT_EQ(getText(record, kDebugText1Id), "alpha");
  EXPECT_EQ(getText(record, kDebugText2Id), "beta");
  EXPECT_EQ(getList(record, kDebugList1Id), (Names{"/x", "y"}));
  EXPECT_EQ(getList(record, kDebugList2Id), (Names{"a", "b/c", "/d"}));
}

TEST(SessionAttributesTest, GetsGoToThePluginOnceCommittedAndEnabled) {
  struct Case {
    bool enabled;
    bool committed;
    bool taken;
  } cases[] = {{true, false, true}, {false, false, true}, {false, true, true}, {true, true, false}};
  for (const Case& c : cases) {
    DebugSessionAttributes record = filled();
    record.setEnabled(c.enabled);
    if (c.committed) record.markCommitted();
    uint32_t value = 0;
    EXPECT_EQ(record.getBool(kDebugSessionId, value), c.taken);
    EXPECT_EQ(record.getU32(kDebugValue1Id, value), c.taken);
    zqerr::Status status;
    EXPECT_EQ(record.getString(kDebugText1Id, nullptr, &status), c.taken);
    EXPECT_EQ(record.getStringVtr(kDebugList2Id, nullptr, &status), c.taken);
    EXPECT_EQ(status.code, c.taken ? zqapalerr_invalidParameter : 0);
  }
}

TEST(SessionAttributesTest, OtherIdsAndTypesAreNotTaken) {
  DebugSessionAttributes record;
  zqerr::Status status;
  uint32_t value = 0;
  EXPECT_FALSE(record.getBool(kDebugValue1Id, value));
  EXPECT_FALSE(record.getU32(kDebugSessionId, value));
  EXPECT_FALSE(record.setBool(12711, 1, &status));
  EXPECT_FALSE(record.setString(kDebugList1Id, "x", &status));
  EXPECT_FALSE(setList(record, kDebugText1Id, {"x"}, &status));
  EXPECT_FALSE(record.reset(0x1273, &status));
  EXPECT_EQ(status.code, 0);
}

struct SetCase {
  const char* label;
  std::function<bool(DebugSessionAttributes&, zqerr_Status*)> set;
  int32_t afterCommit;  // the code of the same set after the commit
  std::function<bool(const DebugSessionAttributes&)> unchanged;
};

class SetAfterCommitTest : public ::testing::TestWithParam<SetCase> {};

TEST_P(SetAfterCommitTest, OnlyTheStoredValueMayBeSetAgain) {
  DebugSessionAttributes open = filled();
  zqerr::Status before;
  EXPECT_TRUE(GetParam().set(open, &before));
  EXPECT_EQ(before.code, 0);

  DebugSessionAttributes record = filled();
  record.markCommitted();
  record.setEnabled(false);  // so that gets still read the record
  zqerr::Status status;
  EXPECT_TRUE(GetParam().set(record, &status));
  EXPECT_EQ(status.code, GetParam().afterCommit);
  if (status.code != 0) {
    EXPECT_TRUE(GetParam().unchanged(record));
    EXPECT_NE(status.report, nullptr);
  }
}

constexpr int32_t kFrozen = nZQMESL::kInternalErrorCannotSetPropertyWhenDebugSessionCommitted;

bool value1Is7(const DebugSessionAttributes& r) {
  uint32_t v = 0;
  return r.getU32(kDebugValue1Id, v) && v == 7;
}

INSTANTIATE_TEST_SUITE_P(
    Values, SetAfterCommitTest,
    ::testing::Values(
        SetCase{"SameBool", [](auto& r, auto* s) { return r.setBool(kDebugSessionId, 5, s); }, 0, nullptr},
        SetCase{"OtherBool", [](auto& r, auto* s) { return r.setBool(kDebugSessionId, 0, s); }, kFrozen,
                [](const DebugSessionAttributes& r) {
                  uint32_t v = 0;
                  return r.getBool(kDebugSessionId, v) && v == 1;
                }},
        SetCase{"SameValue", [](auto& r, auto* s) { return r.setU32(kDebugValue1Id, 7, s); }, 0, nullptr},
        SetCase{"OtherValue", [](auto& r, auto* s) { return r.setU32(kDebugValue1Id, 8, s); }, kFrozen,
                value1Is7},
        SetCase{"ResetValue", [](auto& r, auto* s) { return r.reset(kDebugValue1Id, s); }, kFrozen,
                value1Is7},
        SetCase{"SameText", [](auto& r, auto* s) { return r.setString(kDebugText2Id, "beta", s); }, 0,
                nullptr},
        SetCase{"OtherText", [](auto& r, auto* s) { return r.setString(kDebugText2Id, "Beta", s); }, kFrozen,
                [](const DebugSessionAttributes& r) { return getText(r, kDebugText2Id) == "beta"; }},
        SetCase{"SameListAfterSlashes",
                [](auto& r, auto* s) {
                  return setList(r, kDebugList2Id, {"a", "b/c", "//d"}, s);
                },
                0, nullptr},
        SetCase{"ListInOtherOrder",
                [](auto& r, auto* s) {
                  return setList(r, kDebugList1Id, {"y", "/x"}, s);
                },
                kFrozen,
                [](const DebugSessionAttributes& r) {
                  return getList(r, kDebugList1Id) == Names{"/x", "y"};
                }},
        SetCase{"ShorterList",
                [](auto& r, auto* s) {
                  return setList(r, kDebugList2Id, {"a", "b/c"}, s);
                },
                kFrozen,
                [](const DebugSessionAttributes& r) {
                  return getList(r, kDebugList2Id) == Names{"a", "b/c", "/d"};
                }}),
    [](const ::testing::TestParamInfo<SetCase>& info) { return std::string(info.param.label); });

TEST(SessionAttributesTest, ResetOfAnEmptyValueAfterTheCommitSucceeds) {
  DebugSessionAttributes record;
  record.markCommitted();
  const int32_t ids[] = {kDebugSessionId, kDebugValue1Id, kDebugValue2Id, kDebugText1Id,
                         kDebugText2Id,   kDebugList1Id,  kDebugList2Id};
  for (int32_t id : ids) {
    zqerr::Status status;
    EXPECT_TRUE(record.reset(id, &status));
    EXPECT_EQ(status.code, 0) << id;
  }
}

TEST(SessionAttributesTest, NullViewsAreSoftwareFaults) {
  DebugSessionAttributes record;
  const char* withNull[] = {"a", nullptr};
  zqgopher_ArrayView broken{withNull, 2};
  const zqgopher_ArrayView* views[] = {nullptr, &broken};
  for (const zqgopher_ArrayView* view : views) {
    zqerr::Status status;
    EXPECT_TRUE(record.setStringVtr(kDebugList1Id, view, &status));
    EXPECT_EQ(status.code, zqpalerr_softwareFault);
  }
  EXPECT_TRUE(getList(record, kDebugList1Id).empty());
}

class SessionPluginTest : public ::testing::Test {
 protected:
  void SetUp() override {
    zqerr::Status status;
    plugin_ = zqdynlib::loadPlugin<Plugin>("zqtestSessionPlugin", &status);
    library_ = zqdynlib_load("zqtestSessionPlugin", &status);
    journal_ = reinterpret_cast<const char* (*)()>(
        zqdynlib_getSymbol(library_, "zqtestSessionPlugin_takeJournal", &status));
    ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
    journal_();
  }
  void TearDown() override {
    if (library_) zqplatform::freeLibrary(library_);
  }
  std::shared_ptr<Plugin> plugin_;
  zqplatform::LibraryHandle library_ = nullptr;
  const char* (*journal_)() = nullptr;
};

TEST_F(SessionPluginTest, AllSevenReachThePluginInOrder) {
  DebugSessionAttributes record = filled();
  int dummy = 0;
  zqerr::Status status;
  record.applyDebugAttributes(plugin_.get(), reinterpret_cast<zqvorexPlugin_Task_undefined*>(&dummy),
                              &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_STREQ(journal_(),
               "Bool 12705 1\n"
               "I32 12706 7\n"
               "I32 12707 -2\n"
               "String 12713 alpha\n"
               "String 12708 beta\n"
               "StringVtr 12709 /x|y\n"
               "StringVtr 12710 a|b/c|/d\n");
}

TEST_F(SessionPluginTest, MissingPluginOrTaskIsASoftwareFault) {
  DebugSessionAttributes record = filled();
  int dummy = 0;
  auto* task = reinterpret_cast<zqvorexPlugin_Task_undefined*>(&dummy);
  struct Case {
    PluginInterface* plugin;
    zqvorexPlugin_Task_undefined* task;
  } cases[] = {{nullptr, task}, {plugin_.get(), nullptr}, {nullptr, nullptr}};
  for (const Case& c : cases) {
    zqerr::Status status;
    record.applyDebugAttributes(c.plugin, c.task, &status);
    EXPECT_EQ(status.code, zqpalerr_softwareFault);
  }
  EXPECT_STREQ(journal_(), "");
}

}  // namespace
}  // namespace zqvorexRedir
