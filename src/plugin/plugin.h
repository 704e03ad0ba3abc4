// The table of one plug-in library: a function pointer for each operation, all zero until the
// binding fills them by name. A forwarder calls its pointer with the arguments unchanged; an
// operation the library does not export answers "not supported for the device" through the
// status and returns 0.
#pragma once

#include <cstddef>

#include "plugin/plugin_interface.h"

namespace zqvorexRedir {

class Plugin final : public PluginInterface {
 public:
  static constexpr size_t kOperationCount = ZQVOREX_PLUGIN_OPERATION_COUNT;
  // The operation names in table order: the library exports kNames[i] as <prefix><name>.
  static const char* const kNames[kOperationCount];
  static_assert(kOperationCount == 363, "the plug-in table has 363 operations");

  Plugin() = default;
  Plugin(const Plugin&) = delete;
  Plugin& operator=(const Plugin&) = delete;

  // The binding's side of the table: the address found for kNames[index], or null. An index
  // outside the table is ignored and reads as null.
  void setSlot(size_t index, void* address) noexcept;
  void* slot(size_t index) const noexcept;

#define ZQ_PLUGIN_OPERATION(index, Op, op, Result, Params, ...) \
  bool has##Op() const override;                                 \
  Result op Params override;
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION

 private:
  struct Table {
#define ZQ_PLUGIN_OPERATION(index, Op, op, ...) zqvorexPlugin_##op##_fn op;
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION
  };
  static_assert(sizeof(Table) == kOperationCount * sizeof(void*), "one pointer per operation, no padding");

  Table table_{};
};

}  // namespace zqvorexRedir
