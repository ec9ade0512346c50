// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/exchange/Merger.h"

#include "../Parts.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <string>

namespace rvopen::test {

namespace {

using namespace toolkit;

/// What became of ours, and the conflicts, one to a line.
struct Merged {
    std::string text;
    std::string conflicts;
    int taken = 0;
};

std::string shown(const MergeText& text)
{
    return text ? text->toStdString() : "-";
}

class Merges : public ::testing::Test {
protected:
    /// Of archives with that in the section "materials".
    Merged archives(const QByteArray& base, const QByteArray& ours, const QByteArray& theirs)
    {
        const QByteArray start = "<presets><materials>";
        const QByteArray end = "</materials></presets>";
        Merged merged = merge(start + base + end, start + ours + end, start + theirs + end);
        const std::string opening = "<materials>";
        const std::size_t from = merged.text.find(opening);
        if (from == std::string::npos)
            return merged;
        merged.text = merged.text.substr(from + opening.size());
        merged.text.resize(merged.text.find("</materials>"));
        return merged;
    }

    Merged merge(const QByteArray& base, const QByteArray& ours, const QByteArray& theirs)
    {
        const auto first = read(base);
        const auto second = read(ours);
        const auto third = read(theirs);
        Merger merger(first.get(), *second, *third);
        Merged merged;
        for (const MergeConflict& conflict : merger.run())
            merged.conflicts += conflict.path.toStdString() + ": " + shown(conflict.base) + " | " +
                                shown(conflict.ours) + " | " + shown(conflict.theirs) + "\n";
        merged.taken = merger.taken();
        merged.text = XmlText(second->Dom(), 0).remove(QLatin1Char('\n')).toStdString();
        return merged;
    }

private:
    std::unique_ptr<Document> read(const QByteArray& text)
    {
        const QString path = m_folder.filePath(QString::number(++m_count));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        ReadError error;
        return Document::Read(path, error);
    }

    QTemporaryDir m_folder;
    int m_count = 0;
};

} // namespace

TEST_F(Merges, AdditionsComeBehindTheirNeighbours)
{
    const Merged merged = archives("<material name='a'/><material name='b'/>",
                                   "<material name='b'/><material name='o'/><material name='a'/>",
                                   "<material name='x'/><material name='a'/><material name='y'/>"
                                   "<material name='z'/><material name='b'/>");
    EXPECT_EQ(merged.text, "<material name=\"x\"/><material name=\"b\"/><material name=\"o\"/>"
                           "<material name=\"a\"/><material name=\"y\"/><material name=\"z\"/>");
    EXPECT_EQ(merged.conflicts, "");
    EXPECT_EQ(merged.taken, 3);
}

TEST_F(Merges, CommentsComeAndGoWithWhatTheyAreAbout)
{
    EXPECT_EQ(archives("<material name='a'/><!--b--><material name='b'/>",
                       "<material name='a'/><!--b--><material name='b'/>",
                       "<material name='a'/><!--c--><material name='c'/>")
                  .text,
              "<material name=\"a\"/><!--c--><material name=\"c\"/>");
}

TEST_F(Merges, WhatOneSideRemovedGoesUnlessTheOtherChangedIt)
{
    const char* const both = "<material name='a' desc='1'/><material name='b'/>";
    const char* const changed = "<material name='a' desc='2'/><material name='b'/>";
    EXPECT_EQ(archives(both, both, "<material name='b'/>").text, "<material name=\"b\"/>");
    EXPECT_EQ(archives(both, "<material name='b'/>", both).text, "<material name=\"b\"/>");

    const Merged stays = archives(both, changed, "<material name='b'/>");
    EXPECT_EQ(stays.text, "<material desc=\"2\" name=\"a\"/><material name=\"b\"/>");
    EXPECT_EQ(stays.conflicts, "materials/material[a]: there | changed | -\n");

    const Merged gone = archives(both, "<material name='b'/>", changed);
    EXPECT_EQ(gone.text, "<material name=\"b\"/>");
    EXPECT_EQ(gone.conflicts, "materials/material[a]: there | - | changed\n");
}

TEST_F(Merges, APresetIsTheSameUnderAnotherName)
{
    const Merged merged = archives("<material refname='r' name='a' desc='1'/>",
                                   "<material refname='r' name='b' desc='1'/>",
                                   "<material refname='r' name='a' desc='2'/>");
    EXPECT_EQ(merged.text, "<material desc=\"2\" name=\"b\" refname=\"r\"/>");
    EXPECT_EQ(merged.conflicts, "");
}

TEST_F(Merges, APresetThatOneSideMovedHasTheOthersValues)
{
    const char* const stays = "<material refname='r' desc='1'/><dir name='d'/>";
    const char* const changed = "<material refname='r' desc='2'/><dir name='d'/>";
    const char* const moved = "<dir name='d'><material refname='r' desc='1'/></dir>";
    const std::string wanted = "<dir name=\"d\"><material desc=\"2\" refname=\"r\"/></dir>";
    for (const Merged& merged :
         {archives(stays, changed, moved), archives(stays, moved, changed)}) {
        EXPECT_EQ(merged.text, wanted);
        EXPECT_EQ(merged.conflicts, "");
    }
}

TEST_F(Merges, AFolderThatOneSideRenamedIsRenamed)
{
    const Merged merged = archives("<dir name='d'><material refname='r' desc='1'/></dir>",
                                   "<dir name='d'><material refname='r' desc='2'/></dir>",
                                   "<dir name='e' x='1'><material refname='r' desc='1'/></dir>");
    EXPECT_EQ(merged.text, "<dir name=\"e\" x=\"1\"><material desc=\"2\" refname=\"r\"/></dir>");
    EXPECT_EQ(merged.conflicts, "");
}

TEST_F(Merges, TwoPlacesAreAConflict)
{
    const Merged merged = archives("<material refname='r'/><dir name='d'/><dir name='e'/>",
                                   "<dir name='d'><material refname='r'/></dir><dir name='e'/>",
                                   "<dir name='d'/><dir name='e'><material refname='r'/></dir>");
    EXPECT_EQ(merged.text, "<dir name=\"d\"><material refname=\"r\"/></dir><dir name=\"e\"/>");
    EXPECT_EQ(merged.conflicts, "materials/dir[d]/material[r]: materials | materials / d | "
                                "materials / e\n");
}

TEST_F(Merges, WhatWasMovedHereAndRemovedThereIsAConflict)
{
    const Merged merged =
        archives("<material refname='r'/><dir name='d'/>",
                 "<dir name='d'><material refname='r'/></dir>", "<dir name='d'/>");
    EXPECT_EQ(merged.text, "<dir name=\"d\"><material refname=\"r\"/></dir>");
    EXPECT_EQ(merged.conflicts, "materials/dir[d]/material[r]: there | changed | -\n");
}

TEST_F(Merges, WhatWasRemovedHereAndMovedThereIsAConflictAndTheRestComes)
{
    const Merged merged =
        archives("<material refname='r'/>", "",
                 "<dir name='d'><material refname='n'/><material refname='r'/></dir>");
    EXPECT_EQ(merged.text, "<dir name=\"d\"><material refname=\"n\"/></dir>");
    EXPECT_EQ(merged.conflicts, "materials/dir[d]/material[r]: there | - | changed\n");
}

TEST_F(Merges, WhatBothChangedAlikeIsNoConflict)
{
    const auto document = [](const char* value) {
        return QByteArray("<presets><cameras><camera name='c'>"
                          "<param name='Field Of View' type='float' val='") +
               value + "'/></camera></cameras></presets>";
    };
    const Merged merged = merge(document("30"), document("40"), document("4e1"));
    EXPECT_EQ(merged.conflicts, "");
    EXPECT_EQ(merged.taken, 0);
    EXPECT_NE(merged.text.find("val=\"40\""), std::string::npos);
}

TEST_F(Merges, LengthsAreComparedInSceneUnits)
{
    const auto document = [](const char* scale, const char* distance) {
        return QByteArray("<snapRoot unitsScale='") + scale +
               "'><snapshot name='s'><camera><param name='Distance' prop='D' type='float' val='" +
               distance + "'/></camera></snapshot></snapRoot>";
    };
    const Merged same = merge(document("1", "2"), document("10", "20"), document("1", "2"));
    EXPECT_EQ(same.conflicts, "");
    EXPECT_NE(same.text.find("val=\"20\""), std::string::npos);
    const Merged taken = merge(document("1", "2"), document("10", "20"), document("1", "3"));
    EXPECT_EQ(taken.conflicts, "");
    EXPECT_NE(taken.text.find("val=\"30\""), std::string::npos);
    EXPECT_NE(taken.text.find("unitsScale=\"10\""), std::string::npos);
    const Merged theirs = merge(document("1", "2"), document("1", "3"), document("10", "20"));
    EXPECT_EQ(theirs.conflicts, "");
    EXPECT_NE(theirs.text.find("val=\"30\""), std::string::npos);
    EXPECT_NE(theirs.text.find("unitsScale=\"10\""), std::string::npos);
}

TEST_F(Merges, SnapShotsAreToldByNameAndPlace)
{
    const auto document = [](const char* first, const char* second) {
        return QByteArray("<snapRoot><snapshots name='Model SnapShots'><snapshot name='a' x='") +
               first + "'/><snapshot name='b' x='" + second + "'/></snapshots></snapRoot>";
    };
    const Merged merged = merge(document("1", "1"), document("2", "1"), document("3", "2"));
    EXPECT_EQ(merged.conflicts, "snapshots[Model SnapShots]/snapshot[a]@x: 1 | 2 | 3\n");
    EXPECT_NE(merged.text.find("name=\"b\" x=\"2\""), std::string::npos);
}

} // namespace rvopen::test
