// The bound table of the debug server library: one function pointer for each operation, all
// zero until the binding fills them by name. Any operation may be missing; its forwarder then
// answers kErrorFunctionNotInLibrary through the status and returns 0.
#pragma once

#include <cstddef>

#include "zqvorex_debugserver.h"

namespace zqvorexRedir {

inline constexpr const char* kDebugServerLibrary = "zqvorexDebugServer";
inline constexpr const char* kDebugServerPrefix = "zqvorexDebugServer_";

// Each operation as a pair: whether the library has it, and its forwarder.
class DebugServerApiInterface {
 public:
  virtual ~DebugServerApiInterface() = default;
#define ZQ_DEBUG_OPERATION(Result, op, Params, ...) \
  virtual bool has_##op() const = 0;                \
  virtual Result op Params = 0;
  ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION
};

class DebugServerApi final : public DebugServerApiInterface {
 public:
  static constexpr size_t kOperationCount = ZQVOREX_DEBUGSERVER_OPERATION_COUNT;
  static const char* const kNames[kOperationCount];

  DebugServerApi() = default;
  DebugServerApi(const DebugServerApi&) = delete;
  DebugServerApi& operator=(const DebugServerApi&) = delete;

  // The binding's side: the address found for kNames[index], or null. Outside the table: ignored.
  void setSlot(size_t index, void* address) noexcept;

#define ZQ_DEBUG_OPERATION(Result, op, Params, ...) \
  bool has_##op() const override;                   \
  Result op Params override;
  ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION

 private:
  struct Table {
#define ZQ_DEBUG_OPERATION(Result, op, ...) zqvorexDebugServer_##op##_fn op;
    ZQVOREX_DEBUGSERVER_OPERATIONS(ZQ_DEBUG_OPERATION)
#undef ZQ_DEBUG_OPERATION
  };
  static_assert(sizeof(Table) == kOperationCount * sizeof(void*), "one pointer per operation, no padding");

  Table table_{};
};

}  // namespace zqvorexRedir
