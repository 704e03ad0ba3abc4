// Memory whose end touches a page that cannot be read, for tests of code that must never read
// past the caller's array: the array is placed so that its last byte is the page's last.
#pragma once

#include <cstddef>

namespace zqtest {

class GuardedBytes {
 public:
  // size bytes ending where the guard page begins; size at most one page.
  explicit GuardedBytes(size_t size);
  ~GuardedBytes();
  GuardedBytes(const GuardedBytes&) = delete;
  GuardedBytes& operator=(const GuardedBytes&) = delete;

  unsigned char* data() const { return data_; }
  bool ok() const { return data_ != nullptr; }

 private:
  void* mapping_ = nullptr;
  size_t mappingSize_ = 0;
  unsigned char* data_ = nullptr;
};

}  // namespace zqtest
