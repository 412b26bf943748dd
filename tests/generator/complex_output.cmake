# Regenerates the complex family into a scratch directory and compares one
# hash of every file it writes (kernels, body headers, dispatchers, the
# manifest) with the hash recorded below. Any change to a byte of the
# complex output fails here; a deliberate change (last: the scheduling
# options of the long bodies under x87 arithmetic) records the new hash below.
#
#   cmake -DGENERATOR=<zptg_gen> -DOUT=<scratch dir> -P complex_output.cmake
set(expected d4ac26d1583033cfb803047985745bd4c812d81174e9af8820f46438bc7206fd)

file(REMOVE_RECURSE ${OUT})
execute_process(COMMAND ${GENERATOR} ${OUT} complex RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the generator failed: ${status}")
endif()
# The same text as `sha256sum` prints for the sorted files, hashed once more.
file(GLOB_RECURSE files RELATIVE ${OUT}/dft_complex ${OUT}/dft_complex/*)
list(SORT files)
set(listing "")
foreach(f IN LISTS files)
  file(SHA256 ${OUT}/dft_complex/${f} h)
  string(APPEND listing "${h}  ./${f}\n")
endforeach()
string(SHA256 actual "${listing}")
list(LENGTH files count)
if(NOT actual STREQUAL expected)
  message(FATAL_ERROR "the complex output changed: ${count} files hash to ${actual}, expected ${expected}")
endif()
message(STATUS "complex output unchanged (${count} files)")
