#include "toggles/runtime_toggles.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "status/exceptions.h"
#include "zqvorex_status_codes.h"
#include "toggle_registry.h"
#include "toggles/feature_toggles.h"
#include "toggles/toggle_source.h"

namespace {

using zqtest::ScratchRegistry;
using zqtest::setToggleValue;
using Store = runtime_toggles::RuntimeToggles<bool, bool, 6>;

struct Answer {
  bool value;
  zqerr::FixedStatus status;
};

Answer get(nZQCAI100::Toggles& toggles, const char* name, bool defaultValue, bool start = false) {
  Answer answer{start, zqerr::makeFixedStatus()};
  toggles.getToggle(name, &defaultValue, &answer.value, &answer.status);
  return answer;
}

class Toggles : public testing::Test {
 protected:
  ScratchRegistry registry_{ScratchRegistry::Scope::kPrivate};
  zqerr::FixedStatus built_ = zqerr::makeFixedStatus();
  nZQCAI100::FeatureToggles settings_{&built_};
  nZQCAI100::Toggles& toggles_ = settings_.toggles();
};

// --- the first read ---------------------------------------------------------------------------

struct ReadCase {
  const char* label;
  std::optional<std::string> value;  // none: the key is absent
  bool defaultValue;
  bool expected;
  int32_t code;
};

const ReadCase kReads[] = {
    {"True", "True", false, true, 0},
    {"False", "False", true, false, 0},
    {"empty", "", true, false, 0},
    {"fills_the_buffer", "Trues", true, false, 0},
    {"too_long_keeps_true_default", "TrueTrue", true, true, -52003},
    {"too_long_keeps_false_default", "TrueTrue", false, false, -52003},
    {"absent_keeps_true_default", std::nullopt, true, true, -52006},
    {"absent_keeps_false_default", std::nullopt, false, false, -52006},
};

class FirstRead : public Toggles, public testing::WithParamInterface<ReadCase> {};

TEST_P(FirstRead, GivesTheValueOrTheDefaultWithItsStatus) {
  const ReadCase& c = GetParam();
  if (c.value) setToggleValue(registry_, "DebugSession", *c.value);
  Answer answer = get(toggles_, "DebugSession", c.defaultValue, !c.expected);
  EXPECT_EQ(answer.value, c.expected);
  EXPECT_EQ(answer.status.code, c.code);
  if (c.code != 0) {
    EXPECT_STREQ(answer.status.file, "runtimetoggles");
    EXPECT_EQ(answer.status.line, 36u);
  }
  // The answer is cached, read or not (a failed read as its first default): the second read,
  // with the other default, sets no status.
  Answer again = get(toggles_, "DebugSession", !c.defaultValue, !c.expected);
  EXPECT_EQ(again.value, c.expected);
  EXPECT_EQ(again.status.code, 0);
}

INSTANTIATE_TEST_SUITE_P(Values, FirstRead, testing::ValuesIn(kReads),
                         [](const auto& info) { return std::string(info.param.label); });

TEST_F(Toggles, KeyWithoutTheValueKeepsTheDefault) {
  registry_.setString(ScratchRegistry::View::k64, zqtest::toggleKey("DebugSession"), "Other", "True");
  Answer answer = get(toggles_, "DebugSession", false, true);
  EXPECT_FALSE(answer.value);
  EXPECT_EQ(answer.status.code, -52006);
}

TEST(ToggleKey, FollowsTheProductWordWithoutSeparator) {
  std::string key;
  EXPECT_TRUE(runtime_toggles::toggleKeyText("Torvane", "zqvorex", "DebugSession", &key));
  EXPECT_EQ(key, "SOFTWARE\\WOW6432Node\\Torvane\\SystemSettings\\zqvorexDebugSession");
  EXPECT_FALSE(runtime_toggles::toggleKeyText("Torvane", "zqvorex", std::string(461, 'n').c_str(), &key));
  EXPECT_TRUE(runtime_toggles::toggleKeyText("Torvane", "zqvorex", std::string(460, 'n').c_str(), &key));
}

struct TextCase {
  std::u16string buffer;  // six units
  bool isTrue;
};

TEST(ToggleText, IsTrueOnlyForTrueInAnyCase) {
  const TextCase cases[] = {
      {std::u16string(u"True\0\0", 6), true},  {std::u16string(u"tRuE\0\0", 6), true},
      {std::u16string(u"True\0x", 6), true},   {std::u16string(u"Tru\0\0\0", 6), false},
      {std::u16string(u"Truex\0", 6), false},  {std::u16string(u"TrueTr", 6), false},
      {std::u16string(u"\0\0\0\0\0\0", 6), false}, {std::u16string(u"Tr\u00DCe\0\0", 6), false},
  };
  for (const TextCase& c : cases)
    EXPECT_EQ(runtime_toggles::isTrueText(c.buffer.data(), 6), c.isTrue) << c.buffer.size();
}

// --- the cache ---------------------------------------------------------------------------------

TEST_F(Toggles, CachedValueStandsUntilCleared) {
  using Clear = void (*)(nZQCAI100::Toggles&);
  const std::pair<const char*, Clear> clears[] = {
      {"clearToggles", [](nZQCAI100::Toggles& t) { t.clearToggles(); }},
      {"clearTogglesWithStatus",
       [](nZQCAI100::Toggles& t) {
         zqerr::FixedStatus status = zqerr::makeFixedStatus();
         zqerr::setFixed(&status, 77, "kept", "warning", 3);
         t.clearTogglesWithStatus(&status);
         EXPECT_EQ(status.code, 77);
         EXPECT_STREQ(status.file, "warning");
       }},
  };
  for (const auto& [label, clear] : clears) {
    SCOPED_TRACE(label);
    setToggleValue(registry_, "DebugSession", "True");
    EXPECT_TRUE(get(toggles_, "DebugSession", false).value);
    setToggleValue(registry_, "DebugSession", "False");
    EXPECT_TRUE(get(toggles_, "DebugSession", false).value) << "answered from the cache";
    clear(toggles_);
    EXPECT_FALSE(get(toggles_, "DebugSession", true).value) << "read again after the clear";
    toggles_.clearToggles();
  }
}

TEST_F(Toggles, SetToggleReplacesAndAnswersWithoutTheRegistry) {
  setToggleValue(registry_, "DebugSession", "True");
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  bool off = false, on = true;
  toggles_.setToggle("NeverRead", &off, &status);
  Answer set = get(toggles_, "NeverRead", true);
  EXPECT_FALSE(set.value);
  EXPECT_EQ(set.status.code, 0) << "no registry read for a set toggle";

  EXPECT_TRUE(get(toggles_, "DebugSession", false).value);
  toggles_.setToggle("DebugSession", &off, &status);
  EXPECT_FALSE(get(toggles_, "DebugSession", true).value);
  toggles_.setToggle("DebugSession", &on, &status);
  EXPECT_TRUE(get(toggles_, "DebugSession", false).value);
  EXPECT_EQ(status.code, 0);
}

TEST_F(Toggles, NamesDifferingInCaseAreTwoEntries) {
  setToggleValue(registry_, "DebugSession", "True");
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  bool off = false;
  toggles_.setToggle("debugsession", &off, &status);
  EXPECT_TRUE(get(toggles_, "DebugSession", false).value) << "read from its own key, not the other entry";
  EXPECT_FALSE(get(toggles_, "debugsession", true).value);
}

// --- refused names and stores --------------------------------------------------------------------

TEST_F(Toggles, EmptyNameIsRefusedAndItsDefaultCached) {
  Answer first = get(toggles_, "", true);
  EXPECT_TRUE(first.value);
  EXPECT_EQ(first.status.code, zqapalerr_invalidParameter);
  EXPECT_STREQ(first.status.file, "RuntimeToggles");
  EXPECT_EQ(first.status.line, 1079u);
  EXPECT_EQ(get(toggles_, "", false).status.code, 0);
}

TEST_F(Toggles, NullResultIsRefused) {
  bool defaultValue = true;
  zqerr::FixedStatus status = zqerr::makeFixedStatus();
  toggles_.getToggle("DebugSession", &defaultValue, nullptr, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_EQ(status.line, 1101u);
}

TEST_F(Toggles, NameTooLongForTheKeyFails) {
  Answer answer = get(toggles_, std::string(600, 'n').c_str(), true);
  EXPECT_TRUE(answer.value);
  EXPECT_EQ(answer.status.code, -52019);
}

TEST(TogglesStore, EmptyCompanyOrProductRefusesEveryName) {
  ScratchRegistry registry(ScratchRegistry::Scope::kPrivate);
  setToggleValue(registry, "DebugSession", "True");
  runtime_toggles::SystemSettingsAccessor accessor;
  const std::pair<const char*, const char*> texts[] = {{"zqvorex", ""}, {"", "Torvane"}};
  for (const auto& [product, company] : texts) {
    zqerr::FixedStatus built = zqerr::makeFixedStatus();
    Store store(product, "features.ini", company, &accessor, &built);
    Answer answer = get(store, "DebugSession", false);
    EXPECT_FALSE(answer.value);
    EXPECT_EQ(answer.status.code, zqapalerr_invalidParameter);
    EXPECT_EQ(answer.status.line, 1079u);
  }
}

class FailedAccessor : public runtime_toggles::iSystemSettingsAccessor {
 public:
  FailedAccessor() { zqerr::setFixed(&status_, -52008, "zqcai_rd_mbcs", "accessor", 5); }
  const zqerr::FixedStatus& getStatus() const override { return status_; }

 private:
  zqerr::FixedStatus status_ = zqerr::makeFixedStatus();
};

TEST(TogglesStore, FailedConstructionThrowsTheStatus) {
  runtime_toggles::SystemSettingsAccessor clean;
  FailedAccessor failed;
  struct Case {
    const char* label;
    runtime_toggles::iSystemSettingsAccessor* accessor;
    int32_t given;
    int32_t thrown;
    const char* file;
  };
  const Case cases[] = {
      {"a failed status given", &clean, -50150, -50150, "given"},
      {"a failed accessor", &failed, 0, -52008, "RuntimeToggles"},
  };
  for (const Case& c : cases) {
    zqerr::FixedStatus status = zqerr::makeFixedStatus();
    zqerr::setFixed(&status, c.given, "zqcai_rd_mbcs", "given", 1);
    try {
      Store store("zqvorex", "features.ini", "Torvane", c.accessor, &status);
      ADD_FAILURE() << c.label << ": no exception";
    } catch (const zqerr::Exception& e) {
      EXPECT_EQ(e.status().code, c.thrown) << c.label;
      EXPECT_NE(std::string(e.what()).find(c.file), std::string::npos) << c.label << ": " << e.what();
    }
    EXPECT_EQ(status.code, c.thrown) << c.label;
    if (c.accessor == &failed) {
      EXPECT_EQ(status.line, 664u);
    }
  }
}

// Built while an exception unwinds, a failed store does not throw; it answers nothing.
struct BuildWhileUnwinding {
  bool* result;
  bool* cachedAfterSet;
  ~BuildWhileUnwinding() {
    runtime_toggles::SystemSettingsAccessor accessor;
    zqerr::FixedStatus status = zqerr::makeFixedStatus();
    zqerr::setFixed(&status, -1, "zqcai_rd_mbcs", "given", 1);
    Store store("zqvorex", "features.ini", "Torvane", &accessor, &status);
    bool defaultValue = false, on = true;
    zqerr::FixedStatus call = zqerr::makeFixedStatus();
    store.getToggle("DebugSession", &defaultValue, result, &call);
    store.setToggle("Other", &on, &call);
    store.getToggle("Other", &defaultValue, cachedAfterSet, &call);
    EXPECT_EQ(call.code, 0);
    EXPECT_EQ(store.status().code, -1);
    EXPECT_EQ(store.status().line, 662u);
  }
};

TEST(TogglesStore, FailedStoreLeavesTheResultAsTheCallerPutIt) {
  ScratchRegistry registry(ScratchRegistry::Scope::kPrivate);
  setToggleValue(registry, "DebugSession", "False");
  bool result = true, cachedAfterSet = false;
  try {
    BuildWhileUnwinding build{&result, &cachedAfterSet};
    throw std::runtime_error("unwinding");
  } catch (const std::runtime_error&) {
  }
  EXPECT_TRUE(result);
  EXPECT_FALSE(cachedAfterSet);
}

// --- threads -------------------------------------------------------------------------------------

TEST_F(Toggles, ThreadsReadingOneNameAllSeeTheOneValue) {
  setToggleValue(registry_, "DebugSession", "True");
  std::vector<std::thread> threads;
  std::vector<char> seen(8, 0);
  for (size_t i = 0; i < seen.size(); ++i)
    threads.emplace_back([this, &seen, i] {
      bool on = true;
      zqerr::FixedStatus status = zqerr::makeFixedStatus();
      for (int round = 0; round < 50; ++round) {
        std::string other = "Other" + std::to_string((i + round) % 5);
        toggles_.setToggle(other, &on, &status);
        toggles_.touchLock();
        get(toggles_, other.c_str(), false);
      }
      seen[i] = get(toggles_, "DebugSession", false).value ? 1 : 2;
    });
  for (auto& t : threads) t.join();
  for (char s : seen) EXPECT_EQ(s, 1);
}

}  // namespace
