include(CMakePackageConfigHelpers)

set(MOTA_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/mota")

install(TARGETS mota EXPORT motaTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})

# Public headers, and the `_private` helpers they include (each marked as not public).
install(DIRECTORY "${PROJECT_SOURCE_DIR}/mota/"
  DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/mota"
  FILES_MATCHING PATTERN "*.hpp"
  PATTERN "testdata" EXCLUDE)

install(EXPORT motaTargets NAMESPACE mota:: DESTINATION "${MOTA_CMAKE_DIR}")

configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/motaConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/motaConfig.cmake"
  INSTALL_DESTINATION "${MOTA_CMAKE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/motaConfigVersion.cmake"
  VERSION ${PROJECT_VERSION}
  COMPATIBILITY SameMinorVersion)
install(FILES "${PROJECT_BINARY_DIR}/motaConfig.cmake" "${PROJECT_BINARY_DIR}/motaConfigVersion.cmake"
  DESTINATION "${MOTA_CMAKE_DIR}")

# The .pc file finds its prefix relative to its own folder, so an installed tree can be moved.
file(RELATIVE_PATH MOTA_PC_UP "/root/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/root")
configure_file("${PROJECT_SOURCE_DIR}/cmake/mota.pc.in" "${PROJECT_BINARY_DIR}/mota.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/mota.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
