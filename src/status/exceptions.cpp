#include "status/exceptions.h"

#include <new>
#include <stdexcept>
#include <typeinfo>

#include "status/report_writer.h"
#include "status/error_sites.h"

namespace zqerr {

ExceptionBase::ExceptionBase(zqerr_Status* source) { adopt(&status_, source); }

ExceptionBase::ExceptionBase(const FixedStatus& fixed) { copyFixedUp(fixed, &status_); }

ExceptionBase::ExceptionBase(const ExceptionBase& other) { adopt(&status_, other.mutableStatus()); }

ExceptionBase::~ExceptionBase() = default;

const char* ExceptionBase::what() const noexcept { return status_.report ? status_.report : ""; }

namespace {

// The standard exceptions in the order their clauses are tried.
template <typename Set>
int32_t mapStandard(Set set) {
  try {
    throw;
  } catch (const std::bad_alloc& e) {
    return set(zqapalerr_memoryFull, zqsite::kExceptionMemoryFull.location, e.what());
  } catch (const std::bad_cast& e) {
    return set(zqapalerr_dynamicCastFailed, zqsite::kExceptionDynamicCastFailed.location, e.what());
  } catch (const std::logic_error& e) {
    return set(zqapalerr_invalidParameter, zqsite::kExceptionInvalidParameter.location, e.what());
  } catch (const std::exception& e) {
    return set(zqpalerr_softwareFault, zqsite::kExceptionSoftwareFault.location, e.what());
  } catch (...) {
    return set(zqpalerr_softwareFault, zqsite::kExceptionUnknown.location, nullptr);
  }
}

}  // namespace

void convertCurrentException(zqerr_Status* status) noexcept {
  try {
    try {
      throw;
    } catch (const ExceptionBase& e) {
      adopt(status, e.mutableStatus());
      return;
    } catch (...) {
      mapStandard([status](int32_t code, const SourceLocation& site, const char* what) {
        bool changed = what ? setWithLocation(status, code, site) : setPlain(status, code, site);
        if (changed && what) addExceptionWhat(status, what);
        return code;
      });
    }
  } catch (...) {
    // Writing the report failed in a way that threw; the code rule still holds.
    setPlain(status, zqpalerr_softwareFault, zqsite::kExceptionReportFailed.location);
  }
}

int32_t convertCurrentException(FixedStatus* fixed) noexcept {
  try {
    try {
      throw;
    } catch (const ExceptionBase& e) {
      FixedStatus carried = makeFixedStatus();
      copyStatusDown(e.status(), &carried);
      setFixed(fixed, carried.code, carried.component, carried.file, carried.line);
      return fixed->code;
    } catch (...) {
      return mapStandard([fixed](int32_t code, const SourceLocation& site, const char*) {
        setFixed(fixed, code, site.component, site.file, site.line);
        return fixed->code;
      });
    }
  } catch (...) {
    setFixed(fixed, zqpalerr_softwareFault, kComponent, zqsite::kExceptionFixed.location.file,
             zqsite::kExceptionFixed.location.line);
    return fixed->code;
  }
}

void throwIfFailed(const FixedStatus& fixed) {
  if (fixed.code < 0 && std::uncaught_exceptions() == 0) throw Exception(fixed);
}

}  // namespace zqerr
