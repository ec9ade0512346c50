// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ManagerSupport.h"

#include <rvopen/RVOpenReader.h>

#include <QDomDocument>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <random>

/// What the tests of written documents share.
namespace rvopen::test {

/// How many documents a test of texts generates, and one that has to write files.
constexpr unsigned ManyTexts = 1500;
constexpr unsigned ManyFiles = 100;

/// By its code, for what a source file cannot or should not contain.
inline QString character(int code)
{
    return QString(QChar(static_cast<ushort>(code)));
}

inline std::unique_ptr<QDomDocument> parseText(const QString& text)
{
    return std::unique_ptr<QDomDocument>(ParseXmlDocument(text));
}

/// A manager whose document the tests may fill with anything.
class Written {
public:
    /// \p prolog is what stands before the root element.
    explicit Written(const QString& prolog = QString())
    {
        load(m_manager, prolog + QLatin1String("<snapRoot><snapshot name='s'/></snapRoot>"));
    }

    RVOpenManager& manager()
    {
        return m_manager;
    }
    QDomDocument document() const
    {
        return m_manager.GetCurrentSnapShot()->GetDomNode().ownerDocument();
    }
    QDomElement root() const
    {
        return document().documentElement();
    }
    QString text() const
    {
        return m_manager.GetSnapShotDocumentAsString();
    }
    bool save(const QString& path)
    {
        return m_manager.SaveArchive(path, m_manager.GetCurrentSnapShot());
    }
    /// As the bytes of a file; empty when it cannot be saved.
    QByteArray bytes()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("a.rvx");
        return save(path) ? readFile(path) : QByteArray();
    }

private:
    RVOpenManager m_manager;
};

/// The bytes of a file with the document of \p root; empty when it cannot be saved.
inline QByteArray savedBytes(const QDomElement& root)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.rvx");
    RVOpenNode node;
    node.SetDomNode(root);
    return RVOpenManager().SaveArchive(path, &node) ? readFile(path) : QByteArray();
}

/// \name Generated documents
/// @{

/// The same sequence in every run and on every machine.
class Random {
public:
    explicit Random(unsigned seed)
        : m_engine(seed)
    {
    }
    int below(int bound)
    {
        return static_cast<int>(m_engine() % static_cast<unsigned>(bound));
    }
    QString oneOf(const QStringList& texts)
    {
        return texts[below(static_cast<int>(texts.size()))];
    }
    /// At least one, at most four of them.
    QString someOf(const QStringList& pieces)
    {
        QString text;
        for (int count = below(4); count >= 0; --count)
            text += oneOf(pieces);
        return text;
    }

private:
    std::mt19937 m_engine;
};

/// What a document is made of.
struct Vocabulary {
    QStringList names;
    QStringList texts;
    QStringList sections;
    QStringList comments;
    QStringList instructions;
    QStringList entities;
    int maxAttributes;
};

inline QStringList without(QStringList pieces, const QStringList& removed)
{
    for (const QString& piece : removed)
        pieces.removeAll(piece);
    return pieces;
}

/// Whatever a document may contain, and QDomDocument::toString() writes so that it can be read
/// again.
inline Vocabulary harmless(int maxAttributes)
{
    const QStringList common{
        "a",  "Word",          " ",      "\n",    "\t", "<b>", "]]",         "&",      ">",  "\"",
        "'",  "&amp;",         "é",      "я",     "☃",  "😀",   "\U0010FFFF", "\u0085", "--", "?",
        "\r", character(0xA0), "\u2028", "\uFFFD"};
    return {{"a", "b", "Z", "param", "name", "val", "x-1", "_", "q.r", "é", "имя"},
            common,
            without(common, {">"}),
            without(common, {"--", "<b>"}) + QStringList{"- "},
            without(common, {">"}),
            {},
            maxAttributes};
}

/// Whatever a host may put in.
inline Vocabulary hostile()
{
    const QStringList halves{character(0xD83D), character(0xDE00)};
    const QStringList controls{character(0),     character(1),      character(0x1B),
                               character(0x7F),  character(0xFFFE), character(0xFFFF),
                               character(0xFDD0)};
    const QStringList marks{"]]>", "]]", "-", "-->", "<!--", "?>", "<?", "<![CDATA[", "<", "&#0;"};
    const QStringList texts = harmless(0).texts + halves + halves + controls + controls + marks;
    return {harmless(0).names + halves + controls +
                QStringList{":", "p:", "1", "-", " ", "<", "&", ">", "\"", "=", "☃"},
            texts,
            texts,
            texts,
            texts,
            {"x", "y", "lt", "apos", "no such", ":", "#65"},
            6};
}

/// The name that is written for \p name.
inline QString expectedName(const QString& name)
{
    const QString starts(":_éимя");
    QString expected;
    for (const QChar c : name) {
        const bool starting = (c.unicode() < 128 && c.isLetter()) || starts.contains(c);
        const bool following = QStringLiteral("-.0123456789").contains(c);
        if (starting || (following && !expected.isEmpty()))
            expected += c;
        else
            expected += QString::asprintf("_x%04X_", unsigned(c.unicode()));
    }
    return expected;
}

/// Grows a document at random.
class Grower {
public:
    Grower(Random& random, const Vocabulary& vocabulary)
        : m_random(random)
        , m_vocabulary(vocabulary)
    {
    }

    void growDocument(QDomDocument document)
    {
        const QDomElement root = document.documentElement();
        for (int i = m_random.below(3); i > 0; --i) {
            document.insertBefore(aside(document), root);
            document.appendChild(aside(document));
        }
        growElement(root, 0);
    }

    void growElement(QDomElement element, int depth)
    {
        QStringList taken;
        for (int i = m_random.below(m_vocabulary.maxAttributes + 1); i > 0; --i) {
            const QString name = m_random.someOf(m_vocabulary.names);
            if (taken.contains(expectedName(name)))
                continue;
            taken << expectedName(name);
            element.setAttribute(name, m_random.someOf(m_vocabulary.texts));
        }
        for (int i = m_random.below(depth == 0 ? 8 : 5); i > 0 && depth < 5; --i)
            growChild(element, depth);
    }

private:
    void growChild(QDomElement& parent, int depth)
    {
        QDomDocument document = parent.ownerDocument();
        const int kind = m_random.below(20);
        if (kind < 7) {
            QDomElement child = document.createElement(m_random.someOf(m_vocabulary.names));
            parent.appendChild(child);
            growElement(child, depth + 1);
        } else if (kind < 11) {
            parent.appendChild(document.createTextNode(m_random.someOf(m_vocabulary.texts)));
        } else if (kind < 14) {
            parent.appendChild(document.createCDATASection(m_random.someOf(m_vocabulary.sections)));
        } else if (kind < 15 && !m_vocabulary.entities.isEmpty()) {
            parent.appendChild(
                document.createEntityReference(m_random.oneOf(m_vocabulary.entities)));
        } else {
            parent.appendChild(aside(document));
        }
    }

    /// What may stand beside the root element as well.
    QDomNode aside(QDomDocument& document)
    {
        if (m_random.below(2) == 0)
            return document.createComment(m_random.someOf(m_vocabulary.comments));
        const QString target = m_random.someOf(m_vocabulary.names);
        return document.createProcessingInstruction(target,
                                                    m_random.someOf(m_vocabulary.instructions));
    }

    Random& m_random;
    const Vocabulary& m_vocabulary;
};

inline QString randomProlog(Random& random)
{
    const QString declaration = random.oneOf({"", "<?xml version=\"1.0\" encoding=\"utf-8\"?>",
                                              "<?xml version=\"1.0\" standalone=\"no\"?>"});
    return declaration +
           random.oneOf({"", "<!DOCTYPE snapRoot>", "<!DOCTYPE snapRoot SYSTEM 'a.dtd'>",
                         "<!DOCTYPE snapRoot PUBLIC '-//A//B' \"it's\">",
                         "<!DOCTYPE snapRoot PUBLIC '' '?a=b&c=<d'>"});
}

/// @}

} // namespace rvopen::test
