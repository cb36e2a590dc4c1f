################################################################################
#
# tomlplusplus
#
################################################################################

TOMLPLUSPLUS_VERSION = 3.3.0
TOMLPLUSPLUS_SITE = $(call github,marzer,tomlplusplus,v$(TOMLPLUSPLUS_VERSION))
TOMLPLUSPLUS_LICENSE = MIT
TOMLPLUSPLUS_LICENSE_FILES = LICENSE
TOMLPLUSPLUS_INSTALL_STAGING = YES
TOMLPLUSPLUS_INSTALL_TARGET = NO

define TOMLPLUSPLUS_INSTALL_STAGING_CMDS
	mkdir -p $(STAGING_DIR)/usr/include
	cp -r $(@D)/include/toml++ $(STAGING_DIR)/usr/include/
endef

$(eval $(generic-package))
