# 32-bit ARM with hardware floating point.
set(EBO_TRIPLE arm-linux-gnueabihf)
set(EBO_QEMU qemu-arm)
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
set(CMAKE_SYSTEM_PROCESSOR armv7l)
