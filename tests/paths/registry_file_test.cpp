// The reader of .reg files that serves as the registry on Linux: the forms of a file that the
// registry and shared-folder tests, which read through it there, never write.
#include "registry_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace std::string_literals;
using zqplatform::regfile::readKey;

constexpr const char* kKey = "HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer";
const std::string kHeader = "Windows Registry Editor Version 5.00\r\n\r\n";
const std::string kSection = "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer]\r\n";

std::vector<uint8_t> utf16(const std::u16string& text) {
  std::vector<uint8_t> bytes;
  for (char16_t unit : text + u'\0') {
    bytes.push_back(static_cast<uint8_t>(unit & 0xFF));
    bytes.push_back(static_cast<uint8_t>(unit >> 8));
  }
  return bytes;
}

struct Expected {
  std::string name;
  uint32_t type;
  std::vector<uint8_t> data;
  bool operator==(const zqplatform::regfile::Value& v) const { return name == v.name && type == v.type && data == v.data; }
};

struct FileCase {
  const char* label;
  std::string text;
  bool exists;
  std::vector<Expected> values;
};

class RegistryFile : public testing::TestWithParam<FileCase> {};

TEST_P(RegistryFile, LeavesTheKeyAsAnImportWould) {
  const FileCase& c = GetParam();
  zqplatform::regfile::Key key = readKey(c.text, kKey);
  EXPECT_EQ(key.exists, c.exists);
  ASSERT_EQ(key.values.size(), c.values.size());
  for (size_t i = 0; i < c.values.size(); ++i) EXPECT_TRUE(c.values[i] == key.values[i]) << c.values[i].name;
}

std::string utf16File(const std::u16string& text) {
  std::string bytes = "\xFF\xFE";
  for (char16_t unit : text) {
    bytes.push_back(static_cast<char>(unit & 0xFF));
    bytes.push_back(static_cast<char>(unit >> 8));
  }
  return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Files, RegistryFile,
    testing::Values(
        FileCase{"EscapesInNameAndValue", kHeader + kSection + "\"a\\\"b\\\\\"=\"say \\\"hi\\\" \\n\"\n", true,
                 {{"a\"b\\", 1, utf16(u"say \"hi\" \\n")}}},  // other backslashes stand for themselves
        FileCase{"DefaultValueAndSpacesAroundTheSign", kHeader + kSection + "@ = \"d\"\n", true, {{"", 1, utf16(u"d")}}},
        FileCase{"Dword", kHeader + kSection + "\"n\"=dword:0000001f\n", true, {{"n", 4, {0x1f, 0, 0, 0}}}},
        FileCase{"HexWithContinuationLines",
                 kHeader + kSection + "\"x\"=hex(2):25,00,41,\\\r\n  00,00,\\\n  00\r\n\"y\"=hex:\n\"q\"=hex(b):01,02,03,04,05,06,07,08\n",
                 true,
                 {{"x", 2, {0x25, 0, 0x41, 0, 0, 0}}, {"y", 3, {}}, {"q", 11, {1, 2, 3, 4, 5, 6, 7, 8}}}},
        FileCase{"LaterValueReplacesEarlierAndNamesIgnoreCase",
                 kHeader + kSection + "\"Dir\"=\"one\"\n[hkey_local_machine\\software\\torvane\\common\\INSTALLER]\n\"DIR\"=\"two\"\n",
                 true, {{"DIR", 1, utf16(u"two")}}},
        FileCase{"ValueDeleted", kHeader + kSection + "\"a\"=\"1\"\n\"b\"=\"2\"\n\"a\"=-\n", true, {{"b", 1, utf16(u"2")}}},
        FileCase{"KeyDeletedByAnAncestor", kHeader + kSection + "\"a\"=\"1\"\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane]\n", false, {}},
        FileCase{"KeyDeletedAndMadeAgain",
                 kHeader + kSection + "\"a\"=\"1\"\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer]\n" + kSection + "\"b\"=\"2\"\n",
                 true, {{"b", 1, utf16(u"2")}}},
        FileCase{"DeletingASiblingLeavesTheKey", kHeader + kSection + "\"a\"=\"1\"\n[-HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer2]\n",
                 true, {{"a", 1, utf16(u"1")}}},
        FileCase{"ASiblingWithALongerNameIsNotBelow",
                 kHeader + "[HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\InstallerX]\n\"a\"=\"1\"\n", false, {}},
        FileCase{"ValuesOfOtherKeysStayThere",
                 kHeader + kSection + "\"a\"=\"1\"\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Other]\n\"b\"=\"2\"\n", true, {{"a", 1, utf16(u"1")}}},
        FileCase{"BadLinesAreSkipped",
                 kHeader + kSection + "; a comment\n\"a\"=dword:xyz\n\"b\"=\"unterminated\nnonsense\n\"c\"=hex:1,zz\n\"d\"=dword:123456789\n\"e\"=\"ok\"\n[broken\n\"f\"=\"after a broken section\"\n",
                 true, {{"e", 1, utf16(u"ok")}}},
        FileCase{"NoHeaderNoKeys", kSection + "\"a\"=\"1\"\n", false, {}},
        FileCase{"OlderHeader", "REGEDIT4\n\n" + kSection + "\"a\"=\"1\"\n", true, {{"a", 1, utf16(u"1")}}},
        FileCase{"Utf8WithByteOrderMark", "\xEF\xBB\xBF" + kHeader + kSection + "\"a\"=\"D\xC3\xA4t\xC3\xA4\"\n", true,
                 {{"a", 1, utf16(u"D\u00e4t\u00e4")}}},
        FileCase{"Utf16AsRegeditExportsIt",
                 utf16File(u"Windows Registry Editor Version 5.00\r\n\r\n[HKEY_LOCAL_MACHINE\\SOFTWARE\\Torvane\\Common\\Installer]\r\n\"a\"=\"\u65e5\"\r\n"),
                 true, {{"a", 1, utf16(u"\u65e5")}}},
        FileCase{"EmptyText", "", false, {}},
        FileCase{"ZerosInTheText", kHeader + kSection + "\"a\"=\"x\0y\"\n"s, true, {{"a", 1, {'x', 0, 0, 0, 'y', 0, 0, 0}}}}),
    [](const auto& info) { return std::string(info.param.label); });

}  // namespace
