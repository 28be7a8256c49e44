# A DLL on the shared MFC, which can't be combined with a static run-time library.
vcpkg_check_linkage(ONLY_DYNAMIC_LIBRARY ONLY_DYNAMIC_CRT)

# The port builds the sources that it stands in.
get_filename_component(SOURCE_PATH ${CMAKE_CURRENT_LIST_DIR}/../../.. ABSOLUTE)

vcpkg_cmake_configure(
    SOURCE_PATH ${SOURCE_PATH}
    OPTIONS -DVXDPI_BUILD_TESTS=OFF -DVXDPI_BUILD_GALLERY=OFF -DVXDPI_WARNINGS_AS_ERRORS=OFF)
vcpkg_cmake_install()
vcpkg_cmake_config_fixup(CONFIG_PATH lib/cmake/vxdpi)

file(REMOVE_RECURSE ${CURRENT_PACKAGES_DIR}/debug/include ${CURRENT_PACKAGES_DIR}/debug/share)
file(COPY ${CMAKE_CURRENT_LIST_DIR}/usage DESTINATION ${CURRENT_PACKAGES_DIR}/share/${PORT})
vcpkg_install_copyright(FILE_LIST ${SOURCE_PATH}/LICENSE)
