// Task control from outside: the actions of controlTask, abort, and the waits for the end.
#pragma once

#include <cstdint>

#include "task.h"

namespace zqsim {

void controlTask(SimTask& task, int32_t action, zqerr_Status* status);
// May come while another call of the task waits: it ends that wait.
void abortTask(SimTask& task, zqerr_Status* status);
void waitUntilDone(SimTask& task, double timeout, zqerr_Status* status);
bool isDone(SimTask& task, zqerr_Status* status);

}  // namespace zqsim
