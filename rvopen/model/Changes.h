// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>

#include <QDomDocument>
#include <QDomElement>
#include <QDomNode>
#include <QString>

#include <atomic>
#include <memory>

namespace rvopen {

/// The observers of the calling thread.
struct Observers {
    static void add(RVOpenObserver* observer);
    static void remove(RVOpenObserver* observer);
    static RVOpenObserver* next(const RVOpenObserver* observer);
    /// Whether a change would be told to anybody now.
    static bool areListening();
    /// Whether a change would be made by who is being told of another.
    static bool areBeingTold();
    static void beginMaking();
    static void endMaking();
    static void tell(const RVOpenChange& change);
    static void beginBlock();
    static void endBlock();
    static void beginQuiet();
    static void endQuiet();
};

/// The one way to change a document that somebody may look at. What a document is built from before
/// anybody has it needs no telling. Without observers each costs little more than the DOM's own
/// operation: a test of whether there are some.
///
/// Whoever is told may walk the objects, which makes those that are missing: at each of these calls
/// the objects have to be what the document is, or will be. So an object is linked before its
/// element is inserted, and a removal is announced before the object is unlinked.
namespace changes {

/// Of the process.
extern std::atomic<int> s_observers;

inline bool areObserved()
{
    return s_observers.load(std::memory_order_relaxed) != 0;
}

/// A block that costs a test where nobody observes.
class Block {
public:
    Block()
        : m_counts(areObserved())
    {
        if (m_counts)
            Observers::beginBlock();
    }
    ~Block()
    {
        if (m_counts)
            Observers::endBlock();
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

private:
    bool m_counts;
};

/// A scope between two calls.
template <void (*begin)(), void (*end)()>
class Scope {
public:
    Scope()
    {
        begin();
    }
    ~Scope()
    {
        end();
    }
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
};

/// In which nothing is told, since nobody has what changes.
using Quiet = Scope<&Observers::beginQuiet, &Observers::endQuiet>;
/// In which an object is made: what of its element comes with that is told, and may happen to who
/// is being told of something, since reading makes objects.
using Making = Scope<&Observers::beginMaking, &Observers::endMaking>;

/// An attribute's value, null only where there is none.
QString attributeOf(const QDomElement& element, const QString& name);
void setAttribute(QDomElement& element, const QString& name, const QString& value);
/// Nothing happens where there is none of that name.
void removeAttribute(QDomElement& element, const QString& name);
/// Puts \p child, wherever it stands, under \p parent behind \p previous, for null as the first.
void insertBehind(const QDomNode& parent, const QDomNode& child, const QDomNode& previous);
/// The same for one that stands nowhere, in two steps: what comes between them is done before
/// anybody is told.
/// @{
void insertUntold(const QDomNode& parent, const QDomNode& child, const QDomNode& previous);
void tellOfInserted(const QDomNode& parent, const QDomNode& child);
/// @}
/// The same as the last.
void append(const QDomNode& parent, const QDomNode& child);
/// Takes the node out of where it stands; nothing happens to one that stands nowhere.
void remove(const QDomNode& node);

/// A removal of which the objects are in the middle: announced when this is made, and to be carried
/// out once the objects have let go of the node. A node that is no child of the parent stays.
class Removal {
public:
    Removal(const QDomNode& parent, const QDomNode& node)
        : m_parent(parent)
        , m_node(node)
    {
        if (areObserved())
            announce();
    }
    /// Out of where it stands.
    explicit Removal(const QDomNode& node)
        : Removal(node.parentNode(), node)
    {
    }
    ~Removal()
    {
        if (m_change)
            Observers::endBlock();
    }
    Removal(const Removal&) = delete;
    Removal& operator=(const Removal&) = delete;

    /// The node, or a null one when it was no child.
    QDomNode carryOut();

private:
    void announce();

    QDomNode m_parent;
    QDomNode m_node;
    std::unique_ptr<RVOpenChange> m_change;
};

/// The scope in which a document goes and another one may take its place: nothing else is told.
class Reset {
public:
    /// \p document may be null.
    explicit Reset(const QDomDocument& document);
    ~Reset();
    Reset(const Reset&) = delete;
    Reset& operator=(const Reset&) = delete;

    void replaceBy(const QDomDocument& document);

private:
    RVOpenChange m_change;
    bool m_isTold;
};

} // namespace changes
} // namespace rvopen
