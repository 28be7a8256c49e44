include(CMakePackageConfigHelpers)
include(GNUInstallDirs)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vxdpi)

install(TARGETS vxdpi vxdpi_framework EXPORT vxdpiTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY include/vxdpi DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(MSVC)
    install(FILES $<TARGET_PDB_FILE:vxdpi> DESTINATION ${CMAKE_INSTALL_BINDIR} OPTIONAL)
else()
    # With Microsoft's linker the views are in the PDB.
    install(DIRECTORY natvis DESTINATION ${CMAKE_INSTALL_DATADIR}/vxdpi)
endif()

# What has files of its own per configuration, besides the library; with Microsoft's MFC the framework has none.
set(VXDPI_COMPILED_FRAMEWORK_TARGETS "")
if(NOT MSVC)
    set(VXDPI_COMPILED_FRAMEWORK_TARGETS "vxdpi::framework vxdpi::vxdpi_framework_exe vxdpi::vxdpi_framework_dll")
endif()

install(EXPORT vxdpiTargets NAMESPACE vxdpi:: DESTINATION ${package_dir})
configure_package_config_file(cmake/vxdpiConfig.cmake.in ${PROJECT_BINARY_DIR}/generated/vxdpiConfig.cmake
    INSTALL_DESTINATION ${package_dir}
    PATH_VARS CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/generated/vxdpiConfigVersion.cmake
    COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/generated/vxdpiConfig.cmake
    ${PROJECT_BINARY_DIR}/generated/vxdpiConfigVersion.cmake
    cmake/DpiImages.cmake
    DESTINATION ${package_dir})

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_VENDOR "The vxdpi authors")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
# Packages of different compilers can't take each other's place, so that their names tell them apart.
string(TOLOWER ${CMAKE_CXX_COMPILER_ID} compiler)
set(CPACK_PACKAGE_FILE_NAME vxdpi-${PROJECT_VERSION}-windows-x64-${compiler})
if(PROJECT_IS_TOP_LEVEL)
    include(CPack)
endif()
