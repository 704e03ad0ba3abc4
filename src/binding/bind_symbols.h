// Filling an interface object's table from its name table: one mechanism for every class.
#pragma once

#include <cstddef>

#include "binding/auto_lib.h"

namespace zqdynlib {

inline constexpr size_t kSymbolBufferSize = 256;  // a symbol is cut to 255 characters

using SlotSetter = void (*)(void* table, size_t index, void* address);

// Looks up prefix + names[i] for every i in order and stores each result, the address or
// zero. Never stops early: `status` ends with the first miss, and the table tells exactly
// which operations are bound. Does nothing when `status` already holds an error.
void bindSymbolTable(zqplatform::LibraryHandle library, const char* const* names, size_t count, void* table,
                     SlotSetter set, zqerr_Status* status, const char* prefix);

template <BindableInterface T>
void bindSymbols(zqplatform::LibraryHandle library, T& bound, zqerr_Status* status, const char* prefix) {
  bindSymbolTable(
      library, T::kNames, T::kOperationCount, &bound,
      [](void* table, size_t index, void* address) { static_cast<T*>(table)->setSlot(index, address); }, status,
      prefix);
}

}  // namespace zqdynlib
