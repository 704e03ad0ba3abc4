// Exceptions that carry a status, and the conversion of any exception into a status at the
// C boundary.
#pragma once

#include <exception>

#include "status.h"

namespace zqerr {

class ExceptionBase {
 public:
  // Takes the code and report of `source` over; `source` is left without a report.
  explicit ExceptionBase(zqerr_Status* source);
  explicit ExceptionBase(const FixedStatus& fixed);
  ExceptionBase(const ExceptionBase& other);
  ExceptionBase& operator=(const ExceptionBase&) = delete;
  virtual ~ExceptionBase();
  virtual const char* what() const noexcept;
  const zqerr_Status& status() const { return status_; }
  zqerr_Status* mutableStatus() const { return &status_; }

 private:
  mutable Status status_;
};

class Exception : public virtual ExceptionBase, public std::exception {
 public:
  using ExceptionBase::ExceptionBase;
  Exception(const Exception& other) : ExceptionBase(other), std::exception(other) {}
  const char* what() const noexcept override { return ExceptionBase::what(); }
};

// Call inside a catch block: maps the exception in flight onto the status.
void convertCurrentException(zqerr_Status* status) noexcept;
// The FixedStatus form; returns the code set.
int32_t convertCurrentException(FixedStatus* fixed) noexcept;

// For helpers with a failed FixedStatus and no status parameter: throws it as an Exception,
// unless an exception is already in flight.
void throwIfFailed(const FixedStatus& fixed);

}  // namespace zqerr
