// zqvorexTaskCatalog: numbers and names for tasks that their application left unnamed, unique
// among all processes that share the local store.
#include "api_export.h"

#include "boundary_io.h"
#include "guard.h"
#include "task_numbers.h"

using namespace zqstorage;

ZQS_EXPORT uint64_t zqvorexTaskCatalog_generateTaskNumber(zqerr_Status* status) {
  return guarded(status, uint64_t{0}, [&] { return takeTaskNumber(); });
}

ZQS_EXPORT void zqvorexTaskCatalog_generateTaskName(zqgopher_IString* name, zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (name == nullptr) fail(kInvalidParameter, ZQS_HERE, "the name to fill is null");
    putText(name, taskNameFor(takeTaskNumber()), status);
  });
}
