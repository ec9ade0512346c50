// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/xml/NamespaceScope.h>

#include <QDomNode>
#include <QString>
#include <QVector>

#include <array>
#include <cstddef>
#include <vector>

namespace rvopen::xml {

/// Names and attributes as they are written for the elements of a document, from the outermost open
/// one to the innermost: in the order of their names, each name once, with the declarations that
/// the names need and nothing around them makes.
class WrittenTags {
public:
    struct Attribute {
        QString name;
        QString value;
        /// Null when it is in no namespace as far as the document knows.
        QString uri;
        /// Where the document has it, among those of the element.
        int place = 0;
    };

    WrittenTags() = default;
    WrittenTags(const WrittenTags&) = delete;
    WrittenTags& operator=(const WrittenTags&) = delete;

    void open(const QDomNode& element);
    /// Ends the innermost element.
    void close();

    /// \name Of the innermost element
    /// @{
    const QString& name() const
    {
        return m_open.back().name;
    }
    const QVector<Attribute>& attributes() const
    {
        return *m_shown;
    }
    /// Whether all white space in it is content; false when no element is open.
    bool preservesSpace() const
    {
        return !m_open.empty() && m_open.back().preservesSpace;
    }
    /// @}

private:
    struct Open {
        QString name;
        /// Of the namespaces, without those that it declares.
        std::size_t scope;
        bool preservesSpace;
    };

    void collectAttributes(const QDomNode& element);
    bool collectUsualAttributes(const QDomNamedNodeMap& map);
    void noteUsual();
    void sortAttributes();
    void makeNamesUnique(const QDomNamedNodeMap& map);
    void dropReplaced(const QDomNamedNodeMap& map);
    void declareNamespaces(const QString& uri);
    void declareRawPrefix(const QString& name);
    void addDeclaration(const QString& prefix, const QString& uri);
    bool isInScope(const QString& name, const QString& uri) const;

    std::vector<Open> m_open;
    NamespaceScope m_scope;
    QVector<Attribute> m_attributes;
    /// By their number: the attributes that a tag had last, in order, if no name of them had to do
    /// with namespaces or white space. The next tag mostly has the same names, and to copy one
    /// would count its references.
    std::array<QVector<Attribute>, 12> m_usual;
    /// Those of the innermost element.
    const QVector<Attribute>* m_shown = &m_attributes;
    /// The last name of an element that is written as it is and has no colon.
    QString m_plainName;
};

} // namespace rvopen::xml
