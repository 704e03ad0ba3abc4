// A task over nothing: every operation answers with the one status it was made with. In good
// status it does nothing at all; in error it refuses every call with that error.
#pragma once

#include <memory>
#include <string>

#include "platform/platform.h"
#include "task/itask.h"

namespace zqvorexRedir {

class NullTask final : public ITask, public std::enable_shared_from_this<NullTask> {
 public:
  // Keeps a copy of `answer`'s code and report; `answer` may be null for success.
  NullTask(std::shared_ptr<IContext> context, Text name, const zqerr_Status* answer);
  NullTask(const NullTask&) = delete;
  NullTask& operator=(const NullTask&) = delete;

  void lock(zqerr_Status* status) override;
  void lock() override;
  void unlock() override;
  const Text& getName() const override { return name_; }
  std::shared_ptr<IContext> getContext() override { return context_; }
  std::shared_ptr<IContext> getContext() const override { return context_; }
  EventTokens getEvents(int32_t eventId, zqerr_Status* status) override;
  std::shared_ptr<ITask> sharedFromThis() override { return weak_from_this().lock(); }
  std::shared_ptr<const ITask> sharedFromThis() const override { return weak_from_this().lock(); }

#define ZQ_TASK_OP(result, op, params, args) result op params override;
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP

 private:
  // Merges the stored status into the caller's, code and report, by the replacement rule.
  void answer(zqerr_Status* status) const;
  // Every operation: the answer into the operation's status, the last of `args`, and 0.
  template <class R, class... Args>
  R answerWith(Args&... args) const;

  std::shared_ptr<IContext> context_;
  Text name_;
  int32_t code_ = 0;
  std::string report_;
  zqplatform::SlimLock lock_;
};

}  // namespace zqvorexRedir
