// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

#include <QString>

#include <atomic>

namespace rvopen {

/// What look-ups by an attribute met below a node, so that later ones need not go through all that
/// stands before. A note is a hint: a node is only answered while it belongs to what is searched
/// and has the value still, and what is changed through objects below the node ends its notes. What
/// a host puts before a node in the DOM itself, with the same value, no note knows of.
///
/// The first look-up notes nothing, since most nodes are searched once; the second notes all.
class FoundNodes {
public:
    /// What is searched.
    enum class Below { Children, Descendants };

    FoundNodes() = delete;

    /// The first node below \p top that has the value, as far as notes know; null otherwise.
    static RVOpenNode* find(const RVOpenNode* top, const QString& value);
    /// Hears that \p top is searched. True when its nodes are worth noting now.
    static bool begin(RVOpenNode* top, Below below, const QString& attribute);
    /// Notes a node in document order, after begin() was true; what has its value before stays.
    static void note(const RVOpenNode* top, const QString& value, RVOpenNode* node);
    /// Ends the notes of \p top until it is searched again from the start.
    static void end(const RVOpenNode* top);

    /// \name What nodes tell
    /// An element may have several objects: what matters is the element.
    /// @{
    /// The children of the node changed; null is ignored.
    static void childrenChanged(const RVOpenNode* node)
    {
        if (node && s_tops.load(std::memory_order_relaxed) > 0)
            changed(node, QString());
    }
    static void attributeChanged(const RVOpenNode* node, const QString& attribute)
    {
        if (s_tops.load(std::memory_order_relaxed) > 0)
            changed(node, attribute);
    }
    /// A node that is noted, or has notes, goes or stands for another element.
    static void forget(const RVOpenNode* node);
    /// @}

private:
    /// The children where \p attribute is empty.
    static void changed(const RVOpenNode* node, const QString& attribute);

    /// Nodes with notes, in all threads.
    static std::atomic<int> s_tops;
};

} // namespace rvopen
