# Components: `config` is what a host builds with, `config_runtime` the shared library that it then runs with;
# `framework` and `framework_runtime` are the same of the embedded framework, where the library stands on that; `tool` is
# eboconf with its man page, completions, schema and examples.
include(CMakePackageConfigHelpers)

set(cmake_dir "${CMAKE_INSTALL_LIBDIR}/cmake/ebo_config")
set(libraries ebo_config)
set_target_properties(ebo_config PROPERTIES EXPORT_NAME config)
if(TARGET ebo_config_shared)
  list(APPEND libraries ebo_config_shared)
  set_target_properties(ebo_config_shared PROPERTIES EXPORT_NAME config_shared)
endif()
install(TARGETS ${libraries} EXPORT ebo_config_targets
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT config
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT config_runtime NAMELINK_COMPONENT config)
install(EXPORT ebo_config_targets NAMESPACE ebo:: DESTINATION ${cmake_dir} COMPONENT config)
install(FILES config/ebo_config.h config/ebo_lifecycle.h config/ebo_params.h config/ebo_version.h
  DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config COMPONENT config)
install(FILES config/parse/ebo_parse.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config/parse COMPONENT config)
install(FILES config/dump/ebo_dump.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/ebo_config/dump COMPONENT config)

if(EBO_FRAMEWORK_DIR)
  set(EBO_EMBEDDED_FRAMEWORK OFF)
else()
  set(EBO_EMBEDDED_FRAMEWORK ON)
endif()
configure_package_config_file(cmake/ebo_config-config.cmake.in "${PROJECT_BINARY_DIR}/ebo_config-config.cmake"
  INSTALL_DESTINATION ${cmake_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ebo_config-config-version.cmake"
  COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ebo_config-config.cmake" "${PROJECT_BINARY_DIR}/ebo_config-config-version.cmake"
  DESTINATION ${cmake_dir} COMPONENT config)

if(EBO_EMBEDDED_FRAMEWORK)
  set(libraries ka_framework)
  set_target_properties(ka_framework PROPERTIES EXPORT_NAME framework)
  if(TARGET ka_framework_shared)
    list(APPEND libraries ka_framework_shared)
    set_target_properties(ka_framework_shared PROPERTIES EXPORT_NAME framework_shared)
  endif()
  install(TARGETS ${libraries} EXPORT ka_framework_targets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT framework
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT framework_runtime NAMELINK_COMPONENT framework)
  install(EXPORT ka_framework_targets NAMESPACE ka:: DESTINATION ${cmake_dir} COMPONENT framework)
  install(DIRECTORY framework/ka DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT framework
    FILES_MATCHING PATTERN "*.h")
  set(EBO_PC_REQUIRES "ka_framework")
  configure_file(cmake/ka_framework.pc.in "${PROJECT_BINARY_DIR}/ka_framework.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/ka_framework.pc"
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT framework)
endif()
configure_file(cmake/ebo_config.pc.in "${PROJECT_BINARY_DIR}/ebo_config.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/ebo_config.pc" DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT config)

if(TARGET eboconf)
  install(TARGETS eboconf RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
  install(DIRECTORY tunings/ DESTINATION ${CMAKE_INSTALL_DATADIR}/ebo_config/tunings COMPONENT tool)
  install(FILES docs/man/eboconf.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
  install(FILES completions/eboconf.bash RENAME eboconf
    DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
  install(FILES completions/_eboconf DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions COMPONENT tool)
  install(FILES completions/eboconf.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT tool)
  install(FILES docs/check.md docs/tuning-file.schema.json DESTINATION ${CMAKE_INSTALL_DATADIR}/ebo_config COMPONENT tool)
endif()
