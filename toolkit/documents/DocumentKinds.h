// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/documents/Document.h>

#include <QString>

namespace rvopen::toolkit {

/// What a document is by its root, the type of that, and whether a section stands right below it.
DocumentKind documentKind(const QString& root, const QString& type, bool hasSections);

} // namespace rvopen::toolkit
