#include "status/exceptions.h"

#include <new>
#include <stdexcept>
#include <typeinfo>

#include "status/report_writer.h"
#include "status/status_codes.h"

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
    return set(zqapalerr_memoryFull, ZQ_SITE("exception", __LINE__, zqapalerr_memoryFull), e.what());
  } catch (const std::bad_cast& e) {
    return set(zqapalerr_dynamicCastFailed, ZQ_SITE("exception", __LINE__, zqapalerr_dynamicCastFailed), e.what());
  } catch (const std::logic_error& e) {
    return set(zqapalerr_invalidParameter, ZQ_SITE("exception", __LINE__, zqapalerr_invalidParameter), e.what());
  } catch (const std::exception& e) {
    return set(zqpalerr_softwareFault, ZQ_SITE("exception", __LINE__, zqpalerr_softwareFault), e.what());
  } catch (...) {
    return set(zqpalerr_softwareFault, SourceLocation{"exception", __LINE__, kComponent, nullptr}, nullptr);
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
    setPlain(status, zqpalerr_softwareFault, SourceLocation{"exception", __LINE__, kComponent, nullptr});
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
    setFixed(fixed, zqpalerr_softwareFault, kComponent, "exception", __LINE__);
    return fixed->code;
  }
}

void throwIfFailed(const FixedStatus& fixed) {
  if (fixed.code < 0 && std::uncaught_exceptions() == 0) throw Exception(fixed);
}

}  // namespace zqerr
