// The task the re-entrancy tests use: one voltage channel clocked at 1 kS/s.
#pragma once

#include <gtest/gtest.h>

#include "zqcai_rd_mbcs.h"

namespace zqsimrun {

// Continuous, or 50 samples when `finite`.
inline TaskHandle makeVoltageTask(const char* name, const char* channel, bool finite) {
  TaskHandle task = nullptr;
  EXPECT_EQ(VorexCreateTask(name, &task), 0);
  EXPECT_EQ(VorexCreateAIVoltageChan(task, channel, "", Vorex_Val_Cfg_Default, -10, 10, Vorex_Val_Volts, nullptr), 0);
  EXPECT_EQ(VorexCfgSampClkTiming(task, "", 1000, Vorex_Val_Rising, finite ? Vorex_Val_FiniteSamps : Vorex_Val_ContSamps,
                                  finite ? 50 : 1000),
            0);
  return task;
}

}  // namespace zqsimrun
