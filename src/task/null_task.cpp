#include "task/null_task.h"

#include "status/exceptions.h"
#include "task/operation_arguments.h"

namespace zqvorexRedir {

namespace {

// The stored report is lent, never grown or freed, through a status of its own.
bool lentStorage(zqerr_Status*, uint32_t) { return false; }

}  // namespace

NullTask::NullTask(std::shared_ptr<IContext> context, Text name, const zqerr_Status* answer)
    : context_(std::move(context)), name_(std::move(name)) {
  if (!answer) return;
  code_ = answer->code;
  if (answer->report) report_ = answer->report;
}

void NullTask::lock(zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  try {
    lock();
  } catch (...) {
    zqerr::convertCurrentException(status);
  }
}

void NullTask::lock() { lock_.lock(); }

void NullTask::unlock() { lock_.unlock(); }

EventTokens NullTask::getEvents(int32_t, zqerr_Status*) { return {}; }

void NullTask::answer(zqerr_Status* status) const {
  if (!status || !zqerr::replaces(status->code, code_)) return;
  std::string text = report_;
  zqerr_Status source{code_, static_cast<uint32_t>(text.size() + 1), &lentStorage,
                      text.empty() ? nullptr : text.data()};
  zqerr::adopt(status, &source);
}

template <class R, class... Args>
R NullTask::answerWith(Args&... args) const {
  answer(taskframe::statusOf(args...));
  return R();
}

#define ZQ_TASK_ARGS(...) __VA_ARGS__
#define ZQ_TASK_OP(result, op, params, args) \
  result NullTask::op params { return answerWith<result>(ZQ_TASK_ARGS args); }
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP
#undef ZQ_TASK_ARGS

}  // namespace zqvorexRedir
