// The pieces every bound class of the storage and task-catalog libraries is made of. Each
// class is an interface of virtual pairs, a test whether the operation is bound and its
// forwarder, and a bound class holding one function pointer per operation, in slot order.
#pragma once

#include <cstddef>
#include <cstring>

#include "zqvorex_storage.h"

// Uses of one line ZQ_BOUND_OPERATION(index, Op, op, Fn, Result, (Params), args...) of a
// generated operation list.
#define ZQ_BOUND_VIRTUALS(index, Op, op, Fn, Result, Params, ...) \
  virtual bool has##Op() const = 0;                               \
  virtual Result op Params = 0;
// Strict classes bind all or nothing, so a forwarder makes no test: it jumps.
#define ZQ_BOUND_OVERRIDES(index, Op, op, Fn, Result, Params, ...) \
  bool has##Op() const override { return table_.op != nullptr; }   \
  Result op Params override { return table_.op(__VA_ARGS__); }
#define ZQ_BOUND_FIELD(index, Op, op, Fn, ...) Fn op;
#define ZQ_BOUND_NAME(index, Op, op, ...) #op,
#define ZQ_BOUND_COUNT(...) +1

namespace zqvorexStorageCpp::detail {

// The table is a struct of typed pointers; the binding hands addresses over untyped.
template <class Table>
void setSlot(Table& table, size_t count, size_t index, void* address) noexcept {
  if (index < count)
    std::memcpy(reinterpret_cast<char*>(&table) + index * sizeof(void*), &address, sizeof(void*));
}

template <class Table>
void* slot(const Table& table, size_t count, size_t index) noexcept {
  void* address = nullptr;
  if (index < count)
    std::memcpy(&address, reinterpret_cast<const char*>(&table) + index * sizeof(void*), sizeof(void*));
  return address;
}

}  // namespace zqvorexStorageCpp::detail
