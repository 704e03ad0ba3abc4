// The channel argument of an accessor: caller's text in the system code page to a list of
// UTF-8 names. A null argument is the empty list.
#pragma once

#include "boundary/name_list.h"
#include "status/status.h"

namespace zqframe {

using NameList = zqgopher::NameList;

void parseChannelArgument(const char* channel, NameList* names, zqerr_Status* status);

}  // namespace zqframe
