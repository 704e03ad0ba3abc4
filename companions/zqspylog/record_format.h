// Turns one trace record into readable text, decoded by its type code.
#pragma once

#include <cstdint>
#include <string>

namespace zqspylog {

// How a record's value is laid out besides its type code.
enum class Role {
  kParam,         // a parameter; an array code here is the array's pointer, by its address
  kArrayContent,  // an input array's content record: element 8, total 8 times the count
  kReturn,        // a return; an array code here is the content, total in bytes
};

// "name@index:code[element,total]=value".
std::string formatRecord(const char* name, uint32_t index, int32_t code, const void* value, uint32_t elementSize,
                         uint64_t totalSize, Role role);

bool isArrayCode(int32_t code);

}  // namespace zqspylog
