// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

namespace rvopen::toolkit {

class Document;
struct Finding;

/// Gives findings in document order the place of their element's start tag in the file, and its
/// path; of a document in memory the path alone.
void givePlaces(QVector<Finding>& findings, const Document& document);

} // namespace rvopen::toolkit
