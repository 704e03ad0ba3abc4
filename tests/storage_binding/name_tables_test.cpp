// The bound classes' name tables and slots: names in the order of the storage library's
// lists, each test answering for its own slot. The forwarders are written by the same generator
// for every operation; the selection tests run them against the real library.
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

}  // namespace
