include_guard(GLOBAL)

# Adds the version record and the manifest of res/ to the library's DLL.
function(vxdpi_add_resources target)
    set(manifest ${PROJECT_SOURCE_DIR}/res/vxdpi.manifest)
    set(script ${PROJECT_BINARY_DIR}/generated/vxdpi.rc)

    # Microsoft's linker always makes a manifest and merges those given as sources; one more in the script would be
    # a duplicate. Elsewhere the script is the only way in. A DLL's manifest has the resource ID 2, its type is 24.
    if(MSVC)
        set(VXDPI_RC_MANIFEST "")
        target_sources(${target} PRIVATE ${manifest})
    else()
        set(VXDPI_RC_MANIFEST "2 24 \"${manifest}\"")
    endif()

    configure_file(${PROJECT_SOURCE_DIR}/res/vxdpi.rc.in ${script} @ONLY)
    set_property(SOURCE ${script} APPEND PROPERTY OBJECT_DEPENDS ${manifest})
    target_sources(${target} PRIVATE ${script})
endfunction()
