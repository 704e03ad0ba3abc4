// A task double for the accessor frame: records each operation it is asked for and answers
// with a scripted value and status.
#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "frame/channel_argument.h"
#include "status/status.h"

namespace zqtest {

struct FakeView {
  explicit FakeView(const zqframe::NameList& list) : names(list) {}
  zqframe::NameList names;
};

struct FakeCall {
  std::string op;
  int32_t id;
  zqframe::NameList names;
  double value;
};

class FakeTask : public std::enable_shared_from_this<FakeTask> {
 public:
  std::shared_ptr<FakeTask> sharedFromThis() { return weak_from_this().lock(); }
  const std::string& getName() const { return name; }

  double getChannelAttributeF64(const FakeView& v, int32_t id, zqerr_Status* s) {
    return answer("getChannelAttributeF64", v.names, id, 0, s, f64);
  }
  void setChannelAttributeF64(const FakeView& v, int32_t id, double value, zqerr_Status* s) {
    answer("setChannelAttributeF64", v.names, id, value, s, 0);
  }
  void resetChannelAttributeF64(const FakeView& v, int32_t id, zqerr_Status* s) {
    answer("resetChannelAttributeF64", v.names, id, 0, s, 0);
  }
  uint64_t getBufferAttributeSize(const FakeView& v, int32_t id, zqerr_Status* s) {
    return answer("getBufferAttributeSize", v.names, id, 0, s, size);
  }
  uint32_t getTaskAttributeU32(int32_t id, zqerr_Status* s) {
    return answer("getTaskAttributeU32", {}, id, 0, s, u32);
  }
  int32_t getReadAttributeI32(const FakeView& v, int32_t id, zqerr_Status* s) {
    return answer("getReadAttributeI32", v.names, id, 0, s, i32);
  }
  int64_t getReadAttributeOffset(const FakeView& v, int32_t id, zqerr_Status* s) {
    return answer("getReadAttributeOffset", v.names, id, 0, s, offset);
  }
  void setReadAttributeI32(const FakeView& v, int32_t id, int32_t value, zqerr_Status* s) {
    answer("setReadAttributeI32", v.names, id, value, s, 0);
  }
  void setReadAttributeOffset(const FakeView& v, int32_t id, int64_t value, zqerr_Status* s) {
    answer("setReadAttributeOffset", v.names, id, static_cast<double>(value), s, 0);
  }

  std::string name = "MyTask";
  double f64 = 0;
  uint64_t size = 0;
  uint32_t u32 = 0;
  int32_t i32 = 0;
  int64_t offset = 0;
  // The code each operation sets, by op name; -89000 tests use this for the narrow op only.
  std::string failingOp;
  int32_t failCode = 0;
  bool throwInOp = false;
  std::vector<FakeCall> calls;

 private:
  template <class T>
  T answer(const char* op, const zqframe::NameList& names, int32_t id, double value, zqerr_Status* s, T result) {
    calls.push_back({op, id, names, value});
    if (throwInOp) throw std::runtime_error("plug-in threw");
    if (failCode != 0 && (failingOp.empty() || failingOp == op))
      zqerr::setWithLocation(s, failCode, {"plugin", 7, "fake", "fakeCode"});
    return result;
  }
};

}  // namespace zqtest
