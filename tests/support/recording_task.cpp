#include "recording_task.h"

#include <charconv>
#include <cstring>
#include <stdexcept>
#include <type_traits>

#include "boundary/proxies.h"

namespace zqtest {

namespace {

template <class T>
concept Complete = requires { sizeof(T); };

std::string trimmed(std::string_view text) {
  const size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

bool endsWith(std::string_view text, std::string_view tail) {
  return text.size() >= tail.size() && text.substr(text.size() - tail.size()) == tail;
}

std::string numberText(double value) {
  char buffer[32];
  const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
  return std::string(buffer, result.ptr);
}
std::string numberText(int32_t value) { return std::to_string(value); }
std::string numberText(uint32_t value) { return std::to_string(value); }
std::string numberText(const std::string& value) { return value; }

template <class T>
std::string joined(const std::vector<T>& items) {
  std::string text;
  for (size_t i = 0; i < items.size(); ++i) {
    if (i != 0) text += ", ";
    text += numberText(items[i]);
  }
  return text;
}

template <class T>
void setList(RecordedArg& arg, std::vector<T> items) {
  arg.text = joined(items);
  arg.value = std::move(items);
}

template <class T>
void setViewItems(RecordedArg& arg, const zqgopher_ArrayView& view) {
  const auto* items = static_cast<const T*>(view.data);
  if constexpr (std::is_same_v<T, const char*>)
    setList(arg, std::vector<std::string>(items, items + view.count));
  else
    setList(arg, std::vector<T>(items, items + view.count));
}

// The view of a set operation holds the elements its name says.
void describeView(RecordedArg& arg, const std::string& op, const zqgopher_ArrayView* view) {
  if (!view) {
    arg.text = "null";
    return;
  }
  arg.data = view->data;
  if (view->count == 0) {
    arg.text = "";
    arg.value = std::vector<std::string>{};
  } else if (endsWith(op, "StringVtr")) {
    setViewItems<const char*>(arg, *view);
  } else if (endsWith(op, "F64Vtr")) {
    setViewItems<double>(arg, *view);
  } else if (endsWith(op, "I32Vtr")) {
    setViewItems<int32_t>(arg, *view);
  } else if (endsWith(op, "U32Vtr")) {
    setViewItems<uint32_t>(arg, *view);
  } else {
    arg.text = "<" + std::to_string(view->count) + " elements>";
  }
}

template <class T>
void describe(RecordedArg& arg, const std::string& op, const T& value) {
  if constexpr (std::is_same_v<T, zqgopher::StringArrayView>) {
    setList(arg, std::vector<std::string>(value.begin(), value.end()));
  } else if constexpr (std::is_same_v<T, std::string>) {
    arg.text = value;
    arg.value = value;
  } else if constexpr (std::is_same_v<T, const zqgopher_ArrayView*>) {
    describeView(arg, op, value);
  } else if constexpr (std::is_same_v<T, bool>) {
    arg.text = value ? "true" : "false";
    arg.value = uint64_t{value};
  } else if constexpr (std::is_integral_v<T> && std::is_signed_v<T>) {
    arg.text = std::to_string(value);
    arg.value = int64_t{value};
  } else if constexpr (std::is_integral_v<T>) {
    arg.text = std::to_string(value);
    arg.value = uint64_t{value};
  } else if constexpr (std::is_floating_point_v<T>) {
    arg.text = numberText(static_cast<double>(value));
    arg.value = static_cast<double>(value);
  } else if constexpr (std::is_same_v<T, const zqvorexPlugin_AbsoluteTime*>) {
    // An absolute time travels by pointer: the record itself is what was sent.
    if (value)
      describe(arg, op, *value);
    else
      arg.text = "null";
  } else if constexpr (std::is_pointer_v<T>) {
    arg.text = value ? "pointer" : "null";
    // A record the operation only reads (an absolute time, a layout): its bytes too.
    using Pointee = std::remove_pointer_t<T>;
    if constexpr (std::is_const_v<Pointee> && !std::is_void_v<Pointee> &&
                  !std::is_same_v<std::remove_cv_t<Pointee>, char> && Complete<Pointee>) {
      if constexpr (std::is_trivially_copyable_v<Pointee>) {
        if (value) {
          const auto* bytes = reinterpret_cast<const uint8_t*>(value);
          arg.value = std::vector<uint8_t>(bytes, bytes + sizeof(Pointee));
        }
      }
    }
  } else {
    static_assert(std::is_trivially_copyable_v<T>);
    const auto* bytes = reinterpret_cast<const uint8_t*>(&value);
    std::vector<uint8_t> copy(bytes, bytes + sizeof(T));
    static constexpr char kHex[] = "0123456789abcdef";
    for (uint8_t b : copy) {
      arg.text += kHex[b >> 4];
      arg.text += kHex[b & 15];
    }
    arg.value = std::move(copy);
  }
}

// What a plug-in does with the objects it is handed: fills sinks and out-parameters.
template <class T>
void fill(T& arg, zqerr_Status* status, const std::optional<std::string>& text, const auto& items,
          const auto& outs) {
  if constexpr (std::is_same_v<T, zqgopher_IString*>) {
    if (text) zqgopher::StringProxy(arg).set(*text, status);
  } else if constexpr (std::is_same_v<T, zqgopher_IItemAdder*>) {
    std::visit(
        [&](const auto& list) {
          if constexpr (!std::is_same_v<std::decay_t<decltype(list)>, std::monostate>)
            zqgopher::ItemAdderProxy(arg).add(list, status);
        },
        items);
  } else if constexpr (std::is_pointer_v<T>) {
    using Pointee = std::remove_pointer_t<T>;
    if constexpr (!std::is_const_v<Pointee> && !std::is_void_v<Pointee> && Complete<Pointee>) {
      if constexpr (std::is_trivially_copyable_v<Pointee>) {
        auto found = outs.find(std::type_index(typeid(Pointee)));
        if (arg && found != outs.end() && found->second.size() == sizeof(Pointee))
          std::memcpy(static_cast<void*>(arg), found->second.data(), sizeof(Pointee));
      }
    }
  }
}

zqerr_Status* statusOf(zqerr_Status* status, zqerr_Status*) { return status; }
template <class T>
zqerr_Status* statusOf(const T&, zqerr_Status* found) {
  return found;
}

}  // namespace

// --- the recorded call ---------------------------------------------------------------------

const RecordedArg* RecordedCall::arg(std::string_view name) const {
  for (const RecordedArg& each : args)
    if (each.name == name) return &each;
  return nullptr;
}

std::string RecordedCall::text(std::string_view name) const {
  const RecordedArg* found = arg(name);
  return found ? found->text : "<absent>";
}

// --- the reply -----------------------------------------------------------------------------

Reply& Reply::value(double result) {
  result_ = result;
  return *this;
}
Reply& Reply::value(int64_t result) {
  result_ = result;
  return *this;
}
Reply& Reply::value(uint64_t result) {
  result_ = result;
  return *this;
}
Reply& Reply::text(std::string utf8) {
  text_ = std::move(utf8);
  return *this;
}
Reply& Reply::strings(std::vector<std::string> items) {
  items_ = std::move(items);
  return *this;
}
Reply& Reply::numbers(std::vector<double> items) {
  items_ = std::move(items);
  return *this;
}
Reply& Reply::integers(std::vector<int32_t> items) {
  items_ = std::move(items);
  return *this;
}
Reply& Reply::status(int32_t code, ReportWriter addToReport) {
  code_ = code;
  report_ = std::move(addToReport);
  return *this;
}
Reply& Reply::run(Hook hook) {
  hook_ = std::move(hook);
  return *this;
}

// --- the signature -------------------------------------------------------------------------

OpSignature::OpSignature(const char* opName, const char* parameters) : name(opName) {
  std::string_view text(parameters);
  if (text.size() < 2 || text.front() != '(' || text.back() != ')')
    throw std::logic_error("parameters of " + name + " are not in parentheses");
  text = text.substr(1, text.size() - 2);
  while (!text.empty()) {
    const size_t comma = text.find(',');
    const std::string param = trimmed(text.substr(0, comma));
    const size_t split = param.find_last_of(" &*");
    if (split == std::string::npos) throw std::logic_error("parameter '" + param + "' of " + name);
    params.emplace_back(trimmed(std::string_view(param).substr(0, split + 1)), param.substr(split + 1));
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
}

// --- the task ------------------------------------------------------------------------------

std::shared_ptr<RecordingTask> RecordingTask::create(std::string name) {
  return std::make_shared<RecordingTask>(std::move(name));
}

Reply& RecordingTask::on(const std::string& op) {
  std::lock_guard<std::mutex> guard(mutex_);
  return replies_[op];
}

void RecordingTask::clearReplies() {
  std::lock_guard<std::mutex> guard(mutex_);
  replies_.clear();
  any_ = Reply();
}

const RecordedCall& RecordingTask::lastCall() const {
  std::lock_guard<std::mutex> guard(mutex_);
  if (calls_.empty()) throw std::logic_error("the task has not been called");
  return calls_.back();
}

size_t RecordingTask::callCount(std::string_view op) const {
  std::lock_guard<std::mutex> guard(mutex_);
  size_t count = 0;
  for (const RecordedCall& call : calls_) count += call.op == op ? 1 : 0;
  return count;
}

void RecordingTask::clearCalls() {
  std::lock_guard<std::mutex> guard(mutex_);
  calls_.clear();
}

void RecordingTask::lock(zqerr_Status*) {
  std::lock_guard<std::mutex> guard(mutex_);
  ++locks_;
}
void RecordingTask::lock() {
  std::lock_guard<std::mutex> guard(mutex_);
  ++locks_;
}
void RecordingTask::unlock() {}

zqvorexRedir::EventTokens RecordingTask::getEvents(int32_t eventId, zqerr_Status*) {
  RecordedCall call{"getEvents", {}, std::nullopt, std::nullopt};
  call.args.push_back({"eventId", "int32_t", std::to_string(eventId), int64_t{eventId}});
  record(std::move(call));
  return {};
}

std::shared_ptr<zqvorexRedir::ITask> RecordingTask::sharedFromThis() {
  if (expired_) return nullptr;
  return weak_from_this().lock();
}

std::shared_ptr<const zqvorexRedir::ITask> RecordingTask::sharedFromThis() const {
  if (expired_) return nullptr;
  return weak_from_this().lock();
}

Reply RecordingTask::replyFor(const std::string& op) {
  std::lock_guard<std::mutex> guard(mutex_);
  auto found = replies_.find(op);
  return found != replies_.end() ? found->second : any_;
}

void RecordingTask::record(RecordedCall call) {
  std::lock_guard<std::mutex> guard(mutex_);
  calls_.push_back(std::move(call));
}

template <class R, class... Args>
R RecordingTask::respond(const OpSignature& signature, Args&... args) {
  RecordedCall call{signature.name, {}, std::nullopt, std::nullopt};
  size_t index = 0;
  auto recordOne = [&](const auto& value) {
    using T = std::remove_cvref_t<decltype(value)>;
    const auto& [type, name] = signature.params.at(index++);
    if constexpr (!std::is_same_v<T, zqerr_Status*>) {
      RecordedArg arg{name, type, {}, {}};
      describe(arg, signature.name, value);
      if constexpr (std::is_same_v<T, zqgopher::StringArrayView>) {
        if (!call.channels) call.channels = std::get<std::vector<std::string>>(arg.value);
      }
      if (name == "attributeId") call.attributeId = static_cast<int32_t>(std::get<int64_t>(arg.value));
      call.args.push_back(std::move(arg));
    }
  };
  (recordOne(args), ...);
  zqerr_Status* status = nullptr;
  ((status = statusOf(args, status)), ...);
  const Reply reply = replyFor(signature.name);
  record(call);

  if (reply.exception_) std::rethrow_exception(reply.exception_);
  (fill(args, status, reply.text_, reply.items_, reply.outs_), ...);
  if (reply.code_ != 0) {
    zqerr::setWithLocation(status, reply.code_, {"plugin", 1, "recording task", "plug-in code"});
    if (reply.report_) reply.report_(status);
  }
  if (reply.hook_) reply.hook_(call, status);

  if constexpr (std::is_void_v<R>) {
    return;
  } else if constexpr (std::is_arithmetic_v<R>) {
    return std::visit(
        [](auto number) -> R {
          if constexpr (std::is_same_v<decltype(number), std::monostate>)
            return R{};
          else
            return static_cast<R>(number);
        },
        reply.result_);
  } else if constexpr (std::is_pointer_v<R>) {
    return nullptr;
  } else {
    R result{};
    auto found = reply.outs_.find(std::type_index(typeid(R)));
    if (found != reply.outs_.end() && found->second.size() == sizeof(R))
      std::memcpy(&result, found->second.data(), sizeof(R));
    return result;
  }
}

#define ZQ_TASK_UNPAREN(...) __VA_ARGS__
#define ZQ_TASK_OP(result, name, params, args)                        \
  result RecordingTask::name params {                                 \
    static const OpSignature kSignature(#name, #params);              \
    return respond<result>(kSignature, ZQ_TASK_UNPAREN args);         \
  }
#include "task/itask_overrides.inc"
#undef ZQ_TASK_OP
#undef ZQ_TASK_UNPAREN

}  // namespace zqtest
