// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomBuilder.h>

#include <rvopen/xml/XmlReferences.h>
#include <rvopen/xml/XmlScanner.h>
#include <rvopen/xml/XmlSpace.h>

namespace rvopen::xml {

namespace {

/// What is not there is null, what is empty is not.
QString literalOf(View literal)
{
    return literal.data() ? QLatin1String("") + toQString(literal) : QString();
}

QString textOf(const Characters& characters)
{
    return characters.isPlain ? toQString(characters.text) : decodedText(characters.text);
}

} // namespace

DomBuilder::DomBuilder(Namespaces namespaces)
    : m_processesNamespaces(namespaces == Namespaces::Processed)
    // Without a type, if only a null one, there is no document before it has a node.
    , m_document(QDomDocumentType())
{
    m_open.push_back({m_document, 0, false});
}

void DomBuilder::declaration(const Declaration& declaration)
{
    append(m_document.createProcessingInstruction(QStringLiteral("xml"),
                                                  normalDeclaration(declaration)),
           Last::Other);
}

/// A document gets its type when it is made, and what stood before moves into it.
void DomBuilder::documentType(const DocumentType& type)
{
    QDomDocument document(QDomImplementation().createDocumentType(
        toQString(type.name), literalOf(type.publicId), literalOf(type.systemId)));
    for (QDomNode node = m_document.firstChild(); !node.isNull(); node = node.nextSibling())
        document.appendChild(document.importNode(node, true));
    m_document = document;
    m_open.back().node = document;
}

void DomBuilder::startTag(const StartTag& tag)
{
    keepBlanksIf(false);
    Open open{QDomNode(), m_scope.size(), m_open.back().preservesSpace};
    const QDomElement element = m_processesNamespaces ? elementInNamespace(tag) : plainElement(tag);
    for (const Attribute& attribute : tag.attributes) {
        if (attribute.name == SpaceAttribute)
            open.preservesSpace = preservesSpace(viewOf(valueOf(attribute)), open.preservesSpace);
    }
    append(element, Last::StartTag);
    open.node = element;
    m_open.push_back(open);
}

void DomBuilder::endTag(View)
{
    keepBlanksIf(m_blanksFollowStartTag);
    m_scope.leaveTo(m_open.back().scope);
    m_open.pop_back();
    m_last = Last::Other;
}

void DomBuilder::characters(const Characters& characters)
{
    if (!characters.isBlank || m_open.back().preservesSpace || m_last == Last::Section) {
        appendText(characters);
        return;
    }
    m_blanks = characters;
    m_blanksFollowStartTag = m_last == Last::StartTag;
}

void DomBuilder::reference(View entity)
{
    keepBlanksIf(true);
    append(m_document.createEntityReference(toQString(entity)), Last::Section);
}

void DomBuilder::cdata(View text)
{
    keepBlanksIf(true);
    append(m_document.createCDATASection(toQString(text)), Last::Section);
}

void DomBuilder::comment(View text)
{
    keepBlanksIf(false);
    append(m_document.createComment(toQString(text)), Last::Other);
}

void DomBuilder::instruction(const Instruction& instruction)
{
    keepBlanksIf(false);
    append(m_document.createProcessingInstruction(toQString(instruction.target),
                                                  toQString(instruction.data)),
           Last::Other);
}

void DomBuilder::append(const QDomNode& node, Last last)
{
    m_open.back().node.appendChild(node);
    m_last = last;
}

void DomBuilder::appendText(const Characters& characters)
{
    append(m_document.createTextNode(textOf(characters)), Last::Other);
}

void DomBuilder::keepBlanksIf(bool isContent)
{
    if (isContent && m_blanks.text.data())
        appendText(m_blanks);
    m_blanks.text = View();
}

QDomElement DomBuilder::plainElement(const StartTag& tag)
{
    QDomElement element = m_document.createElement(nameOf(tag.name));
    for (const Attribute& attribute : tag.attributes)
        element.setAttribute(nameOf(attribute.name), valueOf(attribute));
    return element;
}

QDomElement DomBuilder::elementInNamespace(const StartTag& tag)
{
    declareNamespaces(tag);
    const View prefix = prefixOf(tag.name);
    const QString uri = m_scope.uriOf(prefix);
    const bool isPlain = uri.isNull() && tag.name.find(u':') != View::npos;
    QDomElement element = isPlain ? m_document.createElement(nameOf(tag.name))
                                  : m_document.createElementNS(uri, nameOf(tag.name));
    setAttributesInNamespaces(element, tag);
    return element;
}

void DomBuilder::declareNamespaces(const StartTag& tag)
{
    for (const Attribute& attribute : tag.attributes) {
        View prefix;
        if (isDeclaration(attribute.name, prefix) && prefix != XmlPrefix && prefix != XmlnsPrefix)
            m_scope.declare(prefix, valueOf(attribute));
    }
}

/// Qt looks attributes up by their local names. Those without prefix come last, since of several
/// with the same local name the last one is found.
void DomBuilder::setAttributesInNamespaces(QDomElement& element, const StartTag& tag)
{
    bool hasSimpleNames = false;
    for (const Attribute& attribute : tag.attributes) {
        if (attribute.name.find(u':') == View::npos) {
            hasSimpleNames = true;
            continue;
        }
        const View prefix = prefixOf(attribute.name);
        const QString uri = prefix.empty() ? QString() : m_scope.uriOf(prefix);
        // Of two attributes with the same namespace and local name Qt would keep the last.
        if (uri.isNull() ||
            element.hasAttributeNS(uri, toQString(attribute.name.substr(prefix.size() + 1))))
            element.setAttribute(nameOf(attribute.name), valueOf(attribute));
        else
            element.setAttributeNS(uri, nameOf(attribute.name), valueOf(attribute));
    }
    if (!hasSimpleNames)
        return;
    for (const Attribute& attribute : tag.attributes) {
        if (attribute.name.find(u':') == View::npos)
            element.setAttributeNS(QString(), nameOf(attribute.name), valueOf(attribute));
    }
}

const QString& DomBuilder::nameOf(View name)
{
    const std::size_t place = name.size() * 31 + name.front() * 7 + name.back();
    QString& known = m_names[place % m_names.size()];
    if (viewOf(known) != name)
        known = toQString(name);
    return known;
}

} // namespace rvopen::xml
