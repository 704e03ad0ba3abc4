// The keys of the task pool's two maps: the task's address, compared exactly, and its name,
// compared without regard to case. Both hashes end in the registers' 64-bit mix.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nZQCAI100 {

// The address taken as a + (a >> 3), then mixed.
uint64_t taskAddressHash(const void* address);

// The times-33 hash, seed 5381, over the case-folded code points of a UTF-8 name, then mixed.
uint64_t taskNameHash(std::string_view name);

// True when the names are one name once case is folded.
bool sameTaskName(std::string_view a, std::string_view b);

struct TaskAddressHash {
  size_t operator()(const void* address) const { return static_cast<size_t>(taskAddressHash(address)); }
};

struct TaskNameHash {
  size_t operator()(const std::string& name) const { return static_cast<size_t>(taskNameHash(name)); }
};

struct TaskNameEqual {
  bool operator()(const std::string& a, const std::string& b) const { return sameTaskName(a, b); }
};

}  // namespace nZQCAI100
