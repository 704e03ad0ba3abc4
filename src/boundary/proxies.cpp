#include "boundary/proxies.h"

#include "boundary/guard.h"
#include "status/error_sites.h"

namespace zqgopher {

namespace {

// Reserve once, then one add per item, until the status fails.
template <class Table, class T, class Item>
void addAll(zqgopher_IItemAdder* target, const Table* table, const std::vector<T>& items, Item item,
            zqerr_Status* status) {
  if (items.empty()) return;
  table->reserve(target, items.size(), status);
  for (const T& each : items) {
    if (!zqerr::isOpen(status)) return;
    table->add(target, item(each), status);
  }
}

bool targetPresent(const void* target, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return false;
  if (!target) {
    ZQ_FAIL(status, kItemAdderProxyInvalidParameter);
    return false;
  }
  return true;
}

}  // namespace

void StringProxy::set(std::string_view utf8, zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return;
  if (!target_) {
    ZQ_FAIL(status, kStringProxyInvalidParameter);
    return;
  }
  target_->table->assign(target_, utf8.data(), utf8.size(), status);
}

void ItemAdderProxy::add(const std::vector<std::string>& items, zqerr_Status* status) const {
  if (targetPresent(target_, status))
    addAll(target_, target_->table.strings, items, [](const std::string& s) { return s.c_str(); }, status);
}

void ItemAdderProxy::add(const std::vector<int32_t>& items, zqerr_Status* status) const {
  if (targetPresent(target_, status)) addAll(target_, target_->table.i32, items, [](int32_t v) { return v; }, status);
}

void ItemAdderProxy::add(const std::vector<double>& items, zqerr_Status* status) const {
  if (targetPresent(target_, status)) addAll(target_, target_->table.f64, items, [](double v) { return v; }, status);
}

}  // namespace zqgopher
