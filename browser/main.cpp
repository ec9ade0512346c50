// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Start.h"

int main(int argc, char** argv)
{
    return rvopen::browser::run(argc, argv);
}
