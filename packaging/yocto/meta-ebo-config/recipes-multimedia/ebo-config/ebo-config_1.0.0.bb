SUMMARY = "Tuning-file configuration of a voice-processing pipeline"
SECTION = "libs/multimedia"
LICENSE = "Apache-2.0"
LIC_FILES_CHKSUM = "file://LICENSE;md5=8c2a095d6ea36546c91c955f65effd66"

# The tree that this layer is part of.
inherit externalsrc cmake pkgconfig
EXTERNALSRC = "${@os.path.abspath(d.expand('${THISDIR}/../../../../..'))}"

DEPENDS = "rapidjson"

EXTRA_OECMAKE = "-DEBO_BUILD_TESTS=OFF -DEBO_BUILD_SHARED=ON -DEBO_WERROR=OFF"

PACKAGECONFIG ??= ""
PACKAGECONFIG[tool] = "-DEBO_BUILD_TOOLS=ON,-DEBO_BUILD_TOOLS=OFF,cli11 nlohmann-json tomlplusplus"

# The embedded framework, on which the library stands, and the tool are packages of their own.
PACKAGES =+ "ka-framework ${PN}-tools"
FILES:ka-framework = "${libdir}/libka_framework.so.*"
FILES:${PN}-tools = "${bindir}/eboconf ${datadir}/ebo_config ${datadir}/bash-completion ${datadir}/zsh ${datadir}/fish"
