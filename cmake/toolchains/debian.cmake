# What the toolchain files of this folder share, for Debian's cross compilers: EBO_TRIPLE and EBO_QEMU name the target.
# Built programs run under qemu-user. The header-only libraries of the build machine fit every target; they are linked
# into a folder of their own, since nothing else of its /usr/include may be seen.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${EBO_TRIPLE}-gcc)  # GoogleTest asks for one
set(CMAKE_CXX_COMPILER ${EBO_TRIPLE}-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR "${EBO_QEMU};-L;/usr/${EBO_TRIPLE}")

get_filename_component(headers "${CMAKE_CURRENT_LIST_DIR}/../../build/cross-headers" ABSOLUTE)
file(MAKE_DIRECTORY "${headers}/include" "${headers}/share/cmake")
foreach(link include/rapidjson include/nlohmann share/cmake/nlohmann_json)
  if(EXISTS "/usr/${link}" AND NOT EXISTS "${headers}/${link}")
    file(CREATE_LINK "/usr/${link}" "${headers}/${link}" SYMBOLIC)
  endif()
endforeach()

set(CMAKE_FIND_ROOT_PATH "/usr/${EBO_TRIPLE}" "${headers}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
