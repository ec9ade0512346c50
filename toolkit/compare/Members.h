// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QString>
#include <QVector>

/// How the parts of two documents are told to be the same part.
namespace rvopen::toolkit {

/// A child of an element.
struct Member {
    QDomElement element;
    /// As PathOf() has it.
    QString path;
    /// What it is told by among its neighbours, and the same in another document: a parameter by
    /// its name, a preset by its reference name, a part of a preset by its kind.
    QString key;
};

/// Where the parts are told apart by their names; elsewhere by their kind.
bool isContainer(const QDomElement& element);

/// The children of an element with that path, each with a key of its own.
QVector<Member> membersOf(const QDomElement& parent, const QString& path);

} // namespace rvopen::toolkit
