# Cortex-M33 with its floating-point unit, on QEMU's board mps2-an505.
set(EBO_CPU -mcpu=cortex-m33 -mfloat-abi=hard -mfpu=fpv5-sp-d16)
set(EBO_BOARD mps2-an505)
include("${CMAKE_CURRENT_LIST_DIR}/arm-none-eabi.cmake")
