#include <windows.h>

#include "guard_page.h"

namespace zqtest {

GuardedBytes::GuardedBytes(size_t size) {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  const size_t page = info.dwPageSize;
  if (size > page) return;
  void* mapping = VirtualAlloc(nullptr, 2 * page, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
  if (!mapping) return;
  mapping_ = mapping;
  mappingSize_ = 2 * page;
  auto* base = static_cast<unsigned char*>(mapping);
  DWORD old = 0;
  if (!VirtualProtect(base + page, page, PAGE_NOACCESS, &old)) return;
  data_ = base + page - size;
}

GuardedBytes::~GuardedBytes() {
  if (mapping_) VirtualFree(mapping_, 0, MEM_RELEASE);
}

}  // namespace zqtest
