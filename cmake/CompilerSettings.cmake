# What every module of the project is compiled and linked with, third-party test code included.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)

# Programs and the DLLs that they load stand in one folder, as Windows looks there first.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)

if(MSVC)
    add_compile_options(/utf-8 /permissive- /Zc:__cplusplus)
else()
    # A fused multiply-add would round differently on different processors.
    add_compile_options($<$<COMPILE_LANGUAGE:C,CXX>:-ffp-contract=off>)
endif()

if(MINGW)
    # The C++ run-time goes into each module: there is one DLL to ship, and it loads in a fraction of the time.
    add_link_options(-static)
    # A loader maps sections that start at a page of the file and reads others, the debug information among them.
    add_link_options(-Wl,--file-alignment,4096)
endif()

if(VXDPI_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
