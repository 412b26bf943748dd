# Debian packages of the build (`cpack -G DEB` in the build tree, or the
# `package` target), split as Debian splits a library:
#
#   libzptgenpx6.1   libzptgenpx.so.6.1               Section libs,     Multi-Arch: same
#   libzptcore6.1    libzptcore.so.6.1 (the core)     Section libs,     Multi-Arch: same
#   libzptgenpx-dev  headers, .so links, pkg-config,  Section libdevel, Multi-Arch: same
#                    CMake package configuration
#
# Architecture i386 for the 32-bit build, the build machine's (amd64) for
# the native one. Every file lies in the multiarch directory or is the same
# in both (the headers), so the two architectures install side by side.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME zptgenpx)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "zptgenpx maintainers <maintainers@zptgenpx.invalid>")
set(CPACK_DEB_COMPONENT_INSTALL ON)
# Installed with DESTDIR into the staging tree and prefix /usr, so that what
# is written at install time (zptgenpx.pc) names /usr, not the staging tree.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL runtime core dev)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE "${ZPTG_DEB_ARCH}")
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(deb_version "${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME "libzptgenpx${PROJECT_VERSION}")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# Description: the first line is the synopsis.
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "fixed-size linear transforms, generic scalar variant
libzptgenpx.so.${PROJECT_VERSION}: the complex DFT, the real DFT in three packed
spectrum layouts and the Hartley transform of every length 2 to 64, the
Walsh-Hadamard transform of orders 1 to 13 and the type-IV DCT of
power-of-two lengths, in plain scalar code without vector instructions.")
set(CPACK_DEBIAN_CORE_PACKAGE_NAME "libzptcore${PROJECT_VERSION}")
set(CPACK_DEBIAN_CORE_PACKAGE_SECTION libs)
set(CPACK_COMPONENT_CORE_DESCRIPTION "core library of libzptgenpx (allocator pair)
libzptcore.so.${PROJECT_VERSION}: zptMalloc and zptFree, which libzptgenpx uses
for the blocks it allocates.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME libzptgenpx-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "fixed-size linear transforms, generic scalar variant (development files)
Headers, the links for the linker, the pkg-config file zptgenpx.pc and the
CMake package configuration (find_package(zptgenpx)) of libzptgenpx.")
set(CPACK_DEBIAN_DEV_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} (= ${deb_version}), ${CPACK_DEBIAN_CORE_PACKAGE_NAME} (= ${deb_version})")

# Each runtime package has a shlibs file (for dpkg-shlibdeps of programs
# built against it) and activates the ldconfig trigger, as Debian's library
# packages do (no maintainer scripts).
foreach(component runtime core)
  string(TOUPPER ${component} COMPONENT)
  string(REGEX REPLACE "[0-9.]+$" "" library "${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME}")
  set(control "${PROJECT_BINARY_DIR}/install/deb-${component}")
  file(WRITE "${control}/shlibs"
       "${library} ${PROJECT_VERSION} ${CPACK_DEBIAN_${COMPONENT}_PACKAGE_NAME} (>= ${deb_version})\n")
  file(WRITE "${control}/triggers" "activate-noawait ldconfig\n")
  set(CPACK_DEBIAN_${COMPONENT}_PACKAGE_CONTROL_EXTRA "${control}/shlibs;${control}/triggers")
endforeach()

# The libc6 each runtime package needs is read off its library when the
# packages are made (cmake/ZptgPackageConfig.cmake), and Multi-Arch, which
# CPack does not write, is added to the finished packages.
file(GENERATE OUTPUT "${PROJECT_BINARY_DIR}/install/packaged_libraries.cmake" CONTENT
"set(ZPTG_RUNTIME_LIBRARY [[$<TARGET_FILE:zptgenpx>]])
set(ZPTG_CORE_LIBRARY [[$<TARGET_FILE:zptcore>]])
set(ZPTG_CORE_PACKAGE [[${CPACK_DEBIAN_CORE_PACKAGE_NAME} (= ${deb_version})]])
")
set(CPACK_ZPTG_PACKAGED_LIBRARIES "${PROJECT_BINARY_DIR}/install/packaged_libraries.cmake")
set(CPACK_PROJECT_CONFIG_FILE "${CMAKE_CURRENT_LIST_DIR}/ZptgPackageConfig.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/ZptgDebMultiArch.cmake")
# That script compresses the package anew (gzip: xz takes seconds).
set(CPACK_DEBIAN_COMPRESSION_TYPE none)
include(CPack)
