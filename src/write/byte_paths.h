// The writes of bytes whose shape the task tells: digital lines and raw samples.
#pragma once

#include <cstdint>

#include "write/write_frame.h"

namespace zqwrite {

int32_t writeDigitalLines(const WriteInfo& info, TaskHandle handle, const uint8_t* writeArray,
                          const VectorArgs& a);

// `a.dataLayout` is not used: raw samples have no layout.
int32_t writeRaw(const WriteInfo& info, TaskHandle handle, const void* writeArray, const VectorArgs& a);

}  // namespace zqwrite
