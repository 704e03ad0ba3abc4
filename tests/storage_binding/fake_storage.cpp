#include "test_sites.h"
#include "fake_storage.h"

#include "status/status.h"

namespace zqtest {

namespace {

void record(const std::string& call) { fakeState().journal.push_back(call); }

void failEnd(zqerr_Status* status) {
  if (fakeState().endCode != 0) ZQ_TEST_FAIL(status, fakeState().endCode, "fake_storage", 1);
}

bool getSecondaryUrl(const char* url, zqgopher_IString* secondary, zqerr_Status* status) {
  record(std::string("getSecondaryUrl(") + url + ")");
  if (!fakeState().hasSecondaryUrl) return false;
  secondary->table->assign(secondary, "backup-host", 11, status);
  return true;
}

uint64_t getSession(const char* url, zqerr_Status*) {
  record(std::string("getSession(") + url + ")");
  return 11;
}

uint64_t getSessionWithSecondaryUrl(const char* url, const char* secondary, zqerr_Status*) {
  record(std::string("getSessionWithSecondaryUrl(") + url + "," + secondary + ")");
  return 12;
}

void releaseSession(uint64_t session, zqerr_Status* status) {
  record("releaseSession(" + std::to_string(session) + ")");
  failEnd(status);
}

uint64_t beginReadOperation(uint64_t session, zqerr_Status*) {
  record("beginReadOperation(" + std::to_string(session) + ")");
  return session * 10;
}

void endReadOperation(uint64_t lock, zqerr_Status* status) {
  record("endReadOperation(" + std::to_string(lock) + ")");
  failEnd(status);
}

uint64_t beginStorageSpecReadOperation(uint64_t session, zqerr_Status*) {
  record("beginStorageSpecReadOperation(" + std::to_string(session) + ")");
  return session * 20;
}

void endStorageSpecReadOperation(uint64_t token, zqerr_Status* status) {
  record("endStorageSpecReadOperation(" + std::to_string(token) + ")");
  failEnd(status);
}

void destroyChannelSpecification(uint64_t specification, zqerr_Status* status) {
  record("destroyChannelSpecification(" + std::to_string(specification) + ")");
  failEnd(status);
}

void destroyTaskSpecification(uint64_t specification, zqerr_Status* status) {
  record("destroyTaskSpecification(" + std::to_string(specification) + ")");
  failEnd(status);
}

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
  put(*storage, "releaseSession", reinterpret_cast<void*>(&releaseSession));
  put(*storage, "beginReadOperation", reinterpret_cast<void*>(&beginReadOperation));
  put(*storage, "endReadOperation", reinterpret_cast<void*>(&endReadOperation));
  return storage;
}

std::shared_ptr<zqvorexStorageCpp::StorageSpec> makeFakeStorageSpec() {
  auto definition = std::make_shared<zqvorexStorageCpp::StorageSpec>();
  put(*definition, "beginStorageSpecReadOperation", reinterpret_cast<void*>(&beginStorageSpecReadOperation));
  put(*definition, "endStorageSpecReadOperation", reinterpret_cast<void*>(&endStorageSpecReadOperation));
  put(*definition, "destroyChannelSpecification", reinterpret_cast<void*>(&destroyChannelSpecification));
  put(*definition, "destroyTaskSpecification", reinterpret_cast<void*>(&destroyTaskSpecification));
  return definition;
}

}  // namespace zqtest
