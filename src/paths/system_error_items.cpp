#include "paths/system_error_items.h"

#include "platform/platform.h"

namespace zqsysq {

zqerr::ReportWriter openObject(zqerr::ReportWriter w, const char* key) {
  w = zqerr::writeObject(w, key);
  if (w) --w.cursor;
  return w;
}

zqerr::ReportWriter closeObject(zqerr::ReportWriter w) {
  if (w) ++w.cursor;
  return w;
}

zqerr::ReportWriter writeWin32Error(zqerr::ReportWriter w, uint32_t code) {
  char text[1024];
  size_t length = zqplatform::systemErrorText(code, text, sizeof text);
  w = openObject(w, "internal_error");
  w = zqerr::writeString(w, "api", "win32");
  w = zqerr::writeUint32(w, "code", code);
  if (length > 0) w = zqerr::writeString(w, "string", {text, length});
  return closeObject(w);
}

}  // namespace zqsysq
