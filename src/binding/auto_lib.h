// A loaded library and, on top of it, the library with its bound interface object.
#pragma once

#include <concepts>
#include <cstddef>
#include <type_traits>

#include "platform/platform.h"
#include "status/status.h"

namespace zqdynlib {

// What the binding needs of an interface class: its operation names in table order, and a
// place for each address found. Every pointer is zero until bound.
template <class T>
concept BindableInterface = std::is_default_constructible_v<T> && requires(T& bound, size_t index, void* address) {
  { T::kOperationCount } -> std::convertible_to<size_t>;
  { T::kNames[index] } -> std::convertible_to<const char*>;
  bound.setSlot(index, address);
};

// Owns one native library handle: the library stays loaded as long as the object lives.
class AutoLib {
 public:
  AutoLib() = default;
  virtual ~AutoLib();
  AutoLib(const AutoLib&) = delete;
  AutoLib& operator=(const AutoLib&) = delete;

  // zqdynlib_load of `path`; nothing when the status already holds an error.
  void load(const char* path, zqerr_Status* status);
  zqplatform::LibraryHandle handle() const { return handle_; }

 private:
  zqplatform::LibraryHandle handle_ = nullptr;
};

// The library and its bound interface object. Handed out as a shared pointer to the inner
// object whose control block owns the whole, so that the library unloads when the last user
// of any operation is gone.
template <BindableInterface T>
class AutoLibWithInterface final : private AutoLib {
 public:
  AutoLibWithInterface() = default;
  ~AutoLibWithInterface() override = default;

  using AutoLib::handle;
  using AutoLib::load;
  T& bound() { return bound_; }

 private:
  T bound_;
};

}  // namespace zqdynlib
