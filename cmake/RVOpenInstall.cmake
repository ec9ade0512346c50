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
install(TARGETS rvopen_toolkit
    EXPORT rvopenTargets
    RUNTIME COMPONENT toolkit
    LIBRARY COMPONENT toolkit NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
get_target_property(toolkit_dir rvopen_toolkit SOURCE_DIR)
get_target_property(toolkit_headers rvopen_toolkit RVOPEN_HEADERS)
foreach(header IN LISTS toolkit_headers)
    cmake_path(GET header PARENT_PATH room)
    install(FILES "${toolkit_dir}/${header}"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/rvopen/toolkit/${room}" COMPONENT development)
endforeach()
get_target_property(toolkit_build_dir rvopen_toolkit BINARY_DIR)
install(FILES "${toolkit_build_dir}/include/rvopen/toolkit/ToolkitExport.h"
    DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/rvopen/toolkit" COMPONENT development)
if(TARGET rvopen_widgets)
    install(TARGETS rvopen_widgets
        EXPORT rvopenWidgetsTargets
        RUNTIME COMPONENT widgets
        LIBRARY COMPONENT widgets NAMELINK_COMPONENT development
        ARCHIVE COMPONENT development
        INCLUDES DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}")
    get_target_property(widgets_dir rvopen_widgets SOURCE_DIR)
    get_target_property(widgets_headers rvopen_widgets RVOPEN_HEADERS)
    list(TRANSFORM widgets_headers PREPEND "${widgets_dir}/")
    get_target_property(widgets_build_dir rvopen_widgets BINARY_DIR)
    install(FILES ${widgets_headers} "${widgets_build_dir}/include/rvopen/widgets/WidgetsExport.h"
        DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/rvopen/widgets" COMPONENT development)
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
configure_file(cmake/rvopen-toolkit.pc.in rvopen-toolkit.pc @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/rvopen-toolkit.pc" DESTINATION "${pc_dir}"
    COMPONENT development)

if(TARGET rvopen_widgets)
    configure_file(cmake/rvopen-widgets.pc.in rvopen-widgets.pc @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/rvopen-widgets.pc" DESTINATION "${pc_dir}"
        COMPONENT development)
endif()

# The schemas of the documents, in both forms.
file(GLOB formats CONFIGURE_DEPENDS docs/formats/*.rnc docs/formats/*.rng)
install(FILES ${formats} DESTINATION "${CMAKE_INSTALL_DATADIR}/rvopen/formats"
    COMPONENT command)
