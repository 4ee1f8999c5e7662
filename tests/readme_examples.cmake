# Every ```cpp block of README.md is a whole program: it is compiled with the public headers
# and linked with mota::mota, as a consumer would build it, and run by ctest. When the next
# fenced block after it is a ```text block, that block is what the program must print, byte for
# byte; otherwise the program must exit 0 (such examples end with their own checks). Tests are
# named after the block's line in the README, so a failure points at the example.
set(MOTA_README "${PROJECT_SOURCE_DIR}/README.md")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${MOTA_README}")
file(READ "${MOTA_README}" readme)
set(examples_dir "${CMAKE_CURRENT_BINARY_DIR}/readme_examples")

# Writes CONTENT to PATH only when it differs, so that an unchanged example is not rebuilt.
function(mota_write_if_changed path content)
  string(REPLACE "<mota-semicolon>" ";" content "${content}")
  file(WRITE "${path}.new" "${content}")
  configure_file("${path}.new" "${path}" COPYONLY)
  file(REMOVE "${path}.new")
endfunction()

# The README cut at each "\n```" into a list: odd pieces open a block (its info line, then its
# body), even ones follow a closing fence. Semicolons and brackets would cut or join the list's
# entries, so they stand in by other text until written out.
string(REPLACE ";" "<mota-semicolon>" pieces "${readme}")
string(REPLACE "[" "<mota-open>" pieces "${pieces}")
string(REPLACE "]" "<mota-close>" pieces "${pieces}")
string(REPLACE "\n```" ";" pieces "${pieces}")
set(index 0)
set(after_example -1)  # the index of the block after the last example
set(line 1)  # the README line on which the piece starts
foreach(piece IN LISTS pieces)
  string(REPLACE "<mota-open>" "[" piece "${piece}")
  string(REPLACE "<mota-close>" "]" piece "${piece}")
  math(EXPR odd "${index} % 2")
  if(odd AND piece MATCHES "^text\n" AND index EQUAL after_example)
    string(SUBSTRING "${piece}" 5 -1 text)
    mota_write_if_changed("${examples_dir}/${name}.expected" "${text}\n")
  elseif(odd AND piece MATCHES "^cpp\n")
    set(name "readme_example_line_${line}")
    list(APPEND examples "${name}")
    math(EXPR after_example "${index} + 2")
    string(SUBSTRING "${piece}" 4 -1 code)
    mota_write_if_changed("${examples_dir}/${name}.cpp" "${code}\n")
    file(REMOVE "${examples_dir}/${name}.expected")  # written again if a text block follows
    add_executable(${name} "${examples_dir}/${name}.cpp")
    target_link_libraries(${name} PRIVATE mota::mota)
    mota_warnings(${name})
    add_test(NAME ${name}
      COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=$<TARGET_FILE:${name}>"
              "-DEXPECTED=${examples_dir}/${name}.expected"
              -P "${CMAKE_CURRENT_SOURCE_DIR}/run_readme_example.cmake"
      WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
    set_tests_properties(${name} PROPERTIES LABELS readme)
  endif()
  string(REGEX MATCHALL "\n" newlines "${piece}")
  list(LENGTH newlines count)
  math(EXPR line "${line} + ${count} + 1")
  math(EXPR index "${index} + 1")
endforeach()

# Sources of examples that have since moved or gone.
file(GLOB generated "${examples_dir}/readme_example_line_*")
foreach(file IN LISTS generated)
  get_filename_component(stem "${file}" NAME_WE)
  if(NOT stem IN_LIST examples)
    file(REMOVE "${file}")
  endif()
endforeach()
