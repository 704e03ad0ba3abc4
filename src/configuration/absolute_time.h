// The application's absolute time and the plug-in's are the same 16 bytes: seconds since
// 1904-01-01 00:00:00 and the fraction of a second in units of 2^-64.
#pragma once

#include "zqcai_rd_mbcs.h"
#include "zqvorex_plugin.h"

namespace zqconfig {

static_assert(sizeof(VorexAbsoluteTime) == sizeof(zqvorexPlugin_AbsoluteTime));

inline zqvorexPlugin_AbsoluteTime toPlugin(const VorexAbsoluteTime& time) { return {time.fraction, time.seconds}; }
inline VorexAbsoluteTime fromPlugin(const zqvorexPlugin_AbsoluteTime& time) { return {time.fraction, time.seconds}; }

}  // namespace zqconfig
