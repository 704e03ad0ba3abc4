#include "hostile_caller.h"

#include <cstring>
#include <string_view>

#include "strict_json.h"

namespace zqhostile {

namespace {

constexpr size_t kScratchPerParameter = 256 * 1024;
constexpr int kMostParameters = 16;
constexpr size_t kLongTextBytes = 100 * 1024;

int32 onEveryN(TaskHandle, int32, uInt32, void*) { return 0; }
// Done and signal callbacks share one type.
int32 onDoneOrSignal(TaskHandle, int32, void*) { return 0; }

// Calls with an invalid handle that succeed by contract.
bool succeedsWithoutTask(std::string_view function, std::string_view label) {
  return function == "VorexClearTask" && label == kHandles[kNullHandle].label;
}

}  // namespace

template <>
VorexEveryNSamplesEventCallbackPtr benignCallback<VorexEveryNSamplesEventCallbackPtr>() {
  return &onEveryN;
}
template <>
VorexDoneEventCallbackPtr benignCallback<VorexDoneEventCallbackPtr>() {
  return &onDoneOrSignal;
}

Caller::Caller() : scratch_(kScratchPerParameter * kMostParameters), longText_(kLongTextBytes, 'a') {}

Caller::~Caller() { finishExport(); }

TaskHandle Caller::task() {
  if (!task_) {
    if (VorexCreateTask("", &task_) < 0 ||
        VorexCreateAIVoltageChan(task_, "Dev1/ai0", "", Vorex_Val_Cfg_Default, -10.0, 10.0, Vorex_Val_Volts,
                                 nullptr) < 0)
      fault(std::string("the benign task could not be made for ") + function_);
  }
  return task_;
}

TaskHandle* Caller::newTask() {
  made_ = nullptr;
  return &made_;
}

void* Caller::scratch(int parameter) {
  unsigned char* region = scratch_.data() + kScratchPerParameter * static_cast<size_t>(parameter % kMostParameters);
  // What an earlier call wrote must not turn into input of this one: an attribute slot, a time.
  std::memset(region, 0, 256);
  return region;
}

TaskHandle Caller::handle(const Hostile& h) {
  return h.value == kNotATask ? static_cast<TaskHandle>(notATask_) : nullptr;
}

const char* Caller::text(const Hostile& h) {
  switch (h.value) {
    case kLoneContinuation: return "Dev1/\x80\xBF" "ai0";
    case kTruncatedSequence: return "Dev1/ai0\xE2\x82";
    case kOverlongSequence: return "Dev1\xC0\xAF" "ai0";
    case kLongText: return longText_.c_str();
    default: return nullptr;
  }
}

void Caller::begin(const char* function, const char* parameter, const char* label) {
  function_ = function;
  parameter_ = parameter;
  label_ = label;
  progress_.fetch_add(1);
}

void Caller::end(int32 status) {
  ++calls_;
  progress_.fetch_add(1);
  if (made_) {
    VorexClearTask(made_);
    made_ = nullptr;
  }
  const bool invalidHandle = label_ == kHandles[kNullHandle].label || label_ == kHandles[kNotATask].label;
  if (invalidHandle && status >= 0 && !succeedsWithoutTask(function_, label_))
    fault("returned " + std::to_string(status) + " for an invalid handle");
  if (status < 0) checkReport(status);
}

void Caller::checkReport(int32 status) {
  // The failure is recorded: the thread's extended error info tells at least the code's text.
  const int32 infoSize = VorexGetExtendedErrorInfo(nullptr, 0);
  if (infoSize <= 1) {
    fault("failed with " + std::to_string(status) + " and left no extended error info");
    return;
  }
  // The report, through the translator's description of it, which a malformed report could not
  // give as JSON.
  const int32 size = VorexInternalGetLastErrorDescription(0, 0, nullptr, 0);
  if (size <= 0) {
    fault("failed with " + std::to_string(status) + " and its report has no description: " + std::to_string(size));
    return;
  }
  std::string text(static_cast<size_t>(size), '\0');
  const int32 copied = VorexInternalGetLastErrorDescription(0, 0, text.data(), static_cast<uInt32>(text.size()));
  text.resize(std::strlen(text.c_str()));
  ++reports_;
  if (copied != 0 || !isStrictJson(text))
    fault("failed with " + std::to_string(status) + " and its report is no JSON (" + std::to_string(copied) +
          "): " + text.substr(0, 200));
}

void Caller::finishExport() {
  if (task_) VorexClearTask(task_);
  task_ = nullptr;
}

std::string Caller::current() const {
  return std::string(function_) + " with " + parameter_ + " = " + label_;
}

void Caller::fault(const std::string& what) { faults_.push_back(current() + ": " + what); }

}  // namespace zqhostile
