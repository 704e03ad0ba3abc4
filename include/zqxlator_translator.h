/* The boundary between the library and a translator library: the translator record that every
 * translator presents, built into the library or made by a loaded library, and the four
 * functions that a translator library exports. Field order and sizes are a binary contract. */
#ifndef ZQXLATOR_TRANSLATOR_H
#define ZQXLATOR_TRANSLATOR_H

#include <stddef.h>
#include <stdint.h>

#include "zqvorex_status.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The caller's allocator: size 0 frees `pointer` and gives null; otherwise it acts as realloc
 * and on failure sets zqapalerr_memoryFull in `status`. The caller frees what a translator
 * returns with free(), so text must come from here. */
typedef void* (*zqxlator_ReallocateFn)(void* pointer, size_t size, void* argument, zqerr_Status* status);

typedef struct zqxlator_Translator zqxlator_Translator;

/* A null operation is one the translator does not support. Texts are UTF-8. */
struct zqxlator_Translator {
  uint64_t size; /* 32 */
  void (*destroy)(zqxlator_Translator* self);
  /* The description of a status code. */
  char* (*getStaticDesc)(zqxlator_Translator* self, int32_t code, uint32_t languageAndAde,
                         zqxlator_ReallocateFn reallocate, void* argument, zqerr_Status* status);
  /* A JSON text that describes a report; `formatName` is "json1":
   * {"dynamic":[items],"debug":[items]}, an item {"type":..,"key":..,"value":string or array}. */
  char* (*getDynamicDesc)(zqxlator_Translator* self, const char* report, uint32_t languageAndAde,
                          const char* formatName, zqxlator_ReallocateFn reallocate, void* argument,
                          zqerr_Status* status);
};

/* language index in bits 0 to 7: 0 English, 1 French, 2 German, 3 Japanese, 4 Korean, 5 ChineseS;
 * bits 8 to 11 a number from 1 to 3 that the library passes on. */
#define ZQXLATOR_LANGUAGE(languageAndAde) ((languageAndAde) & 0xFFu)

/* The exports of a translator library, bound by these names. A negative status is a failure. */
typedef void* (*zqxlatormgr_CreateSessionFn)(zqerr_Status* status);
typedef void (*zqxlatormgr_DestroySessionFn)(void* session);
typedef zqxlator_Translator* (*zqxlatormgr_CreateXlatorFn)(void* session, const char* name, zqerr_Status* status,
                                                            uint64_t reserved);
typedef void (*zqxlatormgr_DestroyXlatorFn)(void* session, zqxlator_Translator* translator);

#ifdef __cplusplus
}
#endif

#endif
