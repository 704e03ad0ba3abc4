#include "toggles/system_error_status.h"

#include "status/error_sites.h"

namespace runtime_toggles {

namespace {

struct Row {
  uint32_t systemError;
  int32_t status;
};

// Scanned from the top; the first row of a code wins.
constexpr Row kTable[] = {
    {0, 0},           {997, 52011},     {8, -52000},     {1450, -52000},  {50, -52002},
    {1, -52002},      {31, -52003},     {1117, -52003},  {87, -52005},    {2, -52006},
    {121, -52007},    {1359, -52008},   {5, -52009},     {21, -52010},    {1617, -52020},
    {38, -52012},     {122, -52019},    {639, -52021},   {183, -52013},   {0xE0000204, -52006},
    {258, -52007},    {170, -52031},
};
static_assert(sizeof kTable / sizeof kTable[0] == 22);


}  // namespace

int32_t statusOfSystemError(uint32_t systemError) {
  for (const Row& row : kTable)
    if (row.systemError == systemError) return row.status;
  return zqapalerr_unknownSystemError;
}

void setSystemErrorStatus(uint32_t systemError, zqerr::FixedStatus* status) {
  int32_t code = statusOfSystemError(systemError);
  if (code != 0) zqerr::setFixed(status, code, zqerr::kComponent, zqsite::kSystemErrorStatus.location.file,
                                 zqsite::kSystemErrorStatus.location.line);
}

}  // namespace runtime_toggles
