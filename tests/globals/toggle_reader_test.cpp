#include "globals/toggle_store_reader.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "scratch_registry.h"

namespace {

struct ReaderCase {
  std::optional<std::string> value;  // none: no key
  bool defaultValue;
  bool expected;
};

// The selector's reader gives the store's answer, and the default where the store has none.
TEST(ToggleReader, AnswersTheStoreOrTheDefault) {
  const ReaderCase cases[] = {
      {std::nullopt, true, true}, {std::nullopt, false, false}, {"False", true, false},
      {"TRUE", false, true},      {"TrueTrue", true, true},
  };
  for (const ReaderCase& c : cases) {
    SCOPED_TRACE(c.value.value_or("<no key>") + (c.defaultValue ? ", default true" : ", default false"));
    zqtest::ScratchRegistry registry(zqtest::ScratchRegistry::Scope::kPrivate);
    if (c.value)
      registry.setString(zqtest::ScratchRegistry::View::k64,
                         "SOFTWARE\\WOW6432Node\\Torvane\\SystemSettings\\zqvorexDebugSession", "Value", *c.value);
    zqerr::FixedStatus built = zqerr::makeFixedStatus();
    auto settings = std::make_shared<nZQCAI100::FeatureToggles>(&built);
    nZQCAI100::ToggleReader reader(nZQCAI100::togglesOf(settings));
    const std::string text = "DebugSessionX";  // the view ends before the text does
    EXPECT_EQ(reader.readToggle(std::string_view(text.data(), 12), c.defaultValue), c.expected);
  }
}

}  // namespace
