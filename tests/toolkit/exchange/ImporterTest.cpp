// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/exchange/Importer.h"

#include "../InAFolder.h"

#include <rvopen/toolkit/documents/Failure.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

const char* const s_source = "<snapRoot unitsScale='1'><snapshots name='Model SnapShots'>"
                             "<snapshot name='a'/>"
                             "<snapshot name='b'><camera>"
                             "<param name='Distance' prop='D' type='float' val='2'/>"
                             "</camera></snapshot>"
                             "<snapshot name='c'/><other name='d'/>"
                             "</snapshots></snapRoot>";
const char* const s_target = "<snapRoot unitsScale='10'><snapshots name='Model SnapShots'>"
                             "<snapshot name='a'/><snapshot name='b'/>"
                             "</snapshots></snapRoot>";

class Importing : public InAFolder {
protected:
    /// The names of the snapshots in the collection.
    static std::string namesIn(const Document& document)
    {
        QStringList names;
        const QDomElement collection = document.Root().firstChildElement();
        for (QDomElement member = collection.firstChildElement(); !member.isNull();
             member = member.nextSiblingElement())
            names << member.attribute(QStringLiteral("name"));
        return joinedBy(" ", names);
    }
};

} // namespace

TEST_F(Importing, TellsWhatIsNewTheSameChangedOrRefused)
{
    const auto source = read(s_source);
    const auto target = read(s_target);
    Importer importer(*source, *target);
    const QVector<ImportItem> items = importer.items({});
    ASSERT_EQ(items.size(), 4);
    EXPECT_EQ(items[0].state, ImportState::Same);
    EXPECT_EQ(items[1].state, ImportState::Changed);
    EXPECT_EQ(items[2].state, ImportState::New);
    EXPECT_EQ(items[3].state, ImportState::Refused);
    EXPECT_EQ(items[2].sourcePath.toStdString(), "snapshots[Model SnapShots]/snapshot[c]");
    EXPECT_EQ(namesIn(*target), "a b");
}

TEST_F(Importing, TakesOverWhatIsNewAndLeavesTheRest)
{
    const auto source = read(s_source);
    const auto target = read(s_target);
    Importer importer(*source, *target);
    QVector<ImportItem> items = importer.items({});
    importer.apply(items, ChangedImports::Left);
    EXPECT_EQ(namesIn(*target), "a b c");
    EXPECT_EQ(items[1].action, ImportAction::None);
    EXPECT_EQ(items[2].action, ImportAction::Added);
    EXPECT_EQ(items[2].result.attribute(QStringLiteral("ImageBorder")), QStringLiteral("1"));
    EXPECT_EQ(namesIn(*source), "a b c d");
}

TEST_F(Importing, TakesOverWhatChangedUnderAnotherNameWithLengthsInTheTargetsUnits)
{
    const auto source = read(s_source);
    const auto target = read(s_target);
    Importer importer(*source, *target);
    QVector<ImportItem> items = importer.items({QStringLiteral("snapshot[b]")});
    ASSERT_EQ(items.size(), 1);
    importer.apply(items, ChangedImports::Renamed);
    EXPECT_EQ(items.first().action, ImportAction::Renamed);
    EXPECT_EQ(namesIn(*target), "a b b (2)");
    const QDomElement param =
        items.first().result.firstChildElement().firstChildElement(QStringLiteral("param"));
    EXPECT_EQ(param.attribute(QStringLiteral("val")), QStringLiteral("20"));
}

TEST_F(Importing, PutsWhatChangedInThePlaceOfTheOld)
{
    const auto source = read(s_source);
    const auto target = read(s_target);
    Importer importer(*source, *target);
    QVector<ImportItem> items = importer.items({});
    importer.apply(items, ChangedImports::Replaced);
    EXPECT_EQ(items[1].action, ImportAction::Replaced);
    EXPECT_EQ(namesIn(*target), "a b c");
    const QDomElement collection = target->Root().firstChildElement();
    EXPECT_EQ(collection.firstChildElement().nextSiblingElement().firstChildElement().tagName(),
              QStringLiteral("camera"));
}

TEST_F(Importing, HasRelativeReferencesLeadToTheSameFilesFromTheTarget)
{
    write("from/tex/b.png", "b");
    ReadError error;
    const auto source = Document::Read(
        write("from/a.xml", "<snapRoot><snapshots name='Model SnapShots'><snapshot name='a'><map>"
                            "<param name='Texture' type='string' val='tex/b.png'/></map><map>"
                            "<param name='Texture' type='string' val='absent.png'/></map>"
                            "</snapshot></snapshots></snapRoot>"),
        error);
    const auto target = Document::Read(write("to/a.xml", "<snapRoot/>"), error);
    Importer importer(*source, *target);
    QVector<ImportItem> items = importer.items({});
    ASSERT_EQ(importer.textures().size(), 2);
    EXPECT_EQ(importer.textures()[0].became, QStringLiteral("../from/tex/b.png"));
    EXPECT_TRUE(importer.textures()[0].note.isEmpty());
    EXPECT_TRUE(importer.textures()[1].became.isEmpty());
    EXPECT_FALSE(importer.textures()[1].note.isEmpty());
    importer.apply(items, ChangedImports::Left);
    const QDomElement map = items.first().result.firstChildElement();
    EXPECT_EQ(map.firstChildElement().attribute(QStringLiteral("val")),
              QStringLiteral("../from/tex/b.png"));
}

TEST_F(Importing, NeedsTwoDocumentsOfOneKind)
{
    const auto source = read(s_source);
    const auto archive = read("<presets type='UserArchives'/>");
    const auto other = read("<svg/>");
    EXPECT_THROW(Importer(*source, *archive), Failure);
    EXPECT_THROW(Importer(*other, *other), Failure);
}

} // namespace rvopen::test
