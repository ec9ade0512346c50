// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Becoming.h"

#include <rvopen/toolkit/edit/NodePath.h>

#include <QHash>
#include <QString>
#include <QTextStream>
#include <QVector>

#include <algorithm>

namespace rvopen::browser {

namespace {

/// The same attributes, whatever their order.
QString attributesOf(const QDomNode& node)
{
    const QDomNamedNodeMap map = node.attributes();
    QStringList texts;
    for (int i = 0; i < map.count(); ++i) {
        const QDomAttr attribute = map.item(i).toAttr();
        texts << attribute.name() + QLatin1Char('\n') + attribute.value();
    }
    texts.sort();
    return texts.join(QLatin1Char('\n'));
}

/// Equal for equal nodes, with all that is in them.
QString textOf(const QDomNode& node)
{
    QString text =
        QStringLiteral("%1\t%2\t%3\t").arg(node.nodeType()).arg(node.nodeName(), node.nodeValue());
    text += attributesOf(node) + QLatin1Char('(');
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        text += textOf(child);
    return text + QLatin1Char(')');
}

struct Children {
    explicit Children(const QDomNode& parent)
    {
        for (QDomNode child = parent.firstChild(); !child.isNull(); child = child.nextSibling()) {
            nodes.append(child);
            texts.append(textOf(child));
        }
    }

    QVector<QDomNode> nodes;
    QVector<QString> texts;
};

class Becoming {
public:
    Becoming(const QDomDocument& document, const TakeBack& takeBack)
        : m_document(document)
        , m_takeBack(takeBack)
    {
    }

    bool become(const QDomNode& wanted, const QDomNode& node)
    {
        return becomeAttributes(wanted.toElement(), node.toElement()) &&
               becomeChildren(wanted, node);
    }

private:
    bool becomeAttributes(const QDomElement& wanted, const QDomElement& element)
    {
        const auto valueOf = [](const QDomElement& of, const QString& name) {
            return of.hasAttribute(name) ? QLatin1String("") + of.attribute(name) : QString();
        };
        QStringList names;
        for (const QDomElement& of : {wanted, element}) {
            const QDomNamedNodeMap map = of.attributes();
            for (int i = 0; i < map.count(); ++i)
                names << map.item(i).nodeName();
        }
        names.sort();
        names.removeDuplicates();
        return std::all_of(names.begin(), names.end(), [&](const QString& name) {
            RVOpenChange change;
            change.kind = RVOpenChange::AttributeSet;
            change.document = m_document;
            change.node = element;
            change.name = name;
            change.before = valueOf(wanted, name);
            change.after = valueOf(element, name);
            return (change.before == change.after &&
                    change.before.isNull() == change.after.isNull()) ||
                   m_takeBack(change);
        });
    }

    bool becomeChildren(const QDomNode& wanted, const QDomNode& node)
    {
        const Children target(wanted);
        Children now(node);
        // How often each is to come yet.
        QHash<QString, int> waited;
        for (const QString& text : target.texts)
            ++waited[text];
        for (int i = 0; i < int(target.nodes.size()); ++i) {
            const QString& text = target.texts[i];
            const QDomNode previous = i > 0 ? now.nodes[i - 1] : QDomNode();
            const int at = int(now.texts.indexOf(text, i));
            --waited[text];
            if (at == i)
                continue;
            if (at > i) {
                const QDomNode moved = now.nodes[at];
                if (!removeNode(moved, m_takeBack) ||
                    !insertNode(node, moved, previous, m_takeBack))
                    return false;
                now.nodes.remove(at);
                now.texts.remove(at);
                now.nodes.insert(i, moved);
                now.texts.insert(i, text);
                continue;
            }
            const bool isFree = i < int(now.nodes.size()) && waited.value(now.texts[i]) <= 0;
            if (isFree && isAlike(target.nodes[i], now.nodes[i])) {
                if (!become(target.nodes[i], now.nodes[i]))
                    return false;
                now.texts[i] = text;
                continue;
            }
            const QDomNode copy = m_document.importNode(target.nodes[i], true);
            if (!insertNode(node, copy, previous, m_takeBack))
                return false;
            now.nodes.insert(i, copy);
            now.texts.insert(i, text);
        }
        while (now.nodes.size() > target.nodes.size()) {
            if (!removeNode(now.nodes.takeLast(), m_takeBack))
                return false;
        }
        return true;
    }

    /// Whether one can become the other.
    static bool isAlike(const QDomNode& a, const QDomNode& b)
    {
        return a.isElement() && b.isElement() && a.nodeName() == b.nodeName();
    }

    QDomDocument m_document;
    const TakeBack& m_takeBack;
};

} // namespace

QDomElement elementAt(const QDomDocument& document, const QString& path)
{
    const QVector<toolkit::PathPattern::Match> found =
        toolkit::PathPattern(QLatin1Char('/') + path).Find(document.documentElement());
    return found.isEmpty() ? QDomElement() : found.first().element;
}

bool insertNode(const QDomNode& parent, const QDomNode& node, const QDomNode& previous,
                const TakeBack& takeBack)
{
    RVOpenChange change;
    change.kind = RVOpenChange::ChildRemoved;
    change.document = parent.ownerDocument();
    change.node = node;
    change.parent = parent;
    change.previous = previous;
    return takeBack(change);
}

bool removeNode(const QDomNode& node, const TakeBack& takeBack)
{
    RVOpenChange change;
    change.kind = RVOpenChange::ChildInserted;
    change.document = node.ownerDocument();
    change.node = node;
    change.parent = node.parentNode();
    change.previous = node.previousSibling();
    return takeBack(change);
}

bool becomeAs(const QDomElement& wanted, const QDomElement& element, const TakeBack& takeBack)
{
    return Becoming(element.ownerDocument(), takeBack).become(wanted, element);
}

} // namespace rvopen::browser
