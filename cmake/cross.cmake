# Builds for another processor with Debian's cross compiler, for scripts/other_processors.sh. TRIPLET names the target as
# compilers do, CROSS_ROOT is where the target's libraries were unpacked, and CMAKE_CROSSCOMPILING_EMULATOR runs programs.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TRIPLET CROSS_ROOT)
set(CMAKE_SYSTEM_NAME Linux)
string(REGEX MATCH "^[^-]+" CMAKE_SYSTEM_PROCESSOR ${TRIPLET})
set(CMAKE_CXX_COMPILER ${TRIPLET}-g++)
set(CMAKE_LIBRARY_ARCHITECTURE ${TRIPLET})

# Whole programs: the emulator needs no system around them.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
set(CMAKE_FIND_LIBRARY_SUFFIXES .a)

set(CMAKE_CXX_FLAGS_INIT "-isystem \"${CROSS_ROOT}/usr/include/${TRIPLET}\"")
set(CMAKE_FIND_ROOT_PATH ${CROSS_ROOT})
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
