#include "binding/bind_symbols.h"

#include <cstdio>

#include "binding/dynload.h"

namespace zqdynlib {

void bindSymbolTable(zqplatform::LibraryHandle library, const char* const* names, size_t count, void* table,
                     SlotSetter set, zqerr_Status* status, const char* prefix) {
  if (!zqerr::isOpen(status)) return;
  char symbol[kSymbolBufferSize];
  for (size_t i = 0; i < count; ++i) {
    std::snprintf(symbol, sizeof symbol, "%s%s%s", prefix ? prefix : "", names[i], "");
    zqerr::Status local;
    set(table, i, zqdynlib_getSymbol(library, symbol, &local));
    zqerr::adopt(status, &local);
  }
}

}  // namespace zqdynlib
