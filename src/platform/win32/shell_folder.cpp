#include <windows.h>
#include <shlobj.h>

#include "platform/platform.h"

namespace zqplatform {

int32_t shellFolderPath(int32_t csidl, char16_t* path) {
  return static_cast<int32_t>(SHGetFolderPathW(nullptr, csidl, nullptr, 0, reinterpret_cast<wchar_t*>(path)));
}

}  // namespace zqplatform
