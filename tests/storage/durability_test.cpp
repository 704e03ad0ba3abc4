// What is saved stays saved: across sessions, against a second process writing at the same
// time, and what was not saved does not appear. (Saved specifications: stored_specification_test.) A damaged or foreign store file gives a
// clear status instead of a crash.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <thread>

#include "scopes.h"
#include "test_support.h"

namespace zqtest {
namespace {

// One write lock's story, told by the calls made under it; then which devices a fresh
// session finds.
struct WriteStory {
  const char* name;
  std::function<void(uint64_t lock, zqerr_Status*)> story;
  std::vector<std::string> kept;
};

TEST(StorageDurability, OnlySavedWritesReachTheStore) {
  const std::vector<WriteStory> stories = {
      {"saved", [](uint64_t l, zqerr_Status* s) { addDevice(l, "A", 1, s); storage().saveStorageChanges(l, s); }, {"A"}},
      {"not saved", [](uint64_t l, zqerr_Status* s) { addDevice(l, "A", 1, s); }, {}},
      {"reverted after a save",
       [](uint64_t l, zqerr_Status* s) {
         addDevice(l, "A", 1, s);
         storage().saveStorageChanges(l, s);
         addDevice(l, "B", 1, s);
         storage().revertStorageChanges(l, s);
       },
       {"A"}},
      {"written again after a revert",
       [](uint64_t l, zqerr_Status* s) {
         addDevice(l, "A", 1, s);
         storage().revertStorageChanges(l, s);
         addDevice(l, "B", 1, s);
         storage().saveStorageChanges(l, s);
       },
       {"B"}},
  };
  for (const WriteStory& story : stories) {
    SCOPED_TRACE(story.name);
    useFreshStore("write_story");
    {
      zqerr::Status status;
      SessionScope session("127.0.0.1", &status);
      LockScope lock(session.id, LockScope::kWrite, &status);
      story.story(lock.id, &status);
      ASSERT_EQ(status.code, 0) << (status.report ? status.report : "");
    }
    zqerr::Status status;
    SessionScope session("127.0.0.1", &status);
    LockScope lock(session.id, LockScope::kRead, &status);
    EXPECT_EQ(namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status), story.kept);
    EXPECT_EQ(status.code, 0);
  }
}

TEST(StorageDurability, ReadLockKeepsItsSnapshotWhileAnotherSessionSaves) {
  useFreshStore("snapshot");
  zqerr::Status status;
  SessionScope reader("127.0.0.1", &status);
  SessionScope writer("127.0.0.1", &status);
  LockScope read(reader.id, LockScope::kRead, &status);
  const uint64_t before = storage().getLastChangeNumber(read.id, &status);
  {
    LockScope write(writer.id, LockScope::kWrite, &status);
    addDevice(write.id, "Late", 1, &status);
    storage().saveStorageChanges(write.id, &status);
  }
  EXPECT_TRUE(namesOfClass(read.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status).empty());
  EXPECT_EQ(storage().getLastChangeNumber(read.id, &status), before);
  read.end();
  LockScope again(reader.id, LockScope::kRead, &status);
  EXPECT_EQ(namesOfClass(again.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status), std::vector<std::string>{"Late"});
  EXPECT_EQ(storage().getLastChangeNumber(again.id, &status), before + 1);
  EXPECT_EQ(status.code, 0) << (status.report ? status.report : "");
}

TEST(StorageDurability, TwoProcessesWritingAtOnceLoseNothing) {
  useFreshStore("two_processes");
  constexpr int kEach = 25;
  {
    zqerr::Status status;
    SessionScope session("127.0.0.1", &status);  // the store exists before both start
    ASSERT_EQ(status.code, 0);
  }
  int childExit = -1;
  std::thread child([&] {
    childExit = runCommand(programPath() + " --storage-child-writer child " + std::to_string(kEach));
  });
  int failures = 0;
  for (int i = 0; i < kEach; ++i) {
    zqerr::Status status;
    SessionScope session("127.0.0.1", &status);
    LockScope lock(session.id, LockScope::kWrite, &status);
    addDevice(lock.id, "parent_" + std::to_string(i), 1, &status);
    storage().saveStorageChanges(lock.id, &status);
    failures += status.code != 0;
  }
  child.join();
  EXPECT_EQ(childExit, 0);
  EXPECT_EQ(failures, 0);
  zqerr::Status status;
  SessionScope session("127.0.0.1", &status);
  LockScope lock(session.id, LockScope::kRead, &status);
  std::vector<std::string> names = namesOfClass(lock.id, ZQVOREX_STORAGE_CLASS_DEVICE, &status);
  std::sort(names.begin(), names.end());
  std::vector<std::string> expected;
  for (const char* prefix : {"child_", "parent_"}) {
    for (int i = 0; i < kEach; ++i) expected.push_back(prefix + std::to_string(i));
  }
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(names, expected);
}

// Store files that cannot serve: what is in the file, the code, and words of the report.
struct BadStore {
  const char* name;
  std::function<void(const std::string& path)> spoil;
  int32_t code;
  const char* descFragment;
};

void patchHeader(const std::string& path, size_t offset, uint32_t value) {
  std::string bytes = readFile(path);
  ASSERT_GT(bytes.size(), offset + 4);
  for (int i = 0; i < 4; ++i) bytes[offset + i] = static_cast<char>(value >> (24 - 8 * i));  // big-endian
  writeFile(path, bytes);
}

void makeStore(const std::string&) {
  zqerr::Status status;
  SessionScope session("127.0.0.1", &status);
  LockScope lock(session.id, LockScope::kWrite, &status);
  addDevice(lock.id, "Dev1", 1, &status);
  storage().saveStorageChanges(lock.id, &status);
  ASSERT_EQ(status.code, 0);
}

TEST(StorageDurability, UnusableStoreFileGivesAClearStatus) {
  const std::vector<BadStore> cases = {
      {"database of another program",
       [](const std::string& p) {
         makeStore(p);
         patchHeader(p, 68, 0x12345678);  // the application id
       },
       zqapalerr_resourceNotFound, "another program"},
      {"store of a newer version",
       [](const std::string& p) {
         makeStore(p);
         patchHeader(p, 60, 99);  // the schema version
       },
       zqapalerr_featureUnsupported, "newer version"},
      {"folder that does not exist", [](const std::string&) { setEnvironment("ZQCAI_STORAGE_FILE", "storage_tmp/no/such/x.db"); },
       zqapalerr_resourceNotFound, "cannot be opened"},
  };
  for (const BadStore& bad : cases) {
    SCOPED_TRACE(bad.name);
    const std::string path = useFreshStore("bad_store");
    bad.spoil(path);
    zqerr::Status status;
    const uint64_t session = storage().getSession("127.0.0.1", &status);
    EXPECT_EQ(session, 0u);
    EXPECT_EQ(status.code, bad.code);
    EXPECT_TRUE(reportWellFormed(status));
    EXPECT_EQ(reportAt(status.report, {"component"}), "zqvorexStorage");
    EXPECT_NE(reportAt(status.report, {"zqvorexStorage_debug", "desc"}).find(bad.descFragment), std::string::npos) << status.report;
  }
}

TEST(StorageDurability, StatusFollowsTheReplacementRule) {
  useFreshStore("status_rule");
  struct Case {
    const char* name;
    int32_t before;
    int32_t after;
    bool reported;
  };
  const std::vector<Case> cases = {
      {"clean status takes the error", 0, zqapalerr_featureUnsupported, true},
      {"a warning gives way to the error", 4242, zqapalerr_featureUnsupported, true},
      {"an error on entry stops the call", -1, -1, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    zqerr::Status status;
    status.code = c.before;
    EXPECT_EQ(storage().getSession("remote.example", &status), 0u);
    EXPECT_EQ(status.code, c.after);
    EXPECT_EQ(status.report != nullptr, c.reported);
    if (c.reported) {
      EXPECT_EQ(reportAt(status.report, {"error_constant"}), "zqapalerr_featureUnsupported");
    }
  }
}

}  // namespace
}  // namespace zqtest
