// The session road and the scope objects over recording stand-ins: what each begins with,
// that its end runs with the value it holds, and that an end's failure never reaches the
// caller. The order of their ends is the order of their declarations in the code that uses
// them; each end's own calls are checked here.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "fake_storage.h"
#include "report_query.h"
#include "zqvorex_status_codes.h"
#include "storage/auto_specification.h"
#include "storage/auto_storage_session.h"
#include "storage/auto_storage_session_reader_with_lock.h"
#include "storage/auto_storage_session_spec_reader_with_lock.h"
#include "storage/open_session.h"

namespace {

namespace sc = zqvorexStorageCpp;
using zqtest::fakeState;
using zqtest::reportAt;
using Journal = std::vector<std::string>;

TEST(OpenSession, GoesThroughTheSecondaryUrlWhenThereIsOne) {
  struct Case {
    bool hasSecondaryUrl;
    uint64_t session;
    Journal journal;
  };
  const std::vector<Case> cases = {
      {false, 11, {"getSecondaryUrl(127.0.0.1)", "getSession(127.0.0.1)"}},
      {true, 12, {"getSecondaryUrl(127.0.0.1)", "getSessionWithSecondaryUrl(127.0.0.1,backup-host)"}},
  };
  for (const Case& c : cases) {
    fakeState() = zqtest::FakeStorageState{};
    auto storage = zqtest::makeFakeStorage();
    fakeState().hasSecondaryUrl = c.hasSecondaryUrl;
    zqerr::Status status;
    EXPECT_EQ(sc::openSession(storage.get(), "127.0.0.1", &status), c.session);
    EXPECT_EQ(fakeState().journal, c.journal);
    EXPECT_EQ(status.code, 0);
  }
}

// One scope object made and ended inside `run`, over fresh stand-ins.
struct ScopeCase {
  const char* label;
  std::function<uint64_t(zqerr_Status*)> run;  // gives the value the scope held
  uint64_t held;
  int32_t code;
  const char* file;  // of the report, when code is not 0
  Journal journal;
};

std::shared_ptr<sc::Storage> noStorage() { return nullptr; }
std::shared_ptr<sc::StorageSpec> noSpec() { return nullptr; }

std::vector<ScopeCase> scopeCases() {
  using sc::AutoSpecification, sc::AutoStorageSession, sc::AutoStorageSessionReaderWithLock;
  using sc::AutoStorageSessionSpecReaderWithLock, zqtest::makeFakeStorage, zqtest::makeFakeStorageSpec;
  constexpr auto kChannel = sc::SpecificationKind::kChannel, kTask = sc::SpecificationKind::kTask;
  constexpr int32_t kBad = zqpalerr_badPointer;
  const char* reader = "AutoStorageSessionReaderWithLock";
  const char* specReader = "AutoStorageSessionSpecReaderWithLock";
  return {
      {"session", [](zqerr_Status* s) { return AutoStorageSession(makeFakeStorage(), 7, s).get(); }, 7, 0, "",
       {"releaseSession(7)"}},
      {"null session", [](zqerr_Status* s) { return AutoStorageSession(makeFakeStorage(), 0, s).get(); }, 0, kBad,
       "AutoStorageSession", {"releaseSession(0)"}},
      {"session without storage", [](zqerr_Status* s) { return AutoStorageSession(noStorage(), 7, s).get(); }, 0,
       kBad, "AutoStorageSession", {}},
      {"read lock", [](zqerr_Status* s) { return AutoStorageSessionReaderWithLock(makeFakeStorage(), 7, s).get(); },
       70, 0, "", {"beginReadOperation(7)", "endReadOperation(70)"}},
      {"read lock on a null session",
       [](zqerr_Status* s) { return AutoStorageSessionReaderWithLock(makeFakeStorage(), 0, s).get(); }, 0, kBad,
       reader, {"endReadOperation(0)"}},
      {"read lock without storage",
       [](zqerr_Status* s) { return AutoStorageSessionReaderWithLock(noStorage(), 7, s).get(); }, 0, kBad, reader,
       {}},
      {"specification section",
       [](zqerr_Status* s) { return AutoStorageSessionSpecReaderWithLock(makeFakeStorageSpec(), 7, s).get(); }, 140,
       0, "", {"beginStorageSpecReadOperation(7)", "endStorageSpecReadOperation(140)"}},
      {"specification section on a null session",
       [](zqerr_Status* s) { return AutoStorageSessionSpecReaderWithLock(makeFakeStorageSpec(), 0, s).get(); }, 0,
       kBad, specReader, {"endStorageSpecReadOperation(0)"}},
      {"channel specification",
       [](zqerr_Status* s) { return AutoSpecification(makeFakeStorageSpec(), 9, kChannel, s).get(); }, 9, 0, "",
       {"destroyChannelSpecification(9)"}},
      {"task specification",
       [](zqerr_Status* s) { return AutoSpecification(makeFakeStorageSpec(), 9, kTask, s).get(); }, 9, 0, "",
       {"destroyTaskSpecification(9)"}},
      {"specification not found",
       [](zqerr_Status* s) { return AutoSpecification(makeFakeStorageSpec(), 0, kTask, s).get(); }, 0, 0, "", {}},
      {"specification without its class",
       [](zqerr_Status* s) { return AutoSpecification(noSpec(), 9, kChannel, s).get(); }, 0, kBad,
       "AutoSpecification", {}},
  };
}

TEST(StorageScopes, BeginHoldAndEndWithTheValueHeld) {
  for (const ScopeCase& c : scopeCases()) {
    SCOPED_TRACE(c.label);
    fakeState() = zqtest::FakeStorageState{};
    zqerr::Status status;
    EXPECT_EQ(c.run(&status), c.held);
    EXPECT_EQ(status.code, c.code);
    EXPECT_EQ(fakeState().journal, c.journal);
    if (c.code != 0) {
      EXPECT_EQ(reportAt(status.report, {"file"}), c.file);
      EXPECT_EQ(reportAt(status.report, {"error_constant"}), "zqpalerr_badPointer");
    }
  }
}

// Ends fail with an error of their own; the caller's status, clean or with a warning, stays.
TEST(StorageScopes, AFailingEndLeavesTheCallersStatusAlone) {
  for (int32_t before : {0, 17}) {
    for (const ScopeCase& c : scopeCases()) {
      if (c.code != 0 || c.journal.empty()) continue;
      SCOPED_TRACE(std::string(c.label) + ", code before " + std::to_string(before));
      fakeState() = zqtest::FakeStorageState{};
      fakeState().endCode = zqapalerr_osFault;
      zqerr::Status status;
      status.code = before;
      c.run(&status);
      EXPECT_EQ(fakeState().journal.back(), c.journal.back());  // the end ran, and failed
      EXPECT_EQ(status.code, before);
      EXPECT_EQ(status.report, nullptr);
    }
  }
}

}  // namespace
