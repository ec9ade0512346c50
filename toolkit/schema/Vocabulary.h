// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

namespace rvopen::toolkit {

/// What is asked of the vocabulary of documents besides what the rows of the schema say.
class Vocabulary {
public:
    static const Vocabulary& instance();

    /// A container of presets below the root of an archive.
    bool isSection(const QString& name) const;
    /// Declarations of namespaces count as attributes of every element.
    bool isAttribute(const QString& element, const QString& attribute) const;
    /// Whether the library would put a child of that name under such a parent. Asked of the library
    /// once for each pair.
    bool canAdd(const QString& parent, const QString& child) const;

private:
    Vocabulary() = default;

    mutable QHash<QString, bool> m_placement;
};

} // namespace rvopen::toolkit
