# Warning flags for the project's own targets only; consumers never inherit them.
function(mota_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  if(MOTA_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
