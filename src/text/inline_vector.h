// A list that keeps its first N elements in place and moves to the heap only beyond them, so
// that the short lists of the hot path allocate nothing. For trivially copyable elements.
#pragma once

#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>
#include <vector>

namespace zqwombat {

template <typename T, size_t N>
class InlineVector {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  InlineVector() = default;
  InlineVector(const InlineVector&) = delete;
  InlineVector& operator=(const InlineVector&) = delete;

  // May throw std::bad_alloc once past N.
  void push(const T& value) {
    if (heap_.empty() && size_ < N) {
      std::memcpy(local_ + size_ * sizeof(T), &value, sizeof(T));
      ++size_;
      return;
    }
    if (heap_.empty()) heap_.assign(local(), local() + size_);
    heap_.push_back(value);
    ++size_;
  }
  size_t size() const { return size_; }
  const T* begin() const { return heap_.empty() ? local() : heap_.data(); }
  const T* end() const { return begin() + size_; }

 private:
  // Raw room, so that an unused list costs no construction; memcpy makes the objects.
  const T* local() const { return std::launder(reinterpret_cast<const T*>(local_)); }

  alignas(T) unsigned char local_[N * sizeof(T)];
  std::vector<T> heap_;
  size_t size_ = 0;
};

}  // namespace zqwombat
