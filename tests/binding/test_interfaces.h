// Interface classes of the shape the binding serves, for the test libraries in fixtures/.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace zqtest {

// Only the table: names in order and one address per name.
template <const char* const* Names, size_t Count>
class NameTable {
 public:
  static constexpr size_t kOperationCount = Count;
  static constexpr const char* const* kNames = Names;

  void setSlot(size_t index, void* address) noexcept {
    if (index < Count) slots_[index] = address;
  }
  void* slot(size_t index) const { return slots_[index]; }
  // One character per name: '1' bound, '0' not.
  std::string boundMask() const {
    std::string mask;
    for (void* address : slots_) mask += address ? '1' : '0';
    return mask;
  }
  // Calls an operation of the fixtures' common shape: int32_t (status).
  int32_t call(size_t index, zqerr_Status* status) const {
    return reinterpret_cast<int32_t (*)(zqerr_Status*)>(slots_[index])(status);
  }

 private:
  std::array<void*, Count> slots_{};
};

// A full interface class over the recorder library: the destructor, then for each operation
// the test whether it is bound and the forwarder. "rewind" is not exported by the library.
class RecorderInterface {
 public:
  virtual ~RecorderInterface() = default;
  virtual bool hasBump() const = 0;
  virtual int32_t bump(zqerr_Status* status) = 0;
  virtual bool hasAdd() const = 0;
  virtual int32_t add(int32_t a, int32_t b, zqerr_Status* status) = 0;
  virtual bool hasJournal() const = 0;
  virtual const char* journal(zqerr_Status* status) = 0;
  virtual bool hasRewind() const = 0;
  virtual void rewind(zqerr_Status* status) = 0;
};

class Recorder final : public RecorderInterface {
 public:
  static constexpr size_t kOperationCount = 4;
  static const char* const kNames[kOperationCount];

  void setSlot(size_t index, void* address) noexcept;

  bool hasBump() const override { return table_.bump != nullptr; }
  int32_t bump(zqerr_Status* status) override;
  bool hasAdd() const override { return table_.add != nullptr; }
  int32_t add(int32_t a, int32_t b, zqerr_Status* status) override;
  bool hasJournal() const override { return table_.journal != nullptr; }
  const char* journal(zqerr_Status* status) override;
  bool hasRewind() const override { return table_.rewind != nullptr; }
  void rewind(zqerr_Status* status) override;

 private:
  struct Table {
    int32_t (*bump)(zqerr_Status*);
    int32_t (*add)(int32_t, int32_t, zqerr_Status*);
    const char* (*journal)(zqerr_Status*);
    void (*rewind)(zqerr_Status*);
  };
  Table table_{};
};

// What an unbound forwarder of the recorder reports.
inline constexpr int32_t kRecorderUnbound = nZQMSTS::kErrorFunctionNotSupportedForDevice;

}  // namespace zqtest
