// Where the running program and this library's code lie: the Linux backend finds the files of
// an installation relative to them, as Windows finds them through its registry.
#pragma once

#include <string>

namespace zqplatform::posix {

// Each with its trailing "/", empty when it cannot be told.
std::string executableDirectory();
std::string ownDirectory();

}  // namespace zqplatform::posix
