#include "channels/channel_frame.h"

namespace zqchannels {

namespace {

void reserve(zqgopher_IItemAdder*, uint64_t, zqerr_Status*) {}
void clear(zqgopher_IItemAdder*, zqerr_Status*) {}
void add(zqgopher_IItemAdder*, const char*, zqerr_Status*) {}
void addRange(zqgopher_IItemAdder*, const char* const*, uint64_t, zqerr_Status*) {}

constexpr zqgopher_IItemAdderStringTable kDiscardingTable{reserve, clear, add, addRange};

// Not const: the operations take the object as a mutable pointer, though none writes it.
constinit zqgopher_IItemAdder discarded{{.strings = &kDiscardingTable}};

}  // namespace

zqgopher_IItemAdder* discardedChannels() { return &discarded; }

}  // namespace zqchannels
