#include "ini_writer.h"

#include "ini_values.h"

namespace zqstorage {

namespace {

class Section {
 public:
  Section(std::string& out, const char* kind, const std::string& name) : out_(out) {
    out_ += std::string("\n[") + kind + " " + ini::formatText(name) + "]\n";
  }
  void text(const char* key, const std::string& value) {
    if (!value.empty()) line(key, ini::formatText(value));
  }
  void list(const char* key, const std::vector<std::string>& value) {
    if (!value.empty()) line(key, ini::formatList(value));
  }
  void flag(const char* key, bool value) {
    if (value) line(key, "true");
  }
  void block(const char* key, const std::string& value) {
    if (!value.empty()) line(key, ini::formatBlock(value));
  }
  void line(const char* key, const std::string& value) { out_ += std::string(key) + " = " + value + "\n"; }

 private:
  std::string& out_;
};

bool isOwnChannel(const std::vector<ChannelSpec>& channels, const TaskSpec& task, const std::string& name) {
  for (const ChannelSpec& c : channels) {
    if (c.parentTaskName == task.name && c.name == name) return true;
  }
  return false;
}

// Whether the reader's default for global_channels gives the task's own list.
bool globalsAreDefault(const std::vector<ChannelSpec>& channels, const TaskSpec& task) {
  for (size_t i = 0; i < task.channels.size(); ++i) {
    const std::string& global = i < task.globalChannels.size() ? task.globalChannels[i] : std::string();
    const std::string expected = isOwnChannel(channels, task, task.channels[i]) ? std::string() : task.channels[i];
    if (global != expected) return false;
  }
  return true;
}

void writeTask(std::string& out, const TaskSpec& t, const std::vector<ChannelSpec>& channels) {
  Section s(out, "task", t.name);
  s.text("description", t.description);
  s.text("author", t.author);
  s.flag("verified", t.verified);
  s.flag("saved_from_api", t.savedFromApi);
  s.flag("locked", t.qexLocked);
  s.flag("deletion_prohibited", t.qexDeleteProhibited);
  // Always written, so that the order of the channels is the task's even with no sections.
  s.line("channels", t.channels.empty() ? std::string() : ini::formatList(t.channels));
  if (!globalsAreDefault(channels, t)) {
    std::vector<std::string> globals = t.globalChannels;
    globals.resize(t.channels.size());
    s.line("global_channels", ini::formatList(globals));
  }
  s.list("channel_name_table", t.channelNameTable);
  s.list("scale_name_table", t.scaleNameTable);
  s.block("device_attributes", t.deviceAttributes);
  s.block("timing_attributes", t.timingAttributes);
  s.block("read_attributes", t.readAttributes);
  s.block("write_attributes", t.writeAttributes);
}

void writeChannel(std::string& out, const ChannelSpec& c) {
  Section s(out, "channel", c.name);
  s.text("task", c.parentTaskName);
  if (c.channelType != 0) s.line("type", std::to_string(c.channelType));
  s.text("device", c.endpointDevice);
  s.list("physical_channels", c.physicalChannels);
  s.flag("global", c.isGlobal);
  s.flag("verified", c.verified);
  s.list("scale_names", c.scaleNames);
  s.text("custom_scale", c.customScaleName);
  if (!c.productIds.empty()) {
    std::vector<std::string> ids;
    for (uint32_t id : c.productIds) ids.push_back(std::to_string(id));
    s.list("product_ids", ids);
  }
  s.block("attributes", c.channelAttributes);
  s.block("buffer_attributes", c.bufferAttributes);
  s.list("dependencies", c.dependencies);
  s.list("expert_dependencies", c.expertDependencies);
  s.list("name_table", c.nameTable);
  s.text("author", c.author);
  s.flag("locked", c.qexLocked);
  s.flag("deletion_prohibited", c.qexDeleteProhibited);
  s.flag("saved_from_api", c.savedFromApi);
}

}  // namespace

std::string writeIniText(const std::vector<TaskSpec>& tasks, const std::vector<ChannelSpec>& channels) {
  std::string out = "; zqvorex task text\n[zqvorex]\nversion = 1\n";
  for (const TaskSpec& t : tasks) writeTask(out, t, channels);
  for (const ChannelSpec& c : channels) writeChannel(out, c);
  return out;
}

}  // namespace zqstorage
