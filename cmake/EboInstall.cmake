# Components: `config` is what a host builds with, `config_runtime` the shared library that it then runs with;
# `framework` and `framework_runtime` are the same of the embedded framework, where the library stands on that; `live` is
# a running product's tuning; `tool` is eboconf with its man page, completions, schema and examples.
include(CMakePackageConfigHelpers)

# A folder that is given whole but lies in the prefix moves with it.
foreach(folder LIBDIR INCLUDEDIR)
  file(RELATIVE_PATH inside "${CMAKE_INSTALL_PREFIX}" "${CMAKE_INSTALL_FULL_${folder}}")
  if(NOT inside MATCHES "^\\.\\./")
    set(CMAKE_INSTALL_${folder} "${inside}")
  endif()
endforeach()
set(cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ebo_config")

# ebo_install_library(<name> <alias> <component>): the kinds that were asked for, as <alias> and <alias>_<kind>.
function(ebo_install_library name alias component)
  ebo_target_of_kind(${name} ${EBO_OTHER_KIND} other)
  set(libraries ${name})
  set_target_properties(${name} PROPERTIES EXPORT_NAME ${alias})
  if(EBO_BUILD_SHARED)
    list(APPEND libraries ${other})
    set_target_properties(${other} PROPERTIES EXPORT_NAME ${alias}_${EBO_OTHER_KIND})
  endif()
  install(TARGETS ${libraries} EXPORT ${name}_targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${component}_runtime NAMELINK_COMPONENT ${component})
endfunction()

# ebo_install_pc(<name> <component>): the .pc file names its folders from where it is itself, so that it moves with them;
# a folder outside the prefix is named as it is.
function(ebo_install_pc name component)
  file(RELATIVE_PATH up "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
  set(EBO_PC_PREFIX "\${pcfiledir}/${up}")
  string(REGEX REPLACE "/$" "" EBO_PC_PREFIX "${EBO_PC_PREFIX}")
  if(IS_ABSOLUTE "${CMAKE_INSTALL_LIBDIR}")
    set(EBO_PC_PREFIX "${CMAKE_INSTALL_PREFIX}")
  endif()
  foreach(folder LIBDIR INCLUDEDIR)
    set(EBO_PC_${folder} "${CMAKE_INSTALL_${folder}}")
    if(NOT IS_ABSOLUTE "${CMAKE_INSTALL_${folder}}")
      set(EBO_PC_${folder} "\${prefix}/${CMAKE_INSTALL_${folder}}")
    endif()
  endforeach()
  configure_file(cmake/${name}.pc.in "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT ${component})
endfunction()

ebo_install_library(ebo_config config config)
install(EXPORT ebo_config_targets NAMESPACE ebo:: DESTINATION ${cmake_dir} COMPONENT config)
install(FILES config/ebo_config.h config/ebo_lifecycle.h config/ebo_params.h config/ebo_version.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config COMPONENT config)
install(FILES config/parse/ebo_parse.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config/parse COMPONENT config)
install(FILES config/dump/ebo_dump.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config/dump COMPONENT config)
install(DIRECTORY framework/kit DESTINATION ${cmake_dir} COMPONENT config
  FILES_MATCHING PATTERN "*.cpp" PATTERN "*.h" PATTERN "*.cmake")

if(TARGET ebo_live)
  set_target_properties(ebo_live PROPERTIES EXPORT_NAME live)
  install(TARGETS ebo_live EXPORT ebo_live_targets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT live)
  install(EXPORT ebo_live_targets NAMESPACE ebo:: DESTINATION ${cmake_dir} COMPONENT live)
  install(FILES live/ebo_live.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config COMPONENT live)
endif()

if(EBO_FRAMEWORK_DIR)
  set(EBO_EMBEDDED_FRAMEWORK OFF)
else()
  set(EBO_EMBEDDED_FRAMEWORK ON)
endif()
configure_package_config_file(cmake/ebo_config-config.cmake.in "${PROJECT_BINARY_DIR}/ebo_config-config.cmake"
  INSTALL_DESTINATION ${cmake_dir} PATH_VARS CMAKE_INSTALL_BINDIR)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ebo_config-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ebo_config-config.cmake" "${PROJECT_BINARY_DIR}/ebo_config-config-version.cmake"
  cmake/EboTuning.cmake
  DESTINATION ${cmake_dir} COMPONENT config)

if(EBO_EMBEDDED_FRAMEWORK)
  ebo_install_library(ka_framework framework framework)
  install(EXPORT ka_framework_targets NAMESPACE ka:: DESTINATION ${cmake_dir} COMPONENT framework)
  install(DIRECTORY framework/ka DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT framework
    FILES_MATCHING PATTERN "*.h")
  set(EBO_PC_REQUIRES "ka_framework")
  ebo_install_pc(ka_framework framework)
endif()
ebo_install_pc(ebo_config config)

if(TARGET eboconf)
  install(TARGETS eboconf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  install(DIRECTORY tunings/ DESTINATION ${CMAKE_INSTALL_DATADIR}/ebo_config/tunings COMPONENT tool)
  if(NOT EBO_DEBIAN_FILES)
    install(FILES docs/man/eboconf.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  endif()
  install(FILES completions/eboconf.bash RENAME eboconf
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
  install(FILES completions/_eboconf DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT tool)
  install(FILES completions/eboconf.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
  install(FILES docs/check.md docs/tuning-file.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/ebo_config COMPONENT tool)
endif()
