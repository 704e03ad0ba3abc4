#include "arguments.h"

#include <algorithm>

#include "ini_values.h"

namespace zqstorage::cli {

Arguments::Arguments(int argc, char** argv, const std::vector<std::string>& valued) {
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (word.size() > 2 && word.compare(0, 2, "--") == 0) {
      const std::string name = word.substr(2);
      const bool takesValue = std::find(valued.begin(), valued.end(), name) != valued.end();
      if (!takesValue) {
        options_[name] = "";
      } else if (i + 1 < argc) {
        options_[name] = argv[++i];
      } else {
        throw UsageError("option --" + name + " needs a value");
      }
    } else if (command_.empty()) {
      command_ = word;
    } else {
      operands_.push_back(word);
    }
  }
}

const std::string& Arguments::operand(size_t index, const char* what) const {
  if (index >= operands_.size()) throw UsageError(command_ + ": " + what + " is missing");
  return operands_[index];
}

std::optional<std::string> Arguments::option(const std::string& name) const {
  auto it = options_.find(name);
  if (it == options_.end()) return std::nullopt;
  return it->second;
}

bool Arguments::flag(const std::string& name) const { return options_.count(name) != 0; }

void Arguments::expect(size_t minOperands, size_t maxOperands, const std::vector<std::string>& known) const {
  if (operands_.size() < minOperands) throw UsageError(command_ + ": too few arguments");
  if (operands_.size() > maxOperands) throw UsageError(command_ + ": unexpected argument \"" + operands_[maxOperands] + "\"");
  for (const auto& [name, value] : options_) {
    if (name != "store" && std::find(known.begin(), known.end(), name) == known.end()) {
      throw UsageError(command_ + ": unknown option --" + name);
    }
  }
}

uint32_t parseNumber(const std::string& text, const char* what) {
  const auto value = ini::parseInteger(text);
  if (!value || *value < 0 || *value > 0xFFFFFFFFll) {
    throw UsageError(std::string(what) + " must be a number from 0 to 4294967295, not \"" + text + "\"");
  }
  return static_cast<uint32_t>(*value);
}

}  // namespace zqstorage::cli
