// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Content.h"

#include "Labels.h"

#include <rvopen/toolkit/edit/ParamValues.h>

#include <QCryptographicHash>
#include <QString>
#include <QStringList>

namespace rvopen::toolkit {

namespace {

/// Whether the attribute tells what an element is called, where it is filed, or how it is shown.
bool isLabel(const QString& attribute)
{
    for (const char* const name :
         {"name", "refname", "desc", "cat", "path", "imgname", "xmlImage", "ImageBorder",
          "thumbRegenerated", "translationDisabled", "custom", "linkname"}) {
        if (attribute == QLatin1String(name))
            return true;
    }
    return false;
}

/// A text in which no other text can be mistaken for a part.
QString framed(const QString& text)
{
    return QString::number(text.size()) + QLatin1Char(':') + text;
}

QString attributesOf(const QDomElement& element)
{
    QStringList list;
    const QDomNamedNodeMap attributes = element.attributes();
    for (int i = 0; i < int(attributes.count()); ++i) {
        const QString name = attributes.item(i).nodeName();
        const bool isLeftOut = isParam(element) ? name == QLatin1String("val") : isLabel(name);
        if (!isLeftOut)
            list << framed(name) + framed(attributes.item(i).nodeValue());
    }
    list.sort();
    return list.join(QLatin1Char(','));
}

QString contentOf(const QDomElement& element, ParamValues& values)
{
    QStringList params;
    QStringList parts;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        (isParam(child) ? params : parts) << framed(contentOf(child, values));
    params.sort();
    QString content = element.tagName() + QLatin1Char(' ') + attributesOf(element);
    if (isParam(element))
        content += QLatin1Char('=') + framed(values.Text(element));
    return content + QLatin1Char('(') + (params + parts).join(QLatin1Char(',')) + QLatin1Char(')');
}

} // namespace

QByteArray contentDigest(const QDomElement& preset, ParamValues& values)
{
    return QCryptographicHash::hash(contentOf(preset, values).toUtf8(), QCryptographicHash::Sha256);
}

} // namespace rvopen::toolkit
