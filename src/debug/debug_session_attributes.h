// The session attributes of a debug session task: held here until the session is committed,
// then given to the plug-in in one go, and frozen. The task calls these under its own lock;
// each operation returns whether it took the id, and what it does not take goes to the plug-in.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "plugin/plugin_interface.h"
#include "status/status.h"
#include "zqgopher_boundary.h"

namespace zqvorexRedir {

// The ids, task attributes without a name in the catalogue.
inline constexpr int32_t kDebugSessionId = 12705;
inline constexpr int32_t kDebugValue1Id = 12706;
inline constexpr int32_t kDebugValue2Id = 12707;
inline constexpr int32_t kDebugText1Id = 12713;
inline constexpr int32_t kDebugText2Id = 12708;
inline constexpr int32_t kDebugList1Id = 12709;
inline constexpr int32_t kDebugList2Id = 12710;

class DebugSessionAttributes {
 public:
  // Gets: taken while the session is not both enabled and committed. A value of another type
  // than the id's is not taken.
  bool getBool(int32_t id, uint32_t& value) const;
  bool getU32(int32_t id, uint32_t& value) const;
  bool getString(int32_t id, zqgopher_IString* value, zqerr_Status* status) const;
  bool getStringVtr(int32_t id, zqgopher_IItemAdder* value, zqerr_Status* status) const;

  // Sets and resets: always taken for an id of the right type. After the commit only the stored
  // value may be set again.
  bool setBool(int32_t id, uint32_t value, zqerr_Status* status);
  bool setU32(int32_t id, uint32_t value, zqerr_Status* status);
  bool setString(int32_t id, const char* value, zqerr_Status* status);
  bool setStringVtr(int32_t id, const zqgopher_ArrayView* value, zqerr_Status* status);
  bool reset(int32_t id, zqerr_Status* status);

  // Hands all seven values to the plug-in task, in the fixed order.
  void applyDebugAttributes(PluginInterface* plugin, zqvorexPlugin_Task_undefined* pluginTask,
                            zqerr_Status* status) const;

  bool isDebugSession() const { return debugSession_; }
  bool isCommitted() const { return committed_; }
  void markCommitted() { committed_ = true; }
  void setEnabled(bool enabled) { enabled_ = enabled; }

 private:
  bool answersGets() const { return !enabled_ || !committed_; }
  template <class T>
  bool store(T& field, T value, zqerr_Status* status);
  std::string* textField(int32_t id);
  std::vector<std::string>* listField(int32_t id);

  bool enabled_ = true;
  bool committed_ = false;
  bool debugSession_ = false;
  uint32_t value1_ = 0;
  uint32_t value2_ = 0;
  std::string text1_;
  std::string text2_;
  std::vector<std::string> list1_;
  std::vector<std::string> list2_;
};

}  // namespace zqvorexRedir
