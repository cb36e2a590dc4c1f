# Warnings of our own targets, never of their users.
set(EBO_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wformat=2 -Werror)

option(EBO_COVERAGE "Count what runs of the library and the embedded framework" OFF)

# The library and the embedded framework run on small devices: no exceptions, no RTTI, and calls of their own functions
# that the compiler may inline although the code is position-independent.
function(ebo_compile_for_device target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS} -fno-exceptions -fno-rtti -fno-semantic-interposition)
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  if(EBO_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()

function(ebo_compile_for_desk target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS})
endfunction()

# The soname follows the major version: records and public functions do not change within one.
function(ebo_shared_library target output_name)
  set_target_properties(${target} PROPERTIES
    OUTPUT_NAME ${output_name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  target_link_options(${target} PRIVATE LINKER:--no-undefined)
endfunction()
