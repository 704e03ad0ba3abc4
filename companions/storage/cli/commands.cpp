#include "commands.h"

#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include "device_classes.h"
#include "ini_writer.h"
#include "properties.h"
#include "sim_commands.h"
#include "store_access.h"
#include "stored_definitions.h"
#include "zqvorex_storage.h"

namespace zqstorage::cli {

namespace {

// Prints rows in columns as wide as their widest cell.
void printTable(std::ostream& out, const std::vector<std::vector<std::string>>& rows) {
  std::vector<size_t> widths;
  for (const auto& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
  }
  for (const auto& row : rows) {
    std::string line;
    for (size_t i = 0; i < row.size(); ++i) {
      line += row[i];
      if (i + 1 < row.size()) line += std::string(widths[i] - row[i].size() + 2, ' ');
    }
    out << line << "\n";
  }
}

bool deviceFlag(Database& db, const ObjectId& id, uint32_t property) {
  auto value = findProperty(db, id, property);
  return value && isScalarInteger(value->type) && value->integer != 0;
}

void listDevices(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(0, 0, {});
  reading(store, [&](Database& db) {
    std::vector<std::vector<std::string>> rows{{"NAME", "CLASS", "PLUG-IN", "SIMULATED"}};
    for (const ObjectId& id : configuredDevices(db, kClassDevice)) {
      const ObjectRow row = requireObject(db, id);
      std::string plugin = "-";
      if (auto c = findClass(db, row.classId)) {
        try {
          plugin = requireClassAttribute(db, row.classId, kAttributePluginName).bytes;
        } catch (const StorageError&) {
        }
      }
      rows.push_back({row.name, std::to_string(row.classId), plugin,
                      deviceFlag(db, id, ZQVOREX_DEVICE_PROPERTY_SIMULATED) ? "yes" : "no"});
    }
    if (rows.size() == 1) {
      out << "no devices are configured\n";
    } else {
      printTable(out, rows);
    }
    return 0;
  });
}

void addDevice(const Arguments& args, Session& store, std::ostream& out, std::ostream& err) {
  args.expect(1, 1, {"class", "simulated", "debuggable", "debug-plugin"});
  const std::string& name = args.operand(0, "the device name");
  const auto classText = args.option("class");
  if (!classText) throw UsageError("add-device: --class ID is missing");
  const uint32_t classId = parseNumber(*classText, "--class");
  bool classKnown = true;
  writing(store, [&](Database& db) {
    const ObjectId id = createObject(db, kClassDevice, classId, name, nullptr);
    // Only the properties asked for are set: a device that lacks one reads as false.
    const auto flag = [&](uint32_t property, const char* option) {
      if (args.flag(option)) setProperty(db, id, property, Value::ofInteger(ValueType::kBool, 1));
    };
    flag(ZQVOREX_DEVICE_PROPERTY_SIMULATED, "simulated");
    flag(ZQVOREX_DEVICE_PROPERTY_DEBUGGABLE, "debuggable");
    flag(ZQVOREX_DEVICE_PROPERTY_DEBUG_PLUGIN, "debug-plugin");
    classKnown = findClass(db, classId).has_value();
  });
  out << "added device \"" << name << "\"\n";
  if (!classKnown) {
    err << "note: device class " << classId << " is not defined yet; define it with: zqstorage define-class "
        << classId << " --plugin NAME\n";
  }
}

void removeDevice(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {});
  const std::string& name = args.operand(0, "the device name");
  writing(store, [&](Database& db) { deleteObject(db, requireByName(db, kClassDevice, name)); });
  out << "removed device \"" << name << "\"\n";
}

void listClasses(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(0, 0, {});
  reading(store, [&](Database& db) {
    std::vector<std::vector<std::string>> rows{{"CLASS", "PLUG-IN", "PRODUCT", "PARENT", "NAME"}};
    for (const DeviceClass& c : listClasses(db)) {
      std::string plugin = "-";
      try {
        plugin = requireClassAttribute(db, c.classId, kAttributePluginName).bytes;
      } catch (const StorageError&) {
      }
      rows.push_back({std::to_string(c.classId), plugin, c.productNumber ? std::to_string(*c.productNumber) : "-",
                      c.parentClass ? std::to_string(*c.parentClass) : "-", c.name});
    }
    if (rows.size() == 1) {
      out << "no device classes are defined\n";
    } else {
      printTable(out, rows);
    }
    return 0;
  });
}

void defineClassCommand(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {"plugin", "name", "product", "parent"});
  DeviceClass c;
  c.classId = parseNumber(args.operand(0, "the class id"), "the class id");
  const auto plugin = args.option("plugin");
  if (!plugin || plugin->empty()) throw UsageError("define-class: --plugin NAME is missing");
  c.name = args.option("name").value_or("");
  if (auto product = args.option("product")) c.productNumber = parseNumber(*product, "--product");
  if (auto parent = args.option("parent")) c.parentClass = parseNumber(*parent, "--parent");
  writing(store, [&](Database& db) {
    defineClass(db, c);
    setClassAttribute(db, c.classId, kAttributePluginName, Value::ofBytes(ValueType::kString, *plugin));
  });
  out << "device class " << c.classId << " is served by plug-in \"" << *plugin << "\"\n";
}

void removeClassCommand(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {});
  const uint32_t classId = parseNumber(args.operand(0, "the class id"), "the class id");
  writing(store, [&](Database& db) { removeClass(db, classId); });
  out << "removed device class " << classId << "\n";
}

void listTasks(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(0, 0, {});
  reading(store, [&](Database& db) {
    std::vector<std::vector<std::string>> rows{{"TASK", "CHANNELS", "AUTHOR"}};
    for (const ObjectId& id : objectsOfClass(db, kClassTask, true)) {
      const TaskSpec task = loadTask(db, id);
      std::string channels;
      for (const std::string& c : task.channels) channels += (channels.empty() ? "" : ", ") + c;
      rows.push_back({task.name, channels.empty() ? "-" : channels, task.author.empty() ? "-" : task.author});
    }
    if (rows.size() == 1) {
      out << "no tasks are saved\n";
    } else {
      printTable(out, rows);
    }
    return 0;
  });
}

void listChannels(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(0, 0, {});
  reading(store, [&](Database& db) {
    std::vector<std::vector<std::string>> rows{{"CHANNEL", "DEVICE", "PHYSICAL CHANNELS"}};
    for (const ObjectId& id : objectsOfClass(db, kClassChannel, true)) {
      if (requireObject(db, id).parent) continue;  // a task's own channel
      const ChannelSpec c = loadChannel(db, id);
      std::string physical;
      for (const std::string& p : c.physicalChannels) physical += (physical.empty() ? "" : ", ") + p;
      rows.push_back({c.name, c.endpointDevice.empty() ? "-" : c.endpointDevice, physical.empty() ? "-" : physical});
    }
    if (rows.size() == 1) {
      out << "no global channels are saved\n";
    } else {
      printTable(out, rows);
    }
    return 0;
  });
}

void deleteTaskCommand(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {});
  const std::string& name = args.operand(0, "the task name");
  writing(store, [&](Database& db) { deleteTask(db, name); });
  out << "deleted task \"" << name << "\"\n";
}

void deleteChannelCommand(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {});
  const std::string& name = args.operand(0, "the channel name");
  writing(store, [&](Database& db) { deleteGlobalChannel(db, name); });
  out << "deleted global channel \"" << name << "\"\n";
}

std::string readInput(const std::string& file) {
  if (file == "-") return std::string(std::istreambuf_iterator<char>(std::cin), std::istreambuf_iterator<char>());
  std::ifstream in(file, std::ios::binary);
  if (!in) throw UsageError("import: cannot read the file \"" + file + "\"");
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void importIni(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 1, {});
  const std::string text = readInput(args.operand(0, "the INI file"));
  const auto source = Session::fromConfigText(text);
  std::vector<ObjectTree> trees = reading(*source, [&](Database& db) {
    std::vector<ObjectTree> found;
    for (const ObjectId& id : objectsOfClass(db, kClassTask, false)) found.push_back(readTree(db, id));
    for (const ObjectId& id : objectsOfClass(db, kClassChannel, false)) {
      if (!requireObject(db, id).parent) found.push_back(readTree(db, id));
    }
    return found;
  });
  writing(store, [&](Database& db) {
    for (const ObjectTree& tree : trees) writeTree(db, tree, nullptr);
  });
  for (const ObjectTree& tree : trees) {
    out << "imported " << (tree.row.storageClass == kClassTask ? "task" : "global channel") << " \"" << tree.row.name << "\"\n";
  }
  if (trees.empty()) out << "the text holds no task and no global channel\n";
}

void exportIni(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(1, 2, {});
  const std::string& name = args.operand(0, "the task or channel name");
  const std::string text = reading(store, [&](Database& db) {
    if (auto task = loadTask(db, std::string_view(name))) {
      std::vector<ChannelSpec> own;
      for (const std::string& channel : localChannelNames(db, name)) own.push_back(*loadLocalChannel(db, name, channel));
      return writeIniText({*task}, own);
    }
    if (auto channel = loadGlobalChannel(db, name)) return writeIniText({}, {*channel});
    StorageError error(kTaskNotFound, ZQS_HERE, "no saved task or global channel is named \"" + name + "\"");
    throw error;
  });
  if (args.operandCount() < 2 || args.operand(1, "the file") == "-") {
    out << text;
    return;
  }
  std::ofstream file(args.operand(1, "the file"), std::ios::binary);
  if (!(file << text)) throw UsageError("export: cannot write the file \"" + args.operand(1, "the file") + "\"");
  out << "exported \"" << name << "\" to " << args.operand(1, "the file") << "\n";
}

}  // namespace

void printUsage(std::ostream& out) {
  out << "usage: zqstorage [--store FILE] COMMAND [ARGUMENTS]\n"
         "\n"
         "Devices and device classes:\n"
         "  devices                            list the configured devices\n"
         "  add-device NAME --class ID [--simulated] [--debuggable] [--debug-plugin]\n"
         "                                     add a device of a device class\n"
         "  remove-device NAME                 remove a device\n"
         "  classes                            list the device classes and their plug-ins\n"
         "  define-class ID --plugin NAME [--name TEXT] [--product NUMBER] [--parent ID]\n"
         "                                     define a device class and the plug-in that serves it\n"
         "  remove-class ID                    remove a device class\n"
         "\n"
         "Saved tasks and global channels:\n"
         "  tasks                              list the saved tasks\n"
         "  delete-task NAME                   delete a saved task and its channels\n"
         "  channels                           list the global channels\n"
         "  delete-channel NAME                delete a global channel\n"
         "  import FILE                        save the tasks and channels of INI text (- reads standard input)\n"
         "  export NAME [FILE]                 write a saved task or global channel as INI text\n"
         "\n";
  printSimUsage(out);
  out << "\n"
         "The store is the file FILE, else $ZQCAI_STORAGE_FILE, else zqvorexStorage.db in the folder\n"
         "above this program's. Exit codes: 0 done, 1 the store refused or failed, 2 bad command line.\n";
}

bool knowsCommand(const std::string& name) {
  for (const char* known : {"devices", "add-device", "remove-device", "classes", "define-class", "remove-class", "tasks",
                            "delete-task", "channels", "delete-channel", "import", "export"}) {
    if (name == known) return true;
  }
  return false;
}

bool runCommand(const Arguments& args, const std::shared_ptr<Session>& store, std::ostream& out, std::ostream& err) {
  const std::string& c = args.command();
  Session& s = *store;
  if (c == "devices") listDevices(args, s, out);
  else if (c == "add-device") addDevice(args, s, out, err);
  else if (c == "remove-device") removeDevice(args, s, out);
  else if (c == "classes") listClasses(args, s, out);
  else if (c == "define-class") defineClassCommand(args, s, out);
  else if (c == "remove-class") removeClassCommand(args, s, out);
  else if (c == "tasks") listTasks(args, s, out);
  else if (c == "delete-task") deleteTaskCommand(args, s, out);
  else if (c == "channels") listChannels(args, s, out);
  else if (c == "delete-channel") deleteChannelCommand(args, s, out);
  else if (c == "import") importIni(args, s, out);
  else if (c == "export") exportIni(args, s, out);
  else return false;
  return true;
}

}  // namespace zqstorage::cli
