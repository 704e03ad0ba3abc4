// The calling thread's event window, kept in its last-error record. A Linux delivery thread
// runs callbacks on behalf of its registering thread and uses that thread's window.
#pragma once

#include "platform/platform.h"

namespace nZQCAI100 {

// The window of the calling thread, made on first need; null when none can be had.
zqplatform::EventWindow ensureEventWindow() noexcept;
// The window that the calling thread's messages go to, or null; makes none.
zqplatform::EventWindow currentEventWindow() noexcept;
// Takes the calling thread's window away, with whatever is still queued for it.
void destroyThreadEventWindow() noexcept;

}  // namespace nZQCAI100
