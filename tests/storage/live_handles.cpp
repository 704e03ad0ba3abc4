#include "live_handles.h"

#include "binding/dynload.h"
#include "storage/storage_binding.h"
#include "storage_test.h"

namespace zqtest {

uint64_t liveStorageHandles() {
  zqerr::Status status;
  // The same library the bindings hold: loading it again only counts one more reference.
  zqplatform::LibraryHandle library = zqdynlib_load(zqvorexStorageCpp::kStorageLibrary, &status);
  auto count = reinterpret_cast<zqvorexStorage_testOnly_liveHandles_fn>(
      zqdynlib_getSymbol(library, "zqvorexStorage_testOnly_liveHandles", &status));
  const uint64_t live = count ? count() : UINT64_MAX;
  if (library) zqplatform::freeLibrary(library);
  return live;
}

void StorageHandlesReleased::TearDown() {
  EXPECT_EQ(liveStorageHandles(), 0u) << "sessions, locks or specifications were left open";
}

}  // namespace zqtest
