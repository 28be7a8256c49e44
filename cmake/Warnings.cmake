include_guard(GLOBAL)

# Warnings for tests, samples and the MFC subset. A warning fails the build, unless another project or a package manager
# builds the library, perhaps with a compiler that knows more warnings.
function(vxdpi_enable_warnings target)
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 $<$<BOOL:${VXDPI_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE
            $<$<COMPILE_LANGUAGE:C,CXX>:-Wall;-Wextra;-Wpedantic$<$<BOOL:${VXDPI_WARNINGS_AS_ERRORS}>:;-Werror>>)
    endif()
endfunction()

# Warnings for the product: on top of the others, every conversion that may change a value has to be written out.
function(vxdpi_enable_strict_warnings target)
    vxdpi_enable_warnings(${target})
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE $<$<COMPILE_LANGUAGE:C,CXX>:-Wconversion>)
    endif()
endfunction()
