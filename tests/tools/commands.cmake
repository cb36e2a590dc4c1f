# Tests of the commands of eboconf, one folder each, and of what they share.
find_package(GTest CONFIG QUIET)
include(GoogleTest)
set(tunings "${PROJECT_SOURCE_DIR}/tunings")

# One run of the tool: its exit status, its standard output, which must equal the files STDOUT one after another (so
# be empty without any), and its standard error, which must match the regular expression STDERR (which without one is
# anything). It runs in the folder of the calling CMakeLists.txt.
function(ebo_command_test name status)
  cmake_parse_arguments(PARSE_ARGV 2 arg "" "STDERR" "RUN;STDOUT")
  add_test(NAME tool.${name} COMMAND ${CMAKE_COMMAND}
    "-Dcommand=$<TARGET_FILE:eboconf>;${arg_RUN}" "-Dstatus=${status}" "-Dstdout=${arg_STDOUT}" "-Dstderr=${arg_STDERR}"
    "-Dactual=${CMAKE_CURRENT_BINARY_DIR}/${name}" -P "${PROJECT_SOURCE_DIR}/tests/tools/check_run.cmake")
  set_tests_properties(tool.${name} PROPERTIES WORKING_DIRECTORY "${CMAKE_CURRENT_SOURCE_DIR}")
endfunction()

foreach(folder random catalogue diff explain export keys schema shell)
  add_subdirectory("tests/tools/${folder}")
endforeach()
