// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {

/// A place of a document that goes by the reference name of a preset: a component of a snapshot or
/// of a preset, a base material, a material of a palette.
struct Link {
    /// Of the place, as PathOf() has it.
    QString path;
    /// What it goes by: the element name of the preset,
    QString kind;
    /// and its reference name.
    QString refName;
};

/// What \p element and all below it go by, each place once, in document order. A preset does not
/// refer to itself.
RVOPEN_TOOLKIT_EXPORT QVector<Link> LinksFrom(const QDomElement& element);

/// The places in and below \p root that go by that reference name of a preset of that kind.
RVOPEN_TOOLKIT_EXPORT QVector<Link> LinksTo(const QString& kind, const QString& refName,
                                            const QDomElement& root);

} // namespace rvopen::toolkit
