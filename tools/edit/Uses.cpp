// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Uses.h"

#include "../Input.h"
#include "../NodePath.h"
#include "Things.h"

#include <rvopen/RVOpenNode.h>

namespace rvopen::tools {

namespace {

const QString s_refName = QStringLiteral("refname");
const QString s_linkName = QStringLiteral("linkname");

QString keyOfPreset(const QDomElement& element)
{
    return element.tagName() + QLatin1Char('/') + element.attribute(s_refName);
}

/// The library says where the archive is that a folder stands for.
QString archiveOf(const QDomElement& folder)
{
    RVOpenNode node;
    node.SetDomNode(folder);
    const QString file = node.GetArchiveFilename();
    node.SetDomNode(QDomNode());
    return file;
}

} // namespace

Uses::Uses(const Document& document, const QVector<QDomElement>& elements)
    : m_document(document)
    , m_elements(elements)
{
    for (const QDomElement& element : elements) {
        for (const QDomElement& leaf : leavesOf(element)) {
            if (thingOf(leaf) == Thing::Preset && !leaf.attribute(s_refName).isEmpty())
                m_keys.insert(keyOfPreset(leaf));
        }
    }
}

QVector<Use> Uses::inDocument() const
{
    return in(m_document, m_elements);
}

QVector<QDomElement> Uses::elementsInDocument() const
{
    QVector<QDomElement> elements;
    walk(m_document.root(), QString(), [&](const QDomElement& element, const QString&) {
        if (isUse(element))
            elements.append(element);
        return !isParam(element);
    });
    return elements;
}

QVector<Use> Uses::inFiles(const QStringList& files, Session& session) const
{
    QVector<Use> uses;
    if (m_keys.isEmpty())
        return uses;
    forEachDocument(files, session, [&](Document& document) {
        if (!isSameFile(document.path(), m_document.path()))
            uses += in(document, {});
    });
    return uses;
}

QVector<Use> Uses::ofArchive(const QStringList& files, Session& session) const
{
    QVector<Use> uses;
    if (m_document.kind() != DocumentKind::Archive || m_keys.isEmpty())
        return uses;
    forEachDocument(files, session, [&](Document& document) {
        walk(document.root(), QString(), [&](const QDomElement& element, const QString& path) {
            if (element.tagName() == QLatin1String("dir") &&
                !element.attribute(QStringLiteral("archiveFilename")).isEmpty() &&
                isSameFile(archiveOf(element), m_document.path()))
                uses.append({document.name(), path, QStringLiteral("the archive")});
            return !isParam(element);
        });
    });
    return uses;
}

QVector<Use> Uses::ofObjects() const
{
    QVector<Use> uses;
    for (const QDomElement& element : m_elements) {
        const QString linkName = element.attribute(s_linkName);
        if (thingOf(element) == Thing::PaletteMaterial && !linkName.isEmpty())
            uses.append({m_document.name(), pathOf(element),
                         QStringLiteral("the link name \"%1\"").arg(linkName)});
    }
    return uses;
}

/// A preset has the name itself.
bool Uses::isUse(const QDomElement& element) const
{
    return element.hasAttribute(s_refName) && m_keys.contains(keyOfPreset(element)) &&
           thingOf(element) != Thing::Preset;
}

QVector<Use> Uses::in(const Document& document, const QVector<QDomElement>& without) const
{
    QVector<Use> uses;
    if (m_keys.isEmpty())
        return uses;
    walk(document.root(), QString(), [&](const QDomElement& element, const QString& path) {
        if (without.contains(element))
            return false;
        if (isUse(element))
            uses.append({document.name(), path,
                         element.tagName() + QLatin1Char(' ') + element.attribute(s_refName)});
        return !isParam(element);
    });
    return uses;
}

} // namespace rvopen::tools
