// A bound plug-in as the task sees it: for each operation of the table, in table order, a
// test whether the library exports it, then the forwarder that calls it.
#pragma once

#include "zqvorex_plugin.h"

namespace zqvorexRedir {

class PluginInterface {
 public:
  virtual ~PluginInterface() = default;

#define ZQ_PLUGIN_OPERATION(index, Op, op, Result, Params, ...) \
  virtual bool has##Op() const = 0;                             \
  virtual Result op Params = 0;
#include "plugin/plugin_operations.inc"
#undef ZQ_PLUGIN_OPERATION
};

}  // namespace zqvorexRedir
