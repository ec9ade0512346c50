// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/schema/ElementInfo.h>

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenVocabulary.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QHash>

namespace rvopen::toolkit {

namespace {

enum Role { Root, Component, Folder, Part };

/// The elements besides sections and presets, which the library lists, and those of them that have
/// children. Names between blanks.
struct ElementRow {
    const char* name;
    Role role;
    const char* children;
};

constexpr ElementRow s_rows[] = {
    {"snapRoot", Root, "snapshots snapshot background"},
    {"presets", Root, ""},
    {"snapshots", Part, "snapshot"},
    {"snapshot", Part, ""},
    {"snapShotSettings", Component, ""},
    {"scenery", Component, ""},
    {"camera", Component, ""},
    {"naturalLightStudio", Component, ""},
    {"artificialLightStudio", Component, ""},
    {"scheme", Component, "background"},
    {"background", Component, ""},
    {"foreground", Component, ""},
    {"materialRepository", Component, "material"},
    {"renderTargets", Component, "renderTarget"},
    {"renderTarget", Part, ""},
    {"dir", Folder, "dir"},
    {"material", Part, "colour finish transparency bump material"},
    {"colour", Part, "diffuse"},
    {"diffuse", Part, ""},
    {"param", Part, "plainColour map"},
    {"plainColour", Part, ""},
    {"map", Part, ""},
};

class Elements {
public:
    static const Elements& instance()
    {
        static const Elements elements;
        return elements;
    }

    const QVector<ElementInfo>& all() const
    {
        return m_all;
    }

    const ElementInfo* find(const QString& name) const
    {
        const auto at = m_places.constFind(name);
        return at == m_places.cend() ? nullptr : &m_all[*at];
    }

private:
    Elements()
    {
        for (const ElementRow& row : s_rows)
            add(row);
        for (const ArchiveSection& section : ArchiveSections())
            add(section);
        for (ElementInfo& element : m_all)
            addKinds(element);
    }

    ElementInfo& element(const QString& name)
    {
        const auto known = m_places.constFind(name);
        if (known != m_places.cend())
            return m_all[*known];
        m_places.insert(name, int(m_all.size()));
        m_all.append(ElementInfo());
        m_all.last().name = name;
        return m_all.last();
    }

    void add(const ElementRow& row)
    {
        const QString name = QLatin1String(row.name);
        ElementInfo& info = element(name);
        info.isRoot = row.role == Root;
        info.isFolder = row.role == Folder;
        info.isComponent = row.role == Component;
        if (*row.children)
            info.children = QString::fromLatin1(row.children).split(QLatin1Char(' '));
        if (info.isComponent)
            element(QStringLiteral("snapshot")).children << name;
    }

    /// The section with its presets, which folders hold as well.
    void add(const ArchiveSection& section)
    {
        const QString folder = QStringLiteral("dir");
        for (const QString& preset : section.presets)
            element(preset).isPreset = true;
        element(folder).children << section.presets;
        element(QStringLiteral("presets")).children << section.element;
        ElementInfo& info = element(section.element);
        info.isSection = true;
        info.children << section.presets << folder;
    }

    static void addKinds(ElementInfo& info)
    {
        for (const QString& attribute : {QStringLiteral("subcat"), QStringLiteral("shaderClass")}) {
            const ParamInfo* const row = FindAttribute(info.name, attribute);
            if (!row || row->choices.count == 0)
                continue;
            info.kindAttribute = attribute;
            info.areKindsOpen = row->choices.areOpen;
            for (const QStringView choice : row->choices)
                info.kinds << choice.toString();
        }
    }

    QVector<ElementInfo> m_all;
    QHash<QString, int> m_places;
};

} // namespace

QVector<ElementInfo> AllElements()
{
    return Elements::instance().all();
}

const ElementInfo* FindElement(const QString& name)
{
    return Elements::instance().find(name);
}

const ElementInfo* FindElement(const RVOpenNode& node)
{
    return FindElement(node.GetNodeName());
}

} // namespace rvopen::toolkit
