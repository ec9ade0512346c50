// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "TextureCollection.h"

#include "ImageFiles.h"
#include "PictureMoves.h"
#include "ReferencedTextures.h"
#include "toolkit/documents/SafeFiles.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Folders.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace rvopen::toolkit {

QString TextureCollection::copyOf(const QString& document, const QString& folder)
{
    return QFileInfo(PathToOpen(folder)).absoluteFilePath() + QLatin1Char('/') +
           LastPathComponent(document);
}

TextureCollection::TextureCollection(const QString& folder, const QString& document,
                                     Overwriting overwriting)
    : m_folder(QFileInfo(PathToOpen(folder)).absoluteFilePath())
    , m_copy(copyOf(document, folder))
    , m_overwriting(std::move(overwriting))
    , m_taken{{LastPathComponent(m_copy).toLower(), QString()}}
{
    if (!m_overwriting && (QFileInfo::exists(m_copy) || QFileInfo(m_copy).isSymLink()))
        throw Failure(QStringLiteral("\"%1\" is there already").arg(m_copy));
    // The user named the folder; what a link in it leads to is somebody else's.
    if (QFileInfo(m_copy).isSymLink())
        throw Failure(QStringLiteral("\"%1\" is a link, which is not written through").arg(m_copy));
    if (!m_files.makeFolder(m_folder))
        throw Failure(QStringLiteral("\"%1\": %2").arg(folder, m_files.problem()));
}

TextureCollection::Objection TextureCollection::objectionTo(const ReferencedTexture& texture,
                                                            const Document& document,
                                                            const Folders& folders,
                                                            CollectedTextures which)
{
    if (texture.file.isEmpty())
        return Objection::NotThere;
    if (!QFileInfo(texture.file).isFile() || !isPictureFile(texture.file))
        return Objection::NoImage;
    if (which == CollectedTextures::Everywhere)
        return Objection::None;
    for (const QString& folder : {document.Folder(), folders.install, folders.archives,
                                  folders.custom, folders.snapshots}) {
        if (!folder.isEmpty() && isBelow(texture.file, folder))
            return Objection::None;
    }
    return Objection::Outside;
}

DocumentTexture TextureCollection::take(const ReferencedTexture& texture, const Document& document,
                                        const Folders& folders, CollectedTextures which)
{
    DocumentTexture taken = texture.described();
    switch (objectionTo(texture, document, folders, which)) {
    case Objection::NotThere:
        taken.problem = QStringLiteral("\"%1\" is not there").arg(texture.reference);
        return taken;
    case Objection::NoImage:
        taken.problem =
            QStringLiteral("\"%1\" is no image and stays where it is").arg(texture.file);
        return taken;
    case Objection::Outside:
        taken.problem = QStringLiteral("\"%1\" lies outside of the document's folder and those of "
                                       "the host")
                            .arg(texture.file);
        taken.isElsewhere = true;
        return taken;
    case Objection::None:
        break;
    }
    taken.became = add(texture.file);
    texture.refer(taken.became);
    return taken;
}

/// Names that differ in the case of letters only are one name elsewhere.
QString TextureCollection::add(const QString& file)
{
    const QString own = LastPathComponent(file);
    const QString base = QFileInfo(own).completeBaseName();
    const QString suffix = QFileInfo(own).suffix();
    for (int number = 1;; ++number) {
        QString name = own;
        if (number > 1) {
            name = QStringLiteral("%1 (%2)").arg(base, QString::number(number)) +
                   (suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix);
        }
        const QString target = m_folder + QLatin1Char('/') + name;
        const auto taken = m_taken.constFind(name.toLower());
        if (taken != m_taken.cend()) {
            if (!taken->isEmpty() && haveSameBytes(file, *taken))
                return LastPathComponent(*taken);
            continue;
        }
        const QFileInfo there(target);
        if (there.isSymLink() || (there.exists() && !haveSameBytes(file, target)))
            continue;
        if (!there.exists() && !m_files.copy(file, target))
            throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was collected")
                              .arg(file, m_files.problem()));
        m_taken.insert(name.toLower(), target);
        return name;
    }
}

void TextureCollection::addPictures(const Document& document, const Folders& named,
                                    const Complaint& complain)
{
    const Folders folders = foldersOf(document, named, document.Folder());
    const QString& root =
        document.Kind() == DocumentKind::SnapShots ? folders.snapshots : folders.custom;
    QStringList pictures = picturesOf(document, folders).values();
    std::sort(pictures.begin(), pictures.end());
    for (const QString& picture : pictures) {
        if (!QFileInfo(picture).isFile() || !isBelow(picture, root) || !isPictureFile(picture))
            continue;
        // A relative path would be taken for one below the root.
        const QString absolute = QFileInfo(picture).absoluteFilePath();
        const QString target =
            m_folder + QLatin1Char('/') + QDir(PathToOpen(root)).relativeFilePath(absolute);
        if (QFileInfo::exists(target)) {
            if (haveSameBytes(picture, target))
                continue;
            if (m_overwriting && linkInTheWay(target, m_folder).isEmpty())
                m_replacing.append({picture, target});
            else
                complain(picture,
                         QStringLiteral("it is left, another \"%1\" is there").arg(target));
            continue;
        }
        if (!m_files.makeFolder(QFileInfo(target).path()) || !m_files.copy(picture, target))
            throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was collected")
                              .arg(picture, m_files.problem()));
    }
}

void TextureCollection::write(const Document& document)
{
    const QString text = XmlText(document.Dom(), document.Indent());
    if (text.isNull())
        throw Failure(QStringLiteral("\"%1\" could not be read again").arg(m_copy));
    for (const auto& [picture, target] : m_replacing) {
        QByteArray bytes;
        if (!readWhole(picture, bytes))
            throw Failure(
                QStringLiteral("\"%1\" could not be read; nothing was collected").arg(picture));
        replace(bytes, target);
    }
    if (m_overwriting && QFileInfo::exists(m_copy))
        replace(text.toUtf8(), m_copy);
    else if (!m_files.create(text.toUtf8(), m_copy))
        throw Failure(
            QStringLiteral("\"%1\": %2; nothing was collected").arg(m_copy, m_files.problem()));
}

void TextureCollection::replace(const QByteArray& bytes, const QString& target)
{
    m_overwriting(target);
    if (!m_files.replace(bytes, target))
        throw Failure(
            QStringLiteral("\"%1\": %2; nothing was collected").arg(target, m_files.problem()));
}

void TextureCollection::keep()
{
    m_files.keep();
}

} // namespace rvopen::toolkit
