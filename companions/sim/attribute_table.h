// The attributes the simulated device supports: id, class, type, range, what may set them, and
// which channel kinds have them. Anything else is not supported in the task's context.
#pragma once

#include <cstdint>
#include <span>

#include "attribute_values.h"

namespace zqsim {

// Where an attribute lives: the task's stores, or each channel.
enum class Scope : uint8_t { kTask, kTiming, kRead, kWrite, kBuffer, kChannel };

// Channel kinds as bits, for the attributes that only some kinds have.
enum KindBits : uint32_t {
  kBitAI = 1,
  kBitAO = 2,
  kBitDI = 4,
  kBitDO = 8,
  kBitCI = 16,
  kBitCO = 32,
  kBitInput = kBitAI | kBitDI | kBitCI,
  kBitOutput = kBitAO | kBitDO | kBitCO,
  kBitAll = 63
};
uint32_t kindBit(int32_t channelKind);

enum AttrFlags : uint32_t {
  kReadOnly = 1,  // a set is refused
  kComputed = 2,  // the device works the value out; nothing is stored
  kCoerced = 4,   // a set stores what the hardware can do, not what was asked
};

struct AttrDef {
  int32_t id;
  const char* name;
  Scope scope;
  AttrType type;
  uint32_t flags;
  uint32_t kinds;  // for channel attributes: the kinds that have it; for task ones: the task kinds
  double min;
  double max;
  std::span<const int32_t> allowed;  // the values an enumerated attribute takes, or none
  double initial;                    // a task attribute's value until set
};

const AttrDef* findAttribute(int32_t id);
const char* attributeName(int32_t id);
// All of them, for the tests and for saving a task.
std::span<const AttrDef> allAttributes();

}  // namespace zqsim
