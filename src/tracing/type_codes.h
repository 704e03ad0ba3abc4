// Type codes of trace records: what the value at a record's address is. A pointer parameter is
// recorded by the address of the pointer (8 bytes) with the code of what it points to.
#pragma once

#include <cstdint>

namespace zqtrace {

enum TypeCode : int32_t {
  kU32 = 1,              // uint32_t; 4, 4
  kU32Array = 2,         // arrays: the pointer as parameter (8, 8); 8 and the bytes as return
  kI32Array = 4,
  kU16Array = 6,
  kI16Array = 8,
  kU8Array = 10,
  kF64Attribute = 19,    // double attribute value; 8, 8
  kF64Array = 20,
  kBool32 = 21,          // 4, 4
  kBool32Pointer = 22,   // 8, 8; also "reserved" of the reads
  kOutHandle = 51,       // "*taskHandle" when the handle is not null
  kWatchdogArraySize = 58,
  kSize = 71,            // uint32_t size or count
  kI32 = 75,             // int32_t, plain: "retval", "size", "error"
  kText = 79,            // value address is the text; 1, length without NUL
  kF64 = 81,             // double, plain
  kU32Pointer = 82,
  kI32Pointer = 86,
  kTextBuffer = 89,      // the caller's text buffer, when not null
  kF64AttributePointer = 91,
  kF64Pointer = 92,
  kPointer = 93,         // a pointer or handle shown as such; every null string or array
  kU64 = 95,
  kU64Pointer = 96,
  kEnumArray = 102,      // int32_t array of enumeration values
  kEnum = 103,           // pair of 32-bit words: attribute id, value; 4, 8
  kAbsoluteTime = 108,   // 1, 16
  kAbsoluteTimePointer = 109,
};

}  // namespace zqtrace
