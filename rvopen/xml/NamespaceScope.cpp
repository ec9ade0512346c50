// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/NamespaceScope.h>

namespace rvopen::xml {

View prefixOf(View name)
{
    const std::size_t colon = name.find(u':');
    if (colon == View::npos || colon == 0 || colon + 1 == name.size())
        return View();
    const View local = name.substr(colon + 1);
    return isNameStart(local[0]) && local.find(u':') == View::npos ? name.substr(0, colon) : View();
}

bool isDeclaration(View attribute, View& prefix)
{
    if (attribute.substr(0, XmlnsPrefix.size()) != XmlnsPrefix)
        return false;
    if (attribute.size() == XmlnsPrefix.size()) {
        prefix = View();
        return true;
    }
    prefix = attribute.substr(XmlnsPrefix.size() + 1);
    return prefixOf(attribute) == XmlnsPrefix;
}

void NamespaceScope::declare(View prefix, const QString& uri)
{
    auto found = m_uris.find(prefix);
    if (found == m_uris.end())
        found = m_uris.emplace(prefix, std::vector<QString>()).first;
    found->second.push_back(uri);
    m_declared.push_back(found);
}

void NamespaceScope::leaveTo(std::size_t size)
{
    while (m_declared.size() > size) {
        m_declared.back()->second.pop_back();
        m_declared.pop_back();
    }
}

bool NamespaceScope::isDeclared(View prefix) const
{
    const auto found = m_uris.find(prefix);
    return prefix == XmlPrefix || (found != m_uris.end() && !found->second.empty());
}

QString NamespaceScope::uriOf(View prefix) const
{
    if (prefix == XmlPrefix)
        return QLatin1String(XmlNamespace);
    if (m_declared.empty())
        return QString();
    const auto found = m_uris.find(prefix);
    const bool isBound =
        found != m_uris.end() && !found->second.empty() && !found->second.back().isEmpty();
    return isBound ? found->second.back() : QString();
}

} // namespace rvopen::xml
