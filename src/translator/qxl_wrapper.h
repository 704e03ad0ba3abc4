// The translator wrapper: the one object through which a status becomes text. It owns the
// translator session and runs the retry ladder, so that a failure to translate still gives
// the caller what the last attempt made. The composition root makes the locking form, whose
// critical section serialises every translation of the process, library loading and file
// reading included.
#pragma once

#include <cstdint>
#include <mutex>
#include <string>

#include "platform/platform.h"
#include "status/status.h"
#include "text/basic_string.h"
#include "translator/translation.h"

namespace zqqxl {

class QxlWrapperInterface {
 public:
  virtual ~QxlWrapperInterface() = default;
  // Operations that no caller uses; they keep their places in the interface.
  virtual void noOperation1(uint64_t value) = 0;
  virtual uint32_t passCode1(uint32_t code) = 0;
  virtual void noOperation2(uint64_t value) = 0;
  virtual uint32_t passCode2(uint32_t code) = 0;
  // The ladder on a private status; a failure is thrown as zqerr::Exception unless an
  // exception is already in flight.
  virtual void translateToString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                 zqxlator::Formatter formatter, std::string* text) = 0;
  virtual void translateToRawString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                    std::string* text) = 0;
  // The ladder: the text into `out`; a failure that survives every attempt stays in `status`
  // and its report ends the text.
  virtual void translate(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                         zqxlator::Formatter formatter, zqhtl::String* out, zqerr_Status* status) = 0;
  virtual void translateToRaw(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags, zqhtl::String* out,
                              zqerr_Status* status) = 0;
};

class QxlWrapper final : public QxlWrapperInterface {
 public:
  explicit QxlWrapper(zqerr_Status* status);
  ~QxlWrapper() override;
  QxlWrapper(const QxlWrapper&) = delete;
  QxlWrapper& operator=(const QxlWrapper&) = delete;

  void noOperation1(uint64_t) override {}
  uint32_t passCode1(uint32_t code) override { return code; }
  void noOperation2(uint64_t) override {}
  uint32_t passCode2(uint32_t code) override { return code; }
  void translateToString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                         zqxlator::Formatter formatter, std::string* text) override;
  void translateToRawString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                            std::string* text) override;
  void translate(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags, zqxlator::Formatter formatter,
                 zqhtl::String* out, zqerr_Status* status) override;
  void translateToRaw(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags, zqhtl::String* out,
                      zqerr_Status* status) override;

  zqxlator::Session* session() const { return session_; }

 private:
  zqxlator::Session* session_;
};

// Every operation inside one critical section, left also when an exception passes.
class ThreadSafeQxlWrapper final : public QxlWrapperInterface {
 public:
  explicit ThreadSafeQxlWrapper(zqerr_Status* status);

  void noOperation1(uint64_t value) override;
  uint32_t passCode1(uint32_t code) override;
  void noOperation2(uint64_t value) override;
  uint32_t passCode2(uint32_t code) override;
  void translateToString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                         zqxlator::Formatter formatter, std::string* text) override;
  void translateToRawString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                            std::string* text) override;
  void translate(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags, zqxlator::Formatter formatter,
                 zqhtl::String* out, zqerr_Status* status) override;
  void translateToRaw(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags, zqhtl::String* out,
                      zqerr_Status* status) override;

  bool initialised() const { return initialised_; }

  // Runs `fn` on the session under the lock, for callers that look at the session itself.
  template <class Fn>
  void withSession(Fn fn) {
    std::lock_guard<zqplatform::CriticalSection> hold(lock_);
    fn(inner_.session());
  }

 private:
  zqplatform::CriticalSection lock_;
  bool initialised_;
  QxlWrapper inner_;
};

}  // namespace zqqxl
