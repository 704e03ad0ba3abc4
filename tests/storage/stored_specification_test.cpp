// Saved tasks and channels through the specification operations: every field round-trips,
// names follow their rules, and the objects of the store show what was saved.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

// A channel specification with every field set, through the setters.
uint64_t fullChannel(const char* name, const char* task, zqerr_Status* status) {
  const uint64_t definition = api().createChannelSpecification(status);
  api().ChannelSpecification_setName(definition, name, status);
  api().ChannelSpecification_setParentTaskName(definition, task, status);
  api().ChannelSpecification_setScaleNameList(definition, NamesIn({"Scale A", "Scale, B"}).boundary(), status);
  api().ChannelSpecification_setCustomScaleName(definition, "Custom", status);
  api().ChannelSpecification_setEndpointDeviceIdentifier(definition, "SimDev1", status);
  api().ChannelSpecification_setPhysicalChannelNameList(definition, NamesIn({"SimDev1/ai0", "SimDev1/ai1"}).boundary(), status);
  const uint32_t products[] = {0x7155, 7};
  const zqgopher_ArrayView productView{products, 2};
  api().ChannelSpecification_setProductIDList(definition, &productView, status);
  api().ChannelSpecification_setIsGlobal(definition, task[0] == '\0', status);
  api().ChannelSpecification_setVerified(definition, true, status);
  api().ChannelSpecification_setChannelType(definition, 10322, status);
  const char block[] = {1, 0, 2, '\n', 3};
  api().ChannelSpecification_setChannelAttributeDataBlock(definition, block, sizeof block, status);
  api().ChannelSpecification_setBufferAttributeDataBlock(definition, "buffer=4096", 11, status);
  api().ChannelSpecification_setChannelDependencyList(definition, NamesIn({"dep1"}).boundary(), status);
  api().ChannelSpecification_setExpertLoadedChannelDependencyList(definition, NamesIn({"x1", "x2"}).boundary(), status);
  api().ChannelSpecification_setChannelNameTable(definition, NamesIn({"n0", "n1"}).boundary(), status);
  api().ChannelSpecification_setAuthor(definition, "bo", status);
  api().ChannelSpecification_setQexLockStatus(definition, true, status);
  api().ChannelSpecification_setQexDeleteStatus(definition, true, status);
  api().ChannelSpecification_setSavedFromApi(definition, true, status);
  return definition;
}

// Every field of a channel specification as one text, to compare two of them.
std::string describeChannel(uint64_t definition, zqerr_Status* status) {
  std::string out;
  const auto text = [&](auto getter) {
    TextOut t;
    getter(definition, t.get(), status);
    out += "[" + t.text + "]";
  };
  const auto names = [&](auto getter) {
    NamesOut n;
    getter(definition, n.get(), status);
    for (const auto& item : n.items) out += "<" + item + ">";
    out += ";";
  };
  const auto flag = [&](auto getter) { out += getter(definition, status) ? "T" : "F"; };
  text(api().ChannelSpecification_getName);
  text(api().ChannelSpecification_getParentTaskName);
  names(api().ChannelSpecification_getScaleNameList);
  text(api().ChannelSpecification_getCustomScaleName);
  text(api().ChannelSpecification_getEndpointDeviceIdentifier);
  names(api().ChannelSpecification_getPhysicalChannelNameList);
  NumbersOut products;
  api().ChannelSpecification_getProductIDList(definition, products.get(), status);
  for (int32_t p : products.items) out += std::to_string(p) + ",";
  flag(api().ChannelSpecification_isGlobal);
  flag(api().ChannelSpecification_wasVerified);
  out += std::to_string(api().ChannelSpecification_getChannelType(definition, status));
  text(api().ChannelSpecification_getChannelAttributeDataBlock);
  text(api().ChannelSpecification_getBufferAttributeDataBlock);
  names(api().ChannelSpecification_getChannelDependencyList);
  names(api().ChannelSpecification_getExpertLoadedChannelDependencyList);
  names(api().ChannelSpecification_getChannelNameTable);
  text(api().ChannelSpecification_getAuthor);
  flag(api().ChannelSpecification_isLockedInQex);
  flag(api().ChannelSpecification_isDeletionFromQexProhibited);
  flag(api().ChannelSpecification_wasSavedFromApi);
  return out;
}

uint64_t taskNamed(const char* name, std::vector<std::string> channels, zqerr_Status* status,
                   const std::vector<std::string>& globals = {}) {
  const uint64_t definition = api().createTaskSpecification(status);
  api().ChannelTaskSpecification_setName(definition, name, status);
  api().ChannelTaskSpecification_setChannelDataList(definition, NamesIn(channels).boundary(),
                                                    globals.empty() ? nullptr : NamesIn(globals).boundary(), status);
  return definition;
}

// Every field survives closing and reopening the store; unknown names give no specification
// and no failure.
TEST(StorageSpecifications, FieldsSurviveClosingAndReopeningTheStore) {
  useFreshStore("channel_fields");
  zqerr::Status status;
  const std::string timing("rate=1000\0edge=rising", 21);  // a data block is bytes, zeros too
  const uint64_t task = taskNamed("Logger", {"Voltage_0", "SharedTemp"}, &status, {"", "SharedTemp"});
  api().ChannelTaskSpecification_setAuthor(task, "ann", &status);
  api().ChannelTaskSpecification_setTimingAttributeDataBlock(task, timing.data(), timing.size(), &status);
  const uint64_t local = fullChannel("Voltage_0", "Logger", &status);
  const uint64_t global = fullChannel("SharedTemp", "", &status);
  {
    SessionScope session("127.0.0.1", &status);
    LockScope token(session.id, LockScope::kSpecWrite, &status);
    api().addTask(token.id, task, &status);
    api().addChannel(token.id, local, &status);
    api().addChannel(token.id, global, &status);
    api().save(token.id, &status);
  }
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  SessionScope session("127.0.0.1", &status);
  LockScope token(session.id, LockScope::kSpecRead, &status);
  const uint64_t readTask = api().getTaskSpecification(token.id, "Logger", &status);
  const uint64_t readLocal = api().getChannelSpecificationByTaskAndChan(token.id, "Logger", "Voltage_0", &status);
  const uint64_t readGlobal = api().getChannelSpecificationByName(token.id, "SharedTemp", &status);
  ASSERT_TRUE(readTask && readLocal && readGlobal);
  TextOut author, block;
  NamesOut channels, globals;
  api().ChannelTaskSpecification_getAuthor(readTask, author.get(), &status);
  api().ChannelTaskSpecification_getTimingAttributeDataBlock(readTask, block.get(), &status);
  api().ChannelTaskSpecification_getChannelDataList(readTask, channels.get(), globals.get(), &status);
  EXPECT_EQ(author.text, "ann");
  EXPECT_EQ(block.text, timing);
  EXPECT_EQ(channels.items, (std::vector<std::string>{"Voltage_0", "SharedTemp"}));
  EXPECT_EQ(globals.items, (std::vector<std::string>{"", "SharedTemp"}));
  EXPECT_EQ(describeChannel(readLocal, &status), describeChannel(local, &status));
  EXPECT_EQ(describeChannel(readGlobal, &status), describeChannel(global, &status));
  // A clone is a copy of its own.
  const uint64_t clone = api().cloneChannelSpecification(readLocal, &status);
  api().ChannelSpecification_setAuthor(clone, "someone else", &status);
  EXPECT_EQ(describeChannel(readLocal, &status), describeChannel(local, &status));
  for (uint64_t definition : {local, global, readLocal, readGlobal, clone}) api().destroyChannelSpecification(definition, &status);
  for (uint64_t definition : {task, readTask}) api().destroyTaskSpecification(definition, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
  EXPECT_EQ(api().getTaskSpecification(token.id, "Nothing", &status), 0u);
  EXPECT_EQ(api().getChannelSpecificationByName(token.id, "Nothing", &status), 0u);
  EXPECT_EQ(api().getChannelSpecificationByTaskAndChan(token.id, "Nothing", "ai0", &status), 0u);
  EXPECT_EQ(status.code, 0);
  EXPECT_EQ(status.report, nullptr);
}

// A write through a specification token and the code it ends with, on a store that holds
// task "T" with its channel "c" and the global channel "g".
struct SpecWrite {
  const char* name;
  std::function<void(uint64_t token, zqerr_Status*)> write;
  int32_t code;
};

TEST(StorageSpecifications, NamesAreKeptUniqueAndDeletionsNeedAnObject) {
  const auto addTask = [](const char* name) {
    return [name](uint64_t token, zqerr_Status* s) {
      zqerr::Status local;
      const uint64_t definition = taskNamed(name, {}, &local);
      api().addTask(token, definition, s);
      api().destroyTaskSpecification(definition, &local);
    };
  };
  const auto putChannel = [](const char* name, const char* task, bool add) {
    return [=](uint64_t token, zqerr_Status* s) {
      zqerr::Status local;
      const uint64_t definition = fullChannel(name, task, &local);
      if (add) {
        api().addChannel(token, definition, s);
      } else {
        api().setChannelSpecification(token, definition, s);
      }
      api().destroyChannelSpecification(definition, &local);
    };
  };
  const std::vector<SpecWrite> cases = {
      {"add a new task", addTask("U"), 0},
      {"add a task under a name in use", addTask("T"), zqvorexStorage_errorDuplicateTask},
      {"add it in another case", addTask("t"), zqvorexStorage_errorDuplicateTask},
      {"add a channel in use", putChannel("c", "T", true), zqapalerr_invalidParameter},
      {"set a channel in use", putChannel("c", "T", false), 0},
      {"same name, other task", putChannel("g", "T", true), 0},
      {"channel of an unsaved task", putChannel("c", "Nope", false), zqvorexStorage_errorTaskNotFound},
      {"delete an unknown task", [](uint64_t t, zqerr_Status* s) { api().deleteTask(t, "Nope", s); }, zqvorexStorage_errorTaskNotFound},
      {"delete an unknown global channel", [](uint64_t t, zqerr_Status* s) { api().deleteChannelByName(t, "c", s); }, zqvorexStorage_errorChannelNotFound},
      {"delete a task's channel", [](uint64_t t, zqerr_Status* s) { api().deleteChannelByTaskAndChan(t, "T", "c", s); }, 0},
  };
  for (const SpecWrite& c : cases) {
    SCOPED_TRACE(c.name);
    useFreshStore("spec_writes");
    zqerr::Status status;
    SessionScope session("127.0.0.1", &status);
    LockScope token(session.id, LockScope::kSpecWrite, &status);
    addTask("T")(token.id, &status);
    putChannel("c", "T", true)(token.id, &status);
    putChannel("g", "", true)(token.id, &status);
    ASSERT_EQ(status.code, 0);
    c.write(token.id, &status);
    EXPECT_EQ(status.code, c.code) << (status.report ? status.report : "");
  }
}

TEST(StorageSpecifications, AReadLockCannotWrite) {
  useFreshStore("read_lock_write");
  zqerr::Status status;
  SessionScope session("127.0.0.1", &status);
  LockScope read(session.id, LockScope::kRead, &status);
  addDevice(read.id, "Dev", 1, &status);
  EXPECT_EQ(status.code, zqapalerr_invalidParameter);
  EXPECT_NE(reportAt(status.report, {"zqvorexStorage_debug", "desc"}).find("read lock"), std::string::npos);
}

TEST(StorageSpecifications, SavedTasksAndChannelsAreObjectsOfTheStore) {
  useFreshStore("spec_objects");
  zqerr::Status status;
  SessionScope session("127.0.0.1", &status);
  {
    LockScope token(session.id, LockScope::kSpecWrite, &status);
    for (const char* name : {"Beta", "Alpha"}) {
      const uint64_t definition = taskNamed(name, {"ai0"}, &status);
      api().addTask(token.id, definition, &status);
      api().destroyTaskSpecification(definition, &status);
    }
    for (const char* task : {"Beta", "Alpha"}) {
      const uint64_t definition = fullChannel("ai0", task, &status);
      api().addChannel(token.id, definition, &status);
      api().destroyChannelSpecification(definition, &status);
    }
    api().save(token.id, &status);
  }
  LockScope lock(session.id, LockScope::kRead, &status);
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_TASK, &status), (std::vector<std::string>{"Beta", "Alpha"}));
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_CHANNEL, &status), (std::vector<std::string>{"ai0", "ai0"}));
  IdsOut sorted;
  api().appendObjectsForStorageClassSortedByName(lock.id, ZQVOREX_STORAGE_CLASS_TASK, sorted.get(), &status);
  ASSERT_EQ(sorted.items.size(), 2u);
  TextOut first;
  api().getObjectName(lock.id, &sorted.items[0], first.get(), &status);
  EXPECT_EQ(first.text, "Alpha");
  EXPECT_TRUE(api().persistedTaskAssistantBlobPresent(lock.id, &sorted.items[0], &status));
  EXPECT_FALSE(api().persistedChannelBlobPresent(lock.id, &sorted.items[0], &status));
  IdsOut children;
  api().getObjectChildren(lock.id, &sorted.items[0], children.get(), &status);
  ASSERT_EQ(children.items.size(), 1u);
  EXPECT_TRUE(api().persistedChannelBlobPresent(lock.id, &children.items[0], &status));
  zqvorexStorage_ObjectID parent{};
  EXPECT_TRUE(api().getObjectParent(lock.id, &children.items[0], &parent, &status));
  EXPECT_EQ(std::memcmp(parent.bytes, sorted.items[0].bytes, sizeof parent.bytes), 0);
  NamesOut local;
  api().appendLocalChannelNames(lock.id, "Alpha", local.get(), &status);
  EXPECT_EQ(local.items, std::vector<std::string>{"ai0"});
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
}

}  // namespace
}  // namespace zqtest
