#include "storage/auto_specification.h"

#include "status/error_sites.h"

namespace zqvorexStorageCpp {

AutoSpecification::AutoSpecification(std::shared_ptr<StorageSpec> storageSpec, uint64_t specification,
                                     SpecificationKind kind, zqerr_Status* status)
    : storageSpec_(std::move(storageSpec)), kind_(kind) {
  if (!storageSpec_) {
    ZQ_FAIL(status, kAutoSpecificationBadPointer);
    return;
  }
  specification_ = specification;
}

AutoSpecification::~AutoSpecification() {
  if (!storageSpec_ || specification_ == 0) return;
  zqerr::Status own;
  if (kind_ == SpecificationKind::kChannel)
    storageSpec_->destroyChannelSpecification(specification_, &own);
  else
    storageSpec_->destroyTaskSpecification(specification_, &own);
}

}  // namespace zqvorexStorageCpp
