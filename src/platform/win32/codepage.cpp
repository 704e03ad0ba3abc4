#include <windows.h>

#include "platform/platform.h"

namespace zqplatform {

uint32_t systemCodePage() { return GetACP(); }

int multiByteToWide(uint32_t codePage, uint32_t flags, const char* src, int srcLen, char16_t* dst,
                    int dstCount) {
  return MultiByteToWideChar(codePage, flags, src, srcLen, reinterpret_cast<wchar_t*>(dst), dstCount);
}

int wideToMultiByte(uint32_t codePage, uint32_t flags, const char16_t* src, int srcLen, char* dst,
                    int dstSize) {
  return WideCharToMultiByte(codePage, flags, reinterpret_cast<const wchar_t*>(src), srcLen, dst,
                             dstSize, nullptr, nullptr);
}

}  // namespace zqplatform
