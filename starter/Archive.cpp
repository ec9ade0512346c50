// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Archive.h"

#include "Tables.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>

#include <QDomDocument>

namespace rvopen::starter {

namespace {

/// The version of the host that the documents are of.
const char s_emptyArchive[] = R"(<?xml version="1.0" encoding="utf-8"?>
<presets type="Zorvane" zorvane_version="3.1"/>)";

/// Whether the rule of placement speaks of what this group takes: it does where it takes folders.
bool hasRule(RVOpenNode* section)
{
    RVOpenNode* const folder = createNode(*section, "dir");
    const int takesFolders = RVOpenSchema::canAddNode(section, folder);
    delete folder;
    return takesFolders != 0;
}

} // namespace

ArchiveSection sectionOf(const char* element)
{
    for (const ArchiveSection& section : ArchiveSections()) {
        if (section.element == QLatin1String(element))
            return section;
    }
    throw Failure(QStringLiteral("archives have no section \"%1\"").arg(QLatin1String(element)));
}

RVOpenNode* createNode(const RVOpenNode& owner, const char* element)
{
    QDomDocument document = owner.GetDomNode().ownerDocument();
    return RVOpenSchema::createNode(document.createElement(QLatin1String(element)));
}

Archive::Archive(RVOpenManager& manager, const QString& name, const QString& description)
    : m_manager(manager)
    , m_name(name)
    , m_root(manager.DecodeXML(QLatin1String(s_emptyArchive)))
{
    m_root->SetName(name);
    m_root->SetDescription(description);
}

Archive::~Archive()
{
    delete m_root;
}

RVOpenNode* Archive::root() const
{
    return m_root;
}

void Archive::place(const ArchiveSection& section, const QStringList& folders, RVOpenNode* preset)
{
    RVOpenNode* parent = sectionNode(section);
    const bool isRuled = hasRule(parent);
    for (const QString& folder : folders)
        parent = folderNode(parent, folder);
    if ((isRuled || !folders.isEmpty()) && !RVOpenSchema::canAddNode(parent, preset))
        throw Failure(QStringLiteral("\"%1\" may not be placed under \"%2\" of \"%3\"")
                          .arg(preset->GetName(), parent->GetName(), m_name));
    parent->AddNode(preset, true);
}

void Archive::save(const QString& path)
{
    if (!m_manager.SaveArchive(path, m_root))
        throw Failure(QStringLiteral("cannot write %1").arg(path));
}

RVOpenNode* Archive::sectionNode(const ArchiveSection& section)
{
    const QString key = section.element;
    if (!m_sections.contains(key)) {
        RVOpenNode* const node = createNode(*m_root, section.element.toLatin1().constData());
        node->SetName(section.title);
        m_root->AddNode(node, true);
        m_sections.insert(key, node);
    }
    return m_sections.value(key);
}

RVOpenNode* Archive::folderNode(RVOpenNode* parent, const QString& name)
{
    const QString key = QStringLiteral("%1/%2").arg(quintptr(parent), 0, 16).arg(name);
    if (!m_folders.contains(key)) {
        RVOpenNode* const node = createNode(*m_root, "dir");
        node->SetName(name);
        parent->AddNode(node, true);
        m_folders.insert(key, node);
    }
    return m_folders.value(key);
}

} // namespace rvopen::starter
