// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomWriter.h>

#include <rvopen/xml/MarkupText.h>
#include <rvopen/xml/WrittenTags.h>
#include <rvopen/xml/XmlReferences.h>
#include <rvopen/xml/XmlScanner.h>

#include <algorithm>

namespace rvopen {

namespace {

bool isXmlDeclaration(const QDomNode& node)
{
    return node.isProcessingInstruction() && node.nodeName() == QLatin1String("xml");
}

/// Whether white space beside it is text.
bool isText(const QDomNode& node)
{
    return node.isText() || node.isEntityReference();
}

/// Of the nodes from \p first on, the first that is more than white space.
QDomNode behindBlanks(const QDomNode& first)
{
    const auto isBlank = [](QChar c) { return xml::isBlank(c.unicode()); };
    QDomNode node = first;
    while (node.nodeType() == QDomNode::TextNode) {
        const QString text = node.nodeValue();
        if (!std::all_of(text.cbegin(), text.cend(), isBlank))
            break;
        node = node.nextSibling();
    }
    return node;
}

bool hasCharacters(const QDomNode& first)
{
    for (QDomNode node = first; !node.isNull(); node = node.nextSibling()) {
        if (!node.nodeValue().isEmpty())
            return true;
    }
    return false;
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

private:
    void nodes(QDomNode node);
    void startTag(const QDomNode& element);
    void leaf(const QDomNode& node, int depth, bool isIndented);
    void entityReference(const QString& name);
    bool isLayout(const QDomNode& node) const;
    void indent(int depth);

    const QDomDocument m_document;
    const int m_indent;
    bool m_declaresEntities = false;
    xml::MarkupText m_text;
    xml::WrittenTags m_tags;
};

Writer::Writer(const QDomDocument& document, int indent)
    : m_document(document)
    , m_indent(indent)
{
}

QString Writer::text()
{
    const QDomDocumentType type = m_document.doctype();
    m_declaresEntities = !type.systemId().isNull();
    QDomNode node = m_document.firstChild();
    if (isXmlDeclaration(node)) {
        const QString data = xml::normalDeclaration(node.nodeValue());
        m_declaresEntities =
            m_declaresEntities && !data.endsWith(QLatin1String("standalone=\"yes\""));
        m_text.append(QLatin1String("<?xml ") + data + QLatin1String("?>\n"));
        node = node.nextSibling();
    }
    if (!node.isNull() && !type.name().isEmpty())
        m_text.appendDocumentType(type.name(), type.publicId(), type.systemId());
    nodes(node);
    return m_text.take();
}

/// The node and those after it, with all that is in them. A loop, so that the stack does not depend
/// on the depth.
void Writer::nodes(QDomNode node)
{
    int depth = 0;
    bool followsText = false;
    // A handle is copied as rarely as can be: each copy counts references.
    if (isLayout(node))
        node = behindBlanks(node);
    while (!node.isNull()) {
        const bool isIndented = !followsText && !m_tags.preservesSpace();
        if (node.isElement()) {
            if (isIndented)
                indent(depth);
            startTag(node);
            QDomNode child = node.firstChild();
            if (isLayout(child))
                child = behindBlanks(child);
            if (!child.isNull()) {
                m_text.append(u'>');
                if (!isText(child) && !m_tags.preservesSpace())
                    m_text.append(u'\n');
                node = child;
                followsText = false;
                ++depth;
                continue;
            }
            m_tags.close();
            m_text.append(QLatin1String("/>"));
        } else {
            leaf(node, depth, isIndented);
        }
        for (;;) {
            QDomNode next = node.nextSibling();
            if (isLayout(next))
                next = behindBlanks(next);
            if (endsLine(node) && !isText(next) && !m_tags.preservesSpace())
                m_text.append(u'\n');
            followsText = isText(node);
            if (!next.isNull() || depth == 0) {
                node = next;
                break;
            }
            --depth;
            if (!followsText && !m_tags.preservesSpace())
                indent(depth);
            m_text.append(QLatin1String("</"));
            m_text.append(m_tags.name());
            m_text.append(u'>');
            m_tags.close();
            node = node.parentNode();
        }
    }
}

void Writer::startTag(const QDomNode& element)
{
    m_tags.open(element);
    m_text.append(u'<');
    m_text.append(m_tags.name());
    for (const xml::WrittenTags::Attribute& attribute : m_tags.attributes())
        m_text.appendAttribute(attribute.name, attribute.value);
}

void Writer::leaf(const QDomNode& node, int depth, bool isIndented)
{
    switch (node.nodeType()) {
    case QDomNode::TextNode:
        m_text.appendCharacters(node.nodeValue());
        break;
    case QDomNode::CDATASectionNode:
        m_text.appendCdata(node.nodeValue());
        break;
    case QDomNode::CommentNode:
        if (isIndented)
            indent(depth);
        m_text.appendComment(node.nodeValue());
        break;
    case QDomNode::ProcessingInstructionNode:
        m_text.appendInstruction(node.nodeName(), node.nodeValue());
        break;
    case QDomNode::EntityReferenceNode:
        entityReference(node.nodeName());
        break;
    default:
        break;
    }
}

/// As text when the reader would not know what it refers to.
void Writer::entityReference(const QString& name)
{
    const QString reference = QLatin1Char('&') + name + QLatin1Char(';');
    const bool isKnown = xml::predefined(xml::viewOf(name)) != u'\0' ||
                         (m_declaresEntities && xml::encodedName(name) == name);
    if (isKnown)
        m_text.append(reference);
    else
        m_text.appendCharacters(reference);
}

/// Whether from there on stands white space that the reader would take for layout.
bool Writer::isLayout(const QDomNode& node) const
{
    if (node.nodeType() != QDomNode::TextNode || m_tags.preservesSpace())
        return false;
    const QDomNode previous = node.previousSibling();
    if (isText(previous))
        return false;
    const QDomNode next = behindBlanks(node);
    const bool isAllThereIs = previous.isNull() && next.isNull();
    return !isText(next) && !(isAllThereIs && hasCharacters(node));
}

void Writer::indent(int depth)
{
    m_text.appendBlanks(static_cast<compat::Size>(depth) * m_indent);
}

} // namespace

QString documentText(const QDomDocument& document, int indent)
{
    return Writer(document, indent).text();
}

QString fileText(const QDomDocument& document, int indent)
{
    const QString text = documentText(document, indent);
    return xml::isAccepted(text) ? text : QString();
}

} // namespace rvopen
