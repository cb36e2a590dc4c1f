include $(sort $(wildcard $(BR2_EXTERNAL_EBO_PATH)/package/*/*.mk))
