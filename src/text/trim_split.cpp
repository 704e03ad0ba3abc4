#include "text/trim_split.h"

#include <exception>

namespace zqwombat {

namespace {

// The trimmed part of `text` as [first, last).
void trimmedBounds(std::string_view text, size_t* first, size_t* last) {
  size_t b = 0, e = text.size();
  while (b < e && isWhite(static_cast<unsigned char>(text[b]))) ++b;
  while (e > b && isWhite(static_cast<unsigned char>(text[e - 1]))) --e;
  *first = b;
  *last = e;
}

bool assignTo(std::string* out, std::string_view text, zqhtl::err::StatusRef status) {
  try {
    out->assign(text);
    return true;
  } catch (const std::exception&) {
    status.memoryFull();
    return false;
  }
}

bool assignTo(zqhtl::String* out, std::string_view text, zqhtl::err::StatusRef status) {
  return out->assign(text, status);
}

template <typename Out>
void splitInto(std::string_view text, Out* device, Out* channel, zqhtl::err::StatusRef status, size_t start) {
  if (!status.isOpen()) return;
  std::string_view rest = start < text.size() ? text.substr(start) : std::string_view();
  size_t slash = rest.find('/');
  if (slash == std::string_view::npos) {
    if (assignTo(device, rest, status)) assignTo(channel, {}, status);
    return;
  }
  if (assignTo(device, rest.substr(0, slash), status)) assignTo(channel, rest.substr(slash + 1), status);
}

}  // namespace

void trimText(std::string* text, zqhtl::err::StatusRef status) {
  if (!status.isOpen() || text->empty()) return;
  size_t first, last;
  trimmedBounds(*text, &first, &last);
  text->erase(last);
  text->erase(0, first);
}

void trimText(zqhtl::String* text, zqhtl::err::StatusRef status) {
  if (!status.isOpen() || text->empty()) return;
  size_t first, last;
  trimmedBounds(text->view(), &first, &last);
  text->erase(last);
  text->erase(0, first);
}

void splitDeviceAndChannel(std::string_view text, std::string* device, std::string* channel,
                           zqhtl::err::StatusRef status, size_t start) {
  splitInto(text, device, channel, status, start);
}

void splitDeviceAndChannel(std::string_view text, zqhtl::String* device, zqhtl::String* channel,
                           zqhtl::err::StatusRef status, size_t start) {
  splitInto(text, device, channel, status, start);
}

}  // namespace zqwombat
