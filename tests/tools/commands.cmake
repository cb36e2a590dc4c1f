# Tests of the commands of eboconf, one folder each, and of what they share.
find_package(GTest CONFIG QUIET)
find_package(nlohmann_json 3.9 REQUIRED)
include(GoogleTest)
set(tunings "${PROJECT_SOURCE_DIR}/tunings")

# One run of the tool: its exit status, its standard output, which must equal the files STDOUT one after another (so
# be empty without any), and its standard error, which must match the regular expression STDERR (which without one is
# anything). It runs in the folder of the calling CMakeLists.txt. scripts/golden writes the files STDOUT anew.
function(ebo_command_test name status)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "STDERR" "RUN;STDOUT")
  add_test(NAME tool.${name} COMMAND ${CMAKE_COMMAND}
    "-Dcommand=$<TARGET_FILE:eboconf>;${arg_RUN}" "-Dstatus=${status}" "-Dstdout=${arg_STDOUT}" "-Dstderr=${arg_STDERR}"
    "-Dactual=${CMAKE_CURRENT_BINARY_DIR}/${name}" -P "${PROJECT_SOURCE_DIR}/tests/tools/check_run.cmake")
  set_tests_properties(tool.${name} PROPERTIES WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}" ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tools/leaks.supp:print_suppressions=0")
  if(arg_STDOUT)
    set_tests_properties(tool.${name} PROPERTIES LABELS golden)
  endif()
endfunction()

# Tests in C++ of what stands behind a command. Loaders leave blocks behind on purpose.
function(ebo_command_unit_test name)
  add_executable(${name} ${ARGN})
  target_link_libraries(${name} PRIVATE tool_random_tuning GTest::gmock GTest::gtest_main)
  target_compile_definitions(${name} PRIVATE TUNINGS="${tunings}")
  ebo_compile_for_desk(${name})
  gtest_discover_tests(${name} TEST_PREFIX "tool." DISCOVERY_MODE PRE_TEST PROPERTIES ENVIRONMENT
    "LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/tools/check/leaks.supp:print_suppressions=0")
endfunction()

add_subdirectory(tests/tools)
foreach(folder random catalogue diff explain export keys schema shell)
  add_subdirectory("tests/tools/${folder}")
endforeach()
