# Install rules, in three components that the Debian packages follow:
#   runtime  the shared library and its SONAME link
#   dev      headers, CMake package files, pkg-config file, the unversioned .so link
#   tools    the mota command (installed from tools/CMakeLists.txt)
include(CMakePackageConfigHelpers)

set(MOTA_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/mota")

install(TARGETS mota EXPORT motaTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT dev
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# The public headers, and the `_private` headers they include (directly or through one
# another); the other `_private` headers belong to the library's own sources.
file(GLOB_RECURSE _mota_public_headers RELATIVE "${PROJECT_SOURCE_DIR}" CONFIGURE_DEPENDS
     "${PROJECT_SOURCE_DIR}/mota/*.hpp")
list(FILTER _mota_public_headers EXCLUDE REGEX "/(_private|testdata)/")
set(_mota_installed_headers ${_mota_public_headers})
set(_mota_unscanned ${_mota_public_headers})
while(_mota_unscanned)
  list(POP_FRONT _mota_unscanned _header)
  file(STRINGS "${PROJECT_SOURCE_DIR}/${_header}" _includes REGEX "^#include <mota/.*_private/")
  foreach(_line IN LISTS _includes)
    string(REGEX REPLACE "^#include <([^>]+)>.*" "\\1" _included "${_line}")
    if(NOT _included IN_LIST _mota_installed_headers)
      list(APPEND _mota_installed_headers "${_included}")
      list(APPEND _mota_unscanned "${_included}")
    endif()
  endforeach()
endwhile()
foreach(_header IN LISTS _mota_installed_headers)
  get_filename_component(_dir "${_header}" DIRECTORY)
  install(FILES "${PROJECT_SOURCE_DIR}/${_header}" DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/${_dir}"
          COMPONENT dev)
endforeach()

install(EXPORT motaTargets NAMESPACE mota:: DESTINATION "${MOTA_CMAKE_DIR}" COMPONENT dev)

# A consumer of the shared library never sees Boost; a static library would pass the link
# to Boost on, and then the consumer has to find it.
get_target_property(_mota_type mota TYPE)
if(_mota_type STREQUAL "STATIC_LIBRARY")
  set(MOTA_FIND_BOOST "find_dependency(Boost 1.74 COMPONENTS filesystem system)")
else()
  set(MOTA_FIND_BOOST "# The shared library carries its own link to Boost.")
endif()
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/motaConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/motaConfig.cmake"
  INSTALL_DESTINATION "${MOTA_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/motaConfigVersion.cmake"
  VERSION ${PROJECT_VERSION}
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/motaConfig.cmake" "${PROJECT_BINARY_DIR}/motaConfigVersion.cmake"
  DESTINATION "${MOTA_CMAKE_DIR}" COMPONENT dev)

# The .pc file finds its prefix relative to its own folder, so an installed tree can be moved.
# It sets no language standard: the headers need C++17 or later, and the consumer picks which.
file(RELATIVE_PATH MOTA_PC_UP "/root/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/root")
configure_file("${PROJECT_SOURCE_DIR}/cmake/mota.pc.in" "${PROJECT_BINARY_DIR}/mota.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/mota.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        COMPONENT dev)
