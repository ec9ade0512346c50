// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Input.h"

#include <QString>
#include <QStringList>

namespace rvopen::command {

class Arguments;

/// The options of commands that take many files, the same for all.
class Inputs {
public:
    void declare(Arguments& arguments);
    /// The files that the arguments and the list name, folders and patterns replaced by what is in
    /// them. Throws a Failure when the list cannot be read.
    QStringList files(const QStringList& arguments, Session& session) const;
    /// Takes the documents that come first out of what stands on a command line before the rest:
    /// the first argument unless a list is given, and those after it that are files of documents,
    /// patterns of their names, or folders with a slash at their ends.
    QStringList taken(QStringList& arguments) const;
    /// How many documents are read at one time.
    int jobs() const;

private:
    QStringList listed() const;

    QString m_list;
    bool m_isNulled = false;
    int m_jobs = 1;
};

} // namespace rvopen::command
