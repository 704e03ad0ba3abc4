// The arguments of a task operation as the generated operations hand them on: library text
// becomes its UTF-8 pointer and a list of names its boundary view for the plug-in; everything
// else passes unchanged. Every operation takes the status last.
#pragma once

#include <tuple>

#include "boundary/array_view.h"
#include "task/task_types.h"

namespace zqvorexRedir::taskframe {

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

}  // namespace zqvorexRedir::taskframe
