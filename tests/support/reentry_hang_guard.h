// A watcher that ends the process, naming what hung, when the watched work makes no progress
// within `limit`: a deadlock fails the program instead of hanging it.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace zqtest {

class HangGuard {
 public:
  // `progress` counts the work's steps; without it the whole work must end within `limit`.
  HangGuard(std::chrono::seconds limit, std::function<std::string()> what,
            std::function<uint64_t()> progress = [] { return uint64_t{0}; })
      : limit_(limit), what_(std::move(what)), progress_(std::move(progress)), thread_([this] { watch(); }) {}
  ~HangGuard() {
    {
      std::lock_guard<std::mutex> lock(mutex_);
      done_ = true;
    }
    wake_.notify_one();
    thread_.join();
  }
  HangGuard(const HangGuard&) = delete;
  HangGuard& operator=(const HangGuard&) = delete;

 private:
  void watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    uint64_t seen = progress_();
    while (!wake_.wait_for(lock, limit_, [this] { return done_; })) {
      const uint64_t now = progress_();
      if (now == seen) {
        std::fprintf(stderr, "hang guard: no return from %s\n", what_().c_str());
        std::fflush(nullptr);
        std::_Exit(3);
      }
      seen = now;
    }
  }

  std::chrono::seconds limit_;
  std::function<std::string()> what_;
  std::function<uint64_t()> progress_;
  std::mutex mutex_;
  std::condition_variable wake_;
  bool done_ = false;
  std::thread thread_;  // last: it starts watching once the rest is there
};

}  // namespace zqtest
