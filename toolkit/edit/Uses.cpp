// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Uses.h"

#include "Labels.h"
#include "Placement.h"
#include "Things.h"
#include "toolkit/documents/SafeFiles.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/edit/NodePath.h>

namespace rvopen::toolkit {

namespace {

const QString s_refName = QStringLiteral("refname");
const QString s_linkName = QStringLiteral("linkname");

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
                m_keys.insert(presetKey(leaf));
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
    Walk(m_document.Root(), QString(), [&](const QDomElement& element, const QString&) {
        if (isUse(element))
            elements.append(element);
        return !isParam(element);
    });
    return elements;
}

bool Uses::canBeElsewhere() const
{
    return !m_keys.isEmpty();
}

QVector<Use> Uses::inOther(const Document& other) const
{
    return isSameFile(other.Path(), m_document.Path()) ? QVector<Use>() : in(other, {});
}

QVector<Use> Uses::ofArchive(const Document& other) const
{
    QVector<Use> uses;
    if (m_document.Kind() != DocumentKind::Archive || m_keys.isEmpty())
        return uses;
    Walk(other.Root(), QString(), [&](const QDomElement& element, const QString& path) {
        if (element.tagName() == QLatin1String("dir") &&
            !element.attribute(QStringLiteral("archiveFilename")).isEmpty() &&
            isSameFile(archiveOf(element), m_document.Path()))
            uses.append({other.Name(), path, QStringLiteral("the archive")});
        return !isParam(element);
    });
    return uses;
}

QVector<Use> Uses::ofObjects() const
{
    QVector<Use> uses;
    for (const QDomElement& element : m_elements) {
        const QString linkName = element.attribute(s_linkName);
        if (thingOf(element) == Thing::PaletteMaterial && !linkName.isEmpty())
            uses.append({m_document.Name(), PathOf(element),
                         QStringLiteral("the link name \"%1\"").arg(linkName)});
    }
    return uses;
}

/// A preset has the name itself.
bool Uses::isUse(const QDomElement& element) const
{
    return element.hasAttribute(s_refName) && m_keys.contains(presetKey(element)) &&
           goesByRefName(element);
}

QVector<Use> Uses::in(const Document& document, const QVector<QDomElement>& without) const
{
    QVector<Use> uses;
    if (m_keys.isEmpty())
        return uses;
    Walk(document.Root(), QString(), [&](const QDomElement& element, const QString& path) {
        if (without.contains(element))
            return false;
        if (isUse(element))
            uses.append({document.Name(), path,
                         element.tagName() + QLatin1Char(' ') + element.attribute(s_refName)});
        return !isParam(element);
    });
    return uses;
}

} // namespace rvopen::toolkit
