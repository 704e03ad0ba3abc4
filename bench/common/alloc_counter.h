// Counts every global operator new of the process, so a benchmark can report allocations per
// iteration next to its time.
#pragma once

#include <cstdint>

namespace zqbench {

uint64_t allocationCount();

}  // namespace zqbench
