// The multi-edge analog triggers: a list of sources, and a slope and a level for each, from the
// caller's arrays.
#pragma once

#include <cstdint>

#include "frame/task_holder.h"

namespace zqtriggers {

struct MultiEdge {
  const char* sources;
  const int32_t* slopes;
  const double* levels;
  uint32_t arraySize;  // of both arrays; the plug-in compares it with the number of sources
};

int32_t multiEdgeStart(zqframe::TaskHandle handle, const MultiEdge& edges);

// The two reference forms take their last two parameters in opposite orders; both make the
// same call, and each is traced in its own order.
enum class Order { kPretriggerFirst, kSizeFirst };
int32_t multiEdgeReference(const char* function, Order order, zqframe::TaskHandle handle, const MultiEdge& edges,
                           uint32_t pretriggerSamples);

}  // namespace zqtriggers
