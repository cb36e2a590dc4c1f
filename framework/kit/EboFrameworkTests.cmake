# Whether a framework keeps what the library relies on.
#
#   ebo_add_framework_tests(TARGET framework [SOURCES file...])
#
# adds the program <framework>_kit over the target and its <ka/framework.h>, and the test kit.<framework> with the label
# kit. SOURCES tell it what it cannot know: kit_host.h. What a host cannot offer is left out, and the program says what
# that costs: files with EBO_KIT_FILES=OFF, where SOURCES then give documents another way, and threads with
# EBO_KIT_THREADS=OFF. GoogleTest is found, or was made before as GTest::gtest.
option(EBO_KIT_FILES "The kit tries what the framework does with files" ON)
option(EBO_KIT_THREADS "The kit uses the framework from several threads" ON)

set(EBO_KIT_DIR "${CMAKE_CURRENT_LIST_DIR}" CACHE INTERNAL "Where the kit is")

# Locales that few machines have: with a decimal comma, and with letters whose case is not that of ASCII.
function(ebo_make_kit_locales)
  if(EXISTS "${EBO_KIT_LOCALES}")
    return()
  endif()
  find_program(LOCALEDEF localedef)
  set(folder "${CMAKE_BINARY_DIR}/kit-locales")
  set(options --no-archive)
  if(CMAKE_CXX_BYTE_ORDER STREQUAL BIG_ENDIAN)
    list(APPEND options --big-endian)
  endif()
  if(LOCALEDEF)
    file(MAKE_DIRECTORY "${folder}")
    foreach(locale de_DE.ISO-8859-1 tr_TR.ISO-8859-9)
      string(REGEX REPLACE "[.].*" "" language ${locale})
      string(REGEX REPLACE "^[^.]*[.]" "" charset ${locale})
      if(NOT EXISTS "${folder}/${locale}/LC_CTYPE")
        # Whether it worked the kit sees itself.
        execute_process(COMMAND ${LOCALEDEF} ${options} -i ${language} -f ${charset} "${folder}/${locale}"
          OUTPUT_QUIET ERROR_QUIET)
      endif()
    endforeach()
  endif()
  set(EBO_KIT_LOCALES "${folder}" CACHE INTERNAL "Where the kit finds locales of its own")
endfunction()

function(ebo_add_framework_tests)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET" "SOURCES")
  if(NOT arg_TARGET OR arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "ebo_add_framework_tests(TARGET framework [SOURCES file...]), not (${ARGN})")
  endif()
  get_target_property(name ${arg_TARGET} ALIASED_TARGET)
  if(NOT name)
    string(REPLACE "::" "_" name ${arg_TARGET})
  endif()
  if(TARGET ${name}_kit)
    return()
  endif()
  if(NOT TARGET GTest::gtest)
    find_package(GTest REQUIRED)
  endif()
  find_package(Threads REQUIRED)
  ebo_make_kit_locales()

  # Cases of the one stand on those before it.
  set(sources main allocator host comparison memory log numbers texts shapes parsers)
  list(TRANSFORM sources REPLACE "(.+)" "${EBO_KIT_DIR}/\\1.cpp")
  add_executable(${name}_kit ${sources} ${arg_SOURCES})
  # Their functions take the place of weak ones of the kit.
  set_source_files_properties(${arg_SOURCES} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
  target_include_directories(${name}_kit PRIVATE "${EBO_KIT_DIR}")
  target_compile_features(${name}_kit PRIVATE cxx_std_17)
  target_compile_definitions(${name}_kit PRIVATE
    EBO_KIT_FILES=$<BOOL:${EBO_KIT_FILES}> EBO_KIT_THREADS=$<BOOL:${EBO_KIT_THREADS}>
    "EBO_KIT_LOCALES=\"${EBO_KIT_LOCALES}\"")
  target_link_libraries(${name}_kit PRIVATE ${arg_TARGET} GTest::gtest Threads::Threads)
  set_target_properties(${name}_kit PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
  add_test(NAME kit.${name} COMMAND ${name}_kit --gtest_brief=1)
  set_tests_properties(kit.${name} PROPERTIES LABELS kit)
endfunction()
