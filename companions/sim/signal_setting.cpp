#include "signal_setting.h"

#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

#include "text_util.h"

namespace zqsim {

namespace {

constexpr std::pair<WaveKind, const char*> kKinds[] = {
    {WaveKind::kSine, "sine"},         {WaveKind::kSquare, "square"},     {WaveKind::kTriangle, "triangle"},
    {WaveKind::kSawtooth, "sawtooth"}, {WaveKind::kConstant, "constant"}, {WaveKind::kNoise, "noise"},
    {WaveKind::kFile, "file"}};
constexpr std::pair<FileFormat, const char*> kFormats[] = {{FileFormat::kCsv, "csv"},
                                                           {FileFormat::kF64, "f64"},
                                                           {FileFormat::kF32, "f32"},
                                                           {FileFormat::kI16, "i16"}};

// Words separated by blanks; a value may be quoted to hold blanks, with \" and \\ inside.
bool splitWords(std::string_view text, std::vector<std::string>& words, std::string* error) {
  size_t i = 0;
  while (i < text.size()) {
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
    if (i == text.size()) break;
    std::string word;
    bool quoted = false;
    while (i < text.size() && (quoted || (text[i] != ' ' && text[i] != '\t'))) {
      const char c = text[i++];
      if (c == '"') {
        quoted = !quoted;
      } else if (quoted && c == '\\' && i < text.size()) {
        word += text[i++];
      } else {
        word += c;
      }
    }
    if (quoted) {
      *error = "a quote is not closed";
      return false;
    }
    words.push_back(std::move(word));
  }
  return true;
}

bool setNumber(double& field, const std::string& key, const std::string& value, std::string* error) {
  const auto number = parseReal(value);
  if (!number || !std::isfinite(*number)) {
    *error = key + " must be a number, not \"" + value + "\"";
    return false;
  }
  field = *number;
  return true;
}

bool setSetting(SignalSetting& signal, const std::string& key, const std::string& value, std::string* error) {
  if (key == "amplitude") return setNumber(signal.amplitude, key, value, error);
  if (key == "frequency") return setNumber(signal.frequency, key, value, error);
  if (key == "offset" || key == "value") return setNumber(signal.offset, key, value, error);
  if (key == "phase") return setNumber(signal.phase, key, value, error);
  if (key == "duty") return setNumber(signal.duty, key, value, error);
  if (key == "noise") return setNumber(signal.noise, key, value, error);
  if (key == "rate") return setNumber(signal.rate, key, value, error);
  if (key == "scale") return setNumber(signal.scale, key, value, error);
  if (key == "path") {
    signal.path = value;
    return true;
  }
  if (key == "column") {
    const auto column = parseUnsigned(value);
    if (!column || *column > 1000) {
      *error = "column must be a number from 0 to 1000";
      return false;
    }
    signal.column = static_cast<uint32_t>(*column);
    return true;
  }
  if (key == "format") {
    for (const auto& [format, name] : kFormats) {
      if (iequals(value, name)) {
        signal.format = format;
        return true;
      }
    }
    *error = "format must be csv, f64, f32 or i16";
    return false;
  }
  *error = "unknown setting \"" + key + "\"";
  return false;
}

bool checkRanges(const SignalSetting& signal, std::string* error) {
  if (signal.frequency < 0 || signal.amplitude < 0 || signal.noise < 0) {
    *error = "amplitude, frequency and noise cannot be negative";
  } else if (signal.duty <= 0 || signal.duty >= 100) {
    *error = "duty must lie between 0 and 100 percent";
  } else if (signal.kind == WaveKind::kFile && signal.path.empty()) {
    *error = "a recording needs path=FILE";
  } else if (signal.kind == WaveKind::kFile && !(signal.rate > 0)) {
    *error = "a recording's rate must be above 0";
  } else {
    return true;
  }
  return false;
}

// The shortest text that reads back as the same number.
std::string number(double value) {
  char digits[40];
  const auto result = std::to_chars(digits, digits + sizeof digits, value);
  return std::string(digits, result.ptr);
}

std::string quotedValue(const std::string& value) {
  if (!value.empty() && value.find_first_of(" \t\"\\") == std::string::npos) return value;
  std::string out = "\"";
  for (char c : value) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

}  // namespace

SignalSetting defaultSignal(uint32_t channel) {
  SignalSetting signal;
  signal.amplitude = 1.0 + 0.5 * channel;
  signal.frequency = 10.0 * (channel + 1);
  return signal;
}

const char* waveKindName(WaveKind kind) {
  for (const auto& [k, name] : kKinds)
    if (k == kind) return name;
  return "sine";
}

std::optional<WaveKind> waveKindFromName(std::string_view name) {
  for (const auto& [kind, text] : kKinds)
    if (iequals(name, text)) return kind;
  return std::nullopt;
}

std::optional<SignalSetting> parseSignalSetting(std::string_view text, std::string* error) {
  std::vector<std::string> words;
  if (!splitWords(text, words, error)) return std::nullopt;
  if (words.empty()) {
    *error = "the text names no waveform";
    return std::nullopt;
  }
  const auto kind = waveKindFromName(words[0]);
  if (!kind) {
    *error =
        "unknown waveform \"" + words[0] + "\" (sine, square, triangle, sawtooth, constant, noise, file)";
    return std::nullopt;
  }
  SignalSetting signal;
  signal.kind = *kind;
  // A constant, a recording and pure noise carry no noise of their own unless asked to.
  if (*kind == WaveKind::kConstant || *kind == WaveKind::kFile || *kind == WaveKind::kNoise) signal.noise = 0;
  for (size_t i = 1; i < words.size(); ++i) {
    const size_t equals = words[i].find('=');
    if (equals == std::string::npos || equals == 0) {
      *error = "\"" + words[i] + "\" is not key=value";
      return std::nullopt;
    }
    if (!setSetting(signal, lower(words[i].substr(0, equals)), words[i].substr(equals + 1), error))
      return std::nullopt;
  }
  if (!checkRanges(signal, error)) return std::nullopt;
  return signal;
}

std::string formatSignalSetting(const SignalSetting& signal) {
  std::string text = waveKindName(signal.kind);
  const auto add = [&](const char* key, const std::string& value) {
    text += std::string(" ") + key + "=" + value;
  };
  switch (signal.kind) {
    case WaveKind::kConstant:
      add("value", number(signal.offset));
      break;
    case WaveKind::kNoise:
      add("amplitude", number(signal.amplitude));
      add("offset", number(signal.offset));
      break;
    case WaveKind::kFile:
      add("path", quotedValue(signal.path));
      add("format", kFormats[static_cast<int>(signal.format)].second);
      add("rate", number(signal.rate));
      add("column", std::to_string(signal.column));
      add("scale", number(signal.scale));
      add("offset", number(signal.offset));
      break;
    default:
      add("amplitude", number(signal.amplitude));
      add("frequency", number(signal.frequency));
      add("offset", number(signal.offset));
      add("phase", number(signal.phase));
      if (signal.kind == WaveKind::kSquare) add("duty", number(signal.duty));
  }
  if (signal.kind != WaveKind::kNoise) add("noise", number(signal.noise));
  return text;
}

}  // namespace zqsim
