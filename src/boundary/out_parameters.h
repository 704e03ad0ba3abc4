// How a Get hands text and arrays to the application: a null pointer or a size of 0 asks for
// the size, a short buffer is an error with nothing written, and otherwise the value is copied.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "zqvorex_status.h"

namespace zqgopher {

// UTF-8 `text` into the caller's buffer in the system code page, on `status` itself. Returns
// the converted length plus 1 (0 for an empty text) for a size query, which sets
// `isSizeQuery`; else 0. A buffer without room for the terminator gives -200228.
int32_t copyStringToCaller(std::string_view text, char* buffer, uint32_t bufferSize, bool& isSizeQuery,
                           zqerr_Status* status);

// The same on a private status merged into `status`; a -200228 gets its elaboration, the
// needed size and then `bufferSize`.
int32_t copyStringOut(std::string_view text, char* buffer, uint32_t bufferSize, bool& isSizeQuery,
                      zqerr_Status* status);

// A list as one text, its items joined with ", ". An empty list writes an empty text into a
// buffer that has room. The size comes back only for a size query on a good status.
int32_t copyStringListOut(const std::vector<std::string>& items, char* buffer, uint32_t bufferSize,
                          bool& isSizeQuery, zqerr_Status* status);

namespace detail {
int32_t copyElementsOut(const void* items, uint64_t count, size_t elementSize, void* data,
                        uint32_t arraySizeInElements, zqerr_Status* status);
}

// Elements into the caller's array. A null `data` or a size of 0 returns the element count; a
// short array gives -200234 with nothing copied; else the elements are copied and 0 returned.
template <class T>
int32_t copyArrayOut(const std::vector<T>& items, T* data, uint32_t arraySizeInElements, zqerr_Status* status) {
  static_assert(std::is_trivially_copyable_v<T>);
  return detail::copyElementsOut(items.data(), items.size(), sizeof(T), data, arraySizeInElements, status);
}

}  // namespace zqgopher
