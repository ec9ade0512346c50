// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenReader.h>

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

/// Reads the names of files from standard input, one a line, and tells of each whether it is read,
/// saved, read again as the same document and saved as the same bytes once more:
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
           a.nodeValue() == b.nodeValue() && a.namespaceURI() == b.namespaceURI() &&
           attributesOf(a) == attributesOf(b);
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

class RoundTrip {
public:
    /// What is wrong with it; empty when nothing is.
    QString run(const QDomDocument& document)
    {
        const QString first = m_folder.filePath(QStringLiteral("first.xml"));
        const QString second = m_folder.filePath(QStringLiteral("second.xml"));
        if (!save(document, first))
            return QStringLiteral("it is not saved");
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
        const QString wrong = document ? roundTrip.run(*document) : QString();
        if (!wrong.isEmpty())
            report.add("WRONG", path, wrong);
        else if (bytesOf(path) != bytes)
            report.add("WRONG", path, QStringLiteral("reading changed the file"));
        else
            report.add(document ? "ok" : "refused", path);
    }
    return report.status();
}
