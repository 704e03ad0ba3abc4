// The attribute operations: every class and type of the operation table over the one table of
// attributes. Time values and lists of unsigned numbers are attributes the device has none of.
#include <limits>

#include "attributes.h"
#include "sim_export.h"

using namespace zqsim;

namespace {

Value textsOf(const zqgopher_ArrayView* view) {
  std::vector<std::string> texts;
  for (uint64_t i = 0; view && view->data && i < view->count; ++i) {
    const char* text = zqgopher_ArrayView_strings(view)[i];
    texts.emplace_back(text ? text : "");
  }
  return Value::strings(std::move(texts));
}

Value realsOf(const zqgopher_ArrayView* view) {
  std::vector<double> reals;
  for (uint64_t i = 0; view && view->data && i < view->count; ++i)
    reals.push_back(zqgopher_ArrayView_f64(view)[i]);
  return Value::f64s(std::move(reals));
}

Value integersOf(const zqgopher_ArrayView* view) {
  std::vector<int32_t> integers;
  for (uint64_t i = 0; view && view->data && i < view->count; ++i)
    integers.push_back(zqgopher_ArrayView_i32(view)[i]);
  return Value::i32s(std::move(integers));
}

// An offset beyond 32 bits is kept as a number that fails the attribute's range.
Value offsetValue(int64_t value) {
  if (value >= std::numeric_limits<int32_t>::min() && value <= std::numeric_limits<int32_t>::max())
    return Value::i32(static_cast<int32_t>(value));
  Value v = Value::f64(static_cast<double>(value));
  v.type = AttrType::kI32;
  v.integer = value;
  return v;
}

template <class R>
R scalar(const Value& v) {
  if constexpr (std::is_same_v<R, double>) {
    return v.asNumber();
  } else {
    return static_cast<R>(v.integer);
  }
}

template <class R>
R getScalar(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id, AttrType type,
            zqerr_Status* status) {
  return guarded(status, R{}, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return R{};
    const Value v = getAttribute(*t, channels, id, type, status);
    return isOpen(status) ? scalar<R>(v) : R{};
  });
}

void getText(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
             zqgopher_IString* out, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    const Value v = getAttribute(*t, channels, id, AttrType::kString, status);
    if (!isOpen(status)) return;
    if (!out) {
      SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
      return;
    }
    out->table->assign(out, v.text.data(), v.text.size(), status);
  });
}

void getTexts(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
              zqgopher_IItemAdder* out, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    const Value v = getAttribute(*t, channels, id, AttrType::kStrings, status);
    if (!isOpen(status)) return;
    if (!out) {
      SIM_FAIL(status, nZQMSTS::kErrorNULLPtr);
      return;
    }
    out->table.strings->reserve(out, v.texts.size(), status);
    for (const std::string& text : v.texts) out->table.strings->add(out, text.c_str(), status);
  });
}

void getReals(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
              zqgopher_IItemAdder* out, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    const Value v = getAttribute(*t, channels, id, AttrType::kF64s, status);
    if (isOpen(status) && out) out->table.f64->addRange(out, v.reals.data(), v.reals.size(), status);
  });
}

void getIntegers(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
                 zqgopher_IItemAdder* out, zqerr_Status* status) {
  guardedVoid(status, [&] {
    SimTask* t = requireTask(task, status);
    if (!t) return;
    const Value v = getAttribute(*t, channels, id, AttrType::kI32s, status);
    if (isOpen(status) && out) out->table.i32->addRange(out, v.integers.data(), v.integers.size(), status);
  });
}

void set(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id, Value value,
         zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) setAttribute(*t, channels, id, std::move(value), status);
  });
}

void reset(zqvorexPlugin_Task_undefined* task, const zqgopher_ArrayView* channels, int32_t id,
           zqerr_Status* status) {
  guardedVoid(status, [&] {
    if (SimTask* t = requireTask(task, status)) resetAttribute(*t, channels, id, status);
  });
}

void none(int32_t id, zqerr_Status* status) {
  if (isOpen(status))
    SIM_FAIL(status, nZQMSTS::kErrorAttributeNotSupportedInTaskContext, Items().attribute(id));
}

}  // namespace

#define SIM_CH zqvorexPlugin_Task_undefined *task, const zqgopher_ArrayView *channels, int32_t id
#define SIM_TASK zqvorexPlugin_Task_undefined *task, int32_t id
#define SIM_GET_CH(op, R, T)                                      \
  SIM_EXPORT R zqvorexSim_##op(SIM_CH, zqerr_Status* status) {    \
    return getScalar<R>(task, channels, id, AttrType::T, status); \
  }                                                               \
  SIM_SIGNATURE(op);
#define SIM_GET_TASK(op, R, T)                                   \
  SIM_EXPORT R zqvorexSim_##op(SIM_TASK, zqerr_Status* status) { \
    return getScalar<R>(task, nullptr, id, AttrType::T, status); \
  }                                                              \
  SIM_SIGNATURE(op);
#define SIM_GET_TEXT_CH(op)                                                                \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, zqgopher_IString* value, zqerr_Status* status) { \
    getText(task, channels, id, value, status);                                            \
  }                                                                                        \
  SIM_SIGNATURE(op);
#define SIM_GET_TEXT_TASK(op)                                                                \
  SIM_EXPORT void zqvorexSim_##op(SIM_TASK, zqgopher_IString* value, zqerr_Status* status) { \
    getText(task, nullptr, id, value, status);                                               \
  }                                                                                          \
  SIM_SIGNATURE(op);
#define SIM_GET_TEXTS_CH(op)                                                                  \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, zqgopher_IItemAdder* value, zqerr_Status* status) { \
    getTexts(task, channels, id, value, status);                                              \
  }                                                                                           \
  SIM_SIGNATURE(op);
#define SIM_GET_TEXTS_TASK(op)                                                                  \
  SIM_EXPORT void zqvorexSim_##op(SIM_TASK, zqgopher_IItemAdder* value, zqerr_Status* status) { \
    getTexts(task, nullptr, id, value, status);                                                 \
  }                                                                                             \
  SIM_SIGNATURE(op);
#define SIM_GET_REALS_CH(op)                                                                  \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, zqgopher_IItemAdder* value, zqerr_Status* status) { \
    getReals(task, channels, id, value, status);                                              \
  }                                                                                           \
  SIM_SIGNATURE(op);
#define SIM_GET_INTEGERS_CH(op)                                                               \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, zqgopher_IItemAdder* value, zqerr_Status* status) { \
    getIntegers(task, channels, id, value, status);                                           \
  }                                                                                           \
  SIM_SIGNATURE(op);
#define SIM_GET_NONE_CH(op, out)                                       \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, out, zqerr_Status* status) { \
    (void)task;                                                        \
    (void)channels;                                                    \
    (void)value;                                                       \
    none(id, status);                                                  \
  }                                                                    \
  SIM_SIGNATURE(op);
#define SIM_SET_CH(op, A, make)                                            \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, A value, zqerr_Status* status) { \
    set(task, channels, id, make, status);                                 \
  }                                                                        \
  SIM_SIGNATURE(op);
#define SIM_SET_TASK(op, A, make)                                            \
  SIM_EXPORT void zqvorexSim_##op(SIM_TASK, A value, zqerr_Status* status) { \
    set(task, nullptr, id, make, status);                                    \
  }                                                                          \
  SIM_SIGNATURE(op);
#define SIM_SET_NONE_CH(op, A)                                       \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, A, zqerr_Status* status) { \
    (void)task;                                                      \
    (void)channels;                                                  \
    none(id, status);                                                \
  }                                                                  \
  SIM_SIGNATURE(op);
#define SIM_RESET_CH(op)                                                                               \
  SIM_EXPORT void zqvorexSim_##op(SIM_CH, zqerr_Status* status) { reset(task, channels, id, status); } \
  SIM_SIGNATURE(op);
#define SIM_RESET_TASK(op)                                                                              \
  SIM_EXPORT void zqvorexSim_##op(SIM_TASK, zqerr_Status* status) { reset(task, nullptr, id, status); } \
  SIM_SIGNATURE(op);

SIM_GET_CH(getBufferAttributeSize, uint64_t, kU64)
SIM_GET_NONE_CH(getChannelAttributeAbsoluteTime, zqvorexPlugin_AbsoluteTime* value)
SIM_GET_CH(getChannelAttributeBool, uint32_t, kBool)
SIM_GET_CH(getChannelAttributeF64, double, kF64)
SIM_GET_REALS_CH(getChannelAttributeF64Vtr)
SIM_GET_CH(getChannelAttributeI32, int32_t, kI32)
SIM_GET_INTEGERS_CH(getChannelAttributeI32Vtr)
SIM_GET_TEXT_CH(getChannelAttributeString)
SIM_GET_TEXTS_CH(getChannelAttributeStringVtr)
SIM_GET_CH(getChannelAttributeU32, uint32_t, kU32)
SIM_GET_NONE_CH(getChannelAttributeU32Vtr, zqgopher_IItemAdder* value)
SIM_GET_CH(getDesiredChannelAttributeF64, double, kF64)
SIM_GET_CH(getDesiredChannelAttributeI32, int32_t, kI32)
SIM_GET_CH(getDesiredChannelAttributeU32, uint32_t, kU32)
SIM_GET_CH(getDeviceAttributeBool, uint32_t, kBool)
SIM_GET_CH(getDeviceAttributeF64, double, kF64)
SIM_GET_CH(getDeviceAttributeI32, int32_t, kI32)
SIM_GET_CH(getDeviceAttributeSize, uint64_t, kU64)
SIM_GET_TEXTS_CH(getDeviceAttributeStringVtr)
SIM_GET_CH(getDeviceAttributeU32, uint32_t, kU32)
SIM_GET_TASK(getTaskAttributeBool, uint32_t, kBool)
SIM_GET_TASK(getTaskAttributeI32, int32_t, kI32)
SIM_GET_TEXT_TASK(getTaskAttributeString)
SIM_GET_TEXTS_TASK(getTaskAttributeStringVtr)
SIM_GET_TASK(getTaskAttributeU32, uint32_t, kU32)
SIM_GET_NONE_CH(getTimingAttributeAbsoluteTime, zqvorexPlugin_AbsoluteTime* value)
SIM_GET_CH(getTimingAttributeBool, uint32_t, kBool)
SIM_GET_CH(getTimingAttributeF64, double, kF64)
SIM_GET_REALS_CH(getTimingAttributeF64Vtr)
SIM_GET_CH(getTimingAttributeI32, int32_t, kI32)
SIM_GET_INTEGERS_CH(getTimingAttributeI32Vtr)
SIM_GET_TEXT_CH(getTimingAttributeString)
SIM_GET_TEXTS_CH(getTimingAttributeStringVtr)
SIM_GET_CH(getTimingAttributeU32, uint32_t, kU32)
SIM_GET_CH(getTimingAttributeU64, uint64_t, kU64)
SIM_GET_CH(getDesiredTimingAttributeF64, double, kF64)
SIM_GET_CH(getDesiredTimingAttributeU32, uint32_t, kU32)
SIM_GET_CH(getReadAttributeBool, uint32_t, kBool)
SIM_GET_CH(getReadAttributeI32, int32_t, kI32)
SIM_GET_CH(getReadAttributeOffset, int64_t, kI32)
SIM_GET_CH(getReadAttributeSize, uint64_t, kU64)
SIM_GET_TEXT_CH(getReadAttributeString)
SIM_GET_TEXTS_CH(getReadAttributeStringVtr)
SIM_GET_CH(getReadAttributeU32, uint32_t, kU32)
SIM_GET_CH(getReadAttributeU64, uint64_t, kU64)
SIM_GET_CH(getWriteAttributeBool, uint32_t, kBool)
SIM_GET_CH(getWriteAttributeI32, int32_t, kI32)
SIM_GET_CH(getWriteAttributeOffset, int64_t, kI32)
SIM_GET_CH(getWriteAttributeSize, uint64_t, kU64)
SIM_GET_TEXTS_CH(getWriteAttributeStringVtr)
SIM_GET_CH(getWriteAttributeU32, uint32_t, kU32)
SIM_GET_CH(getWriteAttributeU64, uint64_t, kU64)
SIM_RESET_CH(resetBufferAttributeSize)
SIM_RESET_CH(resetChannelAttributeAbsoluteTime)
SIM_RESET_CH(resetChannelAttributeBool)
SIM_RESET_CH(resetChannelAttributeF64)
SIM_RESET_CH(resetChannelAttributeF64Vtr)
SIM_RESET_CH(resetChannelAttributeI32)
SIM_RESET_CH(resetChannelAttributeI32Vtr)
SIM_RESET_CH(resetChannelAttributeString)
SIM_RESET_CH(resetChannelAttributeStringVtr)
SIM_RESET_CH(resetChannelAttributeU32)
SIM_RESET_CH(resetChannelAttributeU32Vtr)
SIM_RESET_CH(resetDeviceAttributeBool)
SIM_RESET_CH(resetDeviceAttributeF64)
SIM_RESET_CH(resetDeviceAttributeI32)
SIM_RESET_CH(resetDeviceAttributeSize)
SIM_RESET_CH(resetDeviceAttributeU32)
SIM_RESET_TASK(resetTaskAttributeBool)
SIM_RESET_TASK(resetTaskAttributeI32)
SIM_RESET_TASK(resetTaskAttributeString)
SIM_RESET_TASK(resetTaskAttributeStringVtr)
SIM_RESET_CH(resetTimingAttributeAbsoluteTime)
SIM_RESET_CH(resetTimingAttributeBool)
SIM_RESET_CH(resetTimingAttributeF64)
SIM_RESET_CH(resetTimingAttributeF64Vtr)
SIM_RESET_CH(resetTimingAttributeI32)
SIM_RESET_CH(resetTimingAttributeI32Vtr)
SIM_RESET_CH(resetTimingAttributeString)
SIM_RESET_CH(resetTimingAttributeStringVtr)
SIM_RESET_CH(resetTimingAttributeU32)
SIM_RESET_CH(resetTimingAttributeU64)
SIM_RESET_CH(resetReadAttributeBool)
SIM_RESET_CH(resetReadAttributeI32)
SIM_RESET_CH(resetReadAttributeOffset)
SIM_RESET_CH(resetReadAttributeSize)
SIM_RESET_CH(resetReadAttributeString)
SIM_RESET_CH(resetReadAttributeStringVtr)
SIM_RESET_CH(resetReadAttributeU32)
SIM_RESET_CH(resetReadAttributeU64)
SIM_RESET_CH(resetWriteAttributeI32)
SIM_RESET_CH(resetWriteAttributeOffset)
SIM_SET_CH(setBufferAttributeSize, uint64_t, Value::u64(value))
SIM_SET_NONE_CH(setChannelAttributeAbsoluteTime, const zqvorexPlugin_AbsoluteTime*)
SIM_SET_CH(setChannelAttributeBool, uint32_t, Value::boolean(value != 0))
SIM_SET_CH(setChannelAttributeF64, double, Value::f64(value))
SIM_SET_CH(setChannelAttributeF64Vtr, const zqgopher_ArrayView*, realsOf(value))
SIM_SET_CH(setChannelAttributeI32, int32_t, Value::i32(value))
SIM_SET_CH(setChannelAttributeI32Vtr, const zqgopher_ArrayView*, integersOf(value))
SIM_SET_CH(setChannelAttributeString, const char*, Value::string(value ? value : ""))
SIM_SET_CH(setChannelAttributeStringVtr, const zqgopher_ArrayView*, textsOf(value))
SIM_SET_CH(setChannelAttributeU32, uint32_t, Value::u32(value))
SIM_SET_NONE_CH(setChannelAttributeU32Vtr, const zqgopher_ArrayView*)
SIM_SET_CH(setDeviceAttributeBool, uint32_t, Value::boolean(value != 0))
SIM_SET_CH(setDeviceAttributeF64, double, Value::f64(value))
SIM_SET_CH(setDeviceAttributeI32, int32_t, Value::i32(value))
SIM_SET_CH(setDeviceAttributeSize, uint64_t, Value::u64(value))
SIM_SET_CH(setDeviceAttributeU32, uint32_t, Value::u32(value))
SIM_SET_TASK(setTaskAttributeBool, uint32_t, Value::boolean(value != 0))
SIM_SET_TASK(setTaskAttributeI32, int32_t, Value::i32(value))
SIM_SET_TASK(setTaskAttributeString, const char*, Value::string(value ? value : ""))
SIM_SET_TASK(setTaskAttributeStringVtr, const zqgopher_ArrayView*, textsOf(value))
SIM_SET_NONE_CH(setTimingAttributeAbsoluteTime, const zqvorexPlugin_AbsoluteTime*)
SIM_SET_CH(setTimingAttributeBool, uint32_t, Value::boolean(value != 0))
SIM_SET_CH(setTimingAttributeF64, double, Value::f64(value))
SIM_SET_CH(setTimingAttributeF64Vtr, const zqgopher_ArrayView*, realsOf(value))
SIM_SET_CH(setTimingAttributeI32, int32_t, Value::i32(value))
SIM_SET_CH(setTimingAttributeI32Vtr, const zqgopher_ArrayView*, integersOf(value))
SIM_SET_CH(setTimingAttributeString, const char*, Value::string(value ? value : ""))
SIM_SET_CH(setTimingAttributeStringVtr, const zqgopher_ArrayView*, textsOf(value))
SIM_SET_CH(setTimingAttributeU32, uint32_t, Value::u32(value))
SIM_SET_CH(setTimingAttributeU64, uint64_t, Value::u64(value))
SIM_SET_CH(setReadAttributeBool, uint32_t, Value::boolean(value != 0))
SIM_SET_CH(setReadAttributeI32, int32_t, Value::i32(value))
SIM_SET_CH(setReadAttributeOffset, int64_t, offsetValue(value))
SIM_SET_CH(setReadAttributeSize, uint64_t, Value::u64(value))
SIM_SET_CH(setReadAttributeString, const char*, Value::string(value ? value : ""))
SIM_SET_CH(setReadAttributeStringVtr, const zqgopher_ArrayView*, textsOf(value))
SIM_SET_CH(setReadAttributeU32, uint32_t, Value::u32(value))
SIM_SET_CH(setReadAttributeU64, uint64_t, Value::u64(value))
SIM_SET_CH(setWriteAttributeI32, int32_t, Value::i32(value))
SIM_SET_CH(setWriteAttributeOffset, int64_t, offsetValue(value))
