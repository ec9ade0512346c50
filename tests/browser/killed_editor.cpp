// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// killed_editor <archive> <journals>: edits the archive, writes what it has then in base64, and
// waits for its end.

#include "EditedFile.h"
#include "Edits.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QApplication>

#include <cstdio>
#include <unistd.h>

using namespace rvopen;

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    ReadError error;
    const auto file = browser::EditedFile::open(QString::fromLocal8Bit(argv[1]), error,
                                                QString::fromLocal8Bit(argv[2]));
    if (!file)
        return 1;
    for (int i = 0; i < 10; ++i) {
        const QDomElement material = toolkit::PathPattern(QStringLiteral("//dir[Metals]/material"))
                                         .Find(file->dom().documentElement())
                                         .first()
                                         .element;
        browser::edits::duplicate(*file, material);
        browser::edits::rename(*file, material, QStringLiteral("Killed %1").arg(i));
        if (i == 5)
            file->stack().undo();
    }
    std::puts(XmlText(file->dom(), ArchiveFileIndent).toUtf8().toBase64().constData());
    std::fflush(stdout);
    for (;;)
        ::pause();
}
