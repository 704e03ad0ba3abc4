// The Linux form of a registering thread's event window. Linux programs run no message loop,
// so each window is a bounded queue of ours with one delivery thread of the library: messages
// run there one at a time, in post order, never two at once for one window. Like a Windows
// message queue the queue has a fixed depth, set aside when the window is made so that a post
// never allocates, and a post to a full queue is lost.
#include <dlfcn.h>

#include <array>
#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/platform.h"

namespace zqplatform {

namespace {

constexpr size_t kQueueDepth = 4096;

struct Message {
  uint32_t message;
  uintptr_t wParam;
  intptr_t lParam;
};

EventHandler gHandler = nullptr;
EventDropper gDropper = nullptr;

class EventQueue;
thread_local EventQueue* tServed = nullptr;

class EventQueue {
 public:
  EventQueue() : served_(currentThreadId()), ring_(std::make_unique<std::array<Message, kQueueDepth>>()) {
    thread_ = std::thread([this] { run(); });
  }
  ~EventQueue() = default;
  EventQueue(const EventQueue&) = delete;
  EventQueue& operator=(const EventQueue&) = delete;

  bool post(const Message& message) {
    bool idle;
    {
      std::lock_guard<std::mutex> held(mutex_);
      if (closed_ || size_ == kQueueDepth) return false;
      (*ring_)[(head_ + size_) % kQueueDepth] = message;
      ++size_;
      idle = idle_;
    }
    if (idle) ready_.notify_one();  // a busy delivery thread finds the message on its own
    return true;
  }

  // Stops delivery after the message in progress; what is still queued goes to the dropper.
  void close() {
    {
      std::lock_guard<std::mutex> held(mutex_);
      if (closed_) return;
      closed_ = true;
      for (; size_ > 0; --size_, head_ = (head_ + 1) % kQueueDepth) {
        const Message& dropped = (*ring_)[head_];
        if (gDropper) gDropper(dropped.message, dropped.wParam, dropped.lParam);
      }
    }
    ready_.notify_all();
  }

  bool open() {
    std::lock_guard<std::mutex> held(mutex_);
    return !closed_;
  }
  bool onDeliveryThread() const { return std::this_thread::get_id() == thread_.get_id(); }
  void join() {
    if (thread_.joinable()) thread_.join();
  }
  void hold() { holders_.fetch_add(1, std::memory_order_relaxed); }
  // The owner lets go only after joining the thread, so the last release never meets a
  // running delivery thread.
  void release() {
    if (holders_.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
  }
  uint32_t served() const { return served_; }

 private:
  void run() {
    tServed = this;
    std::unique_lock<std::mutex> held(mutex_);
    for (;;) {
      idle_ = true;
      ready_.wait(held, [this] { return closed_ || size_ > 0; });
      idle_ = false;
      if (closed_) break;
      Message next = (*ring_)[head_];
      head_ = (head_ + 1) % kQueueDepth;
      --size_;
      held.unlock();
      if (gHandler) gHandler(next.message, next.wParam, next.lParam);
      held.lock();
    }
  }

  const uint32_t served_;
  std::atomic<uint32_t> holders_{1};  // the owning thread record, and each action that may post
  std::mutex mutex_;
  std::condition_variable ready_;
  std::unique_ptr<std::array<Message, kQueueDepth>> ring_;
  size_t head_ = 0;
  size_t size_ = 0;
  bool closed_ = false;
  bool idle_ = false;  // the delivery thread waits for a message
  std::thread thread_;  // last: it starts once everything above is ready
};

EventQueue* queueOf(EventWindow window) { return static_cast<EventQueue*>(window); }

}  // namespace

bool registerEventWindowClass(void*, EventHandler handler, EventDropper dropper) {
  gHandler = handler;
  gDropper = dropper;
  return true;
}

void unregisterEventWindowClass(void*) {}

EventWindow createEventWindow(void*) {
  try {
    return new EventQueue;
  } catch (...) {
    return nullptr;  // no memory or no thread: the registration works on, without a window
  }
}

void destroyEventWindow(EventWindow window) {
  EventQueue* queue = queueOf(window);
  if (!queue) return;
  queue->close();
  if (queue->onDeliveryThread()) return;  // the registering thread frees it
  queue->join();
  queue->release();
}

void holdEventWindow(EventWindow window) {
  if (window) queueOf(window)->hold();
}

void releaseEventWindow(EventWindow window) {
  if (window) queueOf(window)->release();
}

bool eventWindowAlive(EventWindow window) { return window && queueOf(window)->open(); }

bool postEventMessage(EventWindow window, uint32_t message, uintptr_t wParam, intptr_t lParam) {
  return window && queueOf(window)->post(Message{message, wParam, lParam});
}

uint32_t eventThreadId() { return tServed ? tServed->served() : currentThreadId(); }

EventWindow servedEventWindow() { return tServed; }

void* processModule() { return dlopen(nullptr, RTLD_LAZY); }

}  // namespace zqplatform
