# Debian packages over the embedded framework, one for each component of the installation: cpack -G DEB
set(CPACK_PACKAGE_NAME ebo-config)
set(CPACK_PACKAGE_VENDOR "ebo_config developers")
set(CPACK_PACKAGE_CONTACT "ebo_config developers <ebo-config@example.org>")
set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${PROJECT_BINARY_DIR}/framework")
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(version "(= ${PROJECT_VERSION})")
function(ebo_debian_package component name section description)
  string(TOUPPER ${component} key)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${name} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${section} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${ARGN}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${description}" PARENT_SCOPE)
endfunction()

ebo_debian_package(tool ebo-config-tools sound "Command-line tool for tuning files of the voice pipeline")
if(EBO_BUILD_SHARED OR BUILD_SHARED_LIBS)
  ebo_debian_package(config libebo-config-dev libdevel "Tuning files of the voice pipeline, for building"
    "libebo-config${PROJECT_VERSION_MAJOR} ${version}, libka-framework-dev ${version}")
  ebo_debian_package(config_runtime libebo-config${PROJECT_VERSION_MAJOR} libs "Tuning files of the voice pipeline"
    "libka-framework${PROJECT_VERSION_MAJOR} ${version}")
  ebo_debian_package(framework libka-framework-dev libdevel "Embedded host framework of ebo_config, for building"
    "libka-framework${PROJECT_VERSION_MAJOR} ${version}")
  ebo_debian_package(framework_runtime libka-framework${PROJECT_VERSION_MAJOR} libs
    "Embedded host framework of ebo_config")
else()
  ebo_debian_package(config libebo-config-dev libdevel "Tuning files of the voice pipeline, for building"
    "libka-framework-dev ${version}")
  ebo_debian_package(framework libka-framework-dev libdevel "Embedded host framework of ebo_config, for building")
endif()
include(CPack)
