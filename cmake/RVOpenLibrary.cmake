# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# What the libraries have in common.

include(GenerateExportHeader)

# rvopen_limit_exports(<target> <map>): the library gives away what the map names, and leaves nothing
# undefined. Sanitizers need both otherwise.
function(rvopen_limit_exports target map)
    if(CMAKE_SYSTEM_NAME STREQUAL "Linux" AND NOT is_sanitized)
        target_link_options(${target} PRIVATE
            LINKER:--no-undefined "LINKER:--version-script=${CMAKE_CURRENT_SOURCE_DIR}/${map}")
        set_property(TARGET ${target} APPEND
            PROPERTY LINK_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${map}")
    endif()
endfunction()

# rvopen_forward_headers(<folder> <header>...): installed, the headers stand in a folder of the
# library's: <rvopen/<name>/...>. Here they do not, and so that sources read the same in both places,
# there is one in the folder for each that brings it in.
function(rvopen_forward_headers folder)
    foreach(header IN LISTS ARGN)
        file(CONFIGURE OUTPUT "${folder}/${header}"
            CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n" @ONLY)
    endforeach()
endfunction()

# rvopen_finish_library(<target> <name> <include folder> <header>...): rvopen::<name>, librvopen-<name>,
# with the version of the model, its export header below the include folder, and its headers for who
# installs or documents them.
function(rvopen_finish_library target name include_dir)
    string(SUBSTRING "${name}" 0 1 initial)
    string(SUBSTRING "${name}" 1 -1 rest)
    string(TOUPPER "${name}" upper)
    string(TOUPPER "${initial}" initial)
    set(export_header "${include_dir}/rvopen/${name}/${initial}${rest}Export.h")
    generate_export_header(${target} BASE_NAME RVOPEN_${upper} EXPORT_FILE_NAME "${export_header}")
    add_library(rvopen::${name} ALIAS ${target})
    target_include_directories(${target} PUBLIC "$<BUILD_INTERFACE:${include_dir}>")
    target_compile_features(${target} PUBLIC cxx_std_17)
    rvopen_limit_exports(${target} ${name}.map)
    get_target_property(soversion rvopen SOVERSION)
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME rvopen-${name}
        EXPORT_NAME ${name}
        VERSION "${PROJECT_VERSION}"
        SOVERSION "${soversion}"
        RVOPEN_EXPORT_HEADER "${export_header}"
        # Relative to the sources.
        RVOPEN_HEADERS "${ARGN}")
    if(NOT APPLE)
        # The tree can be moved as a whole.
        set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    endif()
endfunction()
