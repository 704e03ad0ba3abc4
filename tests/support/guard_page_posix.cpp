#include <sys/mman.h>
#include <unistd.h>

#include "guard_page.h"

namespace zqtest {

GuardedBytes::GuardedBytes(size_t size) {
  const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
  if (size > page) return;
  void* mapping = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (mapping == MAP_FAILED) return;
  mapping_ = mapping;
  mappingSize_ = 2 * page;
  auto* base = static_cast<unsigned char*>(mapping);
  if (mprotect(base + page, page, PROT_NONE) != 0) return;
  data_ = base + page - size;
}

GuardedBytes::~GuardedBytes() {
  if (mapping_) munmap(mapping_, mappingSize_);
}

}  // namespace zqtest
