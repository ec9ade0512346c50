// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/check/Inspection.h>

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {

/// Names that every element is asked for: made once.
struct Words {
    const QString name = QStringLiteral("name");
    const QString type = QStringLiteral("type");
    const QString val = QStringLiteral("val");
    const QString prop = QStringLiteral("prop");
    const QString refname = QStringLiteral("refname");
    const QString linkname = QStringLiteral("linkname");
    const QString imgname = QStringLiteral("imgname");
    const QString xmlImage = QStringLiteral("xmlImage");
    const QString archiveFilename = QStringLiteral("archiveFilename");
    const QString param = QStringLiteral("param");
    const QString dir = QStringLiteral("dir");
    const QString material = QStringLiteral("material");
    const QString snapshot = QStringLiteral("snapshot");
    const QString snapshots = QStringLiteral("snapshots");
    const QString string = QStringLiteral("string");
    const QString shader = QStringLiteral("shader");
    const QString colour = QStringLiteral("colour");
};

/// What the parts of the inspection of a document share.
struct Inspecting {
    Inspecting(const Document& document, const Surroundings& surroundings);

    void report(const Rule& rule, const QDomElement& element, int ordinal, const QString& message);
    /// Reports the attributes that are neither known of elements of that name nor among
    /// \p others.
    void inspectAttributes(const QDomElement& element, const QString& tag, int ordinal,
                           const QStringList& others = {});

    const Document& document;
    const Surroundings& surroundings;
    const Words words;
    double unitsScale = 1;
    QVector<Finding> findings;
};

} // namespace rvopen::toolkit
