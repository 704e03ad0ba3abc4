// The choice made once at start-up: names from the task catalog when its library binds,
// else names counted in this process.
#pragma once

#include <memory>

#include "tasknames/task_name_generator.h"

namespace zqvorexRedir {

// Binds the task catalog at `catalogPath` with a status of its own; its failure goes no
// further, since a system without the catalog still names its tasks.
std::shared_ptr<ITaskNameGenerator> chooseTaskNameGenerator(const char* catalogPath);

}  // namespace zqvorexRedir
