// A task whose every operation answers at once (a constant for a number, nothing otherwise), so
// that a benchmark measures the frame around the operation and not the operation.
#pragma once

#include <memory>
#include <type_traits>

#include "task/itask.h"

namespace zqbench {

using zqvorexRedir::ITask;

// Every operation answers at once: a constant for a number, nothing otherwise.
template <class R, class... Args>
R constantAnswer(const Args&...) {
  if constexpr (std::is_arithmetic_v<R>)
    return static_cast<R>(4096);
  else if constexpr (!std::is_void_v<R>)
    return R{};
}

class ConstantTask final : public ITask, public std::enable_shared_from_this<ConstantTask> {
 public:
  void lock(zqerr_Status*) override {}
  void lock() override {}
  void unlock() override {}
  const zqvorexRedir::Text& getName() const override { return name_; }
  std::shared_ptr<zqvorexRedir::IContext> getContext() override { return nullptr; }
  std::shared_ptr<zqvorexRedir::IContext> getContext() const override { return nullptr; }
  zqvorexRedir::EventTokens getEvents(int32_t, zqerr_Status*) override { return {}; }
  std::shared_ptr<ITask> sharedFromThis() override { return shared_from_this(); }
  std::shared_ptr<const ITask> sharedFromThis() const override { return shared_from_this(); }

  using Text = zqvorexRedir::Text;
#define ZQ_BENCH_UNPAREN(...) __VA_ARGS__
#define ZQ_TASK_OP(result, name, params, args) \
  result name params override { return constantAnswer<result>(ZQ_BENCH_UNPAREN args); }
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP
#undef ZQ_BENCH_UNPAREN

 private:
  Text name_ = "bench";
};

}  // namespace zqbench
