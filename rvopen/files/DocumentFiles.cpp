// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/DocumentFiles.h>

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/xml/DomParser.h>
#include <rvopen/xml/DomWriter.h>
#include <rvopen/xml/TextDecoding.h>
#include <rvopen/xml/XmlScanner.h>

#include <QByteArray>
#include <QFile>

#include <algorithm>
#include <memory>
#include <utility>

namespace rvopen {

namespace {

/// What hosts ask for after operations whose interface says no more than that they failed.
/// @{
thread_local ReadError s_lastError;
thread_local WriteError s_lastWriteError;
/// @}

QDomDocument* finish(std::unique_ptr<QDomDocument> document, const ReadError& failure,
                     ReadError* error)
{
    tellOfReading(document ? ReadError() : failure, error);
    return document.release();
}

SaveResult finishWriting(SaveResult result, const QString& path, const QString& reason)
{
    tellOfWriting(result == SaveResult::Saved ? WriteError() : WriteError{path, reason});
    return result;
}

SaveResult write(const QString& path, const QByteArray& bytes)
{
    QString reason;
    const SaveResult result = replaceFile(PathToOpen(path), bytes, reason);
    return finishWriting(result, path, reason);
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

QString XmlText(const QDomDocument& document, int indent)
{
    return fileText(document, indent);
}

bool WriteXmlDocument(const QDomDocument& document, const QString& path, int indent)
{
    return saveDocument(document, path, indent) == SaveResult::Saved;
}

bool WriteFile(const QByteArray& bytes, const QString& path)
{
    return write(path, bytes) == SaveResult::Saved;
}

QString LastWriteError()
{
    return s_lastWriteError.message;
}

QDomDocument* readDocument(const QString& path, ReadError* error)
{
    ReadError failure;
    failure.file = path;
    QByteArray bytes;
    QString text;
    if (!readText(path, bytes, text, failure))
        return finish(nullptr, failure, error);
    bytes.clear();
    auto document = xml::parse(std::move(text), Namespaces::Processed, failure);
    return finish(std::move(document), failure, error);
}

QDomDocument* parseDocument(const QString& text, Namespaces namespaces, ReadError* error)
{
    ReadError failure;
    if (text.size() > GetMaxInputSize()) {
        failure.message = tooLarge();
        return finish(nullptr, failure, error);
    }
    const bool isMarked = text.startsWith(QChar(QChar::ByteOrderMark));
    auto document = xml::parse(isMarked ? text.mid(1) : text, namespaces, failure);
    return finish(std::move(document), failure, error);
}

bool readText(const QString& path, QByteArray& bytes, QString& text, ReadError& failure)
{
    return readBytes(path, bytes, failure) && readText(bytes, text, failure);
}

bool readBytes(const QString& path, QByteArray& bytes, ReadError& failure)
{
    QString& message = failure.message;
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
    const qint64 leastSize = 64 * 1024;
    const qint64 mostSize = 1024 * 1024;
    bool ended = false;
    while (!ended && std::max<qint64>(file.size(), bytes.size()) <= limit) {
        // With one byte more than there should be, a small file is read in one go.
        const qint64 left = file.size() - bytes.size() + 1;
        const QByteArray chunk = file.read(std::clamp(left, leastSize, mostSize));
        bytes += chunk;
        ended = chunk.isEmpty();
    }
    if (file.error() != QFileDevice::NoError)
        message = file.errorString();
    else if (!ended)
        message = tooLarge();
    return message.isEmpty();
}

bool readText(const QByteArray& bytes, QString& text, ReadError& failure)
{
    if (decodeText(bytes, text))
        return true;
    failure.message = QStringLiteral("The bytes stand for no character");
    xml::setPlace(failure, xml::viewOf(text), text.size());
    return false;
}

void tellOfReading(const ReadError& result, ReadError* error)
{
    s_lastError = result;
    if (error)
        *error = result;
}

SaveResult saveDocument(const QDomDocument& document, const QString& path, int indent)
{
    const QString text = fileText(document, indent);
    if (text.isNull())
        return finishWriting(SaveResult::NotWritten, path,
                             QStringLiteral("The document could not be read again"));
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() > GetMaxInputSize())
        return finishWriting(SaveResult::NotWritten, path, tooLarge());
    return write(path, bytes);
}

WriteError lastWriteError()
{
    return s_lastWriteError;
}

void tellOfWriting(const WriteError& error)
{
    s_lastWriteError = error;
}

WriteError notOpen(const QString& archive)
{
    return {archive, QStringLiteral("The archive is not open")};
}

} // namespace rvopen
