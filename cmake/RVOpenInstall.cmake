# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# The installed libraries and their CMake and pkg-config packages. Nothing in them names the folder
# they were installed to: the tree can be moved as a whole.

include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/rvopen")
install(TARGETS rvopen
    EXPORT rvopenTargets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development
    FILE_SET generated_headers DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}" COMPONENT development)
# install_library(<name> <export set>): one that stands on the model, as a component of its name.
function(install_library name targets)
    install(TARGETS rvopen_${name}
        EXPORT ${targets}
        RUNTIME COMPONENT ${name}
        LIBRARY COMPONENT ${name} NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
    set(include_dir "${CMAKE_INSTALL_INCLUDEDIR}/rvopen/${name}")
    get_target_property(folder rvopen_${name} SOURCE_DIR)
    get_target_property(headers rvopen_${name} RVOPEN_HEADERS)
    foreach(header IN LISTS headers)
        cmake_path(GET header PARENT_PATH room)
        install(FILES "${folder}/${header}" DESTINATION "${include_dir}/${room}"
            COMPONENT development)
    endforeach()
    get_target_property(export_header rvopen_${name} RVOPEN_EXPORT_HEADER)
    install(FILES "${export_header}" DESTINATION "${include_dir}" COMPONENT development)
endfunction()
install_library(toolkit rvopenTargets)
if(TARGET rvopen_widgets)
    install_library(widgets rvopenWidgetsTargets)
    install(EXPORT rvopenWidgetsTargets NAMESPACE rvopen:: DESTINATION "${package_dir}"
        COMPONENT development)
endif()
install(EXPORT rvopenTargets NAMESPACE rvopen:: DESTINATION "${package_dir}" COMPONENT development)

list(JOIN RVOPEN_QT_MODULES " " rvopen_qt_components)
configure_package_config_file(cmake/rvopenConfig.cmake.in rvopenConfig.cmake
    INSTALL_DESTINATION "${package_dir}"
    NO_SET_AND_CHECK_MACRO)
# Until 1.0 each minor version may change the interface.
if(PROJECT_VERSION_MAJOR EQUAL 0)
    set(compatibility SameMinorVersion)
else()
    set(compatibility SameMajorVersion)
endif()
write_basic_package_version_file(rvopenConfigVersion.cmake COMPATIBILITY ${compatibility})
install(
    FILES
        "${PROJECT_BINARY_DIR}/rvopenConfig.cmake"
        "${PROJECT_BINARY_DIR}/rvopenConfigVersion.cmake"
    DESTINATION "${package_dir}"
    COMPONENT development)

# An installation folder for hosts to begin with, and documents to try things on.
install(DIRECTORY data/install data/archives data/snapshots
    DESTINATION "${CMAKE_INSTALL_DATADIR}/rvopen" COMPONENT starter)

# pkg-config: the prefix is found from where the .pc file lies. Some packages of Qt come without
# .pc files; their flags are written out then.
set(pc_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
cmake_path(ABSOLUTE_PATH pc_dir BASE_DIRECTORY "${CMAKE_INSTALL_PREFIX}" OUTPUT_VARIABLE pc_dir_full)
cmake_path(RELATIVE_PATH CMAKE_INSTALL_PREFIX BASE_DIRECTORY "${pc_dir_full}"
    OUTPUT_VARIABLE pc_to_prefix)
foreach(directory IN ITEMS LIBDIR INCLUDEDIR)
    set(pc_${directory} "${CMAKE_INSTALL_${directory}}")
    cmake_path(IS_RELATIVE pc_${directory} is_relative)
    if(is_relative)
        string(PREPEND pc_${directory} "\${prefix}/")
    endif()
endforeach()

set(pc_requires "")
set(pc_qt_libs "")
set(pc_qt_cflags "")
foreach(module IN LISTS RVOPEN_QT_MODULES)
    set(qt_module Qt${RVOPEN_QT_MAJOR}${module})
    if(EXISTS "${Qt${RVOPEN_QT_MAJOR}_DIR}/../../pkgconfig/${qt_module}.pc")
        string(APPEND pc_requires " ${qt_module} >= ${RVOPEN_QT_MINIMUM}")
    else()
        set(target Qt${RVOPEN_QT_MAJOR}::${module})
        string(APPEND pc_qt_libs " $<TARGET_LINKER_FILE:${target}>")
        set(includes "$<TARGET_PROPERTY:${target},INTERFACE_INCLUDE_DIRECTORIES>")
        string(APPEND pc_qt_cflags " -I$<JOIN:${includes}, -I>")
    endif()
endforeach()
# Qt built with reduced relocations needs position-independent code of whoever includes it.
string(APPEND pc_qt_cflags " -fPIC")

configure_file(cmake/rvopen.pc.in rvopen.pc.configured @ONLY)
file(GENERATE OUTPUT rvopen-$<CONFIG>.pc INPUT "${PROJECT_BINARY_DIR}/rvopen.pc.configured")
install(FILES "${PROJECT_BINARY_DIR}/rvopen-$<CONFIG>.pc" DESTINATION "${pc_dir}" RENAME rvopen.pc
    COMPONENT development)
foreach(name IN ITEMS toolkit widgets)
    if(TARGET rvopen_${name})
        configure_file(cmake/rvopen-${name}.pc.in rvopen-${name}.pc @ONLY)
        install(FILES "${PROJECT_BINARY_DIR}/rvopen-${name}.pc" DESTINATION "${pc_dir}"
            COMPONENT development)
    endif()
endforeach()

# The schemas of the documents, in both forms.
file(GLOB formats CONFIGURE_DEPENDS docs/formats/*.rnc docs/formats/*.rng)
install(FILES ${formats} DESTINATION "${CMAKE_INSTALL_DATADIR}/rvopen/formats"
    COMPONENT command)
