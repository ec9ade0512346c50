// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NodeMime.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>

#include <memory>

namespace rvopen::widgets {

namespace {

/// Around the elements, with what the root of their document says of lengths.
const QString s_wrapper = QStringLiteral("rvopenNodes");
const QString s_unitsScale = QStringLiteral("unitsScale");

QString textOf(const std::vector<QDomElement>& elements)
{
    QDomDocument document;
    QDomElement wrapper = document.createElement(s_wrapper);
    document.appendChild(wrapper);
    for (const QDomElement& element : elements) {
        const QDomElement root = element.ownerDocument().documentElement();
        if (root.hasAttribute(s_unitsScale))
            wrapper.setAttribute(s_unitsScale, root.attribute(s_unitsScale));
        wrapper.appendChild(document.importNode(element, true));
    }
    return XmlText(document, SnapShotFileIndent);
}

} // namespace

NodeMime::NodeMime(const QAbstractItemModel* source, const std::vector<QDomElement>& elements)
    : m_source(source)
    , m_elements(elements)
{
    if (!elements.empty())
        m_document = elements.front().ownerDocument();
    const QString text = textOf(elements);
    setData(type(), text.toUtf8());
    setText(text);
}

QString NodeMime::type()
{
    return QStringLiteral("application/x-rvopen-node+xml");
}

const QAbstractItemModel* NodeMime::source() const
{
    return m_source;
}

const std::vector<QDomElement>& NodeMime::elements() const
{
    return m_elements;
}

std::vector<QDomElement> NodeMime::read(const QMimeData& data, QDomDocument& document)
{
    std::vector<QDomElement> elements;
    const std::unique_ptr<QDomDocument> read(
        ParseXmlDocument(QString::fromUtf8(data.data(type()))));
    if (!read || read->documentElement().tagName() != s_wrapper)
        return elements;
    document = *read;
    for (QDomElement child = document.documentElement().firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        elements.push_back(child);
    return elements;
}

} // namespace rvopen::widgets
