// Loading a library and binding its interface object, under the two policies:
// strict (all or nothing) for the storage and catalog classes, lenient (any subset of the
// operations) for plug-ins and the debug server.
#pragma once

#include <memory>
#include <new>
#include <string>

#include "binding/auto_lib.h"
#include "binding/bind_symbols.h"
#include "status/error_sites.h"

namespace zqdynlib {

// The sites of a lenient binding's failures, which each user states in its own source.
struct LenientSites {
  zqerr::SourceLocation libraryNotPresent;
  zqerr::SourceLocation memoryFull;
};

inline constexpr LenientSites kPluginSites{zqsite::kPluginLibraryNotPresent.location,
                                           zqsite::kPluginLibraryMemoryFull.location};

namespace detail {
// Whether a strict binding stands. If not, `status` gets kErrorLibraryNotPresent (nothing
// loaded) or kErrorFunctionNotInLibrary, the library's path and `local` as the nested error.
bool keepStrict(const char* path, bool loaded, const zqerr_Status& local, zqerr_Status* status);
// Whether a lenient binding stands: a missing symbol in a loaded library is no failure.
bool keepLenient(const char* path, bool loaded, const zqerr_Status& local, zqerr_Status* status,
                 const LenientSites& sites);
void reportNoMemory(zqerr_Status* status, const LenientSites& sites);

template <class T>
std::shared_ptr<T> boundPart(std::shared_ptr<AutoLibWithInterface<T>> whole) {
  T* bound = &whole->bound();
  return std::shared_ptr<T>(std::move(whole), bound);
}
}  // namespace detail

// Strict: one missing symbol fails the whole library and unloads it. Empty on failure.
template <BindableInterface T>
std::shared_ptr<T> loadBoundLibrary(const char* path, zqerr_Status* status, const char* prefix) {
  if (!zqerr::isOpen(status)) return {};
  zqerr::Status local;
  auto whole = std::make_shared<AutoLibWithInterface<T>>();
  whole->load(path, &local);
  bindSymbols(whole->handle(), whole->bound(), &local, prefix);
  if (!detail::keepStrict(path, whole->handle() != nullptr, local, status)) return {};
  return detail::boundPart(std::move(whole));
}

// Lenient: a library that loads stands with whatever subset of its operations it exports;
// the forwarders of the interface class answer for the missing ones. Empty on failure.
template <BindableInterface T>
std::shared_ptr<T> loadLenientLibrary(const char* path, zqerr_Status* status, const char* prefix,
                                      const LenientSites& sites) {
  if (!zqerr::isOpen(status)) return {};
  std::shared_ptr<AutoLibWithInterface<T>> whole;
  try {
    whole = std::make_shared<AutoLibWithInterface<T>>();
  } catch (const std::bad_alloc&) {
    detail::reportNoMemory(status, sites);
    return {};
  }
  zqerr::Status local;
  whole->load(path, &local);
  bindSymbols(whole->handle(), whole->bound(), &local, prefix);
  if (!detail::keepLenient(path, whole->handle() != nullptr, local, status, sites)) return {};
  return detail::boundPart(std::move(whole));
}

// The symbol prefix of a plug-in: the file stem of its path (after the last "/" or "\", up to
// the first "." after it) and "_". zqapalerr_invalidParameter when nothing follows the last
// separator.
bool pluginPrefix(const char* path, std::string* prefix, zqerr_Status* status);

// A plug-in library: lenient, with the prefix taken from its path.
template <BindableInterface T>
std::shared_ptr<T> loadPlugin(const char* path, zqerr_Status* status) {
  std::string prefix;
  if (!pluginPrefix(path, &prefix, status)) return {};
  return loadLenientLibrary<T>(path, status, prefix.c_str(), kPluginSites);
}

}  // namespace zqdynlib
