// Parameterised cases print as their name, not as a dump of their bytes (which would read the
// padding between fields). Found by argument lookup: the cases live in the same unnamed
// namespace of each test file.
#pragma once

#include <ostream>

namespace {

template <class Case>
  requires requires(const Case& c) { c.name; }
void PrintTo(const Case& c, std::ostream* os) {
  *os << c.name;
}

}  // namespace
