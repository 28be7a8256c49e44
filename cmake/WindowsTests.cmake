include_guard(GLOBAL)

# Registers a Windows test program with CTest. Away from Windows it runs in a session of its own at each of the DPIs;
# on Windows once, at the DPI that the desktop has.
#
#   vxdpi_add_windows_test(<program> DPIS <dpi>...)
function(vxdpi_add_windows_test program)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "DPIS")

    if(CMAKE_HOST_WIN32)
        add_test(NAME ${program} COMMAND ${program})
        set_tests_properties(${program} PROPERTIES TIMEOUT 600)
        return()
    endif()

    set(session ${PROJECT_SOURCE_DIR}/platform/wine/session)
    if(NOT TEST wine_prefix)
        add_test(NAME wine_prefix COMMAND ${session} --prepare)
        set_tests_properties(wine_prefix PROPERTIES FIXTURES_SETUP wine_prefix TIMEOUT 300)
    endif()

    foreach(dpi IN LISTS arg_DPIS)
        add_test(NAME ${program}-${dpi} COMMAND ${session} --dpi ${dpi} --timeout 540 -- $<TARGET_FILE:${program}>)
        set_tests_properties(${program}-${dpi} PROPERTIES
            FIXTURES_REQUIRED wine_prefix
            # Longer than the session's own limit, which also ends what the program has started.
            TIMEOUT 600
            FAIL_REGULAR_EXPRESSION "wine: Unhandled")
    endforeach()
endfunction()
