// Small steps that several exported families share: the one-terminal check of counter channels
// and digital edge triggers, and the write attributes the write paths read first.
#pragma once

#include <cstdint>
#include <string>

#include "status/status.h"
#include "task/itask.h"

namespace zqutility {

// `text` from the system code page, stripped, into `terminal`; more than one comma-separated
// name gives -200098 with the attribute id (no comment) and the number of names. Nothing on a
// failed status.
void checkOneTerminal(int32_t attributeId, const char* text, std::string* terminal, zqerr_Status* status);

// A write attribute of the task's channels (WriteNumChans, WriteDigitalLinesBytesPerChan,
// WriteRawDataWidth) as a uint32_t; 0 on a bad status.
uint32_t writeAttributeU32(zqvorexRedir::ITask& task, int32_t attributeId, zqerr_Status* status);

}  // namespace zqutility
