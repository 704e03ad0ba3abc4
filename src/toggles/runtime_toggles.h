// Named on/off switches that an installation sets outside the program. Each toggle is read
// once, on first need, from its registry value; the answer, or the default when the read
// failed, then stays in the store's cache for the life of the process.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/platform.h"
#include "status/status.h"

namespace runtime_toggles {

class iSystemSettingsAccessor {
 public:
  virtual ~iSystemSettingsAccessor() = default;
  // The accessor's construction result.
  virtual const zqerr::FixedStatus& getStatus() const = 0;
};

class SystemSettingsAccessor : public iSystemSettingsAccessor {
 public:
  SystemSettingsAccessor() : status_(zqerr::makeFixedStatus()) {}
  const zqerr::FixedStatus& getStatus() const override { return status_; }

 private:
  zqerr::FixedStatus status_;
};

// Value: a toggle's type. Default: the type of a default. BufferLength: wide characters of the
// buffer a registry value is read into. A name's pointer is read as zero-terminated UTF-8.
template <class Value, class Default, size_t BufferLength>
class iRuntimeToggles {
 public:
  virtual ~iRuntimeToggles() = default;
  // The cached value, else the registry's, else the default; the last two are cached.
  virtual void getToggle(std::string_view name, const Default* defaultValue, Value* result,
                         zqerr::FixedStatus* status) = 0;
  // Replaces the cached value: later reads of that name answer from it.
  virtual void setToggle(std::string_view name, const Value* value, zqerr::FixedStatus* status) = 0;
  virtual void clearTogglesWithStatus(zqerr::FixedStatus* status) = 0;
  virtual void touchLock() = 0;
  virtual void clearToggles() = 0;
};

inline constexpr size_t kToggleTextSize = 512;  // each text field, terminator included

template <class Value, class Default, size_t BufferLength>
class RuntimeToggles final : public iRuntimeToggles<Value, Default, BufferLength> {
 public:
  // Throws the given status as zqerr::Exception when it has failed at the end, unless an
  // exception is already in flight; the store then answers nothing.
  RuntimeToggles(const char* product, const char* fileName, const char* company,
                 iSystemSettingsAccessor* accessor, zqerr::FixedStatus* status);
  ~RuntimeToggles() override;
  RuntimeToggles(const RuntimeToggles&) = delete;
  RuntimeToggles& operator=(const RuntimeToggles&) = delete;

  void getToggle(std::string_view name, const Default* defaultValue, Value* result,
                 zqerr::FixedStatus* status) override;
  void setToggle(std::string_view name, const Value* value, zqerr::FixedStatus* status) override;
  void clearTogglesWithStatus(zqerr::FixedStatus* status) override;
  void touchLock() override;
  void clearToggles() override;

  const zqerr::FixedStatus& status() const { return status_; }

 private:
  bool answers() const { return status_.code >= 0; }
  void readRegistry(const char* name, Value* result, zqerr::FixedStatus* status) const;
  void remember(const char* name, Value value, zqerr::FixedStatus* status);

  char product_[kToggleTextSize];
  char fileName_[kToggleTextSize];  // kept for a file source; nothing here reads it
  char company_[kToggleTextSize];
  std::unique_ptr<zqplatform::CriticalSection> lock_;
  iSystemSettingsAccessor* accessor_;  // not owned
  std::map<std::string, Value, std::less<>> cache_;  // byte order: names are case-sensitive
  zqerr::FixedStatus status_;
};

extern template class RuntimeToggles<bool, bool, 6>;

}  // namespace runtime_toggles
