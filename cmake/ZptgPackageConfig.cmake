# Read by cpack before it makes the packages: each runtime package depends
# on libc6 from the newest GLIBC symbol version that its library refers to
# (libm is part of libc6), and libzptgenpx6.1 on its core library.
include("${CPACK_ZPTG_PACKAGED_LIBRARIES}")

function(zptg_libc_depends library out)
  execute_process(COMMAND objdump -p "${library}" OUTPUT_VARIABLE dump
      RESULT_VARIABLE failed)
  if(failed)
    message(FATAL_ERROR "objdump -p ${library} failed")
  endif()
  string(REGEX MATCHALL "GLIBC_[0-9.]+" references "${dump}")
  set(newest 2.0)
  foreach(reference IN LISTS references)
    string(REPLACE "GLIBC_" "" version "${reference}")
    if(version VERSION_GREATER newest)
      set(newest "${version}")
    endif()
  endforeach()
  set(${out} "libc6 (>= ${newest})" PARENT_SCOPE)
endfunction()

zptg_libc_depends("${ZPTG_RUNTIME_LIBRARY}" runtime_libc)
zptg_libc_depends("${ZPTG_CORE_LIBRARY}" core_libc)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "${runtime_libc}, ${ZPTG_CORE_PACKAGE}")
set(CPACK_DEBIAN_CORE_PACKAGE_DEPENDS "${core_libc}")
