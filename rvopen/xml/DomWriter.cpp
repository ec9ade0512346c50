// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomWriter.h>

#include <rvopen/QtCompat.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/xml/DomParser.h>
#include <rvopen/xml/XmlCharacters.h>
#include <rvopen/xml/XmlGuard.h>

#include <QHash>
#include <QMap>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace rvopen {

namespace {

const QLatin1String s_xml("xml");
const QLatin1String s_xmlns("xmlns");
const QLatin1String s_xmlNamespace("http://www.w3.org/XML/1998/namespace");

const char16_t* beginOf(const QString& text)
{
    return reinterpret_cast<const char16_t*>(text.constData());
}

const char16_t* endOf(const QString& text)
{
    return beginOf(text) + text.size();
}

/// Whether it is a name of ASCII characters with at most one colon, inside it.
bool isPlainName(const QString& name)
{
    bool started = false;
    bool prefixed = false;
    for (const char16_t* c = beginOf(name); c != endOf(name); ++c) {
        if (*c >= 0x80)
            return false;
        if (*c == u':' && started && !prefixed) {
            prefixed = true;
            started = false;
        } else if (started ? xml::isNamePart(*c) : xml::isNameStart(*c)) {
            started = true;
        } else {
            return false;
        }
    }
    return started;
}

/// The name without colon that stands for \p name.
QString encodedName(const QString& name)
{
    if (xml::isName(name))
        return name;
    QString encoded;
    for (const QChar c : name) {
        const bool isGood = encoded.isEmpty() ? xml::isName(QString(c))
                                              : xml::isName(QLatin1Char('a') + QString(c));
        if (isGood) {
            encoded += c;
        } else {
            encoded +=
                QLatin1String("_x") +
                QString::number(c.unicode(), 16).toUpper().rightJustified(4, QLatin1Char('0')) +
                QLatin1Char('_');
        }
    }
    return encoded.isEmpty() ? QStringLiteral("_") : encoded;
}

/// The same for the name of an element or attribute, which may have a prefix.
QString encodedQualifiedName(const QString& name)
{
    const auto colon = name.indexOf(QLatin1Char(':'));
    if (colon <= 0 || colon == name.size() - 1)
        return encodedName(name);
    return encodedName(name.left(colon)) + QLatin1Char(':') + encodedName(name.mid(colon + 1));
}

/// Empty without.
QString prefixOf(const QString& name)
{
    const auto colon = name.indexOf(QLatin1Char(':'));
    return colon < 0 ? QString() : name.left(colon);
}

/// The name of the attribute that declares the prefix; empty stands for no prefix.
QString declarationOf(const QString& prefix)
{
    return prefix.isEmpty() ? s_xmlns : s_xmlns + QLatin1Char(':') + prefix;
}

/// Whether there is something to be declared, and it may be. \p uri is null for no namespace.
bool canDeclare(const QString& prefix, const QString& uri)
{
    if (prefix.isEmpty())
        return !uri.isNull();
    if (prefix == s_xml)
        return uri == s_xmlNamespace;
    return prefix != s_xmlns && !uri.isEmpty();
}

bool isXmlDeclaration(const QDomNode& node)
{
    return node.isProcessingInstruction() && node.nodeName() == s_xml;
}

QVector<QDomNode> sortedByName(const QDomNamedNodeMap& map)
{
    QVector<QDomNode> nodes;
    for (int i = 0; i < map.count(); ++i)
        nodes.append(map.item(i));
    std::sort(nodes.begin(), nodes.end(),
              [](const QDomNode& a, const QDomNode& b) { return a.nodeName() < b.nodeName(); });
    return nodes;
}

/// In quotes of the kind that \p literal has none of.
QString quoted(const QString& literal)
{
    const QChar quote = QLatin1Char(literal.contains(QLatin1Char('\'')) ? '"' : '\'');
    return quote + literal + quote;
}

QString publicLiteral(QString id)
{
    std::replace_if(
        id.begin(), id.end(), [](QChar c) { return !xml::isPublicIdCharacter(c.unicode()); },
        QLatin1Char('_'));
    return id;
}

/// With what the reader does not take there encoded as in an address.
QString systemLiteral(QString id)
{
    id.replace(QLatin1Char('<'), QLatin1String("%3C"));
    id.replace(QLatin1Char('&'), QLatin1String("%26"));
    if (id.contains(QLatin1Char('\'')))
        id.replace(QLatin1Char('"'), QLatin1String("%22"));
    for (int i = 0; i < id.size(); ++i) {
        const int length = xml::characterLength(beginOf(id) + i, endOf(id));
        if (length == 0)
            id[i] = QChar(QChar::ReplacementCharacter);
        i += length == 2 ? 1 : 0;
    }
    return id;
}

bool isPredefined(const QString& entity)
{
    const QStringList names{"lt", "gt", "amp", "quot", "apos"};
    return names.contains(entity);
}

/// Where no text follows. toString() ends the line of a processing instruction even there, which
/// would put a line feed more before the text each time that the document is saved.
bool endsLine(const QDomNode& node)
{
    return node.isElement() || node.isComment() || node.isProcessingInstruction();
}

class Writer {
public:
    Writer(const QDomDocument& document, int indent);

    QString text();
    /// Whether namespace processing makes a difference to the text.
    bool usesNamespaces() const;

private:
    struct Attribute {
        QString name;
        QString value;
        /// Null when it is in no namespace as far as the document knows.
        QString uri;
    };
    struct Open {
        QString name;
        /// Those of m_declaredPrefixes that it is the outermost to declare.
        QVector<QString> prefixes;
    };

    void documentType();
    void notation(const QDomNotation& notation);
    void entity(const QDomEntity& entity);
    void externalId(const QString& publicId, const QString& systemId);

    void nodes(QDomNode node);
    bool isText(const QDomNode& node) const;
    void leaf(const QDomNode& node, int depth, bool followsText);
    void startTag(const QDomNode& element);
    void collectAttributes(const QDomNode& element, const QString& name);
    bool collectUsualAttributes(const QDomNamedNodeMap& map, const QVector<QString>& names);
    void sortAttributes();
    void makeNamesUnique();
    void declareNamespaces(const QString& prefix, const QString& uri);
    void declareRawPrefixes(const QString& prefix);
    void declareRawPrefix(const QString& prefix);
    bool noteDeclared(const QString& prefix);
    QString close();

    QString writtenName(const QString& name);
    void attributeValue(const QString& value);
    void characters(const QString& text);
    void cdata(const QString& text);
    void comment(QString text);
    void instruction(const QString& target, const QString& data);
    void entityReference(const QString& name);
    bool isExternal(const QString& entity) const;

    template <typename Replace>
    void write(const QString& text, Replace replace);
    void write(const char16_t* begin, const char16_t* end);
    bool endsInBrackets() const;
    void indent(int depth);

    QDomDocument m_document;
    int m_indent;
    bool m_usesNamespaces = false;
    bool m_isStandalone = false;

    QString m_text;
    QString m_blanks;
    QVector<Open> m_open;
    /// By the open elements.
    QSet<QString> m_declaredPrefixes;
    /// Of the current tag, in the order in which they are written.
    QVector<Attribute> m_attributes;
    /// By their number: names that the attributes of a tag had, in order, which had nothing to do
    /// with namespaces.
    std::array<QVector<QString>, 12> m_usualNames;
    /// The last name of an element that is written as it is and has no prefix.
    QString m_plainName;
    QHash<QString, QString> m_writtenNames;
};

Writer::Writer(const QDomDocument& document, int indent)
    : m_document(document)
    , m_indent(indent)
{
}

QString Writer::text()
{
    QDomNode node = m_document.firstChild();
    if (isXmlDeclaration(node)) {
        const QString data = xml::normalDeclaration(node.nodeValue());
        m_isStandalone = data.endsWith(QLatin1String("standalone=\"yes\""));
        m_text += QLatin1String("<?xml ") + data + QLatin1String("?>\n");
        node = node.nextSibling();
    }
    if (!node.isNull())
        documentType();
    nodes(node);
    return m_text;
}

bool Writer::usesNamespaces() const
{
    return m_usesNamespaces;
}

void Writer::documentType()
{
    const QDomDocumentType type = m_document.doctype();
    if (type.name().isEmpty())
        return;
    m_text += QLatin1String("<!DOCTYPE ") + encodedQualifiedName(type.name());
    if (!type.publicId().isNull() || !type.systemId().isNull())
        externalId(type.publicId(), type.systemId());
    const QVector<QDomNode> notations = sortedByName(type.notations());
    const QVector<QDomNode> entities = sortedByName(type.entities());
    if (!notations.isEmpty() || !entities.isEmpty()) {
        m_text += QLatin1String(" [\n");
        for (const QDomNode& node : notations)
            notation(node.toNotation());
        for (const QDomNode& node : entities)
            entity(node.toEntity());
        m_text += QLatin1Char(']');
    }
    m_text += QLatin1String(">\n");
}

void Writer::notation(const QDomNotation& notation)
{
    m_text += QLatin1String("<!NOTATION ") + encodedName(notation.nodeName());
    if (notation.systemId().isNull())
        m_text += QLatin1String(" PUBLIC ") + quoted(publicLiteral(notation.publicId()));
    else
        externalId(notation.publicId(), notation.systemId());
    m_text += QLatin1String(">\n");
}

/// An external one: those that have their text in the document are in no DOM.
void Writer::entity(const QDomEntity& entity)
{
    m_text += QLatin1String("<!ENTITY ") + encodedName(entity.nodeName());
    externalId(entity.publicId(), entity.systemId());
    if (!entity.notationName().isNull())
        m_text += QLatin1String(" NDATA ") + encodedName(entity.notationName());
    m_text += QLatin1String(">\n");
}

void Writer::externalId(const QString& publicId, const QString& systemId)
{
    if (publicId.isNull())
        m_text += QLatin1String(" SYSTEM ");
    else
        m_text += QLatin1String(" PUBLIC ") + quoted(publicLiteral(publicId)) + QLatin1Char(' ');
    m_text += quoted(systemLiteral(systemId));
}

/// The node and those after it, with all that is in them. A loop, so that the stack does not depend
/// on the depth.
void Writer::nodes(QDomNode node)
{
    int depth = 0;
    bool followsText = false;
    while (!node.isNull()) {
        if (node.isElement()) {
            if (!followsText)
                indent(depth);
            startTag(node);
            const QDomNode child = node.firstChild();
            if (!child.isNull()) {
                m_text += QLatin1Char('>');
                if (!isText(child))
                    m_text += QLatin1Char('\n');
                node = child;
                followsText = false;
                ++depth;
                continue;
            }
            close();
            m_text += QLatin1String("/>");
        } else {
            leaf(node, depth, followsText);
        }
        for (;;) {
            const QDomNode next = node.nextSibling();
            if (endsLine(node) && !isText(next))
                m_text += QLatin1Char('\n');
            followsText = isText(node);
            if (!next.isNull() || depth == 0) {
                node = next;
                break;
            }
            --depth;
            if (!followsText)
                indent(depth);
            m_text += QLatin1String("</") + close() + QLatin1Char('>');
            node = node.parentNode();
        }
    }
}

/// Whether the reader takes it for text, of which white space beside it would become a part.
bool Writer::isText(const QDomNode& node) const
{
    return node.isText() || (node.isEntityReference() && !isExternal(node.nodeName()));
}

void Writer::leaf(const QDomNode& node, int depth, bool followsText)
{
    switch (node.nodeType()) {
    case QDomNode::TextNode:
        characters(node.nodeValue());
        break;
    case QDomNode::CDATASectionNode:
        cdata(node.nodeValue());
        break;
    case QDomNode::CommentNode:
        if (!followsText)
            indent(depth);
        comment(node.nodeValue());
        break;
    case QDomNode::ProcessingInstructionNode:
        instruction(node.nodeName(), node.nodeValue());
        break;
    case QDomNode::EntityReferenceNode:
        entityReference(node.nodeName());
        break;
    default:
        break;
    }
}

void Writer::startTag(const QDomNode& element)
{
    QString name = element.nodeName();
    if (name != m_plainName || name.isEmpty()) {
        const QString written = writtenName(name);
        if (written == name && prefixOf(name).isEmpty())
            m_plainName = name;
        name = written;
    }
    m_open.append({name, {}});
    collectAttributes(element, name);
    m_text += QLatin1Char('<');
    m_text += name;
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        m_text += QLatin1Char(' ');
        m_text += attribute.name;
        m_text += QLatin1String("=\"");
        attributeValue(attribute.value);
        m_text += QLatin1Char('"');
    }
}

/// Declarations of namespaces included: they are attributes like others to whoever reads the text
/// without namespace processing.
void Writer::collectAttributes(const QDomNode& element, const QString& name)
{
    const QDomNamedNodeMap map = element.attributes();
    const QString uri = element.namespaceURI();
    bool usesNamespaces = !uri.isNull() || (name != m_plainName && !prefixOf(name).isEmpty());
    const auto count = static_cast<std::size_t>(map.count());
    if (!usesNamespaces && count < m_usualNames.size() &&
        collectUsualAttributes(map, m_usualNames[count]))
        return;
    m_attributes.resize(map.count());
    for (int i = 0; i < map.count(); ++i) {
        const QDomNode node = map.item(i);
        Attribute& attribute = m_attributes[i];
        attribute.name = writtenName(node.nodeName());
        attribute.value = node.nodeValue();
        attribute.uri = node.namespaceURI();
        usesNamespaces =
            usesNamespaces || attribute.name == s_xmlns || !prefixOf(attribute.name).isEmpty();
    }
    sortAttributes();
    makeNamesUnique();
    if (usesNamespaces) {
        m_usesNamespaces = true;
        declareNamespaces(prefixOf(name), uri);
        declareRawPrefixes(prefixOf(name));
        sortAttributes();
    }
    if (usesNamespaces || count >= m_usualNames.size())
        return;
    QVector<QString>& names = m_usualNames[count];
    names.clear();
    for (const Attribute& attribute : std::as_const(m_attributes))
        names.append(attribute.name);
}

/// Most tags have attributes of the same few names, which are found faster by name than one after
/// the other, and are in order already. False when these are others.
bool Writer::collectUsualAttributes(const QDomNamedNodeMap& map, const QVector<QString>& names)
{
    if (map.count() != names.size())
        return false;
    m_attributes.resize(names.size());
    auto attribute = m_attributes.begin();
    for (const QString& name : names) {
        const QDomNode node = map.namedItem(name);
        if (node.isNull() || !node.namespaceURI().isNull())
            return false;
        attribute->name = name;
        attribute->value = node.nodeValue();
        attribute->uri = QString();
        ++attribute;
    }
    return true;
}

void Writer::sortAttributes()
{
    std::sort(m_attributes.begin(), m_attributes.end(), [](const Attribute& a, const Attribute& b) {
        return std::tie(a.name, a.value, a.uri) < std::tie(b.name, b.value, b.uri);
    });
}

/// Names may become the same by what takes the place of their characters, and the DOM allows two of
/// the same name in different namespaces.
void Writer::makeNamesUnique()
{
    const auto haveSameName = [](const Attribute& a, const Attribute& b) {
        return a.name == b.name;
    };
    if (std::adjacent_find(m_attributes.cbegin(), m_attributes.cend(), haveSameName) ==
        m_attributes.cend())
        return;
    QSet<QString> names;
    for (Attribute& attribute : m_attributes) {
        while (names.contains(attribute.name))
            attribute.name += QLatin1Char('_');
        names.insert(attribute.name);
    }
    sortAttributes();
}

/// For the namespaces that the tag's names are in. An attribute that declares the same prefix gives
/// way.
void Writer::declareNamespaces(const QString& prefix, const QString& uri)
{
    QMap<QString, QString> declarations;
    const auto declare = [&declarations](const QString& nextPrefix, const QString& nextUri) {
        const QString name = declarationOf(nextPrefix);
        if (canDeclare(nextPrefix, nextUri) && !declarations.contains(name))
            declarations.insert(name, nextUri);
    };
    declare(prefix, uri);
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        if (const QString ownPrefix = prefixOf(attribute.name); !ownPrefix.isEmpty())
            declare(ownPrefix, attribute.uri);
    }
    const auto givesWay = [&declarations](const Attribute& attribute) {
        return declarations.contains(attribute.name);
    };
    m_attributes.erase(std::remove_if(m_attributes.begin(), m_attributes.end(), givesWay),
                       m_attributes.end());
    for (auto it = declarations.cbegin(); it != declarations.cend(); ++it)
        m_attributes.append({it.key(), it.value(), QString()});
}

/// For the prefixes that nothing declares, neither here nor around.
void Writer::declareRawPrefixes(const QString& prefix)
{
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        if (prefixOf(attribute.name) == s_xmlns)
            noteDeclared(attribute.name.mid(s_xmlns.size() + 1));
    }
    declareRawPrefix(prefix);
    // They grow meanwhile, by declarations only.
    for (int i = 0; i < m_attributes.size(); ++i)
        declareRawPrefix(prefixOf(m_attributes[i].name));
}

void Writer::declareRawPrefix(const QString& prefix)
{
    if (!prefix.isEmpty() && prefix != s_xml && prefix != s_xmlns && noteDeclared(prefix)) {
        m_attributes.append(
            {declarationOf(prefix), QLatin1String("urn:rvopen:undeclared:") + prefix, QString()});
    }
}

/// Whether it was not declared yet.
bool Writer::noteDeclared(const QString& prefix)
{
    if (m_declaredPrefixes.contains(prefix))
        return false;
    m_declaredPrefixes.insert(prefix);
    m_open.last().prefixes.append(prefix);
    return true;
}

/// Gives the name of the element that was open.
QString Writer::close()
{
    const Open open = m_open.takeLast();
    for (const QString& prefix : open.prefixes)
        m_declaredPrefixes.remove(prefix);
    return open.name;
}

QString Writer::writtenName(const QString& name)
{
    if (isPlainName(name))
        return name;
    QString& written = m_writtenNames[name];
    if (written.isNull())
        written = encodedQualifiedName(name);
    return written;
}

void Writer::attributeValue(const QString& value)
{
    write(value, [this](char16_t c) {
        switch (c) {
        case u'<':
            return QLatin1String("&lt;");
        case u'&':
            return QLatin1String("&amp;");
        case u'"':
            return QLatin1String("&quot;");
        case u'>':
            return endsInBrackets() ? QLatin1String("&gt;") : QLatin1String();
        case u'\t':
            return QLatin1String("&#x9;");
        case u'\n':
            return QLatin1String("&#xa;");
        case u'\r':
            return QLatin1String("&#xd;");
        default:
            return QLatin1String();
        }
    });
}

void Writer::characters(const QString& text)
{
    write(text, [this](char16_t c) {
        switch (c) {
        case u'<':
            return QLatin1String("&lt;");
        case u'&':
            return QLatin1String("&amp;");
        case u'>':
            return endsInBrackets() ? QLatin1String("&gt;") : QLatin1String();
        case u'\r':
            return QLatin1String("&#xd;");
        default:
            return QLatin1String();
        }
    });
}

void Writer::cdata(const QString& text)
{
    m_text += QLatin1String("<![CDATA[");
    write(text, [this](char16_t c) {
        return c == u'>' && endsInBrackets() ? QLatin1String("]]><![CDATA[>") : QLatin1String();
    });
    m_text += QLatin1String("]]>");
}

void Writer::comment(QString text)
{
    const QLatin1String hyphens("--");
    while (text.contains(hyphens))
        text.replace(hyphens, QLatin1String("- -"));
    if (text.endsWith(QLatin1Char('-')))
        text += QLatin1Char(' ');
    m_text += QLatin1String("<!--");
    write(text, [](char16_t) { return QLatin1String(); });
    m_text += QLatin1String("-->");
}

void Writer::instruction(const QString& target, const QString& data)
{
    const bool isReserved = target.compare(QLatin1String("xml"), Qt::CaseInsensitive) == 0;
    m_text += isReserved ? QLatin1String("<?_") : QLatin1String("<?");
    m_text += encodedName(target) + QLatin1Char(' ');
    write(data, [this](char16_t c) {
        return c == u'>' && m_text.endsWith(QLatin1Char('?')) ? QLatin1String(" >")
                                                              : QLatin1String();
    });
    m_text += QLatin1String("?>");
}

/// As text when the reader would not know what it refers to.
void Writer::entityReference(const QString& name)
{
    const QString reference = QLatin1Char('&') + name + QLatin1Char(';');
    if (isPredefined(name) || isExternal(name))
        m_text += reference;
    else
        characters(reference);
}

/// Whether the reader makes a reference of a reference to this entity.
bool Writer::isExternal(const QString& entity) const
{
    if (isPredefined(entity) || !xml::isName(entity))
        return false;
    const QDomDocumentType type = m_document.doctype();
    const QDomNode declared = type.entities().namedItem(entity);
    if (declared.isNull())
        return !type.systemId().isNull() && !m_isStandalone;
    return declared.toEntity().notationName().isNull();
}

/// \p replace gives what is written for a character with a meaning of its own; null for the
/// character itself.
template <typename Replace>
void Writer::write(const QString& text, Replace replace)
{
    const char16_t* const end = endOf(text);
    const char16_t* run = beginOf(text);
    for (const char16_t* at = run; at != end;) {
        if (xml::isPlain(*at)) {
            ++at;
            continue;
        }
        write(run, at);
        run = at;
        const int length = xml::characterLength(at, end);
        const QLatin1String replacement = replace(*at);
        at += std::max(length, 1);
        if (length == 0)
            m_text += QChar(QChar::ReplacementCharacter);
        else if (replacement.size() > 0)
            m_text += replacement;
        else
            continue;
        run = at;
    }
    write(run, end);
}

void Writer::write(const char16_t* begin, const char16_t* end)
{
    m_text.append(reinterpret_cast<const QChar*>(begin), static_cast<compat::Size>(end - begin));
}

bool Writer::endsInBrackets() const
{
    return m_text.endsWith(QLatin1String("]]"));
}

void Writer::indent(int depth)
{
    const auto size = static_cast<compat::Size>(depth) * m_indent;
    if (m_blanks.size() < size)
        m_blanks.fill(QLatin1Char(' '), size * 2);
    m_text.append(m_blanks.constData(), size);
}

} // namespace

QString documentText(const QDomDocument& document, int indent)
{
    return Writer(document, indent).text();
}

QString fileText(const QDomDocument& document, int indent)
{
    Writer writer(document, indent);
    const QString text = writer.text();
    const bool isGood =
        isReadable(text, writer.usesNamespaces() ? Namespaces::Processed : Namespaces::Ignored);
    return isGood ? text : QString();
}

SaveResult saveDocument(const QDomDocument& document, const QString& path, int indent)
{
    const QString text = fileText(document, indent);
    if (text.isNull())
        return SaveResult::NotWritten;
    const QByteArray bytes = text.toUtf8();
    return bytes.size() > GetMaxInputSize() ? SaveResult::NotWritten
                                            : replaceFile(PathToOpen(path), bytes);
}

QString XmlText(const QDomDocument& document, int indent)
{
    return fileText(document, indent);
}

bool WriteXmlDocument(const QDomDocument& document, const QString& path, int indent)
{
    return saveDocument(document, path, indent) == SaveResult::Saved;
}

bool WriteFile(const QByteArray& bytes, const QString& path)
{
    return replaceFile(PathToOpen(path), bytes) == SaveResult::Saved;
}

} // namespace rvopen
