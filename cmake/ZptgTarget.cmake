# Compiler and linker settings for everything built for the target (the
# library, the core stand-in, tests, demo, benchmarks).
#
# i386:   32-bit x86, plain i686 code, x87 floating point, no MMX/SSE.
# native: the build machine's own ABI (x86-64), default code generation.

if(NOT ZPTG_TARGET MATCHES "^(i386|native)$")
  message(FATAL_ERROR "ZPTG_TARGET must be i386 or native, not '${ZPTG_TARGET}'")
endif()

if(ZPTG_TARGET STREQUAL "i386")
  set(ZPTG_ARCH_FLAGS -m32 -march=i686 -mtune=generic -mfpmath=387 -mno-mmx -mno-sse -mno-sse2)
  add_compile_options(${ZPTG_ARCH_FLAGS})
  add_link_options(-m32)
  set(ZPTG_BITS 32)
  # The compilers were probed without -m32: what CMake derives from the
  # pointer width (the package version file's architecture check, among
  # others) must see the target's.
  set(CMAKE_SIZEOF_VOID_P 4)
  set(ZPTG_MULTIARCH i386-linux-gnu)
  set(ZPTG_DEB_ARCH i386)
else()
  set(ZPTG_BITS 64)
  set(ZPTG_MULTIARCH "${CMAKE_LIBRARY_ARCHITECTURE}")
  execute_process(COMMAND dpkg --print-architecture OUTPUT_VARIABLE ZPTG_DEB_ARCH
      OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
endif()

# Sanitizers (native only): address,undefined for memory faults and
# undefined behaviour, or thread for data races between calls.
if(ZPTG_SANITIZE)
  if(NOT ZPTG_TARGET STREQUAL "native")
    message(FATAL_ERROR "ZPTG_SANITIZE needs ZPTG_TARGET=native")
  endif()
  if(ZPTG_SANITIZE STREQUAL "ON")
    set(ZPTG_SANITIZE "address,undefined")
  endif()
  if(NOT ZPTG_SANITIZE MATCHES "^(address,undefined|thread)$")
    message(FATAL_ERROR "ZPTG_SANITIZE must be address,undefined or thread, not '${ZPTG_SANITIZE}'")
  endif()
  add_compile_options(-fsanitize=${ZPTG_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  # A sanitized build is for finding faults, not for speed: -O1 and line
  # tables only (clang; GCC's -g1) keep its reports exact and its build
  # short. At -O2 -g, clang took 7 minutes and 2 GB on the real kernels'
  # test (a table of 900 entries) and 15 s on the longest kernel file,
  # against 9 s and 4 s so.
  add_compile_options(-O1 $<IF:$<CXX_COMPILER_ID:Clang>,-gline-tables-only,-g1>)
  add_link_options(-fsanitize=${ZPTG_SANITIZE})
  # clang's check of indirect call types reports through its C++ runtime,
  # which C programs (demo, C caller) do not link; the dispatchers' tables
  # are typed by the compiler anyway.
  add_compile_options($<$<CXX_COMPILER_ID:Clang>:-fno-sanitize=function>)
endif()

# The fuzzers need clang's libFuzzer and AddressSanitizer; the library is
# then compiled with the fuzzer's coverage instrumentation.
if(ZPTG_FUZZ AND NOT (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND ZPTG_SANITIZE STREQUAL "address,undefined"))
  message(FATAL_ERROR "ZPTG_FUZZ needs clang and ZPTG_SANITIZE=address,undefined")
endif()

# GCC tracks where every value of a long straight-line kernel lives when it
# writes debug information, which takes minutes and gigabytes on the largest
# kernels; clang has no such pass.
set(ZPTG_NO_VAR_TRACKING $<$<CXX_COMPILER_ID:GNU>:-fno-var-tracking-assignments>)

# Code that goes into the shipped library: no exceptions, no RTTI, nothing
# exported unless marked, no dependence on the C++ runtime.
set(ZPTG_LIB_FLAGS
    ${ZPTG_WARNINGS}
    $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti -fno-threadsafe-statics>
    -fvisibility=hidden -fno-plt
    $<$<BOOL:${ZPTG_FUZZ}>:-fsanitize=fuzzer-no-link>)

# zptg_add_family(<name> <sources>...): an object library for one family of
# the shipped library, compiled with the library's settings. Its objects go
# into libzptgenpx; tests may link the object library's sources' headers.
function(zptg_add_family name)
  add_library(${name} OBJECT ${ARGN})
  set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_compile_options(${name} PRIVATE ${ZPTG_LIB_FLAGS})
  target_include_directories(${name} PRIVATE
      ${PROJECT_SOURCE_DIR}/include ${PROJECT_SOURCE_DIR}/src ${PROJECT_BINARY_DIR}/generated)
  set_property(GLOBAL APPEND PROPERTY ZPTG_FAMILY_OBJECT_LIBRARIES ${name})
endfunction()

# zptg_add_kernel_family(<name> <family>): the object library of a generated
# kernel family (its .cpp files from ZPTG_<FAMILY>_SOURCES, one per length,
# and its dispatchers), built after the generator has written them.
function(zptg_add_kernel_family name family)
  string(TOUPPER ${family} upper)
  set(sources)
  foreach(file IN LISTS ZPTG_${upper}_SOURCES)
    if(file MATCHES "\\.cpp$")
      list(APPEND sources ${file})
    endif()
  endforeach()
  zptg_add_family(${name} ${sources})
  add_dependencies(${name} zptg_generate_${family})
  # No straight-line vectorisation of the bodies: on x86-64 it pairs two
  # outputs into one conversion and store, which keeps the first alive until
  # the second is made and so undoes the order of the body (one store as
  # soon as each value is ready). The 32-bit build has no vector
  # instructions at all; the option changes nothing there.
  target_compile_options(${name} PRIVATE -fno-tree-slp-vectorize)
  # In builds with debug information, tracking where each of the thousands
  # of values of the longest kernels lives takes the compiler minutes and
  # tens of gigabytes (complex 59 under the sanitizers: 24 GB); line
  # information is kept.
  target_compile_options(${name} PRIVATE ${ZPTG_NO_VAR_TRACKING})
endfunction()
