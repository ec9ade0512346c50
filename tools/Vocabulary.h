// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

namespace rvopen::tools {

/// What the library says of a parameter.
struct ParamInfo {
    /// Name of the type: "float", "integer", ...
    QString type;
    bool isDimensional = false;
};

using ParamInfos = QHash<QString, ParamInfo>;

/// The vocabulary of the documents. The parameters are those that the classes of the library
/// create, asked of the classes themselves.
class Vocabulary {
public:
    static const Vocabulary& instance();

    bool isElement(const QString& name) const;
    /// A container of presets below the root of an archive.
    bool isSection(const QString& name) const;
    /// Something that archives hold as a preset.
    bool isPreset(const QString& name) const;
    /// A part of a snapshot.
    bool isComponent(const QString& name) const;
    bool isAttribute(const QString& element, const QString& attribute) const;
    bool isType(const QString& name) const;
    /// Whether the names of its parameters are known.
    bool hasParams(const QString& element) const;
    /// The parameters of an element of that kind ("subcat" or "shaderClass").
    const ParamInfos& params(const QString& element, const QString& kind) const;
    /// Whether the library would put a child of that name under such a parent. Asked of the library
    /// once for each pair.
    bool canAdd(const QString& parent, const QString& child) const;

private:
    Vocabulary();

    QSet<QString> m_elements;
    QSet<QString> m_sections;
    QSet<QString> m_presets;
    QSet<QString> m_components;
    QSet<QString> m_types;
    QSet<QString> m_attributes;
    QHash<QString, QSet<QString>> m_ownAttributes;
    QHash<QString, QHash<QString, ParamInfos>> m_params;
    mutable QHash<QString, bool> m_placement;
};

} // namespace rvopen::tools
