// The library's string: allocation failure goes into a status instead of an exception, and a
// failed status makes every allocating operation a no-op, so a chain of edits needs one test.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>

#include "text/status_ref.h"

namespace zqhtl {

namespace err {

// Allocates through the nothrow operator new and reports failure into the status.
template <typename T>
struct Allocator {
  // Largest count of elements that may be asked for, one kept back for a terminator.
  static constexpr uint64_t kMaxCount = static_cast<uint64_t>(PTRDIFF_MAX) / sizeof(T) - 1;

  static T* allocate(uint64_t count, StatusRef status) {
    void* block = count <= kMaxCount ? ::operator new(static_cast<size_t>(count) * sizeof(T), std::nothrow) : nullptr;
    if (!block) status.memoryFull();
    return static_cast<T*>(block);
  }
  static void deallocate(T* block) { ::operator delete(block); }
};

}  // namespace err

template <typename Char, typename Alloc = err::Allocator<Char>>
class BasicString {
 public:
  using View = std::basic_string_view<Char>;
  static constexpr uint64_t kMinCapacity = 127;

  BasicString() = default;
  ~BasicString() { release(); }
  BasicString(BasicString&& other) noexcept
      : data_(std::exchange(other.data_, nullptr)),
        capacity_(std::exchange(other.capacity_, 0)),
        size_(std::exchange(other.size_, 0)) {}
  BasicString& operator=(BasicString&& other) noexcept {
    if (this != &other) {
      release();
      data_ = std::exchange(other.data_, nullptr);
      capacity_ = std::exchange(other.capacity_, 0);
      size_ = std::exchange(other.size_, 0);
    }
    return *this;
  }
  BasicString(const BasicString&) = delete;
  BasicString& operator=(const BasicString&) = delete;

  // Null while nothing was ever allocated.
  Char* data() { return data_; }
  const Char* data() const { return data_; }
  // Never null: a null data reads as the empty text.
  const Char* c_str() const { return data_ ? data_ : &kEmpty; }
  uint64_t size() const { return size_; }
  uint64_t capacity() const { return capacity_; }
  bool empty() const { return size_ == 0; }
  View view() const { return View(c_str(), static_cast<size_t>(size_)); }
  Char operator[](uint64_t index) const { return data_[index]; }

  // Grows to hold n characters: at least 127, at least half as much again as before.
  bool reserve(uint64_t n, err::StatusRef status) {
    if (!status.isOpen()) return false;
    if (n <= capacity_ && capacity_ != 0) return true;
    return rebuild(capacityFor(n), size_, nullptr, 0, status);
  }

  bool assign(const Char* text, uint64_t count, err::StatusRef status) {
    if (!status.isOpen()) return false;
    if (count == 0) {
      clear();
      return true;
    }
    if (data_ && count <= capacity_) {
      std::memmove(data_, text, bytes(count));  // the text may be a part of this one
      setSize(count);
      return true;
    }
    return rebuild(capacityFor(count), 0, text, count, status, false);
  }
  bool assign(View text, err::StatusRef status) { return assign(text.data(), text.size(), status); }

  bool append(const Char* text, uint64_t count, err::StatusRef status) { return insert(size_, text, count, status); }
  bool append(View text, err::StatusRef status) { return insert(size_, text.data(), text.size(), status); }
  bool pushBack(Char c, err::StatusRef status) { return insert(size_, &c, 1, status); }

  // A position past the end inserts at the end. The text may be a part of this one.
  bool insert(uint64_t pos, const Char* text, uint64_t count, err::StatusRef status) {
    if (!status.isOpen()) return false;
    if (count == 0) return true;
    if (count > Alloc::kMaxCount - size_) {
      status.memoryFull();
      return false;
    }
    pos = std::min(pos, size_);
    if (!data_ || size_ + count > capacity_) return rebuild(capacityFor(size_ + count), pos, text, count, status);
    insertInPlace(pos, text, count);
    return true;
  }
  bool insert(uint64_t pos, View text, err::StatusRef status) { return insert(pos, text.data(), text.size(), status); }

  // New characters are zeros.
  bool resize(uint64_t n, err::StatusRef status) {
    if (!status.isOpen()) return false;
    if (n > size_) {
      if ((!data_ || n > capacity_) && !rebuild(capacityFor(n), size_, nullptr, 0, status)) return false;
      std::memset(data_ + size_, 0, bytes(n - size_));
    }
    if (data_) setSize(n);
    return true;
  }

  void erase(uint64_t pos, uint64_t count = UINT64_MAX) {
    if (pos >= size_) return;
    count = std::min(count, size_ - pos);
    std::memmove(data_ + pos, data_ + pos + count, bytes(size_ - pos - count));
    setSize(size_ - count);
  }

  // Keeps the block.
  void clear() {
    if (data_) setSize(0);
  }

 private:
  static constexpr Char kEmpty = 0;

  static size_t bytes(uint64_t count) { return static_cast<size_t>(count) * sizeof(Char); }

  uint64_t capacityFor(uint64_t n) const {
    uint64_t wanted = std::max(n, kMinCapacity);
    uint64_t grown = capacity_ + capacity_ / 2;
    return grown >= wanted ? grown : wanted;
  }

  void setSize(uint64_t n) {
    size_ = n;
    data_[n] = 0;
  }

  void adopt(Char* block, uint64_t capacity, uint64_t size) {
    release();
    data_ = block;
    capacity_ = capacity;
    setSize(size);
  }

  void release() {
    if (data_) Alloc::deallocate(data_);
    data_ = nullptr;
    capacity_ = 0;
    size_ = 0;
  }

  // A new block of `capacity`, holding the old text (if kept) with `count` characters of `text`
  // put in at `pos`; the old block goes only after the copy, so `text` may lie in it.
  bool rebuild(uint64_t capacity, uint64_t pos, const Char* text, uint64_t count, err::StatusRef status,
               bool keepOld = true) {
    if (capacity > Alloc::kMaxCount) {
      status.memoryFull();
      return false;
    }
    Char* block = Alloc::allocate(capacity + 1, status);
    if (!block) return false;
    uint64_t size = keepOld ? size_ : 0;
    if (data_ && keepOld) {
      std::memcpy(block, data_, bytes(pos));
      std::memcpy(block + pos + count, data_ + pos, bytes(size - pos));
    }
    if (count) std::memcpy(block + pos, text, bytes(count));
    adopt(block, capacity, size + count);
    return true;
  }

  void insertInPlace(uint64_t pos, const Char* text, uint64_t count) {
    Char* p = data_;
    bool inside = text >= p && text < p + size_;
    uint64_t from = inside ? static_cast<uint64_t>(text - p) : 0;
    std::memmove(p + pos + count, p + pos, bytes(size_ - pos));
    if (!inside) {
      std::memcpy(p + pos, text, bytes(count));
    } else if (from + count <= pos) {
      std::memmove(p + pos, p + from, bytes(count));
    } else if (from >= pos) {
      std::memmove(p + pos, p + from + count, bytes(count));
    } else {  // the source straddles the insertion point: its tail has moved up by count
      uint64_t head = pos - from;
      std::memmove(p + pos, p + from, bytes(head));
      std::memmove(p + pos + head, p + pos + count, bytes(count - head));
    }
    setSize(size_ + count);
  }

  Char* data_ = nullptr;
  uint64_t capacity_ = 0;
  uint64_t size_ = 0;
};

using String = BasicString<char>;
using WideString = BasicString<char16_t>;

}  // namespace zqhtl
