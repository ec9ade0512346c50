// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Directory.h>

namespace rvopen {

Directory::Directory(RVOpenNode* source)
    : RVOpenNode(source)
{
}

Directory::~Directory() = default;

} // namespace rvopen
