# Where `cmake --install` puts things, and the two ways another build finds
# the installed library: a pkg-config file and a CMake package
# configuration (imported targets zptgenpx::zptgenpx and zptgenpx::zptcore,
# written by the install(EXPORT) in src/).
#
# On a multiarch system (Debian and its kin) libraries go to
# lib/<triplet>, lib/i386-linux-gnu for the 32-bit build, whatever the
# prefix: the 32-bit and the x86-64 library can then share one prefix, and
# their Debian packages can be installed side by side.
if(ZPTG_MULTIARCH AND NOT DEFINED CACHE{CMAKE_INSTALL_LIBDIR})
  set(CMAKE_INSTALL_LIBDIR "lib/${ZPTG_MULTIARCH}" CACHE PATH "Object code libraries (lib/<multiarch triplet>)")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(ZPTG_CMAKE_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/zptgenpx")

# The pkg-config file is written at install time, so that it names the
# prefix actually installed to (`cmake --install --prefix`, or /usr when the
# Debian packages are made); one file per destination, since two installs
# of one build may run at once.
install(CODE "
  set(prefix \"\${CMAKE_INSTALL_PREFIX}\")
  set(libdir \"${CMAKE_INSTALL_LIBDIR}\")
  set(includedir \"${CMAKE_INSTALL_INCLUDEDIR}\")
  set(version \"${PROJECT_VERSION}\")
  string(MD5 destination \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
  set(pc \"${PROJECT_BINARY_DIR}/install/\${destination}/zptgenpx.pc\")
  configure_file(\"${CMAKE_CURRENT_LIST_DIR}/zptgenpx.pc.in\" \"\${pc}\" @ONLY)
  file(INSTALL \"\${pc}\" DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig\")
" COMPONENT dev)

# The soname carries major and minor: 6.1 serves callers that ask for 6.1.
write_basic_package_version_file("${PROJECT_BINARY_DIR}/install/zptgenpxConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES "${CMAKE_CURRENT_LIST_DIR}/zptgenpxConfig.cmake"
              "${PROJECT_BINARY_DIR}/install/zptgenpxConfigVersion.cmake"
    DESTINATION "${ZPTG_CMAKE_PACKAGE_DIR}" COMPONENT dev)
