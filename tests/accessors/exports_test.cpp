// The shared library exports a Get, Set or Reset of an attribute exactly where the catalogue's
// verbs have its capital letter: a lower-case letter is an accessor without an export, and a
// missing letter none at all.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "case_helpers.h"
#include "platform/platform.h"

namespace {

using namespace zqtest;

class LoadedLibrary : public testing::Test {
 protected:
  static void SetUpTestSuite() { library = zqplatform::loadLibrary(ZQ_LIBRARY_FILE, 0); }
  static void TearDownTestSuite() {
    if (library) zqplatform::freeLibrary(library);
    library = nullptr;
  }
  static zqplatform::LibraryHandle library;
};
zqplatform::LibraryHandle LoadedLibrary::library = nullptr;

TEST_F(LoadedLibrary, ExportsExactlyTheCapitalVerbs) {
  ASSERT_NE(library, nullptr) << ZQ_LIBRARY_FILE << " must be beside the test program";
  for (const CaseInfo& info : allCases()) {
    for (const Verb& verb : kVerbs) {
      const std::string name = functionName(verb.name, info);
      const bool exported = std::strchr(info.verbs, verb.letter) != nullptr;
      EXPECT_EQ(zqplatform::findSymbol(library, name.c_str()) != nullptr, exported) << name;
    }
  }
}

}  // namespace
