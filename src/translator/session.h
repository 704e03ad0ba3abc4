// The translator session: finds translators by name, keeps each one once found, and asks them
// for the static description of a code or the dynamic description of a report. Translators
// come from the built-in list first, then from the translator library "zqxlator" in the system
// folder, loaded at the first request that needs it; a failed load is kept and repeated to
// every later request, without trying again.
//
// The session has no lock of its own: it is reached only through the translator wrapper.
#pragma once

#include <cstddef>
#include <cstdint>

#include "platform/platform.h"
#include "status/status.h"
#include "text/basic_string.h"
#include "zqxlator_translator.h"

namespace zqxlator {

class Session;

class DestroyXlator {
 public:
  virtual ~DestroyXlator() = default;
  virtual void destroy(zqxlator_Translator* translator) = 0;
};

// Built-in translators end through their own record.
class DestroyLocalXlator final : public DestroyXlator {
 public:
  void destroy(zqxlator_Translator* translator) override;
};

// Loaded translators end through the library that made them.
class DestroyExportedXlator final : public DestroyXlator {
 public:
  explicit DestroyExportedXlator(Session* session) : session_(session) {}
  void destroy(zqxlator_Translator* translator) override;

 private:
  Session* session_;
};

struct CacheEntry {
  zqhtl::String name;
  zqxlator_Translator* translator = nullptr;
  DestroyXlator* destroyer = nullptr;
};

// The stem of the translator library: the loader adds the system's extension.
inline constexpr const char* kTranslatorLibrary = "zqxlator";

class Session {
 public:
  // Null with zqapalerr_memoryFull when there is no memory for it. Touches no file or library.
  static Session* create(zqerr_Status* status);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // The translator of that exact name, or null.
  zqxlator_Translator* findTranslator(const char* name, zqerr_Status* status);
  // Text from the session's allocator, freed with free(); null on failure.
  char* getStaticDesc(int32_t code, const char* translatorName, uint32_t languageAndAde, zqerr_Status* status);
  // The description of the report by the translator that its "translator" key names.
  char* getDynamicDesc(const char* report, uint32_t languageAndAde, zqerr_Status* status);

  // The sticky result of a failed load of the translator library.
  const zqerr_Status& loadStatus() const { return loadStatus_; }
  bool libraryLoaded() const { return library_ != nullptr; }

  // The allocator handed to translators: realloc, free for a size of 0.
  static void* reallocate(void* pointer, size_t size, void* argument, zqerr_Status* status);

 private:
  friend class DestroyExportedXlator;

  Session();
  void loadLibrary(zqerr_Status* status);
  void unloadLibrary();
  bool addEntry(const char* name, zqxlator_Translator* translator, DestroyXlator* destroyer, zqerr_Status* status);
  void clearEntries();

  zqplatform::LibraryHandle library_ = nullptr;
  zqerr::Status loadStatus_;
  zqxlatormgr_CreateSessionFn createSession_ = nullptr;
  zqxlatormgr_DestroySessionFn destroySession_ = nullptr;
  zqxlatormgr_CreateXlatorFn createXlator_ = nullptr;
  zqxlatormgr_DestroyXlatorFn destroyXlator_ = nullptr;
  void* exportedSession_ = nullptr;
  DestroyLocalXlator destroyLocal_;
  DestroyExportedXlator destroyExported_;
  Session* self_;
  // The cache: capacity 4 from the start; growth to the largest of one and a half times the
  // capacity, 8, and the size needed.
  size_t capacity_ = 0;
  size_t size_ = 0;
  CacheEntry* entries_ = nullptr;
};

}  // namespace zqxlator
