// Kept apart from the tests so that no replaced allocation function is inlined into a caller.
#include "allocation_counter.h"

#include <cstdlib>
#include <new>

namespace {
thread_local long allocations = 0;
}

long zqtest::allocationCount() { return allocations; }

void* operator new(std::size_t size) {
  ++allocations;
  if (void* p = std::malloc(size ? size : 1)) return p;
  throw std::bad_alloc();
}
void* operator new[](std::size_t size) { return operator new(size); }
void operator delete(void* p) noexcept { std::free(p); }
void operator delete[](void* p) noexcept { std::free(p); }
void operator delete(void* p, std::size_t) noexcept { std::free(p); }
void operator delete[](void* p, std::size_t) noexcept { std::free(p); }
