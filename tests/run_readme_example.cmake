# Runs one README example (PROGRAM) and, when the file EXPECTED exists, compares its standard
# output with that file; fails on a non-zero exit status or any difference.
execute_process(COMMAND "${PROGRAM}" RESULT_VARIABLE status OUTPUT_VARIABLE output
                ERROR_VARIABLE errors)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "the example exited with ${status}\n${output}${errors}")
endif()
if(EXISTS "${EXPECTED}")
  file(READ "${EXPECTED}" expected)
  if(NOT output STREQUAL expected)
    message(FATAL_ERROR "the example printed:\n${output}\nthe README says:\n${expected}")
  endif()
endif()
