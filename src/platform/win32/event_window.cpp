// A registering thread's hidden event window: posted messages run in that thread's own
// message loop, through the window procedure below.
#include <windows.h>

#include "platform/platform.h"

namespace zqplatform {

namespace {

constexpr char kClassName[] = "VOREXCAPIWNDCLASS";
constexpr char kTitle[] = "VOREXCAPILIBRARY";
constexpr DWORD kStyle = 0xCF0000;
constexpr int kDefaultPlace = static_cast<int>(0x80000000);

EventHandler gHandler = nullptr;
EventDropper gDropper = nullptr;

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (gHandler && gHandler(message, wParam, lParam)) return 0;
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

void* processModule() { return GetModuleHandleA(nullptr); }

bool registerEventWindowClass(void* module, EventHandler handler, EventDropper dropper) {
  gHandler = handler;
  gDropper = dropper;
  WNDCLASSA windowClass{};
  windowClass.style = 0;
  windowClass.lpfnWndProc = &windowProcedure;
  windowClass.cbWndExtra = 4;
  windowClass.hInstance = static_cast<HINSTANCE>(module);
  windowClass.lpszClassName = kClassName;
  return RegisterClassA(&windowClass) != 0;
}

void unregisterEventWindowClass(void* module) { UnregisterClassA(kClassName, static_cast<HINSTANCE>(module)); }

EventWindow createEventWindow(void* module) {
  return CreateWindowExA(0, kClassName, kTitle, kStyle, kDefaultPlace, kDefaultPlace, kDefaultPlace, kDefaultPlace,
                         nullptr, nullptr, static_cast<HINSTANCE>(module), nullptr);
}

void destroyEventWindow(EventWindow window) {
  if (!window) return;
  // Posted messages hold references that only their handling lets go; take them out first.
  MSG pending;
  while (PeekMessageA(&pending, static_cast<HWND>(window), 0, 0, PM_REMOVE))
    if (gDropper) gDropper(pending.message, pending.wParam, pending.lParam);
  DestroyWindow(static_cast<HWND>(window));
}

// A window handle stays safe to post to after the window went: the post fails.
void holdEventWindow(EventWindow) {}
void releaseEventWindow(EventWindow) {}

bool eventWindowAlive(EventWindow window) { return window != nullptr; }

bool postEventMessage(EventWindow window, uint32_t message, uintptr_t wParam, intptr_t lParam) {
  return PostMessageA(static_cast<HWND>(window), message, wParam, lParam) != FALSE;
}

uint32_t eventThreadId() { return GetCurrentThreadId(); }

EventWindow servedEventWindow() { return nullptr; }

}  // namespace zqplatform
