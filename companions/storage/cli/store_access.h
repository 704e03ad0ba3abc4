// One read or one write of the store by a command: the session's lock held, the operation begun
// and ended however the body leaves, and a write saved when the body returns.
#pragma once

#include <mutex>

#include "session.h"

namespace zqstorage::cli {

template <class F>
auto reading(Session& s, F&& body) {
  std::lock_guard<std::mutex> guard(s.mutex());
  s.beginRead();
  struct End {
    Session& s;
    ~End() { s.endRead(); }
  } end{s};
  return body(s.db());
}

template <class F>
void writing(Session& s, F&& body) {
  std::lock_guard<std::mutex> guard(s.mutex());
  s.beginWrite();
  struct End {
    Session& s;
    ~End() { s.endWrite(); }
  } end{s};
  body(s.db());
  s.save();
}

}  // namespace zqstorage::cli
