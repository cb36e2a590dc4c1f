# A tuning at build time, as constants in read-only memory: no parser, no heap, nothing to do at the start.
#
#   ebo_add_tuning(TARGET target NAME name FILE product.json [PART full|aec|beamform|ao|agc])
#
# checks the file whenever it has changed, and stops the build where a device could not load it, with the file's line in
# a compiler's usual form. The target gets <name.h>, for C and C++, which declares `name`, a constant of the record type
# that the part's loader returns: KAEboParam, EboAecParam, EboBeamFormParam, EboAgcParam; `full` without PART.
# EBOCONF_EXECUTABLE names the tool; cross-compiling, that of the build machine.
function(ebo_add_tuning)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "TARGET;NAME;FILE;PART" "")
  foreach(argument TARGET NAME FILE)
    if(NOT arg_${argument})
      message(FATAL_ERROR "ebo_add_tuning: ${argument} is missing")
    endif()
  endforeach()
  if(arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "ebo_add_tuning: there is no argument ${arg_UNPARSED_ARGUMENTS}")
  endif()
  if(NOT arg_PART)
    set(arg_PART full)
  elseif(NOT arg_PART MATCHES "^(full|aec|beamform|ao|agc)$")
    message(FATAL_ERROR "ebo_add_tuning: PART is full, aec, beamform, ao or agc, not ${arg_PART}")
  endif()
  if(NOT arg_NAME MATCHES "^[A-Za-z_][A-Za-z0-9_]*$")
    message(FATAL_ERROR "ebo_add_tuning: NAME is a name in C, not ${arg_NAME}")
  endif()

  if(TARGET eboconf AND NOT CMAKE_CROSSCOMPILING AND NOT EBOCONF_EXECUTABLE)
    set(eboconf eboconf)
  else()
    find_program(EBOCONF_EXECUTABLE eboconf NO_CMAKE_FIND_ROOT_PATH DOC "eboconf of the build machine")
    if(NOT EBOCONF_EXECUTABLE)
      message(FATAL_ERROR "ebo_add_tuning: there is no eboconf: set EBOCONF_EXECUTABLE to that of the build machine")
    endif()
    set(eboconf "${EBOCONF_EXECUTABLE}")
  endif()

  # A source in a language that the project has.
  get_property(languages GLOBAL PROPERTY ENABLED_LANGUAGES)
  set(extension cpp)
  if("C" IN_LIST languages)
    set(extension c)
  endif()
  get_filename_component(file "${arg_FILE}" ABSOLUTE)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/${arg_TARGET}_tunings")
  set(source "${folder}/${arg_NAME}.${extension}")
  set(header "${folder}/${arg_NAME}.h")
  set(export ${eboconf} export --part ${arg_PART} --name ${arg_NAME})
  add_custom_command(OUTPUT "${source}" "${header}"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${folder}"
    COMMAND ${eboconf} check --part ${arg_PART} "${file}"
    COMMAND ${export} --format h "${file}" > "${header}"
    COMMAND ${export} --format c "${file}" > "${source}"
    DEPENDS "${file}" ${eboconf}
    COMMENT "Checking ${arg_FILE}, for ${arg_NAME}"
    VERBATIM)
  target_sources(${arg_TARGET} PRIVATE "${source}" "${header}")
  # Of the library it needs the records' header alone.
  target_include_directories(${arg_TARGET} PRIVATE "${folder}"
    $<TARGET_PROPERTY:ebo::config,INTERFACE_INCLUDE_DIRECTORIES>)
endfunction()
