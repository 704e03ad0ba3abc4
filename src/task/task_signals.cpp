// The task's own operations over device and timing attributes: watchdog expiration states and
// signal export. They take no lock of their own; each attribute call locks the task.
#include <array>
#include <initializer_list>
#include <string>
#include <utility>
#include <vector>

#include "status/report_writer.h"
#include "status/error_sites.h"
#include "task/task.h"
#include "text/list_parser.h"

namespace zqvorexRedir {

namespace {

inline constexpr int32_t kWatchdogAOOutputType = 12382;
inline constexpr int32_t kWatchdogAOExpirState = 12383;
inline constexpr int32_t kWatchdogCOExpirState = 12384;
inline constexpr int32_t kWatchdogDOExpirState = 8615;

// Signal id to the attribute that takes the signal's output terminal.
inline constexpr std::array<std::pair<int32_t, int32_t>, 25> kSignalTable = {{
    {12484, 5767}, {12486, 5719}, {12487, 5731}, {12488, 5701}, {12489, 5653},
    {12490, 1424}, {12491, 1412}, {12492, 5713}, {12493, 6381}, {12494, 5911},
    {12498, 5941}, {12499, 6400}, {12500, 5683}, {12501, 5641}, {12502, 1398},
    {12503, 6394}, {12511, 8599}, {12512, 8618}, {12520, 6399}, {12521, 1367},
    {12536, 8814}, {12564, 5689}, {12565, 8945}, {12566, 6398}, {14833, 10922},
}};

int32_t exportAttributeOf(int32_t signalId) {
  for (const auto& [signal, attribute] : kSignalTable)
    if (signal == signalId) return attribute;
  return 0;
}

// The views must all be there and of one size.
bool checkViews(std::initializer_list<const zqgopher_ArrayView*> views, zqerr_Status* status) {
  for (const zqgopher_ArrayView* view : views)
    if (!view) {
      ZQ_FAIL(status, kWatchdogNULLPtr);
      return false;
    }
  for (const zqgopher_ArrayView* view : views)
    if (view->count != (*views.begin())->count) {
      ZQ_FAIL(status, kWatchdogMismatchedInputArraySizes);
      return false;
    }
  return true;
}

std::vector<std::string> channelsAt(const zqgopher_ArrayView* lists, uint64_t index, zqerr_Status* status) {
  std::vector<std::string> names;
  const char* text = zqgopher_ArrayView_strings(lists)[index];
  zqwombat::parseCommaList(text ? text : "", &names, status);
  return names;
}

template <class T>
T elementAt(const zqgopher_ArrayView* view, uint64_t index) {
  return static_cast<const T*>(view->data)[index];
}

}  // namespace

void Task::configureWatchdogAOExpirStatesOwn(const zqgopher_ArrayView* channelLists,
                                             const zqgopher_ArrayView* outputTypes,
                                             const zqgopher_ArrayView* expirStates, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !checkViews({channelLists, outputTypes, expirStates}, status)) return;
  for (uint64_t i = 0; i < channelLists->count && zqerr::isOpen(status); ++i) {
    const std::vector<std::string> names = channelsAt(channelLists, i, status);
    zqgopher::StringArrayView channels(names);
    setDeviceAttributeI32(channels, kWatchdogAOOutputType, elementAt<int32_t>(outputTypes, i), status);
    setDeviceAttributeF64(channels, kWatchdogAOExpirState, elementAt<double>(expirStates, i), status);
  }
}

void Task::configureWatchdogCOExpirStatesOwn(const zqgopher_ArrayView* channelLists,
                                             const zqgopher_ArrayView* expirStates, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !checkViews({channelLists, expirStates}, status)) return;
  for (uint64_t i = 0; i < channelLists->count && zqerr::isOpen(status); ++i) {
    const std::vector<std::string> names = channelsAt(channelLists, i, status);
    zqgopher::StringArrayView channels(names);
    setDeviceAttributeI32(channels, kWatchdogCOExpirState, elementAt<int32_t>(expirStates, i), status);
  }
}

void Task::configureWatchdogDOExpirStatesOwn(const zqgopher_ArrayView* channelLists,
                                             const zqgopher_ArrayView* expirStates, zqerr_Status* status) {
  if (!zqerr::isOpen(status) || !checkViews({channelLists, expirStates}, status)) return;
  for (uint64_t i = 0; i < channelLists->count && zqerr::isOpen(status); ++i) {
    const std::vector<std::string> names = channelsAt(channelLists, i, status);
    zqgopher::StringArrayView channels(names);
    setDeviceAttributeI32(channels, kWatchdogDOExpirState, elementAt<int32_t>(expirStates, i), status);
  }
}

void Task::exportSignalOwn(int32_t signalId, const zqgopher::StringArrayView& channels,
                           const zqgopher::StringArrayView& terminals, zqerr_Status* status) {
  if (!zqerr::isOpen(status)) return;
  int32_t attribute = exportAttributeOf(signalId);
  if (attribute == 0) {
    if (ZQ_FAIL(status, kHardwaresignalsInvalidSignalTypeExportSignal))
      zqerr::addItem(zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex),
                     zqerr::usage::kUsageTypeSignalEventType, signalId);
    return;
  }
  setTimingAttributeStringVtr(channels, attribute, terminals.boundary(), status);
  if (status->code != nZQMSTS::kErrorAttributeNotSupportedInTaskContext) return;
  // An attribute the task cannot take is told in terms of the signal.
  zqerr::clearReport(status);
  if (ZQ_FAIL(status, kHardwaresignalsUnsupportedSignalTypeExportSignal))
    zqerr::addItem(zqerr::openOrderedData(status, zqerr::kTranslatorZqvorex),
                   zqerr::usage::kUsageTypeAttributeIdentifier, attribute);
}

}  // namespace zqvorexRedir
