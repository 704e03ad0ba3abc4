// The advance trigger has no operation of its own: it is a few timing attributes of the task.
#pragma once

#include <cstdint>
#include <string>

#include "task/itask.h"

namespace zqtriggers {

// AdvTrigType values.
inline constexpr int32_t kAdvTrigDigitalEdge = 10150;
inline constexpr int32_t kAdvTrigNone = 10230;

// Three timing attribute writes, each skipped once the status holds an error: the type, the
// source, the edge.
void configureDigitalEdgeAdvance(zqvorexRedir::ITask& task, const std::string& source, int32_t edge,
                                 zqerr_Status* status);

}  // namespace zqtriggers
