// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Likeness.h"

#include "Folding.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <algorithm>
#include <cstdlib>
#include <numeric>
#include <vector>

namespace rvopen::toolkit {

namespace {

/// How many letters are to be put in, taken out, replaced or swapped with the next to make one text
/// of the other. What is more than \p most is some number above it.
int distance(const QString& a, const QString& b, int most)
{
    const int height = int(a.size());
    const int width = int(b.size());
    if (std::abs(height - width) > most)
        return most + 1;
    const auto columns = std::size_t(width) + 1;
    std::vector<int> before(columns);
    std::vector<int> last(columns);
    std::vector<int> row(columns);
    std::iota(last.begin(), last.end(), 0);
    for (int i = 1; i <= height; ++i) {
        row[0] = i;
        for (int j = 1; j <= width; ++j) {
            const auto at = std::size_t(j);
            const int replaced = last[at - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            row[at] = std::min({last[at] + 1, row[at - 1] + 1, replaced});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                row[at] = std::min(row[at], before[at - 2] + 1);
        }
        if (*std::min_element(row.begin(), row.end()) > most)
            return most + 1;
        before.swap(last);
        last.swap(row);
    }
    return last.back();
}

/// Takes one candidate after the other and keeps the nearest.
class Nearest {
public:
    explicit Nearest(const QString& word, int lettersPerSlip = 3)
        : m_word(word)
        , m_folded(folded(word))
        , m_most(int(std::count_if(word.cbegin(), word.cend(),
                                   [](QChar c) { return c.isLetterOrNumber(); })) /
                 lettersPerSlip)
    {
    }

    void offer(const QString& candidate)
    {
        if (candidate == m_word)
            m_isThere = true;
        const int away = distance(m_folded, folded(candidate), m_most);
        if (away > m_most)
            return;
        m_found = candidate;
        // The next one has to be nearer.
        m_most = away - 1;
    }

    /// Empty also where the word itself was among them: the mistake is another one then.
    QString found() const
    {
        return m_isThere ? QString() : m_found;
    }

private:
    QString m_word;
    QString m_folded;
    int m_most;
    QString m_found;
    bool m_isThere = false;
};

/// What stands before each "/" or ":" and behind the last, with these signs before it.
QStringList partsOf(const QString& path)
{
    QStringList parts{QString()};
    bool isInBrackets = false;
    for (int i = 0; i < int(path.size()); ++i) {
        const QChar c = path[i];
        if (c == QLatin1Char('['))
            isInBrackets = true;
        else if (c == QLatin1Char(']'))
            isInBrackets = false;
        else if (!isInBrackets && i > 0 && (c == QLatin1Char('/') || c == QLatin1Char(':')))
            parts << QString();
        parts.last() += c;
        if (c == QLatin1Char('\\') && i + 1 < int(path.size()))
            parts.last() += path[++i];
    }
    return parts;
}

/// "camera" of "camera[Above]#2"; a parameter as it is.
QString withoutName(const QString& part)
{
    if (part.startsWith(QLatin1Char(':')))
        return part;
    return part.section(QLatin1Char('['), 0, 0).section(QLatin1Char('#'), 0, 0);
}

/// "Above" of "camera[Above]#2".
QString nameIn(const QString& part)
{
    return part.section(QLatin1Char('['), 1).section(QLatin1Char(']'), 0, -2);
}

bool meansMany(const QString& path)
{
    return path.contains(QLatin1Char('*')) || path.contains(QLatin1String("//")) ||
           path.contains(QLatin1String("[@")) || path.contains(QLatin1String("[:"));
}

} // namespace

QString likeliest(const QString& word, const QStringList& candidates, int lettersPerSlip)
{
    Nearest nearest(word, lettersPerSlip);
    for (const QString& candidate : candidates)
        nearest.offer(candidate);
    return nearest.found();
}

QString likeliestKind(const QString& kind, const QStringList& kinds)
{
    return likeliest(kind, kinds, 2);
}

QString likeliestPath(const QString& path, const QDomElement& root)
{
    if (meansMany(path))
        return QString();
    const bool isAnchored = path.startsWith(QLatin1Char('/'));
    const QString text = isAnchored ? path.mid(1) : path;
    const int at = int(text.lastIndexOf(QLatin1Char('@')));
    const QString place = text.left(at);
    const int depth = place.isEmpty() ? 0 : int(partsOf(place).size());
    Nearest nearest(text);
    const auto offer = [&nearest, at](const QDomElement& element, const QString& candidate) {
        if (at < 0) {
            nearest.offer(candidate);
            return;
        }
        const QDomNamedNodeMap attributes = element.attributes();
        for (int i = 0; i < attributes.count(); ++i)
            nearest.offer(candidate + QLatin1Char('@') + attributes.item(i).nodeName());
    };
    if (depth == 0)
        offer(root, QString());
    Walk(root, QString(), [&](const QDomElement& element, const QString& elementPath) {
        QStringList parts = partsOf(elementPath);
        if (depth == 0 || (isAnchored && int(parts.size()) > depth))
            return false;
        if (int(parts.size()) < depth || (isAnchored && int(parts.size()) != depth))
            return true;
        parts = parts.mid(parts.size() - depth);
        if (parts.first().startsWith(QLatin1Char('/')))
            parts.first().remove(0, 1);
        if (place.contains(QLatin1Char('['))) {
            offer(element, parts.join(QString()));
            return true;
        }
        // Kinds alone, and a name alone at the beginning, are a path as well.
        const QString name = nameIn(parts.first());
        for (QString& part : parts)
            part = withoutName(part);
        offer(element, parts.join(QString()));
        if (!name.isEmpty()) {
            parts.first() = name;
            offer(element, parts.join(QString()));
        }
        return true;
    });
    const QString found = nearest.found();
    return isAnchored && !found.isEmpty() ? QLatin1Char('/') + found : found;
}

QString nothingHas(const QString& path, const QDomElement& root)
{
    return noSuchPath(path, likeliestPath(path, root));
}

QString noSuchPath(const QString& path, const QString& likely)
{
    return QStringLiteral("nothing has the path \"%1\"").arg(path) + didYouMean(likely);
}

QString didYouMean(const QString& likely)
{
    return likely.isEmpty() ? QString() : QStringLiteral("; did you mean \"%1\"?").arg(likely);
}

} // namespace rvopen::toolkit
