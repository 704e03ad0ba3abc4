// What the frame needs to know of a task operation, read off its member-function type.
#pragma once

#include <tuple>
#include <type_traits>

namespace zqframe {

template <class Op>
struct OpTraits;

template <class C, class R, class First, class... Rest>
struct OpTraits<R (C::*)(First, Rest...)> {
  using Task = C;
  using Result = R;
  using FirstArg = std::remove_cvref_t<First>;
  // Channel-based operations take the list view first; task operations take the id first.
  static constexpr bool kTakesList = !std::is_integral_v<FirstArg>;
};

}  // namespace zqframe
