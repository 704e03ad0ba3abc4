#include "binding/auto_lib.h"

#include "binding/dynload.h"

namespace zqdynlib {

AutoLib::~AutoLib() {
  if (handle_) zqplatform::freeLibrary(handle_);
  handle_ = nullptr;
}

void AutoLib::load(const char* path, zqerr_Status* status) {
  if (!handle_) handle_ = zqdynlib_load(path, status);  // there is no reload
}

}  // namespace zqdynlib
