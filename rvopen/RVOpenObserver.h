// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>

#include <QDomDocument>
#include <QDomNode>
#include <QString>

namespace rvopen {

class RVOpenNode;

/// One change of a document, as an observer is told of it. It names nodes of the document, not
/// objects: several objects may stand for one element, and for many there is none.
///
/// A copy may be kept. It keeps its nodes and their document alive, so that the changes of a time,
/// taken back from the last to the first, give the document of before; see TakeBack().
struct RVOpenChange {
    /// The kinds of changes.
    enum Kind : int {
        AttributeSet,           ///< An attribute of the node has another value.
        ChildInserted,          ///< The node stands under the parent now.
        ChildAboutToBeRemoved,  ///< The node stands there still; ChildRemoved follows at once.
        ChildRemoved,           ///< The node, with all that is in it, stands nowhere now.
        DocumentAboutToBeReset, ///< The document with its objects is about to go.
        DocumentReset,          ///< Another document took its place, or none.
    };

    Kind kind = AttributeSet; ///< What happened.
    /// The document of the node; of a reset the one that goes, null where there was none.
    QDomDocument document;
    /// Of a reset the document that takes the place, null where none does, and before it is known.
    QDomDocument replacement;
    QDomNode node;     ///< What changed, came or goes; null of a reset.
    QDomNode parent;   ///< Of children: under which node.
    QDomNode previous; ///< Of children: the node before it there, null when it is the first.
    QString name;      ///< Of attributes: which one.
    QString before;    ///< Of attributes: a null string when there was none.
    QString after;     ///< Of attributes: a null string when one was taken back that was new.

    /// Of children the 0-based position among all child nodes of the parent, text and comments
    /// too; counted when it is asked for. Valid while the observer is told, 0 for other kinds.
    RVOPEN_EXPORT int Row() const;
    /// Takes the change back: in its document, and in the objects that are made below \p root,
    /// which may be null; for the document of a manager see RVOpenManager::TakeBack(). Whoever
    /// observes is told of the opposite change, which can be taken back in turn. Those of a time
    /// have to be taken back from the last to the first, best in one RVOpenBlock.
    ///
    /// What was inserted is taken out: its objects stay valid until the one that they were children
    /// of is deleted, and show their elements still. What was removed stands in its place again,
    /// with the objects that it had where taking back took it out, and with new ones where they
    /// were deleted. One that a host detached and has still is a second object of it, whose end
    /// takes the element out, as ever.
    ///
    /// False, with nothing changed, for a reset and where the document is not as the change left
    /// it: the attribute has another value, the node stands elsewhere, or what stood before it
    /// does.
    RVOPEN_EXPORT bool TakeBack(RVOpenNode* root) const;
};

/// Is told of every change that is made through objects of the library, while it exists.
///
/// One observer for all documents is what a program with an undo of its own wants; one for a
/// document, what a window on that document wants: it hears nothing of archives, which are
/// documents of their own, also where an archive reference forwards to one. What is free-standing
/// belongs to the document that it was made in, and is told of as well: a clone that is set up
/// before it is added. Moving a node is a removal and an insertion.
///
/// Not told: edits of the DOM past the objects, and the opening of archives, which changes no
/// document. Loading, building anew and clearing a manager's document and closing an archive are a
/// reset, whatever is done for it. Setting the value that is there already is no change.
///
/// An object that is deleted in its chain takes the elements of those behind it out first, from the
/// last to the first, and its own, before the objects go; objects of a class of the host's own see
/// their elements standing nowhere then, in their destructors, which unobserved they do not.
///
/// While it is told, an observer may read and may end itself or others. It must not change any
/// document, which is asserted; getters that create what is missing are changes where it is.
///
/// An observer hears of the changes of the thread that made it, and has to end in that thread.
class RVOPEN_EXPORT RVOpenObserver {
public:
    /// For all documents.
    RVOpenObserver();
    /// For \p document, and after a reset for the one that took its place. Of a manager that is
    /// GetRootNode()->GetDomNode().ownerDocument().
    explicit RVOpenObserver(const QDomDocument& document);
    virtual ~RVOpenObserver();
    RVOpenObserver(const RVOpenObserver&) = delete;
    RVOpenObserver& operator=(const RVOpenObserver&) = delete;

    /// Told of each change when it is made; \p change is valid for the call, copies for ever.
    virtual void Changed(const RVOpenChange& change) = 0;
    /// Told once at the end of the outermost block in which this observer was told of a change. A
    /// change in no block is one by itself.
    virtual void BlockEnded();

private:
    friend struct Observers;

    QDomDocument m_document;
    RVOpenObserver* m_next = nullptr;
    RVOpenObserver* m_previous = nullptr;
    const void* m_home; ///< Stands for the thread.
    bool m_hearsAll;
    bool m_wasTold = false;
};

/// Makes the changes in its scope one for those who wait for BlockEnded(): a slider's drag, a
/// command. Blocks nest; the outermost counts. Operations of the library are blocks themselves.
class RVOPEN_EXPORT RVOpenBlock {
public:
    RVOpenBlock();
    ~RVOpenBlock();
    RVOpenBlock(const RVOpenBlock&) = delete;
    RVOpenBlock& operator=(const RVOpenBlock&) = delete;

    /// Whether the calling thread is in the scope of one. Operations of the library do not count:
    /// who is told of what they do by themselves, such as creating what is missing, can tell it
    /// from what a program does on purpose.
    static bool IsOpen();
};

} // namespace rvopen
