// The one internal interface to what differs between Windows and Linux.
// Each function keeps the meaning of the Windows call it stands for, so code above this layer
// is written once against Windows semantics (codes, last error, code pages).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

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

// === registry and shell folders =============================================================
// RegOpenKeyExW, RegQueryValueExW, RegCloseKey and SHGetFolderPathW(CSIDL_SYSTEM). On Linux
// the registry is the keys and values of a file in the Windows .reg export format, named by
// ZQCAI_REGISTRY_FILE (else <this library's folder>/../etc/zqcai/registry.reg when there is one,
// else /etc/zqcai/registry.reg) and read afresh at every open, so one
// file describes an installation on both systems; the system folder is ZQCAI_SYSTEM_FOLDER
// (default: the folder of this library).
using RegistryKey = uintptr_t;  // an HKEY's value
inline constexpr RegistryKey predefinedKey(uint32_t id) {
  return static_cast<RegistryKey>(static_cast<intptr_t>(static_cast<int32_t>(id)));
}
inline constexpr RegistryKey kHkeyClassesRoot = predefinedKey(0x80000000u);
inline constexpr RegistryKey kHkeyCurrentUser = predefinedKey(0x80000001u);
inline constexpr RegistryKey kHkeyLocalMachine = predefinedKey(0x80000002u);
inline constexpr RegistryKey kHkeyUsers = predefinedKey(0x80000003u);
inline constexpr RegistryKey kHkeyCurrentConfig = predefinedKey(0x80000005u);

inline constexpr uint32_t kKeyRead = 0x20019;
inline constexpr uint32_t kKeyWow64_64Key = 0x100;
inline constexpr uint32_t kKeyWow64_32Key = 0x200;  // the 32-bit view: HKLM\SOFTWARE\WOW6432Node

inline constexpr uint32_t kRegSz = 1;
inline constexpr uint32_t kRegExpandSz = 2;
inline constexpr uint32_t kRegBinary = 3;
inline constexpr uint32_t kRegDword = 4;
inline constexpr uint32_t kRegMultiSz = 7;
inline constexpr uint32_t kRegQword = 11;

inline constexpr uint32_t kErrorSuccess = 0;
inline constexpr uint32_t kErrorFileNotFound = 2;
inline constexpr uint32_t kErrorAccessDenied = 5;
inline constexpr uint32_t kErrorInvalidHandle = 6;
inline constexpr uint32_t kErrorBadExeFormat = 193;
inline constexpr uint32_t kErrorMoreData = 234;

// RegOpenKeyExW: `parent` is a predefined key or one this opened; a null or empty `subKey`
// opens `parent` again. Returns the system error code, 0 on success.
uint32_t regOpenKey(RegistryKey parent, const char16_t* subKey, uint32_t access, RegistryKey* key);
// RegQueryValueExW: a null or empty name is the key's default value. `size` is in bytes, in
// and out; null `data` asks for the size. Too small a buffer gives kErrorMoreData with the
// size needed. `type` may be null.
uint32_t regQueryValue(RegistryKey key, const char16_t* valueName, uint32_t* type, void* data,
                       uint32_t* size);
uint32_t regCloseKey(RegistryKey key);

// RegQueryValueExA: as regQueryValue, with the name and string data in the system code page.
uint32_t regQueryValueNarrow(RegistryKey key, const char* valueName, uint32_t* type, void* data, uint32_t* size);

inline constexpr int32_t kCsidlSystem = 0x25;
inline constexpr size_t kMaxPath = 260;
// SHGetFolderPathW(null, csidl, null, 0, path): `path` holds kMaxPath units and receives the
// folder zero-terminated. Returns the HRESULT, 0 on success.
int32_t shellFolderPath(int32_t csidl, char16_t* path);


// === event windows ==========================================================================
// The queue through which a plug-in's thread hands event callbacks to the thread that
// registered them. On Windows it is a hidden window of the registering thread (RegisterClassA,
// CreateWindowExA, PostMessageA, DestroyWindow), served by that thread's own message loop. Linux
// programs have no message loop, so there it is a queue of ours with one delivery thread of the
// library for each registering thread: messages run there one at a time, in post order.
using EventWindow = void*;
// Runs one message; false hands it to the system's default handling.
using EventHandler = bool (*)(uint32_t message, uintptr_t wParam, intptr_t lParam);
// Takes a message that will never run, so that what it holds can be let go.
using EventDropper = void (*)(uint32_t message, uintptr_t wParam, intptr_t lParam);

// The process's module (GetModuleHandleA(nullptr)), whose instance owns the window class.
void* processModule();
// At library load and unload: the window class and what handles its messages.
bool registerEventWindowClass(void* module, EventHandler handler, EventDropper dropper);
void unregisterEventWindowClass(void* module);
// A new window of the calling thread; null on failure.
EventWindow createEventWindow(void* module);
// Called by the window's own thread (or, on Linux, by its delivery thread): messages still
// queued go to the dropper and the window goes. On a Linux delivery thread itself the queue is
// only closed; its registering thread frees it later.
void destroyEventWindow(EventWindow window);
// An action that may post to a window holds it: on Linux a window's memory stays until the last
// holder lets go, so that a post to a window that was taken away fails instead of crashing.
void holdEventWindow(EventWindow window);
void releaseEventWindow(EventWindow window);
// False once the window was closed from its delivery thread.
bool eventWindowAlive(EventWindow window);
// PostMessageA: queues the message behind all queued before; false when it could not be queued
// (no window, a closed or full queue).
bool postEventMessage(EventWindow window, uint32_t message, uintptr_t wParam, intptr_t lParam);
// The thread on whose behalf the calling thread runs event callbacks: itself, or on a Linux
// delivery thread the registering thread it serves.
uint32_t eventThreadId();
// On a Linux delivery thread, the window it serves; null elsewhere.
EventWindow servedEventWindow();

// === folders and files ======================================================================
// FindFirstFileW / FindNextFileW over the entries of a folder, in the order the system lists
// them, "." and ".." included. Paths are UTF-8; either separator may be used.
struct FolderEntry {
  std::string name;  // UTF-8
  bool regularFile = false;
};
class FolderListing;
enum class ListingStep { kEntry, kEnd, kLost };

// Null when the listing cannot start: no such folder, not a folder, no access.
FolderListing* openFolderListing(const char* folder);
// The next entry; kLost when the listing broke off before its end.
ListingStep nextFolderEntry(FolderListing* listing, FolderEntry* entry);
void closeFolderListing(FolderListing* listing);

// _wfsopen(path, "rt", _SH_DENYNO): a file opened to read text while others may read and write
// it. Null on failure.
std::FILE* openTextFileForReading(const char* path);

// The C runtime's text of an errno value, the value numbered as the Windows C runtime numbers
// them, into `buffer` (zero-terminated, cut to fit); the length written.
inline constexpr int kCrtEnoent = 2;
inline constexpr int kCrtEinval = 22;
inline constexpr int kCrtEnametoolong = 38;
size_t crtErrorText(int crtErrno, char* buffer, size_t size);

}  // namespace zqplatform
