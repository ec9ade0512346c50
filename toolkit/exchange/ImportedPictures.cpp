// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ImportedPictures.h"

#include "Importer.h"
#include "toolkit/documents/FileWriting.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/images/ImageFiles.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QFileInfo>

#include <filesystem>

namespace rvopen::toolkit {

namespace {

QString pictureName(const QString& snapShot)
{
    QString name = snapShot;
    return QLatin1String("icon_") + XMLUtils::ReplaceIllegalCharacters(name) +
           QLatin1String(".jpg");
}

/// Whether something has the name. That this cannot be told is no answer: the picture would be
/// left behind unseen.
bool isThere(const QString& path)
{
    std::error_code failure;
    const auto type =
        std::filesystem::symlink_status(std::filesystem::u8path(path.toStdString()), failure)
            .type();
    if (type == std::filesystem::file_type::not_found)
        return false;
    if (failure) {
        throw Failure(QStringLiteral("\"%1\": %2; nothing was imported")
                          .arg(path, QString::fromStdString(failure.message())));
    }
    return true;
}

} // namespace

ImportedPictures::ImportedPictures(const Document& source, const QString& folder,
                                   const PictureMoves::Complaint& complain)
    : m_source(source)
    , m_folder(folder)
    , m_complain(complain)
{
}

void ImportedPictures::copy(ImportItem& item)
{
    const QString name = item.source.attribute(QStringLiteral("name"));
    const QString fileName = pictureName(item.result.attribute(QStringLiteral("name")));
    const QString from = m_source.Folder() + QLatin1Char('/') + pictureName(name);
    const QString to = m_folder + QLatin1Char('/') + fileName;
    if (!StaysInside(fileName) || !StaysInside(pictureName(name)) || !isThere(from))
        return;
    if (!QFileInfo(from).isFile() || !isBelow(from, m_source.Folder()) || !isPictureFile(from)) {
        m_complain(from, QStringLiteral("it is no picture of the source, and stays there"));
        return;
    }
    if (QFileInfo(to).isSymLink()) {
        m_complain(to, linkInTheWay(to, m_folder));
        return;
    }
    if (QFileInfo::exists(to) && haveSameBytes(from, to))
        return;
    if (QFileInfo::exists(to) && item.action == ImportAction::Replaced)
        m_replaced.append({from, to});
    else if (QFileInfo::exists(to))
        item.note = QStringLiteral("another thumbnail \"%1\" is there and stays").arg(to);
    else if (!m_files.copy(from, to))
        throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was imported")
                          .arg(from, m_files.problem()));
}

void ImportedPictures::finish(const PictureMoves::Backup& backUp)
{
    m_files.keep();
    for (const auto& picture : m_replaced) {
        QByteArray bytes;
        if (!readWhole(picture.first, bytes)) {
            m_complain(picture.first, QStringLiteral("the thumbnail could not be read"));
            continue;
        }
        QString problem = backUp(picture.second);
        if (problem.isEmpty())
            problem = problemOfWriting(bytes, picture.second);
        if (!problem.isEmpty())
            m_complain(picture.second, QLatin1String("the thumbnail: ") + problem);
    }
}

} // namespace rvopen::toolkit
