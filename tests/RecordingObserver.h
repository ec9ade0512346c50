// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>

#include <QString>
#include <QStringList>

#include <functional>
#include <vector>

namespace rvopen::test {

/// "p" for a <p/>, "p:Name" for one that has a name.
inline QString labelOf(const QDomNode& node)
{
    const QString name = node.toElement().attribute("name");
    return name.isEmpty() ? node.nodeName() : node.nodeName() + QLatin1Char(':') + name;
}

/// Keeps what it is told, as changes and as lines of text, where "." ends a block.
class RecordingObserver : public RVOpenObserver {
public:
    using RVOpenObserver::RVOpenObserver;

    void Changed(const RVOpenChange& change) override
    {
        changes.push_back(change);
        lines << lineOf(change);
        if (whenTold)
            whenTold(change);
    }
    void BlockEnded() override
    {
        lines << QStringLiteral(".");
    }

    /// All lines up to now, which are forgotten.
    QString take()
    {
        const QString all = lines.join(QLatin1Char('\n'));
        lines.clear();
        return all;
    }

    std::vector<RVOpenChange> changes;
    QStringList lines;
    std::function<void(const RVOpenChange&)> whenTold;

private:
    static QString quoted(const QString& value)
    {
        return value.isNull() ? QStringLiteral("nothing") : QLatin1Char('\'') + value + '\'';
    }
    static QString childLine(const char* what, const RVOpenChange& change)
    {
        return QStringLiteral("%1 %2 in %3 at %4")
            .arg(QLatin1String(what), labelOf(change.node), labelOf(change.parent))
            .arg(change.Row());
    }
    static QString lineOf(const RVOpenChange& change)
    {
        switch (change.kind) {
        case RVOpenChange::AttributeSet:
            return QStringLiteral("%1 @%2: %3 -> %4")
                .arg(labelOf(change.node), change.name, quoted(change.before),
                     quoted(change.after));
        case RVOpenChange::ChildInserted:
            return childLine("inserted", change);
        case RVOpenChange::ChildAboutToBeRemoved:
            return childLine("removing", change);
        case RVOpenChange::ChildRemoved:
            return childLine("removed", change);
        case RVOpenChange::DocumentAboutToBeReset:
            return QStringLiteral("resetting ") + change.document.documentElement().nodeName();
        case RVOpenChange::DocumentReset:
            return QStringLiteral("reset to ") + change.replacement.documentElement().nodeName();
        }
        return QString();
    }
};

/// Takes changes back in the DOM, from the last to the first.
inline void takeBack(const std::vector<RVOpenChange>& changes)
{
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        QDomNode parent = change->parent;
        QDomElement element = change->node.toElement();
        switch (change->kind) {
        case RVOpenChange::AttributeSet:
            if (change->before.isNull())
                element.removeAttribute(change->name);
            else
                element.setAttribute(change->name, change->before);
            break;
        case RVOpenChange::ChildInserted:
            parent.removeChild(change->node);
            break;
        case RVOpenChange::ChildRemoved:
            if (change->previous.isNull())
                parent.insertBefore(change->node, parent.firstChild());
            else
                parent.insertAfter(change->node, change->previous);
            break;
        default:
            break;
        }
    }
}

} // namespace rvopen::test
