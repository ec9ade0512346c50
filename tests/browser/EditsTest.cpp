// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Applying.h"
#include "Becoming.h"
#include "BrowserSupport.h"
#include "Findings.h"
#include "Labels.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/widgets/NodeModel.h>

#include <QMimeData>
#include <QRandomGenerator>

namespace rvopen::test {

using namespace browser;

namespace {

class EditsTest : public BrowserTest {
protected:
    void SetUp() override
    {
        m_file = open(write("a.rvx", sampleArchive()));
        m_before = textOf(*m_file);
    }

    QDomElement at(const char* path) const
    {
        return BrowserTest::at(*m_file, path);
    }

    /// All that was done is one step, which gives back what was there.
    void expectOneStep()
    {
        EXPECT_EQ(m_file->stack().count(), 1);
        const QString after = textOf(*m_file);
        m_file->stack().undo();
        EXPECT_EQ(textOf(*m_file), m_before);
        m_file->stack().redo();
        EXPECT_EQ(textOf(*m_file), after);
    }

    std::unique_ptr<EditedFile> m_file;
    QString m_before;
};

TEST_F(EditsTest, ANameIsAnother)
{
    EXPECT_TRUE(edits::rename(*m_file, at("//material[Brass]"), "Bronze"));
    EXPECT_FALSE(edits::rename(*m_file, at("//material[Bronze]"), ""));
    EXPECT_EQ(namesIn(at("/materials/dir[Metals]")), (QStringList{"Bronze", "Copper"}));
    expectOneStep();
}

/// A camera stands in the row of its snapshot, which is not meant.
TEST_F(EditsTest, WhatHasNoRowIsLeftAlone)
{
    m_file = open(write("a.xml", sampleDocument()));
    m_before = textOf(*m_file);
    const QDomElement camera = at("//snapshot[One]/camera");
    ASSERT_FALSE(camera.isNull());
    EXPECT_FALSE(edits::rename(*m_file, camera, "Other"));
    EXPECT_EQ(edits::remove(*m_file, {camera}), 0);
    EXPECT_TRUE(edits::duplicate(*m_file, camera).isNull());
    EXPECT_FALSE(edits::move(*m_file, camera, 1));
    EXPECT_FALSE(edits::rename(*m_file, QDomElement(), "Other"));
    EXPECT_EQ(textOf(*m_file), m_before);
    EXPECT_EQ(m_file->stack().count(), 0);
}

TEST_F(EditsTest, WhatIsDeletedGoesWithWhatIsInIt)
{
    EXPECT_EQ(edits::remove(*m_file, {at("/materials/dir[Metals]"), at("//material[Copper]"),
                                      at("/colours/colour[Red]")}),
              2);
    EXPECT_EQ(namesIn(at("/materials")), QStringList{"Woods"});
    EXPECT_EQ(namesIn(at("/colours")), QStringList());
    expectOneStep();
}

TEST_F(EditsTest, ADuplicateStandsBehindAndIsCalledOtherwise)
{
    const QDomElement copy = edits::duplicate(*m_file, at("//material[Brass]"));
    const QStringList names = namesIn(at("/materials/dir[Metals]"));
    ASSERT_EQ(names.size(), 3);
    EXPECT_EQ(names[0], "Brass");
    EXPECT_EQ(names[1], toolkit::IdentityOf(copy));
    EXPECT_NE(names[1], "Brass");
    EXPECT_NE(copy.attribute("refname"), "m.brass");
    EXPECT_EQ(copy.attribute("cat"), "Polished");
    expectOneStep();
}

TEST_F(EditsTest, MovesAmongNeighbours)
{
    EXPECT_FALSE(edits::move(*m_file, at("//material[Brass]"), -1));
    EXPECT_FALSE(edits::move(*m_file, at("//material[Copper]"), 1));
    EXPECT_TRUE(edits::move(*m_file, at("//material[Copper]"), -1));
    EXPECT_EQ(namesIn(at("/materials/dir[Metals]")), (QStringList{"Copper", "Brass"}));
    expectOneStep();
}

TEST_F(EditsTest, AddsWhatASectionTakes)
{
    EXPECT_EQ(edits::kindsFor(at("/colours")), (QStringList{"dir", "colour"}));
    EXPECT_EQ(edits::kindsFor(at("//material[Brass]")), QStringList());
    EXPECT_EQ(edits::shelfOf(*m_file, at("//material[Brass]")), at("/materials/dir[Metals]"));
    EXPECT_TRUE(edits::shelfOf(*m_file, m_file->dom().documentElement()).isNull());
    const QDomElement added = edits::add(*m_file, "colour", at("/colours"));
    EXPECT_EQ(added.tagName(), "colour");
    EXPECT_EQ(added.parentNode(), at("/colours"));
    expectOneStep();
    EXPECT_TRUE(edits::add(*m_file, "camera", at("/colours")).isNull());
}

TEST_F(EditsTest, PastesWhereItMayStand)
{
    const auto other = open(write("b.rvx", sampleArchive()));
    widgets::NodeModel& model = other->tree();
    const std::unique_ptr<QMimeData> brass(
        model.mimeData({model.Fetch(BrowserTest::at(*other, "//material[Brass]"))}));
    EXPECT_FALSE(edits::paste(*m_file, *brass, at("/colours")));
    EXPECT_EQ(textOf(*m_file), m_before);
    EXPECT_TRUE(edits::paste(*m_file, *brass, at("/materials/dir[Woods]")));
    EXPECT_EQ(namesIn(at("/materials/dir[Woods]")).size(), 1);
    expectOneStep();
    QMimeData nothing;
    nothing.setText("<material/>");
    EXPECT_FALSE(edits::paste(*m_file, nothing, at("/materials")));
}

TEST_F(EditsTest, WhatComesFromAnotherFolderRefersToTheSameImages)
{
    const QByteArray textured = sampleArchive().replace(
        "<material name='Copper' refname='m.copper' cat='Polished'/>",
        "<material name='Copper' refname='m.copper'><colour><map><param name='Texture' "
        "type='string' val='images\\copper.png'/></map></colour></material>");
    paint("other/images/copper.png", qRgb(200, 100, 50));
    const auto other = open(write("other/b.rvx", textured));
    widgets::NodeModel& model = other->tree();
    const std::unique_ptr<QMimeData> copper(
        model.mimeData({model.Fetch(BrowserTest::at(*other, "//material[Copper]"))}));
    // As another program has it, which gets texts alone.
    QMimeData sent;
    for (const QString& format : copper->formats())
        sent.setData(format, copper->data(format));
    const QMimeData* const given[] = {copper.get(), &sent};
    for (const QMimeData* const data : given) {
        const QDomElement woods = at("/materials/dir[Woods]");
        ASSERT_TRUE(edits::paste(*m_file, *data, woods));
        const QDomElement param =
            woods.lastChildElement().firstChildElement().firstChildElement().firstChildElement();
        EXPECT_EQ(param.attribute("val"), "other\\images\\copper.png");
    }
    EXPECT_TRUE(edits::paste(*other, *copper, BrowserTest::at(*other, "/materials/dir[Woods]")));
    EXPECT_EQ(BrowserTest::at(*other, "/materials/dir[Woods]/material/colour/map:Texture")
                  .attribute("val"),
              "images\\copper.png");
}

TEST_F(EditsTest, SortsFoldersFirstThenNamesInAnyCase)
{
    const QDomElement metals = at("/materials/dir[Metals]");
    for (const char* const name : {"brass 10", "amber", "Zinc"}) {
        edits::rename(*m_file, edits::duplicate(*m_file, at("//material[Copper]")), name);
    }
    edits::add(*m_file, "dir", metals);
    EXPECT_TRUE(edits::sort(*m_file, metals));
    EXPECT_EQ(namesIn(metals),
              (QStringList{"New folder", "amber", "Brass", "brass 10", "Copper", "Zinc"}));
    EXPECT_FALSE(edits::sort(*m_file, metals));
    const QString after = textOf(*m_file);
    m_file->stack().undo();
    EXPECT_EQ(namesIn(metals).first(), "Brass");
    m_file->stack().redo();
    EXPECT_EQ(textOf(*m_file), after);
}

TEST_F(EditsTest, MendsAsOneStep)
{
    m_file =
        open(write("c.rvx", sampleArchive().replace("type='colour' val='1 0 0'", "val='1 0 0'")));
    m_before = textOf(*m_file);
    const int mended = Findings::mend(*m_file, {});
    EXPECT_GT(mended, 0);
    EXPECT_NE(textOf(*m_file), m_before);
    expectOneStep();
}

TEST(BecomingTest, ADocumentBecomesAnotherByAnyChanges)
{
    QRandomGenerator random(7);
    const auto element = [&](QDomDocument& document) {
        QDomElement made = document.createElement(QString(QChar('a' + int(random.bounded(3)))));
        if (random.bounded(2) == 0)
            made.setAttribute("k", int(random.bounded(3)));
        return made;
    };
    const auto grow = [&](const auto& self, QDomDocument& document, QDomNode parent,
                          int depth) -> void {
        const int count = int(random.bounded(5));
        for (int i = 0; i < count; ++i) {
            QDomElement child = element(document);
            parent.appendChild(child);
            if (random.bounded(4) == 0)
                parent.appendChild(document.createComment(QString::number(random.bounded(3))));
            if (depth < 3)
                self(self, document, child, depth + 1);
        }
    };
    for (int round = 0; round < 300; ++round) {
        QDomDocument now;
        QDomDocument wanted;
        for (QDomDocument* const document : {&now, &wanted}) {
            document->appendChild(document->createElement("root"));
            grow(grow, *document, document->documentElement(), 0);
        }
        const QString before = XmlText(now, 1);
        QVector<RVOpenChange> changes;
        ASSERT_TRUE(becomeAs(wanted.documentElement(), now.documentElement(),
                             [&](const RVOpenChange& change) {
                                 changes.append(change);
                                 return change.TakeBack(nullptr);
                             }));
        ASSERT_EQ(XmlText(now, 1), XmlText(wanted, 1)) << before.toStdString();
        changes.clear();
        ASSERT_TRUE(becomeAs(wanted.documentElement(), now.documentElement(),
                             [&](const RVOpenChange& change) {
                                 changes.append(change);
                                 return true;
                             }));
        ASSERT_TRUE(changes.isEmpty());
    }
}

class ApplyingTest : public BrowserTest {
protected:
    void SetUp() override
    {
        m_document = open(write("a.xml", sampleDocument()));
        m_before = textOf(*m_document);
        m_presets.setContent(
            QByteArray("<presets><camera name='Bird' refname='c.bird'/><material name='Oak' "
                       "refname='m.oak' cat='Wood'/><colour name='Red'/></presets>"));
    }

    QDomElement preset(const char* kind) const
    {
        return m_presets.documentElement().firstChildElement(kind);
    }

    std::unique_ptr<EditedFile> m_document;
    QString m_before;
    QDomDocument m_presets;
};

TEST_F(ApplyingTest, ComponentsGoToSnapshotsAndMaterialsToLinkNames)
{
    QStringList texts;
    for (const ApplyTarget& target : applyTargets(*m_document, "camera"))
        texts << target.text;
    EXPECT_EQ(texts, (QStringList{"One", "Two", "CurrSnapshot"}));
    const auto materials = applyTargets(*m_document, "material");
    ASSERT_EQ(materials.size(), 1);
    EXPECT_EQ(materials[0].text, "wall");
    EXPECT_TRUE(applyTargets(*m_document, "colour").isEmpty());
}

TEST_F(ApplyingTest, TakesThePlaceOfTheComponent)
{
    ASSERT_TRUE(
        applyPreset(preset("camera"), *m_document, "snapshots[Model SnapShots]/snapshot[One]"));
    const QDomElement one = at(*m_document, "//snapshot[One]");
    EXPECT_EQ(namesIn(one), QStringList{"Bird"});
    ASSERT_TRUE(
        applyPreset(preset("camera"), *m_document, "snapshots[Model SnapShots]/snapshot[Two]"));
    EXPECT_EQ(at(*m_document, "//snapshot[Two]/camera").attribute("refname"), "c.bird");
    m_document->stack().undo();
    m_document->stack().undo();
    EXPECT_EQ(textOf(*m_document), m_before);
}

TEST_F(ApplyingTest, AMaterialKeepsItsLinkName)
{
    const QString path = applyTargets(*m_document, "material")[0].path;
    ASSERT_TRUE(applyPreset(preset("material"), *m_document, path));
    const QDomElement wall = at(*m_document, "//material[@linkname=wall]");
    EXPECT_EQ(wall.attribute("name"), "Oak");
    EXPECT_EQ(wall.attribute("cat"), "Wood");
    m_document->stack().undo();
    EXPECT_EQ(textOf(*m_document), m_before);
}

TEST_F(ApplyingTest, WhatDoesNotFitChangesNothing)
{
    EXPECT_FALSE(
        applyPreset(preset("colour"), *m_document, "snapshots[Model SnapShots]/snapshot[One]"));
    EXPECT_FALSE(
        applyPreset(preset("camera"), *m_document, "snapshots[Model SnapShots]/snapshot[No]"));
    EXPECT_FALSE(
        applyPreset(preset("camera"), *m_document, applyTargets(*m_document, "material")[0].path));
    EXPECT_EQ(textOf(*m_document), m_before);
    EXPECT_EQ(m_document->stack().count(), 0);
}

} // namespace

TEST_F(EditsTest, LabelsAreOneStepAndReferencesGoAlong)
{
    const QString path =
        write("labels.rvx",
              sampleArchive().replace("<dir name='Woods'/>",
                                      "<material name='Tin' refname='m.tin'><base><material "
                                      "refname='m.brass'/></base></material>"));
    const auto file = open(path);
    const QString before = BrowserTest::textOf(*file);
    const QDomElement brass = BrowserTest::at(*file, "//material[Brass]");
    EXPECT_TRUE(setLabel(*file, brass, "cat", "Dull"));
    EXPECT_EQ(brass.attribute("cat"), "Dull");
    EXPECT_TRUE(setLabel(*file, brass, "subcat", ""));
    EXPECT_FALSE(brass.hasAttribute("subcat"));
    EXPECT_TRUE(setLabel(*file, brass, "refname", "m.new"));
    EXPECT_EQ(brass.attribute("refname"), "m.new");
    EXPECT_FALSE(BrowserTest::at(*file, "//material[Tin]/base/material[m.new]").isNull());
    EXPECT_FALSE(setLabel(*file, brass, "refname", "m.tin"));
    EXPECT_EQ(brass.attribute("refname"), "m.new");
    EXPECT_EQ(file->stack().count(), 3);
    while (file->stack().canUndo())
        file->stack().undo();
    EXPECT_EQ(BrowserTest::textOf(*file), before);
}

} // namespace rvopen::test
