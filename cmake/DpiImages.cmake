include_guard(GLOBAL)
cmake_minimum_required(VERSION 3.20)

find_program(VXDPI_SVG_RENDERER rsvg-convert DOC "Renders changed drawings for vxdpi_add_dpi_images")

# Adds pictures to a program, each in one PNG resource per DPI, rendered from SVG drawings in units of 1/96 inch.
#
#   vxdpi_add_dpi_images(<target>
#       HEADER <name>       written to a folder that is added to the target's include path
#       FIRST_ID <number>   of the resources, which are numbered in the order of IMAGES and DPIS
#       DPIS <dpi>...
#       IMAGES <svg>...)
#
# For art/tool-strip.svg at 96 and 144 DPI the target gets the resources IDR_TOOL_STRIP_96 and IDR_TOOL_STRIP_144 of
# type "PNG", and the header has, besides these two names, what is to be registered:
#
#   namespace dpi_images
#   {
#   inline constexpr std::pair<unsigned, unsigned> kToolStrip[] = {{96, IDR_TOOL_STRIP_96}, {144, IDR_TOOL_STRIP_144}};
#   }
#
# The rendered files art/tool-strip-96.png and so on are kept beside the drawing, under version control, with the
# drawings' checksums in art/rendered.txt. So only a drawing that was changed is rendered, while configuring, and only
# then a renderer (rsvg-convert) is needed. Call the function in the folder that the target is made in.
function(vxdpi_add_dpi_images target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "HEADER;FIRST_ID" "DPIS;IMAGES")
    foreach(name IN ITEMS HEADER FIRST_ID DPIS IMAGES)
        if(NOT DEFINED arg_${name})
            message(FATAL_ERROR "vxdpi_add_dpi_images: ${name} is missing")
        endif()
    endforeach()

    set(id ${arg_FIRST_ID})
    foreach(svg IN LISTS arg_IMAGES)
        cmake_path(ABSOLUTE_PATH svg BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
        _vxdpi_update_renderings(${svg} "${arg_DPIS}")
        cmake_path(GET svg STEM LAST_ONLY picture)
        string(TOUPPER ${picture} macro)
        string(REGEX REPLACE "[^A-Z0-9]" "_" macro ${macro})
        set(variants "")
        foreach(dpi IN LISTS arg_DPIS)
            _vxdpi_rendering(png ${svg} ${dpi})
            list(APPEND pngs ${png})
            string(APPEND macros "#define IDR_${macro}_${dpi} ${id}\n")
            string(APPEND resources "IDR_${macro}_${dpi} PNG \"${png}\"\n")
            list(APPEND variants "{${dpi}, IDR_${macro}_${dpi}}")
            math(EXPR id "${id} + 1")
        endforeach()
        _vxdpi_camel_case(constant ${picture})
        list(JOIN variants ", " variants)
        string(APPEND constants "inline constexpr std::pair<unsigned, unsigned> k${constant}[] = {${variants}};\n")
    endforeach()

    set(folder ${CMAKE_CURRENT_BINARY_DIR}/dpi_images)
    cmake_path(GET arg_HEADER STEM LAST_ONLY script)
    set(script ${folder}/${script}_resources.rc)
    file(CONFIGURE OUTPUT ${folder}/${arg_HEADER} @ONLY CONTENT [[
// Made by vxdpi_add_dpi_images: changes here are lost.
#pragma once

@macros@
#ifndef RC_INVOKED
#include <utility>

/// The variants of each picture: the DPI that one is drawn for, and its resource ID.
namespace dpi_images
{
@constants@} // namespace dpi_images
#endif
]])
    file(CONFIGURE OUTPUT ${script} @ONLY CONTENT "#include \"@arg_HEADER@\"\n\n@resources@")
    set_property(SOURCE ${script} APPEND PROPERTY OBJECT_DEPENDS ${pngs} ${folder}/${arg_HEADER})
    target_sources(${target} PRIVATE ${script})
    target_include_directories(${target} PRIVATE ${folder})
endfunction()

function(_vxdpi_rendering result svg dpi)
    cmake_path(REMOVE_EXTENSION svg LAST_ONLY)
    set(${result} ${svg}-${dpi}.png PARENT_SCOPE)
endfunction()

# tool-strip becomes ToolStrip.
function(_vxdpi_camel_case result name)
    string(REGEX MATCHALL "[A-Za-z0-9]+" words ${name})
    foreach(word IN LISTS words)
        string(SUBSTRING ${word} 0 1 initial)
        string(SUBSTRING ${word} 1 -1 rest)
        string(TOUPPER ${initial} initial)
        string(APPEND camel_case ${initial}${rest})
    endforeach()
    set(${result} ${camel_case} PARENT_SCOPE)
endfunction()

# Renders a drawing that has changed since it was rendered, or that lacks a file.
function(_vxdpi_update_renderings svg dpis)
    # Configures again when the drawing is edited.
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${svg})
    foreach(dpi IN LISTS dpis)
        _vxdpi_rendering(png ${svg} ${dpi})
        if(NOT EXISTS ${png})
            list(APPEND missing ${png})
        endif()
    endforeach()
    _vxdpi_is_recorded(recorded ${svg})
    if(recorded AND NOT missing)
        return()
    endif()

    if(VXDPI_SVG_RENDERER)
        _vxdpi_render(${svg} "${dpis}")
    elseif(missing)
        list(JOIN missing "\n    " missing)
        message(FATAL_ERROR "No rsvg-convert was found, which is needed to make\n    ${missing}")
    else()
        message(WARNING "${svg} has changed and is used as it was rendered before: no rsvg-convert was found.")
    endif()
endfunction()

function(_vxdpi_is_recorded result svg)
    _vxdpi_record(record line ${svg})
    set(lines "")
    if(EXISTS ${record})
        file(STRINGS ${record} lines)
    endif()
    if(line IN_LIST lines)
        set(${result} TRUE PARENT_SCOPE)
    else()
        set(${result} FALSE PARENT_SCOPE)
    endif()
endfunction()

# The file that has the checksums of a drawing's folder, as sha256sum --check reads them, and the drawing's line.
function(_vxdpi_record result_file result_line svg)
    cmake_path(GET svg PARENT_PATH folder)
    cmake_path(GET svg FILENAME name)
    file(READ ${svg} drawing)
    string(REPLACE "\r\n" "\n" drawing "${drawing}")
    string(SHA256 checksum "${drawing}")
    set(${result_file} ${folder}/rendered.txt PARENT_SCOPE)
    set(${result_line} "SHA256 (${name}) = ${checksum}" PARENT_SCOPE)
endfunction()

function(_vxdpi_render svg dpis)
    foreach(dpi IN LISTS dpis)
        _vxdpi_rendering(png ${svg} ${dpi})
        math(EXPR thousandths "${dpi} * 1000 / 96")
        math(EXPR whole "${thousandths} / 1000")
        math(EXPR fraction "1000 + ${thousandths} % 1000")
        string(SUBSTRING ${fraction} 1 -1 fraction)
        execute_process(
            COMMAND ${VXDPI_SVG_RENDERER} --dpi-x 96 --dpi-y 96 --zoom ${whole}.${fraction} --output ${png} ${svg}
            COMMAND_ERROR_IS_FATAL ANY)
    endforeach()

    _vxdpi_record(record line ${svg})
    cmake_path(GET svg FILENAME name)
    set(lines "")
    if(EXISTS ${record})
        file(STRINGS ${record} lines)
        string(REPLACE "." "\\." pattern ${name})
        list(FILTER lines EXCLUDE REGEX "\\(${pattern}\\)")
    endif()
    list(APPEND lines ${line})
    list(SORT lines)
    list(JOIN lines "\n" lines)
    file(WRITE ${record} "${lines}\n")
    message(STATUS "Rendered ${svg}")
endfunction()
