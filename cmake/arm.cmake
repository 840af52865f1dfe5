# Builds for 32-bit ARM, with Debian's cross compiler and the libraries that scripts/arm.sh fetched into ARM_ROOT.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-linux-gnueabihf-g++)
set(CMAKE_LIBRARY_ARCHITECTURE arm-linux-gnueabihf)
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-arm)

# Whole programs: the emulator needs no ARM system around them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_LIBRARY_SUFFIXES .a)

set(ARM_ROOT ${CMAKE_CURRENT_LIST_DIR}/../build/arm-root)
set(CMAKE_CXX_FLAGS_INIT "-isystem \"${ARM_ROOT}/usr/include/${CMAKE_LIBRARY_ARCHITECTURE}\"")
set(CMAKE_FIND_ROOT_PATH ${ARM_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
