# CMake package configuration of libzptgenpx:
#   find_package(zptgenpx 6.1 REQUIRED)
#   target_link_libraries(app PRIVATE zptgenpx::zptgenpx)
# zptgenpx::zptgenpx brings the header's directory and the core library
# (zptgenpx::zptcore, with zptMalloc and zptFree) along.
include("${CMAKE_CURRENT_LIST_DIR}/zptgenpxTargets.cmake")
