// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenReader.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

/// Reads the names of files from standard input, one a line, and tells of each whether it is read,
/// saved, read again as the same document and saved as the same bytes once more, and whether a
/// parser that is not the library's finds the same in what was saved as in the file itself:
///
///     ok      path
///     refused path
///     WRONG   path: what differs
///
/// With "--truncated" of the first half of each file's bytes. Exits with 1 if anything is wrong.
namespace {

using Document = std::unique_ptr<QDomDocument>;

QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

std::vector<QString> attributesOf(const QDomNode& node)
{
    std::vector<QString> texts;
    const QDomNamedNodeMap map = node.attributes();
    for (int i = 0; i < map.count(); ++i) {
        const QDomNode attribute = map.item(i);
        texts.push_back(attribute.nodeName() + QLatin1Char('=') + attribute.nodeValue() +
                        QLatin1Char(' ') + attribute.namespaceURI());
    }
    std::sort(texts.begin(), texts.end());
    return texts;
}

bool isSame(const QDomNode& a, const QDomNode& b)
{
    return a.nodeType() == b.nodeType() && a.nodeName() == b.nodeName() &&
           a.localName() == b.localName() && a.nodeValue() == b.nodeValue() &&
           a.namespaceURI() == b.namespaceURI() && attributesOf(a) == attributesOf(b);
}

QDomNode nextInDocument(QDomNode node)
{
    QDomNode next = node.firstChild();
    while (next.isNull() && !node.isNull()) {
        next = node.nextSibling();
        node = node.parentNode();
    }
    return next;
}

/// What differs first; empty when nothing does.
QString difference(const QDomDocument& first, const QDomDocument& second)
{
    QDomNode a = first;
    QDomNode b = second;
    while (!a.isNull() && !b.isNull()) {
        if (!isSame(a, b))
            return a.nodeName() + QLatin1String(" in line ") + QString::number(a.lineNumber());
        a = nextInDocument(a);
        b = nextInDocument(b);
    }
    return a.isNull() && b.isNull() ? QString() : QStringLiteral("the number of nodes");
}

/// What Qt's parser finds in a text, without layout. Declarations of namespaces are attributes.
class Events {
public:
    explicit Events(const QByteArray& bytes)
        : m_reader(QString::fromUtf8(bytes))
    {
        m_reader.setNamespaceProcessing(false);
        while (!m_reader.atEnd())
            add(m_reader.readNext());
    }

    /// It takes no UTF-16 here, and not all that is well-formed.
    bool isComplete() const
    {
        return !m_reader.hasError();
    }
    const QStringList& lines() const
    {
        return m_lines;
    }

private:
    void add(QXmlStreamReader::TokenType type)
    {
        const bool isCdata = m_reader.isCDATA();
        if (type == QXmlStreamReader::Characters && !isCdata) {
            m_text += m_reader.text().toString();
            return;
        }
        endText(isCdata || type == QXmlStreamReader::EntityReference ||
                (m_last == QXmlStreamReader::StartElement && type == QXmlStreamReader::EndElement));
        m_last = type;
        // Its place among comments is in no document.
        if (type == QXmlStreamReader::DTD) {
            m_lines.prepend(m_reader.dtdName().toString() + QLatin1Char('|') +
                            m_reader.dtdPublicId().toString() + QLatin1Char('|') +
                            m_reader.dtdSystemId().toString());
            return;
        }
        if (type == QXmlStreamReader::StartDocument)
            return;
        QString line = m_reader.tokenString() + QLatin1Char(' ') + m_reader.name().toString() +
                       m_reader.processingInstructionTarget().toString() + QLatin1Char('|') +
                       m_reader.processingInstructionData().toString();
        if (type == QXmlStreamReader::StartElement) {
            addStart(line);
        } else if (type != QXmlStreamReader::EndElement) {
            line += m_reader.text().toString();
        }
        if (type == QXmlStreamReader::EndElement)
            m_preserves.pop_back();
        m_lines << line;
    }

    void addStart(QString& line)
    {
        QStringList attributes;
        const QXmlStreamAttributes all = m_reader.attributes();
        bool preserves = m_preserves.back();
        for (const QXmlStreamAttribute& attribute : all) {
            attributes << QLatin1Char(' ') + attribute.qualifiedName().toString() +
                              QLatin1Char('=') + attribute.value().toString();
            if (attribute.qualifiedName() == QLatin1String("xml:space"))
                preserves = attribute.value() == QLatin1String("preserve");
        }
        m_preserves.push_back(preserves);
        attributes.sort();
        line += m_reader.qualifiedName().toString() + attributes.join(QString());
    }

    void endText(bool isContent)
    {
        const bool followsContent =
            m_last == QXmlStreamReader::Characters || m_last == QXmlStreamReader::EntityReference;
        const bool hasInk = std::any_of(m_text.cbegin(), m_text.cend(), [](QChar c) {
            return c != QLatin1Char(' ') && c != QLatin1Char('\n') && c != QLatin1Char('\t') &&
                   c != QLatin1Char('\r');
        });
        if (!m_text.isEmpty() && (hasInk || isContent || followsContent || m_preserves.back()))
            m_lines << QLatin1String("text ") + m_text;
        m_text.clear();
    }

    QXmlStreamReader m_reader;
    QXmlStreamReader::TokenType m_last = QXmlStreamReader::NoToken;
    std::vector<bool> m_preserves{false};
    QString m_text;
    QStringList m_lines;
};

/// What is in the one and not in the other; empty when nothing is, or nobody knows.
QString lost(const QByteArray& original, const QByteArray& saved)
{
    const Events before(original);
    const Events after(saved);
    if (!before.isComplete() || original.contains('\0'))
        return QString();
    for (int i = 0; i < std::max(before.lines().size(), after.lines().size()); ++i) {
        if (before.lines().value(i) != after.lines().value(i))
            return before.lines().value(i) + QLatin1String(" became ") + after.lines().value(i);
    }
    return QString();
}

class RoundTrip {
public:
    /// What is wrong with it; empty when nothing is. \p original is what it was read from.
    QString run(const QDomDocument& document, const QByteArray& original)
    {
        const QString first = m_folder.filePath(QStringLiteral("first.xml"));
        const QString second = m_folder.filePath(QStringLiteral("second.xml"));
        if (!save(document, first))
            return QStringLiteral("it is not saved");
        if (const QString missing = lost(original, bytesOf(first)); !missing.isEmpty())
            return missing;
        const Document again(rvopen::ReadXmlDocument(first));
        if (!again)
            return QStringLiteral("what was saved is not read: ") + rvopen::LastReadError().message;
        const QString different = difference(document, *again);
        if (!different.isEmpty())
            return different + QStringLiteral(" is not the same");
        if (!save(*again, second) || bytesOf(first) != bytesOf(second))
            return QStringLiteral("a second save gives other bytes");
        return QString();
    }

private:
    bool save(const QDomDocument& document, const QString& path)
    {
        rvopen::RVOpenNode root;
        root.SetDomNode(document.documentElement());
        const bool isSaved = m_manager.SaveArchive(path, &root);
        root.SetDomNode(QDomNode());
        return isSaved;
    }

    QTemporaryDir m_folder;
    rvopen::RVOpenManager m_manager;
};

class Report {
public:
    void add(const char* verdict, const QString& path, const QString& reason = QString())
    {
        const QByteArray name = QFile::encodeName(path);
        const QByteArray because = reason.isEmpty() ? QByteArray() : ": " + reason.toUtf8();
        std::printf("%-7s %s%s\n", verdict, name.constData(), because.constData());
        m_isWrong = m_isWrong || !reason.isEmpty();
    }
    int status() const
    {
        return m_isWrong ? 1 : 0;
    }

private:
    bool m_isWrong = false;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const bool truncates = application.arguments().contains(QStringLiteral("--truncated"));
    QTemporaryDir folder;
    const QString half = folder.filePath(QStringLiteral("half.xml"));
    RoundTrip roundTrip;
    Report report;
    QFile names;
    if (!names.open(stdin, QIODevice::ReadOnly))
        return 2;
    while (!names.atEnd()) {
        const QByteArray line = names.readLine();
        const QString path = QFile::decodeName(line.endsWith('\n') ? line.chopped(1) : line);
        const QByteArray bytes = bytesOf(path);
        if (truncates) {
            QFile file(half);
            const QByteArray part = bytes.left(bytes.size() / 2);
            if (!file.open(QIODevice::WriteOnly) || file.write(part) != part.size())
                return 2;
        }
        const Document document(rvopen::ReadXmlDocument(truncates ? half : path));
        const QString wrong = document ? roundTrip.run(*document, bytes) : QString();
        if (!wrong.isEmpty())
            report.add("WRONG", path, wrong);
        else if (bytesOf(path) != bytes)
            report.add("WRONG", path, QStringLiteral("reading changed the file"));
        else
            report.add(document ? "ok" : "refused", path);
    }
    return report.status();
}
