# Warnings of our own targets, never of their users.
set(EBO_WARNINGS -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wformat=2)
if(EBO_WERROR)
  list(APPEND EBO_WARNINGS -Werror)
endif()

option(EBO_COVERAGE "Count what runs of the library, the embedded framework, and what the tool knows" OFF)

function(ebo_count_runs target)
  if(EBO_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage -fprofile-update=atomic)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()

# The library and the embedded framework run on small devices: no exceptions, no RTTI, and calls of their own functions
# that the compiler may inline although the code is position-independent.
function(ebo_compile_for_device target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS} -fno-exceptions -fno-rtti -fno-semantic-interposition)
  set_target_properties(${target} PROPERTIES CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  ebo_count_runs(${target})
endfunction()

function(ebo_compile_for_desk target)
  target_compile_options(${target} PRIVATE ${EBO_WARNINGS})
endfunction()

# What a library is, by BUILD_SHARED_LIBS, and what else there is of it: the tool, the tests and the benchmarks call what
# a shared library hides, so they always stand on a static one.
if(BUILD_SHARED_LIBS)
  set(EBO_KIND shared)
  set(EBO_OTHER_KIND static)
else()
  set(EBO_KIND static)
  set(EBO_OTHER_KIND shared)
endif()
set(EBO_KINDS ${EBO_KIND})
if(EBO_BUILD_SHARED OR (BUILD_SHARED_LIBS AND
    (EBO_BUILD_TOOLS OR EBO_BUILD_TESTS OR EBO_BUILD_BENCHMARKS OR EBO_BUILD_FUZZERS)))
  list(APPEND EBO_KINDS ${EBO_OTHER_KIND})
endif()

# The target <name> is the kind that BUILD_SHARED_LIBS asks for, and <name>_<kind> the other one.
function(ebo_target_of_kind name kind result)
  if(kind STREQUAL EBO_KIND)
    set(${result} ${name} PARENT_SCOPE)
  else()
    set(${result} ${name}_${kind} PARENT_SCOPE)
  endif()
endfunction()

# After add_library(): the aliases <alias>, of the kind that is asked for, and <alias>_<kind>. The soname follows the
# major version: records and public functions do not change within one. A shared library finds those that it needs
# beside it.
function(ebo_finish_library target name alias kind)
  add_library(${alias}_${kind} ALIAS ${target})
  if(kind STREQUAL EBO_KIND)
    add_library(${alias} ALIAS ${target})
  endif()
  set_target_properties(${target} PROPERTIES OUTPUT_NAME ${name})
  if(kind STREQUAL shared)
    set_target_properties(${target} PROPERTIES
      VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR} INSTALL_RPATH "$ORIGIN")
    target_link_options(${target} PRIVATE LINKER:--no-undefined)
  endif()
endfunction()
