// The bound classes' name tables and slots: names in the order of the storage library's
// lists, each test answering for its own slot, each forwarder passing its arguments through.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "storage/storage_binding.h"
#include "storage/storage_names.h"

namespace {

namespace sc = zqvorexStorageCpp;
namespace tc = zqvorexTaskCatalogCpp;

template <class Interface>
using HasList = std::vector<bool (Interface::*)() const>;

#define ZQ_BOUND_OPERATION(index, Op, op, ...) &Interface::has##Op,
template <class Interface>
HasList<Interface> hasList();
template <>
HasList<sc::StorageInterface> hasList<sc::StorageInterface>() {
  using Interface = sc::StorageInterface;
  return {
#include "storage/storage_operations.inc"
  };
}
template <>
HasList<sc::StorageSpecInterface> hasList<sc::StorageSpecInterface>() {
  using Interface = sc::StorageSpecInterface;
  return {
#include "storage/storage_spec_operations.inc"
  };
}
template <>
HasList<sc::ChannelSpecificationInterface> hasList<sc::ChannelSpecificationInterface>() {
  using Interface = sc::ChannelSpecificationInterface;
  return {
#include "storage/channel_specification_operations.inc"
  };
}
template <>
HasList<sc::ChannelTaskSpecificationInterface> hasList<sc::ChannelTaskSpecificationInterface>() {
  using Interface = sc::ChannelTaskSpecificationInterface;
  return {
#include "storage/channel_task_specification_operations.inc"
  };
}
template <>
HasList<sc::CapabilitiesInterface> hasList<sc::CapabilitiesInterface>() {
  using Interface = sc::CapabilitiesInterface;
  return {
#include "storage/capabilities_operations.inc"
  };
}
template <>
HasList<tc::NameGeneratorInterface> hasList<tc::NameGeneratorInterface>() {
  using Interface = tc::NameGeneratorInterface;
  return {
#include "storage/name_generator_operations.inc"
  };
}
#undef ZQ_BOUND_OPERATION

struct ClassCase {
  const char* label;
  size_t count;
  std::vector<std::string> names;    // the class's table, prefix added
  std::vector<std::string> symbols;  // the symbols that the library's header lists
  // For the object with only `slot` set: '1' for each test that answers true, else '0'.
  std::function<std::string(size_t slot)> boundMask;
};

template <class T, class Interface, size_t N>
ClassCase classCase(const char* label, const std::array<const char*, N>& symbols, const char* prefix) {
  ClassCase c{label, T::kOperationCount, {}, {symbols.begin(), symbols.end()}, {}};
  for (const char* name : T::kNames) c.names.push_back(prefix + std::string(name));
  c.boundMask = [](size_t slot) {
    T bound;
    int marker = 0;
    bound.setSlot(slot, &marker);
    bound.setSlot(T::kOperationCount, &marker);  // outside the table: ignored
    std::string mask;
    const Interface& viewed = bound;
    for (auto has : hasList<Interface>()) mask += (viewed.*has)() ? '1' : '0';
    if (bound.slot(slot) != &marker) mask += " (slot not kept)";
    return mask;
  };
  return c;
}

std::vector<ClassCase> classCases() {
  namespace n = sc::names;
  return {
      classCase<sc::Storage, sc::StorageInterface>("Storage", n::kStorage, "zqvorexStorage_"),
      classCase<sc::StorageSpec, sc::StorageSpecInterface>("StorageSpec", n::kStorageSpec, "zqvorexStorage_"),
      classCase<sc::ChannelSpecification, sc::ChannelSpecificationInterface>(
          "ChannelSpecification", n::kChannelSpecification, "zqvorexStorage_"),
      classCase<sc::ChannelTaskSpecification, sc::ChannelTaskSpecificationInterface>(
          "ChannelTaskSpecification", n::kChannelTaskSpecification, "zqvorexStorage_"),
      classCase<sc::Capabilities, sc::CapabilitiesInterface>("Capabilities", n::kCapabilities,
                                                             "zqvorexStorage_"),
      classCase<tc::NameGenerator, tc::NameGeneratorInterface>("NameGenerator", n::kNameGenerator,
                                                               "zqvorexTaskCatalog_"),
  };
}

TEST(BoundClasses, NameTablesFollowTheLibraryListsSlotBySlot) {
  size_t total = 0;
  for (const ClassCase& c : classCases()) {
    SCOPED_TRACE(c.label);
    EXPECT_EQ(c.names, c.symbols);
    total += c.count;
  }
  EXPECT_EQ(total, 160u);
}

TEST(BoundClasses, EachTestAnswersForItsOwnSlotOnly) {
  for (const ClassCase& c : classCases()) {
    for (size_t slot = 0; slot < c.count; ++slot) {
      std::string expected(c.count, '0');
      expected[slot] = '1';
      EXPECT_EQ(c.boundMask(slot), expected) << c.label << " slot " << slot;
    }
  }
}

// --- forwarders -----------------------------------------------------------------------------

std::string gSeen;  // what the last stand-in was called with

void seeObjectId(uint64_t lock, uint32_t namespaceClass, const char* name, zqvorexStorage_ObjectID* object,
                 zqerr_Status* status) {
  gSeen = std::to_string(lock) + "," + std::to_string(namespaceClass) + "," + name + "," +
          std::to_string(object->bytes[0]) + "," + std::to_string(status->code);
  object->bytes[0] = 42;
}

void seeClassString(const char* url, uint32_t classId, uint32_t attribute, zqgopher_IString* value,
                    zqerr_Status* status) {
  gSeen = std::string(url) + "," + std::to_string(classId) + "," + std::to_string(attribute) + "," +
          (value ? "value" : "null") + "," + std::to_string(status->code);
}

void seeDataList(uint64_t definition, zqgopher_IItemAdder* channels, zqgopher_IItemAdder* globals,
                 zqerr_Status* status) {
  gSeen = std::to_string(definition) + "," + (channels ? "channels" : "null") + "," +
          (globals ? "globals" : "null") + "," + std::to_string(status->code);
}

uint64_t seeTaskNumber(zqerr_Status* status) {
  gSeen = std::to_string(status->code);
  return 0x1F;
}

template <class T>
void put(T& bound, const char* operation, void* address) {
  size_t index = 0;
  while (index < T::kOperationCount && std::string(operation) != T::kNames[index]) ++index;
  ASSERT_LT(index, T::kOperationCount) << operation;
  bound.setSlot(index, address);
}

TEST(BoundClasses, ForwardersPassTheirArgumentsThroughInOrder) {
  struct Case {
    const char* label;
    std::function<std::string()> call;  // the result as text
    const char* seen;
    const char* result;
  };
  const std::vector<Case> cases = {
      {"getObjectIDForNameInNamespace",
       [] {
         sc::Storage bound;
         put(bound, "getObjectIDForNameInNamespace", reinterpret_cast<void*>(&seeObjectId));
         zqerr::Status status;
         status.code = 3;
         zqvorexStorage_ObjectID id{{7}};
         static_cast<sc::StorageInterface&>(bound).getObjectIDForNameInNamespace(5, 14798, "Dev1", &id,
                                                                                 &status);
         return std::to_string(id.bytes[0]);
       },
       "5,14798,Dev1,7,3", "42"},
      {"getSDCClassAttributeString",
       [] {
         sc::Capabilities bound;
         put(bound, "getSDCClassAttributeString", reinterpret_cast<void*>(&seeClassString));
         zqerr::Status status;
         zqgopher_IString text{};
         static_cast<sc::CapabilitiesInterface&>(bound).getSDCClassAttributeString("127.0.0.1", 4660, 12696,
                                                                                   &text, &status);
         return std::string();
       },
       "127.0.0.1,4660,12696,value,0", ""},
      {"ChannelTaskSpecification_getChannelDataList",
       [] {
         sc::ChannelTaskSpecification bound;
         put(bound, "ChannelTaskSpecification_getChannelDataList", reinterpret_cast<void*>(&seeDataList));
         zqerr::Status status;
         zqgopher_IItemAdder channels{};
         static_cast<sc::ChannelTaskSpecificationInterface&>(bound)
             .ChannelTaskSpecification_getChannelDataList(9, &channels, nullptr, &status);
         return std::string();
       },
       "9,channels,null,0", ""},
      {"generateTaskNumber",
       [] {
         tc::NameGenerator bound;
         put(bound, "generateTaskNumber", reinterpret_cast<void*>(&seeTaskNumber));
         zqerr::Status status;
         status.code = 5;
         return std::to_string(static_cast<tc::NameGeneratorInterface&>(bound).generateTaskNumber(&status));
       },
       "5", "31"},
  };
  for (const Case& c : cases) {
    gSeen.clear();
    EXPECT_EQ(c.call(), c.result) << c.label;
    EXPECT_EQ(gSeen, c.seen) << c.label;
  }
}

}  // namespace
