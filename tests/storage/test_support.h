// What the storage tests share: fresh store files, the environment, other programs to run,
// and reading a status's report.
#pragma once

#include <string>

#include "status/status.h"
#include "storage/storage_binding.h"

namespace zqtest {

// The storage library bound by the driver's own classes, once per process.
const zqvorexStorageCpp::StorageBindings& storageBindings();

// A fresh, absent store file storage_tmp/<name>.db under the working folder (relative, so a
// child process finds it too), made the local store through ZQCAI_STORAGE_FILE.
std::string useFreshStore(const std::string& name);
void setEnvironment(const std::string& name, const std::string& value);

void setProgramPath(const char* argv0);
const std::string& programPath();
// A program in the folder of this one, written with this one's separators.
std::string siblingProgram(const std::string& name);
// Runs a command line through the system's shell; gives the program's exit code.
int runCommand(const std::string& commandLine);

std::string readFile(const std::string& path);
void writeFile(const std::string& path, const std::string& bytes);

// Whether the report is one valid JSON object in the buffer form (zero fill, sentinel 'J').
bool reportWellFormed(const zqerr_Status& status);

}  // namespace zqtest
