// What differs between Windows and Linux for the store's location; the backend comes from
// posix/ or win32/, chosen by CMake.
#pragma once

#include <string>

namespace zqstorage {

// An environment variable as UTF-8; "" when it is unset.
std::string environmentText(const char* name);

// The folder of the file (library or program) that holds this code, UTF-8, without a trailing
// separator; "" when it cannot be told.
std::string moduleFolder();

}  // namespace zqstorage
