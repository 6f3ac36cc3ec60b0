# SPDX-License-Identifier: Apache-2.0
# 32-bit ARM, like the devices, with Debian's armhf: compiler and C library of the cross toolchain, everything else from the
# folder that cmake/armhf/sysroot creates. Programs run under qemu.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR armv7-a)
set(QZ_ARMHF_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/armhf-sysroot" CACHE PATH "Unpacked armhf packages")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES QZ_ARMHF_SYSROOT)
get_filename_component(sysroot "${QZ_ARMHF_SYSROOT}" ABSOLUTE)

set(CMAKE_C_COMPILER arm-linux-gnueabihf-gcc)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_CXX_FLAGS_INIT "-march=armv7-a+fp -mfloat-abi=hard -mthumb -Wno-psabi")
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CMAKE_FIND_ROOT_PATH "${sysroot}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The unpacked libraries refer to each other without a path.
foreach(folder usr/lib/arm-linux-gnueabihf usr/lib/arm-linux-gnueabihf/android lib/arm-linux-gnueabihf usr/lib/p7zip)
    string(APPEND link_folders " -Wl,-rpath-link,${sysroot}/${folder}")
endforeach()
set(CMAKE_EXE_LINKER_FLAGS_INIT "${link_folders}")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "${link_folders}")
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm;-L;${sysroot})
