// A test with a translator library in the system folder (the stand-in of fixtures/, unless a
// test installs another) and explanation files of its own, and what it needs to look inside.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "installation.h"
#include "paths/system_paths.h"
#include "platform/platform.h"
#include "status/status.h"

namespace zqtest {

// A status given by its code and its report's text, as a formatter receives it.
struct Input {
  Input(int32_t code, const std::string& report) {
    status.code = code;
    zqerr::growReport(&status, static_cast<uint32_t>(report.size() + 2));
    std::memcpy(status.report, report.c_str(), report.size() + 1);
  }
  zqerr::Status status;
};

class TranslatorTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(library_.clear()) << "a translator library stays in the system folder";
    library_.install(ZQ_TEST_FAKE_XLATOR);
  }

  // A counter of the stand-in library, read through the library the session loaded (or a
  // fresh load of it, whose counters start at 0).
  static int fakeCounter(const char* name) {
    zqplatform::LibraryHandle library = zqplatform::loadLibrary(libraryPath().c_str(), 0);
    if (!library) return -1;
    auto counter = reinterpret_cast<int (*)()>(zqplatform::findSymbol(library, name));
    int value = counter ? counter() : -1;
    zqplatform::freeLibrary(library);
    return value;
  }

  // The translator library's path as the session builds it.
  static std::string libraryPath() {
    zqerr::Status status;
    std::u16string wide;
    zqsysq::getSystemFolder(&wide, &status);
    std::string folder;
    zqsysq::folderToUtf8(wide, &folder);
    zqsysq::trimFolderText(folder);
    return folder + "\\zqxlator";
  }

  TranslatorFolder library_;
  ExplanationFolders folders_{"translator"};
};

}  // namespace zqtest
