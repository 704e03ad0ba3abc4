// Making channels: the physical channel list read against the device, names given, the kind
// checked against the task's other channels, the settings checked against the attribute table,
// and the channels added to the task all together or not at all.
#pragma once

#include <cstdint>
#include <string>

#include "task.h"

namespace zqsim {

// Adds channels of `kind` and measurement or output `type` on `physical`, each with the settings
// in `settings` (and the defaults of its kind). The created names go to `created` when given.
bool createChannels(SimTask& task, const char* physical, const char* names, int32_t kind, int32_t type,
                    const Store& settings, zqgopher_IItemAdder* created, zqerr_Status* status);
// Digital channels: one for each line, or one for all lines of the list.
bool createDigitalChannels(SimTask& task, const char* lines, const char* names, int32_t kind,
                           int32_t grouping, zqgopher_IItemAdder* created, zqerr_Status* status);
// A channel type the device does not model.
void refuseChannelType(const char* physical, const char* operation, zqerr_Status* status);
// A custom scale, which the device does not apply.
bool refuseCustomScale(const char* scaleName, zqerr_Status* status);
// Takes the named channels out again after a creation failed half way.
void removeChannels(SimTask& task, const char* names, zqerr_Status* status);
// Adds channels rebuilt from saved settings, as they are.
bool restoreChannel(SimTask& task, const std::string& name, const std::string& physical,
                    const Store& settings, const std::string& globalName, zqerr_Status* status);

}  // namespace zqsim
