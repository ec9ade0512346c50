// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QString>

#include <memory>

namespace rvopen::toolkit {

class Document;

/// What documents do not show everybody.
struct PartialDocument {
    /// A document of the file of that name, no standard input and no stream, of which this much was
    /// read. Its kind is that of what was read. To be looked at: written, it would be without the
    /// rest.
    static std::unique_ptr<Document> of(const QString& file, const QDomDocument& dom);
};

} // namespace rvopen::toolkit
