// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../Printing.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace rvopen::test {

/// What a run of the program left behind.
struct Outcome {
    /// -1 when it ended by a signal.
    int code = -1;
    QString out;
    QString err;

    QStringList lines() const;
    /// The object that it printed; a text that is none fails the test.
    QJsonObject json() const;
};

/// A process on which signals act as they do by default, whatever the tests themselves are told to
/// ignore.
class Child : public QProcess {
public:
    Child();

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
protected:
    void setupChildProcess() override;
#endif
};

/// The words of a command line, which blanks separate. What stands between single or double quotes
/// is taken as it is.
QStringList words(const char* line);

/// A folder of the test's own, in which the program runs.
class Workspace {
public:
    Workspace();

    QString path(const QString& name = QString()) const;
    /// Writes a file and gives its name back.
    QString write(const QString& name, const QByteArray& bytes) const;
    QByteArray read(const QString& name) const;
    bool exists(const QString& name) const;
    /// Names of all files, with their folders, in the order of their names.
    QStringList files() const;
    enum class Pictures { LeftOut, Copied };
    /// Puts a copy of the sample data here, with the pictures of the installation's presets or
    /// without.
    void copySamples(Pictures pictures = Pictures::LeftOut) const;

    /// Runs rvopen with these arguments.
    Outcome run(const QStringList& arguments, const QByteArray& input = QByteArray()) const;
    /// The same with its words().
    Outcome run(const char* line, const QByteArray& input = QByteArray()) const;
    /// Runs a line of the shell, in which "rvopen" is the program.
    Outcome shell(const QString& line, const QByteArray& input = QByteArray()) const;
    /// The same under strace, which takes these options; what it saw comes into \p trace.
    Outcome traced(const QString& options, const QString& line, QString& trace) const;

    QProcessEnvironment environment;

private:
    Outcome start(const QString& program, const QStringList& arguments,
                  const QByteArray& input) const;

    QTemporaryDir m_folder;
};

/// A picture file of one line of pixels, whose grey values are these bytes: short to write, and
/// told apart from others at a look.
QByteArray pictureOf(const QByteArray& pixels);

/// Whether the text that a run printed is of the shape that is documented for it.
::testing::AssertionResult isOfSchema(const Outcome& run, const QString& schema);

/// A small snapshot document, with something of everything that the tests look for.
QByteArray smallDocument();
/// An archive with presets of two kinds.
QByteArray smallArchive();
/// An archive with so many materials in folders of a hundred.
QByteArray largeArchive(int presets);
/// The same document with a prefix declared at its root, for which each command builds it.
QByteArray declaringAPrefix(QByteArray document);

} // namespace rvopen::test
