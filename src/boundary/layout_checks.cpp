// The binary contract with plug-ins, pinned: a change of size, offset or table order here
// breaks every plug-in built against the published layout, so it must fail the build.
#include <cstddef>
#include <type_traits>

#include "boundary/array_buffer_adapter.h"
#include "boundary/array_line_buffer_adapter.h"
#include "boundary/array_view.h"
#include "boundary/event_adapters.h"
#include "boundary/item_adder_adapter.h"
#include "boundary/string_adapter.h"

namespace {

constexpr size_t kWord = sizeof(void*);
static_assert(kWord == 8, "the boundary is defined for 64-bit targets");

// Table entry `index` (from 0) lies at word `index`.
#define ZQ_ENTRY(table, entry, index) \
  static_assert(offsetof(table, entry) == (index) * kWord, #table "::" #entry " moved in the table")
#define ZQ_FIELD(type, field, offset) static_assert(offsetof(type, field) == (offset), #type "::" #field " moved")

// ---- array view ----
static_assert(sizeof(zqgopher_ArrayView) == 16);
ZQ_FIELD(zqgopher_ArrayView, data, 0);
ZQ_FIELD(zqgopher_ArrayView, count, 8);

// ---- text ----
static_assert(sizeof(zqgopher_IStringTable) == 7 * kWord);
ZQ_ENTRY(zqgopher_IStringTable, size, 0);
ZQ_ENTRY(zqgopher_IStringTable, copyTo, 1);
ZQ_ENTRY(zqgopher_IStringTable, clear, 2);
ZQ_ENTRY(zqgopher_IStringTable, assign, 3);
ZQ_ENTRY(zqgopher_IStringTable, data, 4);
ZQ_ENTRY(zqgopher_IStringTable, mutableData, 5);
ZQ_ENTRY(zqgopher_IStringTable, resize, 6);
static_assert(sizeof(zqgopher_IString) == kWord);
static_assert(sizeof(zqgopher_StringAdapterFields) == 16);
ZQ_FIELD(zqgopher_StringAdapterFields, string, 8);

// ---- lists: three tables of one shape ----
static_assert(sizeof(zqgopher_IItemAdder) == kWord);
#define ZQ_ADDER_TABLE(table)               \
  static_assert(sizeof(table) == 4 * kWord); \
  ZQ_ENTRY(table, reserve, 0);              \
  ZQ_ENTRY(table, clear, 1);                \
  ZQ_ENTRY(table, add, 2);                  \
  ZQ_ENTRY(table, addRange, 3)
ZQ_ADDER_TABLE(zqgopher_IItemAdderI32Table);
ZQ_ADDER_TABLE(zqgopher_IItemAdderF64Table);
ZQ_ADDER_TABLE(zqgopher_IItemAdderStringTable);
static_assert(sizeof(zqgopher_ItemAdderAdapterFields) == 16);
ZQ_FIELD(zqgopher_ItemAdderAdapterFields, items, 8);

// ---- sample arrays ----
static_assert(sizeof(zqgopher_IArrayBufferTable) == 14 * kWord);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getCapabilities, 0);
ZQ_ENTRY(zqgopher_IArrayBufferTable, isEmpty, 1);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getNumChannels, 2);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getNumSampsPerChan, 3);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getData, 4);
ZQ_ENTRY(zqgopher_IArrayBufferTable, reserved1, 5);
ZQ_ENTRY(zqgopher_IArrayBufferTable, reserved2, 6);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getExtension, 7);
ZQ_ENTRY(zqgopher_IArrayBufferTable, clear, 8);
ZQ_ENTRY(zqgopher_IArrayBufferTable, resize, 9);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getMutableData, 10);
ZQ_ENTRY(zqgopher_IArrayBufferTable, reserved3, 11);
ZQ_ENTRY(zqgopher_IArrayBufferTable, reserved4, 12);
ZQ_ENTRY(zqgopher_IArrayBufferTable, getMutableExtension, 13);

static_assert(sizeof(zqgopher_ArrayBufferReadFields) == 56);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, base, 0);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, data, 8);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, numChannels, 16);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, numSampsPerChan, 24);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, totalElements, 32);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, capacity, 40);
ZQ_FIELD(zqgopher_ArrayBufferReadFields, extension, 48);

static_assert(sizeof(zqgopher_ArrayBufferWriteFields) == 48);
ZQ_FIELD(zqgopher_ArrayBufferWriteFields, data, 8);
ZQ_FIELD(zqgopher_ArrayBufferWriteFields, numChannels, 16);
ZQ_FIELD(zqgopher_ArrayBufferWriteFields, numSampsPerChan, 24);
ZQ_FIELD(zqgopher_ArrayBufferWriteFields, totalElements, 32);
ZQ_FIELD(zqgopher_ArrayBufferWriteFields, extension, 40);

static_assert(sizeof(zqgopher_ArrayBufferScalarFields) == 64);
ZQ_FIELD(zqgopher_ArrayBufferScalarFields, kind, 56);

// ---- line arrays ----
static_assert(sizeof(zqgopher_IArrayLineBufferTable) == 17 * kWord);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getCapabilities, 0);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, isEmpty, 1);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getNumChannels, 2);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getNumSampsPerChan, 3);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getNumLines, 4);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getData, 5);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, reserved1, 6);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, reserved2, 7);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getExtension, 8);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, clear, 9);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, resize, 10);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getMutableData, 11);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, reserved3, 12);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, reserved4, 13);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getMutableExtension, 14);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getUniformNumLines, 15);
ZQ_ENTRY(zqgopher_IArrayLineBufferTable, getNumLinesOfChannel, 16);

static_assert(sizeof(zqgopher_LineCounts) == 24);
static_assert(sizeof(zqgopher_ArrayLineBufferFields) == 88);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, data, 8);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, numChannels, 16);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, numSampsPerChan, 24);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, linesPerChannel, 32);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, totalElements, 56);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, capacity, 64);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, linesMode, 72);
ZQ_FIELD(zqgopher_ArrayLineBufferFields, extension, 80);
static_assert(sizeof(zqgopher_ArrayLineBufferScalarFields) == 96);
ZQ_FIELD(zqgopher_ArrayLineBufferScalarFields, kind, 88);

// ---- events: three tables with one head ----
#define ZQ_EVENT_TABLE(table)                  \
  static_assert(sizeof(table) == 7 * kWord);   \
  ZQ_ENTRY(table, addRef, 0);                  \
  ZQ_ENTRY(table, release, 1);                 \
  ZQ_ENTRY(table, asBase, 2);                  \
  ZQ_ENTRY(table, asEveryNSamples, 3);         \
  ZQ_ENTRY(table, asDone, 4);                  \
  ZQ_ENTRY(table, asSignal, 5);                \
  ZQ_ENTRY(table, fire, 6)
ZQ_EVENT_TABLE(zqgopher_IEventDoneTable);
ZQ_EVENT_TABLE(zqgopher_IEventEveryNSamplesTable);
ZQ_EVENT_TABLE(zqgopher_IEventSignalTable);
static_assert(sizeof(zqgopher_IEventBaseTable) == 6 * kWord);
static_assert(sizeof(zqgopher_EventAdapterFields) == 32);
ZQ_FIELD(zqgopher_EventAdapterFields, baseTable, 0);
ZQ_FIELD(zqgopher_EventAdapterFields, referenceCount, 8);
ZQ_FIELD(zqgopher_EventAdapterFields, interfaceTable, 16);
ZQ_FIELD(zqgopher_EventAdapterFields, action, 24);

// ---- the adapters add behaviour, never fields: each is exactly its C layout ----
template <class Adapter, class Fields>
constexpr bool sameLayout = std::is_standard_layout_v<Adapter> && std::is_base_of_v<Fields, Adapter> &&
                            sizeof(Adapter) == sizeof(Fields);
static_assert(sameLayout<zqgopher::StringAdapter, zqgopher_StringAdapterFields>);
static_assert(sameLayout<zqgopher::ItemAdderAdapter<int32_t>, zqgopher_ItemAdderAdapterFields>);
static_assert(sameLayout<zqgopher::ItemAdderAdapter<double>, zqgopher_ItemAdderAdapterFields>);
static_assert(sameLayout<zqgopher::ItemAdderAdapter<std::string>, zqgopher_ItemAdderAdapterFields>);
static_assert(sameLayout<zqgopher::ArrayViewAdapter<double>, zqgopher_ArrayView>);
static_assert(sameLayout<zqgopher::ArrayViewAdapter<const char*>, zqgopher_ArrayView>);
static_assert(sameLayout<zqgopher::ArrayBufferAdapter, zqgopher_ArrayBufferReadFields>);
static_assert(sameLayout<zqgopher::ArrayBufferWriteAdapter, zqgopher_ArrayBufferWriteFields>);
static_assert(sameLayout<zqgopher::ScalarArrayBufferAdapter, zqgopher_ArrayBufferScalarFields>);
static_assert(sameLayout<zqgopher::ArrayLineBufferAdapter, zqgopher_ArrayLineBufferFields>);
static_assert(sameLayout<zqgopher::ArrayLineBufferWriteAdapter, zqgopher_ArrayLineBufferFields>);
static_assert(sameLayout<zqgopher::ScalarArrayLineBufferAdapter, zqgopher_ArrayLineBufferScalarFields>);
static_assert(sameLayout<zqgopher::EventDoneAdapter, zqgopher_EventAdapterFields>);
static_assert(sameLayout<zqgopher::EventEveryNSamplesAdapter, zqgopher_EventAdapterFields>);
static_assert(sameLayout<zqgopher::EventSignalAdapter, zqgopher_EventAdapterFields>);
// A list of names starts with its view; the plug-in sees only that.
static_assert(std::is_base_of_v<zqgopher_ArrayView, zqgopher::StringArrayView>);

}  // namespace
