// Either of the two status records, so that one routine serves helpers written against a
// zqerr::Status and those written against a FixedStatus.
#pragma once

#include <cstdint>

#include "status/status.h"

namespace zqhtl::err {

class StatusRef {
 public:
  StatusRef(zqerr_Status* status) : status_(status) {}          // NOLINT: implicit by design
  StatusRef(zqerr::FixedStatus* fixed) : fixed_(fixed) {}       // NOLINT: implicit by design

  bool isOpen() const { return (status_ ? status_->code : fixed_->code) >= 0; }
  int32_t code() const { return status_ ? status_->code : fixed_->code; }

  // -52000 at the allocator's site.
  void memoryFull() const;

 private:
  zqerr_Status* status_ = nullptr;
  zqerr::FixedStatus* fixed_ = nullptr;
};

}  // namespace zqhtl::err
