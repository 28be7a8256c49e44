# Builds 64-bit Windows programs on Linux; the programs run on Wine.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

# The compilers for the POSIX thread model: the unsuffixed ones may lack std::mutex.
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

list(APPEND CMAKE_FIND_ROOT_PATH /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
# ONLY would hide packages that CMAKE_PREFIX_PATH names.
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE BOTH)

# The loader itself: the wrapper script called wine adds a start-up cost to every run.
find_program(VXDPI_WINE NAMES wine64 wine PATHS /usr/lib/wine)
mark_as_advanced(VXDPI_WINE)
if(VXDPI_WINE)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${VXDPI_WINE})
endif()
