# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT

# Finds the Qt that the library is built with. Sets RVOPEN_QT_MINIMUM, the oldest version of that
# major, RVOPEN_QT_MODULES and RVOPEN_QT_TARGETS.

if(RVOPEN_QT_MAJOR EQUAL 6)
    set(RVOPEN_QT_MINIMUM 6.2)
elseif(RVOPEN_QT_MAJOR EQUAL 5)
    set(RVOPEN_QT_MINIMUM 5.15)
else()
    message(FATAL_ERROR "RVOPEN_QT_MAJOR is \"${RVOPEN_QT_MAJOR}\"; it must be 6 or 5")
endif()

set(RVOPEN_QT_MODULES Core Xml Gui)
find_package(Qt${RVOPEN_QT_MAJOR} ${RVOPEN_QT_MINIMUM} REQUIRED COMPONENTS ${RVOPEN_QT_MODULES})
list(TRANSFORM RVOPEN_QT_MODULES PREPEND "Qt${RVOPEN_QT_MAJOR}::" OUTPUT_VARIABLE RVOPEN_QT_TARGETS)
