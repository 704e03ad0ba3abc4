#include "task/event_cache.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace {

using zqvorexRedir::EventCache;
using zqvorexRedir::EventTokens;

enum class Op { add, remove };

struct Step {
  Op op;
  int32_t eventId;  // unused by remove
  zqvorexPlugin_EventToken token;
  int32_t code;
  int32_t entry = 0;  // the status on entry
};

struct Expected {
  int32_t eventId;
  EventTokens tokens;
};

struct CacheCase {
  const char* name;
  std::vector<Step> steps;
  std::vector<Expected> after;
  bool empty;
  size_t ids;
};

int boundaryObject;
constexpr int32_t kFailed = -200088;
constexpr int32_t kWarning = 200;
constexpr int32_t kTwice = nZQMESL::kInternalErrorEventAlreadyRegisteredInTask;
constexpr int32_t kMissing = zqapalerr_resourceNotFound;

TEST(EventCache, KeepsTokensUnderTheirIdsInTokenOrder) {
  const CacheCase cases[] = {
      {"tokens of one id come in token order",
       {{Op::add, 12576, 30, 0}, {Op::add, 12576, 10, 0}, {Op::add, 12576, 20, 0}},
       {{12576, {10, 20, 30}}, {12575, {}}},
       false,
       1},
      {"ids are kept apart",
       {{Op::add, 12580, 4, 0}, {Op::add, 12581, 3, 0}, {Op::add, 12575, 2, 0}},
       {{12580, {4}}, {12581, {3}}, {12575, {2}}, {12576, {}}},
       false,
       3},
      {"a token already there is refused under any id and changes nothing",
       {{Op::add, 12576, 7, 0}, {Op::add, 12575, 7, kTwice}, {Op::add, 12576, 7, kTwice}},
       {{12576, {7}}, {12575, {}}},
       false,
       1},
      {"the refused token can still be removed once",
       {{Op::add, 12580, 7, 0},
        {Op::add, 12581, 7, kTwice},
        {Op::remove, 0, 7, 0},
        {Op::remove, 0, 7, kMissing}},
       {{12580, {}}, {12581, {}}},
       true,
       0},
      {"removing a token that is not there",
       {{Op::add, 12576, 1, 0}, {Op::remove, 0, 2, kMissing}},
       {{12576, {1}}},
       false,
       1},
      {"an id goes with its last token and can come back",
       {{Op::add, 12580, 1, 0},
        {Op::add, 12580, 2, 0},
        {Op::remove, 0, 1, 0},
        {Op::remove, 0, 2, 0},
        {Op::add, 12580, 1, 0}},
       {{12580, {1}}},
       false,
       1},
      {"remove leaves the other id alone",
       {{Op::add, 12580, 1, 0}, {Op::add, 12576, 2, 0}, {Op::remove, 0, 2, 0}},
       {{12580, {1}}, {12576, {}}},
       false,
       1},
      {"nothing registered", {}, {{12576, {}}}, true, 0},
      {"a failed status changes nothing, not even to refuse a duplicate or a missing token",
       {{Op::add, 12576, 5, 0},
        {Op::add, 12576, 6, kFailed, kFailed},
        {Op::add, 12576, 5, kFailed, kFailed},
        {Op::remove, 0, 5, kFailed, kFailed},
        {Op::remove, 0, 99, kFailed, kFailed}},
       {{12576, {5}}},
       false,
       1},
      {"a warning does not stop it",
       {{Op::add, 12576, 5, kWarning, kWarning}, {Op::remove, 0, 5, kWarning, kWarning}},
       {{12576, {}}},
       true,
       0},
  };
  for (const CacheCase& c : cases) {
    EventCache cache;
    for (size_t i = 0; i < c.steps.size(); ++i) {
      const Step& step = c.steps[i];
      zqerr::Status status;
      status.code = step.entry;
      if (step.op == Op::add)
        cache.add(step.eventId, step.token, &boundaryObject, &status);
      else
        cache.remove(step.token, &status);
      EXPECT_EQ(status.code, step.code) << c.name << " step " << i;
    }
    zqerr::Status status;
    for (const Expected& expected : c.after)
      EXPECT_EQ(cache.getEvents(expected.eventId, &status), expected.tokens)
          << c.name << " id " << expected.eventId;
    EXPECT_EQ(cache.isEmpty(&status), c.empty) << c.name;
    EXPECT_EQ(cache.idCount(), c.ids) << c.name << ": ids left";
    EXPECT_EQ(status.code, 0) << c.name;
  }
}

TEST(EventCache, AFailedStatusReadsNothing) {
  EventCache cache;
  zqerr::Status good;
  cache.add(12576, 5, &boundaryObject, &good);
  zqerr::Status failed;
  failed.code = kFailed;
  EXPECT_TRUE(cache.getEvents(12576, &failed).empty());
  EXPECT_EQ(failed.code, kFailed);
}

}  // namespace
