# Run by cpack on the finished packages: adds "Multi-Arch: same" to each
# control file (CPack has no field for it), unpacking and rebuilding the
# package with dpkg-deb; owner and group of every file stay root.
foreach(package IN LISTS CPACK_PACKAGE_FILES)
  set(tree "${CPACK_TOPLEVEL_DIRECTORY}/multiarch")
  file(REMOVE_RECURSE "${tree}")
  execute_process(COMMAND dpkg-deb -R "${package}" "${tree}" RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "dpkg-deb -R ${package} failed")
  endif()
  file(READ "${tree}/DEBIAN/control" control)
  if(NOT control MATCHES "\nMulti-Arch:")
    string(STRIP "${control}" control)
    file(WRITE "${tree}/DEBIAN/control" "${control}\nMulti-Arch: same\n")
  endif()
  execute_process(COMMAND dpkg-deb --root-owner-group -Zgzip -b "${tree}" "${package}"
      OUTPUT_QUIET RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "dpkg-deb -b ${package} failed")
  endif()
  file(REMOVE_RECURSE "${tree}")
endforeach()
