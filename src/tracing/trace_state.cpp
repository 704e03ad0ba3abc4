#include "tracing/trace_state.h"

#include <mutex>

#include "platform/platform.h"
#include "status/error_sites.h"

namespace zqtrace {

namespace detail {

namespace {
// Never written: the words the switch points at when no tool word stands behind it.
constinit uint32_t gConstantOn = 1;
constinit uint32_t gConstantOff = 0;
}  // namespace

constinit std::atomic<uint32_t*> gSwitch{&gConstantOn};
constinit Binding gBinding{};

}  // namespace detail

namespace {

using detail::gBinding;
using detail::gSwitch;

constinit std::atomic<uint8_t> gResolved{0};

zqplatform::CriticalSection& startupLock() {
  static zqplatform::CriticalSection lock;
  return lock;
}

template <class Fn>
bool bindOne(zqplatform::LibraryHandle library, const char* name, Fn* slot) {
  *slot = reinterpret_cast<Fn>(zqplatform::findSymbol(library, name));
  return *slot != nullptr;
}

// Binds the tool's operations for the rest of the process. The library is loaded a second time
// and that reference is never released: it stands for the delayed binding of the import, which
// keeps the tool loaded once its first function was called, whatever the start-up releases.
// The mode word's location is needed only from a tool that has one.
bool bindTool() {
  zqplatform::LibraryHandle kept = zqplatform::loadLibrary(zqspy::kLibraryStem, zqplatform::kLoadWithAlteredSearchPath);
  if (!kept) return false;
  detail::Binding b;
  bool complete = bindOne(kept, zqspy::kGetVersion, &b.getVersion);
  complete &= bindOne(kept, zqspy::kGetCookie, &b.getCookie);
  complete &= bindOne(kept, zqspy::kSetParam, &b.setParam);
  complete &= bindOne(kept, zqspy::kEndParams, &b.endParams);
  complete &= bindOne(kept, zqspy::kSetReturn, &b.setReturn);
  complete &= bindOne(kept, zqspy::kSetFuncReturn, &b.setFuncReturn);
  complete &= bindOne(kept, zqspy::kEndReturns, &b.endReturns);
  bindOne(kept, zqspy::kModeLocation, &b.modeLocation);
  if (complete)
    gBinding = b;
  else
    zqplatform::freeLibrary(kept);
  return complete;
}

void turnOffForGood() {
  zqerr::FixedStatus local = zqerr::makeFixedStatus();
  zqerr::setFixed(&local, zqsite::kTracingToolAbsent);
  gSwitch.store(&detail::gConstantOff, std::memory_order_release);
}

// Steps 2 to 4 of start-up, under the lock.
void resolveTool() {
  zqplatform::LibraryHandle probe = zqplatform::loadLibrary(zqspy::kLibraryStem, zqplatform::kLoadWithAlteredSearchPath);
  if (!probe) {
    turnOffForGood();
    return;
  }
  bool bound = bindTool();
  uint32_t major = 0, minor = 0;
  if (bound) gBinding.getVersion(&major, &minor);
  zqplatform::freeLibrary(probe);
  if (!bound) {
    turnOffForGood();
  } else if (zqspy::hasModeWord(major, minor)) {
    uint32_t* word = gBinding.modeLocation ? gBinding.modeLocation() : nullptr;
    gSwitch.store(word ? word : &detail::gConstantOff, std::memory_order_release);
  }
  // An older tool leaves the switch on the constant 1: every call is traced.
}

}  // namespace

void initialiseState(const zqerr::FixedStatus& loadStatus) noexcept {
  gResolved.store(0, std::memory_order_relaxed);
  gSwitch.store(loadStatus.code < 0 ? &detail::gConstantOff : &detail::gConstantOn, std::memory_order_release);
}

void startUp(zqerr::FixedStatus* status) noexcept {
  if (status->code < 0) return;
  std::lock_guard<zqplatform::CriticalSection> lock(startupLock());
  if (gResolved.load(std::memory_order_acquire)) return;
  try {
    resolveTool();
  } catch (...) {
    turnOffForGood();  // the loader could not even be asked: treated as a missing tool
  }
  gResolved.store(1, std::memory_order_release);
}

bool resolved() noexcept { return gResolved.load(std::memory_order_acquire) != 0; }

Cookie detail::open(const char* function) noexcept {
  if (!gResolved.load(std::memory_order_acquire)) {
    zqerr::FixedStatus fresh = zqerr::makeFixedStatus();
    startUp(&fresh);
  }
  if (!switchOn() || !gBinding.getCookie) return 0;
  return gBinding.getCookie(zqspy::kCookieCategory, zqspy::kCookieReserved, zqspy::kCookieRecordVersion, function);
}

}  // namespace zqtrace
