#include "device_model.h"

#include "text_util.h"

namespace zqsim {

namespace {

// "ai3" or "ai3:5" after the prefix: the numbers in the order written.
std::optional<std::vector<uint32_t>> numberRange(std::string_view text, std::string_view prefix) {
  if (!startsWithNoCase(text, prefix)) return std::nullopt;
  text.remove_prefix(prefix.size());
  const size_t colon = text.find(':');
  const auto first = parseUnsigned(text.substr(0, colon));
  auto last = first;
  if (colon != std::string_view::npos) last = parseUnsigned(text.substr(colon + 1));
  if (!first || !last || *first > 0xFFFF || *last > 0xFFFF) return std::nullopt;
  std::vector<uint32_t> numbers;
  const int64_t step = *last >= *first ? 1 : -1;
  for (int64_t n = static_cast<int64_t>(*first);; n += step) {
    numbers.push_back(static_cast<uint32_t>(n));
    if (n == static_cast<int64_t>(*last)) break;
  }
  return numbers;
}

bool parseEntry(std::string_view entry, std::vector<PhysicalName>& out, NameError* error) {
  error->entry = std::string(entry);
  std::string_view rest = entry;
  if (!rest.empty() && rest.front() == '/') rest.remove_prefix(1);
  const size_t slash = rest.find('/');
  if (slash == std::string_view::npos || slash == 0) return false;
  const std::string device(rest.substr(0, slash));
  rest.remove_prefix(slash + 1);
  const auto add = [&](PhysicalName::Kind kind, uint32_t limit, std::string_view prefix) {
    const auto numbers = numberRange(rest, prefix);
    if (!numbers) return false;
    for (uint32_t n : *numbers) {
      if (n >= limit) {
        error->tooHigh = true;
        return false;
      }
      PhysicalName name;
      name.device = device;
      name.kind = kind;
      name.index = n;
      out.push_back(name);
    }
    return true;
  };
  if (startsWithNoCase(rest, "ai"))
    return add(PhysicalName::Kind::kAnalogInput, DeviceModel::kAnalogInputs, "ai");
  if (startsWithNoCase(rest, "ao"))
    return add(PhysicalName::Kind::kAnalogOutput, DeviceModel::kAnalogOutputs, "ao");
  if (startsWithNoCase(rest, "ctr")) return add(PhysicalName::Kind::kCounter, DeviceModel::kCounters, "ctr");
  if (!startsWithNoCase(rest, "port")) return false;
  const size_t lineSlash = rest.find('/');
  const auto ports = numberRange(rest.substr(0, lineSlash), "port");
  if (!ports) return false;
  std::vector<uint32_t> lines;
  if (lineSlash != std::string_view::npos) {
    const auto named = numberRange(rest.substr(lineSlash + 1), "line");
    if (!named || ports->size() != 1) return false;
    lines = *named;
  } else {
    for (uint32_t l = 0; l < DeviceModel::kLinesPerPort; ++l) lines.push_back(l);
  }
  for (uint32_t port : *ports) {
    for (uint32_t line : lines) {
      if (port >= DeviceModel::kPorts || line >= DeviceModel::kLinesPerPort) {
        error->tooHigh = true;
        return false;
      }
      PhysicalName name;
      name.device = device;
      name.kind = PhysicalName::Kind::kLine;
      name.index = port;
      name.line = line;
      name.wholePort = lineSlash == std::string_view::npos;
      out.push_back(name);
    }
  }
  return true;
}

}  // namespace

uint32_t counterOutputPfi(uint32_t counter) { return 12 + counter; }
uint32_t counterInputPfi(uint32_t counter) { return 8 + counter; }
uint32_t counterSecondInputPfi(uint32_t counter) { return 4 + counter; }

std::string PhysicalName::text() const {
  switch (kind) {
    case Kind::kAnalogInput:
      return device + "/ai" + std::to_string(index);
    case Kind::kAnalogOutput:
      return device + "/ao" + std::to_string(index);
    case Kind::kCounter:
      return device + "/ctr" + std::to_string(index);
    case Kind::kLine:
      break;
  }
  return device + "/port" + std::to_string(index) + "/line" + std::to_string(line);
}

std::optional<std::vector<PhysicalName>> parsePhysicalList(std::string_view list, NameError* error) {
  std::vector<PhysicalName> names;
  const std::vector<std::string> entries = splitList(list);
  if (entries.empty()) {
    error->entry = std::string(list);
    return std::nullopt;
  }
  for (const std::string& entry : entries)
    if (!parseEntry(entry, names, error)) return std::nullopt;
  return names;
}

std::optional<Terminal> parseTerminal(std::string_view text) {
  text = trim(text);
  Terminal terminal;
  if (!text.empty() && text.front() == '/') {
    text.remove_prefix(1);
    const size_t slash = text.find('/');
    if (slash == std::string_view::npos || slash == 0) return std::nullopt;
    terminal.device = std::string(text.substr(0, slash));
    text.remove_prefix(slash + 1);
  }
  if (text.empty()) return std::nullopt;
  if (startsWithNoCase(text, "pfi")) {
    const auto number = parseUnsigned(text.substr(3));
    if (!number || *number >= DeviceModel::kPfiTerminals) return std::nullopt;
    terminal.isPfi = true;
    terminal.pfi = static_cast<uint32_t>(*number);
    return terminal;
  }
  terminal.signal = lower(text);
  return terminal;
}

std::string subsystemSignal(std::string_view subsystem, std::string_view signal) {
  return std::string(subsystem) + "/" + std::string(signal);
}

std::string counterOutputSignal(uint32_t counter) {
  return "ctr" + std::to_string(counter) + "internaloutput";
}

}  // namespace zqsim
