# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# How everything in this repository is compiled: library, examples and tests alike.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(MSVC)
    add_compile_options(/W4 /utf-8 /permissive- /Zc:__cplusplus)
else()
    add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wconversion)
    # What several sources are compiled in is none of them, and this compiler takes them for headers.
    if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        add_compile_options(-Wno-subobject-linkage)
    endif()
endif()
if(WIN32)
    add_compile_definitions(NOMINMAX UNICODE _UNICODE)
endif()
set(CMAKE_COMPILE_WARNING_AS_ERROR ${RVOPEN_WERROR})

# __FILE__, and with it the text of an assertion, is relative to the repository: the same binary
# from every folder, and no build machine's path in what is shipped.
if(NOT MSVC)
    add_compile_options(
        "-fmacro-prefix-map=${PROJECT_SOURCE_DIR}/="
        "-fmacro-prefix-map=${PROJECT_BINARY_DIR}/=")
endif()

set(is_sanitized OFF)
if(RVOPEN_SANITIZE)
    set(is_sanitized ON)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all)
    add_compile_options(${sanitizers} -fno-omit-frame-pointer)
    add_link_options(${sanitizers})
elseif(RVOPEN_SANITIZE_THREADS)
    set(is_sanitized ON)
    add_compile_options(-fsanitize=thread)
    add_link_options(-fsanitize=thread)
endif()

# rvopen_ship_alone(): for the folders of what is shipped. Builds for development compile several
# sources at once (CMAKE_UNITY_BUILD); optimised ones compile each by itself, as it is shipped. A
# macro, since the variable is the folder's.
macro(rvopen_ship_alone)
    if(NOT CMAKE_BUILD_TYPE STREQUAL "Debug")
        set(CMAKE_UNITY_BUILD OFF)
    endif()
endmacro()

# rvopen_compile_alone(<source>...): where sources are compiled several at once, those whose local
# names others have too are not among them.
function(rvopen_compile_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# rvopen_compile_fast(<target>): for tests. What they try is compiled as it is shipped; they
# themselves need no optimisation, nor the third sanitizer, which doubles the time.
function(rvopen_compile_fast target)
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE -O0)
    endif()
    # The macros of GoogleTest leave the last argument out.
    if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        target_compile_options(${target} PRIVATE -Wno-gnu-zero-variadic-macro-arguments)
    endif()
    if(RVOPEN_SANITIZE)
        target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
    endif()
endfunction()
