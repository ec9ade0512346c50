// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomElement>
#include <QDomNode>
#include <QString>

#include <algorithm>
#include <memory>
#include <vector>

/// What the nodes of a document should be after some operations on them: no more than a tree of
/// names.
namespace rvopen::fuzz {

struct Item {
    QString id;
    Item* parent = nullptr;
    std::vector<std::unique_ptr<Item>> children;
    /// The host changed the element's children behind the objects' back, or one of them has no
    /// object: the chain of objects need not follow the element's children any longer.
    bool loose = false;

    Item* insert(std::size_t position, std::unique_ptr<Item> child)
    {
        child->parent = this;
        position = std::min(position, children.size());
        const auto place = children.begin() + static_cast<std::ptrdiff_t>(position);
        return children.insert(place, std::move(child))->get();
    }

    Item* append(std::unique_ptr<Item> child)
    {
        return insert(children.size(), std::move(child));
    }

    std::size_t position() const
    {
        std::size_t result = 0;
        while (parent->children[result].get() != this)
            ++result;
        return result;
    }

    /// Out of its parent.
    std::unique_ptr<Item> take()
    {
        const auto place = parent->children.begin() + static_cast<std::ptrdiff_t>(position());
        std::unique_ptr<Item> self = std::move(*place);
        parent->children.erase(place);
        parent = nullptr;
        return self;
    }

    /// With no objects behind it, and so not loose.
    std::unique_ptr<Item> clone() const
    {
        auto copy = std::make_unique<Item>();
        copy->id = id;
        for (const auto& child : children)
            copy->append(child->clone());
        return copy;
    }

    bool isWithin(const Item* other) const
    {
        const Item* item = this;
        while (item && item != other)
            item = item->parent;
        return item != nullptr;
    }

    std::size_t count() const
    {
        std::size_t result = 1;
        for (const auto& child : children)
            result += child->count();
        return result;
    }

    QString toString() const
    {
        QString text = id;
        if (loose)
            text += QLatin1Char('~');
        if (children.empty())
            return text;
        text += QLatin1Char('(');
        for (const auto& child : children)
            text += child->toString() + QLatin1Char(' ');
        text.chop(1);
        return text + QLatin1Char(')');
    }
};

/// The name of a DOM node: attribute "id" of an element, the text of anything else.
inline QString idOf(const QDomNode& node)
{
    return node.isElement() ? node.toElement().attribute(QStringLiteral("id")) : node.nodeValue();
}

inline std::size_t positionOf(QDomNode node)
{
    std::size_t position = 0;
    for (node = node.previousSibling(); !node.isNull(); node = node.previousSibling())
        ++position;
    return position;
}

/// A shader parameter that no class stands for ends the chain of objects.
inline bool hasNoObject(const QDomNode& node)
{
    const QDomElement element = node.toElement();
    return element.tagName() == QLatin1String("param") &&
           element.attribute(QStringLiteral("type")) == QLatin1String("shader") &&
           element.attribute(QStringLiteral("val")) != QLatin1String("colour");
}

inline std::unique_ptr<Item> itemsOf(const QDomNode& node)
{
    auto item = std::make_unique<Item>();
    item->id = idOf(node);
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        item->append(itemsOf(child));
        if (hasNoObject(child))
            item->loose = true;
    }
    return item;
}

} // namespace rvopen::fuzz
