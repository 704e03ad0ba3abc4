// The command line of zqstorage: a command word, its operands and its --options.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace zqstorage::cli {

// A mistake in the command line: exit code 2.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Arguments {
 public:
  // Options of the form --name VALUE (named in `valued`) or --name; everything else in order.
  Arguments(int argc, char** argv, const std::vector<std::string>& valued);

  const std::string& command() const { return command_; }
  size_t operandCount() const { return operands_.size(); }
  const std::string& operand(size_t index, const char* what) const;
  std::optional<std::string> option(const std::string& name) const;
  bool flag(const std::string& name) const;
  // Refuses operands beyond `count` and options not in `known`.
  void expect(size_t minOperands, size_t maxOperands, const std::vector<std::string>& known) const;

 private:
  std::string command_;
  std::vector<std::string> operands_;
  std::map<std::string, std::string> options_;
};

// A decimal or 0x-hexadecimal number that fits in 32 bits.
uint32_t parseNumber(const std::string& text, const char* what);

}  // namespace zqstorage::cli
