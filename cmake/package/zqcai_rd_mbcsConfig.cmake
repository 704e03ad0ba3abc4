# find_package(zqcai_rd_mbcs) gives the imported target zqcai::zqcai_rd_mbcs: the library with
# its public headers.
include("${CMAKE_CURRENT_LIST_DIR}/zqcai_rd_mbcsTargets.cmake")
