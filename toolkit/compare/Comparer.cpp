// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/compare/Comparer.h>

#include "Members.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QHash>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit {

namespace {

QString attribute(const QDomElement& element, const char* name)
{
    return element.attribute(QLatin1String(name));
}

/// The longest run of positions that is in order already; what is not in it was moved.
QSet<int> inOrder(const QVector<int>& positions)
{
    QVector<int> ends;
    QVector<int> previous(positions.size(), -1);
    for (int i = 0; i < int(positions.size()); ++i) {
        const auto at = std::lower_bound(ends.begin(), ends.end(), i, [&positions](int a, int b) {
            return positions[a] < positions[b];
        });
        if (at != ends.begin())
            previous[i] = *(at - 1);
        if (at == ends.end())
            ends.append(i);
        else
            *at = i;
    }
    QSet<int> result;
    for (int i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = previous[i])
        result.insert(i);
    return result;
}

} // namespace

class Comparer::Engine {
public:
    explicit Engine(const Comparison& comparison)
        : m_comparison(comparison)
    {
    }

    QVector<Difference> run(const QDomElement& before, const QDomElement& after)
    {
        m_removed.clear();
        m_added.clear();
        m_differences.clear();
        compareElements(before, QString(), after, QString());
        pairUp();
        for (const Member& child : m_removed)
            m_differences.append(
                {DifferenceKind::Removed, child.element.tagName(), child.path, {}, {}, {}});
        for (const Member& child : m_added)
            m_differences.append(
                {DifferenceKind::Added, child.element.tagName(), child.path, {}, {}, {}});
        return m_differences;
    }

private:
    void compareElements(const QDomElement& before, const QString& fromPath,
                         const QDomElement& after, const QString& path)
    {
        if (before.tagName() != after.tagName())
            change(after, path, before.tagName(), after.tagName());
        if (isParam(before) && isParam(after))
            compareValues(before, after, path);
        compareAttributes(before, after, path);
        const QVector<Member> old = membersOf(before, fromPath);
        const QVector<Member> now = membersOf(after, path);
        QHash<QString, int> positions;
        for (int i = 0; i < int(now.size()); ++i)
            positions.insert(now[i].key, i);
        QVector<QPair<int, int>> pairs;
        QSet<int> matched;
        for (int i = 0; i < int(old.size()); ++i) {
            const int position = positions.value(old[i].key, -1);
            if (position < 0) {
                lose(old[i], m_removed);
                continue;
            }
            pairs.append({i, position});
            matched.insert(position);
        }
        if (isContainer(after))
            compareOrder(old, now, pairs);
        for (int i = 0; i < int(now.size()); ++i) {
            if (!matched.contains(i))
                lose(now[i], m_added);
        }
        for (const auto& pair : pairs)
            compareElements(old[pair.first].element, old[pair.first].path, now[pair.second].element,
                            now[pair.second].path);
    }

    /// A folder's members may be somewhere else: each counts for itself.
    static void lose(const Member& child, QVector<Member>& list)
    {
        list.append(child);
        const QString tag = child.element.tagName();
        if (tag != QLatin1String("dir") && !Vocabulary::instance().isSection(tag))
            return;
        for (const Member& member : membersOf(child.element, child.path))
            lose(member, list);
    }

    void compareOrder(const QVector<Member>& old, const QVector<Member>& now,
                      const QVector<QPair<int, int>>& pairs)
    {
        QVector<int> positions;
        for (const auto& pair : pairs)
            positions.append(pair.second);
        const QSet<int> settled = inOrder(positions);
        for (int i = 0; i < int(pairs.size()); ++i) {
            if (settled.contains(i) || isParam(now[pairs[i].second].element))
                continue;
            const Member& child = now[pairs[i].second];
            m_differences.append({DifferenceKind::Moved,
                                  child.element.tagName(),
                                  child.path,
                                  old[pairs[i].first].path,
                                  {},
                                  {}});
        }
    }

    /// What went from one place and came to another was moved.
    void pairUp()
    {
        QHash<QString, QVector<int>> added;
        for (int i = 0; i < int(m_added.size()); ++i) {
            const QString key = moveKey(m_added[i]);
            if (!key.isEmpty())
                added[key].append(i);
        }
        QSet<int> arrived;
        QVector<Member> gone;
        QVector<QPair<Member, Member>> moves;
        for (const Member& child : m_removed) {
            QVector<int>& candidates = added[moveKey(child)];
            if (moveKey(child).isEmpty() || candidates.isEmpty()) {
                gone.append(child);
                continue;
            }
            const int index = candidates.takeFirst();
            arrived.insert(index);
            moves.append({child, m_added[index]});
        }
        QVector<Member> come;
        for (int i = 0; i < int(m_added.size()); ++i) {
            if (!arrived.contains(i))
                come.append(m_added[i]);
        }
        m_removed = gone;
        m_added = come;
        for (const auto& move : moves) {
            m_differences.append({DifferenceKind::Moved,
                                  move.second.element.tagName(),
                                  move.second.path,
                                  move.first.path,
                                  {},
                                  {}});
            // The members of folders and sections count for themselves.
            if (!isContainer(move.first.element))
                compareElements(move.first.element, move.first.path, move.second.element,
                                move.second.path);
        }
    }

    static QString moveKey(const Member& child)
    {
        const QDomElement& element = child.element;
        if (isParam(element))
            return QString();
        const QString refName = attribute(element, "refname");
        const QString name = refName.isEmpty() ? attribute(element, "name") : refName;
        return name.isEmpty() ? QString() : element.tagName() + QLatin1Char('/') + name;
    }

    void compareValues(const QDomElement& before, const QDomElement& after, const QString& path)
    {
        const QString oldType = attribute(before, "type");
        const QString newType = attribute(after, "type");
        const QString old = m_before.Text(before);
        const QString now = m_after.Text(after);
        if (oldType != newType)
            change(after, attributePath(path, QStringLiteral("type")), oldType, newType);
        if (!isEqual(old, now, newType))
            change(after, path, old, now);
    }

    bool isEqual(const QString& a, const QString& b, const QString& type) const
    {
        if (a == b)
            return true;
        if (m_comparison.tolerance <= 0 || type == QLatin1String("string") ||
            type == QLatin1String("shader"))
            return false;
        const QStringList first = a.split(QLatin1Char(' '));
        const QStringList second = b.split(QLatin1Char(' '));
        if (first.size() != second.size())
            return false;
        for (int i = 0; i < int(first.size()); ++i) {
            double x = 0;
            double y = 0;
            // What was written as a number with six digits is no exact multiple of the tolerance.
            if (!ToNumber(first[i], x) || !ToNumber(second[i], y) ||
                std::abs(x - y) > m_comparison.tolerance * (1 + 1e-9) + std::abs(x) * 1e-12)
                return false;
        }
        return true;
    }

    void compareAttributes(const QDomElement& before, const QDomElement& after, const QString& path)
    {
        QMap<QString, QPair<QString, QString>> values;
        const QDomNamedNodeMap old = before.attributes();
        for (int i = 0; i < old.count(); ++i)
            values[old.item(i).nodeName()].first = old.item(i).nodeValue();
        const QDomNamedNodeMap now = after.attributes();
        for (int i = 0; i < now.count(); ++i)
            values[now.item(i).nodeName()].second = now.item(i).nodeValue();
        for (auto it = values.cbegin(); it != values.cend(); ++it) {
            const bool isValue = isParam(after) && (it.key() == QLatin1String("val") ||
                                                    it.key() == QLatin1String("type"));
            if (!isValue && it->first != it->second &&
                !m_comparison.ignoredAttributes.contains(it.key()))
                change(after, attributePath(path, it.key()), it->first, it->second);
        }
    }

    void change(const QDomElement& element, const QString& path, const QString& before,
                const QString& after)
    {
        m_differences.append(
            {DifferenceKind::Changed, element.tagName(), path, QString(), before, after});
    }

    Comparison m_comparison;
    ParamValues m_before;
    ParamValues m_after;
    QVector<Member> m_removed;
    QVector<Member> m_added;
    QVector<Difference> m_differences;
};

Comparer::Comparer(const Comparison& comparison)
    : m_engine(std::make_unique<Engine>(comparison))
{
}

Comparer::~Comparer() = default;

QVector<Difference> Comparer::Run(const QDomElement& before, const QDomElement& after)
{
    return m_engine->run(before, after);
}

} // namespace rvopen::toolkit
