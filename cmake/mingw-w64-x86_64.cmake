# Cross build for 64-bit Windows with Debian's mingw-w64 (posix thread model), run under Wine.
# TGX_WINDOWS_PREFIXES lists the installations built for this target (the cached static wxMSW,
# GoogleTest); they are searched like the mingw sysroot.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(TGX_MINGW_HOST x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${TGX_MINGW_HOST}-gcc-posix)
set(CMAKE_CXX_COMPILER ${TGX_MINGW_HOST}-g++-posix)
set(CMAKE_RC_COMPILER ${TGX_MINGW_HOST}-windres)

# Appended, not set: CMake re-reads this file for its try-compiles and keeps what it had.
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${TGX_MINGW_HOST} ${TGX_WINDOWS_PREFIXES})
list(REMOVE_DUPLICATES CMAKE_FIND_ROOT_PATH)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TGX_WINDOWS_PREFIXES)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest runs the .exe files through Wine. Tests are listed when ctest runs, not after the
# build: the build never starts Wine, and the test run prepares the Wine prefix first.
set(CMAKE_CROSSCOMPILING_EMULATOR wine)
set(CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE PRE_TEST)
