// The status record of every call and plug-in operation, its replacement rule, its error-site
// records, and the bridge to the fixed-size form of low-level code.
#pragma once

#include <cstdint>

#include "zqvorex_status.h"

namespace zqerr {

inline constexpr const char* kComponent = "zqcai_rd_mbcs";
inline constexpr char kSentinel = 'J';

// The standard storage callback: frees on 0, grows to 512 or the next power of two.
bool growReport(zqerr_Status* status, uint32_t size);

// A status made on the stack: code 0, no report until a site writes one.
class Status : public zqerr_Status {
 public:
  Status() noexcept : zqerr_Status{0, 0, &growReport, nullptr} {}
  ~Status() {
    if (report) storage(this, 0);
  }
  Status(const Status&) = delete;
  Status& operator=(const Status&) = delete;
};

// One constant record for each error site.
struct SourceLocation {
  const char* file;
  uint32_t line;
  const char* component;
  const char* errorConstant;
};

// True when `next` replaces `present`: 0 by anything else, a warning by an error.
constexpr bool replaces(int32_t present, int32_t next) {
  return (present == 0 && next != 0) || (present > 0 && next < 0);
}

inline bool isOpen(const zqerr_Status* status) { return status->code >= 0; }

// A site of the error site table: the code it sets and its location (status/error_sites.h).
struct Site {
  int32_t code;
  SourceLocation location;
};

// The setters return whether the code changed. The report then holds only the new site.
bool setWithLocation(zqerr_Status* status, int32_t code, const SourceLocation& location);
bool setPlain(zqerr_Status* status, int32_t code, const SourceLocation& location);
bool adopt(zqerr_Status* destination, zqerr_Status* source);
void clearReport(zqerr_Status* status);
inline bool fail(zqerr_Status* status, const Site& site) { return setWithLocation(status, site.code, site.location); }

// Resets the report to "{}" in the buffer form; false if no buffer of 4 bytes could be had.
bool resetReport(zqerr_Status* status);

// Gives `destination` the code of `source` and a copy of its report, whatever it held before;
// false, with the code set and the report "{}" or absent, when no buffer could be had.
bool copyStatus(zqerr_Status* destination, const zqerr_Status& source);

using FixedStatus = zqerr_FixedStatus;
inline constexpr uint32_t kFixedStatusSize = 208;

inline FixedStatus makeFixedStatus() {
  FixedStatus fixed{};
  fixed.structSize = kFixedStatusSize;
  return fixed;
}

bool setFixed(FixedStatus* fixed, int32_t code, const char* component, const char* file, uint32_t line);
inline bool setFixed(FixedStatus* fixed, const Site& site) {
  return setFixed(fixed, site.code, site.location.component, site.location.file, site.location.line);
}

// The bridge's two copies, also used by exception conversion. Down: code, component, file and
// line out of the report. Up: the fixed code with a fresh report of its site, under the rule.
void copyStatusDown(const zqerr_Status& status, FixedStatus* fixed);
void copyFixedUp(const FixedStatus& fixed, zqerr_Status* status);

// Copies a status down into a FixedStatus on open and the result back up on close.
class StatusBridge {
 public:
  explicit StatusBridge(zqerr_Status* status);
  ~StatusBridge();
  StatusBridge(const StatusBridge&) = delete;
  StatusBridge& operator=(const StatusBridge&) = delete;
  FixedStatus* fixed() { return &fixed_; }

 private:
  zqerr_Status* status_;
  FixedStatus fixed_;
};

}  // namespace zqerr
