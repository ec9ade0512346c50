# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# cmake -DPROGRAM=<program> -DEXPECTED=<file> -DOUTPUT=<file> -P writer_determinism.cmake
#
# Runs the program with several seeds of Qt's hash tables, which give different orders to what they
# hold, and compares the bytes that it prints with those of the expected file.

foreach(seed IN ITEMS 0 1 2 3 random random)
    unset(ENV{QT_HASH_SEED})
    if(NOT seed STREQUAL "random")
        set(ENV{QT_HASH_SEED} ${seed})
    endif()
    execute_process(COMMAND "${PROGRAM}" OUTPUT_FILE "${OUTPUT}" COMMAND_ERROR_IS_FATAL ANY)
    execute_process(
        COMMAND "${CMAKE_COMMAND}" -E compare_files "${OUTPUT}" "${EXPECTED}"
        RESULT_VARIABLE different)
    if(different)
        message(FATAL_ERROR "With hash seed ${seed}, ${OUTPUT} differs from ${EXPECTED}")
    endif()
endforeach()
