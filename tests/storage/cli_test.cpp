// The zqstorage tool, run as a user runs it: its output, its messages and its exit codes.
#include <gtest/gtest.h>

#include <algorithm>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

struct ToolRun {
  int exitCode;
  std::string out;
  std::string err;
};

// The tool writes text: on Windows its lines end in CR LF.
std::string withoutCarriageReturns(std::string text) {
  text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
  return text;
}

ToolRun zqstorage(const std::string& store, const std::string& arguments) {
  const std::string out = "storage_tmp/cli_out.txt";
  const std::string err = "storage_tmp/cli_err.txt";
  const std::string storeOption = store.empty() ? "" : " --store " + store;
  const int code = runCommand(siblingProgram("zqstorage") + storeOption + " " + arguments + " > " + out + " 2> " + err);
  return {code, withoutCarriageReturns(readFile(out)), withoutCarriageReturns(readFile(err))};
}

bool contains(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(StorageTool, AddListAndRemoveASimulatedDevice) {
  const std::string store = useFreshStore("cli_devices");
  EXPECT_EQ(zqstorage(store, "define-class 4660 --plugin zqvorexSim").exitCode, 0);
  ToolRun added = zqstorage(store, "add-device SimDev1 --class 4660 --simulated");
  EXPECT_EQ(added.exitCode, 0) << added.err;
  EXPECT_TRUE(contains(added.out, "added device \"SimDev1\""));

  ToolRun listed = zqstorage(store, "devices");
  EXPECT_EQ(listed.exitCode, 0);
  EXPECT_TRUE(contains(listed.out, "NAME")) << listed.out;
  EXPECT_TRUE(contains(listed.out, "SimDev1  4660   zqvorexSim  yes")) << listed.out;

  // The library sees what the tool saved.
  {
    zqerr::Status status;
    SessionScope session("127.0.0.1", &status);
    LockScope lock(session.id, LockScope::kRead, &status);
    zqvorexStorage_ObjectID id{};
    storage().getObjectIDForNameInNamespace(lock.id, ZQVOREX_STORAGE_CLASS_DEVICE, "SimDev1", &id, &status);
    EXPECT_TRUE(storage().isObjectSimulated(lock.id, &id, &status));
    EXPECT_EQ(status.code, 0);
  }

  EXPECT_EQ(zqstorage(store, "remove-device simdev1").exitCode, 0);
  ToolRun empty = zqstorage(store, "devices");
  EXPECT_EQ(empty.exitCode, 0);
  EXPECT_EQ(empty.out, "no devices are configured\n");
}

TEST(StorageTool, BadInputGivesAMessageAndItsExitCode) {
  const std::string store = useFreshStore("cli_bad_input");
  struct Case {
    const char* arguments;
    int exitCode;
    const char* message;
  };
  const std::vector<Case> cases = {
      {"", 2, "usage: zqstorage"},
      {"frobnicate", 2, "unknown command \"frobnicate\""},
      {"add-device", 2, "too few arguments"},
      {"add-device Dev1", 2, "--class ID is missing"},
      {"add-device Dev1 --class abc", 2, "must be a number"},
      {"add-device Dev1 --class 1 --bogus", 2, "unknown option --bogus"},
      {"define-class 5", 2, "--plugin NAME is missing"},
      {"remove-device Dev1 extra", 2, "unexpected argument \"extra\""},
      {"import storage_tmp/no_such_file.ini", 2, "cannot read the file"},
      {"remove-device Nope", 1, "no device is named \"Nope\""},
      {"delete-task Nope", 1, "no saved task is named \"Nope\""},
      {"remove-class 77", 1, "no device class has the id 77"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.arguments);
    const ToolRun run = zqstorage(store, c.arguments);
    EXPECT_EQ(run.exitCode, c.exitCode);
    EXPECT_TRUE(contains(run.exitCode == 2 && std::string(c.arguments).empty() ? run.out : run.err, c.message))
        << run.out << run.err;
  }
}

TEST(StorageTool, ADamagedStoreIsAStoreError) {
  const std::string store = useFreshStore("cli_damaged");
  writeFile(store, std::string(2048, '#'));
  const ToolRun run = zqstorage(store, "devices");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_TRUE(contains(run.err, "not a store or is damaged")) << run.err;
  EXPECT_TRUE(contains(run.err, "-52006")) << run.err;
}

TEST(StorageTool, ImportedTaskExportsAsTextThatReadsBackTheSame) {
  const std::string store = useFreshStore("cli_ini");
  writeFile("storage_tmp/cli_task.ini",
            "[task Log]\nauthor = ann\nchannels = ai0, Shared\nread_attributes = hex:0001\n"
            "[channel ai0]\ntask = Log\ndevice = SimDev1\nphysical_channels = SimDev1/ai0\n"
            "[channel Shared]\ndevice = SimDev1\nphysical_channels = SimDev1/ai7\n");
  const ToolRun imported = zqstorage(store, "import storage_tmp/cli_task.ini");
  EXPECT_EQ(imported.exitCode, 0) << imported.err;
  EXPECT_EQ(imported.out, "imported task \"Log\"\nimported global channel \"Shared\"\n");
  EXPECT_TRUE(contains(zqstorage(store, "tasks").out, "Log   ai0, Shared  ann"));
  EXPECT_TRUE(contains(zqstorage(store, "channels").out, "Shared   SimDev1  SimDev1/ai7"));

  const ToolRun exported = zqstorage(store, "export Log");
  ASSERT_EQ(exported.exitCode, 0) << exported.err;
  zqerr::Status status;
  const uint64_t session = storage().getSessionFromConfigString(exported.out.c_str(), 0, &status);
  ASSERT_NE(session, 0u) << exported.out << (status.report ? status.report : "");
  {
    LockScope token(session, LockScope::kSpecRead, &status);
    const uint64_t task = specs().getTaskSpecification(token.id, "Log", &status);
    ASSERT_NE(task, 0u);
    NamesOut channels, globals;
    TextOut author, block;
    taskSpec().ChannelTaskSpecification_getChannelDataList(task, channels.get(), globals.get(), &status);
    taskSpec().ChannelTaskSpecification_getAuthor(task, author.get(), &status);
    taskSpec().ChannelTaskSpecification_getReadAttributeDataBlock(task, block.get(), &status);
    specs().destroyTaskSpecification(task, &status);
    EXPECT_EQ(channels.items, (std::vector<std::string>{"ai0", "Shared"}));
    EXPECT_EQ(globals.items, (std::vector<std::string>{"", "Shared"}));
    EXPECT_EQ(author.text, "ann");
    EXPECT_EQ(block.text, std::string("\0\x01", 2));
  }
  storage().releaseSession(session, &status);
  EXPECT_EQ(status.code, 0);

  EXPECT_EQ(zqstorage(store, "delete-task Log").exitCode, 0);
  EXPECT_EQ(zqstorage(store, "delete-channel Shared").exitCode, 0);
  EXPECT_EQ(zqstorage(store, "tasks").out, "no tasks are saved\n");
}

TEST(StorageTool, MakesAFreshStoreWithTheSimulatedDeviceOnlyWhenToldToReplaceOne) {
  const std::string store = useFreshStore("cli_sim_store");
  const ToolRun made = zqstorage(store, "new-sim-store");
  EXPECT_EQ(made.exitCode, 0) << made.err;
  EXPECT_EQ(made.out, "made a fresh store holding \"SimDev1\"\n");
  EXPECT_EQ(zqstorage(store, "add-device Other --class 7").exitCode, 0);
  const ToolRun again = zqstorage(store, "new-sim-store");
  EXPECT_EQ(again.exitCode, 2);
  EXPECT_TRUE(contains(again.err, "--force")) << again.err;
  EXPECT_EQ(zqstorage(store, "new-sim-store --force").exitCode, 0);
  const ToolRun listed = zqstorage(store, "devices");
  EXPECT_TRUE(contains(listed.out, "SimDev1  23809  zqvorexSim  yes")) << listed.out;
  EXPECT_FALSE(contains(listed.out, "Other")) << "the old store is gone";
}

TEST(StorageTool, SetsWhatAnInputOfASimulatedDeviceSees) {
  const std::string store = useFreshStore("cli_sim_signals");
  ASSERT_EQ(zqstorage(store, "add-sim-device Bench --speed 20").exitCode, 0);
  const ToolRun set = zqstorage(store, "set-signal Bench ai3 square amplitude=2 frequency=5 duty=25");
  EXPECT_EQ(set.exitCode, 0) << set.err;
  EXPECT_EQ(set.out, "Bench/ai3: square amplitude=2 frequency=5 offset=0 phase=0 duty=25 noise=0.001\n");
  const ToolRun listed = zqstorage(store, "sim-devices");
  EXPECT_TRUE(contains(listed.out, "Bench (speed 20)")) << listed.out;
  EXPECT_TRUE(contains(listed.out, "  ai3: square amplitude=2")) << listed.out;
  EXPECT_TRUE(
      contains(listed.out, "  ai4: sine amplitude=3 frequency=50 offset=0 phase=0 noise=0.001 (default)"));

  const ToolRun bad = zqstorage(store, "set-signal Bench ai3 square duty=150");
  EXPECT_EQ(bad.exitCode, 2);
  EXPECT_TRUE(contains(bad.err, "duty")) << bad.err;
  EXPECT_EQ(zqstorage(store, "set-signal Bench ai16 sine").exitCode, 2);
  EXPECT_EQ(zqstorage(store, "reset-signal Bench ai3").exitCode, 0);
  EXPECT_TRUE(contains(zqstorage(store, "sim-devices").out, "  ai3: sine amplitude=2.5"));
}

TEST(StorageTool, RemovesOnlySimulatedDevicesAsSuch) {
  const std::string store = useFreshStore("cli_sim_remove");
  ASSERT_EQ(zqstorage(store, "add-sim-device SimA").exitCode, 0);
  ASSERT_EQ(zqstorage(store, "add-device Real --class 7").exitCode, 0);
  EXPECT_EQ(zqstorage(store, "remove-sim-device Real").exitCode, 2);
  EXPECT_EQ(zqstorage(store, "remove-sim-device SimA").exitCode, 0);
  EXPECT_EQ(zqstorage(store, "sim-devices").out, "no simulated devices are configured\n");
  EXPECT_EQ(zqstorage(store, "remove-sim-device SimA").exitCode, 1) << "the store knows no such device";
}

}  // namespace
}  // namespace zqtest
