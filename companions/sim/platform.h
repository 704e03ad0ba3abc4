// What differs between Windows and Linux for the plug-in: where its own file lies, loading a
// library beside it, and the environment. Backends in posix/ and win32/.
#pragma once

#include <string>

namespace zqsim::platform {

// The folder of this plug-in's own file, without a trailing separator.
std::string moduleFolder();
// Loads the library `stem` (no extension) from `folder`; null when it cannot.
void* loadLibrary(const std::string& folder, const char* stem);
void* findSymbol(void* library, const char* name);
// The value of an environment variable, "" when unset.
std::string environmentText(const char* name);

}  // namespace zqsim::platform
