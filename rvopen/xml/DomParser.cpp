// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/xml/DomParser.h>

#include <rvopen/QtCompat.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/xml/TextDecoding.h>
#include <rvopen/xml/XmlGuard.h>

#include <QByteArray>
#include <QFile>
#include <QXmlStreamReader>

#include <algorithm>
#include <memory>
#include <utility>

namespace rvopen {

namespace {

thread_local ReadError s_lastError;

QDomDocument* finish(QDomDocument* document, const ReadError& failure, ReadError* error)
{
    s_lastError = document ? ReadError() : failure;
    if (error)
        *error = s_lastError;
    return document;
}

QString tooLarge()
{
    return QStringLiteral("The input is larger than %1").arg(GetMaxInputSize());
}

bool readBytes(const QString& path, QByteArray& bytes, QString& message)
{
    // Qt would log these.
    if (path.isEmpty() || path.contains(QChar(0))) {
        message = QStringLiteral("No file can have this name");
        return false;
    }
    // Not in text mode: that drops each byte 13, also where it belongs to a character of UTF-16
    // or ends a line by itself.
    QFile file(PathToOpen(path));
    if (!file.open(QIODevice::ReadOnly)) {
        message = file.errorString();
        return false;
    }
    // What is no regular file announces no size, and may never end.
    const qint64 limit = GetMaxInputSize();
    const qint64 chunkSize = 1024 * 1024;
    bool ended = false;
    while (!ended && std::max<qint64>(file.size(), bytes.size()) <= limit) {
        const QByteArray chunk = file.read(chunkSize);
        bytes += chunk;
        ended = chunk.isEmpty();
    }
    if (file.error() != QFileDevice::NoError)
        message = file.errorString();
    else if (!ended)
        message = tooLarge();
    return message.isEmpty();
}

/// Each line end becomes a line feed.
void normaliseLineEnds(QString& text)
{
    const QChar cr = QLatin1Char('\r');
    const QChar lf = QLatin1Char('\n');
    const auto first = text.indexOf(cr);
    if (first < 0)
        return;
    QChar* const begin = text.data();
    const QChar* const end = begin + text.size();
    QChar* to = begin + first;
    for (const QChar* from = to; from != end; ++from) {
        if (*from != cr)
            *to++ = *from;
        else if (from + 1 == end || from[1] != lf)
            *to++ = lf;
    }
    text.truncate(static_cast<compat::Size>(to - begin));
}

void removeMark(QDomNode& node)
{
    if (node.isProcessingInstruction() && node.nodeName() == QLatin1String(xml::ReferenceMark)) {
        QDomNode parent = node.parentNode();
        const QDomNode reference =
            node.ownerDocument().createEntityReference(node.nodeValue().trimmed());
        parent.replaceChild(reference, node);
        node = reference;
    }
    if (!node.isText())
        return;
    QString data = node.nodeValue();
    if (!data.endsWith(QChar(xml::SpacesMark)))
        return;
    data.chop(1);
    if (std::all_of(data.cbegin(), data.cend(), xml::isMarkable))
        node.setNodeValue(data);
}

void removeMarks(const QDomDocument& document)
{
    QDomNode node = document;
    for (;;) {
        removeMark(node);
        QDomNode next = node.firstChild();
        while (next.isNull()) {
            if (node.isNull())
                return;
            next = node.nextSibling();
            if (next.isNull())
                node = node.parentNode();
        }
        node = next;
    }
}

/// The declaration is no business of the parser's: versions of Qt differ in what they take and in
/// what they make of it.
void prependDeclaration(QDomDocument& document, const QString& data)
{
    const QDomNode declaration = document.createProcessingInstruction(QStringLiteral("xml"), data);
    document.insertBefore(declaration, document.firstChild());
}

std::unique_ptr<QDomDocument> parse(QString text, Namespaces namespaces, ReadError& failure)
{
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    normaliseLineEnds(text);
    xml::GuardedText guarded;
    if (!xml::guard(std::move(text), guarded, failure))
        return nullptr;
    QXmlStreamReader reader(guarded.text);
    reader.setNamespaceProcessing(namespaces == Namespaces::Processed);
    auto document = std::make_unique<QDomDocument>();
    if (!document->setContent(&reader, reader.namespaceProcessing(), &failure.message,
                              &failure.line, &failure.column))
        return nullptr;
    if (guarded.isMarked)
        removeMarks(*document);
    if (!guarded.declaration.isNull())
        prependDeclaration(*document, guarded.declaration);
    return document;
}

} // namespace

ReadError LastReadError()
{
    return s_lastError;
}

QDomDocument* ReadXmlDocument(const QString& path, ReadError* error)
{
    return readDocument(path, error);
}

QDomDocument* ParseXmlDocument(const QString& text, ReadError* error)
{
    return parseDocument(text, Namespaces::Ignored, error);
}

QDomDocument* readDocument(const QString& path, ReadError* error)
{
    ReadError failure;
    failure.file = path;
    QByteArray bytes;
    if (!readBytes(path, bytes, failure.message))
        return finish(nullptr, failure, error);
    QString text;
    const bool decoded = decodeText(bytes, text);
    bytes.clear();
    if (!decoded) {
        failure.message = QStringLiteral("The bytes stand for no character");
        xml::setPlace(failure, text, text.size());
        return finish(nullptr, failure, error);
    }
    return finish(parse(std::move(text), Namespaces::Processed, failure).release(), failure, error);
}

QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error)
{
    ReadError failure;
    if (text.size() > GetMaxInputSize()) {
        failure.message = tooLarge();
        return finish(nullptr, failure, error);
    }
    return finish(parse(text, namespaces, failure).release(), failure, error);
}

bool isReadable(const QString& text, Namespaces namespaces)
{
    if (namespaces == Namespaces::Ignored)
        return xml::isAccepted(text);
    xml::GuardedText guarded;
    ReadError error;
    if (!xml::guard(text, guarded, error))
        return false;
    // Nothing but namespaces is left to be wrong.
    QXmlStreamReader reader(guarded.text);
    while (!reader.atEnd())
        reader.readNext();
    return !reader.hasError();
}

} // namespace rvopen
