#include "test_sites.h"
#include "fake_storage.h"

#include "status/status.h"

namespace zqtest {

namespace {

// Records "operation(value)" and, for an end, fails it when the state asks so.
void record(const char* operation, uint64_t value, zqerr_Status* endStatus = nullptr) {
  fakeState().journal.push_back(std::string(operation) + "(" + std::to_string(value) + ")");
  if (endStatus && fakeState().endCode != 0) ZQ_TEST_FAIL(endStatus, fakeState().endCode, "fake_storage", 1);
}

bool getSecondaryUrl(const char* url, zqgopher_IString* secondary, zqerr_Status* status) {
  fakeState().journal.push_back(std::string("getSecondaryUrl(") + url + ")");
  if (fakeState().hasSecondaryUrl) secondary->table->assign(secondary, "backup-host", 11, status);
  return fakeState().hasSecondaryUrl;
}

uint64_t getSession(const char* url, zqerr_Status*) {
  fakeState().journal.push_back(std::string("getSession(") + url + ")");
  return 11;
}

uint64_t getSessionWithSecondaryUrl(const char* url, const char* secondary, zqerr_Status*) {
  fakeState().journal.push_back(std::string("getSessionWithSecondaryUrl(") + url + "," + secondary + ")");
  return 12;
}

// A begin gives the session times its factor; an end records the value it was handed.
template <uint64_t Factor>
uint64_t begin(uint64_t session, zqerr_Status*) {
  record(Factor == 10 ? "beginReadOperation" : "beginStorageSpecReadOperation", session);
  return session * Factor;
}

template <const char* Name>
void end(uint64_t value, zqerr_Status* status) {
  record(Name, value, status);
}

constexpr char kReleaseSession[] = "releaseSession";
constexpr char kEndRead[] = "endReadOperation";
constexpr char kEndSpecRead[] = "endStorageSpecReadOperation";
constexpr char kDestroyChannel[] = "destroyChannelSpecification";
constexpr char kDestroyTask[] = "destroyTaskSpecification";

template <class T>
void put(T& bound, const char* operation, void* address) {
  bound.setSlot(slotOf<T>(operation), address);
}

}  // namespace

FakeStorageState& fakeState() {
  static FakeStorageState state;
  return state;
}

std::shared_ptr<zqvorexStorageCpp::Storage> makeFakeStorage() {
  auto storage = std::make_shared<zqvorexStorageCpp::Storage>();
  put(*storage, "getSecondaryUrl", reinterpret_cast<void*>(&getSecondaryUrl));
  put(*storage, "getSession", reinterpret_cast<void*>(&getSession));
  put(*storage, "getSessionWithSecondaryUrl", reinterpret_cast<void*>(&getSessionWithSecondaryUrl));
  put(*storage, kReleaseSession, reinterpret_cast<void*>(&end<kReleaseSession>));
  put(*storage, "beginReadOperation", reinterpret_cast<void*>(&begin<10>));
  put(*storage, kEndRead, reinterpret_cast<void*>(&end<kEndRead>));
  return storage;
}

std::shared_ptr<zqvorexStorageCpp::StorageSpec> makeFakeStorageSpec() {
  auto definition = std::make_shared<zqvorexStorageCpp::StorageSpec>();
  put(*definition, "beginStorageSpecReadOperation", reinterpret_cast<void*>(&begin<20>));
  put(*definition, kEndSpecRead, reinterpret_cast<void*>(&end<kEndSpecRead>));
  put(*definition, kDestroyChannel, reinterpret_cast<void*>(&end<kDestroyChannel>));
  put(*definition, kDestroyTask, reinterpret_cast<void*>(&end<kDestroyTask>));
  return definition;
}

}  // namespace zqtest
