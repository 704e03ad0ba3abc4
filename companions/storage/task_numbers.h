// The numbering of unnamed tasks, shared by every process of the machine through the local
// store: each number is handed out once.
#pragma once

#include <cstdint>
#include <string>

namespace zqstorage {

// The next number, counting from 0, saved before it is given.
uint64_t takeTaskNumber();
// "_unnamedTask<N>", N in upper-case hexadecimal without leading zeros.
std::string taskNameFor(uint64_t number);

}  // namespace zqstorage
