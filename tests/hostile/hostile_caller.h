// What the generated hostile calls use: the hostile values of each kind of parameter, the
// benign ones, and the caller that counts every call and checks what it returned.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "zqcai_rd_mbcs.h"

namespace zqhostile {

struct Hostile {
  const char* label;
  int64_t value;  // the number for sizes and counts; which text or handle otherwise
};

enum HandleKind : int64_t { kNullHandle, kNotATask };
enum TextKind : int64_t { kNullText, kLoneContinuation, kTruncatedSequence, kOverlongSequence, kLongText };

inline constexpr Hostile kHandles[] = {{"null handle", kNullHandle}, {"not a task", kNotATask}};
inline constexpr Hostile kNulls[] = {{"null", 0}};
inline constexpr Hostile kCounts[] = {{"0", 0}, {"-1", -1}, {"0x7FFFFFFF", 0x7FFFFFFF}};
// The size of the caller's array, and the count of a write, which is its input array's size:
// larger values than the array has are the caller's error (generate_calls.py says why).
inline constexpr Hostile kArraySizes[] = {{"0", 0}};
inline constexpr Hostile kWriteCounts[] = {{"0", 0}, {"-1", -1}};
inline constexpr Hostile kTexts[] = {{"null text", kNullText},
                                     {"lone continuation bytes", kLoneContinuation},
                                     {"truncated multi-byte sequence", kTruncatedSequence},
                                     {"overlong sequence", kOverlongSequence},
                                     {"100 kB of text", kLongText}};

template <class Callback>
Callback benignCallback();

class Caller {
 public:
  Caller();
  ~Caller();
  Caller(const Caller&) = delete;
  Caller& operator=(const Caller&) = delete;

  // The benign values.
  TaskHandle task();  // a task with one voltage channel on Dev1, made once per export
  TaskHandle* newTask();
  void* scratch(int parameter);
  // The hostile ones.
  TaskHandle handle(const Hostile& h);
  const char* text(const Hostile& h);

  void begin(const char* function, const char* parameter, const char* label);
  void end(int32 status);
  // Clears the export's task and whatever the calls made.
  void finishExport();

  uint64_t calls() const { return calls_; }
  uint64_t reports() const { return reports_; }  // failures whose report was parsed
  const std::vector<std::string>& faults() const { return faults_; }
  // What ran last, for the hang guard.
  std::string current() const;
  uint64_t progress() const { return progress_.load(); }

 private:
  void fault(const std::string& what);
  void checkReport(int32 status);

  TaskHandle task_ = nullptr;
  TaskHandle made_ = nullptr;
  std::vector<unsigned char> scratch_;
  alignas(16) unsigned char notATask_[256] = {};
  std::string longText_;
  const char* function_ = "";
  const char* parameter_ = "";
  const char* label_ = "";
  uint64_t calls_ = 0;
  uint64_t reports_ = 0;
  std::atomic<uint64_t> progress_{0};
  std::vector<std::string> faults_;
};

// One export's hostile calls.
struct Export {
  const char* name;
  void (*call)(Caller& c);
};
struct Skipped {
  const char* name;
  const char* reason;
};

}  // namespace zqhostile

// The generated tables, ended by a null entry.
extern const zqhostile::Export zqhostile_chunk0[];
extern const zqhostile::Export zqhostile_chunk1[];
extern const zqhostile::Export zqhostile_chunk2[];
extern const zqhostile::Export zqhostile_chunk3[];
extern const zqhostile::Export zqhostile_chunk4[];
extern const zqhostile::Export zqhostile_chunk5[];
extern const zqhostile::Skipped zqhostile_skipped[];
