// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/files/JudgedDocument.h>

#include <rvopen/RVOpenLimits.h>
#include <rvopen/files/DocumentFiles.h>
#include <rvopen/xml/DomParser.h>
#include <rvopen/xml/TextDecoding.h>
#include <rvopen/xml/XmlScanner.h>

#include <QHash>

#include <mutex>

namespace rvopen {

namespace {

/// So many files are known, which an installation with its archives has not; their bytes stay in
/// memory.
constexpr int s_mostKnown = 16;

/// What was read last of each path.
struct Known {
    std::mutex mutex;
    QHash<QString, std::shared_ptr<const JudgedDocument>> documents;
};

Known& known()
{
    static Known known;
    return known;
}

} // namespace

std::shared_ptr<const JudgedDocument> JudgedDocument::read(const QString& path)
{
    ReadError failure;
    failure.file = path;
    QByteArray bytes;
    if (!readBytes(path, bytes, failure)) {
        tellOfReading(failure, nullptr);
        return nullptr;
    }
    Known& all = known();
    std::shared_ptr<const JudgedDocument> before;
    {
        const std::lock_guard<std::mutex> lock(all.mutex);
        before = all.documents.value(path);
    }
    // To compare all of it takes less than to ask whether it could have changed, and is never
    // wrong.
    if (before && before->isUnderTodaysBounds() && before->m_bytes == bytes) {
        tellOfReading(ReadError(), nullptr);
        return before;
    }
    QString text;
    if (!readText(bytes, text, failure) || !xml::isDocument(std::move(text), failure)) {
        tellOfReading(failure, nullptr);
        return nullptr;
    }
    tellOfReading(ReadError(), nullptr);
    const std::shared_ptr<JudgedDocument> judged(new JudgedDocument);
    judged->m_bytes = bytes;
    judged->m_maxMemory = GetMaxDocumentMemory();
    const std::lock_guard<std::mutex> lock(all.mutex);
    if (all.documents.size() >= s_mostKnown && !all.documents.contains(path))
        all.documents.clear();
    all.documents.insert(path, judged);
    return judged;
}

std::unique_ptr<QDomDocument> JudgedDocument::build() const
{
    ReadError failure;
    QString text;
    if (!readText(m_bytes, text, failure))
        return nullptr;
    return xml::parse(std::move(text), Namespaces::Processed, failure);
}

bool JudgedDocument::isUnderTodaysBounds() const
{
    return m_maxMemory == GetMaxDocumentMemory();
}

} // namespace rvopen
