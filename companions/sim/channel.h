// A channel of a task: its kind and type, the device lines it uses, and its settings as an
// attribute store, with the store it was created with for resets.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "attribute_values.h"
#include "device.h"
#include "device_model.h"

namespace zqsim {

struct Channel {
  std::string name;
  int32_t kind = 0;  // val::kAI, kAO, kDI, kDO, kCI, kCO
  int32_t type = 0;  // the measurement or output type
  std::shared_ptr<Device> device;
  std::vector<PhysicalName> physical;  // one entry, or the lines of a digital channel
  Store store;
  Store created;
  std::string globalName;  // the global channel it came from, if any

  std::string physicalText() const;
  bool has(int32_t id) const { return store.count(id) != 0; }
  int32_t i32(int32_t id, int32_t otherwise = 0) const;
  uint32_t u32(int32_t id, uint32_t otherwise = 0) const;
  double f64(int32_t id, double otherwise = 0) const;
  bool flag(int32_t id, bool otherwise = false) const;
  std::string text(int32_t id) const;
  const std::vector<double>& reals(int32_t id) const;
  void set(int32_t id, Value value) { store[id] = std::move(value); }
  // The resource a task with this channel holds on its device.
  std::string resource() const;
};

}  // namespace zqsim
