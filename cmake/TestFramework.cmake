include_guard(GLOBAL)

# GoogleTest has to be compiled like the tests: for Windows, or with the sanitizers. So its sources come first; a
# compiled package is the second choice.
set(VXDPI_GOOGLETEST_SOURCE_DIR /usr/src/googletest CACHE PATH "Folder with GoogleTest's sources")

if(EXISTS ${VXDPI_GOOGLETEST_SOURCE_DIR}/CMakeLists.txt)
    # Lets the two variables below count as the options of the same names.
    set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
    set(INSTALL_GTEST OFF)
    set(gtest_force_shared_crt ON)
    add_subdirectory(${VXDPI_GOOGLETEST_SOURCE_DIR} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    if(NOT TARGET GTest::gmock)
        add_library(GTest::gmock ALIAS gmock)
    endif()
else()
    find_package(GTest REQUIRED)
endif()
