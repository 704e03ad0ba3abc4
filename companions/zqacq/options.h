// The command line: a command, its operands, and --name value options (or bare flags), each
// command saying which it takes so that a misspelt option is an error, not a silent default.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

namespace zqacq {

// A finite number written whole, or a UsageError that names what it was for.
double parseNumber(const std::string& text, const std::string& what);

class Options {
 public:
  // Parses argv[first...]; valued and flag name the options the command takes.
  Options(int argc, char** argv, int first, const std::set<std::string>& valued, const std::set<std::string>& flags);

  const std::vector<std::string>& operands() const { return operands_; }
  // The one operand the command needs, or a UsageError naming it.
  const std::string& operand(const char* what) const;

  bool flag(const std::string& name) const { return flags_.count(name) != 0; }
  bool has(const std::string& name) const { return values_.count(name) != 0; }
  std::string text(const std::string& name, const std::string& fallback) const;
  double number(const std::string& name, double fallback) const;
  // A positive count; more than a 32-bit read takes is refused.
  unsigned long count(const std::string& name, unsigned long fallback) const;

 private:
  std::vector<std::string> operands_;
  std::map<std::string, std::string> values_;
  std::set<std::string> flags_;
};

}  // namespace zqacq
