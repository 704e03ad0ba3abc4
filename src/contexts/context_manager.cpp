#include <mutex>
#include <new>

#include "contexts/context.h"
#include "contexts/hash_mix.h"
#include "status/exceptions.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

uint64_t contextNameHash(std::string_view name) {
  constexpr uint64_t kMul = 0xC6A4A7935BD1E995ull;
  uint64_t h = 0;
  for (char c : name) {
    auto k = static_cast<uint64_t>(static_cast<int64_t>(static_cast<signed char>(c))) * kMul;
    k = (k ^ (k >> 47)) * kMul;
    h = (h ^ k) * kMul + 0xE6546B64ull;
  }
  return zqhash::mix64(h);
}

ContextManager::ContextManager() {
  contexts_.max_load_factor(1.0f);
  contexts_.rehash(16);
}

std::shared_ptr<IContext> ContextManager::getContext(std::string_view name, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return {};
  try {
    std::lock_guard<zqplatform::SlimLock> guard(lock_);
    std::string key(name);
    auto found = contexts_.find(key);
    if (found != contexts_.end())
      if (auto live = found->second.lock()) return live;
    std::shared_ptr<Context> context;
    try {
      context = std::make_shared<Context>(key);
    } catch (const std::bad_alloc&) {
      ZQ_FAIL(status, kContextmanagerMemoryFull);
      return {};
    }
    contexts_[key] = context;
    if (!defaultContext_ && key.empty()) defaultContext_ = context;
    return context;
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

}  // namespace zqvorexRedir
