// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "NodeMime.h"

#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/edit/Arriving.h>

#include <QFileInfo>
#include <QUrl>

#include <memory>

namespace rvopen::widgets {

using toolkit::CopyFor;

namespace {

/// Around the elements, with what the root of their document says of lengths.
const QString s_wrapper = QStringLiteral("rvopenNodes");
const QString s_unitsScale = QStringLiteral("unitsScale");

/// The files that the elements are from, with a NUL between them.
const QString s_filesType = QStringLiteral("application/x-rvopen-node-files");

void copyUnits(const QDomElement& from, QDomElement& to)
{
    if (from.hasAttribute(s_unitsScale))
        to.setAttribute(s_unitsScale, from.attribute(s_unitsScale));
}

QString textOf(const std::vector<QDomElement>& elements)
{
    QDomDocument document;
    QDomElement wrapper = document.createElement(s_wrapper);
    document.appendChild(wrapper);
    for (const QDomElement& element : elements) {
        // They may be of several documents: each in the units of the first.
        if (wrapper.firstChild().isNull())
            copyUnits(element.ownerDocument().documentElement(), wrapper);
        wrapper.appendChild(CopyFor(element, wrapper));
    }
    return XmlText(document, SnapShotFileIndent);
}

} // namespace

NodeMime::NodeMime(const QAbstractItemModel* source, const std::vector<QDomElement>& elements,
                   const QStringList& files)
    : m_source(source)
    , m_elements(elements)
{
    for (const QDomElement& element : elements)
        m_documents.push_back(element.ownerDocument());
    const QString text = textOf(elements);
    setData(type(), text.toUtf8());
    setText(text);
    QStringList paths;
    QList<QUrl> urls;
    for (const QString& file : files) {
        paths << (file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath());
        const QUrl url = QUrl::fromLocalFile(paths.last());
        if (!file.isEmpty() && !urls.contains(url))
            urls << url;
    }
    if (!urls.isEmpty())
        setUrls(urls);
    setData(s_filesType, paths.join(QChar(0)).toUtf8());
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

QStringList NodeMime::filesOf(const QMimeData& data)
{
    return QString::fromUtf8(data.data(s_filesType)).split(QChar(0));
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
