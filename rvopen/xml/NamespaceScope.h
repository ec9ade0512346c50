// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/XmlCharacters.h>

#include <QString>

#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace rvopen::xml {

inline constexpr View XmlPrefix = u"xml";
inline constexpr View XmlnsPrefix = u"xmlns";
inline constexpr char XmlNamespace[] = "http://www.w3.org/XML/1998/namespace";

/// The part of a name before its colon. Empty when namespaces see none in it: there is no colon,
/// more than one, or what follows could not stand alone.
View prefixOf(View name);

/// Of the prefix that an attribute of this name declares, which is empty for the default namespace.
/// False when the attribute declares nothing.
bool isDeclaration(View attribute, View& prefix);

/// Which namespaces the prefixes stand for at a place in a document.
class NamespaceScope {
public:
    /// How much is declared; leaveTo() forgets what was declared since.
    std::size_t size() const
    {
        return m_declared.size();
    }
    void declare(View prefix, const QString& uri);
    void leaveTo(std::size_t size);

    /// Whether anything declares it, be it to stand for nothing.
    bool isDeclared(View prefix) const;
    /// Null when the prefix stands for nothing; an empty one for the default namespace.
    QString uriOf(View prefix) const;

private:
    /// What a prefix stands for, from the outermost declaration to the innermost.
    using Uris = std::map<std::u16string, std::vector<QString>, std::less<>>;

    Uris m_uris;
    std::vector<Uris::iterator> m_declared;
};

} // namespace rvopen::xml
