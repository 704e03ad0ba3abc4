#include "options.h"

#include <cmath>
#include <cstdlib>

#include "failure.h"

namespace zqacq {

Options::Options(int argc, char** argv, int first, const std::set<std::string>& valued,
                 const std::set<std::string>& flags) {
  for (int i = first; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg.rfind("--", 0) != 0 || arg.size() == 2) {
      operands_.push_back(arg);
      continue;
    }
    const std::string name = arg.substr(2);
    if (flags.count(name)) {
      flags_.insert(name);
    } else if (valued.count(name)) {
      if (i + 1 >= argc) throw UsageError("--" + name + " needs a value");
      values_[name] = argv[++i];
    } else {
      throw UsageError("unknown option --" + name);
    }
  }
}

const std::string& Options::operand(const char* what) const {
  if (operands_.size() != 1) throw UsageError(std::string("expected ") + what);
  return operands_.front();
}

std::string Options::text(const std::string& name, const std::string& fallback) const {
  const auto it = values_.find(name);
  return it == values_.end() ? fallback : it->second;
}

double parseNumber(const std::string& text, const std::string& what) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  if (end == text.c_str() || *end != '\0' || !std::isfinite(value))
    throw UsageError(what + " needs a number, not \"" + text + "\"");
  return value;
}

double Options::number(const std::string& name, double fallback) const {
  const auto it = values_.find(name);
  return it == values_.end() ? fallback : parseNumber(it->second, "--" + name);
}

unsigned long Options::count(const std::string& name, unsigned long fallback) const {
  const double value = number(name, static_cast<double>(fallback));
  if (value < 1 || value > 2147483647.0 || value != std::floor(value))
    throw UsageError("--" + name + " needs a whole number from 1 to 2147483647");
  return static_cast<unsigned long>(value);
}

}  // namespace zqacq
