# Checks of the library as consumers get it: the build installed into a scratch prefix (a
# fixture), every installed header compiled alone under strict warnings, and the example
# consumer built against the install through find_package and through pkg-config, as C++17 and
# as C++20, and once with the sources added as a subdirectory. Included from tests/.
set(MOTA_SCRATCH_PREFIX "${PROJECT_BINARY_DIR}/scratch-install")
set(MOTA_CONSUMER_BUILDS "${PROJECT_BINARY_DIR}/consumer-builds")

add_test(NAME install_into_scratch_prefix
  COMMAND bash -c "rm -rf \"$1\" && \"$2\" --install \"$3\" --prefix \"$1\" --config \"$4\" > /dev/null"
          install "${MOTA_SCRATCH_PREFIX}" "${CMAKE_COMMAND}" "${PROJECT_BINARY_DIR}" "$<CONFIG>")
set_tests_properties(install_into_scratch_prefix PROPERTIES FIXTURES_SETUP mota_installed)
add_test(NAME remove_scratch_prefix COMMAND "${CMAKE_COMMAND}" -E rm -rf "${MOTA_SCRATCH_PREFIX}")
set_tests_properties(remove_scratch_prefix PROPERTIES FIXTURES_CLEANUP mota_installed)

add_test(NAME installed_headers_compile_alone
  COMMAND bash "${PROJECT_SOURCE_DIR}/scripts/check-headers.sh"
          "${MOTA_SCRATCH_PREFIX}/${CMAKE_INSTALL_INCLUDEDIR}" "${CMAKE_CXX_COMPILER}")
set_tests_properties(installed_headers_compile_alone PROPERTIES FIXTURES_REQUIRED mota_installed)

# One build of examples/consumer: NAME, how it finds the library, the C++ standard, and more
# configure options.
function(mota_consumer_test name with standard)
  add_test(NAME ${name}
    COMMAND "${CMAKE_CTEST_COMMAND}"
      --build-and-test "${PROJECT_SOURCE_DIR}/examples/consumer" "${MOTA_CONSUMER_BUILDS}/${name}"
      --build-generator "${CMAKE_GENERATOR}"
      --build-options "-DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER}"
                      "-DMOTA_CONSUMER_STANDARD=${standard}" "-DMOTA_CONSUMER_WITH=${with}" ${ARGN}
      --test-command consumer)
endfunction()

foreach(standard 17 20)
  mota_consumer_test(consumer_find_package_cxx${standard} package ${standard}
                     "-DCMAKE_PREFIX_PATH=${MOTA_SCRATCH_PREFIX}")
  mota_consumer_test(consumer_pkg_config_cxx${standard} pkg-config ${standard})
  set_tests_properties(consumer_find_package_cxx${standard} consumer_pkg_config_cxx${standard}
    PROPERTIES FIXTURES_REQUIRED mota_installed LABELS consumer)
  set_tests_properties(consumer_pkg_config_cxx${standard} PROPERTIES
    ENVIRONMENT "PKG_CONFIG_PATH=${MOTA_SCRATCH_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()

# Builds the whole library again inside the consumer's tree.
mota_consumer_test(consumer_subdirectory_cxx20 subdirectory 20
                   "-DMOTA_SOURCE_DIR=${PROJECT_SOURCE_DIR}")
set_tests_properties(consumer_subdirectory_cxx20 PROPERTIES
  LABELS consumer ENVIRONMENT "CMAKE_BUILD_PARALLEL_LEVEL=2")
