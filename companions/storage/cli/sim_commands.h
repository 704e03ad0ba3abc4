// The commands of zqstorage for simulated devices: add, list and remove them, say what each
// analog input sees, and make a fresh store holding the default device "SimDev1".
#pragma once

#include <iosfwd>
#include <string>

#include "arguments.h"
#include "session.h"

namespace zqstorage::cli {

bool knowsSimCommand(const std::string& name);
// Runs the command; false when it is not one of these.
bool runSimCommand(const Arguments& args, Session& store, std::ostream& out);
// For new-sim-store, before the store opens: removes an existing store file when --force says
// so, and refuses otherwise.
void prepareFreshStore(const Arguments& args, const std::string& path);
void printSimUsage(std::ostream& out);

}  // namespace zqstorage::cli
