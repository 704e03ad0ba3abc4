// One entry of a list seen as a number range: "Dev1/ai0:3", "ai3:1", "0:2". The run is kept as
// its ends, prefix and padding; the entries themselves are written only into the output.
#pragma once

#include <cstdint>
#include <string_view>

#include "status/status.h"
#include "zqvorex_status_codes.h"

namespace zqwombat {

inline constexpr uint64_t kLargestListNumber = 4000000000u;
inline constexpr uint64_t kRangeLimit = 15000;

struct EntryPlan {
  std::u16string_view entry;   // as split: the text kept, or blamed on failure
  bool isRange = false;
  std::u16string_view prefix;  // text before the numbers of a range
  uint64_t first = 0;
  uint64_t last = 0;
  uint32_t width = 0;          // zero padding of every number, 0 for none

  uint64_t count() const { return isRange ? (first <= last ? last - first : first - last) + 1 : 1; }
};

// Reads a text of digits alone. False when above kLargestListNumber. `width` is the digit count
// when there are two or more and the first is "0", else 0.
bool readListNumber(std::u16string_view digits, uint64_t* value, uint32_t* width);

// Plans one entry. Without a single colon it stays as it is. Failures set the status at their
// nparseutilities site and return false.
bool planEntry(std::u16string_view entry, EntryPlan* plan, zqerr::FixedStatus* status);

}  // namespace zqwombat
