# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# The Debian packages: "cpack --preset package". Each shared library stands in a package named by its
# SONAME, so that two versions of it can be installed side by side.

if(NOT RVOPEN_PACKAGES)
    return()
endif()

find_program(DPKG_GENSYMBOLS dpkg-gensymbols REQUIRED)
find_program(GZIP gzip REQUIRED)

get_target_property(soversion rvopen SOVERSION)
set(library_package "librvopen${soversion}")
set(toolkit_package "librvopen-toolkit${soversion}")
set(widgets_package "librvopen-widgets${soversion}")
set(packaging_dir "${PROJECT_BINARY_DIR}/packaging")
file(MAKE_DIRECTORY "${packaging_dir}")

# What dpkg-shlibdeps reads to find which version of a library a program needs. The file has the same
# name in every package.
set(prepared "")
function(list_symbols target package folder)
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${folder}/symbols"
        COMMAND "${DPKG_GENSYMBOLS}" "-p${package}" "-v${PROJECT_VERSION}"
            "-e$<TARGET_FILE:${target}>" "-O${folder}/symbols"
        DEPENDS ${target}
        WORKING_DIRECTORY "${folder}"
        VERBATIM)
    set(prepared ${prepared} "${folder}/symbols" PARENT_SCOPE)
endfunction()
list_symbols(rvopen "${library_package}" "${packaging_dir}")
list_symbols(rvopen_toolkit "${toolkit_package}" "${packaging_dir}/toolkit")
list_symbols(rvopen_widgets "${widgets_package}" "${packaging_dir}/widgets")
function(compress source name)
    add_custom_command(OUTPUT "${packaging_dir}/${name}.gz"
        COMMAND "${CMAKE_COMMAND}" -E copy "${source}" "${name}"
        COMMAND "${GZIP}" -9nf "${name}"
        DEPENDS "${source}"
        WORKING_DIRECTORY "${packaging_dir}"
        VERBATIM)
    set(prepared ${prepared} "${packaging_dir}/${name}.gz" PARENT_SCOPE)
endfunction()
compress("${PROJECT_SOURCE_DIR}/CHANGELOG.md" changelog)
compress("${PROJECT_SOURCE_DIR}/packaging/changelog.Debian" changelog.Debian)
add_custom_target(rvopen_packaging ALL DEPENDS ${prepared})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME rvopen)
set(CPACK_PACKAGE_VENDOR "The rvopen authors")
set(CPACK_PACKAGE_CONTACT "The rvopen authors <rvopen@localhost>")
set(CPACK_RESOURCE_FILE_LICENSE "${PROJECT_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGING_INSTALL_PREFIX "${CMAKE_INSTALL_PREFIX}")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# In the same folder as the symbols, since dpkg-shlibdeps finds a library that is not installed yet
# only where it is told to look.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    "${PROJECT_BINARY_DIR}/rvopen" "${PROJECT_BINARY_DIR}/toolkit" "${PROJECT_BINARY_DIR}/widgets")

# package(<component> <name> <section> <summary> <text>): with the files that every package has.
set(CPACK_COMPONENTS_ALL "")
function(package component name section summary text)
    string(TOUPPER "${component}" key)
    set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_NAME "${name}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_PACKAGE_SECTION "${section}" PARENT_SCOPE)
    set(CPACK_DEBIAN_${key}_DESCRIPTION "${summary}\n${text}" PARENT_SCOPE)
    set(CPACK_COMPONENT_${key}_DESCRIPTION "${summary}\n${text}" PARENT_SCOPE)
    set(documents "${CMAKE_INSTALL_DATADIR}/doc/${name}")
    install(FILES "${PROJECT_SOURCE_DIR}/LICENSE" DESTINATION "${documents}" RENAME copyright
        COMPONENT ${component} EXCLUDE_FROM_ALL)
    install(FILES "${packaging_dir}/changelog.gz" "${packaging_dir}/changelog.Debian.gz"
        DESTINATION "${documents}" COMPONENT ${component} EXCLUDE_FROM_ALL)
endfunction()

package(runtime "${library_package}" libs
    "object model over snapshot documents and preset archives"
    "A typed object model over XML for programs that render: snapshots of a
rendered view with camera, background, light and materials, and archives of
presets with pictures.")
package(toolkit "${toolkit_package}" libs
    "toolkit over snapshot documents and preset archives"
    "What programs over the object model share: labels, units, ranges and choices
of every parameter, loading, checking and comparing of documents, and pictures
of presets and snapshots.")
package(widgets "${widgets_package}" libs
    "parts for windows over snapshot documents and preset archives"
    "What programs that render put into their own windows: models of Qt that
follow a document as it changes, and write to it.")
package(development librvopen-dev libdevel
    "object model over snapshot documents, for development"
    "Headers, CMake package and pkg-config files of the libraries.")
package(command rvopen utils
    "command over snapshot documents and preset archives"
    "Lists, checks, changes, compares, draws and collects what is in snapshot
documents and preset archives, with JSON for scripts, and makes thumbnails of
them for file managers.")
if(TARGET rvopen_browser)
    package(browser rvopen-browser graphics
        "preset browser over snapshot documents and preset archives"
        "A window to choose presets and snapshots of rendering programs by their
pictures, find them by name, kind and colour, and edit their values with undo.")
endif()
package(starter rvopen-data graphics
    "presets and models to start from"
    "An installation folder with archives of cameras, backgrounds, lights,
colours, finishes and materials with their textures and pictures, and snapshot
documents of sample models.")
package(documentation rvopen-doc doc
    "object model over snapshot documents, documents"
    "Guide, reference of the interface and of both file formats, cookbook, and
examples.")

set(exactly "(= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})")
file(WRITE "${packaging_dir}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    "${packaging_dir}/symbols" "${packaging_dir}/triggers")
set(CPACK_DEBIAN_TOOLKIT_PACKAGE_CONTROL_EXTRA
    "${packaging_dir}/toolkit/symbols" "${packaging_dir}/triggers")
set(CPACK_DEBIAN_TOOLKIT_PACKAGE_DEPENDS "${library_package} ${exactly}")
set(both_libraries "${library_package} ${exactly}, ${toolkit_package} ${exactly}")
set(CPACK_DEBIAN_WIDGETS_PACKAGE_CONTROL_EXTRA
    "${packaging_dir}/widgets/symbols" "${packaging_dir}/triggers")
set(CPACK_DEBIAN_WIDGETS_PACKAGE_DEPENDS "${both_libraries}")
if(RVOPEN_QT_MAJOR EQUAL 6)
    set(qt_development "qt6-base-dev (>= ${RVOPEN_QT_MINIMUM})")
else()
    set(qt_development "qtbase5-dev (>= ${RVOPEN_QT_MINIMUM})")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${both_libraries}, ${widgets_package} ${exactly}, ${qt_development}")
set(CPACK_DEBIAN_COMMAND_PACKAGE_DEPENDS "${library_package} ${exactly}")
set(CPACK_DEBIAN_COMMAND_PACKAGE_RECOMMENDS rvopen-data)
set(CPACK_DEBIAN_BROWSER_PACKAGE_DEPENDS "${both_libraries}, ${widgets_package} ${exactly}")
set(CPACK_DEBIAN_BROWSER_PACKAGE_RECOMMENDS "rvopen-data, rvopen")
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_SUGGESTS librvopen-dev)
foreach(component IN ITEMS STARTER DOCUMENTATION)
    set(CPACK_DEBIAN_${component}_PACKAGE_ARCHITECTURE all)
    set(CPACK_DEBIAN_${component}_PACKAGE_SHLIBDEPS OFF)
endforeach()

set(doc_dir "${CMAKE_INSTALL_DATADIR}/doc/rvopen-doc")
install(FILES "${PROJECT_SOURCE_DIR}/packaging/README.md.in" RENAME README.md
    DESTINATION "${doc_dir}" COMPONENT documentation EXCLUDE_FROM_ALL)
install(FILES "${PROJECT_SOURCE_DIR}/data/README.md"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/rvopen-data"
    COMPONENT starter EXCLUDE_FROM_ALL)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/docs" "${PROJECT_SOURCE_DIR}/examples"
    DESTINATION "${doc_dir}" COMPONENT documentation EXCLUDE_FROM_ALL
    FILES_MATCHING PATTERN "*.md" PATTERN "*.svg" PATTERN "*.png" PATTERN "*.rn[cg]"
        PATTERN "*.cpp" PATTERN CMakeLists.txt
        PATTERN docs/CMakeLists.txt EXCLUDE)

include(CPack)
