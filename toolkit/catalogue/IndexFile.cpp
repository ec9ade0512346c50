// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "IndexFile.h"

#include "Block.h"

#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenVersion.h>

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

#include <cstring>
#include <filesystem>
#include <limits>
#include <system_error>

#if defined(__unix__) || defined(__APPLE__)
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace rvopen::toolkit::catalogue {

namespace {

constexpr char s_magic[8] = {'R', 'V', 'O', 'C', 'A', 'T', '1', '\n'};

/// What an index begins with. Behind it stand the records, then the names of documents, then the
/// blocks, each at a multiple of 8.
struct Head {
    char magic[8] = {};
    /// Of what an index of today's library under today's bounds says of the same documents.
    quint64 kind = 0;
    quint32 count = 0;
    quint32 nameBytes = 0;
    /// Of the records and names.
    quint64 checksum = 0;
};

quint64 kindOfToday()
{
    // The number is that of the blocks' form.
    const QByteArray text = QByteArrayLiteral("2 " RVOPEN_VERSION_STRING) + ' ' +
                            QByteArray::number(GetMaxInputSize()) + ' ' +
                            QByteArray::number(GetMaxDocumentMemory()) + ' ' +
                            QByteArray::number(QT_VERSION);
    return checksum(viewOf(text));
}

bool isPrivate(const QFile& file)
{
#if defined(__unix__) || defined(__APPLE__)
    struct stat status = {};
    return ::fstat(file.handle(), &status) == 0 && S_ISREG(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
#else
    return QFileInfo(file).isFile();
#endif
}

/// Links are not followed: what a name in the folder leads to need not be ours.
bool openAlone(QFile& file, const QString& name)
{
#if defined(__unix__) || defined(__APPLE__)
    const int number =
        ::open(QFile::encodeName(name).constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (number >= 0 && file.open(number, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return true;
    if (number >= 0)
        ::close(number);
    return false;
#else
    file.setFileName(name);
    return file.open(QIODevice::ReadOnly);
#endif
}

quint64 aligned(quint64 size)
{
    return (size + 7) & ~quint64(7);
}

QString cacheFolder()
{
    const QString given = qEnvironmentVariable("XDG_CACHE_HOME");
    if (QDir::isAbsolutePath(given))
        return given;
    const QString home = QDir::homePath();
    return QDir::isAbsolutePath(home) && home != QDir::rootPath() ? home + QLatin1String("/.cache")
                                                                  : QString();
}

/// What a writer that was killed has left goes after a day, an index that was not written for this
/// many days as well: its folder may not be there any more, and making it again takes a moment.
const int s_daysKept = 60;

void removeOld(const QDir& folder)
{
    const QDateTime now = QDateTime::currentDateTime();
    for (const QFileInfo& file : folder.entryInfoList(QDir::Files | QDir::Hidden)) {
        const bool isLeft = file.fileName().startsWith(QLatin1String("new."));
        if (file.lastModified() < now.addDays(isLeft ? -1 : -s_daysKept))
            QFile::remove(file.filePath());
    }
}

} // namespace

struct IndexFile::Record {
    FileState state;
    quint64 nameAt = 0;
    quint64 nameLength = 0;
    quint64 blockAt = 0;
    quint64 blockLength = 0;
    quint64 checksum = 0;
};

QString IndexFile::nameFor(const QString& folder)
{
    const QString caches = cacheFolder();
    if (caches.isEmpty() || qgetenv("RVOPEN_CATALOGUE") == "off")
        return QString();
    const QByteArray hash =
        QCryptographicHash::hash(QFile::encodeName(folder), QCryptographicHash::Sha256);
    return caches + QLatin1String("/rvopen/catalogue-v1/") +
           QString::fromLatin1(hash.left(16).toHex());
}

IndexFile::IndexFile(const QString& name)
{
    if (name.isEmpty() || !open(name)) {
        m_bytes = {};
        m_count = 0;
        m_places.clear();
    }
}

IndexFile::~IndexFile() = default;

bool IndexFile::open(const QString& name)
{
    if (!openAlone(m_file, name) || !isPrivate(m_file))
        return false;
    const qint64 size = m_file.size();
    Head head;
    if (size < qint64(sizeof head))
        return false;
    const uchar* const bytes = m_file.map(0, size);
    if (!bytes)
        return false;
    m_bytes = {reinterpret_cast<const char*>(bytes), std::size_t(size)};
    std::memcpy(&head, bytes, sizeof head);
    const quint64 listed = quint64(head.count) * sizeof(Record) + head.nameBytes;
    if (std::memcmp(head.magic, s_magic, sizeof s_magic) != 0 || head.kind != kindOfToday() ||
        listed > quint64(size) - sizeof head ||
        checksum(m_bytes.substr(sizeof head, listed)) != head.checksum)
        return false;
    m_count = head.count;
    const std::string_view names =
        m_bytes.substr(sizeof head + quint64(head.count) * sizeof(Record), head.nameBytes);
    for (quint32 i = 0; i < m_count; ++i) {
        Record record;
        std::memcpy(&record, bytes + sizeof head + i * sizeof record, sizeof record);
        if (record.nameAt > names.size() || record.nameLength > names.size() - record.nameAt)
            return false;
        const std::string_view document = names.substr(record.nameAt, record.nameLength);
        m_places.insert(QByteArray(document.data(), int(document.size())), i);
    }
    return true;
}

std::string_view IndexFile::find(const QByteArray& document, const FileState& state) const
{
    const auto place = m_places.constFind(document);
    if (place == m_places.constEnd())
        return {};
    Record record;
    std::memcpy(&record, m_bytes.data() + sizeof(Head) + *place * sizeof record, sizeof record);
    return record.state == state ? blockOf(record) : std::string_view();
}

std::vector<IndexFile::Entry> IndexFile::entries() const
{
    std::vector<Entry> result;
    for (auto place = m_places.constBegin(); place != m_places.constEnd(); ++place) {
        Record record;
        std::memcpy(&record, m_bytes.data() + sizeof(Head) + *place * sizeof record, sizeof record);
        const std::string_view block = blockOf(record);
        if (!block.empty())
            result.push_back({place.key(), record.state, block});
    }
    return result;
}

std::string_view IndexFile::blockOf(const Record& record) const
{
    if (record.blockAt > m_bytes.size() || record.blockLength > m_bytes.size() - record.blockAt)
        return {};
    const std::string_view block = m_bytes.substr(record.blockAt, record.blockLength);
    return checksum(block) == record.checksum ? block : std::string_view();
}

void IndexFile::write(const QString& name, const std::vector<Entry>& entries)
{
    if (name.isEmpty() || entries.size() > std::numeric_limits<quint32>::max() / sizeof(Record))
        return;
    const QString folder = QFileInfo(name).path();
    const QString above = QFileInfo(folder).path();
    for (const QString& made : {above, folder}) {
        if (!QDir(made).exists() && QDir().mkpath(made))
            QFile::setPermissions(made, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QByteArray names;
    for (const Entry& entry : entries)
        names += entry.document;
    quint64 at = aligned(sizeof(Head) + entries.size() * sizeof(Record) + quint64(names.size()));
    QByteArray list;
    quint64 nameAt = 0;
    for (const Entry& entry : entries) {
        Record record;
        record.state = entry.state;
        record.nameAt = nameAt;
        record.nameLength = quint64(entry.document.size());
        record.blockAt = at;
        record.blockLength = entry.block.size();
        record.checksum = checksum(entry.block);
        list.append(reinterpret_cast<const char*>(&record), sizeof record);
        nameAt += record.nameLength;
        at = aligned(at + record.blockLength);
    }
    list += names;
    Head head;
    std::memcpy(head.magic, s_magic, sizeof s_magic);
    head.kind = kindOfToday();
    head.count = quint32(entries.size());
    head.nameBytes = quint32(names.size());
    head.checksum = checksum(viewOf(list));

    QTemporaryFile file(folder + QLatin1String("/new.XXXXXX"));
    if (!file.open())
        return;
    const auto put = [&file](std::string_view bytes) {
        const char none[8] = {};
        const qint64 gap = qint64(aligned(bytes.size()) - bytes.size());
        return file.write(bytes.data(), qint64(bytes.size())) == qint64(bytes.size()) &&
               file.write(none, gap) == gap;
    };
    bool isWritten = file.write(reinterpret_cast<const char*>(&head), sizeof head) == sizeof head &&
                     put(viewOf(list));
    for (auto entry = entries.begin(); isWritten && entry != entries.end(); ++entry)
        isWritten = put(entry->block);
    if (!isWritten || !file.flush())
        return;
    std::error_code failure;
    std::filesystem::rename(std::filesystem::u8path(file.fileName().toStdString()),
                            std::filesystem::u8path(name.toStdString()), failure);
    if (!failure)
        file.setAutoRemove(false);
    removeOld(QDir(folder));
}

} // namespace rvopen::toolkit::catalogue
