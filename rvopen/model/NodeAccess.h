// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

/// The links of a node, for the classes that keep chains of their own.
struct NodeAccess {
    static RVOpenNode* firstChild(const RVOpenNode* node)
    {
        return node->m_firstChild;
    }
    static void setFirstChild(RVOpenNode* node, RVOpenNode* child);
    static RVOpenNode* next(const RVOpenNode* node)
    {
        return node->m_next;
    }
    /// The first child from the node's own element, never from an archive.
    static RVOpenNode* ownFirstChild(RVOpenNode* node)
    {
        return node->GetChild(1, 0);
    }
    /// The last child of the node's own chain, with all up to it made; null when none is made.
    static RVOpenNode* lastChild(const RVOpenNode* node)
    {
        return node->m_firstChild ? node->m_firstChild->endOfChain() : nullptr;
    }
    /// Links \p child behind \p last, which lastChild() gave.
    static void linkLast(RVOpenNode* node, RVOpenNode* last, RVOpenNode* child)
    {
        if (last)
            node->m_firstChild->linkBehind(last, child);
        else
            setFirstChild(node, child);
    }
    /// Takes a child out of the node's own chain; its element stays.
    static void unlink(RVOpenNode* node, RVOpenNode* child)
    {
        node->unlinkHere(child);
    }
    /// Detaches a child of the node's own chain, without looking at archives.
    static void detachOwn(RVOpenNode* node, RVOpenNode* child)
    {
        node->detachHere(child);
    }
    /// Takes a child of the node, or of the archive that it stands for, out and deletes it with its
    /// element. The file of an archive that the child itself stands for stays.
    static void removeChild(RVOpenNode* node, RVOpenNode* child)
    {
        node->DetachNode(child, true);
        delete child;
    }
    /// The node whose chain holds the children: the node itself, or the root of the archive that it
    /// stands for; null when that archive cannot be opened.
    static RVOpenNode* childOwner(RVOpenNode* node);
    /// After the element was moved to another document by hand.
    static void holdDocument(RVOpenNode* node)
    {
        node->holdDocument();
    }

    /// A new object of the class that stands for the node: RVOpenSchema::createNode().
    static RVOpenNode* make(const QDomNode& node);
    /// What is known to be an element need not be asked whether it is one.
    static void bind(RVOpenNode* node, const QDomElement& element)
    {
        node->bind(element, element);
    }
    static void bind(RVOpenNode* object, const QDomNode& node)
    {
        object->SetDomNode(node);
    }

    /// Attributes by the names of Names.h.
    static QString attribute(const RVOpenNode* node, const QString& name)
    {
        return node->attribute(name);
    }
    static void setAttribute(RVOpenNode* node, const QString& name, const QString& value)
    {
        node->setAttribute(name, value);
    }

    /// Deletes the object with its subtree and the siblings after it, leaving every element in the
    /// document: what goes is the view, not the data.
    static void dropView(RVOpenNode* node);
    /// True while a view is being dropped: destructors leave the document alone then.
    static bool isDroppingView();
};

/// For as long as it lives, archive references reach the archives that are open already: none is
/// opened on demand.
class ArchivesStayClosed {
public:
    ArchivesStayClosed();
    ~ArchivesStayClosed();
    ArchivesStayClosed(const ArchivesStayClosed&) = delete;
    ArchivesStayClosed& operator=(const ArchivesStayClosed&) = delete;

private:
    bool m_outer;
};

} // namespace rvopen
