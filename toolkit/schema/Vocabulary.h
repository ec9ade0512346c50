// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QString>

#include <mutex>

namespace rvopen::toolkit {

/// Where the kind of an element stands, as KindOf() has it.
enum class KindSource {
    /// In its attribute "shaderClass".
    ShaderClass,
    /// It is the name of the element above its parent.
    Grandparent,
    /// In its attribute "subcat".
    SubCategory
};

KindSource kindSourceOf(const QString& element);

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

    /// Of what was asked before, which several threads may do.
    mutable std::mutex m_mutex;
    mutable QHash<QString, bool> m_placement;
};

} // namespace rvopen::toolkit
