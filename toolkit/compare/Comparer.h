// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace rvopen::toolkit {

/// What became of an element or a value from the first document to the second.
enum class DifferenceKind { Added, Removed, Moved, Changed };

/// One difference between two documents.
struct Difference {
    /// What became of it.
    DifferenceKind kind = DifferenceKind::Changed;
    /// Element name.
    QString type;
    /// In the second document, in the first for what was removed.
    QString path;
    /// Path in the first document, for what was moved.
    QString from;
    /// The value in the first document, for what was changed.
    QString before;
    /// The value in the second.
    QString after;
};

/// How documents are compared.
struct Comparison {
    /// Numbers that differ by no more are equal.
    double tolerance = 0;
    /// Attributes that are not looked at.
    QStringList ignoredAttributes;
};

/// Finds what differs in meaning: elements by kind and name, values by type in scene units.
/// Comments, the order of parameters and attributes, and how a number is written mean nothing.
///
/// One comparer serves two documents, whose units scales are looked up once.
class RVOPEN_TOOLKIT_EXPORT Comparer {
public:
    /// For comparisons of that sort.
    explicit Comparer(const Comparison& comparison = {});
    ~Comparer();
    Comparer(const Comparer&) = delete;
    Comparer& operator=(const Comparer&) = delete;

    /// What is in \p after and not in \p before, and the other way round. The documents stay as
    /// they are.
    QVector<Difference> Run(const QDomElement& before, const QDomElement& after);

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

} // namespace rvopen::toolkit
