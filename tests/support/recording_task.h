// RecordingTask: a zqvorexRedir::ITask for tests. Every operation of the interface is there
// (generated from the operation table, never hand-written); each call is recorded, and each
// answers the way the test programmed it, as a plug-in would.
//
// Making one and passing it as a handle:
//
//   auto task = zqtest::RecordingTask::create();      // owned by a shared_ptr
//   zqframe::TaskHandle handle = task->handle();      // the ITask's address, as the API sees it
//   task->expire();                                   // sharedFromThis() is empty from now on,
//                                                     // as for an object being destroyed
//
// Programming the answers: on(op) is the reply of one operation, onAny() that of every
// operation without a reply of its own. Each setter returns the reply, so they chain.
//
//   task->on("getChannelAttributeF64").value(2.5);             // the operation's result
//   task->on("getChannelAttributeString").text("PFI0");        // assigned to its zqgopher_IString
//   task->on("getTaskAttributeStringVtr").strings({"a", "b"}); // added to its zqgopher_IItemAdder
//   task->on("getChannelAttributeF64Vtr").numbers({1.5, 2});   //   as doubles
//   task->on("getChannelAttributeI32Vtr").integers({10, 20});  //   as int32_t
//   task->on("getChannelAttributeAbsoluteTime").out(time);     // copied through each T* out-parameter
//                                                              //   whose T is exactly the value's type
//   task->on("getReadAttributeI32").status(-89000);            // a code set at a plug-in site
//   task->on("getChannelAttributeF64").status(200077).value(4); // a warning, and the value
//   task->on("setChannelAttributeF64").status(-201003, [](zqerr_Status* s) { ...add items... });
//   task->on("resetChannelAttributeF64").throws(std::runtime_error("plug-in threw"));
//   task->on("controlTask").run([](const RecordedCall& call, zqerr_Status* s) { ... });
//   task->clearReplies();
//
// The reply's effects come in this order: the exception (nothing else happens), the sinks and
// out-parameters filled, the status set, the hook run, the result returned.
//
// Reading the calls: calls() in order, lastCall(), callCount(op), clearCalls(). A RecordedCall
// has the operation's name and its arguments but the status, each as a RecordedArg: the
// parameter's name and C++ type as the interface writes them ("const Text&", "uint32_t",
// "const zqgopher_ArrayView*"), its value as text, and as a Value:
//   - a list view (StringArrayView) and the view of a *StringVtr set: the strings;
//   - the view of a *F64Vtr, *I32Vtr or *U32Vtr set: the numbers; other views only their count;
//     every view also its data pointer (RecordedArg::data);
//   - text: the UTF-8 string; bool and unsigned integers: uint64_t; signed integers: int64_t;
//     double: double; a struct passed by value, or an absolute time by const pointer: its
//     bytes; a pointer: text "null" or "pointer", and the bytes of a record it points to
//     that the operation only reads.
// For the attribute operations, channels holds the names of the first list view, attributeId
// the id, and arg("value") the value set (or the sink of a get).
//
// Calls are recorded under a lock, so a task may be called from several threads; the lock is
// not held while a hook runs.
#pragma once

#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <typeindex>
#include <utility>
#include <variant>
#include <vector>

#include "boundary/array_view.h"
#include "task/itask.h"

namespace zqtest {

using Value = std::variant<std::monostate, int64_t, uint64_t, double, std::string, std::vector<std::string>,
                           std::vector<double>, std::vector<int32_t>, std::vector<uint32_t>, std::vector<uint8_t>>;

struct RecordedArg {
  std::string name;
  std::string type;
  std::string text;
  Value value;
  const void* data = nullptr;  // a view's first element, as the caller's array
};

struct RecordedCall {
  std::string op;
  std::vector<RecordedArg> args;
  std::optional<std::vector<std::string>> channels;
  std::optional<int32_t> attributeId;

  // The argument of that name, or null.
  const RecordedArg* arg(std::string_view name) const;
  // The text of the argument of that name; "<absent>" when there is none.
  std::string text(std::string_view name) const;
};

class Reply {
 public:
  using Hook = std::function<void(const RecordedCall&, zqerr_Status*)>;
  using ReportWriter = std::function<void(zqerr_Status*)>;

  Reply& value(double result);
  Reply& value(int64_t result);
  Reply& value(uint64_t result);
  Reply& value(int32_t result) { return value(int64_t{result}); }
  Reply& value(uint32_t result) { return value(uint64_t{result}); }
  Reply& text(std::string utf8);
  Reply& strings(std::vector<std::string> items);
  Reply& numbers(std::vector<double> items);
  Reply& integers(std::vector<int32_t> items);
  template <class T>
  Reply& out(const T& value) {
    static_assert(std::is_trivially_copyable_v<T>);
    const auto* bytes = reinterpret_cast<const uint8_t*>(&value);
    outs_[std::type_index(typeid(T))] = std::vector<uint8_t>(bytes, bytes + sizeof(T));
    return *this;
  }
  // Set with a plug-in's error site; `addToReport` then writes into the report.
  Reply& status(int32_t code, ReportWriter addToReport = {});
  template <class E>
  Reply& throws(E exception) {
    exception_ = std::make_exception_ptr(std::move(exception));
    return *this;
  }
  Reply& run(Hook hook);

 private:
  friend class RecordingTask;
  using Number = std::variant<std::monostate, int64_t, uint64_t, double>;

  Number result_;
  std::optional<std::string> text_;
  std::variant<std::monostate, std::vector<std::string>, std::vector<double>, std::vector<int32_t>> items_;
  std::map<std::type_index, std::vector<uint8_t>> outs_;
  int32_t code_ = 0;
  ReportWriter report_;
  std::exception_ptr exception_;
  Hook hook_;
};

// The name and parameters of one operation, read once from the interface's own text.
struct OpSignature {
  OpSignature(const char* name, const char* parameters);
  std::string name;
  std::vector<std::pair<std::string, std::string>> params;  // (type, name), the status included
};

class RecordingTask : public zqvorexRedir::ITask, public std::enable_shared_from_this<RecordingTask> {
 public:
  using Text = zqvorexRedir::Text;

  static std::shared_ptr<RecordingTask> create(std::string name = "MyTask");
  // A task that no shared_ptr owns: its sharedFromThis() is empty from the start.
  explicit RecordingTask(std::string name = "MyTask") : name_(std::move(name)) {}

  void* handle() { return static_cast<zqvorexRedir::ITask*>(this); }
  void expire() { expired_ = true; }
  void setName(std::string name) { name_ = std::move(name); }

  Reply& on(const std::string& op);
  Reply& onAny() { return any_; }
  void clearReplies();

  const std::vector<RecordedCall>& calls() const { return calls_; }
  const RecordedCall& lastCall() const;
  size_t callCount(std::string_view op) const;
  void clearCalls();
  int lockCount() const { return locks_; }

  // The preamble of the interface.
  void lock(zqerr_Status* status) override;
  void lock() override;
  void unlock() override;
  const Text& getName() const override { return name_; }
  std::shared_ptr<zqvorexRedir::IContext> getContext() override { return nullptr; }
  std::shared_ptr<zqvorexRedir::IContext> getContext() const override { return nullptr; }
  zqvorexRedir::EventTokens getEvents(int32_t eventId, zqerr_Status* status) override;
  std::shared_ptr<zqvorexRedir::ITask> sharedFromThis() override;
  std::shared_ptr<const zqvorexRedir::ITask> sharedFromThis() const override;

  // Every operation of the table.
#define ZQ_TASK_OP(result, name, params, args) result name params override;
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP

 private:
  template <class R, class... Args>
  R respond(const OpSignature& signature, Args&... args);
  Reply replyFor(const std::string& op);
  void record(RecordedCall call);

  std::string name_;
  bool expired_ = false;
  int locks_ = 0;
  mutable std::mutex mutex_;
  std::vector<RecordedCall> calls_;
  std::map<std::string, Reply, std::less<>> replies_;
  Reply any_;
};

}  // namespace zqtest
