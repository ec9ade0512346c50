// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Comparison.h"

#include <QDirIterator>
#include <QFile>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace rvopen::starter {

namespace {

/// Of 255 levels, over the channels of all pixels.
struct Tolerance {
    double mean;
    int greatest;
};

const Tolerance s_exact{0, 0};
const Tolerance s_seen{1, 12};

QStringList filesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next().mid(folder.size() + 1);
    files.sort();
    return files;
}

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString pictureDifference(const QImage& kept, const QImage& made, const Tolerance& tolerance)
{
    if (kept.isNull() || made.isNull())
        return QStringLiteral("is no picture");
    if (kept.size() != made.size())
        return QStringLiteral("has another size");
    const QImage a = kept.convertToFormat(QImage::Format_ARGB32);
    const QImage b = made.convertToFormat(QImage::Format_ARGB32);
    qint64 sum = 0;
    int greatest = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar* const rowA = a.constScanLine(y);
        const uchar* const rowB = b.constScanLine(y);
        for (int i = 0; i < 4 * a.width(); ++i) {
            const int difference = std::abs(rowA[i] - rowB[i]);
            sum += difference;
            greatest = std::max(greatest, difference);
        }
    }
    const double mean = double(sum) / (4.0 * a.width() * a.height());
    if (mean <= tolerance.mean && greatest <= tolerance.greatest)
        return {};
    return QStringLiteral("differs by %1 of 255 on average, by %2 at most").arg(mean).arg(greatest);
}

QString difference(const QString& kept, const QString& made)
{
    if (kept.endsWith(QLatin1String(".jpg")))
        return pictureDifference(QImage(kept), QImage(made), s_seen);
    if (kept.endsWith(QLatin1String(".png")))
        return pictureDifference(QImage(kept), QImage(made), s_exact);
    return bytesOf(kept) == bytesOf(made) ? QString() : QStringLiteral("has other bytes");
}

} // namespace

QStringList differences(const QString& kept, const QString& made)
{
    const QStringList keptFiles = filesBelow(kept);
    const QStringList madeFiles = filesBelow(made);
    QStringList result;
    for (const QString& file : keptFiles) {
        const QString what = madeFiles.contains(file) ? difference(kept + QLatin1Char('/') + file,
                                                                   made + QLatin1Char('/') + file)
                                                      : QStringLiteral("is not made");
        if (!what.isEmpty())
            result << QStringLiteral("%1 %2").arg(file, what);
    }
    for (const QString& file : madeFiles) {
        if (!keptFiles.contains(file))
            result << QStringLiteral("%1 is made and not there").arg(file);
    }
    return result;
}

} // namespace rvopen::starter
