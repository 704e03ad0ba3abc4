#include "ini_reader.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <map>
#include <set>

#include "ini_values.h"
#include "store_location.h"

namespace zqstorage {

namespace {

constexpr int64_t kFormatVersion = 1;

std::string folded(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

class Reader {
 public:
  explicit Reader(std::string_view text) : text_(text) {}

  IniDocument read() {
    size_t start = 0;
    while (start <= text_.size()) {
      const size_t newline = text_.find('\n', start);
      const size_t stop = newline == std::string_view::npos ? text_.size() : newline;
      ++line_;
      readLine(trimmed(text_.substr(start, stop - start)));
      if (newline == std::string_view::npos) break;
      start = newline + 1;
    }
    finishTasks();
    return std::move(doc_);
  }

 private:
  enum class Section { kNone, kHeader, kTask, kChannel };

  [[noreturn]] void error(const std::string& what) const {
    StorageError e(kInvalidParameter, ZQS_HERE, "INI text, line " + std::to_string(line_) + ": " + what);
    throw e.with("line", std::to_string(line_));
  }

  void readLine(std::string_view line) {
    if (line_ == 1 && line.substr(0, 3) == "\xEF\xBB\xBF") line = trimmed(line.substr(3));
    if (line.empty() || line.front() == ';' || line.front() == '#') return;
    if (line.front() == '[') return readSection(line);
    const size_t equals = line.find('=');
    if (equals == std::string_view::npos) error("expected [section], key = value, or a comment");
    const std::string key = folded(trimmed(line.substr(0, equals)));
    if (key.empty()) error("a key is missing before '='");
    if (!keysSeen_.insert(key).second) error("key \"" + key + "\" appears twice in this section");
    readValue(key, line.substr(equals + 1));
  }

  void readSection(std::string_view line) {
    if (line.back() != ']') error("a section header must end with ']'");
    const std::string_view inner = trimmed(line.substr(1, line.size() - 2));
    const size_t space = inner.find_first_of(" \t");
    const std::string kind = folded(inner.substr(0, space));
    const auto name = space == std::string_view::npos ? std::optional<std::string>("") : ini::parseText(inner.substr(space));
    keysSeen_.clear();
    if (kind == "zqvorex" && space == std::string_view::npos) {
      section_ = Section::kHeader;
      return;
    }
    if (!name) error("the name in the section header is badly quoted");
    if (name->empty()) error("section [" + kind + "] needs a name: [task NAME] or [channel NAME]");
    if (kind == "task") {
      section_ = Section::kTask;
      doc_.tasks.emplace_back();
      doc_.tasks.back().name = *name;
      taskLines_.push_back(line_);
    } else if (kind == "channel") {
      section_ = Section::kChannel;
      doc_.channels.emplace_back();
      doc_.channels.back().name = *name;
      channelLines_.push_back(line_);
    } else {
      error("unknown section [" + kind + "]: expected [zqvorex], [task NAME] or [channel NAME]");
    }
  }

  template <class T>
  T need(std::optional<T> value, const char* form) {
    if (!value) error(std::string("the value is not ") + form);
    return std::move(*value);
  }

  std::string text(std::string_view raw) { return need(ini::parseText(raw), "text (quoted text must end with '\"')"); }
  std::vector<std::string> list(std::string_view raw) { return need(ini::parseList(raw), "a comma list"); }
  bool flag(std::string_view raw) { return need(ini::parseBool(raw), "true or false"); }
  std::string block(std::string_view raw) { return need(ini::parseBlock(raw), "text or hex: bytes"); }
  int64_t integer(std::string_view raw, int64_t low, int64_t high) {
    const int64_t value = need(ini::parseInteger(raw), "a whole number");
    if (value < low || value > high) error("the number is out of range");
    return value;
  }

  void readValue(const std::string& key, std::string_view raw) {
    switch (section_) {
      case Section::kNone: error("key = value before any section");
      case Section::kHeader: return readHeader(key, raw);
      case Section::kTask: return readTask(doc_.tasks.back(), key, raw);
      case Section::kChannel: return readChannel(doc_.channels.back(), key, raw);
    }
  }

  void readHeader(const std::string& key, std::string_view raw) {
    if (key != "version") error("unknown key \"" + key + "\" in [zqvorex]");
    const int64_t version = integer(raw, 1, 0x7FFFFFFF);
    if (version > kFormatVersion) {
      StorageError e(kFeatureUnsupported, ZQS_HERE,
                     "INI text of version " + std::to_string(version) + " is newer than this store reads");
      throw e;
    }
  }

  void readTask(TaskSpec& t, const std::string& key, std::string_view raw) {
    static const std::map<std::string, std::function<void(Reader&, TaskSpec&, std::string_view)>> kKeys = {
        {"description", [](Reader& r, TaskSpec& s, std::string_view v) { s.description = r.text(v); }},
        {"author", [](Reader& r, TaskSpec& s, std::string_view v) { s.author = r.text(v); }},
        {"verified", [](Reader& r, TaskSpec& s, std::string_view v) { s.verified = r.flag(v); }},
        {"saved_from_api", [](Reader& r, TaskSpec& s, std::string_view v) { s.savedFromApi = r.flag(v); }},
        {"locked", [](Reader& r, TaskSpec& s, std::string_view v) { s.qexLocked = r.flag(v); }},
        {"deletion_prohibited", [](Reader& r, TaskSpec& s, std::string_view v) { s.qexDeleteProhibited = r.flag(v); }},
        {"channels", [](Reader& r, TaskSpec& s, std::string_view v) { s.channels = r.list(v); r.channelsGiven_.insert(r.doc_.tasks.size() - 1); }},
        {"global_channels", [](Reader& r, TaskSpec& s, std::string_view v) { s.globalChannels = r.list(v); r.globalsGiven_.insert(r.doc_.tasks.size() - 1); }},
        {"channel_name_table", [](Reader& r, TaskSpec& s, std::string_view v) { s.channelNameTable = r.list(v); }},
        {"scale_name_table", [](Reader& r, TaskSpec& s, std::string_view v) { s.scaleNameTable = r.list(v); }},
        {"device_attributes", [](Reader& r, TaskSpec& s, std::string_view v) { s.deviceAttributes = r.block(v); }},
        {"timing_attributes", [](Reader& r, TaskSpec& s, std::string_view v) { s.timingAttributes = r.block(v); }},
        {"read_attributes", [](Reader& r, TaskSpec& s, std::string_view v) { s.readAttributes = r.block(v); }},
        {"write_attributes", [](Reader& r, TaskSpec& s, std::string_view v) { s.writeAttributes = r.block(v); }},
    };
    auto it = kKeys.find(key);
    if (it == kKeys.end()) error("unknown key \"" + key + "\" in a task section");
    it->second(*this, t, raw);
  }

  void readChannel(ChannelSpec& c, const std::string& key, std::string_view raw) {
    static const std::map<std::string, std::function<void(Reader&, ChannelSpec&, std::string_view)>> kKeys = {
        {"task", [](Reader& r, ChannelSpec& s, std::string_view v) { s.parentTaskName = r.text(v); }},
        {"type", [](Reader& r, ChannelSpec& s, std::string_view v) {
           s.channelType = static_cast<int32_t>(r.integer(v, INT32_MIN, INT32_MAX));
         }},
        {"device", [](Reader& r, ChannelSpec& s, std::string_view v) { s.endpointDevice = r.text(v); }},
        {"physical_channels", [](Reader& r, ChannelSpec& s, std::string_view v) { s.physicalChannels = r.list(v); }},
        {"global", [](Reader& r, ChannelSpec& s, std::string_view v) { s.isGlobal = r.flag(v); }},
        {"verified", [](Reader& r, ChannelSpec& s, std::string_view v) { s.verified = r.flag(v); }},
        {"scale_names", [](Reader& r, ChannelSpec& s, std::string_view v) { s.scaleNames = r.list(v); }},
        {"custom_scale", [](Reader& r, ChannelSpec& s, std::string_view v) { s.customScaleName = r.text(v); }},
        {"product_ids", [](Reader& r, ChannelSpec& s, std::string_view v) { s.productIds = r.u32List(v); }},
        {"attributes", [](Reader& r, ChannelSpec& s, std::string_view v) { s.channelAttributes = r.block(v); }},
        {"buffer_attributes", [](Reader& r, ChannelSpec& s, std::string_view v) { s.bufferAttributes = r.block(v); }},
        {"dependencies", [](Reader& r, ChannelSpec& s, std::string_view v) { s.dependencies = r.list(v); }},
        {"expert_dependencies", [](Reader& r, ChannelSpec& s, std::string_view v) { s.expertDependencies = r.list(v); }},
        {"name_table", [](Reader& r, ChannelSpec& s, std::string_view v) { s.nameTable = r.list(v); }},
        {"author", [](Reader& r, ChannelSpec& s, std::string_view v) { s.author = r.text(v); }},
        {"locked", [](Reader& r, ChannelSpec& s, std::string_view v) { s.qexLocked = r.flag(v); }},
        {"deletion_prohibited", [](Reader& r, ChannelSpec& s, std::string_view v) { s.qexDeleteProhibited = r.flag(v); }},
        {"saved_from_api", [](Reader& r, ChannelSpec& s, std::string_view v) { s.savedFromApi = r.flag(v); }},
    };
    auto it = kKeys.find(key);
    if (it == kKeys.end()) error("unknown key \"" + key + "\" in a channel section");
    it->second(*this, c, raw);
  }

  std::vector<uint32_t> u32List(std::string_view raw) {
    std::vector<uint32_t> out;
    for (const std::string& item : list(raw)) out.push_back(static_cast<uint32_t>(integer(item, 0, 0xFFFFFFFF)));
    return out;
  }

  // Names are unique without regard to ASCII case; a task without "channels" lists its own
  // channel sections; a listed name without a section of that task names a global channel.
  void finishTasks() {
    std::map<std::string, size_t> taskIndex;
    for (size_t i = 0; i < doc_.tasks.size(); ++i) {
      line_ = taskLines_[i];
      if (!taskIndex.emplace(folded(doc_.tasks[i].name), i).second) error("task \"" + doc_.tasks[i].name + "\" is defined twice");
    }
    std::set<std::pair<std::string, std::string>> channelKeys;
    std::vector<std::vector<std::string>> own(doc_.tasks.size());
    for (size_t i = 0; i < doc_.channels.size(); ++i) {
      const ChannelSpec& c = doc_.channels[i];
      line_ = channelLines_[i];
      if (!channelKeys.emplace(folded(c.parentTaskName), folded(c.name)).second) {
        error("channel \"" + c.name + "\" is defined twice" + (c.parentTaskName.empty() ? "" : " in task \"" + c.parentTaskName + "\""));
      }
      if (c.parentTaskName.empty()) continue;
      auto task = taskIndex.find(folded(c.parentTaskName));
      if (task == taskIndex.end()) error("channel \"" + c.name + "\" names task \"" + c.parentTaskName + "\", which this text does not define");
      own[task->second].push_back(c.name);
    }
    for (size_t i = 0; i < doc_.tasks.size(); ++i) {
      TaskSpec& t = doc_.tasks[i];
      line_ = taskLines_[i];
      if (!channelsGiven_.count(i)) t.channels = own[i];
      if (globalsGiven_.count(i)) {
        if (t.globalChannels.size() != t.channels.size()) error("global_channels must have one entry for each channel");
        continue;
      }
      t.globalChannels.clear();
      for (const std::string& name : t.channels) {
        const bool isOwn = channelKeys.count({folded(t.name), folded(name)}) != 0;
        t.globalChannels.push_back(isOwn ? std::string() : name);
      }
    }
  }

  std::string_view text_;
  size_t line_ = 0;
  Section section_ = Section::kNone;
  std::set<std::string> keysSeen_;
  IniDocument doc_;
  std::vector<size_t> taskLines_;
  std::vector<size_t> channelLines_;
  std::set<size_t> channelsGiven_;  // tasks, by index, whose text gave the key
  std::set<size_t> globalsGiven_;
};

}  // namespace

IniDocument parseIniText(std::string_view text) { return Reader(text).read(); }

void loadIniText(Database& db, std::string_view text) {
  const IniDocument doc = parseIniText(text);
  for (const TaskSpec& task : doc.tasks) storeTask(db, task, true);
  for (const ChannelSpec& channel : doc.channels) storeChannel(db, channel, true);
}

}  // namespace zqstorage
