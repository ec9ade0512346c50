// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

namespace rvopen::tools {

enum class DifferenceKind { Added, Removed, Moved, Changed };

struct Difference {
    DifferenceKind kind = DifferenceKind::Changed;
    /// Element name.
    QString type;
    /// In the second document, in the first for what was removed.
    QString path;
    /// Path in the first document, for what was moved.
    QString from;
    /// Values, for what was changed.
    QString before;
    QString after;
};

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
class Comparer {
public:
    explicit Comparer(const Comparison& comparison);
    ~Comparer();
    Comparer(const Comparer&) = delete;
    Comparer& operator=(const Comparer&) = delete;

    QVector<Difference> run(const QDomElement& before, const QDomElement& after);

private:
    class Engine;
    std::unique_ptr<Engine> m_engine;
};

} // namespace rvopen::tools
