// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../../TestSupport.h"

#include <rvopen/RVOpenVocabulary.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

namespace rvopen::test {

namespace {

using namespace toolkit;

const ElementInfo& elementOf(const QString& name)
{
    static const ElementInfo none;
    const ElementInfo* const info = FindElement(name);
    EXPECT_TRUE(info) << name.toStdString();
    return info ? *info : none;
}

const ElementInfo& elementOf(const char* name)
{
    return elementOf(QString(QLatin1String(name)));
}

/// The names of those elements, sorted.
QStringList namesOf(bool ElementInfo::*isOne)
{
    QStringList names;
    for (const ElementInfo& info : AllElements()) {
        if (info.*isOne)
            names << info.name;
    }
    names.sort();
    return names;
}

QStringList sorted(QStringList names)
{
    names.sort();
    return names;
}

/// Whether the model would put an element of one name under one of another.
bool canAdd(const QString& parent, const QString& child)
{
    QDomDocument document;
    const QDomElement element = document.createElement(parent);
    document.appendChild(element);
    const auto parentNode = create(element);
    const auto childNode = create(document.createElement(child));
    return RVOpenSchema::canAddNode(parentNode.get(), childNode.get()) != 0;
}

} // namespace

TEST(ElementInfo, IsThereForEachElementWithParameters)
{
    for (const ParamInfo& info : AllParams())
        EXPECT_TRUE(FindElement(info.element.toString())) << info.element.toString().toStdString();
    for (const ParamInfo& info : AllAttributes()) {
        if (!info.element.isEmpty()) {
            EXPECT_TRUE(FindElement(info.element.toString()))
                << info.element.toString().toStdString();
        }
    }
    EXPECT_FALSE(FindElement(QStringLiteral("teapot")));
    EXPECT_FALSE(FindElement(QStringLiteral("Camera")));
    EXPECT_FALSE(FindElement(QString()));
}

TEST(ElementInfo, HasEachElementOnceAndFindsIt)
{
    QStringList names;
    for (const ElementInfo& info : AllElements()) {
        names << info.name;
        EXPECT_EQ(elementOf(info.name).name, info.name);
    }
    EXPECT_EQ(names.removeDuplicates(), 0);
    EXPECT_EQ(names.size(), 40);
}

TEST(ElementInfo, HasSectionsAndPresetsOfTheModel)
{
    QStringList sections;
    QStringList presets;
    for (const ArchiveSection& section : ArchiveSections()) {
        sections << section.element;
        presets << section.presets;
        EXPECT_EQ(elementOf(section.element).children,
                  section.presets + QStringList(QStringLiteral("dir")));
    }
    EXPECT_EQ(namesOf(&ElementInfo::isSection), sorted(sections));
    EXPECT_EQ(namesOf(&ElementInfo::isPreset), sorted(presets));
    EXPECT_EQ(elementOf("dir").children, QStringList(QStringLiteral("dir")) + presets);
    EXPECT_EQ(elementOf("presets").children, sections);
}

TEST(ElementInfo, KnowsRootsFoldersAndComponents)
{
    EXPECT_EQ(namesOf(&ElementInfo::isRoot),
              QStringList({QStringLiteral("presets"), QStringLiteral("snapRoot")}));
    EXPECT_EQ(namesOf(&ElementInfo::isFolder), QStringList(QStringLiteral("dir")));
    EXPECT_EQ(
        namesOf(&ElementInfo::isComponent),
        QStringList({QStringLiteral("artificialLightStudio"), QStringLiteral("background"),
                     QStringLiteral("camera"), QStringLiteral("foreground"),
                     QStringLiteral("materialRepository"), QStringLiteral("naturalLightStudio"),
                     QStringLiteral("renderTargets"), QStringLiteral("scenery"),
                     QStringLiteral("scheme"), QStringLiteral("snapShotSettings")}));
    EXPECT_EQ(sorted(elementOf("snapshot").children), namesOf(&ElementInfo::isComponent));
}

TEST(ElementInfo, HasTheChildrenThatTheModelAdds)
{
    // The model has no rule for the sections of presets that it does not create.
    int ruled = 0;
    for (const ElementInfo& parent : AllElements()) {
        if (!parent.isSection && parent.name != QLatin1String("material"))
            continue;
        if (parent.isSection && !canAdd(parent.name, QStringLiteral("dir")))
            continue;
        ++ruled;
        for (const ElementInfo& child : AllElements()) {
            const bool isBaseMaterial = parent.name == child.name;
            EXPECT_EQ(parent.children.contains(child.name) && !isBaseMaterial,
                      canAdd(parent.name, child.name))
                << parent.name.toStdString() << '/' << child.name.toStdString();
        }
    }
    EXPECT_EQ(ruled, 10);
}

TEST(ElementInfo, HasChildrenThatAreKnown)
{
    for (const ElementInfo& parent : AllElements()) {
        for (const QString& child : parent.children)
            EXPECT_TRUE(FindElement(child)) << parent.name.toStdString();
    }
    EXPECT_EQ(elementOf("renderTargets").children, QStringList(QStringLiteral("renderTarget")));
    EXPECT_EQ(elementOf("camera").children, QStringList());
}

TEST(ElementInfo, HasTheKinds)
{
    const ElementInfo& scheme = elementOf("scheme");
    EXPECT_EQ(scheme.kindAttribute, QStringLiteral("subcat"));
    EXPECT_EQ(scheme.kinds, QStringList({QStringLiteral("Exterior"), QStringLiteral("Interior"),
                                         QStringLiteral("Product")}));
    EXPECT_FALSE(scheme.areKindsOpen);
    const ElementInfo& finish = elementOf("finish");
    EXPECT_EQ(finish.kindAttribute, QStringLiteral("shaderClass"));
    EXPECT_EQ(finish.kinds, QStringList(QStringLiteral("lit appearance")));
    EXPECT_TRUE(finish.areKindsOpen);
    const ElementInfo& bump = elementOf("bump");
    EXPECT_EQ(bump.kindAttribute, QString());
    EXPECT_EQ(bump.kinds, QStringList());
    EXPECT_TRUE(bump.areKindsOpen);
}

TEST(ElementInfo, HasAKindForEachThatParametersAreOf)
{
    for (const ParamInfo& info : AllParams()) {
        const QString element = info.element.toString();
        // Theirs is where they stand.
        if (info.kind.isEmpty() || element == QLatin1String("map") ||
            element == QLatin1String("plainColour"))
            continue;
        EXPECT_TRUE(elementOf(element).kinds.contains(info.kind.toString()))
            << element.toStdString();
    }
}

TEST(ElementInfo, IsFoundForANode)
{
    const QDomDocument document = parse(QStringLiteral("<snapRoot><camera/><odd/></snapRoot>"));
    const auto root = create(document.documentElement());
    ASSERT_EQ(children(root.get()).size(), 2u);
    EXPECT_EQ(FindElement(*children(root.get())[0]), FindElement(QStringLiteral("camera")));
    EXPECT_EQ(FindElement(*children(root.get())[1]), nullptr);
}

} // namespace rvopen::test
