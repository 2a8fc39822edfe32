# Cross build for the phone's 32-bit ARM processor (Debian armhf) with Debian's cross compiler, against a
# sysroot of the target's own packages (scripts/test --arch armhf makes one under build/). Programs built
# here run on this machine through qemu-arm, with the sysroot as their root for the dynamic loader.
#
#   cmake -S . -B build/armhf/build -DCMAKE_TOOLCHAIN_FILE=cmake/armhf-toolchain.cmake \
#         -DZOR_ARMHF_SYSROOT=$PWD/build/armhf/sysroot
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)

set(ZOR_ARMHF_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../build/armhf/sysroot" CACHE PATH "Root of the armhf packages")
# The compiler checks run in projects of their own: they need the sysroot too.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ZOR_ARMHF_SYSROOT)
get_filename_component(ZOR_ARMHF_SYSROOT "${ZOR_ARMHF_SYSROOT}" ABSOLUTE)

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_SYSROOT "${ZOR_ARMHF_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH "${ZOR_ARMHF_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Qt's code generators (moc) are the host's own.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)

set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm -L "${ZOR_ARMHF_SYSROOT}")
