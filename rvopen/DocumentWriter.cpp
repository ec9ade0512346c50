// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/DocumentWriter.h>

#include <rvopen/DocumentReader.h>
#include <rvopen/FilePaths.h>
#include <rvopen/QtCompat.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/XmlCharacters.h>
#include <rvopen/XmlGuard.h>

#include <QHash>
#include <QSet>
#include <QVector>

#include <algorithm>
#include <utility>

namespace rvopen {

namespace {

const QLatin1String s_xmlns("xmlns");
const QLatin1String s_xmlnsColon("xmlns:");

/// By code point: a surrogate pair comes after each single unit.
bool precedes(const QString& a, const QString& b)
{
    const auto at = std::mismatch(a.cbegin(), a.cend(), b.cbegin(), b.cend());
    if (at.first == a.cend() || at.second == b.cend())
        return at.first == a.cend() && at.second != b.cend();
    const bool aIsHalf = at.first->isSurrogate();
    const bool bIsHalf = at.second->isSurrogate();
    return aIsHalf != bIsHalf ? bIsHalf : *at.first < *at.second;
}

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

bool isDeclaration(const QDomNode& node)
{
    return node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
}

QVector<QDomNode> sortedByName(const QDomNamedNodeMap& map)
{
    QVector<QDomNode> nodes;
    for (int i = 0; i < map.count(); ++i)
        nodes.append(map.item(i));
    std::sort(nodes.begin(), nodes.end(), [](const QDomNode& a, const QDomNode& b) {
        return precedes(a.nodeName(), b.nodeName());
    });
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

/// Where no text follows. toString() ends the line of a processing instruction even there, which
/// would put a line feed more before the text each time that the document is saved.
bool endsLine(const QDomNode& node)
{
    return node.isElement() || node.isComment() || node.isProcessingInstruction();
}

enum class Prefixes { AsTheyAre, Declared };

class Writer {
public:
    Writer(const QDomDocument& document, int indent, Prefixes prefixes);

    QString text();
    /// Whether there are prefixes in the text that the document does not know as such.
    bool hasRawPrefixes() const;

private:
    struct Attribute {
        QString name;
        /// Empty without.
        QString prefix;
        QString value;
        /// Null when the attribute is in no namespace.
        QString uri;
    };

    void documentType();
    void notation(const QDomNotation& notation);
    void entity(const QDomEntity& entity);
    void externalId(const QString& publicId, const QString& systemId);

    void nodes(QDomNode node);
    void leaf(const QDomNode& node, int depth, bool followsText);
    void startTag(const QDomNode& element);
    void attributes(const QDomNode& element);
    void collectAttributes(const QDomNode& element);
    bool collectSameAttributes(const QDomNamedNodeMap& map);
    void sortAttributes();
    void removeRepeatedDeclarations();
    void makeNamesUnique();
    void namespaceDeclaration(const QString& prefix, const QString& uri);
    void declareRawPrefix(const QDomNode& element, const QString& prefix);
    bool isDeclared(const QDomNode& element, const QString& prefix) const;

    QString writtenName(const QString& name);
    void attributeValue(const QString& value);
    void characters(const QString& text);
    void cdata(const QString& text);
    void comment(QString text);
    void instruction(const QString& target, const QString& data);
    void entityReference(const QString& name);

    template <typename Replace>
    void write(const QString& text, Replace replace);
    void write(const char16_t* begin, const char16_t* end);
    bool endsInBrackets() const;
    void indent(int depth);

    QDomDocument m_document;
    int m_indent;
    Prefixes m_prefixes;
    bool m_hasRawPrefixes = false;

    QString m_text;
    QString m_blanks;
    QVector<QString> m_open;
    /// Of the current tag, in the order in which they are written.
    QVector<Attribute> m_attributes;
    /// Whether they have the names that the document knows, and no namespaces.
    bool m_canRepeat = false;
    /// Prefixes that have a declaration in the current tag.
    QVector<QString> m_declared;
    QHash<QString, QString> m_writtenNames;
};

Writer::Writer(const QDomDocument& document, int indent, Prefixes prefixes)
    : m_document(document)
    , m_indent(indent)
    , m_prefixes(prefixes)
{
}

QString Writer::text()
{
    QDomNode node = m_document.firstChild();
    if (isDeclaration(node)) {
        m_text += QLatin1String("<?xml ") + xml::normalDeclaration(node.nodeValue()) +
                  QLatin1String("?>\n");
        node = node.nextSibling();
    }
    if (!node.isNull())
        documentType();
    nodes(node);
    return m_text;
}

bool Writer::hasRawPrefixes() const
{
    return m_hasRawPrefixes;
}

void Writer::documentType()
{
    const QDomDocumentType type = m_document.doctype();
    if (type.name().isEmpty())
        return;
    m_text += QLatin1String("<!DOCTYPE ") + encodedQualifiedName(type.name());
    if (!type.publicId().isNull() || !type.systemId().isNull()) {
        externalId(type.publicId(), type.systemId());
    }
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

/// References to internal entities are replaced in reading, so that none is left to be written.
void Writer::entity(const QDomEntity& entity)
{
    if (entity.publicId().isNull() && entity.systemId().isNull())
        return;
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
                if (!child.isText())
                    m_text += QLatin1Char('\n');
                node = child;
                followsText = false;
                ++depth;
                continue;
            }
            m_open.removeLast();
            m_text += QLatin1String("/>");
        } else {
            leaf(node, depth, followsText);
        }
        for (;;) {
            const QDomNode next = node.nextSibling();
            if (!next.isText() && endsLine(node))
                m_text += QLatin1Char('\n');
            followsText = node.isText();
            if (!next.isNull() || depth == 0) {
                node = next;
                break;
            }
            --depth;
            if (!followsText)
                indent(depth);
            m_text += QLatin1String("</") + m_open.takeLast() + QLatin1Char('>');
            node = node.parentNode();
        }
    }
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
    const QString name = writtenName(element.nodeName());
    const QString uri = element.namespaceURI();
    m_open.append(name);
    m_declared.clear();
    m_text += QLatin1Char('<');
    m_text += name;
    const QString prefix = prefixOf(name);
    if (!uri.isNull())
        namespaceDeclaration(prefix, uri);
    else if (!prefix.isEmpty())
        declareRawPrefix(element, prefix);
    attributes(element);
}

void Writer::attributes(const QDomNode& element)
{
    collectAttributes(element);
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        m_text += QLatin1Char(' ');
        m_text += attribute.name;
        m_text += QLatin1String("=\"");
        attributeValue(attribute.value);
        m_text += QLatin1Char('"');
        if (attribute.prefix.isEmpty())
            continue;
        if (attribute.uri.isNull())
            declareRawPrefix(element, attribute.prefix);
        else if (!m_declared.contains(attribute.prefix))
            namespaceDeclaration(attribute.prefix, attribute.uri);
    }
}

void Writer::collectAttributes(const QDomNode& element)
{
    const QDomNamedNodeMap map = element.attributes();
    if (collectSameAttributes(map))
        return;
    bool hasNamespaces = !m_declared.isEmpty();
    bool areNamesKept = true;
    m_attributes.resize(map.count());
    for (int i = 0; i < map.count(); ++i) {
        const QDomNode node = map.item(i);
        const QString name = node.nodeName();
        Attribute& attribute = m_attributes[i];
        attribute.name = writtenName(name);
        attribute.prefix = prefixOf(attribute.name);
        attribute.value = node.nodeValue();
        attribute.uri = node.namespaceURI();
        areNamesKept = areNamesKept && attribute.name == name;
        hasNamespaces = hasNamespaces || !attribute.uri.isNull();
    }
    sortAttributes();
    if (hasNamespaces)
        removeRepeatedDeclarations();
    if (!areNamesKept)
        makeNamesUnique();
    m_canRepeat = areNamesKept && !hasNamespaces;
}

/// Neighbours often have attributes of the same names, which are found faster by name than one
/// after the other, and are in order already. False when that is not so.
bool Writer::collectSameAttributes(const QDomNamedNodeMap& map)
{
    if (!m_canRepeat || !m_declared.isEmpty() || map.count() != m_attributes.size())
        return false;
    for (Attribute& attribute : m_attributes) {
        const QDomNode node = map.namedItem(attribute.name);
        if (node.isNull() || !node.namespaceURI().isNull())
            return false;
        attribute.value = node.nodeValue();
    }
    return true;
}

void Writer::sortAttributes()
{
    std::sort(m_attributes.begin(), m_attributes.end(), [](const Attribute& a, const Attribute& b) {
        return a.name == b.name ? a.value < b.value : precedes(a.name, b.name);
    });
}

/// An attribute "xmlns" does not stand beside the declaration that the element's namespace needs.
void Writer::removeRepeatedDeclarations()
{
    QVector<QString> declarations;
    for (const QString& prefix : std::as_const(m_declared))
        declarations.append(prefix.isEmpty() ? s_xmlns : s_xmlnsColon + prefix);
    for (const Attribute& attribute : std::as_const(m_attributes)) {
        if (!attribute.uri.isNull())
            declarations.append(s_xmlnsColon + prefixOf(attribute.name));
    }
    const auto isRepeated = [&declarations](const Attribute& attribute) {
        return attribute.uri.isNull() && declarations.contains(attribute.name);
    };
    m_attributes.erase(std::remove_if(m_attributes.begin(), m_attributes.end(), isRepeated),
                       m_attributes.end());
}

/// Two names may become the same by what takes the place of their characters.
void Writer::makeNamesUnique()
{
    QSet<QString> names;
    for (Attribute& attribute : m_attributes) {
        while (names.contains(attribute.name))
            attribute.name += QLatin1Char('_');
        names.insert(attribute.name);
    }
    sortAttributes();
}

void Writer::namespaceDeclaration(const QString& prefix, const QString& uri)
{
    m_declared.append(prefix);
    m_text += QLatin1String(" xmlns");
    if (!prefix.isEmpty())
        m_text += QLatin1Char(':') + prefix;
    m_text += QLatin1String("=\"");
    attributeValue(uri);
    m_text += QLatin1Char('"');
}

/// For the prefix of a name that is in no namespace as far as the document knows.
void Writer::declareRawPrefix(const QDomNode& element, const QString& prefix)
{
    m_hasRawPrefixes = true;
    if (m_prefixes == Prefixes::Declared && prefix != QLatin1String("xml") && prefix != s_xmlns &&
        !m_declared.contains(prefix) && !isDeclared(element, prefix))
        namespaceDeclaration(prefix, QLatin1String("urn:rvopen:undeclared:") + prefix);
}

bool Writer::isDeclared(const QDomNode& element, const QString& prefix) const
{
    for (QDomNode node = element; node.isElement(); node = node.parentNode()) {
        const QDomNamedNodeMap map = node.attributes();
        if (map.contains(s_xmlnsColon + prefix) ||
            (node.prefix() == prefix && !node.namespaceURI().isNull()))
            return true;
        for (int i = 0; i < map.count(); ++i) {
            const QDomNode attribute = map.item(i);
            if (attribute.prefix() == prefix && !attribute.namespaceURI().isNull())
                return true;
        }
    }
    return false;
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

void Writer::entityReference(const QString& name)
{
    const QDomDocumentType type = m_document.doctype();
    const bool isDeclared = !type.systemId().isNull() || type.entities().contains(name);
    m_text += isDeclared ? QLatin1String("&") : QLatin1String("&amp;");
    m_text += encodedName(name) + QLatin1Char(';');
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
    return Writer(document, indent, Prefixes::AsTheyAre).text();
}

QString fileText(const QDomDocument& document, int indent)
{
    Writer writer(document, indent, Prefixes::Declared);
    const QString text = writer.text();
    const bool isGood =
        isReadable(text, writer.hasRawPrefixes() ? Namespaces::Processed : Namespaces::Ignored);
    return isGood ? text : QString();
}

SaveResult saveDocument(const QDomDocument& document, const QString& path, int indent)
{
    const QString text = fileText(document, indent);
    return text.isNull() ? SaveResult::NotWritten : replaceFile(pathToOpen(path), text.toUtf8());
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
    return replaceFile(pathToOpen(path), bytes) == SaveResult::Saved;
}

} // namespace rvopen
