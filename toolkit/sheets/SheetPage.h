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

/// One of the files that every page has.
struct PageFile {
    const char* name;
    QByteArray bytes;
};

/// Those of html/, which stand in the library.
QVector<PageFile> pageFiles();

/// What a page says of the presets that it shows.
class SheetData {
public:
    /// What comes next; \p values are those of the document.
    void add(const Subject& subject, const Document& document, ParamValues& values);

private:
    friend class SheetPage;

    int fileNumber(const QString& name);

    QVector<QJsonObject> m_items;
    QVector<QJsonObject> m_details;
    QJsonArray m_fileNames;
};

/// A folder with a page of pictures to look through in a browser, from disk or from any web server.
/// The same presets give the same bytes. Unless finish() comes to its end the folder is as it was.
class SheetPage {
public:
    /// Throws a Failure when the folder has something else than such a page, or has a page and
    /// \p mayReplace does not say that a new one takes its place.
    SheetPage(const QString& folder, bool mayReplace, const SheetData& data);

    /// The picture of the one that came as the \p index th, or null for none. Throws a Failure when
    /// it cannot be written.
    void setPicture(int index, const QImage& picture);
    /// Throws a Failure when something cannot be written.
    void finish(const QString& title);

private:
    bool isPage() const;
    /// Makes a file that is named by its content, which is not made twice. The name.
    QString keepContent(const QString& folder, const QByteArray& bytes, const QString& suffix,
                        QSet<QString>& used);
    QJsonArray writtenDetails();
    void removeOthers(const QString& folder, const QSet<QString>& used) const;

    QString m_folder;
    SheetData m_data;
    QSet<QString> m_usedPictures;
    QSet<QString> m_usedDetails;
    FileTransaction m_files;
};

} // namespace rvopen::toolkit
