// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Outline.h"

#include "toolkit/catalogue/RowScan.h"
#include "toolkit/edit/Labels.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenScanner.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QDomElement>
#include <QFileInfo>

#include <memory>
#include <string_view>
#include <vector>

namespace rvopen::command {

using namespace toolkit;

namespace {

QString textOf(std::u16string_view text)
{
    return QString(reinterpret_cast<const QChar*>(text.data()), int(text.size()));
}

/// Builds the outline of a file as long as its names are what stands there.
class OutlineScan : private XmlScan {
public:
    explicit OutlineScan(int levels)
        : m_levels(levels)
    {
    }

    /// Null where the document has to say.
    QDomDocument run(const QString& path)
    {
        return ScanFile(path) && !m_needsDom ? m_dom : QDomDocument();
    }

private:
    void StartElement(std::u16string_view name,
                      const std::vector<ScannedAttribute>& attributes) override
    {
        m_needsDom = m_needsDom || catalogue::isInNamespace(name);
        for (const ScannedAttribute& attribute : attributes)
            m_needsDom = m_needsDom || catalogue::isInNamespace(attribute.name);
        const int level = m_level++;
        if (m_needsDom || level > m_levels + 1 || (level == m_levels + 1 && !isFirstOfParam()))
            return;
        QDomElement element = m_dom.createElement(textOf(name));
        for (const ScannedAttribute& attribute : attributes) {
            for (const std::u16string_view shown : {u"name", u"refname", u"linkname", u"subcat"}) {
                if (attribute.name == shown)
                    element.setAttribute(textOf(shown), attribute.Text());
            }
        }
        if (level == 0)
            m_dom.appendChild(element);
        else
            m_open.appendChild(element);
        if (level <= m_levels)
            m_open = element;
    }

    void EndElement() override
    {
        if (--m_level <= m_levels && !m_needsDom)
            m_open = m_open.parentNode().toElement();
    }

    bool isFirstOfParam() const
    {
        return isParam(m_open) && !m_open.hasChildNodes();
    }

    int m_levels;
    QDomDocument m_dom;
    /// The innermost that is open, down to the last level.
    QDomElement m_open;
    /// Of what begins next.
    int m_level = 0;
    bool m_needsDom = false;
};

} // namespace

Outline outlineOf(const QString& argument, int levels)
{
    Outline outline;
    outline.name = argument;
    if (argument != QLatin1String("-") && QFileInfo(PathToOpen(argument)).isFile())
        outline.dom = OutlineScan(levels).run(argument);
    if (!outline.dom.isNull())
        return outline;
    if (const std::unique_ptr<Document> document = Document::Read(argument, outline.error)) {
        outline.name = document->Name();
        outline.dom = document->Dom();
    }
    return outline;
}

} // namespace rvopen::command
