#include "pool/task_keys.h"

#include "contexts/hash_mix.h"
#include "text/casefold.h"

namespace nZQCAI100 {

uint64_t taskAddressHash(const void* address) {
  auto a = static_cast<uint64_t>(reinterpret_cast<uintptr_t>(address));
  return zqhash::mix64(a + (a >> 3));
}

uint64_t taskNameHash(std::string_view name) {
  uint64_t h = 5381;
  const char* p = name.data();
  const char* end = p + name.size();
  while (p != end) {
    char32_t cp = 0;
    p = zqwombat::decodeUtf8Unchecked(p, end, &cp);
    char32_t folded[3];
    size_t n = zqwombat::foldCodePoint(cp, folded);
    for (size_t i = 0; i < n; ++i) h = h * 33 + folded[i];
  }
  return zqhash::mix64(h);
}

bool sameTaskName(std::string_view a, std::string_view b) {
  return zqwombat::compareFolded(a.data(), a.data() + a.size(), b.data(), b.data() + b.size()) == 0;
}

}  // namespace nZQCAI100
