// The commands of zqstorage. Each reads its arguments, works on the store in one transaction,
// and prints to `out`; store failures come out as StorageError, command-line mistakes as
// UsageError.
#pragma once

#include <iosfwd>
#include <memory>

#include "arguments.h"
#include "session.h"

namespace zqstorage::cli {

bool knowsCommand(const std::string& name);

// Runs the command; false when there is no such command.
bool runCommand(const Arguments& args, const std::shared_ptr<Session>& store, std::ostream& out, std::ostream& err);

// The help text.
void printUsage(std::ostream& out);

}  // namespace zqstorage::cli
