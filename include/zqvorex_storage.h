/* The storage and task-catalog libraries: devices, device classes and their capability data,
 * saved tasks and global channels, and the numbering of unnamed tasks.
 *
 * The library "zqvorexStorage" exports every operation of the five storage lists below as
 * zqvorexStorage_<operation>; the library "zqvorexTaskCatalog" exports the two catalog
 * operations as zqvorexTaskCatalog_<operation>. The order of each list is the slot order of the
 * class that binds it: never reorder, insert or remove an entry.
 *
 * Each list is an X-macro that calls X(result, operation, (parameters)) once per operation, in
 * slot order. This header expands them into the prototypes and into one function-pointer type
 * per symbol, zqvorexStorage_<operation>_fn and zqvorexTaskCatalog_<operation>_fn. A binding
 * takes its name table from the same lists:
 *
 *   #define NAME(result, operation, parameters) "zqvorexStorage_" #operation,
 *   static const char* const kStorageNames[] = { ZQVOREX_STORAGE_OPERATIONS(NAME) };
 *
 * Rules for every operation:
 * - the caller's status is the last argument; an operation that finds it holding an error
 *   (code < 0) does nothing and returns 0, false or an empty result;
 * - a failure sets the status (code and JSON report, component "zqvorexStorage") by the
 *   replacement rule of the status record and returns 0 or false; nothing is thrown;
 * - text in is zero-terminated UTF-8 and a null text reads as empty; text out is written into
 *   a zqgopher_IString, lists out are appended to a zqgopher_IItemAdder whose table fits the
 *   element type named at the operation (the zqgopher tables for int32_t, double and text, or
 *   the storage tables of this header for uint32_t, uint64_t, int64_t and object identifiers);
 * - lists in are a zqgopher_ArrayView of the element type named at the operation;
 * - data blocks are opaque bytes: in as a pointer and a size, out through a zqgopher_IString.
 *
 * Handles. A session, a lock (read or write; a specification token is a lock too) and a channel
 * or task specification are opaque 64-bit values; 0 means none. Every operation on objects
 * takes a lock; it also accepts a session, and then runs as a transaction of its own (a write
 * given a session is saved at once). A write needs a write lock. One session holds either
 * read locks (any number, sharing one snapshot) or one write lock at a time: open another
 * session to write while reading. Handles of one process are safe to use from any thread.
 *
 * Transactions. Between a begin and its end, reads see one stable state of the store. Writes
 * under a write lock become visible to others, atomically, at saveStorageChanges (save for a
 * specification token); revertStorageChanges (revert) drops what was not saved, and so does
 * the end of the write lock. Every single write operation is atomic on its own.
 *
 * Urls. "127.0.0.1", "localhost", "::1" and "" name the local store: a file shared by every
 * process of the machine. A url made by constructInMemoryStorageUrl names a store held in this
 * process's memory. A session made from configuration text holds exactly what the text holds.
 * Any other url fails with zqapalerr_featureUnsupported (-52002): there is no remote store.
 */
#ifndef ZQVOREX_STORAGE_H
#define ZQVOREX_STORAGE_H

#include <stdint.h>
#ifndef __cplusplus
#include <stdbool.h>
#endif

#include "zqgopher_boundary.h"
#include "zqvorex_status.h"
#include "zqvorex_status_codes.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- values ----------------------------------------------------------------------------- */

/* The identifier of a stored object. It also carries the GUID properties. */
typedef struct zqvorexStorage_ObjectID {
  uint8_t bytes[16];
} zqvorexStorage_ObjectID;

/* Storage classes, which are also the namespaces of object names. */
#define ZQVOREX_STORAGE_CLASS_CHANNEL 14795u
#define ZQVOREX_STORAGE_CLASS_TASK 14796u
#define ZQVOREX_STORAGE_CLASS_DEVICE 14798u

/* Capability attribute of a device class: the name of the plug-in that serves it (text). */
#define ZQVOREX_CLASS_ATTRIBUTE_PLUGIN_NAME 12696u
/* Boolean device properties. */
#define ZQVOREX_DEVICE_PROPERTY_DEBUGGABLE 12703u     /* a task may get a debug target */
#define ZQVOREX_DEVICE_PROPERTY_DEBUG_PLUGIN 12704u   /* served by the plug-in "zqvorexDebug" */
#define ZQVOREX_DEVICE_PROPERTY_SIMULATED 0x22CAu     /* the device is simulated */

/* The url of the local store. */
#define ZQVOREX_STORAGE_LOCAL_URL "127.0.0.1"

/* Codes of this library besides the common ones (-50004 bad handle, -52002 not supported,
 * -52005 invalid argument, -52006 store unreadable, -52008 store I/O failure or busy) are in
 * zqvorex_status_codes.h under the prefix zqvorexStorage_: DeviceNotFound (no device of that
 * name), ObjectNotFound (no object of that name or id), PropertyNotFound (the object lacks the
 * property), DuplicateTask (addTask: the name is taken), TaskNotFound (no saved task of that
 * name), ChannelNotFound (no channel of that name). */

/* ---- list tables of this library -------------------------------------------------------- */

/* Further tables of zqgopher_IItemAdder, for the element types that the zqgopher tables lack.
 * Same order and rules as those: reserve, clear, add, addRange. The adder's first word points
 * to one of these; zqvorexStorage_adderTable gives it the type the operation names. */
#define ZQVOREX_STORAGE_ADDER_TABLE(Table, Item, ItemIn)                                        \
  typedef struct Table {                                                                        \
    void (*reserve)(zqgopher_IItemAdder* self, uint64_t count, zqerr_Status* status);          \
    void (*clear)(zqgopher_IItemAdder* self, zqerr_Status* status);                             \
    void (*add)(zqgopher_IItemAdder* self, ItemIn item, zqerr_Status* status);                  \
    void (*addRange)(zqgopher_IItemAdder* self, const Item* items, uint64_t count,               \
                     zqerr_Status* status);                                                     \
  } Table;

ZQVOREX_STORAGE_ADDER_TABLE(zqvorexStorage_IItemAdderU32Table, uint32_t, uint32_t)
ZQVOREX_STORAGE_ADDER_TABLE(zqvorexStorage_IItemAdderU64Table, uint64_t, uint64_t)
ZQVOREX_STORAGE_ADDER_TABLE(zqvorexStorage_IItemAdderI64Table, int64_t, int64_t)
/* Identifiers are added by pointer. */
ZQVOREX_STORAGE_ADDER_TABLE(zqvorexStorage_IItemAdderObjectIDTable, zqvorexStorage_ObjectID,
                            const zqvorexStorage_ObjectID*)

#define zqvorexStorage_adderTable(Table, adder) ((const Table*)(const void*)(adder)->table.i32)

/* ---- Storage: sessions, locks, objects, properties, queries (60) ------------------------ */

#define ZQVOREX_STORAGE_OPERATIONS(X)                                                           \
  /* sessions and urls */                                                                       \
  /* A url of a new, empty store in this process's memory; it lives until the process ends. */  \
  X(void, constructInMemoryStorageUrl, (zqgopher_IString* url, zqerr_Status* status))           \
  /* True, with the text, when the url has a secondary url; the stores here never have one. */  \
  X(bool, getSecondaryUrl, (const char* url, zqgopher_IString* secondaryUrl, zqerr_Status* status)) \
  X(uint64_t, getSession, (const char* url, zqerr_Status* status))                              \
  /* As getSession of url: a secondary url is a fallback host, which the stores here lack. */   \
  X(uint64_t, getSessionWithSecondaryUrl,                                                       \
    (const char* url, const char* secondaryUrl, zqerr_Status* status))                          \
  /* A session on a store that holds exactly what the text holds. The text is read as INI      \
   * task text (docs/task-ini-format.md) whatever the value of format. */                       \
  X(uint64_t, getSessionFromConfigString,                                                       \
    (const char* configString, uint32_t format, zqerr_Status* status))                          \
  /* Ends the session's open locks too. */                                                      \
  X(void, releaseSession, (uint64_t session, zqerr_Status* status))                             \
  /* locks and changes */                                                                       \
  X(uint64_t, beginReadOperation, (uint64_t session, zqerr_Status* status))                     \
  X(void, endReadOperation, (uint64_t lock, zqerr_Status* status))                              \
  /* Waits while another process writes (up to 10 s, then -52008). */                          \
  X(uint64_t, beginWriteOperation, (uint64_t session, zqerr_Status* status))                    \
  /* Drops what was not saved. */                                                               \
  X(void, endWriteOperation, (uint64_t lock, zqerr_Status* status))                             \
  /* A number that grows with every saved change of the store; session or lock. */              \
  X(uint64_t, getLastChangeNumber, (uint64_t session, zqerr_Status* status))                    \
  /* Makes the lock's writes durable and visible; the lock stays open. */                       \
  X(void, saveStorageChanges, (uint64_t lock, zqerr_Status* status))                            \
  X(void, revertStorageChanges, (uint64_t lock, zqerr_Status* status))                          \
  /* objects */                                                                                 \
  /* A new object in a storage class, under a parent or at the top (parent null). Names are     \
   * unique, without regard to ASCII case, among the objects of one class and parent. classId   \
   * is what getClassIDForObject gives: the device class of a device. */                        \
  X(void, createObject,                                                                         \
    (uint64_t lock, uint32_t storageClass, uint32_t classId, const char* name,                  \
     const zqvorexStorage_ObjectID* parent, zqvorexStorage_ObjectID* object, zqerr_Status* status)) \
  /* Deletes its children and properties with it. */                                           \
  X(void, deleteObject, (uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status)) \
  /* True with the parent; false with a zeroed parent for a top-level object. */                \
  X(bool, getObjectParent,                                                                      \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqvorexStorage_ObjectID* parent,     \
     zqerr_Status* status))                                                                     \
  /* Object identifiers, in the order of creation. */                                           \
  X(void, getObjectChildren,                                                                    \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqgopher_IItemAdder* children,       \
     zqerr_Status* status))                                                                     \
  /* baseName if no top-level object of the class has it, else its stem (trailing digits       \
   * removed) with the smallest number 1, 2, ... that is free. */                               \
  X(void, getUniqueName,                                                                        \
    (uint64_t lock, uint32_t storageClass, const char* baseName, zqgopher_IString* name,        \
     zqerr_Status* status))                                                                     \
  X(void, getObjectName,                                                                        \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqgopher_IString* name,              \
     zqerr_Status* status))                                                                     \
  X(void, setObjectName,                                                                        \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, const char* name, zqerr_Status* status)) \
  /* A top-level object of any class; when classes share the name, the lowest class wins. */    \
  X(void, getObjectIDForName,                                                                   \
    (uint64_t lock, const char* name, zqvorexStorage_ObjectID* object, zqerr_Status* status))   \
  /* A top-level object of the class. Unknown: -200220 for devices, else -201233. */            \
  X(void, getObjectIDForNameInNamespace,                                                        \
    (uint64_t lock, uint32_t namespaceClass, const char* name, zqvorexStorage_ObjectID* object, \
     zqerr_Status* status))                                                                     \
  /* uint32_t: 14795, 14796, 14798. */                                                          \
  X(void, getSupportedStorageClasses, (uint64_t lock, zqgopher_IItemAdder* classes, zqerr_Status* status)) \
  /* uint32_t: the ids of the properties the object holds, ascending. */                        \
  X(void, getObjectProperties,                                                                  \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqgopher_IItemAdder* properties,     \
     zqerr_Status* status))                                                                     \
  /* property readers: a missing property gives -201266. The scalar integer readers accept a    \
   * property of any integer type whose value fits; the f64 reader also takes integers; the     \
   * others want their own type (else -52005). */                                              \
  X(bool, getObjectBoolProperty,                                                                \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(uint64_t, getObjectU64Property,                                                             \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(int64_t, getObjectI64Property,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(double, getObjectF64Property,                                                               \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(uint32_t, getObjectU32Property,                                                             \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(int32_t, getObjectI32Property,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, zqerr_Status* status)) \
  X(void, getObjectStringProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IString* value, zqerr_Status* status))                                            \
  X(void, getObjectU64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectI64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectF64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectU32VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectI32VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectStringVtrProperty,                                                           \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqgopher_IItemAdder* values, zqerr_Status* status))                                        \
  X(void, getObjectGUIDProperty,                                                                \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     zqvorexStorage_ObjectID* value, zqerr_Status* status))                                     \
  /* property writers (a boolean is written as an integer, 0 or 1) */                          \
  X(void, setObjectU64Property,                                                                 \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, uint64_t value,   \
     zqerr_Status* status))                                                                     \
  X(void, setObjectI64Property,                                                                 \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, int64_t value,    \
     zqerr_Status* status))                                                                     \
  X(void, setObjectF64Property,                                                                 \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, double value,     \
     zqerr_Status* status))                                                                     \
  X(void, setObjectU32Property,                                                                 \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, uint32_t value,   \
     zqerr_Status* status))                                                                     \
  X(void, setObjectI32Property,                                                                 \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, int32_t value,    \
     zqerr_Status* status))                                                                     \
  X(void, setObjectStringProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property, const char* value, \
     zqerr_Status* status))                                                                     \
  X(void, setObjectU64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectI64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectF64VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectU32VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectI32VtrProperty,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectStringVtrProperty,                                                           \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqgopher_ArrayView* values, zqerr_Status* status))                                   \
  X(void, setObjectGUIDProperty,                                                                \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t property,                   \
     const zqvorexStorage_ObjectID* value, zqerr_Status* status))                               \
  /* object queries */                                                                          \
  X(void, getClassIDForObject,                                                                  \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint32_t* classId, zqerr_Status* status)) \
  /* The property ZQVOREX_DEVICE_PROPERTY_SIMULATED; false when absent. */                      \
  X(bool, isObjectSimulated,                                                                    \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status))               \
  /* True when the object exists; false, without failure, when it does not. */                  \
  X(bool, isObjectPresent,                                                                      \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status))               \
  /* Copies the object, its properties and its children into the store of a write lock of       \
   * another session, at the top level, replacing an object of the same class and name there.   \
   * copy (may be null) receives the new identifier. */                                         \
  X(void, copyObjectToDestination,                                                              \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, uint64_t destinationLock,            \
     zqvorexStorage_ObjectID* copy, zqerr_Status* status))                                      \
  /* Object identifiers of the class, in the order of creation (for INI text: of the text). */  \
  X(void, appendObjectsForStorageClass,                                                         \
    (uint64_t lock, uint32_t storageClass, zqgopher_IItemAdder* objects, zqerr_Status* status)) \
  X(void, appendObjectsForStorageClassSortedByName,                                             \
    (uint64_t lock, uint32_t storageClass, zqgopher_IItemAdder* objects, zqerr_Status* status)) \
  /* True when the object holds a saved task, or a saved channel, specification. */             \
  X(bool, persistedTaskAssistantBlobPresent,                                                    \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status))               \
  X(bool, persistedChannelBlobPresent,                                                          \
    (uint64_t lock, const zqvorexStorage_ObjectID* object, zqerr_Status* status))               \
  /* Devices sorted by name: all of them for 14798, else those of that device class. */         \
  X(void, getConfiguredDevices,                                                                 \
    (uint64_t lock, uint32_t classId, zqgopher_IItemAdder* devices, zqerr_Status* status))

/* ---- StorageSpec: saved tasks and channels (23) ----------------------------------------- */

/* A token is a lock (a specification section). A specification is a copy in memory, owned by
 * the caller until it destroys it. A task's channels are local to it (found by task and
 * channel name) or global (found by name alone). */
#define ZQVOREX_STORAGE_SPEC_OPERATIONS(X)                                                      \
  X(uint64_t, beginStorageSpecReadOperation, (uint64_t session, zqerr_Status* status))          \
  X(void, endStorageSpecReadOperation, (uint64_t token, zqerr_Status* status))                  \
  X(uint64_t, beginStorageSpecWriteOperation, (uint64_t session, zqerr_Status* status))         \
  /* Drops what was not saved. */                                                               \
  X(void, endStorageSpecWriteOperation, (uint64_t token, zqerr_Status* status))                 \
  /* These three give 0, without failure, for an unknown name. */                               \
  X(uint64_t, getChannelSpecificationByName, (uint64_t token, const char* channel, zqerr_Status* status)) \
  X(uint64_t, getChannelSpecificationByTaskAndChan,                                             \
    (uint64_t token, const char* task, const char* channel, zqerr_Status* status))              \
  X(uint64_t, getTaskSpecification, (uint64_t token, const char* task, zqerr_Status* status))   \
  /* Text: the names of the task's local channels, in the order of creation. */                 \
  X(void, appendLocalChannelNames,                                                              \
    (uint64_t token, const char* task, zqgopher_IItemAdder* names, zqerr_Status* status))       \
  X(void, save, (uint64_t token, zqerr_Status* status))                                         \
  X(void, revert, (uint64_t token, zqerr_Status* status))                                       \
  /* Stores the channel under its name: local to its parent task (which must be saved already,  \
   * else -200485) or global when the parent task name is empty. set replaces, add refuses a    \
   * name in use (-52005). */                                                                   \
  X(void, setChannelSpecification, (uint64_t token, uint64_t specification, zqerr_Status* status)) \
  X(void, addChannel, (uint64_t token, uint64_t specification, zqerr_Status* status))           \
  /* Unknown: -200488. */                                                                       \
  X(void, deleteChannelByName, (uint64_t token, const char* channel, zqerr_Status* status))     \
  X(void, deleteChannelByTaskAndChan,                                                           \
    (uint64_t token, const char* task, const char* channel, zqerr_Status* status))              \
  /* set replaces the task's own data and keeps its local channels; add refuses a name in use   \
   * (-200089). */                                                                              \
  X(void, setTaskSpecification, (uint64_t token, uint64_t specification, zqerr_Status* status)) \
  X(void, addTask, (uint64_t token, uint64_t specification, zqerr_Status* status))              \
  /* Deletes the task's local channels with it. Unknown: -200485. */                            \
  X(void, deleteTask, (uint64_t token, const char* task, zqerr_Status* status))                 \
  /* An empty specification. */                                                                 \
  X(uint64_t, createChannelSpecification, (zqerr_Status* status))                               \
  X(uint64_t, cloneChannelSpecification, (uint64_t specification, zqerr_Status* status))        \
  X(void, destroyChannelSpecification, (uint64_t specification, zqerr_Status* status))          \
  X(uint64_t, createTaskSpecification, (zqerr_Status* status))                                  \
  X(uint64_t, cloneTaskSpecification, (uint64_t specification, zqerr_Status* status))           \
  X(void, destroyTaskSpecification, (uint64_t specification, zqerr_Status* status))

/* ---- ChannelSpecification (38) ---------------------------------------------------------- */

#define ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(X)                                     \
  X(void, ChannelSpecification_getName, (uint64_t definition, zqgopher_IString* name, zqerr_Status* status)) \
  /* text */                                                                                    \
  X(void, ChannelSpecification_getScaleNameList,                                                \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  X(void, ChannelSpecification_getCustomScaleName,                                              \
    (uint64_t definition, zqgopher_IString* name, zqerr_Status* status))                              \
  X(void, ChannelSpecification_getEndpointDeviceIdentifier,                                     \
    (uint64_t definition, zqgopher_IString* device, zqerr_Status* status))                            \
  /* text */                                                                                    \
  X(void, ChannelSpecification_getPhysicalChannelNameList,                                      \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  /* uint32_t */                                                                                \
  X(void, ChannelSpecification_getProductIDList,                                                \
    (uint64_t definition, zqgopher_IItemAdder* productIds, zqerr_Status* status))                     \
  X(bool, ChannelSpecification_isGlobal, (uint64_t definition, zqerr_Status* status))                 \
  X(bool, ChannelSpecification_wasVerified, (uint64_t definition, zqerr_Status* status))              \
  X(void, ChannelSpecification_getParentTaskName,                                               \
    (uint64_t definition, zqgopher_IString* task, zqerr_Status* status))                              \
  X(int32_t, ChannelSpecification_getChannelType, (uint64_t definition, zqerr_Status* status))        \
  /* bytes */                                                                                   \
  X(void, ChannelSpecification_getChannelAttributeDataBlock,                                    \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  X(void, ChannelSpecification_getBufferAttributeDataBlock,                                     \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  /* text */                                                                                    \
  X(void, ChannelSpecification_getChannelDependencyList,                                        \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  X(void, ChannelSpecification_getExpertLoadedChannelDependencyList,                            \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  X(void, ChannelSpecification_getChannelNameTable,                                             \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  X(void, ChannelSpecification_getAuthor, (uint64_t definition, zqgopher_IString* author, zqerr_Status* status)) \
  X(bool, ChannelSpecification_isLockedInQex, (uint64_t definition, zqerr_Status* status))            \
  X(bool, ChannelSpecification_isDeletionFromQexProhibited, (uint64_t definition, zqerr_Status* status)) \
  X(bool, ChannelSpecification_wasSavedFromApi, (uint64_t definition, zqerr_Status* status))          \
  X(void, ChannelSpecification_setName, (uint64_t definition, const char* name, zqerr_Status* status)) \
  /* views of const char* */                                                                    \
  X(void, ChannelSpecification_setScaleNameList,                                                \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setCustomScaleName,                                              \
    (uint64_t definition, const char* name, zqerr_Status* status))                                    \
  X(void, ChannelSpecification_setEndpointDeviceIdentifier,                                     \
    (uint64_t definition, const char* device, zqerr_Status* status))                                  \
  X(void, ChannelSpecification_setPhysicalChannelNameList,                                      \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  /* view of uint32_t */                                                                        \
  X(void, ChannelSpecification_setProductIDList,                                                \
    (uint64_t definition, const zqgopher_ArrayView* productIds, zqerr_Status* status))                \
  X(void, ChannelSpecification_setIsGlobal, (uint64_t definition, bool isGlobal, zqerr_Status* status)) \
  X(void, ChannelSpecification_setVerified, (uint64_t definition, bool verified, zqerr_Status* status)) \
  X(void, ChannelSpecification_setParentTaskName,                                               \
    (uint64_t definition, const char* task, zqerr_Status* status))                                    \
  X(void, ChannelSpecification_setChannelType, (uint64_t definition, int32_t type, zqerr_Status* status)) \
  X(void, ChannelSpecification_setChannelAttributeDataBlock,                                    \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setBufferAttributeDataBlock,                                     \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setChannelDependencyList,                                        \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setExpertLoadedChannelDependencyList,                            \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setChannelNameTable,                                             \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelSpecification_setAuthor, (uint64_t definition, const char* author, zqerr_Status* status)) \
  X(void, ChannelSpecification_setQexLockStatus, (uint64_t definition, bool locked, zqerr_Status* status)) \
  X(void, ChannelSpecification_setQexDeleteStatus,                                              \
    (uint64_t definition, bool deletionProhibited, zqerr_Status* status))                             \
  X(void, ChannelSpecification_setSavedFromApi, (uint64_t definition, bool savedFromApi, zqerr_Status* status))

/* ---- ChannelTaskSpecification (28) ------------------------------------------------------ */

#define ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(X)                                \
  X(void, ChannelTaskSpecification_getName, (uint64_t definition, zqgopher_IString* name, zqerr_Status* status)) \
  X(bool, ChannelTaskSpecification_wasVerified, (uint64_t definition, zqerr_Status* status))          \
  /* Two text lists of equal length, in the task's channel order: the channel names, and for    \
   * each channel the name of the global channel it uses, or "" for a channel of its own. */    \
  X(void, ChannelTaskSpecification_getChannelDataList,                                          \
    (uint64_t definition, zqgopher_IItemAdder* channels, zqgopher_IItemAdder* globalChannels,         \
     zqerr_Status* status))                                                                     \
  /* text */                                                                                    \
  X(void, ChannelTaskSpecification_getChannelNameTable,                                         \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  X(void, ChannelTaskSpecification_getScaleNameTable,                                           \
    (uint64_t definition, zqgopher_IItemAdder* names, zqerr_Status* status))                          \
  /* bytes */                                                                                   \
  X(void, ChannelTaskSpecification_getDeviceAttributeDataBlock,                                 \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_getTimingAttributeDataBlock,                                 \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_getReadAttributeDataBlock,                                   \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_getWriteAttributeDataBlock,                                  \
    (uint64_t definition, zqgopher_IString* block, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_getAuthor, (uint64_t definition, zqgopher_IString* author, zqerr_Status* status)) \
  X(bool, ChannelTaskSpecification_isLockedInQex, (uint64_t definition, zqerr_Status* status))        \
  X(bool, ChannelTaskSpecification_isDeletionFromQexProhibited, (uint64_t definition, zqerr_Status* status)) \
  X(void, ChannelTaskSpecification_getTaskDescription,                                          \
    (uint64_t definition, zqgopher_IString* description, zqerr_Status* status))                       \
  X(bool, ChannelTaskSpecification_wasSavedFromApi, (uint64_t definition, zqerr_Status* status))      \
  X(void, ChannelTaskSpecification_setName, (uint64_t definition, const char* name, zqerr_Status* status)) \
  X(void, ChannelTaskSpecification_setVerified, (uint64_t definition, bool verified, zqerr_Status* status)) \
  /* Views of const char*; globalChannels may be null or empty (all channels the task's own),   \
   * else of the same count as channels (-52005 otherwise). */                                  \
  X(void, ChannelTaskSpecification_setChannelDataList,                                          \
    (uint64_t definition, const zqgopher_ArrayView* channels, const zqgopher_ArrayView* globalChannels, \
     zqerr_Status* status))                                                                     \
  X(void, ChannelTaskSpecification_setChannelNameTable,                                         \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setScaleNameTable,                                           \
    (uint64_t definition, const zqgopher_ArrayView* names, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setDeviceAttributeDataBlock,                                 \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setTimingAttributeDataBlock,                                 \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setReadAttributeDataBlock,                                   \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setWriteAttributeDataBlock,                                  \
    (uint64_t definition, const void* data, uint64_t size, zqerr_Status* status))                     \
  X(void, ChannelTaskSpecification_setAuthor, (uint64_t definition, const char* author, zqerr_Status* status)) \
  X(void, ChannelTaskSpecification_setQexLockStatus, (uint64_t definition, bool locked, zqerr_Status* status)) \
  X(void, ChannelTaskSpecification_setQexDeleteStatus,                                          \
    (uint64_t definition, bool deletionProhibited, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_setTaskDescription,                                          \
    (uint64_t definition, const char* description, zqerr_Status* status))                             \
  X(void, ChannelTaskSpecification_setSavedFromApi, (uint64_t definition, bool savedFromApi, zqerr_Status* status))

/* ---- Capabilities: device classes (9) --------------------------------------------------- */

/* The url names the store, as for getSession. An unknown class gives -201233, an attribute
 * the class lacks -201266, an attribute of another type -52005. */
#define ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(X)                                              \
  X(uint32_t, getSDCClassAttributeU32,                                                          \
    (const char* url, uint32_t classId, uint32_t attribute, zqerr_Status* status))              \
  X(int32_t, getSDCClassAttributeI32,                                                           \
    (const char* url, uint32_t classId, uint32_t attribute, zqerr_Status* status))              \
  X(bool, getSDCClassAttributeBool,                                                             \
    (const char* url, uint32_t classId, uint32_t attribute, zqerr_Status* status))              \
  /* int32_t, 0 or 1 */                                                                         \
  X(void, getSDCClassAttribute1DBool,                                                           \
    (const char* url, uint32_t classId, uint32_t attribute, zqgopher_IItemAdder* values,        \
     zqerr_Status* status))                                                                     \
  X(void, getSDCClassAttributeString,                                                           \
    (const char* url, uint32_t classId, uint32_t attribute, zqgopher_IString* value,            \
     zqerr_Status* status))                                                                     \
  /* text */                                                                                    \
  X(void, getSDCClassAttribute1DString,                                                         \
    (const char* url, uint32_t classId, uint32_t attribute, zqgopher_IItemAdder* values,        \
     zqerr_Status* status))                                                                     \
  /* True when the class is typeClassId or derives from it. */                                  \
  X(bool, getSDCClassIsType,                                                                    \
    (const char* url, uint32_t classId, uint32_t typeClassId, zqerr_Status* status))            \
  /* The class of a product number; unknown: -201233. */                                        \
  X(uint32_t, getClassIDFromProductNumber,                                                      \
    (const char* url, uint32_t productNumber, zqerr_Status* status))                            \
  /* The storage class of objects of a device class: 14798. */                                  \
  X(uint32_t, getStorageClassFromClass, (const char* url, uint32_t classId, zqerr_Status* status))

/* ---- NameGenerator: the task catalog (2) ------------------------------------------------ */

/* Numbers are unique among all processes that share the local store, and count from 0. The
 * name is "_unnamedTask<N>" with N in upper-case hexadecimal. */
#define ZQVOREX_TASK_CATALOG_OPERATIONS(X)                                                      \
  X(uint64_t, generateTaskNumber, (zqerr_Status* status))                                       \
  X(void, generateTaskName, (zqgopher_IString* name, zqerr_Status* status))

/* ---- prototypes and function-pointer types ---------------------------------------------- */

/* The libraries themselves define ZQVOREX_STORAGE_API as their export attribute. */
#ifndef ZQVOREX_STORAGE_API
#define ZQVOREX_STORAGE_API
#endif

#define ZQVOREX_STORAGE_DECLARE(result, operation, parameters)  \
  ZQVOREX_STORAGE_API result zqvorexStorage_##operation parameters; \
  typedef result(*zqvorexStorage_##operation##_fn) parameters;
#define ZQVOREX_TASK_CATALOG_DECLARE(result, operation, parameters)  \
  ZQVOREX_STORAGE_API result zqvorexTaskCatalog_##operation parameters; \
  typedef result(*zqvorexTaskCatalog_##operation##_fn) parameters;

ZQVOREX_STORAGE_OPERATIONS(ZQVOREX_STORAGE_DECLARE)
ZQVOREX_STORAGE_SPEC_OPERATIONS(ZQVOREX_STORAGE_DECLARE)
ZQVOREX_STORAGE_CHANNEL_SPECIFICATION_OPERATIONS(ZQVOREX_STORAGE_DECLARE)
ZQVOREX_STORAGE_CHANNEL_TASK_SPECIFICATION_OPERATIONS(ZQVOREX_STORAGE_DECLARE)
ZQVOREX_STORAGE_CAPABILITIES_OPERATIONS(ZQVOREX_STORAGE_DECLARE)
ZQVOREX_TASK_CATALOG_OPERATIONS(ZQVOREX_TASK_CATALOG_DECLARE)

#ifdef __cplusplus
}
#endif

#endif
