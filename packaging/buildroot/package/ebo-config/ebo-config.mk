################################################################################
#
# ebo-config
#
################################################################################

EBO_CONFIG_VERSION = 1.0.0
EBO_CONFIG_SITE = $(BR2_EXTERNAL_EBO_PATH)/../..
EBO_CONFIG_SITE_METHOD = local
EBO_CONFIG_OVERRIDE_SRCDIR_RSYNC_EXCLUSIONS = --exclude /build --exclude '/build-*'
EBO_CONFIG_LICENSE = Apache-2.0
EBO_CONFIG_LICENSE_FILES = LICENSE THIRD-PARTY-NOTICES.md
EBO_CONFIG_INSTALL_STAGING = YES
EBO_CONFIG_DEPENDENCIES = rapidjson
EBO_CONFIG_CONF_OPTS = \
	-DEBO_BUILD_SHARED=$(if $(BR2_SHARED_STATIC_LIBS),ON,OFF) \
	-DEBO_BUILD_TESTS=OFF \
	-DEBO_WERROR=OFF

ifeq ($(BR2_PACKAGE_EBO_CONFIG_TOOL),y)
EBO_CONFIG_DEPENDENCIES += cli11 json-for-modern-cpp tomlplusplus
EBO_CONFIG_CONF_OPTS += -DEBO_BUILD_TOOLS=ON
else
EBO_CONFIG_CONF_OPTS += -DEBO_BUILD_TOOLS=OFF
endif

$(eval $(cmake-package))
