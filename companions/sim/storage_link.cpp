#include "storage_link.h"

#include <cstring>
#include <mutex>

#include "platform.h"
#include "sim_status.h"

namespace zqsim {

namespace {

constexpr const char* kStorageLibrary = "zqvorexStorage";

// Bound once and kept for the life of the process: the library is never let go.
const StorageLink* bindOnce() {
  static const StorageLink* link = []() -> const StorageLink* {
    void* library = platform::loadLibrary(platform::moduleFolder(), kStorageLibrary);
    if (!library) return nullptr;
    auto* bound = new StorageLink;
#define SIM_STORAGE_BIND(op)                                                                            \
  bound->op =                                                                                           \
      reinterpret_cast<zqvorexStorage_##op##_fn>(platform::findSymbol(library, "zqvorexStorage_" #op)); \
  if (!bound->op) return nullptr;
    SIM_STORAGE_FUNCTIONS(SIM_STORAGE_BIND)
#undef SIM_STORAGE_BIND
    return bound;
  }();
  return link;
}

template <class Boundary>
Boundary* owner(void* self) {
  return reinterpret_cast<Boundary*>(self);
}

struct TextBoundary {
  zqgopher_IString base;
  std::string* text;
};

uint64_t textSize(const zqgopher_IString* self, zqerr_Status* status) {
  return isOpen(status) ? owner<TextBoundary>(const_cast<zqgopher_IString*>(self))->text->size() : 0;
}
void textCopyTo(const zqgopher_IString* self, char* buffer, uint64_t size, zqerr_Status* status) {
  if (!isOpen(status) || !buffer) return;
  const std::string& text = *owner<TextBoundary>(const_cast<zqgopher_IString*>(self))->text;
  const uint64_t n = std::min<uint64_t>(size, text.size());
  std::memcpy(buffer, text.data(), n);
  if (n < size) buffer[n] = '\0';
}
void textClear(zqgopher_IString* self, zqerr_Status* status) {
  if (isOpen(status)) owner<TextBoundary>(self)->text->clear();
}
void textAssign(zqgopher_IString* self, const char* text, uint64_t length, zqerr_Status* status) {
  if (isOpen(status)) owner<TextBoundary>(self)->text->assign(text ? text : "", text ? length : 0);
}
const char* textData(const zqgopher_IString* self, zqerr_Status* status) {
  const std::string& text = *owner<TextBoundary>(const_cast<zqgopher_IString*>(self))->text;
  return isOpen(status) && !text.empty() ? text.c_str() : nullptr;
}
char* textMutableData(zqgopher_IString* self, zqerr_Status* status) {
  std::string& text = *owner<TextBoundary>(self)->text;
  return isOpen(status) && !text.empty() ? text.data() : nullptr;
}
void textResize(zqgopher_IString* self, uint64_t length, zqerr_Status* status) {
  if (isOpen(status)) owner<TextBoundary>(self)->text->resize(length);
}
constexpr zqgopher_IStringTable kTextTable = {textSize, textCopyTo,      textClear, textAssign,
                                              textData, textMutableData, textResize};

struct ListBoundary {
  zqgopher_IItemAdder base;
  std::vector<std::string>* items;
};

void listReserve(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status) {
  if (isOpen(status))
    owner<ListBoundary>(self)->items->reserve(owner<ListBoundary>(self)->items->size() + count);
}
void listClear(zqgopher_IItemAdder* self, zqerr_Status* status) {
  if (isOpen(status)) owner<ListBoundary>(self)->items->clear();
}
void listAdd(zqgopher_IItemAdder* self, const char* item, zqerr_Status* status) {
  if (!isOpen(status)) return;
  if (!item) {
    SIM_FAIL(status, zqapalerr_invalidParameter);
    return;
  }
  owner<ListBoundary>(self)->items->emplace_back(item);
}
void listAddRange(zqgopher_IItemAdder* self, const char* const* items, uint64_t count, zqerr_Status* status) {
  if (!isOpen(status)) return;
  for (uint64_t i = 0; i < count; ++i)
    if (!items || !items[i]) {
      SIM_FAIL(status, zqapalerr_invalidParameter);
      return;
    }
  for (uint64_t i = 0; i < count; ++i) owner<ListBoundary>(self)->items->emplace_back(items[i]);
}
constexpr zqgopher_IItemAdderStringTable kListTable = {listReserve, listClear, listAdd, listAddRange};

struct IdBoundary {
  zqgopher_IItemAdder base;
  std::vector<zqvorexStorage_ObjectID>* items;
};

void idReserve(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status) {
  if (isOpen(status)) owner<IdBoundary>(self)->items->reserve(owner<IdBoundary>(self)->items->size() + count);
}
void idClear(zqgopher_IItemAdder* self, zqerr_Status* status) {
  if (isOpen(status)) owner<IdBoundary>(self)->items->clear();
}
void idAdd(zqgopher_IItemAdder* self, const zqvorexStorage_ObjectID* item, zqerr_Status* status) {
  if (!isOpen(status)) return;
  if (!item) {
    SIM_FAIL(status, zqapalerr_invalidParameter);
    return;
  }
  owner<IdBoundary>(self)->items->push_back(*item);
}
void idAddRange(zqgopher_IItemAdder* self, const zqvorexStorage_ObjectID* items, uint64_t count,
                zqerr_Status* status) {
  if (!isOpen(status)) return;
  if (!items && count) {
    SIM_FAIL(status, zqapalerr_invalidParameter);
    return;
  }
  for (uint64_t i = 0; i < count; ++i) owner<IdBoundary>(self)->items->push_back(items[i]);
}
constexpr zqvorexStorage_IItemAdderObjectIDTable kIdTable = {idReserve, idClear, idAdd, idAddRange};

}  // namespace

const StorageLink* storageLink(zqerr_Status* status) {
  const StorageLink* link = bindOnce();
  if (!link && isOpen(status))
    SIM_FAIL(status, nZQMSTS::kErrorLibraryNotPresent,
             Items().text("kUsageTypeLibraryName", platform::moduleFolder() + "/" + kStorageLibrary));
  return link;
}

TextOut::TextOut() : boundary_{{&kTextTable}, &text} {}

TextListOut::TextListOut() {
  boundary_.base.table.strings = &kListTable;
  boundary_.items = &items;
}

IdListOut::IdListOut() {
  boundary_.base.table.i32 = reinterpret_cast<const zqgopher_IItemAdderI32Table*>(&kIdTable);
  boundary_.items = &items;
}

TextListIn::TextListIn(const std::vector<std::string>& items) {
  for (const std::string& item : items) pointers_.push_back(item.c_str());
  view_.data = pointers_.empty() ? nullptr : pointers_.data();
  view_.count = pointers_.size();
}

StoreReader::StoreReader(const StorageLink& link, const std::string& url, zqerr_Status* status)
    : link_(link) {
  if (!isOpen(status)) return;
  session_ = link_.getSession(url.c_str(), status);
  open(status);
}

StoreReader::StoreReader(const StorageLink& link, uint64_t session, zqerr_Status* status)
    : link_(link), session_(session) {
  open(status);
}

void StoreReader::open(zqerr_Status* status) {
  if (session_ && isOpen(status)) lock_ = link_.beginReadOperation(session_, status);
}

StoreReader::~StoreReader() {
  LocalStatus own;
  if (lock_) link_.endReadOperation(lock_, &own);
  if (session_) link_.releaseSession(session_, &own);
}

SessionHolder::~SessionHolder() {
  LocalStatus own;
  if (session_) link_.releaseSession(session_, &own);
}

DefinitionSection::DefinitionSection(const StorageLink& link, uint64_t session, bool write,
                                     zqerr_Status* status)
    : link_(link), write_(write) {
  if (!isOpen(status) || !session) return;
  token_ = write ? link_.beginStorageSpecWriteOperation(session, status)
                 : link_.beginStorageSpecReadOperation(session, status);
}

DefinitionSection::~DefinitionSection() {
  LocalStatus own;
  if (!token_) return;
  if (write_) {
    link_.endStorageSpecWriteOperation(token_, &own);
  } else {
    link_.endStorageSpecReadOperation(token_, &own);
  }
}

DefinitionHandle::~DefinitionHandle() {
  LocalStatus own;
  if (!handle_) return;
  if (isTask_) {
    link_.destroyTaskSpecification(handle_, &own);
  } else {
    link_.destroyChannelSpecification(handle_, &own);
  }
}

}  // namespace zqsim
