#include "task/event_cache.h"

#include <mutex>

#include "status/exceptions.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

void EventCache::add(int32_t eventId, zqvorexPlugin_EventToken token, const void* boundaryObject,
                     zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    std::lock_guard<zqplatform::SlimLock> held(lock_);
    if (idByToken_.count(token) != 0) {
      ZQ_FAIL(status, kTaskEventAlreadyRegisteredInTask);
      return;
    }
    insert(eventId, token, boundaryObject);
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

// Both maps or neither: a failure half way takes back what the first insertion made.
void EventCache::insert(int32_t eventId, zqvorexPlugin_EventToken token, const void* boundaryObject) {
  auto [byId, newId] = tokensById_.try_emplace(eventId);
  try {
    byId->second.emplace(token, boundaryObject);
    idByToken_.emplace(token, eventId);
  } catch (...) {
    byId->second.erase(token);
    if (newId) tokensById_.erase(byId);
    throw;
  }
}

bool EventCache::isEmpty(zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return false;
  std::lock_guard<zqplatform::SlimLock> held(lock_);
  return idByToken_.empty();
}

EventTokens EventCache::getEvents(int32_t eventId, zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return {};
  try {
    std::lock_guard<zqplatform::SlimLock> held(lock_);
    auto byId = tokensById_.find(eventId);
    if (byId == tokensById_.end()) return {};
    EventTokens tokens;
    tokens.reserve(byId->second.size());
    for (const auto& entry : byId->second) tokens.push_back(entry.first);
    return tokens;
  } catch (...) {
    zqerr::convertCurrentException(status);
    return {};
  }
}

void EventCache::remove(zqvorexPlugin_EventToken token, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  std::lock_guard<zqplatform::SlimLock> held(lock_);
  auto found = idByToken_.find(token);
  if (found == idByToken_.end()) {
    ZQ_FAIL(status, kTaskResourceNotFound);
    return;
  }
  auto byId = tokensById_.find(found->second);
  if (byId != tokensById_.end()) {
    byId->second.erase(token);
    if (byId->second.empty()) tokensById_.erase(byId);
  }
  idByToken_.erase(found);
}

}  // namespace zqvorexRedir
