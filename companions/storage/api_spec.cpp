// The exported operations of the specification class: sections, lookups, saves and the life
// of specification handles.
#include "api_export.h"

#include "boundary_io.h"
#include "guard.h"
#include "handles.h"
#include "stored_definitions.h"

using namespace zqstorage;

namespace {

constexpr uint64_t kNone = 0;

template <class Definition>
uint64_t handOut(const std::optional<Definition>& definition);

template <>
uint64_t handOut(const std::optional<ChannelSpec>& definition) {
  return definition ? addChannelSpec(std::make_shared<ChannelSpec>(*definition)) : kNone;
}

template <>
uint64_t handOut(const std::optional<TaskSpec>& definition) {
  return definition ? addTaskSpec(std::make_shared<TaskSpec>(*definition)) : kNone;
}

}  // namespace

ZQS_EXPORT uint64_t zqvorexStorage_beginStorageSpecReadOperation(uint64_t session, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return beginLock(session, false); });
}

ZQS_EXPORT void zqvorexStorage_endStorageSpecReadOperation(uint64_t token, zqerr_Status* status) {
  guardedVoid(status, [&] { endLock(token, false); });
}

ZQS_EXPORT uint64_t zqvorexStorage_beginStorageSpecWriteOperation(uint64_t session, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return beginLock(session, true); });
}

ZQS_EXPORT void zqvorexStorage_endStorageSpecWriteOperation(uint64_t token, zqerr_Status* status) {
  guardedVoid(status, [&] { endLock(token, true); });
}

ZQS_EXPORT uint64_t zqvorexStorage_getChannelSpecificationByName(uint64_t token, const char* channel, zqerr_Status* status) {
  return guarded(status, kNone, [&] {
    return handOut(readWith(token, [&](Database& db) { return loadGlobalChannel(db, textIn(channel)); }));
  });
}

ZQS_EXPORT uint64_t zqvorexStorage_getChannelSpecificationByTaskAndChan(uint64_t token, const char* task, const char* channel,
                                                                        zqerr_Status* status) {
  return guarded(status, kNone, [&] {
    return handOut(readWith(token, [&](Database& db) { return loadLocalChannel(db, textIn(task), textIn(channel)); }));
  });
}

ZQS_EXPORT uint64_t zqvorexStorage_getTaskSpecification(uint64_t token, const char* task, zqerr_Status* status) {
  return guarded(status, kNone, [&] {
    return handOut(readWith(token, [&](Database& db) { return loadTask(db, std::string_view(textIn(task))); }));
  });
}

ZQS_EXPORT void zqvorexStorage_appendLocalChannelNames(uint64_t token, const char* task, zqgopher_IItemAdder* names,
                                                       zqerr_Status* status) {
  guardedVoid(status, [&] {
    putStrings(names, readWith(token, [&](Database& db) { return localChannelNames(db, textIn(task)); }), status);
  });
}

ZQS_EXPORT void zqvorexStorage_save(uint64_t token, zqerr_Status* status) {
  guardedVoid(status, [&] { saveLock(token); });
}

ZQS_EXPORT void zqvorexStorage_revert(uint64_t token, zqerr_Status* status) {
  guardedVoid(status, [&] { revertLock(token); });
}

ZQS_EXPORT void zqvorexStorage_setChannelSpecification(uint64_t token, uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const auto definition = channelSpec(specification);
    writeWith(token, [&](Database& db) { storeChannel(db, *definition, false); });
  });
}

ZQS_EXPORT void zqvorexStorage_addChannel(uint64_t token, uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const auto definition = channelSpec(specification);
    writeWith(token, [&](Database& db) { storeChannel(db, *definition, true); });
  });
}

ZQS_EXPORT void zqvorexStorage_deleteChannelByName(uint64_t token, const char* channel, zqerr_Status* status) {
  guardedVoid(status, [&] { writeWith(token, [&](Database& db) { deleteGlobalChannel(db, textIn(channel)); }); });
}

ZQS_EXPORT void zqvorexStorage_deleteChannelByTaskAndChan(uint64_t token, const char* task, const char* channel,
                                                          zqerr_Status* status) {
  guardedVoid(status, [&] { writeWith(token, [&](Database& db) { deleteLocalChannel(db, textIn(task), textIn(channel)); }); });
}

ZQS_EXPORT void zqvorexStorage_setTaskSpecification(uint64_t token, uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const auto definition = taskSpec(specification);
    writeWith(token, [&](Database& db) { storeTask(db, *definition, false); });
  });
}

ZQS_EXPORT void zqvorexStorage_addTask(uint64_t token, uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] {
    const auto definition = taskSpec(specification);
    writeWith(token, [&](Database& db) { storeTask(db, *definition, true); });
  });
}

ZQS_EXPORT void zqvorexStorage_deleteTask(uint64_t token, const char* task, zqerr_Status* status) {
  guardedVoid(status, [&] { writeWith(token, [&](Database& db) { deleteTask(db, textIn(task)); }); });
}

ZQS_EXPORT uint64_t zqvorexStorage_createChannelSpecification(zqerr_Status* status) {
  return guarded(status, kNone, [&] { return addChannelSpec(std::make_shared<ChannelSpec>()); });
}

ZQS_EXPORT uint64_t zqvorexStorage_cloneChannelSpecification(uint64_t specification, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return addChannelSpec(std::make_shared<ChannelSpec>(*channelSpec(specification))); });
}

ZQS_EXPORT void zqvorexStorage_destroyChannelSpecification(uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] { destroyChannelSpec(specification); });
}

ZQS_EXPORT uint64_t zqvorexStorage_createTaskSpecification(zqerr_Status* status) {
  return guarded(status, kNone, [&] { return addTaskSpec(std::make_shared<TaskSpec>()); });
}

ZQS_EXPORT uint64_t zqvorexStorage_cloneTaskSpecification(uint64_t specification, zqerr_Status* status) {
  return guarded(status, kNone, [&] { return addTaskSpec(std::make_shared<TaskSpec>(*taskSpec(specification))); });
}

ZQS_EXPORT void zqvorexStorage_destroyTaskSpecification(uint64_t specification, zqerr_Status* status) {
  guardedVoid(status, [&] { destroyTaskSpec(specification); });
}
