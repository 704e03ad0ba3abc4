// This test program's global allocator counts the allocations of the calling thread.
#pragma once

namespace zqtest {
long allocationCount();
}
