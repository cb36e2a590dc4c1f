# Warnings of our own targets, never of their users.
set(EBO_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wformat=2 -Werror)

# The library and the embedded framework run on small devices: no exceptions, no RTTI, and calls of their own functions
# that the compiler may inline although the code is position-independent.
function(ebo_compile_for_device target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS} -fno-exceptions -fno-rtti -fno-semantic-interposition)
endfunction()

function(ebo_compile_for_desk target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS})
endfunction()
