#include <pthread.h>
#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>

#include "platform/platform.h"

namespace zqplatform {

namespace {
thread_local uint32_t tLastError = 0;
}

TlsIndex tlsAlloc() {
  pthread_key_t key;
  if (pthread_key_create(&key, nullptr) != 0) return kTlsOutOfIndexes;
  return static_cast<TlsIndex>(key);
}

bool tlsFree(TlsIndex index) { return pthread_key_delete(static_cast<pthread_key_t>(index)) == 0; }

void* tlsGetValue(TlsIndex index) { return pthread_getspecific(static_cast<pthread_key_t>(index)); }

bool tlsSetValue(TlsIndex index, void* value) {
  return pthread_setspecific(static_cast<pthread_key_t>(index), value) == 0;
}

uint32_t currentThreadId() { return static_cast<uint32_t>(syscall(SYS_gettid)); }

void sleepMs(uint32_t milliseconds) {
  timespec ts{static_cast<time_t>(milliseconds / 1000), static_cast<long>(milliseconds % 1000) * 1000000L};
  while (nanosleep(&ts, &ts) != 0 && errno == EINTR) {
  }
}

uint32_t lastError() { return tLastError; }
void setLastError(uint32_t code) { tLastError = code; }

}  // namespace zqplatform
