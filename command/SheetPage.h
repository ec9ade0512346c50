// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "toolkit/documents/FileTransaction.h"

#include <rvopen/toolkit/drawing/Subjects.h>

#include <QByteArray>
#include <QImage>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>
#include <QString>
#include <QVector>

namespace rvopen::toolkit {
class Document;
class ParamValues;
} // namespace rvopen::toolkit

namespace rvopen::command {

/// One of the files that every page has.
struct PageFile {
    const char* name;
    QByteArray bytes;
};

/// Those of command/html, which stand in the program.
QVector<PageFile> pageFiles();

/// A folder with a page of pictures to look through in a browser, from disk or from any web server.
/// The same presets give the same bytes. Unless finish() comes to its end the folder is as it was.
class SheetPage {
public:
    /// Throws a Failure when the folder has something else than such a page, or has a page and
    /// \p mayReplace does not say that a new one takes its place.
    SheetPage(const QString& folder, bool mayReplace);

    /// What comes next; \p values are those of the document.
    void add(const toolkit::Subject& subject, const toolkit::Document& document,
             toolkit::ParamValues& values);
    /// The picture of the one that came as the \p index th, or null for none. Throws a Failure when
    /// it cannot be written.
    void setPicture(int index, const QImage& picture);
    /// Throws a Failure when something cannot be written.
    void finish(const QString& title);

private:
    bool isPage() const;
    int fileNumber(const QString& name);
    /// Makes a file that is named by its content, which is not made twice. The name.
    QString keepContent(const QString& folder, const QByteArray& bytes, const QString& suffix,
                        QSet<QString>& used);
    QJsonArray writtenDetails();
    void removeOthers(const QString& folder, const QSet<QString>& used) const;

    QString m_folder;
    QVector<QJsonObject> m_items;
    QVector<QJsonObject> m_details;
    QJsonArray m_fileNames;
    QSet<QString> m_usedPictures;
    QSet<QString> m_usedDetails;
    toolkit::FileTransaction m_files;
};

} // namespace rvopen::command
