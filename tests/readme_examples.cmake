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
  file(WRITE "${path}.new" "${content}")
  configure_file("${path}.new" "${path}" COPYONLY)
  file(REMOVE "${path}.new")
endfunction()
set(rest "${readme}")
set(consumed 0)  # characters of the README before `rest`
while(TRUE)
  string(FIND "${rest}" "\n```cpp\n" open)
  if(open EQUAL -1)
    break()
  endif()
  # The fence's line number: the newlines before it, plus one for the newline that ends the
  # previous line.
  math(EXPR fence_at "${consumed} + ${open}")
  string(SUBSTRING "${readme}" 0 ${fence_at} before)
  string(REGEX MATCHALL "\n" newlines "${before}")
  list(LENGTH newlines line)
  math(EXPR line "${line} + 2")

  math(EXPR body_at "${open} + 8")
  string(SUBSTRING "${rest}" ${body_at} -1 rest)
  math(EXPR consumed "${consumed} + ${body_at}")
  string(FIND "${rest}" "\n```" close)
  if(close EQUAL -1)
    message(FATAL_ERROR "README.md:${line}: a ```cpp block is not closed")
  endif()
  math(EXPR code_size "${close} + 1")
  string(SUBSTRING "${rest}" 0 ${code_size} code)
  math(EXPR after "${close} + 4")
  string(SUBSTRING "${rest}" ${after} -1 rest)
  math(EXPR consumed "${consumed} + ${after}")

  set(name "readme_example_line_${line}")
  list(APPEND examples "${name}")
  mota_write_if_changed("${examples_dir}/${name}.cpp" "${code}")
  add_executable(${name} "${examples_dir}/${name}.cpp")
  target_link_libraries(${name} PRIVATE mota::mota)
  mota_warnings(${name})

  # The expected output, when the next fence opens a ```text block.
  set(expected "")
  string(FIND "${rest}" "\n```" next)
  if(NOT next EQUAL -1)
    math(EXPR next_info "${next} + 4")
    string(SUBSTRING "${rest}" ${next_info} 5 info)
    if(info STREQUAL "text\n")
      math(EXPR text_at "${next_info} + 5")
      string(SUBSTRING "${rest}" ${text_at} -1 text)
      string(FIND "${text}" "\n```" text_end)
      math(EXPR text_size "${text_end} + 1")
      string(SUBSTRING "${text}" 0 ${text_size} text)
      set(expected "${examples_dir}/${name}.expected")
      mota_write_if_changed("${expected}" "${text}")
    endif()
  endif()
  add_test(NAME ${name}
    COMMAND "${CMAKE_COMMAND}" "-DPROGRAM=$<TARGET_FILE:${name}>" "-DEXPECTED=${expected}"
            -P "${CMAKE_CURRENT_SOURCE_DIR}/run_readme_example.cmake"
    WORKING_DIRECTORY "${PROJECT_SOURCE_DIR}")
  set_tests_properties(${name} PROPERTIES LABELS readme)
endwhile()

# Sources of examples that have since moved or gone.
file(GLOB generated "${examples_dir}/readme_example_line_*")
foreach(file IN LISTS generated)
  string(REGEX REPLACE "\\.[a-z]+$" "" stem "${file}")
  get_filename_component(stem "${stem}" NAME)
  if(NOT stem IN_LIST examples)
    file(REMOVE "${file}")
  endif()
endforeach()
