// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SameElements.h"

#include <rvopen/RVOpenScanner.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace rvopen::toolkit {

namespace {

/// Goes through a file and the elements side by side.
class SameElements : private XmlScan {
public:
    explicit SameElements(const QDomElement& root)
        : m_root(root)
    {
    }

    bool run(const QString& file)
    {
        return ScanFile(file) && m_isSame;
    }

private:
    void StartElement(std::u16string_view name,
                      const std::vector<ScannedAttribute>& attributes) override
    {
        if (!m_isSame)
            return;
        m_open = m_open.isNull() ? m_root : next();
        m_last = QDomElement();
        m_isSame = textOf(name) == m_open.tagName() &&
                   int(attributes.size()) == int(m_open.attributes().count()) &&
                   std::all_of(attributes.begin(), attributes.end(), [this](const auto& each) {
                       const QString key = textOf(each.name);
                       return m_open.hasAttribute(key) && m_open.attribute(key) == each.Text();
                   });
    }

    void EndElement() override
    {
        m_isSame = m_isSame && next().isNull();
        if (!m_isSame)
            return;
        m_last = m_open;
        m_open = m_open.parentNode().toElement();
    }

    /// The child of the open one that should come.
    QDomElement next() const
    {
        return m_last.isNull() ? m_open.firstChildElement() : m_last.nextSiblingElement();
    }

    static QString textOf(std::u16string_view text)
    {
        return QString(reinterpret_cast<const QChar*>(text.data()), int(text.size()));
    }

    QDomElement m_root;
    QDomElement m_open;
    /// Its child that ended last.
    QDomElement m_last;
    bool m_isSame = true;
};

} // namespace

bool hasSameElements(const QString& file, const QDomElement& root)
{
    return SameElements(root).run(file);
}

} // namespace rvopen::toolkit
