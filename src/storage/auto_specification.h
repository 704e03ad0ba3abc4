// A channel or task specification for the length of a scope: the storage library's copy,
// destroyed at the end.
#pragma once

#include <cstdint>
#include <memory>

#include "status/status.h"
#include "storage/storage_spec.h"

namespace zqvorexStorageCpp {

enum class SpecificationKind { kChannel, kTask };

class AutoSpecification {
 public:
  // Holds `specification`, a getChannelSpecification... or getTaskSpecification result; 0
  // stands for a name that was not found and is no failure. A null bound class sets
  // zqpalerr_badPointer, and the scope holds 0.
  AutoSpecification(std::shared_ptr<StorageSpec> storageSpec, uint64_t specification, SpecificationKind kind,
                    zqerr_Status* status);
  // destroyChannelSpecification or destroyTaskSpecification with a status of its own, which
  // is dropped; nothing for 0.
  ~AutoSpecification();
  AutoSpecification(const AutoSpecification&) = delete;
  AutoSpecification& operator=(const AutoSpecification&) = delete;

  uint64_t get() const { return specification_; }

 private:
  std::shared_ptr<StorageSpec> storageSpec_;
  uint64_t specification_ = 0;
  SpecificationKind kind_;
};

}  // namespace zqvorexStorageCpp
