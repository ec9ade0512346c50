// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/PresetArchives.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/model/Binding.h>

#include <QDir>
#include <QSet>

namespace rvopen {

namespace {

RVOpenNode* firstChildNamed(RVOpenNode* parent, const QString& name)
{
    RVOpenNode* child = parent ? parent->GetChild(1, 1) : nullptr;
    while (child && child->GetNodeName() != name)
        child = child->GetNext(1);
    return child;
}

/// Depth first. \p archives are the chains that were entered through an archive reference: archives
/// may refer to each other in a circle.
RVOpenNode* findPreset(RVOpenNode* node, const QString& subcat, const QString& refName,
                       QSet<const RVOpenNode*>& archives)
{
    RVOpenNode* child = NodeAccess::firstChild(node);
    if (!child)
        child = node->GetChild(1, 1);
    if (child && child->GetParent() != node) {
        if (archives.contains(child))
            return nullptr;
        archives.insert(child);
    }
    for (; child; child = child->GetNext(1)) {
        const QString itsName = NodeAccess::attribute(child, names::attribute::refName());
        if (itsName.size() == refName.size() && itsName == refName &&
            (subcat.isEmpty() || child->GetSubCat() == subcat))
            return child;
        if (RVOpenNode* const found = findPreset(child, subcat, refName, archives))
            return found;
    }
    return nullptr;
}

} // namespace

PresetArchives::PresetArchives(Retired& retired)
    : m_retired(retired)
{
}

PresetArchives::~PresetArchives() = default;

void PresetArchives::read(const QString& folder)
{
    if (!m_defaultDocument)
        m_defaultDocument.reset(readDocument(folder + QLatin1String("\\xml\\Default.rvx")));
    if (m_defaultDocument) {
        m_retired.replace(m_defaultRoot, View<RVOpenNode>(newBound<RVOpenNode>(
                                             m_defaultDocument->documentElement())));
    }
    readExtra(m_productRoot, folder + QLatin1String("\\xml\\Product_extra.rvx"));
    readExtra(m_architecturalRoot, folder + QLatin1String("\\xml\\Architectural_extra.rvx"));
}

RVOpenNode* PresetArchives::choose(const QString& name, const QString& type)
{
    m_type = type;
    QString* remembered = nullptr;
    if (type == names::value::productArchives())
        remembered = &m_zorvaneName;
    else if (type == names::value::customArchives())
        remembered = &m_customName;
    if (remembered && !name.isEmpty())
        *remembered = name;
    QString path = GetDirectoryHandler()->GetFolder(type);
    if (!path.isEmpty())
        path += QDir::separator();
    m_path = path + (remembered ? *remembered : name);
    return GetDirectoryHandler()->LoadArchive(m_path);
}

QString PresetArchives::type() const
{
    return m_type;
}

RVOpenNode* PresetArchives::section(const QString& type, bool fromDefault)
{
    RVOpenNode* const result = firstChildNamed(fromDefault ? m_defaultRoot.get() : chosen(), type);
    RVOpenNode* const from = result ? extra() : nullptr;
    RVOpenNode* const section = firstChildNamed(from, type);
    if (!section)
        return result;
    QDomNode target = result->GetDomNode();
    QDomDocument document = target.ownerDocument();
    for (RVOpenNode* child = section->GetChild(1, 1); child; child = child->GetNext(1))
        target.appendChild(document.importNode(child->GetDomNode(), true));
    NodeAccess::removeChild(from, section);
    return result;
}

RVOpenNode* PresetArchives::find(const QString& type, const QString& subcat, const QString& refName)
{
    for (const bool fromDefault : {false, true}) {
        QSet<const RVOpenNode*> archives;
        RVOpenNode* const in = section(type, fromDefault);
        RVOpenNode* const preset = in ? findPreset(in, subcat, refName, archives) : nullptr;
        if (preset)
            return preset;
    }
    return nullptr;
}

void PresetArchives::readExtra(View<RVOpenNode>& root, const QString& path)
{
    const std::unique_ptr<QDomDocument> document(readDocument(path));
    if (document) {
        // The node keeps the document.
        m_retired.replace(root,
                          View<RVOpenNode>(newBound<RVOpenNode>(document->documentElement())));
    }
}

RVOpenNode* PresetArchives::chosen() const
{
    return GetDirectoryHandler()->openArchive(m_path);
}

RVOpenNode* PresetArchives::extra() const
{
    if (m_type != names::value::productArchives())
        return nullptr;
    if (m_productRoot && m_zorvaneName.contains(QLatin1String("Product")))
        return m_productRoot.get();
    if (m_zorvaneName.contains(QLatin1String("Architectural")))
        return m_architecturalRoot.get();
    return nullptr;
}

} // namespace rvopen
