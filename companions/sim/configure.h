// Timing and trigger configuration: each function sets the attributes of its settings
// together, checked first, so that a refused value changes nothing.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "task.h"
#include "zqvorex_plugin.h"

namespace zqsim {

void configureSampleClock(SimTask& task, const char* source, double rate, int32_t edge, int32_t mode,
                          uint64_t samples, zqerr_Status* status);
void configureImplicit(SimTask& task, int32_t mode, uint64_t samples, zqerr_Status* status);

void configureDigitalEdge(SimTask& task, bool reference, const char* source, int32_t edge,
                          uint32_t pretrigger, zqerr_Status* status);
void configureAnalogEdge(SimTask& task, bool reference, const char* source, int32_t slope, double level,
                         uint32_t pretrigger, zqerr_Status* status);
void configureAnalogWindow(SimTask& task, bool reference, const char* source, int32_t when, double top,
                           double bottom, uint32_t pretrigger, zqerr_Status* status);
void configureDigitalPattern(SimTask& task, bool reference, const zqgopher_ArrayView* sources,
                             const char* pattern, int32_t when, uint32_t pretrigger, zqerr_Status* status);
void configureTimeStart(SimTask& task, zqvorexPlugin_AbsoluteTime when, int32_t timescale,
                        zqerr_Status* status);
void disableTrigger(SimTask& task, bool reference, zqerr_Status* status);

// Sets several task attributes at once, or none of them.
bool setTaskSettings(SimTask& task, const std::vector<std::pair<int32_t, Value>>& settings,
                     zqerr_Status* status);

}  // namespace zqsim
