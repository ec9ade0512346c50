// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Places.h"

#include "toolkit/edit/Labels.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/check/Inspection.h>
#include <rvopen/toolkit/documents/Document.h>

#include <QFile>
#include <QTextStream>

#include <cstring>

namespace rvopen::toolkit {

namespace {

/// The start tags of a well-formed text in UTF-8, one after the other.
class StartTags {
public:
    explicit StartTags(const QByteArray& bytes)
        : m_at(bytes.constData())
        , m_end(bytes.constData() + bytes.size())
        , m_counted(m_at)
    {
        if (bytes.startsWith("\xef\xbb\xbf")) {
            m_at += 3;
            m_counted = m_at;
        }
    }

    /// False at the end.
    bool next()
    {
        while (m_at < m_end) {
            const auto* const open =
                static_cast<const char*>(std::memchr(m_at, '<', std::size_t(m_end - m_at)));
            if (!open)
                break;
            m_at = open;
            if (startsWith("<!--"))
                skipPast("-->");
            else if (startsWith("<![CDATA["))
                skipPast("]]>");
            else if (startsWith("<?"))
                skipPast("?>");
            else if (startsWith("</"))
                skipPast(">");
            else if (startsWith("<!"))
                skipTag();
            else {
                count(open);
                skipTag();
                return true;
            }
        }
        m_at = m_end;
        return false;
    }

    int line() const
    {
        return m_line;
    }

    int column() const
    {
        return m_column;
    }

private:
    bool startsWith(const char* text) const
    {
        const std::size_t length = std::strlen(text);
        return std::size_t(m_end - m_at) >= length && std::memcmp(m_at, text, length) == 0;
    }

    void skipPast(const char* text)
    {
        while (m_at < m_end && !startsWith(text))
            ++m_at;
        m_at = m_at < m_end ? m_at + std::strlen(text) : m_end;
    }

    void skipQuoted()
    {
        const char quote = *m_at++;
        while (m_at < m_end && *m_at != quote)
            ++m_at;
    }

    void skipTag()
    {
        for (; m_at < m_end && *m_at != '>'; ++m_at) {
            if (*m_at == '"' || *m_at == '\'')
                skipQuoted();
        }
        m_at = m_at < m_end ? m_at + 1 : m_end;
    }

    /// Lines and characters up to there, on from where the last count ended.
    void count(const char* to)
    {
        for (; m_counted < to; ++m_counted) {
            const bool isEnd =
                *m_counted == '\n' ||
                (*m_counted == '\r' && (m_counted + 1 == m_end || m_counted[1] != '\n'));
            if (isEnd) {
                ++m_line;
                m_column = 1;
            } else if ((static_cast<unsigned char>(*m_counted) & 0xc0) != 0x80) {
                ++m_column;
            }
        }
    }

    const char* m_at;
    const char* m_end;
    const char* m_counted;
    int m_line = 1;
    int m_column = 1;
};

class Placing {
public:
    Placing(QVector<Finding>& findings, const QByteArray& bytes)
        : m_findings(findings)
        , m_tags(bytes)
        , m_hasText(!bytes.isEmpty())
    {
    }

    void run(const QDomElement& root)
    {
        take(QString());
        descend(root, QString());
    }

private:
    bool isDone() const
    {
        return m_next == int(m_findings.size());
    }

    void take(const QString& path)
    {
        m_tags.next();
        for (; !isDone() && m_findings[m_next].ordinal == m_ordinal; ++m_next) {
            Finding& finding = m_findings[m_next];
            finding.path = path;
            if (!m_hasText)
                continue;
            finding.line = m_tags.line();
            finding.column = m_tags.column();
        }
        ++m_ordinal;
    }

    void descend(const QDomElement& parent, const QString& path)
    {
        Labels labels;
        for (QDomElement child = parent.firstChildElement(); !child.isNull() && !isDone();
             child = child.nextSiblingElement()) {
            const QString childPath = joined(path, labels.next(child));
            take(childPath);
            descend(child, childPath);
        }
    }

    QVector<Finding>& m_findings;
    StartTags m_tags;
    bool m_hasText; ///< Otherwise lines are not known.
    int m_next = 0;
    int m_ordinal = 0;
};

/// What starts with the byte order mark of another encoding is decoded by it.
QByteArray inUtf8(const QByteArray& bytes)
{
    const bool isMarked = bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff") ||
                          bytes.startsWith(QByteArray("\0\0\xfe\xff", 4));
    if (!isMarked)
        return bytes;
    QTextStream stream(bytes);
    stream.setAutoDetectUnicode(true);
    return stream.readAll().toUtf8();
}

} // namespace

void givePlaces(QVector<Finding>& findings, const Document& document)
{
    if (findings.isEmpty())
        return;
    QFile file(PathToOpen(document.Path()));
    QByteArray bytes;
    if (!document.IsInMemory() && file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    Placing(findings, inUtf8(bytes)).run(document.Root());
}

} // namespace rvopen::toolkit
