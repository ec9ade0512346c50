// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/catalogue/PresetList.h"
#include "../InAFolder.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/toolkit/documents/Load.h>

#include <QStringList>

namespace rvopen::test {

using namespace toolkit;
using namespace toolkit::catalogue;

namespace {

AttributeFilter filterOf(const SelectionTexts& texts)
{
    AttributeFilter filter;
    EXPECT_TRUE(Selection(texts).isAttributeFilter(filter));
    return filter;
}

SelectionTexts textsOf(const char* type, const char* subCategory, const char* category,
                       const char* text)
{
    SelectionTexts texts;
    texts.type = QString::fromUtf8(type);
    texts.subCategory = QString::fromUtf8(subCategory);
    texts.category = QString::fromUtf8(category);
    texts.text = QString::fromUtf8(text);
    return texts;
}

QString text(const PresetList& list, std::size_t index, PresetText which)
{
    std::string text;
    list.entry(index).append(which, text);
    return QString::fromStdString(text);
}

class PresetListTest : public InAFolder {};

} // namespace

TEST_F(PresetListTest, HasWhatASelectionHas)
{
    QVector<ReadError> problems;
    QStringList files;
    for (const QString& file : DocumentsBelow(QStringLiteral(RVOPEN_DATA_DIR), problems)) {
        if (file.endsWith(QLatin1String(".rvx")))
            files << file;
    }
    files << write("a.rvx", "<presets><Materials name='oak'><dir name='Grün'><material name='Ä' "
                            "cat='é' subcat='ß'/><dir refname='oak'><x name='brass'/></dir></dir>"
                            "<y/></Materials></presets>");
    int found = 0;
    for (const SelectionTexts& texts :
         {textsOf("", "", "", ""), textsOf("MATERIAL", "", "", ""),
          textsOf("materials", "", "", ""), textsOf("", "opaque", "", ""),
          textsOf("", "SS", "", ""), textsOf("", "", "metals", ""), textsOf("", "", "e", ""),
          textsOf("", "", "", "oak"), textsOf("", "", "", "GRUN a"),
          textsOf("", "", "", "house light"), textsOf("", "", "", "brass oak"),
          textsOf("camera", "", "", "a"), textsOf("material", "", "", "nothing like this")}) {
        for (int i = 0; i < int(files.size()); ++i) {
            const BlockStore store({files[i]});
            PresetList list(store);
            ASSERT_EQ(list.add(filterOf(texts)), std::vector<bool>{true});
            QStringList listed;
            for (std::size_t at = 0; at < list.size(); ++at)
                listed << text(list, at, PresetText::Path);
            ReadError error;
            const std::unique_ptr<Document> document = Document::Read(files[i], error);
            QStringList selected;
            if (filterOf(texts).isEmpty()) {
                forEachPreset(document->Root(),
                              [&selected](const Preset& preset) { selected << preset.path; });
            } else {
                for (const PathPattern::Match& match : Selection(texts).items(document->Root()))
                    selected << match.path;
            }
            EXPECT_EQ(listed, selected) << files[i].toStdString() << texts.text.toStdString();
            found += int(listed.size());
        }
    }
    EXPECT_GT(found, 500);
}

TEST_F(PresetListTest, SortsByKindNameReferenceNameAndFile)
{
    const QStringList files{
        write("b.rvx", "<presets><a><y name='B'/><x name='b' refname='2'/></a></presets>"),
        write("a.rvx", "<presets><a><x name='b' refname='2'/><x name='b' refname='1'/><x name='B'/>"
                       "<x name='ä'/><x name='lengthy b'/><x name='lengthy A'/></a></presets>")};
    const BlockStore store(files);
    PresetList list(store);
    EXPECT_EQ(list.add(AttributeFilter()), std::vector<bool>({true, true}));
    list.sort();
    QStringList order;
    for (std::size_t i = 0; i < list.size(); ++i) {
        order << text(list, i, PresetText::Kind) + QLatin1Char(' ') +
                     text(list, i, PresetText::Name) + text(list, i, PresetText::RefName) +
                     text(list, i, PresetText::File).right(6);
    }
    EXPECT_EQ(order,
              QStringList({QStringLiteral("x B/a.rvx"), QStringLiteral("x b1/a.rvx"),
                           QStringLiteral("x b2/a.rvx"), QStringLiteral("x b2/b.rvx"),
                           QStringLiteral("x lengthy A/a.rvx"), QStringLiteral("x lengthy b/a.rvx"),
                           QString::fromUtf8("x ä/a.rvx"), QStringLiteral("y B/b.rvx")}));
}

TEST_F(PresetListTest, TakesPresetsOfDocumentsThatWereBuilt)
{
    const QString file = write("a.rvx", "<presets><a><x name='b' cat='c'/></a></presets>");
    const BlockStore store({file});
    PresetList list(store);
    EXPECT_EQ(list.add(AttributeFilter()), std::vector<bool>{true});
    const std::unique_ptr<Document> document =
        read("<presets><a name='n'><dir name='d'><x name='A' desc='e'/></dir></a></presets>");
    forEachPreset(document->Root(),
                  [&list](const Preset& preset) { list.add(QStringLiteral("built"), preset); });
    list.sort();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(text(list, 0, PresetText::File), QStringLiteral("built"));
    EXPECT_EQ(text(list, 0, PresetText::Path), QStringLiteral("a[n]/dir[d]/x[A]"));
    EXPECT_EQ(text(list, 0, PresetText::Folder), QStringLiteral("d"));
    EXPECT_EQ(text(list, 0, PresetText::Description), QStringLiteral("e"));
    EXPECT_EQ(text(list, 1, PresetText::Category), QStringLiteral("c"));
}

TEST_F(PresetListTest, LeavesToTheDocumentWhatRowsDoNotSay)
{
    const BlockStore store(
        {write("a.rvx", "<presets xmlns:p='u'><a><x/></a></presets>"),
         write("b.xml", "<snapRoot><snapshots><snapshot/></snapshots></snapRoot>"), path("none")});
    PresetList list(store);
    EXPECT_EQ(list.add(filterOf(textsOf("snapshot", "", "", ""))),
              std::vector<bool>({false, false, false}));
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(list.add(AttributeFilter()), std::vector<bool>({false, true, false}));
    EXPECT_EQ(list.size(), 1U);
}

TEST_F(PresetListTest, HasThePresetsOfManyDocumentsInTheOrderOfTheStore)
{
    QStringList files;
    QStringList expected;
    for (int i = 10; i < 90; ++i) {
        const QString number = QString::number(i);
        files << write(("f" + number + ".rvx").toLatin1().constData(),
                       ("<presets><a><x name='oak " + number + "'/><x name='ash " + number +
                        "'/></a></presets>")
                           .toLatin1()
                           .constData());
        expected << QStringLiteral("oak ") + number;
    }
    const BlockStore store(files);
    PresetList list(store);
    EXPECT_EQ(list.add(filterOf(textsOf("", "", "", "oak"))), std::vector<bool>(80, true));
    QStringList names;
    for (std::size_t i = 0; i < list.size(); ++i)
        names << text(list, i, PresetText::Name);
    EXPECT_EQ(names, expected);
}

TEST(Selection, IsAnAttributeFilterUnlessPathsOrConditionsAreGiven)
{
    AttributeFilter filter;
    SelectionTexts texts = textsOf("a", "B", "C", "D e");
    EXPECT_TRUE(Selection(texts).isAttributeFilter(filter));
    EXPECT_EQ(filter.type, QStringLiteral("a"));
    EXPECT_EQ(filter.subCategory + filter.category, QStringLiteral("bc"));
    EXPECT_EQ(filter.words, QStringList({QStringLiteral("d"), QStringLiteral("e")}));
    texts.conditions = QStringList{QStringLiteral("@a = b")};
    EXPECT_FALSE(Selection(texts).isAttributeFilter(filter));
    texts.conditions.clear();
    texts.paths = QStringList{QStringLiteral("material")};
    EXPECT_FALSE(Selection(texts).isAttributeFilter(filter));
}

} // namespace rvopen::test
