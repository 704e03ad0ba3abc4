// The operation frame that every forwarded operation of Task runs, and the conversion of its
// arguments to the plug-in's form: library text becomes its UTF-8 pointer, a list of names
// its boundary view; everything else passes unchanged.
#pragma once

#include <tuple>
#include <utility>

#include "status/exceptions.h"
#include "task/task.h"

namespace zqvorexRedir {

// Holds the task's mutex for one operation; lets it go through unlock(), so that a deferred
// release happens at the last one.
class Task::FrameLock {
 public:
  explicit FrameLock(Task& task) : task_(task) { task_.lock(); }
  ~FrameLock() { task_.unlock(); }
  FrameLock(const FrameLock&) = delete;
  FrameLock& operator=(const FrameLock&) = delete;

 private:
  Task& task_;
};

template <class R, class Call, class Absent>
R Task::runFrame(zqerr_Status* status, Call&& call, Absent&& absent) {
  if (!zqerr::isOpen(status)) return R();
  try {
    checkControl(true, status);
    FrameLock held(*this);
    if (refusedBySession(status)) return R();
    if (hasPluginParts()) return call(*plugin_, pluginTask_.get());
    return absent();
  } catch (...) {
    zqerr::convertCurrentException(status);
    return R();
  }
}

namespace taskframe {

inline const char* toPlugin(const Text& text) { return text.c_str(); }
inline const zqgopher_ArrayView* toPlugin(const zqgopher::StringArrayView& list) { return list.boundary(); }
template <class T>
T toPlugin(T value) {
  return value;
}

template <class F, class... Args>
decltype(auto) callPlugin(F&& forward, Args&... args) {
  return forward(toPlugin(args)...);
}

template <class... Args>
zqerr_Status* statusOf(Args&... args) {
  return std::get<sizeof...(Args) - 1>(std::tie(args...));
}

template <class First, class... Rest>
First& firstOf(First& first, Rest&...) {
  return first;
}

}  // namespace taskframe

}  // namespace zqvorexRedir
