# Cortex-M4 with its floating-point unit, on QEMU's board mps2-an386.
set(EBO_CPU -mcpu=cortex-m4 -mfloat-abi=hard -mfpu=fpv4-sp-d16)
set(EBO_BOARD mps2-an386)
include("${CMAKE_CURRENT_LIST_DIR}/arm-none-eabi.cmake")
