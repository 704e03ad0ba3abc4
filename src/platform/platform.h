// The one internal interface to what differs between Windows and Linux.
// Each function keeps the meaning of the Windows call it stands for, so code above this layer
// is written once against Windows semantics (codes, last error, code pages).
#pragma once

#include <cstddef>
#include <cstdint>

#include "native_lock.h"  // from the backend folder: SlimLock and CriticalSection

namespace zqplatform {

// --- threads -------------------------------------------------------------------------------
using TlsIndex = uint32_t;
inline constexpr TlsIndex kTlsOutOfIndexes = 0xFFFFFFFFu;

TlsIndex tlsAlloc();                       // kTlsOutOfIndexes when none is left
bool tlsFree(TlsIndex index);
void* tlsGetValue(TlsIndex index);         // null for a slot this thread never set
bool tlsSetValue(TlsIndex index, void* value);

uint32_t currentThreadId();
void sleepMs(uint32_t milliseconds);

// The calling thread's last system error, as GetLastError/SetLastError.
uint32_t lastError();
void setLastError(uint32_t code);

// --- system error numbers used above this layer ----------------------------------------------
inline constexpr uint32_t kErrorInvalidParameter = 87;
inline constexpr uint32_t kErrorInsufficientBuffer = 122;
inline constexpr uint32_t kErrorInvalidFlags = 1004;
inline constexpr uint32_t kErrorNoUnicodeTranslation = 1113;

// --- code pages ------------------------------------------------------------------------------
inline constexpr uint32_t kCpAcp = 0;
inline constexpr uint32_t kCpUtf8 = 65001;
inline constexpr uint32_t kCpGb18030 = 54936;
inline constexpr uint32_t kMbPrecomposed = 0x1;
inline constexpr uint32_t kMbErrInvalidChars = 0x8;
inline constexpr uint32_t kWcNoBestFitChars = 0x400;

// The system code page (GetACP). On Linux: ZQCAI_CODE_PAGE if set to a number, else the
// codeset of the locale named by LC_ALL, LC_CTYPE or LANG, else 65001.
uint32_t systemCodePage();

// MultiByteToWideChar: srcLen -1 means zero-terminated (the terminator is converted too);
// dstCount 0 asks for the length. Returns the units written or needed, 0 on failure with
// lastError() set (122 when dst is too small, 1113 for invalid input under kMbErrInvalidChars).
int multiByteToWide(uint32_t codePage, uint32_t flags, const char* src, int srcLen, char16_t* dst,
                    int dstCount);

// WideCharToMultiByte without default-character arguments: unmappable characters become the
// code page's default character. Same length protocol as above.
int wideToMultiByte(uint32_t codePage, uint32_t flags, const char16_t* src, int srcLen, char* dst,
                    int dstSize);

// --- libraries ------------------------------------------------------------------------------
using LibraryHandle = void*;
inline constexpr uint32_t kLoadWithAlteredSearchPath = 0x8;
inline constexpr uint32_t kErrorModNotFound = 126;
inline constexpr uint32_t kErrorProcNotFound = 127;

// LoadLibraryExW / LoadLibraryExA. A name without an extension gets the platform's default
// one (".dll", ".so"). On Linux either separator may be used, and a bare name is looked for
// next to the executable, then next to this library, then by the loader's own search, as the
// Windows loader would. Null on failure, with lastError() set.
LibraryHandle loadLibrary(const char16_t* path, uint32_t flags);
LibraryHandle loadLibrary(const char* path, uint32_t flags);
// GetProcAddress; null with lastError() 127 when absent.
void* findSymbol(LibraryHandle library, const char* name);
// FreeLibrary.
bool freeLibrary(LibraryHandle library);
// FormatMessageA from the system message table: the text of a system error code, without the
// trailing line break, into `buffer`; the length written, 0 when there is no text.
size_t systemErrorText(uint32_t code, char* buffer, size_t size);

}  // namespace zqplatform
