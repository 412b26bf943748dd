# cmake -D SOURCE=install|deb -D BUILD_DIR=... -D WORK_DIR=... -D CC=...
#       -D C_FLAGS=... -D EMULATOR=... -D LIBDIR=... -D MULTIARCH=...
#       -D DEB_ARCH=... -P consume.cmake
#
# SOURCE install: `cmake --install` of the build into WORK_DIR/prefix.
# SOURCE deb: the build's Debian packages, made by cpack, checked (names
# after the soname, Architecture, Multi-Arch, which package holds what) and
# unpacked with dpkg-deb into WORK_DIR/root, the prefix being root/usr.
# Then the consumer is built through pkg-config and through find_package
# against that prefix alone, and both programs run.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE failed OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(failed)
    message(FATAL_ERROR "failed (${failed}): ${ARGN}\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE "${WORK_DIR}")
file(MAKE_DIRECTORY "${WORK_DIR}")

if(SOURCE STREQUAL "install")
  set(prefix "${WORK_DIR}/prefix")
  run(${CMAKE_COMMAND} --install "${BUILD_DIR}" --prefix "${prefix}")
else()
  set(root "${WORK_DIR}/root")
  set(prefix "${root}/usr")
  run(cpack -G DEB -B "${WORK_DIR}/debs" --config "${BUILD_DIR}/CPackConfig.cmake")
  file(GLOB debs "${WORK_DIR}/debs/*.deb")
  set(names)
  foreach(deb IN LISTS debs)
    run(dpkg-deb -f "${deb}" Package Architecture Multi-Arch)
    string(REGEX MATCH "Package: ([^\n]+)" _ "${output}")
    set(name "${CMAKE_MATCH_1}")
    list(APPEND names "${name}")
    if(NOT output MATCHES "Architecture: ${DEB_ARCH}\n" OR NOT output MATCHES "Multi-Arch: same")
      message(FATAL_ERROR "${deb}: not Architecture ${DEB_ARCH} and Multi-Arch: same:\n${output}")
    endif()
    # A runtime package holds exactly one library, under its soname, and is
    # named after it (libfoo.so.6.1 -> libfoo6.1); the -dev package holds
    # no library file of its own, only the links.
    run(dpkg-deb -c "${deb}")
    string(REGEX MATCHALL "[^ /]+\\.so[.0-9]*( ->[^\n]*)?\n" libraries "${output}")
    if(name MATCHES "-dev$")
      foreach(library IN LISTS libraries)
        if(NOT library MATCHES "^[^ ]+\\.so -> ")
          message(FATAL_ERROR "${deb}: library file ${library}")
        endif()
      endforeach()
    else()
      list(LENGTH libraries count)
      if(NOT count EQUAL 1)
        message(FATAL_ERROR "${deb}: ${count} libraries: ${libraries}")
      endif()
      file(MAKE_DIRECTORY "${WORK_DIR}/one")
      run(dpkg-deb -x "${deb}" "${WORK_DIR}/one")
      file(GLOB_RECURSE file "${WORK_DIR}/one/*.so.*")
      run(objdump -p "${file}")
      string(REGEX MATCH "SONAME +lib([^\n]+)\\.so\\.([^\n]+)" _ "${output}")
      if(NOT name STREQUAL "lib${CMAKE_MATCH_1}${CMAKE_MATCH_2}")
        message(FATAL_ERROR "${deb}: named ${name}, ${CMAKE_MATCH_0}")
      endif()
      file(REMOVE_RECURSE "${WORK_DIR}/one")
    endif()
    run(dpkg-deb -x "${deb}" "${root}")
  endforeach()
  list(SORT names)
  if(NOT names STREQUAL "libzptcore6.1;libzptgenpx-dev;libzptgenpx6.1")
    message(FATAL_ERROR "packages: ${names}")
  endif()
endif()

# What the two ways of finding the library rely on is in place.
set(libdir "${prefix}/${LIBDIR}")
foreach(file lib/libzptgenpx.so.6.1 lib/libzptgenpx.so lib/libzptcore.so.6.1 lib/libzptcore.so
             lib/pkgconfig/zptgenpx.pc lib/cmake/zptgenpx/zptgenpxConfig.cmake
             include/zptgenpx.h include/zptcore.h)
  string(REGEX REPLACE "^lib/" "${LIBDIR}/" file "${file}")
  if(NOT EXISTS "${prefix}/${file}")
    message(FATAL_ERROR "missing: ${prefix}/${file}")
  endif()
endforeach()
file(READ_SYMLINK "${libdir}/libzptgenpx.so" link)
if(NOT link STREQUAL "libzptgenpx.so.6.1")
  message(FATAL_ERROR "libzptgenpx.so -> ${link}")
endif()

set(ENV{LD_LIBRARY_PATH} "${libdir}")

# pkg-config, with no other search path; for the unpacked packages the .pc
# names /usr, which the sysroot maps to the scratch root.
set(ENV{PKG_CONFIG_LIBDIR} "${libdir}/pkgconfig")
set(ENV{PKG_CONFIG_PATH} "")
if(root)
  set(ENV{PKG_CONFIG_SYSROOT_DIR} "${root}")
endif()
run(pkg-config --cflags --libs zptgenpx)
separate_arguments(pc_flags UNIX_COMMAND "${output}")
run(${CC} ${C_FLAGS} -Wall -Wextra -Werror "${CMAKE_CURRENT_LIST_DIR}/consumer.c" ${pc_flags}
    -o "${WORK_DIR}/consumer_pkgconfig")
run(${EMULATOR} "${WORK_DIR}/consumer_pkgconfig")
message(STATUS "pkg-config: ${output}")

# find_package, searching only the scratch prefix.
set(cmake_args)
if(C_FLAGS)
  # A 32-bit consumer looks in the 32-bit multiarch directory, as a
  # toolchain file for the i386 architecture would tell CMake.
  list(APPEND cmake_args "-DCMAKE_C_FLAGS=${C_FLAGS}" -DCMAKE_LIBRARY_ARCHITECTURE=${MULTIARCH})
endif()
run(${CMAKE_COMMAND} -S "${CMAKE_CURRENT_LIST_DIR}" -B "${WORK_DIR}/consumer_cmake"
    -DCMAKE_C_COMPILER=${CC} -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF ${cmake_args})
if(NOT output MATCHES "configuration: ${libdir}/cmake/zptgenpx")
  message(FATAL_ERROR "find_package found another configuration:\n${output}")
endif()
run(${CMAKE_COMMAND} --build "${WORK_DIR}/consumer_cmake")
run(${EMULATOR} "${WORK_DIR}/consumer_cmake/consumer")
message(STATUS "find_package: ${output}")
