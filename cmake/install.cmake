# cmake --install: the two libraries, their headers, tvl, a CMake package (find_package(tavlib6)
# gives tavlib6::tavlib6 and tavlib6::tavlib6x) and pkg-config files. Everything installed is
# relocatable, so `cmake --install build --prefix DIR` may name any prefix.
include(CMakePackageConfigHelpers)

set(TAVLIB6_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/tavlib6)

set_target_properties(tvl PROPERTIES INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")
install(TARGETS tavlib6 tavlib6x EXPORT tavlib6Targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(TARGETS tvl RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES include/tavlib6.h batch/tavlib6x.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

install(EXPORT tavlib6Targets NAMESPACE tavlib6:: DESTINATION ${TAVLIB6_CMAKE_DIR})
configure_package_config_file(cmake/tavlib6Config.cmake.in ${CMAKE_BINARY_DIR}/tavlib6Config.cmake
                              INSTALL_DESTINATION ${TAVLIB6_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/tavlib6ConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_BINARY_DIR}/tavlib6Config.cmake ${CMAKE_BINARY_DIR}/tavlib6ConfigVersion.cmake
        DESTINATION ${TAVLIB6_CMAKE_DIR})

# The .pc files find the prefix from their own place: ${pcfiledir} and one level up for each
# part of the libdir ("lib", or Debian's "lib/x86_64-linux-gnu"), plus one for pkgconfig/. A
# libdir or includedir given as an absolute path is written as it stands.
file(RELATIVE_PATH TAVLIB6_PC_UP "/prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/prefix")
string(REGEX REPLACE "/$" "" TAVLIB6_PC_UP "${TAVLIB6_PC_UP}")
set(TAVLIB6_PC_PREFIX "\${pcfiledir}/${TAVLIB6_PC_UP}")
foreach(dir LIBDIR INCLUDEDIR)
  if(IS_ABSOLUTE "${CMAKE_INSTALL_${dir}}")
    set(TAVLIB6_PC_${dir} "${CMAKE_INSTALL_${dir}}")
  else()
    set(TAVLIB6_PC_${dir} "\${prefix}/${CMAKE_INSTALL_${dir}}")
  endif()
endforeach()
if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
  set(TAVLIB6_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
endif()
foreach(package tavlib6 tavlib6x)
  configure_file(cmake/${package}.pc.in ${CMAKE_BINARY_DIR}/${package}.pc @ONLY)
  install(FILES ${CMAKE_BINARY_DIR}/${package}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endforeach()
