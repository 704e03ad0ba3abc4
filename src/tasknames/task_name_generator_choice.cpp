#include "tasknames/task_name_generator_choice.h"

#include "storage/storage_binding.h"
#include "tasknames/local_task_name_generator.h"
#include "tasknames/shared_task_name_generator.h"

namespace zqvorexRedir {

std::shared_ptr<ITaskNameGenerator> chooseTaskNameGenerator(const char* catalogPath) {
  zqerr::Status own;
  auto catalog = zqvorexTaskCatalogCpp::bindNameGenerator(catalogPath, &own);
  if (catalog) return std::make_shared<SharedTaskNameGenerator>(std::move(catalog));
  return std::make_shared<LocalTaskNameGenerator>();
}

}  // namespace zqvorexRedir
