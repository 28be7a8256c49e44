# Installs the library's debug and release forms into one package, moves it, builds the application of this folder from
# it in both and runs it. The application of the guide for beginners is built, too:
#
#   cmake -D BUILD_DIR=... -D CONFIG=... [-D REPORT=...] -P TestPackage.cmake
#
#   BUILD_DIR  build of the library, in which CONFIG is built; its counterpart is built here unless it is already
#   REPORT     file for the results, in the form of GoogleTest's XML reports
cmake_minimum_required(VERSION 3.25)

get_filename_component(root ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
get_filename_component(BUILD_DIR ${BUILD_DIR} ABSOLUTE)
load_cache(${BUILD_DIR} READ_WITH_PREFIX build_ CMAKE_GENERATOR CMAKE_GENERATOR_PLATFORM CMAKE_TOOLCHAIN_FILE
    CMAKE_PROJECT_VERSION CMAKE_PROJECT_VERSION_MAJOR CMAKE_PROJECT_VERSION_MINOR)
set(work_dir ${BUILD_DIR}/package-test/${CONFIG})
set(package_dir ${work_dir}/moved/elsewhere)
set(consumer_dir ${work_dir}/consumer)
set(other_config Debug)
if(CONFIG STREQUAL Debug)
    set(other_config RelWithDebInfo)
endif()

set(cases "")
set(failures 0)

# One result. A test that fails does not end the script, unless nothing can follow it.
function(report name passed text)
    if(passed)
        message(STATUS "ok: ${name}")
        string(APPEND cases "    <testcase name=\"${name}\" classname=\"Package\" />\n")
    else()
        message(STATUS "FAILED: ${name}\n${text}")
        string(APPEND cases "    <testcase name=\"${name}\" classname=\"Package\">\n"
            "      <failure message=\"see the log\" type=\"\"></failure>\n    </testcase>\n")
        math(EXPR failures "${failures} + 1")
    endif()
    set(cases "${cases}" PARENT_SCOPE)
    set(failures ${failures} PARENT_SCOPE)
endfunction()

macro(finish)
    if(REPORT)
        file(WRITE ${REPORT} "<testsuites>\n  <testsuite name=\"Package\">\n${cases}  </testsuite>\n</testsuites>\n")
    endif()
    if(failures)
        message(FATAL_ERROR "${failures} of the package's tests failed")
    endif()
    return()
endmacro()

# A command that the following ones need.
macro(report_needed name)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(status EQUAL 0)
        report(${name} TRUE "")
    else()
        report(${name} FALSE "${output}")
        finish()
    endif()
endmacro()

# What a configuration has for itself. The package's other files are the same in both.
function(list_own_files prefix output_variable)
    file(GLOB_RECURSE files RELATIVE ${prefix} ${prefix}/bin/* ${prefix}/lib/*)
    list(FILTER files EXCLUDE REGEX ^lib/cmake/)
    set(${output_variable} ${files} PARENT_SCOPE)
endfunction()

macro(install_and_move)
    file(REMOVE_RECURSE ${work_dir})
    report_needed(CounterpartIsBuilt ${CMAKE_COMMAND} --build ${BUILD_DIR} --config ${other_config} --target vxdpi)
    foreach(config IN ITEMS ${CONFIG} ${other_config})
        report_needed(Installs${config} ${CMAKE_COMMAND} --install ${BUILD_DIR} --config ${config}
            --prefix ${work_dir}/only-${config})
        list_own_files(${work_dir}/only-${config} files_of_${config})
        report_needed(Installs${config}BesideTheOther ${CMAKE_COMMAND} --install ${BUILD_DIR} --config ${config}
            --prefix ${work_dir}/installed)
    endforeach()
    file(MAKE_DIRECTORY ${work_dir}/moved)
    file(RENAME ${work_dir}/installed ${package_dir})
endmacro()

# Otherwise the configuration that is installed later would take the other's place.
macro(check_own_files)
    set(shared "")
    foreach(file IN LISTS files_of_${CONFIG})
        if(file IN_LIST files_of_${other_config})
            string(APPEND shared "${file}\n")
        endif()
    endforeach()
    if(files_of_${CONFIG} AND files_of_${other_config} AND shared STREQUAL "")
        report(DebugAndReleaseShareNoFile TRUE "")
    else()
        report(DebugAndReleaseShareNoFile FALSE "${files_of_${CONFIG}}\n${files_of_${other_config}}\n${shared}")
    endif()
endmacro()

# The text files of the package must not tell where they were made.
macro(check_paths)
    set(found "")
    file(GLOB_RECURSE files ${package_dir}/lib/cmake/* ${package_dir}/include/* ${package_dir}/share/*)
    foreach(file IN LISTS files)
        file(READ ${file} text)
        foreach(folder IN ITEMS ${root} ${BUILD_DIR} ${work_dir})
            string(FIND "${text}" ${folder} position)
            if(NOT position EQUAL -1)
                string(APPEND found "${file}: ${folder}\n")
            endif()
        endforeach()
    endforeach()
    if(files AND found STREQUAL "")
        report(NamesNoFolderOfTheBuild TRUE "")
    else()
        report(NamesNoFolderOfTheBuild FALSE "${found}")
    endif()
endmacro()

# How the library's own build was configured, and where the package is.
set(settings -G ${build_CMAKE_GENERATOR} -D CMAKE_PREFIX_PATH=${package_dir})
if(build_CMAKE_GENERATOR_PLATFORM)
    list(APPEND settings -A ${build_CMAKE_GENERATOR_PLATFORM})
endif()
if(build_CMAKE_TOOLCHAIN_FILE)
    list(APPEND settings -D CMAKE_TOOLCHAIN_FILE=${build_CMAKE_TOOLCHAIN_FILE})
endif()

macro(configure_consumer)
    file(WRITE ${work_dir}/Probe.cmake
        [[file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/library-$<CONFIG>.txt CONTENT $<TARGET_FILE:vxdpi::vxdpi>)]])
    report_needed(IsFoundWhereItWasMovedTo ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${consumer_dir}
        ${settings} -D CMAKE_PROJECT_consumer_INCLUDE=${work_dir}/Probe.cmake)
endmacro()

macro(check_library_of config file)
    file(READ ${consumer_dir}/library-${config}.txt chosen)
    if(chosen STREQUAL "${package_dir}/bin/${file}")
        report(GivesTheLibraryFor${config} TRUE "")
    else()
        report(GivesTheLibraryFor${config} FALSE "${chosen} instead of ${file}")
    endif()
endmacro()

# The program is run as the tests are: at a DPI that is not the base, and away from Windows in a session.
macro(run_consumer config)
    set(command ${consumer_dir}/${config}/consumer.exe)
    if(NOT CMAKE_HOST_WIN32)
        list(PREPEND command ${root}/platform/wine/session --dpi 144 --timeout 60 --)
    endif()
    execute_process(COMMAND ${command} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT status EQUAL 0)
        report(${config}ProgramEndsWell FALSE "exit code ${status}\n${output}")
    else()
        report(${config}ProgramEndsWell TRUE "")
    endif()
    file(GLOB headers RELATIVE ${package_dir}/include/vxdpi ${package_dir}/include/vxdpi/*.h)
    list(REMOVE_ITEM headers Export.h GdiPlus.h VxDpi.h)
    foreach(header IN LISTS headers ITEMS DpiImages)
        get_filename_component(family ${header} NAME_WE)
        if(output MATCHES "ok ${family}\r?\n")
            report(${config}ProgramUses${family} TRUE "")
        else()
            report(${config}ProgramUses${family} FALSE "${output}")
        endif()
    endforeach()
endmacro()

# Answers what find_package says to a build by another compiler or for another processor, or to one that needs another
# version.
function(find_package_as compiler processor version output_variable)
    file(WRITE ${work_dir}/Find.cmake
        "set(CMAKE_CXX_COMPILER_ID ${compiler})\nset(CMAKE_SYSTEM_NAME Windows)\n"
        "set(CMAKE_CXX_COMPILER_ARCHITECTURE_ID ${processor})\n"
        "find_package(vxdpi ${version} CONFIG REQUIRED PATHS ${package_dir} NO_DEFAULT_PATH)\n")
    execute_process(COMMAND ${CMAKE_COMMAND} -P ${work_dir}/Find.cmake OUTPUT_VARIABLE output ERROR_VARIABLE output)
    string(REGEX REPLACE "[ \n]+" " " output "${output}")
    set(${output_variable} ${output} PARENT_SCOPE)
endfunction()

macro(report_match name text pattern)
    if("${text}" MATCHES "${pattern}")
        report(${name} TRUE "")
    else()
        report(${name} FALSE "${text}")
    endif()
endmacro()

macro(check_refusals)
    set(version ${build_CMAKE_PROJECT_VERSION_MAJOR}.${build_CMAKE_PROJECT_VERSION_MINOR})
    find_package_as(Other "" ${version} answer)
    report_match(RefusesAnotherCompilerForWindows "${answer}"
        "this package was built by [A-Za-z]+ for Windows( [A-Za-z0-9]+)?, not by Other for Windows")
    string(REGEX REPLACE ".*built by ([A-Za-z]+) for.*" "\\1" builder "${answer}")
    find_package_as(${builder} Other ${version} answer)
    report_match(RefusesAnotherProcessor "${answer}"
        "this package was built by ${builder} for Windows( [A-Za-z0-9]+)?, not by ${builder} for Windows Other")
    math(EXPR next "${build_CMAKE_PROJECT_VERSION_MINOR} + 1")
    find_package_as(Other "" ${build_CMAKE_PROJECT_VERSION_MAJOR}.${next} answer)
    report_match(RefusesToBeANewerVersion "${answer}" "compatible with requested version")

    if(NOT CMAKE_HOST_WIN32)
        execute_process(COMMAND ${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${work_dir}/foreign -G Ninja
            -D CMAKE_PREFIX_PATH=${package_dir}
            OUTPUT_VARIABLE answer ERROR_VARIABLE answer)
        string(REGEX REPLACE "[ \n]+" " " answer "${answer}")
        report_match(RefusesTheSystemsOwnCompiler "${answer}"
            "this package was built by GNU for Windows, not by [A-Za-z]+ for ${CMAKE_HOST_SYSTEM_NAME}")
    endif()
endmacro()

macro(check_port)
    file(READ ${root}/packaging/vcpkg/vxdpi/vcpkg.json port)
    string(JSON port_version GET "${port}" version)
    if(port_version STREQUAL build_CMAKE_PROJECT_VERSION)
        report(PortHasTheVersion TRUE "")
    else()
        report(PortHasTheVersion FALSE "${port_version} instead of ${build_CMAKE_PROJECT_VERSION}")
    endif()
endmacro()

check_port()
install_and_move()
check_own_files()
check_paths()
check_refusals()
configure_consumer()
check_library_of(Debug vxdpid.dll)
check_library_of(Release vxdpi.dll)
check_library_of(RelWithDebInfo vxdpi.dll)
foreach(config IN ITEMS ${CONFIG} ${other_config})
    report_needed(${config}ProgramIsBuilt ${CMAKE_COMMAND} --build ${consumer_dir} --config ${config})
    run_consumer(${config})
endforeach()
report_needed(FirstApplicationIsConfigured ${CMAKE_COMMAND} -S ${root}/examples/getting-started -B ${work_dir}/first
    ${settings})
report_needed(FirstApplicationIsBuilt ${CMAKE_COMMAND} --build ${work_dir}/first --config ${CONFIG})
finish()
