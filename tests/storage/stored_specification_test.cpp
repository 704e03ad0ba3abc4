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
  const uint64_t definition = specs().createChannelSpecification(status);
  channelSpec().ChannelSpecification_setName(definition, name, status);
  channelSpec().ChannelSpecification_setParentTaskName(definition, task, status);
  channelSpec().ChannelSpecification_setScaleNameList(definition, NamesIn({"Scale A", "Scale, B"}).boundary(), status);
  channelSpec().ChannelSpecification_setCustomScaleName(definition, "Custom", status);
  channelSpec().ChannelSpecification_setEndpointDeviceIdentifier(definition, "SimDev1", status);
  channelSpec().ChannelSpecification_setPhysicalChannelNameList(definition, NamesIn({"SimDev1/ai0", "SimDev1/ai1"}).boundary(), status);
  const uint32_t products[] = {0x7155, 7};
  const zqgopher_ArrayView productView{products, 2};
  channelSpec().ChannelSpecification_setProductIDList(definition, &productView, status);
  channelSpec().ChannelSpecification_setIsGlobal(definition, task[0] == '\0', status);
  channelSpec().ChannelSpecification_setVerified(definition, true, status);
  channelSpec().ChannelSpecification_setChannelType(definition, 10322, status);
  const char block[] = {1, 0, 2, '\n', 3};
  channelSpec().ChannelSpecification_setChannelAttributeDataBlock(definition, block, sizeof block, status);
  channelSpec().ChannelSpecification_setBufferAttributeDataBlock(definition, "buffer=4096", 11, status);
  channelSpec().ChannelSpecification_setChannelDependencyList(definition, NamesIn({"dep1"}).boundary(), status);
  channelSpec().ChannelSpecification_setExpertLoadedChannelDependencyList(definition, NamesIn({"x1", "x2"}).boundary(), status);
  channelSpec().ChannelSpecification_setChannelNameTable(definition, NamesIn({"n0", "n1"}).boundary(), status);
  channelSpec().ChannelSpecification_setAuthor(definition, "bo", status);
  channelSpec().ChannelSpecification_setQexLockStatus(definition, true, status);
  channelSpec().ChannelSpecification_setQexDeleteStatus(definition, true, status);
  channelSpec().ChannelSpecification_setSavedFromApi(definition, true, status);
  return definition;
}

// Every field of a channel specification as one text, to compare two of them.
std::string describeChannel(uint64_t definition, zqerr_Status* status) {
  using CS = zqvorexStorageCpp::ChannelSpecification;
  std::string out;
  const auto text = [&](auto getter) {
    TextOut t;
    (channelSpec().*getter)(definition, t.get(), status);
    out += "[" + t.text + "]";
  };
  const auto names = [&](auto getter) {
    NamesOut n;
    (channelSpec().*getter)(definition, n.get(), status);
    for (const auto& item : n.items) out += "<" + item + ">";
    out += ";";
  };
  const auto flag = [&](auto getter) { out += (channelSpec().*getter)(definition, status) ? "T" : "F"; };
  text(&CS::ChannelSpecification_getName);
  text(&CS::ChannelSpecification_getParentTaskName);
  names(&CS::ChannelSpecification_getScaleNameList);
  text(&CS::ChannelSpecification_getCustomScaleName);
  text(&CS::ChannelSpecification_getEndpointDeviceIdentifier);
  names(&CS::ChannelSpecification_getPhysicalChannelNameList);
  NumbersOut products;
  channelSpec().ChannelSpecification_getProductIDList(definition, products.get(), status);
  for (int32_t p : products.items) out += std::to_string(p) + ",";
  flag(&CS::ChannelSpecification_isGlobal);
  flag(&CS::ChannelSpecification_wasVerified);
  out += std::to_string(channelSpec().ChannelSpecification_getChannelType(definition, status));
  text(&CS::ChannelSpecification_getChannelAttributeDataBlock);
  text(&CS::ChannelSpecification_getBufferAttributeDataBlock);
  names(&CS::ChannelSpecification_getChannelDependencyList);
  names(&CS::ChannelSpecification_getExpertLoadedChannelDependencyList);
  names(&CS::ChannelSpecification_getChannelNameTable);
  text(&CS::ChannelSpecification_getAuthor);
  flag(&CS::ChannelSpecification_isLockedInQex);
  flag(&CS::ChannelSpecification_isDeletionFromQexProhibited);
  flag(&CS::ChannelSpecification_wasSavedFromApi);
  return out;
}

uint64_t taskNamed(const char* name, std::vector<std::string> channels, zqerr_Status* status,
                   const std::vector<std::string>& globals = {}) {
  const uint64_t definition = specs().createTaskSpecification(status);
  taskSpec().ChannelTaskSpecification_setName(definition, name, status);
  taskSpec().ChannelTaskSpecification_setChannelDataList(definition, NamesIn(channels).boundary(),
                                                    globals.empty() ? nullptr : NamesIn(globals).boundary(), status);
  return definition;
}

// Every field survives closing and reopening the store. (That unknown names give no
// specification and no failure, the selection tests see through the selector's own codes.)
TEST(StorageSpecifications, FieldsSurviveClosingAndReopeningTheStore) {
  useFreshStore("channel_fields");
  zqerr::Status status;
  const std::string timing("rate=1000\0edge=rising", 21);  // a data block is bytes, zeros too
  const uint64_t task = taskNamed("Logger", {"Voltage_0", "SharedTemp"}, &status, {"", "SharedTemp"});
  taskSpec().ChannelTaskSpecification_setAuthor(task, "ann", &status);
  taskSpec().ChannelTaskSpecification_setTimingAttributeDataBlock(task, timing.data(), timing.size(), &status);
  const uint64_t local = fullChannel("Voltage_0", "Logger", &status);
  const uint64_t global = fullChannel("SharedTemp", "", &status);
  {
    SessionScope session("127.0.0.1", &status);
    LockScope token(session.id, LockScope::kSpecWrite, &status);
    specs().addTask(token.id, task, &status);
    specs().addChannel(token.id, local, &status);
    specs().addChannel(token.id, global, &status);
    specs().save(token.id, &status);
  }
  ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
  SessionScope session("127.0.0.1", &status);
  LockScope token(session.id, LockScope::kSpecRead, &status);
  const uint64_t readTask = specs().getTaskSpecification(token.id, "Logger", &status);
  const uint64_t readLocal = specs().getChannelSpecificationByTaskAndChan(token.id, "Logger", "Voltage_0", &status);
  const uint64_t readGlobal = specs().getChannelSpecificationByName(token.id, "SharedTemp", &status);
  ASSERT_TRUE(readTask && readLocal && readGlobal);
  TextOut author, block;
  NamesOut channels, globals;
  taskSpec().ChannelTaskSpecification_getAuthor(readTask, author.get(), &status);
  taskSpec().ChannelTaskSpecification_getTimingAttributeDataBlock(readTask, block.get(), &status);
  taskSpec().ChannelTaskSpecification_getChannelDataList(readTask, channels.get(), globals.get(), &status);
  EXPECT_EQ(author.text, "ann");
  EXPECT_EQ(block.text, timing);
  EXPECT_EQ(channels.items, (std::vector<std::string>{"Voltage_0", "SharedTemp"}));
  EXPECT_EQ(globals.items, (std::vector<std::string>{"", "SharedTemp"}));
  EXPECT_EQ(describeChannel(readLocal, &status), describeChannel(local, &status));
  EXPECT_EQ(describeChannel(readGlobal, &status), describeChannel(global, &status));
  // A clone is a copy of its own.
  const uint64_t clone = specs().cloneChannelSpecification(readLocal, &status);
  channelSpec().ChannelSpecification_setAuthor(clone, "someone else", &status);
  EXPECT_EQ(describeChannel(readLocal, &status), describeChannel(local, &status));
  for (uint64_t definition : {local, global, readLocal, readGlobal, clone}) specs().destroyChannelSpecification(definition, &status);
  for (uint64_t definition : {task, readTask}) specs().destroyTaskSpecification(definition, &status);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
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
      specs().addTask(token, definition, s);
      specs().destroyTaskSpecification(definition, &local);
    };
  };
  const auto putChannel = [](const char* name, const char* task, bool add) {
    return [=](uint64_t token, zqerr_Status* s) {
      zqerr::Status local;
      const uint64_t definition = fullChannel(name, task, &local);
      if (add) {
        specs().addChannel(token, definition, s);
      } else {
        specs().setChannelSpecification(token, definition, s);
      }
      specs().destroyChannelSpecification(definition, &local);
    };
  };
  const std::vector<SpecWrite> cases = {
      {"add a new task", addTask("U"), 0},
      {"add it in another case", addTask("t"), zqvorexStorage_errorDuplicateTask},
      {"add a channel in use", putChannel("c", "T", true), zqapalerr_invalidParameter},
      {"set a channel in use", putChannel("c", "T", false), 0},
      {"same name, other task", putChannel("g", "T", true), 0},
      {"channel of an unsaved task", putChannel("c", "Nope", false), zqvorexStorage_errorTaskNotFound},
      {"delete an unknown task", [](uint64_t t, zqerr_Status* s) { specs().deleteTask(t, "Nope", s); }, zqvorexStorage_errorTaskNotFound},
      {"delete an unknown global channel", [](uint64_t t, zqerr_Status* s) { specs().deleteChannelByName(t, "c", s); }, zqvorexStorage_errorChannelNotFound},
      {"delete a task's channel", [](uint64_t t, zqerr_Status* s) { specs().deleteChannelByTaskAndChan(t, "T", "c", s); }, 0},
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
      specs().addTask(token.id, definition, &status);
      specs().destroyTaskSpecification(definition, &status);
    }
    for (const char* task : {"Beta", "Alpha"}) {
      const uint64_t definition = fullChannel("ai0", task, &status);
      specs().addChannel(token.id, definition, &status);
      specs().destroyChannelSpecification(definition, &status);
    }
    specs().save(token.id, &status);
  }
  LockScope lock(session.id, LockScope::kRead, &status);
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_TASK, &status), (std::vector<std::string>{"Beta", "Alpha"}));
  EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_CHANNEL, &status), (std::vector<std::string>{"ai0", "ai0"}));
  IdsOut sorted;
  storage().appendObjectsForStorageClassSortedByName(lock.id, ZQVOREX_STORAGE_CLASS_TASK, sorted.get(), &status);
  ASSERT_EQ(sorted.items.size(), 2u);
  TextOut first;
  storage().getObjectName(lock.id, &sorted.items[0], first.get(), &status);
  EXPECT_EQ(first.text, "Alpha");
  EXPECT_TRUE(storage().persistedTaskAssistantBlobPresent(lock.id, &sorted.items[0], &status));
  EXPECT_FALSE(storage().persistedChannelBlobPresent(lock.id, &sorted.items[0], &status));
  IdsOut children;
  storage().getObjectChildren(lock.id, &sorted.items[0], children.get(), &status);
  ASSERT_EQ(children.items.size(), 1u);
  EXPECT_TRUE(storage().persistedChannelBlobPresent(lock.id, &children.items[0], &status));
  zqvorexStorage_ObjectID parent{};
  EXPECT_TRUE(storage().getObjectParent(lock.id, &children.items[0], &parent, &status));
  EXPECT_EQ(std::memcmp(parent.bytes, sorted.items[0].bytes, sizeof parent.bytes), 0);
  NamesOut local;
  specs().appendLocalChannelNames(lock.id, "Alpha", local.get(), &status);
  EXPECT_EQ(local.items, std::vector<std::string>{"ai0"});
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
}

}  // namespace
}  // namespace zqtest
