// A toggle's registry value as a test writes it, in the key the toggles read.
#pragma once

#include <string>

#include "scratch_registry.h"

namespace zqtest {

inline std::string toggleKey(const std::string& name) {
  return "SOFTWARE\\WOW6432Node\\Torvane\\SystemSettings\\zqvorex" + name;
}

inline void setToggleValue(ScratchRegistry& registry, const std::string& name, const std::string& value) {
  registry.setString(ScratchRegistry::View::k64, toggleKey(name), "Value", value);
}

}  // namespace zqtest
