#include "toggles/toggle_source.h"

#include <cstring>

#include "platform/platform.h"
#include "toggles/system_error_status.h"

namespace runtime_toggles {

namespace {

constexpr const char16_t* kValueName = u"Value";

// The key guard: the key is closed on every path.
class OpenKey {
 public:
  OpenKey() = default;
  ~OpenKey() {
    if (key_) zqplatform::regCloseKey(key_);
  }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;
  zqplatform::RegistryKey* out() { return &key_; }
  zqplatform::RegistryKey get() const { return key_; }

 private:
  zqplatform::RegistryKey key_ = 0;
};

bool toWide(const std::string& key, std::u16string* wide, zqerr::FixedStatus* status) {
  wide->assign(kToggleKeySize, u'\0');
  int n = zqplatform::multiByteToWide(zqplatform::kCpUtf8, zqplatform::kMbErrInvalidChars, key.c_str(), -1,
                                      wide->data(), static_cast<int>(kToggleKeySize));
  if (n == 0) setSystemErrorStatus(zqplatform::lastError(), status);
  return status->code >= 0;
}

char16_t lowerAscii(char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c; }

}  // namespace

bool toggleKeyText(const char* company, const char* product, const char* name, std::string* key) {
  *key = "SOFTWARE\\WOW6432Node\\";
  *key += company;
  *key += "\\SystemSettings\\";
  *key += product;
  *key += name;
  return key->size() < kToggleKeySize;
}

void readToggleValue(const std::string& key, char16_t* buffer, size_t units, zqerr::FixedStatus* status) {
  std::memset(buffer, 0, units * sizeof(char16_t));
  if (status->code < 0) return;
  std::u16string wide;
  if (!toWide(key, &wide, status)) return;
  OpenKey open;
  uint32_t result = zqplatform::regOpenKey(zqplatform::kHkeyLocalMachine, wide.c_str(), zqplatform::kKeyRead,
                                           open.out());
  if (result != zqplatform::kErrorSuccess) {
    setSystemErrorStatus(result, status);
    return;
  }
  auto size = static_cast<uint32_t>(units * sizeof(char16_t));
  result = zqplatform::regQueryValue(open.get(), kValueName, nullptr, buffer, &size);
  setSystemErrorStatus(result, status);
}

bool isTrueText(const char16_t* buffer, size_t units) {
  static constexpr char16_t kTrue[] = u"true";
  size_t i = 0;
  for (; i < units && buffer[i]; ++i)
    if (i >= 4 || lowerAscii(buffer[i]) != kTrue[i]) return false;
  return i == 4;
}

}  // namespace runtime_toggles
