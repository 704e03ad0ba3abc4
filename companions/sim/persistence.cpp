#include "persistence.h"

#include "attribute_table.h"
#include "channel_create.h"
#include "sim_values.h"
#include "storage_link.h"
#include "text_util.h"

namespace zqsim {

namespace {

using namespace val;

bool needsQuotes(const std::string& text) {
  if (text.empty()) return false;
  if (text.front() == ' ' || text.back() == ' ' || text.front() == '"' || text.front() == '\t' ||
      text.back() == '\t')
    return true;
  for (char c : text)
    if (static_cast<unsigned char>(c) < 0x20) return true;
  return false;
}

std::string quoteText(const std::string& text, bool inList) {
  if (!needsQuotes(text) && !(inList && text.find(',') != std::string::npos)) return text;
  std::string out = "\"";
  for (char c : text) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        out += c;
    }
  }
  return out + "\"";
}

std::string listText(const std::vector<std::string>& items) {
  std::vector<std::string> quoted;
  for (const std::string& item : items) quoted.push_back(quoteText(item, true));
  return joinList(quoted);
}

std::vector<std::string> physicalList(const Channel& c) {
  std::vector<std::string> out;
  for (const PhysicalName& p : c.physical) out.push_back(p.text());
  return out;
}

// The settings a saved channel carries: what its store holds that the table knows.
Store savedSettings(const Channel& c) { return c.store; }

Store taskSettings(const SimTask& task, Scope scope) {
  const Store& store = scope == Scope::kRead     ? task.read
                       : scope == Scope::kWrite  ? task.write
                       : scope == Scope::kBuffer ? task.buffer
                                                 : task.timing;
  return store;
}

bool readBlock(const std::string& text, Store* store, const std::string& what, zqerr_Status* status) {
  const auto decoded = decodeStore(text);
  if (!decoded) {
    SIM_FAIL(status, nZQMDEV::kErrorInvalidSavedTask, Items().text(usage::kDetail, what));
    return false;
  }
  *store = *decoded;
  return true;
}

// A channel definition's name, physical channels and settings, into the task.
bool restoreFromDefinition(SimTask& task, const StorageLink& link, uint64_t definition,
                           const std::string& globalName, zqerr_Status* status) {
  TextOut name;
  TextListOut physical;
  TextOut block;
  link.ChannelSpecification_getName(definition, name.boundary(), status);
  link.ChannelSpecification_getPhysicalChannelNameList(definition, physical.boundary(), status);
  link.ChannelSpecification_getChannelAttributeDataBlock(definition, block.boundary(), status);
  if (!isOpen(status)) return false;
  Store settings;
  if (!readBlock(block.text, &settings, "the settings of channel " + name.text, status)) return false;
  return restoreChannel(task, name.text, joinList(physical.items, ","), settings, globalName, status);
}

bool loadGlobal(SimTask& task, const StorageLink& link, uint64_t token, const std::string& name,
                zqerr_Status* status) {
  DefinitionHandle definition(link, link.getChannelSpecificationByName(token, name.c_str(), status), false);
  if (!isOpen(status)) return false;
  if (!definition) {
    SIM_FAIL(status, nZQMSTS100::kErrorVirtualChanDoesNotExist, Items().text(usage::kChannelName, name));
    return false;
  }
  return restoreFromDefinition(task, link, definition.get(), name, status);
}

// The task `savedName` of a session; global channels it uses come from `globals` (the local store).
bool loadFromSession(SimTask& task, const StorageLink& link, uint64_t session, uint64_t globalsSession,
                     const std::string& savedName, zqerr_Status* status) {
  DefinitionSection section(link, session, false, status);
  DefinitionHandle definition(link, link.getTaskSpecification(section.token(), savedName.c_str(), status),
                              true);
  if (!isOpen(status)) return false;
  if (!definition) {
    SIM_FAIL(status, nZQMSTS::kErrorTaskNotInDataNeighborhood,
             Items().text("kUsageTypeInvalidTaskName", savedName));
    return false;
  }
  TextListOut channels;
  TextListOut globals;
  link.ChannelTaskSpecification_getChannelDataList(definition.get(), channels.boundary(), globals.boundary(),
                                                   status);
  const std::pair<void (*)(uint64_t, zqgopher_IString*, zqerr_Status*), Store*> blocks[] = {
      {link.ChannelTaskSpecification_getTimingAttributeDataBlock, &task.timing},
      {link.ChannelTaskSpecification_getReadAttributeDataBlock, &task.read},
      {link.ChannelTaskSpecification_getWriteAttributeDataBlock, &task.write},
      {link.ChannelTaskSpecification_getDeviceAttributeDataBlock, &task.buffer}};
  Store stores[4];
  for (size_t i = 0; i < 4 && isOpen(status); ++i) {
    TextOut block;
    blocks[i].first(definition.get(), block.boundary(), status);
    if (isOpen(status) && !readBlock(block.text, &stores[i], "the settings of task " + savedName, status))
      return false;
  }
  if (!isOpen(status)) return false;
  for (size_t i = 0; i < channels.items.size(); ++i) {
    const std::string global = i < globals.items.size() ? globals.items[i] : "";
    if (!global.empty()) {
      DefinitionSection local(link, globalsSession, false, status);
      // A global channel lies in the text itself when the text holds it, else in the store.
      DefinitionHandle inText(
          link, link.getChannelSpecificationByName(section.token(), global.c_str(), status), false);
      if (inText && !restoreFromDefinition(task, link, inText.get(), global, status)) return false;
      if (!inText && !loadGlobal(task, link, local.token(), global, status)) return false;
      continue;
    }
    DefinitionHandle channel(link,
                             link.getChannelSpecificationByTaskAndChan(section.token(), savedName.c_str(),
                                                                       channels.items[i].c_str(), status),
                             false);
    if (!channel && isOpen(status))
      SIM_FAIL(status, nZQMSTS100::kErrorVirtualChanDoesNotExist,
               Items().text(usage::kChannelName, channels.items[i]));
    if (!isOpen(status) || !restoreFromDefinition(task, link, channel.get(), "", status)) return false;
  }
  std::lock_guard<std::mutex> guard(task.mutex);
  for (size_t i = 0; i < 4; ++i)
    for (auto& [id, value] : stores[i]) (*blocks[i].second)[id] = value;
  task.invalidate();
  return true;
}

void fillChannelDefinition(const StorageLink& link, uint64_t definition, const Channel& c,
                           const std::string& name, const std::string& parent, const std::string& author,
                           zqerr_Status* status) {
  const std::vector<std::string> physical = physicalList(c);
  const TextListIn physicalView(physical);
  const std::string block = encodeStore(savedSettings(c));
  link.ChannelSpecification_setName(definition, name.c_str(), status);
  link.ChannelSpecification_setParentTaskName(definition, parent.c_str(), status);
  link.ChannelSpecification_setIsGlobal(definition, parent.empty(), status);
  link.ChannelSpecification_setChannelType(definition, c.type ? c.type : c.kind, status);
  link.ChannelSpecification_setEndpointDeviceIdentifier(definition, c.device->name().c_str(), status);
  link.ChannelSpecification_setPhysicalChannelNameList(definition, physicalView.view(), status);
  link.ChannelSpecification_setChannelAttributeDataBlock(definition, block.data(), block.size(), status);
  link.ChannelSpecification_setAuthor(definition, author.c_str(), status);
  link.ChannelSpecification_setSavedFromApi(definition, true, status);
  link.ChannelSpecification_setVerified(definition, true, status);
}

}  // namespace

std::string taskAsIni(const SimTask& task, const std::string& name) {
  std::string text = "; written by the simulated device plug-in zqvorexSim\n[zqvorex]\nversion = 1\n\n";
  std::vector<std::string> globals;
  bool anyGlobal = false;
  for (const Channel& c : task.channels) {
    globals.push_back(c.globalName);
    anyGlobal = anyGlobal || !c.globalName.empty();
  }
  text += "[task " + quoteText(name, false) + "]\n";
  text += "channels = " + listText(task.channelNames()) + "\n";
  if (anyGlobal) text += "global_channels = " + listText(globals) + "\n";
  const std::pair<const char*, Scope> blocks[] = {{"timing_attributes", Scope::kTiming},
                                                  {"read_attributes", Scope::kRead},
                                                  {"write_attributes", Scope::kWrite},
                                                  {"device_attributes", Scope::kBuffer}};
  for (const auto& [key, scope] : blocks) {
    const std::string block = encodeStore(taskSettings(task, scope));
    if (!block.empty()) text += std::string(key) + " = " + block + "\n";
  }
  for (const Channel& c : task.channels) {
    if (!c.globalName.empty()) continue;
    text += "\n[channel " + quoteText(c.name, false) + "]\n";
    text += "task = " + quoteText(name, false) + "\n";
    text += "type = " + std::to_string(c.type ? c.type : c.kind) + "\n";
    text += "device = " + quoteText(c.device->name(), false) + "\n";
    text += "physical_channels = " + listText(physicalList(c)) + "\n";
    text += "attributes = " + encodeStore(savedSettings(c)) + "\n";
  }
  return text;
}

void saveTask(SimTask& task, const std::string& name, const std::string& author, bool overwrite,
              bool allowEditing, bool allowDeletion, zqerr_Status* status) {
  const StorageLink* link = storageLink(status);
  if (!link) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  const SessionHolder session(*link, link->getSession(task.context->name.c_str(), status));
  DefinitionSection section(*link, session.get(), true, status);
  DefinitionHandle definition(*link, link->createTaskSpecification(status), true);
  if (!isOpen(status)) return;
  std::vector<std::string> channels = task.channelNames();
  std::vector<std::string> globals;
  for (const Channel& c : task.channels) globals.push_back(c.globalName);
  const TextListIn channelView(channels);
  const TextListIn globalView(globals);
  link->ChannelTaskSpecification_setName(definition.get(), name.c_str(), status);
  link->ChannelTaskSpecification_setChannelDataList(definition.get(), channelView.view(), globalView.view(),
                                                    status);
  const std::string timing = encodeStore(task.timing);
  const std::string read = encodeStore(task.read);
  const std::string write = encodeStore(task.write);
  const std::string buffer = encodeStore(task.buffer);
  link->ChannelTaskSpecification_setTimingAttributeDataBlock(definition.get(), timing.data(), timing.size(),
                                                             status);
  link->ChannelTaskSpecification_setReadAttributeDataBlock(definition.get(), read.data(), read.size(),
                                                           status);
  link->ChannelTaskSpecification_setWriteAttributeDataBlock(definition.get(), write.data(), write.size(),
                                                            status);
  link->ChannelTaskSpecification_setDeviceAttributeDataBlock(definition.get(), buffer.data(), buffer.size(),
                                                             status);
  link->ChannelTaskSpecification_setAuthor(definition.get(), author.c_str(), status);
  link->ChannelTaskSpecification_setSavedFromApi(definition.get(), true, status);
  link->ChannelTaskSpecification_setQexLockStatus(definition.get(), !allowEditing, status);
  link->ChannelTaskSpecification_setQexDeleteStatus(definition.get(), !allowDeletion, status);
  link->ChannelTaskSpecification_setVerified(definition.get(), true, status);
  if (!isOpen(status)) return;
  if (overwrite) {
    // A replaced task takes none of its old channels along.
    LocalStatus gone;
    link->deleteTask(section.token(), name.c_str(), &gone);
  }
  link->addTask(section.token(), definition.get(), status);
  for (const Channel& c : task.channels) {
    if (!c.globalName.empty() || !isOpen(status)) continue;
    DefinitionHandle channel(*link, link->createChannelSpecification(status), false);
    fillChannelDefinition(*link, channel.get(), c, c.name, name, author, status);
    link->setChannelSpecification(section.token(), channel.get(), status);
  }
  if (isOpen(status)) link->save(section.token(), status);
}

void saveGlobalChannel(SimTask& task, const std::string& channelName, const std::string& name,
                       const std::string& author, bool overwrite, zqerr_Status* status) {
  const StorageLink* link = storageLink(status);
  if (!link) return;
  std::lock_guard<std::mutex> guard(task.mutex);
  const Channel* channel = task.findChannel(channelName);
  if (!channel) {
    SIM_FAIL(status, nZQMSTS::kErrorChanNotInTask, Items().text(usage::kChannelName, channelName));
    return;
  }
  const SessionHolder session(*link, link->getSession(task.context->name.c_str(), status));
  DefinitionSection section(*link, session.get(), true, status);
  DefinitionHandle definition(*link, link->createChannelSpecification(status), false);
  if (!isOpen(status)) return;
  fillChannelDefinition(*link, definition.get(), *channel, name.empty() ? channel->name : name, "", author,
                        status);
  if (overwrite) {
    link->setChannelSpecification(section.token(), definition.get(), status);
  } else {
    link->addChannel(section.token(), definition.get(), status);
  }
  if (isOpen(status)) link->save(section.token(), status);
}

bool loadSavedTask(SimTask& task, const std::string& url, const std::string& savedName,
                   zqerr_Status* status) {
  const StorageLink* link = storageLink(status);
  if (!link) return false;
  StoreReader store(*link, url, status);
  return loadFromSession(task, *link, store.session(), store.session(), savedName, status);
}

bool loadIniTask(SimTask& task, const std::string& text, zqerr_Status* status) {
  const StorageLink* link = storageLink(status);
  if (!link) return false;
  StoreReader fromText(*link, link->getSessionFromConfigString(text.c_str(), 0, status), status);
  StoreReader local(*link, ZQVOREX_STORAGE_LOCAL_URL, status);
  IdListOut tasks;
  link->appendObjectsForStorageClass(fromText.lock(), ZQVOREX_STORAGE_CLASS_TASK, tasks.boundary(), status);
  if (!isOpen(status)) return false;
  if (tasks.items.size() != 1) {
    SIM_FAIL(status, nZQMESL100::kInternalErrorIllegalNumberOfTasksFoundInTaskINI,
             Items().u64("kUsageTypeNumberOfTasksFound", tasks.items.size()));
    return false;
  }
  TextOut name;
  link->getObjectName(fromText.lock(), &tasks.items.front(), name.boundary(), status);
  return isOpen(status) &&
         loadFromSession(task, *link, fromText.session(), local.session(), name.text, status);
}

bool addGlobalChannels(SimTask& task, const std::string& url, const std::string& names,
                       zqerr_Status* status) {
  const StorageLink* link = storageLink(status);
  if (!link) return false;
  StoreReader store(*link, url, status);
  DefinitionSection section(*link, store.session(), false, status);
  for (const std::string& name : splitList(names))
    if (!loadGlobal(task, *link, section.token(), name, status)) return false;
  return isOpen(status);
}

}  // namespace zqsim
