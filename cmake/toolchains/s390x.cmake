# A 64-bit big-endian processor: the tests' example of one.
set(EBO_TRIPLE s390x-linux-gnu)
set(EBO_QEMU qemu-s390x)
include("${CMAKE_CURRENT_LIST_DIR}/debian.cmake")
set(CMAKE_SYSTEM_PROCESSOR s390x)
