// The session record: its set rule before and after the commit, its answers to gets, and the
// hand-over to a plug-in's table.
#include <gtest/gtest.h>

#include <functional>

#include "boundary/array_view.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"
#include "debug/debug_session_attributes.h"
#include "plugin/plugin.h"
#include "slot_plugin.h"
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

// Every value as the gets answer while they read the record.
std::string snapshot(const DebugSessionAttributes& record) {
  uint32_t flag = 0, value1 = 0, value2 = 0;
  EXPECT_TRUE(record.getBool(kDebugSessionId, flag) && record.getU32(kDebugValue1Id, value1) &&
              record.getU32(kDebugValue2Id, value2));
  std::string text = std::to_string(flag) + "|" + std::to_string(value1) + "|" + std::to_string(value2) + "|" +
                     getText(record, kDebugText1Id) + "|" + getText(record, kDebugText2Id);
  for (int32_t id : {kDebugList1Id, kDebugList2Id}) {
    text += "|";
    for (const std::string& name : getList(record, id)) text += name + ",";
  }
  return text;
}

// Before the commit the gets read the record; the second list drops a leading slash of each name.
constexpr const char* kFilled = "1|7|4294967294|alpha|beta|/x,y,|a,b/c,/d,";

TEST(SessionAttributesTest, GetsAnswerFromTheRecordBeforeTheCommit) { EXPECT_EQ(snapshot(filled()), kFilled); }

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
  bool frozen;  // the value differs from the stored one: refused after the commit
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
  EXPECT_EQ(status.code, GetParam().frozen ? nZQMESL::kInternalErrorCannotSetPropertyWhenDebugSessionCommitted : 0);
  EXPECT_EQ(status.report != nullptr, GetParam().frozen);
  EXPECT_EQ(snapshot(record), kFilled);
}

INSTANTIATE_TEST_SUITE_P(
    Values, SetAfterCommitTest,
    ::testing::Values(
        SetCase{"SameBool", [](auto& r, auto* s) { return r.setBool(kDebugSessionId, 5, s); }, false},
        SetCase{"OtherBool", [](auto& r, auto* s) { return r.setBool(kDebugSessionId, 0, s); }, true},
        SetCase{"SameValue", [](auto& r, auto* s) { return r.setU32(kDebugValue1Id, 7, s); }, false},
        SetCase{"OtherValue", [](auto& r, auto* s) { return r.setU32(kDebugValue1Id, 8, s); }, true},
        SetCase{"ResetValue", [](auto& r, auto* s) { return r.reset(kDebugValue1Id, s); }, true},
        SetCase{"SameText", [](auto& r, auto* s) { return r.setString(kDebugText2Id, "beta", s); }, false},
        SetCase{"OtherText", [](auto& r, auto* s) { return r.setString(kDebugText2Id, "Beta", s); }, true},
        SetCase{"SameListAfterSlashes",
                [](auto& r, auto* s) { return setList(r, kDebugList2Id, {"a", "b/c", "//d"}, s); }, false},
        SetCase{"ListInOtherOrder", [](auto& r, auto* s) { return setList(r, kDebugList1Id, {"y", "/x"}, s); }, true},
        SetCase{"ShorterList", [](auto& r, auto* s) { return setList(r, kDebugList2Id, {"a", "b/c"}, s); }, true}),
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
  void SetUp() override { zqtest::callLog().clear(); }
  std::shared_ptr<Plugin> plugin_ = zqtest::makeSlotPlugin();
};

TEST_F(SessionPluginTest, AllSevenReachThePluginInOrder) {
  DebugSessionAttributes record = filled();
  zqerr::Status status;
  record.applyDebugAttributes(plugin_.get(), zqtest::slotTaskHandle(), &status);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(zqtest::callLog(), (Names{"setTaskAttributeBool:task:12705:1", "setTaskAttributeI32:task:12706:7",
                                      "setTaskAttributeI32:task:12707:-2", "setTaskAttributeString:task:12713:alpha",
                                      "setTaskAttributeString:task:12708:beta",
                                      "setTaskAttributeStringVtr:task:12709:/x,y",
                                      "setTaskAttributeStringVtr:task:12710:a,b/c,/d"}));
}

TEST_F(SessionPluginTest, MissingPluginOrTaskIsASoftwareFault) {
  DebugSessionAttributes record = filled();
  struct Case {
    PluginInterface* plugin;
    zqvorexPlugin_Task_undefined* task;
  } cases[] = {{nullptr, zqtest::slotTaskHandle()}, {plugin_.get(), nullptr}, {nullptr, nullptr}};
  for (const Case& c : cases) {
    zqerr::Status status;
    record.applyDebugAttributes(c.plugin, c.task, &status);
    EXPECT_EQ(status.code, zqpalerr_softwareFault);
  }
  EXPECT_TRUE(zqtest::callLog().empty());
}

}  // namespace
}  // namespace zqvorexRedir
