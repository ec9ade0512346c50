// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FuzzSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>

#include <algorithm>
#include <cstdio>
#include <memory>

/// Feeds files, or all files of folders, to the target that it is linked with: the corpus as a
/// test, with any compiler.
namespace {

bool replay(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(path));
        return false;
    }
    const QByteArray bytes = file.readAll();
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
    // A copy of exactly that size: QByteArray ends with a NUL that would hide a read past the end.
    const std::unique_ptr<std::uint8_t[]> copy(
        new std::uint8_t[static_cast<std::size_t>(bytes.size())]);
    std::copy(bytes.cbegin(), bytes.cend(), copy.get());
    LLVMFuzzerTestOneInput(copy.get(), static_cast<std::size_t>(bytes.size()));
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i) {
        const QString path = QFile::decodeName(argv[i]);
        QStringList files{path};
        if (QFileInfo(path).isDir()) {
            files.clear();
            for (const QString& name : QDir(path).entryList(QDir::Files, QDir::Name))
                files << path + QLatin1Char('/') + name;
        }
        for (const QString& file : files) {
            if (!replay(file))
                return 1;
            ++replayed;
        }
    }
    std::printf("%d inputs\n", replayed);
    return replayed > 0 ? 0 : 1;
}
