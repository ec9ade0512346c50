// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/manager/PresetArchives.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenScanner.h>
#include <rvopen/model/Binding.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/xml/XmlCharacters.h>

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

/// False where a chain belongs to another node: what stands in another archive is not noted, nor
/// what comes after it.
bool notePresets(RVOpenNode* top, RVOpenNode* node)
{
    for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1)) {
        if (NodeAccess::chainOwner(child) != node)
            return false;
        const QString refName = NodeAccess::attribute(child, names::attribute::refName());
        if (!refName.isEmpty())
            FoundNodes::note(top, refName, child);
        if (!notePresets(top, child))
            return false;
    }
    return true;
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

/// The same, with notes of all that is met where that helps the next one.
RVOpenNode* findNotedPreset(RVOpenNode* in, const QString& subcat, const QString& refName)
{
    RVOpenNode* const noted = refName.isEmpty() ? nullptr : FoundNodes::find(in, refName);
    if (noted && (subcat.isEmpty() || noted->GetSubCat() == subcat))
        return noted;
    if (FoundNodes::begin(in, FoundNodes::Below::Descendants, names::attribute::refName()))
        notePresets(in, in);
    QSet<const RVOpenNode*> archives;
    return findPreset(in, subcat, refName, archives);
}

/// Whether a file has an element of a reference name.
class NameScan : public XmlScan {
public:
    explicit NameScan(const QString& refName)
        : m_refName(refName)
    {
    }

    bool isIn(const QString& path)
    {
        m_isMet = false;
        return ScanFile(path) && m_isMet;
    }

protected:
    void StartElement(std::u16string_view /*name*/,
                      const std::vector<ScannedAttribute>& attributes) override
    {
        for (const ScannedAttribute& attribute : attributes) {
            if (!m_isMet && attribute.name == xml::viewOf(names::attribute::refName()))
                m_isMet = attribute.Text() == m_refName;
        }
    }

private:
    const QString m_refName;
    bool m_isMet = false;
};

} // namespace

PresetArchives::PresetArchives(Retired& retired)
    : m_retired(retired)
{
}

PresetArchives::~PresetArchives() = default;

void PresetArchives::read(const QString& folder)
{
    if (m_default)
        m_default.renewRoot(m_retired);
    else
        m_default.read(folder + QLatin1String("\\xml\\Default.rvx"), m_retired);
    m_product.read(folder + QLatin1String("\\xml\\Product_extra.rvx"), m_retired);
    m_architectural.read(folder + QLatin1String("\\xml\\Architectural_extra.rvx"), m_retired);
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
    RVOpenNode* const result = firstChildNamed(fromDefault ? m_default.root() : chosen(), type);
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
        RVOpenNode* const in = section(type, fromDefault);
        RVOpenNode* const preset = in ? findNotedPreset(in, subcat, refName) : nullptr;
        if (preset)
            return preset;
    }
    return nullptr;
}

RVOpenNode* PresetArchives::findInAll(const QString& type, const QString& subcat,
                                      const QString& refName)
{
    if (RVOpenNode* const preset = find(type, subcat, refName))
        return preset;
    const auto findBelow = [&](RVOpenNode* root) {
        RVOpenNode* const in = firstChildNamed(root, type);
        return in ? findNotedPreset(in, subcat, refName) : nullptr;
    };
    for (Archive* const archive : {&m_product, &m_architectural}) {
        if (RVOpenNode* const preset = findBelow(archive->root()))
            return preset;
    }
    DirectoryHandler* const registry = GetDirectoryHandler();
    NameScan scan(refName);
    for (const names::Name kind : {names::value::customArchives, names::value::productArchives}) {
        const QString folder = registry->GetFolder(kind());
        if (folder.isEmpty())
            continue;
        const QStringList files =
            QDir(PathToOpen(folder)).entryList({QStringLiteral("*.rvx")}, QDir::Files, QDir::Name);
        for (const QString& file : files) {
            const QString path = folder + QDir::separator() + file;
            if (path == m_path)
                continue;
            RVOpenNode* root = registry->openArchive(path);
            if (!root && !refName.isEmpty() && scan.isIn(path))
                root = registry->LoadArchive(path);
            if (RVOpenNode* const preset = findBelow(root))
                return preset;
        }
    }
    return nullptr;
}

RVOpenNode* PresetArchives::chosen() const
{
    return GetDirectoryHandler()->openArchive(m_path);
}

RVOpenNode* PresetArchives::extra()
{
    if (m_type != names::value::productArchives())
        return nullptr;
    if (m_product && m_zorvaneName.contains(QLatin1String("Product")))
        return m_product.root();
    if (m_zorvaneName.contains(QLatin1String("Architectural")))
        return m_architectural.root();
    return nullptr;
}

void PresetArchives::Archive::read(const QString& path, Retired& retired)
{
    std::shared_ptr<const JudgedDocument> judged = JudgedDocument::read(path);
    if (!judged)
        return;
    retired.replace(m_root, View<RVOpenNode>());
    m_document = QDomDocument();
    m_judged = std::move(judged);
}

RVOpenNode* PresetArchives::Archive::root()
{
    if (m_judged && m_document.isNull()) {
        if (const std::unique_ptr<QDomDocument> document = m_judged->build())
            m_document = *document;
    }
    if (!m_root && !m_document.isNull())
        m_root = View<RVOpenNode>(newBound<RVOpenNode>(m_document.documentElement()));
    return m_root.get();
}

void PresetArchives::Archive::renewRoot(Retired& retired)
{
    retired.replace(m_root, View<RVOpenNode>());
}

} // namespace rvopen
