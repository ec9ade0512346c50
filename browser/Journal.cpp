// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Journal.h"

#include "FileTexts.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenWriter.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <algorithm>
#include <optional>
#include <utility>

namespace rvopen::browser {

namespace {

const QString s_baseName = QStringLiteral("base");
const QString s_logName = QStringLiteral("log");
const QString s_lockName = QStringLiteral("lock");

const QString s_file = QStringLiteral("file");
const QString s_at = QStringLiteral("at");
const QString s_name = QStringLiteral("name");
const QString s_before = QStringLiteral("before");
const QString s_after = QStringLiteral("after");
const QString s_xml = QStringLiteral("xml");
const QString s_text = QStringLiteral("text");
const QString s_what = QStringLiteral("what");
const QString s_set = QStringLiteral("set");
const QString s_insert = QStringLiteral("insert");
const QString s_remove = QStringLiteral("remove");
const QString s_wrapper = QStringLiteral("node");

/// The positions from the document down; nothing for what does not stand in it.
std::optional<QJsonArray> placeOf(const QDomDocument& document, QDomNode node)
{
    QVector<int> rows;
    for (; !node.isNull() && node != document; node = node.parentNode()) {
        int row = 0;
        for (QDomNode before = node.previousSibling(); !before.isNull();
             before = before.previousSibling())
            ++row;
        rows.append(row);
    }
    if (node.isNull())
        return std::nullopt;
    QJsonArray place;
    for (auto row = rows.crbegin(); row != rows.crend(); ++row)
        place.append(*row);
    return place;
}

/// A child, and what stands before it; the child is null behind the last one.
struct Place {
    QDomNode parent;
    QDomNode previous;
    QDomNode node;
};

/// Nothing where the document has no such place.
std::optional<Place> placeAt(const QDomDocument& document, const QJsonArray& rows)
{
    Place place{QDomNode(), QDomNode(), document};
    for (const QJsonValue& row : rows) {
        if (place.node.isNull())
            return std::nullopt;
        place = {place.node, QDomNode(), place.node.firstChild()};
        for (int i = 0; i < row.toInt(-1); ++i) {
            if (place.node.isNull())
                return std::nullopt;
            place.previous = place.node;
            place.node = place.node.nextSibling();
        }
    }
    return place;
}

QJsonValue valueOf(const QString& text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

QString textOf(const QJsonValue& value)
{
    if (!value.isString())
        return QString();
    // Without text is not without value.
    const QString text = value.toString();
    return text.isNull() ? QLatin1String("") : text;
}

void writeNode(const QDomNode& node, QJsonObject& line)
{
    if (node.isText() && !node.isCDATASection()) {
        line.insert(s_text, node.nodeValue());
        return;
    }
    QDomDocument document;
    QDomElement wrapper = document.createElement(s_wrapper);
    document.appendChild(wrapper);
    wrapper.appendChild(document.importNode(node, true));
    line.insert(s_xml, XmlText(document, 0));
}

/// Standing nowhere; null where the line has none.
QDomNode readNode(const QJsonObject& line, QDomDocument document)
{
    if (line.contains(s_text))
        return document.createTextNode(line.value(s_text).toString());
    const std::unique_ptr<QDomDocument> read(ParseXmlDocument(line.value(s_xml).toString()));
    return read ? document.importNode(read->documentElement().firstChild(), true) : QDomNode();
}

/// The change that takes back what would take the line back.
std::optional<RVOpenChange> oppositeOf(const QJsonObject& line, const QDomDocument& document)
{
    const std::optional<Place> place = placeAt(document, line.value(s_at).toArray());
    if (!place)
        return std::nullopt;
    const QString what = line.value(s_what).toString();
    RVOpenChange change;
    change.document = document;
    change.node = place->node;
    change.parent = place->parent;
    change.previous = place->previous;
    if (what == s_set) {
        change.kind = RVOpenChange::AttributeSet;
        change.name = line.value(s_name).toString();
        change.before = textOf(line.value(s_after));
        change.after = textOf(line.value(s_before));
    } else if (what == s_insert) {
        change.kind = RVOpenChange::ChildRemoved;
        change.node = readNode(line, document);
    } else {
        change.kind = RVOpenChange::ChildInserted;
    }
    if (change.node.isNull())
        return std::nullopt;
    return change;
}

/// The lines of a log; what was not written to its end is none.
QVector<QJsonObject> linesOf(const QString& folder)
{
    QVector<QJsonObject> lines;
    const QList<QByteArray> texts = bytesOf(QDir(folder).filePath(s_logName)).split('\n');
    for (const QByteArray& text : texts) {
        const QJsonDocument line = QJsonDocument::fromJson(text);
        if (!line.isObject())
            break;
        lines.append(line.object());
    }
    return lines;
}

} // namespace

Journal::Journal(const QString& file, const QDomDocument& document, const QByteArray& content,
                 const QString& folder)
    : m_file(QFileInfo(PathToOpen(file)).absoluteFilePath())
    , m_document(document)
    , m_folder(folder)
    , m_content(content)
{
}

Journal::~Journal()
{
    end();
}

void Journal::Changed(const RVOpenChange& change)
{
    if (change.document != m_document || !m_problem.isEmpty())
        return;
    QJsonObject line;
    switch (change.kind) {
    case RVOpenChange::AttributeSet:
        line.insert(s_what, s_set);
        line.insert(s_name, change.name);
        line.insert(s_before, valueOf(change.before));
        line.insert(s_after, valueOf(change.after));
        break;
    case RVOpenChange::ChildInserted:
        line.insert(s_what, s_insert);
        writeNode(change.node, line);
        break;
    case RVOpenChange::ChildAboutToBeRemoved:
        line.insert(s_what, s_remove);
        break;
    default:
        return;
    }
    const std::optional<QJsonArray> place = placeOf(m_document, change.node);
    // What stands in no tree is written when it comes into it.
    if (!place)
        return;
    line.insert(s_at, *place);
    if (!m_own.isEmpty() || begin())
        write(QJsonDocument(line).toJson(QJsonDocument::Compact));
}

void Journal::restart(const QByteArray& content)
{
    end();
    m_content = content;
    m_problem.clear();
}

QString Journal::problem() const
{
    return m_problem;
}

QString Journal::folder()
{
    // What is in the cache may be deleted at any time, this not.
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (QDir::isRelativePath(state))
        state = QDir::homePath() + QLatin1String("/.local/state");
    return state + QLatin1String("/rvopen/journal");
}

QVector<Journal::Left> Journal::leftOver(const QString& folder)
{
    QVector<Left> all;
    const QDir dir(folder);
    const QStringList names = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& name : names) {
        Left left;
        left.folder = dir.filePath(name);
        QLockFile lock(QDir(left.folder).filePath(s_lockName));
        lock.setStaleLockTime(0);
        if (!lock.tryLock(0))
            continue;
        const QVector<QJsonObject> lines = linesOf(left.folder);
        if (lines.size() < 2) {
            lock.unlock();
            QDir(left.folder).removeRecursively();
            continue;
        }
        left.file = lines.first().value(s_file).toString();
        left.time = QFileInfo(QDir(left.folder).filePath(s_logName)).lastModified();
        left.changes = int(lines.size()) - 1;
        all.append(left);
    }
    std::sort(all.begin(), all.end(), [](const Left& a, const Left& b) { return a.time > b.time; });
    return all;
}

QByteArray Journal::base(const Left& left)
{
    return bytesOf(QDir(left.folder).filePath(s_baseName));
}

int Journal::replay(const Left& left, const QDomDocument& document, const TakeBack& takeBack)
{
    const QVector<QJsonObject> lines = linesOf(left.folder);
    int made = 0;
    for (int i = 1; i < int(lines.size()); ++i, ++made) {
        const std::optional<RVOpenChange> change = oppositeOf(lines[i], document);
        if (!change || !takeBack(*change))
            break;
    }
    return made;
}

void Journal::discard(const Left& left)
{
    QDir(left.folder).removeRecursively();
}

void Journal::end()
{
    m_log.close();
    if (m_own.isEmpty())
        return;
    // The lock last: without log nothing is left of a journal.
    m_log.remove();
    m_lock.reset();
    QDir(m_own).removeRecursively();
    m_own.clear();
}

bool Journal::begin()
{
    const QByteArray id =
        QCryptographicHash::hash(m_file.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    const QString own = QStringLiteral("%1/%2-%3")
                            .arg(m_folder, QString::fromLatin1(id),
                                 QString::number(QCoreApplication::applicationPid()));
    if (!QDir().mkpath(own)) {
        m_problem = QStringLiteral("\"%1\" cannot be made").arg(own);
        return false;
    }
    m_own = own;
    m_lock = std::make_unique<QLockFile>(QDir(own).filePath(s_lockName));
    m_lock->setStaleLockTime(0);
    m_lock->tryLock(0);
    if (!WriteFile(m_content, QDir(own).filePath(s_baseName))) {
        m_problem = LastWriteError();
        return false;
    }
    // It is in the folder now.
    m_content.clear();
    m_log.setFileName(QDir(own).filePath(s_logName));
    if (!m_log.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        m_problem = m_log.errorString();
        return false;
    }
    write(QJsonDocument(QJsonObject{{s_file, m_file}}).toJson(QJsonDocument::Compact));
    return m_problem.isEmpty();
}

/// Whole, or what comes behind it is not read again.
void Journal::write(const QByteArray& line)
{
    if (m_log.write(line + '\n') != line.size() + 1 || !m_log.flush())
        m_problem = m_log.errorString();
}

} // namespace rvopen::browser
