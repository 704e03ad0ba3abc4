// Sessions made from INI task text: the store holds exactly what the text holds, the task's
// channels resolve as the driver resolves them, and text that is not of the form is refused
// with the line that is wrong.
#include <gtest/gtest.h>

#include <tuple>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

const char* const kOneTask = R"ini(
; written by a plug-in
[zqvorex]
version = 1

[task Voltage Log]
description = "  two channels, one shared  "
author = ann
channels = Voltage_0, SharedTemp
timing_attributes = hex:00ff10

[channel Voltage_0]
task = Voltage Log
type = 10322
device = SimDev1
physical_channels = SimDev1/ai0, "SimDev1/ai1"
)ini";

const char* const kTwoTasks = R"ini(
[task First]
[task Second]
[channel a]
task = Second
[channel b]
task = First
[channel Shared]
device = SimDev2
physical_channels = SimDev2/ai3
)ini";

// Tasks and channels in the order of the text; no device comes from a text.
TEST(IniSessions, TheStoreHoldsTheTasksAndChannelsOfTheTextInItsOrder) {
  using Names = std::vector<std::string>;
  const std::tuple<const char*, Names, Names> cases[] = {{kTwoTasks, {"First", "Second"}, {"a", "b", "Shared"}},
                                                         {"", {}, {}}};
  for (const auto& [text, tasks, channels] : cases) {
    zqerr::Status status;
    const uint64_t session = storage().getSessionFromConfigString(text, 0, &status);
    ASSERT_NE(session, 0u) << (status.report ? status.report : "");
    {
      LockScope lock(session, LockScope::kRead, &status);
      EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_TASK, &status), tasks);
      EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_CHANNEL, &status), channels);
      EXPECT_TRUE(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status).empty());
    }
    storage().releaseSession(session, &status);
    EXPECT_EQ(status.code, 0);
  }
}

TEST(IniSessions, TaskChannelsResolveByTaskAndThenByGlobalName) {
  zqerr::Status status;
  const uint64_t session = storage().getSessionFromConfigString(kOneTask, 7, &status);
  ASSERT_NE(session, 0u) << (status.report ? status.report : "");
  LockScope lock(session, LockScope::kRead, &status);
  const std::vector<std::string> taskNames = namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_TASK, &status);
  ASSERT_EQ(taskNames, std::vector<std::string>{"Voltage Log"});
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_CHANNEL, &status), std::vector<std::string>{"Voltage_0"});

  LockScope token(session, LockScope::kSpecRead, &status);
  const uint64_t task = specs().getTaskSpecification(token.id, "Voltage Log", &status);
  ASSERT_NE(task, 0u);
  NamesOut channels, globals;
  TextOut description, timing;
  taskSpec().ChannelTaskSpecification_getChannelDataList(task, channels.get(), globals.get(), &status);
  taskSpec().ChannelTaskSpecification_getTaskDescription(task, description.get(), &status);
  taskSpec().ChannelTaskSpecification_getTimingAttributeDataBlock(task, timing.get(), &status);
  specs().destroyTaskSpecification(task, &status);
  EXPECT_EQ(channels.items, (std::vector<std::string>{"Voltage_0", "SharedTemp"}));
  EXPECT_EQ(globals.items, (std::vector<std::string>{"", "SharedTemp"}));
  EXPECT_EQ(description.text, "  two channels, one shared  ");
  EXPECT_EQ(timing.text, std::string("\x00\xff\x10", 3));

  const uint64_t channel = specs().getChannelSpecificationByTaskAndChan(token.id, "Voltage Log", "Voltage_0", &status);
  ASSERT_NE(channel, 0u);
  TextOut device;
  NamesOut physical;
  channelSpec().ChannelSpecification_getEndpointDeviceIdentifier(channel, device.get(), &status);
  channelSpec().ChannelSpecification_getPhysicalChannelNameList(channel, physical.get(), &status);
  EXPECT_EQ(channelSpec().ChannelSpecification_getChannelType(channel, &status), 10322);
  specs().destroyChannelSpecification(channel, &status);
  EXPECT_EQ(device.text, "SimDev1");
  EXPECT_EQ(physical.items, (std::vector<std::string>{"SimDev1/ai0", "SimDev1/ai1"}));
  // SharedTemp is global and not in this text: the driver finds it in the local store.
  EXPECT_EQ(specs().getChannelSpecificationByName(token.id, "SharedTemp", &status), 0u);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  token.end();
  lock.end();
  storage().releaseSession(session, &status);
}

TEST(IniSessions, TextNotOfTheFormIsRefusedWithItsLine) {
  struct Case {
    const char* name;
    const char* text;
    int32_t code;
    const char* line;
  };
  const std::vector<Case> cases = {
      {"line without '='", "[task A]\nchannels\n", zqapalerr_invalidParameter, "2"},
      {"unknown section", "\n\n[scale S]\n", zqapalerr_invalidParameter, "3"},
      {"unknown key", "[task A]\nspeed = 3\n", zqapalerr_invalidParameter, "2"},
      {"key twice", "[task A]\nauthor = a\nauthor = b\n", zqapalerr_invalidParameter, "3"},
      {"bad boolean", "[task A]\nverified = maybe\n", zqapalerr_invalidParameter, "2"},
      {"open quote", "[task A]\nauthor = \"ann\n", zqapalerr_invalidParameter, "2"},
      {"bad hex block", "[task A]\nread_attributes = hex:0g\n", zqapalerr_invalidParameter, "2"},
      {"key before a section", "author = a\n", zqapalerr_invalidParameter, "1"},
      {"section without a name", "[task]\n", zqapalerr_invalidParameter, "1"},
      {"task defined twice", "[task A]\n[task a]\n", zqapalerr_invalidParameter, "2"},
      {"channel of a task the text lacks", "[task A]\n[channel c]\ntask = B\n", zqapalerr_invalidParameter, "2"},
      {"type out of range", "[channel c]\ntype = 4294967296\n", zqapalerr_invalidParameter, "2"},
      {"newer version", "[zqvorex]\nversion = 2\n", zqapalerr_featureUnsupported, kAbsent},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    EXPECT_EQ(storage().getSessionFromConfigString(c.text, 0, &status), 0u);
    EXPECT_EQ(status.code, c.code);
    EXPECT_TRUE(reportWellFormed(status));
    EXPECT_EQ(reportAt(status.report, {"zqvorexStorage_debug", "line"}), c.line) << status.report;
  }
}

TEST(IniSessions, MemoryStoresAreSharedBetweenSessionsOfOneProcess) {
  zqerr::Status status;
  TextOut url;
  storage().constructInMemoryStorageUrl(url.get(), &status);
  ASSERT_EQ(status.code, 0);
  {
    SessionScope writer(url.text.c_str(), &status);
    LockScope lock(writer.id, LockScope::kWrite, &status);
    addDevice(lock.id, "MemDev", 1, &status);
    storage().saveStorageChanges(lock.id, &status);
  }
  SessionScope reader(url.text.c_str(), &status);
  LockScope lock(reader.id, LockScope::kRead, &status);
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status), std::vector<std::string>{"MemDev"});
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  zqerr::Status unknown;
  EXPECT_EQ(storage().getSession("memory:999999", &unknown), 0u);
  EXPECT_EQ(unknown.code, zqapalerr_resourceNotFound);
}

}  // namespace
}  // namespace zqtest
