#include "debug/debug_session_attributes.h"

#include "boundary/array_view.h"
#include "status/error_sites.h"

namespace zqvorexRedir {

namespace {

std::vector<const char*> pointersOf(const std::vector<std::string>& list) {
  std::vector<const char*> pointers;
  pointers.reserve(list.size());
  for (const std::string& item : list) pointers.push_back(item.c_str());
  return pointers;
}

}  // namespace

template <class T>
bool DebugSessionAttributes::store(T& field, T value, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return true;
  if (committed_ && !(field == value)) {
    ZQ_FAIL(status, kDebugsessionattributesCannotSetPropertyWhenDebugSessionCommitted);
    return true;
  }
  field = std::move(value);
  return true;
}

std::string* DebugSessionAttributes::textField(int32_t id) {
  if (id == kDebugText1Id) return &text1_;
  if (id == kDebugText2Id) return &text2_;
  return nullptr;
}

std::vector<std::string>* DebugSessionAttributes::listField(int32_t id) {
  if (id == kDebugList1Id) return &list1_;
  if (id == kDebugList2Id) return &list2_;
  return nullptr;
}

bool DebugSessionAttributes::getBool(int32_t id, uint32_t& value) const {
  if (id != kDebugSessionId || !answersGets()) return false;
  value = debugSession_ ? 1 : 0;
  return true;
}

bool DebugSessionAttributes::getU32(int32_t id, uint32_t& value) const {
  if ((id != kDebugValue1Id && id != kDebugValue2Id) || !answersGets()) return false;
  value = id == kDebugValue1Id ? value1_ : value2_;
  return true;
}

bool DebugSessionAttributes::getString(int32_t id, zqgopher_IString* value, zqerr_Status* status) const {
  const std::string* text = const_cast<DebugSessionAttributes*>(this)->textField(id);
  if (!text || !answersGets()) return false;
  if (!zqerr::isOpen(status)) return true;
  if (!value) {
    ZQ_FAIL(status, kDebugsessionattributesInvalidParameter);
    return true;
  }
  value->table->assign(value, text->data(), text->size(), status);
  return true;
}

bool DebugSessionAttributes::getStringVtr(int32_t id, zqgopher_IItemAdder* value,
                                          zqerr_Status* status) const {
  const std::vector<std::string>* list = const_cast<DebugSessionAttributes*>(this)->listField(id);
  if (!list || !answersGets()) return false;
  if (!zqerr::isOpen(status)) return true;
  if (!value) {
    ZQ_FAIL(status, kDebugsessionattributesInvalidParameter150);
    return true;
  }
  if (list->empty()) return true;
  std::vector<const char*> pointers = pointersOf(*list);
  value->table.strings->addRange(value, pointers.data(), pointers.size(), status);
  return true;
}

bool DebugSessionAttributes::setBool(int32_t id, uint32_t value, zqerr_Status* status) {
  if (id != kDebugSessionId) return false;
  return store(debugSession_, value != 0, status);
}

bool DebugSessionAttributes::setU32(int32_t id, uint32_t value, zqerr_Status* status) {
  if (id == kDebugValue1Id) return store(value1_, value, status);
  if (id == kDebugValue2Id) return store(value2_, value, status);
  return false;
}

bool DebugSessionAttributes::setString(int32_t id, const char* value, zqerr_Status* status) {
  std::string* text = textField(id);
  if (!text) return false;
  if (!zqerr::isOpen(status)) return true;
  if (!value) {
    ZQ_FAIL(status, kDebugsessionattributesSoftwareFault);
    return true;
  }
  return store(*text, std::string(value), status);
}

bool DebugSessionAttributes::setStringVtr(int32_t id, const zqgopher_ArrayView* value, zqerr_Status* status) {
  std::vector<std::string>* list = listField(id);
  if (!list) return false;
  if (!zqerr::isOpen(status)) return true;
  if (!value) {
    ZQ_FAIL(status, kDebugsessionattributesSoftwareFault212);
    return true;
  }
  std::vector<std::string> items;
  items.reserve(value->count);
  for (uint64_t i = 0; i < value->count; ++i) {
    const char* item = zqgopher_ArrayView_strings(value)[i];
    if (!item) {
      ZQ_FAIL(status, kDebugsessionattributesSoftwareFault219);
      return true;
    }
    // The plug-in wants these names without a leading "/".
    if (id == kDebugList2Id && item[0] == '/') ++item;
    items.emplace_back(item);
  }
  return store(*list, std::move(items), status);
}

bool DebugSessionAttributes::reset(int32_t id, zqerr_Status* status) {
  if (id == kDebugSessionId) return setBool(id, 0, status);
  if (id == kDebugValue1Id || id == kDebugValue2Id) return setU32(id, 0, status);
  if (std::string* text = textField(id)) return store(*text, std::string(), status);
  if (std::vector<std::string>* list = listField(id)) return store(*list, std::vector<std::string>(), status);
  return false;
}

void DebugSessionAttributes::applyDebugAttributes(PluginInterface* plugin,
                                                  zqvorexPlugin_Task_undefined* pluginTask,
                                                  zqerr_Status* status) const {
  if (!zqerr::isOpen(status)) return;
  if (!plugin || !pluginTask) {
    ZQ_FAIL(status, kDebugsessionattributesSoftwareFault254);
    return;
  }
  zqgopher::StringArrayView list1(list1_);
  zqgopher::StringArrayView list2(list2_);
  plugin->setTaskAttributeBool(pluginTask, kDebugSessionId, debugSession_ ? 1 : 0, status);
  plugin->setTaskAttributeI32(pluginTask, kDebugValue1Id, static_cast<int32_t>(value1_), status);
  plugin->setTaskAttributeI32(pluginTask, kDebugValue2Id, static_cast<int32_t>(value2_), status);
  plugin->setTaskAttributeString(pluginTask, kDebugText1Id, text1_.c_str(), status);
  plugin->setTaskAttributeString(pluginTask, kDebugText2Id, text2_.c_str(), status);
  plugin->setTaskAttributeStringVtr(pluginTask, kDebugList1Id, list1.boundary(), status);
  plugin->setTaskAttributeStringVtr(pluginTask, kDebugList2Id, list2.boundary(), status);
}

}  // namespace zqvorexRedir
