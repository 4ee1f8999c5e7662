# Every fuzz target built a second time with the ordinary compiler around replay_main.cpp, and
# one ctest per target that feeds it its seed corpus (fuzz/corpus/<name>/) and every input that
# ever crashed it (fuzz/crashes/<name>/). Included from tests/ so `make test` replays them.
# FuzzedDataProvider.h ships with clang's runtime headers; it is copied alone, because that
# include directory also holds clang's own stddef.h, which gcc cannot read.
file(GLOB MOTA_FUZZED_DATA_PROVIDER
     "/usr/lib/llvm-*/lib/clang/*/include/fuzzer/FuzzedDataProvider.h")
set(MOTA_FUZZED_DATA_PROVIDER_DIR "${CMAKE_BINARY_DIR}/fuzz_include")
if(MOTA_FUZZED_DATA_PROVIDER)
  list(GET MOTA_FUZZED_DATA_PROVIDER 0 _provider)
  configure_file("${_provider}" "${MOTA_FUZZED_DATA_PROVIDER_DIR}/fuzzer/FuzzedDataProvider.h"
                 COPYONLY)
endif()
file(GLOB MOTA_REPLAY_SOURCES CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/fuzz/*_fuzz.cpp")
set(_mota_replays_left_out)
foreach(src IN LISTS MOTA_REPLAY_SOURCES)
  get_filename_component(name "${src}" NAME_WE)
  if(NOT MOTA_FUZZED_DATA_PROVIDER)
    # Without clang's runtime headers (install-deps.sh clang) the targets that read their
    # input through FuzzedDataProvider cannot be built; the rest are still replayed.
    file(STRINGS "${src}" _uses_provider REGEX "#include <fuzzer/FuzzedDataProvider.h>")
    if(_uses_provider)
      list(APPEND _mota_replays_left_out ${name})
      continue()
    endif()
  endif()
  add_executable(${name}_replay "${src}" "${PROJECT_SOURCE_DIR}/fuzz/replay_main.cpp")
  # A target that checks internals the shared library does not export links the static
  # archive of the same objects.
  if(name IN_LIST MOTA_FUZZ_OF_INTERNALS)
    target_link_libraries(${name}_replay PRIVATE mota_internal)
  else()
    target_link_libraries(${name}_replay PRIVATE mota::mota)
  endif()
  target_include_directories(${name}_replay SYSTEM PRIVATE "${MOTA_FUZZED_DATA_PROVIDER_DIR}")
  mota_warnings(${name}_replay)
  add_test(NAME fuzz_replay_${name}
           COMMAND ${name}_replay "${PROJECT_SOURCE_DIR}/fuzz/corpus/${name}"
                   "${PROJECT_SOURCE_DIR}/fuzz/crashes/${name}")
endforeach()
if(_mota_replays_left_out)
  list(JOIN _mota_replays_left_out ", " _names)
  message(STATUS "FuzzedDataProvider.h not found: not replaying ${_names}")
endif()
