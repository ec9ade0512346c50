// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileIndex.h"

#include "TextureReferences.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

QStringList components(QString path)
{
    return path.replace(QLatin1Char('\\'), QLatin1Char('/')).toLower().split(QLatin1Char('/'));
}

int commonEnd(const QString& a, const QString& b)
{
    const QStringList first = components(a);
    const QStringList second = components(b);
    int count = 0;
    while (count < int(std::min(first.size(), second.size())) &&
           first[first.size() - 1 - count] == second[second.size() - 1 - count])
        ++count;
    return count;
}

} // namespace

FileIndex::FileIndex(const QStringList& folders)
{
    for (const QString& folder : folders) {
        if (!QFileInfo(PathToOpen(folder)).isDir())
            throw Failure(QStringLiteral("\"%1\" is no folder").arg(folder));
        QDirIterator it(PathToOpen(folder), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString file = QFileInfo(it.next()).absoluteFilePath();
            m_files[LastPathComponent(file).toLower()] << file;
        }
    }
    for (QStringList& files : m_files)
        std::sort(files.begin(), files.end());
}

QStringList FileIndex::find(const QString& reference)
{
    QStringList best;
    int bestCount = -1;
    for (const QString& file : m_files.value(LastPathComponent(reference).toLower())) {
        const int count = commonEnd(reference, file);
        if (count > bestCount)
            best.clear();
        if (count >= bestCount)
            best << file;
        bestCount = std::max(bestCount, count);
    }
    if (best.size() < 2)
        return best;
    QStringList different;
    QSet<QByteArray> known;
    for (const QString& file : best) {
        const QByteArray content = digestOf(file);
        if (content.isEmpty() || !known.contains(content))
            different << file;
        known.insert(content);
    }
    return different;
}

/// What the bytes of the file are told by; empty when it cannot be read. Each file is read
/// once, however many references could mean it.
DocumentTexture FileIndex::relink(const ReferencedTexture& texture, const QString& folder)
{
    DocumentTexture result = texture.described();
    const QStringList found = find(texture.reference);
    if (found.size() != 1) {
        result.problem = found.isEmpty()
                             ? QStringLiteral("\"%1\" was not found").arg(texture.reference)
                             : QStringLiteral("\"%1\" could be any of: %2")
                                   .arg(texture.reference, found.join(QStringLiteral(", ")));
        return result;
    }
    result.file = found.first();
    result.became = isAbsoluteReference(texture.reference)
                        ? QDir::toNativeSeparators(result.file)
                        : relativeReference(result.file, folder, texture.reference);
    texture.refer(result.became);
    return result;
}

QByteArray FileIndex::digestOf(const QString& path)
{
    const auto known = m_digests.constFind(path);
    if (known != m_digests.cend())
        return *known;
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha256);
    const bool isRead = file.open(QIODevice::ReadOnly) && hash.addData(&file);
    const QByteArray digest = isRead ? hash.result() : QByteArray();
    m_digests.insert(path, digest);
    return digest;
}

} // namespace rvopen::toolkit
