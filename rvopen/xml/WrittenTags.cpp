// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/WrittenTags.h>

#include <rvopen/xml/MarkupText.h>
#include <rvopen/xml/XmlSpace.h>

#include <QMap>
#include <QSet>

#include <algorithm>
#include <tuple>
#include <utility>

namespace rvopen::xml {

namespace {

bool isUsual(const QString& name)
{
    View prefix;
    return viewOf(name).find(u':') == View::npos && !isDeclaration(viewOf(name), prefix);
}

QString prefixIn(const QString& name)
{
    return toQString(prefixOf(viewOf(name)));
}

/// The name of the attribute that declares the prefix; empty stands for the default namespace.
QString declarationOf(const QString& prefix)
{
    const QLatin1String xmlns("xmlns");
    return prefix.isEmpty() ? xmlns : xmlns + QLatin1Char(':') + prefix;
}

bool isReserved(const QString& prefix)
{
    return viewOf(prefix) == XmlPrefix || viewOf(prefix) == XmlnsPrefix;
}

/// Whether there is something to be declared, and it may be. \p uri is null for no namespace.
bool canDeclare(const QString& prefix, const QString& uri)
{
    return prefix.isEmpty() ? !uri.isNull() : !uri.isEmpty() && !isReserved(prefix);
}

} // namespace

void WrittenTags::open(const QDomNode& element)
{
    QString name = element.nodeName();
    if (name != m_plainName || name.isEmpty()) {
        const QString written = encodedName(name);
        if (written == name && isUsual(name))
            m_plainName = name;
        name = written;
    }
    m_open.push_back({std::move(name), m_scope.size(), preservesSpace()});
    collectAttributes(element);
}

void WrittenTags::close()
{
    m_scope.leaveTo(m_open.back().scope);
    m_open.pop_back();
}

/// Declarations of namespaces included: they are attributes like others.
void WrittenTags::collectAttributes(const QDomNode& element)
{
    const QDomNamedNodeMap map = element.attributes();
    const QString uri = element.namespaceURI();
    const bool isNameInScope = isInScope(name(), uri);
    if (isNameInScope && collectUsualAttributes(map))
        return;
    m_shown = &m_attributes;
    bool areUsual = true;
    m_attributes.resize(map.count());
    for (int i = 0; i < map.count(); ++i) {
        const QDomNode node = map.item(i);
        Attribute& attribute = m_attributes[i];
        attribute.name = encodedName(node.nodeName());
        attribute.value = node.nodeValue();
        attribute.uri = node.namespaceURI();
        attribute.place = i;
        areUsual = areUsual && attribute.uri.isNull() && isUsual(attribute.name);
        if (viewOf(attribute.name) == SpaceAttribute) {
            Open& open = m_open.back();
            open.preservesSpace = xml::preservesSpace(viewOf(attribute.value), open.preservesSpace);
        }
    }
    sortAttributes();
    makeNamesUnique(map);
    if (areUsual && m_attributes.size() == map.count())
        noteUsual();
    if (!areUsual || !isNameInScope)
        declareNamespaces(uri);
}

/// Most tags have attributes of the same few names, in the same places: they need not be sorted,
/// and where a place is asked for, no name is hashed. False when these are others.
bool WrittenTags::collectUsualAttributes(const QDomNamedNodeMap& map)
{
    const auto count = static_cast<std::size_t>(map.count());
    if (count >= m_usual.size() || m_usual[count].size() != map.count())
        return false;
    for (Attribute& attribute : m_usual[count]) {
        const QDomNode node = map.item(attribute.place);
        if (node.nodeName() != attribute.name)
            return false;
        attribute.value = node.nodeValue();
    }
    m_shown = &m_usual[count];
    return true;
}

void WrittenTags::noteUsual()
{
    const auto count = static_cast<std::size_t>(m_attributes.size());
    if (count < m_usual.size())
        m_usual[count] = m_attributes;
}

void WrittenTags::sortAttributes()
{
    std::sort(m_attributes.begin(), m_attributes.end(), [](const Attribute& a, const Attribute& b) {
        return std::tie(a.name, a.value, a.uri) < std::tie(b.name, b.value, b.uri);
    });
}

/// Names may become the same by what takes the place of their characters, and the DOM allows two of
/// the same name in different namespaces.
void WrittenTags::makeNamesUnique(const QDomNamedNodeMap& map)
{
    const auto haveSameName = [](const Attribute& a, const Attribute& b) {
        return a.name == b.name;
    };
    if (std::adjacent_find(m_attributes.cbegin(), m_attributes.cend(), haveSameName) ==
        m_attributes.cend())
        return;
    dropReplaced(map);
    QSet<QString> names;
    for (Attribute& attribute : m_attributes) {
        while (names.contains(attribute.name))
            attribute.name += QLatin1Char('_');
        names.insert(attribute.name);
    }
    sortAttributes();
}

/// A node that QDomElement::setAttributeNode() replaced stays in the map, beside the one that the
/// element answers.
void WrittenTags::dropReplaced(const QDomNamedNodeMap& map)
{
    QVector<Attribute> left;
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        const QDomNode node = map.item(attribute.place);
        const auto isSame = [&](const Attribute& other) {
            const QDomNode otherNode = map.item(other.place);
            return otherNode.nodeName() == node.nodeName() && other.uri == attribute.uri;
        };
        if (std::count_if(m_attributes.cbegin(), m_attributes.cend(), isSame) == 1 ||
            map.namedItem(node.nodeName()) == node)
            left.append(attribute);
    }
    m_attributes = left;
}

/// An attribute that declares another namespace for a prefix than the names need gives way.
void WrittenTags::declareNamespaces(const QString& uri)
{
    QMap<QString, QString> needed;
    const auto need = [&needed](const QString& prefix, const QString& prefixUri) {
        if (canDeclare(prefix, prefixUri) && !needed.contains(prefix))
            needed.insert(prefix, prefixUri);
    };
    need(prefixIn(name()), uri);
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        if (const QString prefix = prefixIn(attribute.name); !prefix.isEmpty())
            need(prefix, attribute.uri);
    }
    for (Attribute& attribute : m_attributes) {
        View prefix;
        if (isDeclaration(viewOf(attribute.name), prefix)) {
            attribute.value = needed.value(toQString(prefix), attribute.value);
            m_scope.declare(prefix, attribute.value);
        }
    }
    for (auto it = needed.cbegin(); it != needed.cend(); ++it) {
        if (m_scope.uriOf(viewOf(it.key())) != it.value())
            addDeclaration(it.key(), it.value());
    }
    declareRawPrefix(name());
    // They grow meanwhile, by declarations only.
    for (int i = 0; i < m_attributes.size(); ++i)
        declareRawPrefix(m_attributes[i].name);
    sortAttributes();
}

/// For a prefix that nothing declares, neither here nor around.
void WrittenTags::declareRawPrefix(const QString& name)
{
    const QString prefix = prefixIn(name);
    if (!prefix.isEmpty() && !isReserved(prefix) && !m_scope.isDeclared(viewOf(prefix)))
        addDeclaration(prefix, QLatin1String("urn:rvopen:undeclared:") + prefix);
}

void WrittenTags::addDeclaration(const QString& prefix, const QString& uri)
{
    m_attributes.append({declarationOf(prefix), uri, QString()});
    m_scope.declare(viewOf(prefix), uri);
}

/// Whether the name of the element needs no declaration.
bool WrittenTags::isInScope(const QString& name, const QString& uri) const
{
    const View prefix = prefixOf(viewOf(name));
    if (uri.isNull())
        return prefix.empty() || m_scope.isDeclared(prefix);
    return m_scope.uriOf(prefix) == uri;
}

} // namespace rvopen::xml
