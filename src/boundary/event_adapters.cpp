#include "boundary/event_adapters.h"

#include <new>
#include <type_traits>

namespace zqgopher {

template <class Interface, class Table, class Action>
EventAdapter<Interface, Table, Action>* EventAdapter<Interface, Table, Action>::make(Action* action) noexcept {
  auto* adapter = new (std::nothrow) EventAdapter;
  if (!adapter) {
    action->release();
    return nullptr;
  }
  adapter->baseTable = &kBaseTable;
  adapter->referenceCount = 1;
  adapter->interfaceTable = &kTable;
  adapter->action = static_cast<RefCountedAction*>(action);
  return adapter;
}

template <class Interface, class Table, class Action>
uint32_t EventAdapter<Interface, Table, Action>::releaseReference() noexcept {
  uint32_t left = count().fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (left == 0) static_cast<const BaseRefCountedTable*>(baseTable)->destroy(this);
  return left;
}

template <class Interface, class Table, class Action>
void EventAdapter<Interface, Table, Action>::destroy(zqgopher_EventAdapterFields* self) noexcept {
  auto* adapter = static_cast<EventAdapter*>(self);
  adapter->eventAction()->release();
  delete adapter;
}

template <class Interface, class Table, class Action>
const BaseRefCountedTable EventAdapter<Interface, Table, Action>::kBaseTable{&EventAdapter::destroy};

namespace {

// The entries every table shares, for an object whose own interface is `Interface`.
template <class Adapter, class Interface>
struct Common {
  static uint32_t addRef(Interface* self) { return self ? Adapter::of(self)->addReference() : 0; }
  static uint32_t release(Interface* self) { return self ? Adapter::of(self)->releaseReference() : 0; }
  static zqgopher_IEventBase* asBase(Interface* self) { return reinterpret_cast<zqgopher_IEventBase*>(self); }
  template <class Wanted>
  static Wanted* as(Interface* self) {
    if constexpr (std::is_same_v<Wanted, Interface>)
      return self;
    else
      return nullptr;
  }
};

// A plug-in may pass no status; that counts as a good one.
bool good(const zqerr_Status* status) { return !status || status->code >= 0; }

void fireDone(zqgopher_IEventDone* self, const zqerr_Status* taskStatus, zqerr_Status* status) {
  if (!self || !good(status)) return;
  EventDoneAdapter::of(self)->eventAction()->fire(taskStatus ? taskStatus->code : 0);
}

void fireEveryNSamples(zqgopher_IEventEveryNSamples* self, uint32_t count, uint32_t, zqerr_Status* status) {
  if (!self || !good(status)) return;
  EventEveryNSamplesAdapter::of(self)->eventAction()->fire(count);
}

void fireSignal(zqgopher_IEventSignal* self, uint32_t count, zqerr_Status* status) {
  if (!self || !good(status)) return;
  EventSignalAdapter::of(self)->eventAction()->fire(count);
}

template <class Adapter, class Interface>
using C = Common<Adapter, Interface>;

}  // namespace

#define ZQ_EVENT_TABLE_HEAD(Adapter, Interface)                                               \
  &C<Adapter, Interface>::addRef, &C<Adapter, Interface>::release, &C<Adapter, Interface>::asBase, \
      &C<Adapter, Interface>::template as<zqgopher_IEventEveryNSamples>,                          \
      &C<Adapter, Interface>::template as<zqgopher_IEventDone>,                                   \
      &C<Adapter, Interface>::template as<zqgopher_IEventSignal>

template <>
const zqgopher_IEventDoneTable EventDoneAdapter::kTable{ZQ_EVENT_TABLE_HEAD(EventDoneAdapter, zqgopher_IEventDone),
                                                        &fireDone};
template <>
const zqgopher_IEventEveryNSamplesTable EventEveryNSamplesAdapter::kTable{
    ZQ_EVENT_TABLE_HEAD(EventEveryNSamplesAdapter, zqgopher_IEventEveryNSamples), &fireEveryNSamples};
template <>
const zqgopher_IEventSignalTable EventSignalAdapter::kTable{
    ZQ_EVENT_TABLE_HEAD(EventSignalAdapter, zqgopher_IEventSignal), &fireSignal};

#undef ZQ_EVENT_TABLE_HEAD

template class EventAdapter<zqgopher_IEventDone, zqgopher_IEventDoneTable, EventDoneAction>;
template class EventAdapter<zqgopher_IEventEveryNSamples, zqgopher_IEventEveryNSamplesTable, EventEveryNSamplesAction>;
template class EventAdapter<zqgopher_IEventSignal, zqgopher_IEventSignalTable, EventSignalAction>;

}  // namespace zqgopher
