// zqstorage: lists and edits the devices, device classes, saved tasks and global channels of
// the store that the driver reads. See printUsage for the commands.
#include <iostream>

#include "arguments.h"
#include "commands.h"
#include "sim_commands.h"
#include "store_location.h"

using namespace zqstorage;
using namespace zqstorage::cli;

namespace {

constexpr int kExitStore = 1;
constexpr int kExitUsage = 2;

std::string storePath;

int run(int argc, char** argv) {
  const Arguments args(argc, argv, {"store", "class", "plugin", "name", "product", "parent", "speed", "seed"});
  if (args.command().empty() || args.command() == "help" || args.flag("help")) {
    printUsage(std::cout);
    return args.command().empty() ? kExitUsage : 0;
  }
  const bool sim = knowsSimCommand(args.command());
  if (!sim && !knowsCommand(args.command())) throw UsageError("unknown command \"" + args.command() + "\"");
  storePath = args.option("store").value_or(localStorePath());
  if (args.command() == "new-sim-store") prepareFreshStore(args, storePath);
  const auto store = Session::openFile(storePath);
  if (sim) {
    runSimCommand(args, *store, std::cout);
  } else {
    runCommand(args, store, std::cout, std::cerr);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return run(argc, argv);
  } catch (const UsageError& error) {
    std::cerr << "zqstorage: " << error.what() << "\n(run \"zqstorage help\" for the commands)\n";
    return kExitUsage;
  } catch (const StorageError& error) {
    std::cerr << "zqstorage: " << error.what() << " (store " << storePath << ", status " << error.constant().code << ")\n";
    return kExitStore;
  } catch (const std::exception& error) {
    std::cerr << "zqstorage: " << error.what() << "\n";
    return kExitStore;
  }
}
