#include "sim_commands.h"

#include <filesystem>
#include <ostream>

#include "device_classes.h"
#include "properties.h"
#include "signal_setting.h"
#include "store_access.h"
#include "sim_device_settings.h"
#include "text_util.h"
#include "zqvorex_storage.h"

namespace zqstorage::cli {

namespace {

namespace settings = zqsim::settings;

bool isSimulatedClass(Database& db, uint32_t classId) {
  try {
    return requireClassAttribute(db, classId, kAttributePluginName).bytes == settings::kPluginName;
  } catch (const StorageError&) {
    return false;
  }
}

// The simulated device of that name; a device of another class is refused.
ObjectId requireSimDevice(Database& db, const std::string& name) {
  const ObjectId id = requireByName(db, kClassDevice, name);
  if (!isSimulatedClass(db, requireObject(db, id).classId)) {
    throw UsageError("\"" + name + "\" is not a simulated device (its class is not served by zqvorexSim)");
  }
  return id;
}

uint32_t inputNumber(const std::string& text) {
  const auto parsed = zqsim::splitTrailingNumber(text);
  if (!parsed || !zqsim::iequals(parsed->first, "ai") || parsed->second >= 16) {
    throw UsageError("the analog input must be ai0 to ai15, not \"" + text + "\"");
  }
  return parsed->second;
}

void addSimDevice(Database& db, const std::string& name, const Arguments& args) {
  if (!findClass(db, settings::kDeviceClass)) {
    defineClass(db,
                DeviceClass{settings::kDeviceClass, settings::kDeviceClassName, std::nullopt, std::nullopt});
  }
  setClassAttribute(db, settings::kDeviceClass, kAttributePluginName,
                    Value::ofBytes(ValueType::kString, settings::kPluginName));
  const ObjectId id = createObject(db, kClassDevice, settings::kDeviceClass, name, nullptr);
  setProperty(db, id, ZQVOREX_DEVICE_PROPERTY_SIMULATED, Value::ofInteger(ValueType::kBool, 1));
  if (auto speed = args.option("speed")) {
    const auto value = zqsim::parseReal(*speed);
    if (!value || !(*value > 0)) throw UsageError("--speed must be a number above 0, not \"" + *speed + "\"");
    setProperty(db, id, settings::kSpeed, Value::ofReal(*value));
  }
  if (auto seed = args.option("seed")) {
    const auto value = zqsim::parseUnsigned(*seed);
    if (!value) throw UsageError("--seed must be a whole number, not \"" + *seed + "\"");
    setProperty(db, id, settings::kSeed, Value::ofInteger(ValueType::kU64, static_cast<int64_t>(*value)));
  }
}

void listSimDevices(const Arguments& args, Session& store, std::ostream& out) {
  args.expect(0, 0, {});
  reading(store, [&](Database& db) {
    bool any = false;
    for (const ObjectId& id : configuredDevices(db, kClassDevice)) {
      const ObjectRow row = requireObject(db, id);
      if (!isSimulatedClass(db, row.classId)) continue;
      any = true;
      const auto speed = findProperty(db, id, settings::kSpeed);
      out << row.name << " (speed " << (speed ? speed->real : 1.0) << ")\n";
      for (uint32_t ai = 0; ai < 16; ++ai) {
        const auto text = findProperty(db, id, settings::kSignalFirst + ai);
        const std::string signal =
            text ? text->bytes : zqsim::formatSignalSetting(zqsim::defaultSignal(ai)) + " (default)";
        out << "  ai" << ai << ": " << signal << "\n";
      }
    }
    if (!any) out << "no simulated devices are configured\n";
  });
}

// The words after the input, as one setting: a value that holds blanks (a path) is quoted again.
std::string signalText(const Arguments& args) {
  std::string text;
  for (size_t i = 2; i < args.operandCount(); ++i) {
    std::string word = args.operand(i, "the signal");
    const size_t equals = word.find('=');
    if (equals != std::string::npos && word.find_first_of(" \t") != std::string::npos) {
      std::string value;
      for (char c : word.substr(equals + 1))
        value += (c == '"' || c == '\\') ? std::string("\\") + c : std::string(1, c);
      word = word.substr(0, equals + 1) + "\"" + value + "\"";
    }
    text += (i > 2 ? " " : "") + word;
  }
  std::string error;
  const auto signal = zqsim::parseSignalSetting(text, &error);
  if (!signal) throw UsageError("set-signal: " + error);
  return zqsim::formatSignalSetting(*signal);
}

}  // namespace

bool knowsSimCommand(const std::string& name) {
  for (const char* known : {"sim-devices", "add-sim-device", "remove-sim-device", "set-signal",
                            "reset-signal", "new-sim-store"}) {
    if (name == known) return true;
  }
  return false;
}

void printSimUsage(std::ostream& out) {
  out << "Simulated devices (served by the plug-in zqvorexSim):\n"
         "  sim-devices                        list the simulated devices and what their inputs see\n"
         "  add-sim-device NAME [--speed F] [--seed N]\n"
         "                                     add a simulated device; its time runs F times as fast\n"
         "  remove-sim-device NAME             remove a simulated device\n"
         "  set-signal NAME aiN WAVE [KEY=VALUE...]\n"
         "                                     what input aiN sees: sine, square, triangle, sawtooth,\n"
         "                                     constant, noise or file, with amplitude, frequency,\n"
         "                                     offset, phase, duty, noise, value; a file with path,\n"
         "                                     format (csv, f64, f32, i16), rate, column, scale\n"
         "  reset-signal NAME aiN              back to the input's default sine\n"
         "  new-sim-store [--force]            make a fresh store holding SimDev1 (--force replaces\n"
         "                                     an existing store file)\n";
}

void prepareFreshStore(const Arguments& args, const std::string& path) {
  args.expect(0, 0, {"force", "speed", "seed"});
  namespace fs = std::filesystem;
  const fs::path file = fs::u8path(path);
  std::error_code error;
  if (!fs::exists(file, error)) return;
  if (!args.flag("force"))
    throw UsageError("new-sim-store: the store " + path + " exists; add --force to replace it");
  for (const char* suffix : {"", "-wal", "-shm", "-journal"}) fs::remove(fs::u8path(path + suffix), error);
}

bool runSimCommand(const Arguments& args, Session& store, std::ostream& out) {
  const std::string& c = args.command();
  if (c == "sim-devices") {
    listSimDevices(args, store, out);
  } else if (c == "add-sim-device") {
    args.expect(1, 1, {"speed", "seed"});
    const std::string& name = args.operand(0, "the device name");
    writing(store, [&](Database& db) { addSimDevice(db, name, args); });
    out << "added simulated device \"" << name << "\"\n";
  } else if (c == "remove-sim-device") {
    args.expect(1, 1, {});
    const std::string& name = args.operand(0, "the device name");
    writing(store, [&](Database& db) { deleteObject(db, requireSimDevice(db, name)); });
    out << "removed simulated device \"" << name << "\"\n";
  } else if (c == "set-signal" || c == "reset-signal") {
    const bool set = c == "set-signal";
    args.expect(set ? 3 : 2, set ? 64 : 2, {});
    const std::string& name = args.operand(0, "the device name");
    const uint32_t input = inputNumber(args.operand(1, "the analog input"));
    const std::string text = set ? signalText(args) : "";
    writing(store, [&](Database& db) {
      const ObjectId id = requireSimDevice(db, name);
      const uint32_t property = settings::kSignalFirst + input;
      if (set) {
        setProperty(db, id, property, Value::ofBytes(ValueType::kString, text));
      } else {
        removeProperties(db, id, property, property);
      }
    });
    out << name << "/ai" << input << ": " << (set ? text : "the default signal") << "\n";
  } else if (c == "new-sim-store") {
    writing(store, [&](Database& db) { addSimDevice(db, settings::kDefaultDevice, args); });
    out << "made a fresh store holding \"" << settings::kDefaultDevice << "\"\n";
  } else {
    return false;
  }
  return true;
}

}  // namespace zqstorage::cli
