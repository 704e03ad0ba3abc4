// The few things of the end-to-end harness that differ between Windows and Linux.
#pragma once

#include <cstdint>
#include <string>

namespace zqe2e {

// A symbol of the library at `path`, loaded once and kept.
void* librarySymbol(const std::string& path, const char* name);
// Handles messages queued for the calling thread, at most a bounded batch, so that a queue that
// never empties still lets the caller go on (Windows); nothing on Linux.
void pumpMessages();
bool hasDeliveryThread();
uint32_t threadId();

}  // namespace zqe2e
