#include "translator/qxl_wrapper.h"

#include <exception>
#include <string_view>

#include "status/error_sites.h"
#include "status/exceptions.h"
#include "text/sstutf8.h"
#include "translator/json1.h"
#include "translator/languages.h"
#include "translator/session.h"

namespace zqqxl {

namespace {

using zqxlator::kLanguageEncodingFlag;
using zqxlator::kNestedFlag;
using zqxlator::kStaticFlag;

void clearAttempt(zqhtl::String* text, zqerr_Status* status) {
  text->clear();
  zqerr::clearReport(status);
}

// The last rung: the code alone, as if the caller had given nothing but the number.
void formatBareCode(zqxlator::Session* session, zqxlator::Formatter formatter, int32_t code, uint32_t languageAndAde,
                    zqhtl::String* text, zqerr_Status* status) {
  zqerr::Status bare;
  zqerr::SourceLocation location = zqsite::kQxlateStatusIn.location;
  location.errorConstant = "statusin.code";
  zqerr::setWithLocation(&bare, code, location);
  formatter(session, bare, languageAndAde, kStaticFlag, text, status);
}

// The text in the language's encoding.
void toLanguageEncoding(const zqhtl::String& text, uint32_t languageAndAde, zqhtl::String* out, zqerr_Status* status) {
  zqerr::Status ignored;
  const uint32_t encoding = zqxlator::languageEncoding(zqxlator::languageOf(languageAndAde), &ignored);
  out->clear();
  zqsstutf8::StringSink sink(out);
  int32_t result = zqsstutf8::utf8ToMbs(text.c_str(), encoding, sink);
  if (result != 0) zqxlator::failConversion(result, status);
}

// A failure that outlived the ladder ends the text, behind an empty line if there is text.
void appendFailure(zqhtl::String* out, const zqerr_Status& status) {
  zqerr::Status own;
  if (!out->empty()) out->append(std::string_view("\n\n"), &own);
  if (status.report) out->append(std::string_view(status.report), &own);
}

}  // namespace

QxlWrapper::QxlWrapper(zqerr_Status* status) : session_(zqxlator::Session::create(status)) {}

QxlWrapper::~QxlWrapper() { delete session_; }

void QxlWrapper::translate(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                           zqxlator::Formatter formatter, zqhtl::String* out, zqerr_Status* status) {
  if (input.code == 0 || !session_ || !zqerr::isOpen(status)) return;
  zqhtl::String text;
  formatter(session_, input, languageAndAde, flags, &text, status);
  if (!zqerr::isOpen(status) && (flags & kNestedFlag)) {
    clearAttempt(&text, status);
    formatter(session_, input, languageAndAde, flags & ~uint32_t{kNestedFlag}, &text, status);
  }
  if (!zqerr::isOpen(status) && (flags & kStaticFlag)) {
    clearAttempt(&text, status);
    formatter(session_, input, languageAndAde, kStaticFlag, &text, status);
  }
  if (!zqerr::isOpen(status) && (flags & kStaticFlag)) {
    clearAttempt(&text, status);
    formatBareCode(session_, formatter, input.code, languageAndAde, &text, status);
  }
  zqerr::Status copy;
  if (flags & kLanguageEncodingFlag)
    toLanguageEncoding(text, languageAndAde, out, zqerr::isOpen(status) ? status : &copy);
  else
    out->assign(text.view(), &copy);
  if (!zqerr::isOpen(status)) appendFailure(out, *status);
}

void QxlWrapper::translateToRaw(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                zqhtl::String* out, zqerr_Status* status) {
  translate(input, languageAndAde, flags, &zqxlator::json1::translateErrStatusToRawText, out, status);
}

void QxlWrapper::translateToString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                   zqxlator::Formatter formatter, std::string* text) {
  zqerr::Status own;
  zqhtl::String out;
  translate(input, languageAndAde, flags, formatter, &out, &own);
  text->assign(out.view());
  if (!zqerr::isOpen(&own) && std::uncaught_exceptions() == 0) throw zqerr::Exception(&own);
}

void QxlWrapper::translateToRawString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                      std::string* text) {
  translateToString(input, languageAndAde, flags, &zqxlator::json1::translateErrStatusToRawText, text);
}

ThreadSafeQxlWrapper::ThreadSafeQxlWrapper(zqerr_Status* status)
    : initialised_(zqerr::isOpen(status)), inner_(status) {}

void ThreadSafeQxlWrapper::noOperation1(uint64_t value) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.noOperation1(value);
}

uint32_t ThreadSafeQxlWrapper::passCode1(uint32_t code) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  return inner_.passCode1(code);
}

void ThreadSafeQxlWrapper::noOperation2(uint64_t value) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.noOperation2(value);
}

uint32_t ThreadSafeQxlWrapper::passCode2(uint32_t code) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  return inner_.passCode2(code);
}

void ThreadSafeQxlWrapper::translateToString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                             zqxlator::Formatter formatter, std::string* text) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.translateToString(input, languageAndAde, flags, formatter, text);
}

void ThreadSafeQxlWrapper::translateToRawString(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                                std::string* text) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.translateToRawString(input, languageAndAde, flags, text);
}

void ThreadSafeQxlWrapper::translate(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                     zqxlator::Formatter formatter, zqhtl::String* out, zqerr_Status* status) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.translate(input, languageAndAde, flags, formatter, out, status);
}

void ThreadSafeQxlWrapper::translateToRaw(const zqerr_Status& input, uint32_t languageAndAde, uint32_t flags,
                                          zqhtl::String* out, zqerr_Status* status) {
  std::lock_guard<zqplatform::CriticalSection> hold(lock_);
  inner_.translateToRaw(input, languageAndAde, flags, out, status);
}

}  // namespace zqqxl
