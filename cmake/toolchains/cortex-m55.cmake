# Cortex-M55, on QEMU's board mps3-an547.
set(EBO_CPU -mcpu=cortex-m55 -mfloat-abi=hard)
set(EBO_BOARD mps3-an547)
include("${CMAKE_CURRENT_LIST_DIR}/arm-none-eabi.cmake")
