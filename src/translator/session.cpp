#include "translator/session.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>

#include "binding/dynload.h"
#include "paths/system_error_items.h"
#include "paths/system_paths.h"
#include "status/error_sites.h"
#include "status/report_reader.h"
#include "translator/default_translator.h"

namespace zqxlator {

namespace {

constexpr size_t kFirstCapacity = 4;
constexpr size_t kSmallestGrowth = 8;

zqerr::ReportWriter debugObject(zqerr_Status* status) {
  return zqsysq::openObject(zqerr::rootWriter(status), "zqxlator_debug");
}

void failWithDebug(zqerr_Status* status, const zqerr::Site& site, const char* debug) {
  if (zqerr::fail(status, site)) zqerr::writeString(debugObject(status), "debug", debug);
}

void failWithPair(zqerr_Status* status, const zqerr::Site& site, const char* debug, const char* key,
                  std::string_view value) {
  if (!zqerr::fail(status, site)) return;
  zqerr::writeString(zqerr::writeString(debugObject(status), "debug", debug), key, value);
}

// The raw string value of "translator", or an empty view when it is missing or no string.
std::string_view translatorKey(const char* report) {
  const char* value = report ? zqerr::json::findKey(report, "translator") : nullptr;
  zqerr::json::ParsedValue parsed;
  if (!value || !zqerr::json::parseValue(value, &parsed) || parsed.type != zqerr::json::kString) return {};
  return {parsed.begin + 1, parsed.length - 2};
}

template <class Fn>
void bind(zqplatform::LibraryHandle library, const char* name, Fn* slot, zqerr_Status* status) {
  *slot = reinterpret_cast<Fn>(zqdynlib_getSymbol(library, name, status));
}

}  // namespace

void DestroyLocalXlator::destroy(zqxlator_Translator* translator) {
  if (translator && translator->destroy) translator->destroy(translator);
}

void DestroyExportedXlator::destroy(zqxlator_Translator* translator) {
  Session* session = session_->self_;
  if (session->destroyXlator_) session->destroyXlator_(session->exportedSession_, translator);
}

Session::Session() : destroyExported_(this), self_(this) {}

Session* Session::create(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  auto* session = new (std::nothrow) Session;
  if (session) {
    session->entries_ = new (std::nothrow) CacheEntry[kFirstCapacity];
    session->capacity_ = session->entries_ ? kFirstCapacity : 0;
  }
  if (session && session->entries_) return session;
  delete session;
  failWithDebug(status, zqsite::kZqxlatorSessionMemoryFull, "failed to allocate Session memory");
  return nullptr;
}

Session::~Session() {
  clearEntries();
  unloadLibrary();
  delete[] entries_;
}

void* Session::reallocate(void* pointer, size_t size, void*, zqerr_Status* status) {
  if (size == 0) {
    std::free(pointer);
    return nullptr;
  }
  void* moved = std::realloc(pointer, size);
  if (!moved) failWithDebug(status, zqsite::kZqxlatorReallocFailed, "realloc failed");
  return moved;
}

bool Session::addEntry(const char* name, zqxlator_Translator* translator, DestroyXlator* destroyer,
                       zqerr_Status* status) {
  if (size_ == capacity_) {
    size_t capacity = std::max({capacity_ + capacity_ / 2, kSmallestGrowth, size_ + 1});
    auto* grown = new (std::nothrow) CacheEntry[capacity];
    if (!grown) {
      failWithDebug(status, zqsite::kZqxlatorCacheMemoryFull, "failed to grow the translator cache");
      return false;
    }
    std::move(entries_, entries_ + size_, grown);
    delete[] entries_;
    entries_ = grown;
    capacity_ = capacity;
  }
  CacheEntry& entry = entries_[size_];
  if (!entry.name.assign(name, std::strlen(name), status)) return false;
  entry.translator = translator;
  entry.destroyer = destroyer;
  ++size_;
  return true;
}

void Session::clearEntries() {
  for (size_t i = 0; i < size_; ++i) {
    entries_[i].destroyer->destroy(entries_[i].translator);
    entries_[i] = CacheEntry{};
  }
  size_ = 0;
}

void Session::loadLibrary(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  if (!zqerr::isOpen(&loadStatus_)) {
    zqerr::copyStatus(status, loadStatus_);
    return;
  }
  std::u16string wide;
  zqsysq::getSystemFolder(&wide, status);
  std::string path;
  zqsysq::folderToUtf8(wide, &path);
  zqsysq::trimFolderText(path);
  path = path + "\\" + kTranslatorLibrary;
  if (zqerr::isOpen(status)) library_ = zqdynlib_load(path.c_str(), status);
  bind(library_, "zqxlatormgr_createSession", &createSession_, status);
  bind(library_, "zqxlatormgr_destroySession", &destroySession_, status);
  bind(library_, "zqxlatormgr_createXlator", &createXlator_, status);
  bind(library_, "zqxlatormgr_destroyXlator", &destroyXlator_, status);
  if (zqerr::isOpen(status)) exportedSession_ = createSession_(status);
  if (zqerr::isOpen(status)) return;
  unloadLibrary();
  zqerr::copyStatus(&loadStatus_, *status);
}

void Session::unloadLibrary() {
  if (exportedSession_ && destroySession_) destroySession_(exportedSession_);
  exportedSession_ = nullptr;
  createSession_ = nullptr;
  destroySession_ = nullptr;
  createXlator_ = nullptr;
  destroyXlator_ = nullptr;
  if (library_) zqplatform::freeLibrary(library_);
  library_ = nullptr;
}

zqxlator_Translator* Session::findTranslator(const char* name, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !name) return nullptr;
  const std::string_view wanted(name);
  for (size_t i = 0; i < size_; ++i)
    if (entries_[i].name.view() == wanted) return entries_[i].translator;
  if (const BuiltInTranslator* node = findBuiltInTranslator(wanted)) {
    zqxlator_Translator* translator = node->factory(node->name, node->info, status);
    if (!translator) return nullptr;
    if (addEntry(name, translator, &destroyLocal_, status)) return translator;
    destroyLocal_.destroy(translator);
    return nullptr;
  }
  if (!library_) loadLibrary(status);
  if (!zqerr::isOpen(status) || !library_) return nullptr;
  zqxlator_Translator* translator = createXlator_(exportedSession_, name, status, 0);
  if (translator && zqerr::isOpen(status) && addEntry(name, translator, &destroyExported_, status)) return translator;
  if (translator) destroyXlator_(exportedSession_, translator);
  return nullptr;
}

char* Session::getStaticDesc(int32_t code, const char* translatorName, uint32_t languageAndAde, zqerr_Status* status) {
  zqxlator_Translator* translator = findTranslator(translatorName, status);
  if (!translator) return nullptr;
  if (!translator->getStaticDesc) {
    failWithPair(status, zqsite::kZqxlatorNoStaticDesc, "xlator doesn't support getStaticDesc", "xlatorName",
                 translatorName);
    return nullptr;
  }
  return translator->getStaticDesc(translator, code, languageAndAde, &reallocate, nullptr, status);
}

char* Session::getDynamicDesc(const char* report, uint32_t languageAndAde, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return nullptr;
  const std::string_view raw = translatorKey(report);
  if (raw.empty()) {
    failWithPair(status, zqsite::kZqxlatorNoTranslatorKey, "could not find translator key in json", "json",
                 report ? report : "");
    return nullptr;
  }
  std::string name;
  try {
    if (!zqerr::json::decodeString(raw.data(), raw.size(), &name)) name.clear();
  } catch (const std::bad_alloc&) {
    failWithPair(status, zqsite::kZqxlatorNameMemory, "failed to allocate xlatorName", "json", report);
    return nullptr;
  }
  zqxlator_Translator* translator = findTranslator(name.c_str(), status);
  if (!translator) return nullptr;
  if (!translator->getDynamicDesc) {
    failWithPair(status, zqsite::kZqxlatorNoDynamicDesc, "xlator doesn't support getDynamicDesc", "xlatorName", name);
    return nullptr;
  }
  return translator->getDynamicDesc(translator, report, languageAndAde, "json1", &reallocate, nullptr, status);
}

}  // namespace zqxlator
