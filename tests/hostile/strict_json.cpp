#include "strict_json.h"

#include <cstddef>

namespace zqhostile {

namespace {

class Checker {
 public:
  explicit Checker(std::string_view text) : text_(text) {}

  bool document() {
    if (!value(0)) return false;
    space();
    return at_ == text_.size();
  }

 private:
  // Deeper nesting than any report has is refused rather than recursed into.
  static constexpr int kMaxDepth = 64;

  bool value(int depth) {
    space();
    if (at_ >= text_.size() || depth > kMaxDepth) return false;
    switch (text_[at_]) {
      case '{': return object(depth);
      case '[': return array(depth);
      case '"': return string();
      case 't': return word("true");
      case 'f': return word("false");
      case 'n': return word("null");
      default: return number();
    }
  }
  bool object(int depth) {
    ++at_;
    space();
    if (take('}')) return true;
    do {
      space();
      if (!string()) return false;
      space();
      if (!take(':') || !value(depth + 1)) return false;
      space();
    } while (take(','));
    return take('}');
  }
  bool array(int depth) {
    ++at_;
    space();
    if (take(']')) return true;
    do {
      if (!value(depth + 1)) return false;
      space();
    } while (take(','));
    return take(']');
  }
  bool string() {
    if (!take('"')) return false;
    while (at_ < text_.size()) {
      const unsigned char c = static_cast<unsigned char>(text_[at_++]);
      if (c == '"') return true;
      if (c < 0x20) return false;
      if (c == '\\' && !escape()) return false;
    }
    return false;
  }
  bool escape() {
    if (at_ >= text_.size()) return false;
    const char c = text_[at_++];
    if (c != 'u') return std::string_view("\"\\/bfnrt").find(c) != std::string_view::npos;
    for (int i = 0; i < 4; ++i, ++at_)
      if (at_ >= text_.size() || !isHex(text_[at_])) return false;
    return true;
  }
  bool number() {
    take('-');
    if (take('0')) {
    } else if (!digits()) {
      return false;
    }
    if (take('.') && !digits()) return false;
    if (take('e') || take('E')) {
      if (!take('+')) take('-');
      if (!digits()) return false;
    }
    return true;
  }
  bool digits() {
    const size_t start = at_;
    while (at_ < text_.size() && text_[at_] >= '0' && text_[at_] <= '9') ++at_;
    return at_ > start;
  }
  bool word(std::string_view w) {
    if (text_.substr(at_, w.size()) != w) return false;
    at_ += w.size();
    return true;
  }
  bool take(char c) {
    if (at_ < text_.size() && text_[at_] == c) {
      ++at_;
      return true;
    }
    return false;
  }
  void space() {
    while (at_ < text_.size() && (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\n' || text_[at_] == '\r'))
      ++at_;
  }
  static bool isHex(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

  std::string_view text_;
  size_t at_ = 0;
};

}  // namespace

bool isStrictJson(std::string_view text) { return Checker(text).document(); }

}  // namespace zqhostile
