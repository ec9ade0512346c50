// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "../toolkit/InAFolder.h"
#include "Edits.h"
#include "Workspace.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

namespace rvopen::test {

/// Two folders, three presets and a picture that is not there.
inline QByteArray sampleArchive()
{
    return "<?xml version='1.0' encoding='utf-8'?><presets type='UserArchives' name='A'>"
           "<materials name='Materials'><dir name='Metals'>"
           "<material name='Brass' refname='m.brass' cat='Polished' subcat='Metal'>"
           "<colour><plainColour><param name='Colour' type='colour' val='0.8 0.6 0.2'/>"
           "</plainColour></colour></material>"
           "<material name='Copper' refname='m.copper' cat='Polished'/></dir>"
           "<dir name='Woods'/></materials>"
           "<colours name='Colours'><colour name='Red' refname='c.red'><plainColour>"
           "<param name='Colour' type='colour' val='1 0 0'/></plainColour></colour></colours>"
           "<!-- the end --></presets>";
}

inline QByteArray sampleDocument()
{
    return "<?xml version='1.0' encoding='utf-8'?><snapRoot><snapshots name='Model SnapShots'>"
           "<snapshot name='One'><camera name='Front'/></snapshot>"
           "<snapshot name='Two'><materialRepository><material linkname='wall' name='Plain'/>"
           "</materialRepository></snapshot></snapshots><snapshot name='CurrSnapshot'/></snapRoot>";
}

class BrowserTest : public InAFolder {
protected:
    QByteArray bytesOf(const QString& file) const
    {
        QFile opened(file);
        EXPECT_TRUE(opened.open(QIODevice::ReadOnly)) << file.toStdString();
        return opened.readAll();
    }

    std::unique_ptr<browser::EditedFile> open(const QString& file) const
    {
        ReadError error;
        auto opened = browser::EditedFile::open(file, error, journals());
        EXPECT_TRUE(opened) << error.message.toStdString();
        return opened;
    }

    QString journals() const
    {
        return path("journals");
    }

    static QDomElement at(const browser::EditedFile& file, const char* path)
    {
        const auto found =
            toolkit::PathPattern(QString::fromUtf8(path)).Find(file.dom().documentElement());
        return found.isEmpty() ? QDomElement() : found.first().element;
    }

    static QString textOf(const browser::EditedFile& file)
    {
        return XmlText(file.dom(), ArchiveFileIndent);
    }

    static QStringList namesIn(const QDomElement& shelf)
    {
        QStringList names;
        for (QDomElement child = shelf.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement())
            names << toolkit::IdentityOf(child);
        return names;
    }

    /// True once the condition is. Pictures take long where sanitizers look at each step, beside
    /// other work.
    template <typename Condition>
    static bool comes(const Condition& condition)
    {
        return QTest::qWaitFor(condition, 120000);
    }
};

} // namespace rvopen::test
