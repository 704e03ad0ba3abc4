#include "toggles/runtime_toggles.h"

#include <cstring>
#include <exception>
#include <mutex>

#include "status/exceptions.h"
#include "status/error_sites.h"
#include "toggles/system_error_status.h"
#include "toggles/toggle_source.h"

namespace runtime_toggles {

namespace {


void copyText(char (&field)[kToggleTextSize], const char* text) {
  size_t n = text ? strnlen(text, kToggleTextSize - 1) : 0;
  if (n) std::memcpy(field, text, n);
  field[n] = '\0';
}

// A site that passes on a code held in a variable.
void setSite(zqerr::FixedStatus* status, int32_t code, const zqerr::Site& site) {
  zqerr::setFixed(status, code, zqerr::kComponent, site.location.file, site.location.line);
}

void merge(const zqerr::FixedStatus& from, zqerr::FixedStatus* into) {
  zqerr::setFixed(into, from.code, from.component, from.file, from.line);
}

// The value a toggle's registry text stands for.
void valueFromText(const char16_t* buffer, size_t units, bool* value) { *value = isTrueText(buffer, units); }

}  // namespace

template <class V, class D, size_t N>
RuntimeToggles<V, D, N>::RuntimeToggles(const char* product, const char* fileName, const char* company,
                                        iSystemSettingsAccessor* accessor, zqerr::FixedStatus* status)
    : lock_(std::make_unique<zqplatform::CriticalSection>()), accessor_(accessor), status_(zqerr::makeFixedStatus()) {
  copyText(product_, product);
  copyText(fileName_, fileName);
  copyText(company_, company);
  if (status->code < 0) setSite(&status_, status->code, zqsite::kTogglesReadFailed);
  const zqerr::FixedStatus& accessorStatus = accessor_->getStatus();
  if (accessorStatus.code < 0) {
    setSite(status, accessorStatus.code, zqsite::kTogglesAccessorFailed);
    setSite(&status_, accessorStatus.code, zqsite::kTogglesAccessorFailedKept);
  }
  zqerr::throwIfFailed(*status);
}

template <class V, class D, size_t N>
RuntimeToggles<V, D, N>::~RuntimeToggles() {
  cache_.clear();
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::getToggle(std::string_view name, const D* defaultValue, V* result,
                                        zqerr::FixedStatus* status) {
  if (!answers()) return;
  if (result) *result = static_cast<V>(*defaultValue);
  std::lock_guard<zqplatform::CriticalSection> guard(*lock_);
  if (auto found = cache_.find(std::string_view(name.data())); found != cache_.end()) {
    if (result) *result = found->second;
    return;
  }
  readRegistry(name.data(), result, status);
  remember(name.data(), result ? *result : static_cast<V>(*defaultValue), status);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::readRegistry(const char* name, V* result, zqerr::FixedStatus* status) const {
  if (!company_[0] || !product_[0] || !name[0]) {
    zqerr::setFixed(status, zqsite::kTogglesInvalidName);
    return;
  }
  if (!result) {
    zqerr::setFixed(status, zqsite::kTogglesInvalidValue);
    return;
  }
  std::string key;
  char16_t buffer[N];
  if (!toggleKeyText(company_, product_, name, &key)) {
    setSystemErrorStatus(zqplatform::kErrorInsufficientBuffer, status);
    return;
  }
  readToggleValue(key, buffer, N, status);
  if (status->code >= 0) valueFromText(buffer, N, result);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::remember(const char* name, V value, zqerr::FixedStatus* status) {
  zqerr::FixedStatus own = zqerr::makeFixedStatus();
  try {
    cache_.insert_or_assign(std::string(name), value);
  } catch (...) {
    zqerr::convertCurrentException(&own);
  }
  merge(own, status);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::setToggle(std::string_view name, const V* value, zqerr::FixedStatus* status) {
  if (!answers()) return;
  std::lock_guard<zqplatform::CriticalSection> guard(*lock_);
  if (auto found = cache_.find(std::string_view(name.data())); found != cache_.end()) cache_.erase(found);
  remember(name.data(), *value, status);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::clearTogglesWithStatus(zqerr::FixedStatus* status) {
  if (!answers()) return;
  std::lock_guard<zqplatform::CriticalSection> guard(*lock_);
  cache_.clear();
  merge(zqerr::makeFixedStatus(), status);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::touchLock() {
  if (!answers()) return;
  std::lock_guard<zqplatform::CriticalSection> guard(*lock_);
}

template <class V, class D, size_t N>
void RuntimeToggles<V, D, N>::clearToggles() {
  if (!answers()) return;
  std::lock_guard<zqplatform::CriticalSection> guard(*lock_);
  cache_.clear();
}

template class RuntimeToggles<bool, bool, 6>;

}  // namespace runtime_toggles
