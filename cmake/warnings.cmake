# Warnings are errors for our own targets; third-party code is compiled without this.
function(zq_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Werror
    -Wno-missing-field-initializers)
endfunction()
