// Saving and loading: a task as INI text (docs/task-ini-format.md), a task or a global channel
// in the store, and a task rebuilt from the store or from INI text. A channel's settings and
// the task's timing, read, write and buffer settings travel as the data blocks of the text.
#pragma once

#include <memory>
#include <string>

#include "task.h"

namespace zqsim {

std::string taskAsIni(const SimTask& task, const std::string& name);

void saveTask(SimTask& task, const std::string& name, const std::string& author, bool overwrite,
              bool allowEditing, bool allowDeletion, zqerr_Status* status);
void saveGlobalChannel(SimTask& task, const std::string& channel, const std::string& name,
                       const std::string& author, bool overwrite, zqerr_Status* status);

// Fills `task` with the saved task `savedName` of the store `url`.
bool loadSavedTask(SimTask& task, const std::string& url, const std::string& savedName, zqerr_Status* status);
// Fills `task` with the one task of INI text.
bool loadIniTask(SimTask& task, const std::string& text, zqerr_Status* status);
// Adds the global channels of a comma-separated list from the store `url`.
bool addGlobalChannels(SimTask& task, const std::string& url, const std::string& names, zqerr_Status* status);

}  // namespace zqsim
