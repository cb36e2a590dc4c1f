# 64-bit ARM.
set(EBO_TRIPLE aarch64-linux-gnu)
set(EBO_QEMU qemu-aarch64)
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
set(CMAKE_SYSTEM_PROCESSOR aarch64)
