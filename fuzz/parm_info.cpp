// Arbitrary ids and slot arrays through the FromParmInfo twins of the generic attribute entries,
// over a task double that answers every operation. Every call must return a status, whatever the
// slots hold: a Get writes no further than the buffer its slots declare (each buffer is exactly
// that size, so that the sanitizer sees one byte too many), and a Set reads no further than the
// value its slots give.
//
// Input: entry, flags, case index (2 bytes), raw id (4), slot 0 (8), slot 1 (8), the double's
// answer, then the payload: the text, list, array or time that pointer slots point at, and what
// the double answers with.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "generic_cases.h"
#include "recording_task.h"

namespace {

using zqtest::GenericVerb;
using zqtest::ValueType;

using GetFixed = int32 (*)(TaskHandle, int32, void*);
using GetSlots = int32 (*)(TaskHandle, int32, void*, const VorexParmSlot*);
using GetListed = int32 (*)(TaskHandle, const char*, int32, void*, const VorexParmSlot*);
using SetSlots = int32 (*)(TaskHandle, int32, const VorexParmSlot*);
using SetListed = int32 (*)(TaskHandle, const char*, int32, const VorexParmSlot*);

// One twin, under the name the case tables give its entry, with the one call it has.
struct Entry {
  const char* shown;
  GenericVerb verb;
  GetFixed getFixed = nullptr;
  GetSlots getSlots = nullptr;
  GetListed getListed = nullptr;
  SetSlots setSlots = nullptr;
  SetListed setListed = nullptr;
};

const Entry kEntries[] = {
    {"VorexGetBufferAttribute", GenericVerb::kGet, __VorexGetBufferAttributeFromParmInfo},
    {"VorexSetBufferAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetBufferAttributeFromParmInfo},
    {"VorexGetChanAttribute", GenericVerb::kGet, nullptr, nullptr, __VorexGetChanAttributeFromParmInfo},
    {"VorexSetChanAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, nullptr, __VorexSetChanAttributeFromParmInfo},
    {"VorexGetExportedSignalAttribute", GenericVerb::kGet, nullptr, __VorexGetExportedSignalAttributeFromParmInfo},
    {"VorexSetExportedSignalAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetExportedSignalAttributeFromParmInfo},
    {"VorexGetReadAttribute", GenericVerb::kGet, nullptr, __VorexGetReadAttributeFromParmInfo},
    {"VorexSetReadAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetReadAttributeFromParmInfo},
    {"VorexGetRealTimeAttribute", GenericVerb::kGet, nullptr, __VorexGetRealTimeAttributeFromParmInfo},
    {"VorexSetRealTimeAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetRealTimeAttributeFromParmInfo},
    {"__VorexGetSwitchScanAttributeFromParmInfo", GenericVerb::kGet, __VorexGetSwitchScanAttributeFromParmInfo},
    {"__VorexSetSwitchScanAttributeFromParmInfo", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetSwitchScanAttributeFromParmInfo},
    {"VorexGetTaskAttribute", GenericVerb::kGet, nullptr, __VorexGetTaskAttributeFromParmInfo},
    {"VorexGetTimingAttribute", GenericVerb::kGet, nullptr, __VorexGetTimingAttributeFromParmInfo},
    {"VorexSetTimingAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetTimingAttributeFromParmInfo},
    {"VorexGetTimingAttributeEx", GenericVerb::kGet, nullptr, nullptr, __VorexGetTimingAttributeExFromParmInfo},
    {"VorexSetTimingAttributeEx", GenericVerb::kSet, nullptr, nullptr, nullptr, nullptr, __VorexSetTimingAttributeExFromParmInfo},
    {"VorexGetTrigAttribute", GenericVerb::kGet, nullptr, __VorexGetTrigAttributeFromParmInfo},
    {"VorexSetTrigAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetTrigAttributeFromParmInfo},
    {"VorexGetWatchdogAttribute", GenericVerb::kGet, nullptr, nullptr, __VorexGetWatchdogAttributeFromParmInfo},
    {"VorexSetWatchdogAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, nullptr, __VorexSetWatchdogAttributeFromParmInfo},
    {"VorexGetWriteAttribute", GenericVerb::kGet, nullptr, __VorexGetWriteAttributeFromParmInfo},
    {"VorexSetWriteAttribute", GenericVerb::kSet, nullptr, nullptr, nullptr, __VorexSetWriteAttributeFromParmInfo},
};
constexpr size_t kEntryCount = sizeof kEntries / sizeof kEntries[0];

// What the case tables know: the value type of every id an entry takes, and each entry's ids.
struct Catalogue {
  std::map<int32, ValueType> types;
  std::vector<int32> ids[kEntryCount];

  Catalogue() {
    for (const zqtest::GenericCase& c : zqtest::genericCases()) {
      types[c.id] = c.type;
      for (size_t e = 0; e < kEntryCount; ++e)
        if (c.verb == kEntries[e].verb && std::string_view(c.entry) == kEntries[e].shown) ids[e].push_back(c.id);
    }
  }
};

enum Flag : uint8_t {
  kCaseId = 1,        // the id is one the entry takes, else the raw id
  kNullParmInfo = 2,  // no slot array at all
  kNullPointer = 4,   // a pointer slot holds null
  kNullValue = 8,     // a Get's out-pointer is null
  kNullHandle = 16,
};

// The bytes a Get may write for its type and its slot 0; nothing known gives 16.
size_t getBytes(const ValueType* type, VorexParmSlot size) {
  if (!type) return 16;
  switch (*type) {
    case ValueType::kString:
    case ValueType::kStringList:
      return static_cast<uint32_t>(size);
    case ValueType::kF64Array:
    case ValueType::kU64:
    case ValueType::kF64:
      return *type == ValueType::kF64Array ? 8 * static_cast<size_t>(static_cast<uint32_t>(size)) : 8;
    case ValueType::kI32Array:
      return 4 * static_cast<size_t>(static_cast<uint32_t>(size));
    case ValueType::kTime:
      return 16;
    default:
      return 4;
  }
}

// Keeps a Get's declared size (the low half of slot 0) small enough to allocate; the high half
// stays as the input gave it, since the entry must not read it.
VorexParmSlot boundedSize(VorexParmSlot slot) { return (slot & 0xFFFFFFFF00000000ull) | (slot & 0xFFF); }

// Programs the double's answer to every operation from one byte and the payload. The double
// converts a number to the operation's own type, so only a float64 operation is answered with
// any bits: a float outside an integer's range would be the double's fault, not the library's.
// A list answers in the element type of the operation's list, as a plug-in must.
void program(zqtest::RecordingTask& task, uint8_t kind, std::string_view payload, const ValueType* type) {
  const bool anyFloat = type && (*type == ValueType::kF64 || *type == ValueType::kF64Array);
  uint8_t answer = kind % 8;
  if (answer >= 4 && answer <= 6) {
    answer = type && *type == ValueType::kF64Array ? 5 : type && *type == ValueType::kI32Array ? 6 : 4;
  }
  task.clearReplies();
  zqtest::Reply& reply = task.onAny();
  uint64_t bits = 0;
  std::memcpy(&bits, payload.data(), std::min(payload.size(), sizeof bits));
  double number;
  std::memcpy(&number, &bits, sizeof number);
  switch (answer) {
    case 0: reply.value(anyFloat ? number : static_cast<double>(static_cast<uint16_t>(bits))); break;
    case 1: reply.value(static_cast<int64_t>(bits)); break;
    case 2: reply.value(bits); break;
    case 3: reply.text(std::string(payload)); break;
    case 4: {
      std::vector<std::string> items;
      for (size_t at = 0; at <= payload.size();) {
        const size_t comma = std::min(payload.find(',', at), payload.size());
        items.emplace_back(payload.substr(at, comma - at));
        at = comma + 1;
      }
      reply.strings(std::move(items));
      break;
    }
    case 5: {
      std::vector<double> numbers(payload.size() / 8);
      if (!numbers.empty()) std::memcpy(numbers.data(), payload.data(), numbers.size() * 8);
      reply.numbers(std::move(numbers));
      break;
    }
    case 6: {
      std::vector<int32_t> integers(payload.size() / 4);
      if (!integers.empty()) std::memcpy(integers.data(), payload.data(), integers.size() * 4);
      reply.integers(std::move(integers));
      break;
    }
    case 7: reply.out(zqvorexPlugin_AbsoluteTime{bits, static_cast<int64_t>(~bits)}); break;
  }
  if (kind & 0x80) reply.status(static_cast<int32_t>(bits | 0x80000000u));  // fails, its value given anyway
}

const char* listFor(uint8_t flags, const std::string& text) {
  switch (flags >> 5) {
    case 0: return nullptr;
    case 1: return "";
    case 2: return " \t";
    case 3: return "Dev1/ai0";
    default: return text.c_str();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kHeader = 25;
  if (size < kHeader) return 0;
  static const Catalogue catalogue;
  static const std::shared_ptr<zqtest::RecordingTask> task = zqtest::RecordingTask::create();
  task->clearCalls();

  const size_t e = data[0] % kEntryCount;
  const Entry& entry = kEntries[e];
  const uint8_t flags = data[1];
  int32 id;
  std::memcpy(&id, data + 4, sizeof id);
  if ((flags & kCaseId) && !catalogue.ids[e].empty())
    id = catalogue.ids[e][(data[2] | data[3] << 8) % catalogue.ids[e].size()];
  VorexParmSlot slots[2];
  std::memcpy(slots, data + 8, sizeof slots);
  const std::string payload(reinterpret_cast<const char*>(data + kHeader), size - kHeader);
  const auto known = catalogue.types.find(id);
  const ValueType* type = known == catalogue.types.end() ? nullptr : &known->second;
  program(*task, data[24], payload, type);
  const bool nullPointer = flags & kNullPointer;
  // What a Set's pointer slot points at: the payload as text, as an array, as a time record.
  std::vector<uint64_t> words((payload.size() + 7) / 8 + 2);
  std::memcpy(words.data(), payload.data(), payload.size());
  if (entry.verb == GenericVerb::kSet && type) {
    const uintptr_t address = nullPointer ? 0 : reinterpret_cast<uintptr_t>(words.data());
    switch (*type) {
      case ValueType::kString:
      case ValueType::kStringList:
        slots[0] = nullPointer ? 0 : reinterpret_cast<uintptr_t>(payload.c_str());
        break;
      case ValueType::kF64Array:
      case ValueType::kI32Array: {
        const size_t width = *type == ValueType::kF64Array ? 8 : 4;
        const uint64_t fits = words.size() * 8 / width + 1;
        slots[0] = address;
        slots[1] = (slots[1] & 0xFFFFFFFF00000000ull) | (nullPointer ? static_cast<uint32_t>(slots[1]) : slots[1] % fits);
        break;
      }
      case ValueType::kTime:
        slots[0] = address;
        break;
      default:
        break;
    }
  } else if (entry.verb == GenericVerb::kGet && type) {
    slots[0] = boundedSize(slots[0]);
  }

  const VorexParmSlot* parmInfo = (flags & kNullParmInfo) ? nullptr : slots;
  // Only a Get writes through value; slot 0 of a Set or a Reset is no size and stays unbounded.
  const VorexParmSlot declared = parmInfo && entry.verb == GenericVerb::kGet ? slots[0] : 0;
  std::vector<uint8_t> out(getBytes(type, entry.getFixed ? 0 : declared));
  void* value = (flags & kNullValue) ? nullptr : out.data();
  TaskHandle handle = (flags & kNullHandle) ? nullptr : task->handle();
  const char* list = listFor(flags, payload);

  if (entry.getFixed) entry.getFixed(handle, id, value);
  if (entry.getSlots) entry.getSlots(handle, id, value, parmInfo);
  if (entry.getListed) entry.getListed(handle, list, id, value, parmInfo);
  if (entry.setSlots) entry.setSlots(handle, id, parmInfo);
  if (entry.setListed) entry.setListed(handle, list, id, parmInfo);
  return 0;
}
