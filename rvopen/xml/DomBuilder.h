// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/NamespaceScope.h>
#include <rvopen/xml/XmlTokens.h>

#include <QDomDocument>
#include <QString>

#include <array>
#include <cstddef>
#include <vector>

namespace rvopen {

enum class Namespaces { Ignored, Processed };

namespace xml {

/// Makes a document of what a scan tells. Declarations of namespaces are attributes of it like any
/// other. With namespace processing elements and attributes know their namespace and local name
/// besides, as far as their names have a meaning to namespaces.
///
/// White space without other characters is layout, which is left out, except when it is all that is
/// in an element, touches a CDATA section or a reference to an entity, or stands within
/// xml:space="preserve".
class DomBuilder {
public:
    explicit DomBuilder(Namespaces namespaces);

    QDomDocument document() const
    {
        return m_document;
    }

    void declaration(const Declaration& declaration);
    void documentType(const DocumentType& type);
    void startTag(const StartTag& tag);
    void endTag(View tag);
    void characters(const Characters& characters);
    void reference(View entity);
    void cdata(View text);
    void comment(View text);
    void instruction(const Instruction& instruction);

private:
    enum class Last { StartTag, Section, Other };
    struct Open {
        QDomNode node;
        /// Of the namespaces, without those that it declares.
        std::size_t scope = 0;
        bool preservesSpace = false;
    };

    void append(const QDomNode& node, Last last);
    void appendText(const Characters& characters);
    void keepBlanksIf(bool isContent);

    QDomElement plainElement(const StartTag& tag);
    QDomElement elementInNamespace(const StartTag& tag);
    void declareNamespaces(const StartTag& tag);
    void setAttributesInNamespaces(QDomElement& element, const StartTag& tag);

    const QString& nameOf(View name);

    const bool m_processesNamespaces;
    QDomDocument m_document;
    std::vector<Open> m_open;
    NamespaceScope m_scope;

    Last m_last = Last::Other;
    /// White space of which the next event decides whether it stays; without text when there is
    /// none.
    Characters m_blanks;
    bool m_blanksFollowStartTag = false;

    /// Names that were met, each where its characters put it, so that documents share their text.
    std::array<QString, 256> m_names;
};

} // namespace xml

} // namespace rvopen
