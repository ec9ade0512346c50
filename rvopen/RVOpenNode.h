// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/ORVBase.h>
#include <rvopen/ParamHelper.h>

#include <QDomDocument>
#include <QDomElement>
#include <QDomNode>
#include <QString>
#include <QtGlobal>

#include <atomic>
#include <vector>

namespace rvopen {

/// Base of every class of the model: one DOM node plus its place in the object tree.
///
/// All data lives in the DOM element; the object holds only links. Reading a property reads an
/// attribute, writing one sets it at once, so the document can be saved at any moment. An attribute
/// that is present but empty reads as absent. On a node that is bound to nothing, getters report
/// absence and setters do nothing.
///
/// Object tree: children and siblings become objects when they are first asked for, through
/// RVOpenSchema::createNode(). A node owns its first child and its next sibling: deleting a node
/// deletes its subtree and every sibling after it, and takes their elements out of the document.
/// To delete one node alone use DeleteNode() on its parent. Pointers handed out by the tree stay
/// owned by it and are valid until the node, one of its ancestors or an earlier sibling is deleted.
/// A node may be deleted wherever it is, as may one on the stack that was added: it leaves the
/// chain that it is in.
///
/// Lifetime of the document: a node holds a handle to its document, so a node that was cloned or
/// detached stays usable after everybody else let go of that document. With all objects over it a
/// document is used by one thread at a time, clones among them.
///
/// Archive references: a node whose element carries a non-empty "archiveFilename" stands for the
/// root of an archive file; asking for children, adding, inserting, detaching, deleting and
/// replacing children act on the root node of that archive, which is opened on demand. A document
/// reaches archives in the folder of their type only: a reference whose "path" or "archiveFilename"
/// leads out of it, with ".." or by a link on the way, or whose type has no folder, stands for an
/// archive that cannot be opened, and deleting it deletes no file. The file of an archive is
/// deleted by DeleteNode() on the reference and by DirectoryHandler::RemoveArchive(), and by
/// nothing else: what a setter, a load or a clear removes or replaces leaves it.
class RVOPEN_EXPORT RVOpenNode : public ORVBase {
public:
    /// Border drawn around a preview; any other number is kept as it is.
    enum ImageBorder : int {
        ImageBorderNone = 0,     ///< Read when the attribute is absent or empty.
        ImageBorderImported = 1, ///< Set on snapshots that came from another document.
    };

    RVOpenNode();
    /// A free-standing clone: a deep copy of \p source's element in the same document, without a
    /// DOM parent until it is linked into a tree. A null source gives a node bound to nothing.
    explicit RVOpenNode(RVOpenNode* source);
    /// Shallow: both objects wrap the same element and show the same links, and the parameter list
    /// still designates the source. A copy owns nothing: its end deletes no node and takes no
    /// element out of the document, so copy and source may go in either order. What it shows is
    /// valid as long as it is in the source; what is added below a copy that shows no children goes
    /// with the copy, and its element stays.
    RVOpenNode(const RVOpenNode& other);
    /// Makes this object a copy, as above. Its old element stays in the document, and objects of
    /// its old children stay valid until it is deleted. An object that stands in a chain keeps its
    /// place there, that is its parent and its next sibling.
    RVOpenNode& operator=(const RVOpenNode& other);
    /// Leaves the chain that it is in, deletes the subtree and the following siblings, then takes
    /// the element out of its parent.
    virtual ~RVOpenNode();

    /// First child. With \p create zero only the child that was already made, else made on demand;
    /// with \p followArchive non-zero an archive reference answers with the first child of the
    /// archive, null if the archive cannot be opened.
    virtual RVOpenNode* GetChild(int create, int followArchive);

    /// \name The wrapped DOM node
    /// @{

    /// A handle to the node; null when this object is bound to nothing.
    QDomNode GetDomNode() const;
    /// Binds this object to \p node; links are not touched.
    void SetDomNode(QDomNode node);
    /// The element's tag name.
    QString GetNodeName() const;
    /// @}

    /// \name Links
    /// @{
    /// Null for a root, a node that was never added and a component of a snapshot. Of a node that
    /// was detached the former parent, which may be gone.
    RVOpenNode* GetParent() const;
    /// Sets the parent link and, for a non-null \p parent, moves the element under the parent's
    /// element if it is not there.
    void SetParent(RVOpenNode* parent);
    /// Next sibling. With \p create zero only the one that was already made.
    RVOpenNode* GetNext(int create);
    /// Sets the next link: no DOM change, nothing is freed. A node stands behind one other only, so
    /// a link that led to \p next before ends. What stood behind this node becomes a chain of its
    /// own, which the caller owns. Nothing happens when \p next is this node, stands before it or
    /// is one of its ancestors.
    void SetNext(RVOpenNode* next);
    /// The node's own parameter list, valid as long as the node.
    ParamHelper* GetParamHelper();
    /// @}

    /// \name Counting
    /// @{
    /// Number of nodes from this one to the end of its chain, this one included.
    int GetNumSiblings();
    /// Number of children in the chain that starts at the first child *already made*: 0 on a node
    /// whose children were never asked for. Call GetChild(1, 1) first for a true count.
    int GetNumChildren();
    /// 0-based position of \p child, or the number of children when it is not one.
    int GetChildPos(RVOpenNode* child);
    /// @}

    /// \name Changing the tree
    /// A node that is added moves: it leaves the chain or the snapshot that it is in, whichever
    /// tree that is, and so does its element, and it may be one of this node's children already. An
    /// element that stands in another document is copied and stays there; the chain there gets a
    /// new object for it, so that a walk still meets every element. Siblings that a walk from a
    /// free node made do not come along: they stay bound to their elements, and valid until that
    /// node is deleted. Null, and a node that is this node or one of its ancestors, are ignored.
    /// @{

    /// Appends \p child as the last child and takes ownership. Where the element is copied, the
    /// child is a view of its old one still: it writes there, and its end leaves it there. When
    /// this node stands for an archive that cannot be opened, the element is added under this
    /// element but the caller keeps the object.
    void AddNode(RVOpenNode* child, bool followArchive);
    /// Inserts \p child so that it becomes child number \p index (0-based; past the end appends)
    /// and takes ownership. Where the element is copied, the child and all objects below it are
    /// bound to the copy. When this node stands for an archive that cannot be opened, as AddNode().
    void InsertNode(RVOpenNode* child, int index);
    /// Unlinks \p child in objects and DOM without deleting it; the caller owns it then. Its next
    /// link is cleared, its parent link stays. A node that is not a child ends up bound to nothing
    /// and keeps its place where it is another node's child. The children of an archive reference
    /// are the archive's whatever \p followArchive says.
    void DetachNode(RVOpenNode* child, bool followArchive);
    /// Detaches and deletes \p child. Where the child itself is an archive reference whose archive
    /// is open, that archive's file is deleted from disk and its nodes with it; what lies deeper in
    /// the child keeps its files.
    void DeleteNode(RVOpenNode* child);
    /// Deletes \p oldChild and puts \p newChild, which it takes over as InsertNode() does, at its
    /// position. Nothing happens when either is null or \p oldChild is not among the children
    /// already made. The archive that \p oldChild stands for keeps its file and stays open.
    void ReplaceNode(RVOpenNode* oldChild, RVOpenNode* newChild);
    /// @}

    /// \name Typed attributes
    /// Numeric getters return StatusMissing when the attribute is absent or empty, with \p out
    /// untouched; a text that is no number gives StatusOk and 0. \p out may be null to ask for
    /// presence alone. Names are ASCII.
    /// @{
    unsigned int GetAttributeFloat(const char* name, float* out) const;
    unsigned int GetAttributeInt(const char* name, int* out) const;
    /// 1 when the text is an integer of 1 or more, else 0.
    unsigned int GetAttributeBool(const char* name, int* out) const;
    /// Empty when absent.
    QString GetAttributeString(const char* name) const;
    /// Written with 6 significant digits.
    void SetAttributeFloat(const char* name, float value);
    void SetAttributeInt(const char* name, int value);
    /// Writes "1" for any non-zero \p value, else "0".
    void SetAttributeBool(const char* name, int value);
    void SetAttributeString(const char* name, QString value);
    /// @}

    /// \name Named properties
    /// Empty when absent; an empty value reads as absent.
    /// @{

    /// Display name, attribute "name".
    QString GetName() const;
    void SetName(QString value);
    /// Category, attribute "cat".
    QString GetCat() const;
    void SetCat(QString value);
    /// Description, attribute "desc".
    QString GetDescription() const;
    void SetDescription(QString value);
    /// Sub-category: the kind within the class, attribute "subcat".
    QString GetSubCat() const;
    void SetSubCat(QString value);
    /// Attribute "shaderClass".
    QString GetShaderClass() const;
    void SetShaderClass(QString value);
    /// Folder below the thumbnails' or archives' folder, attribute "path".
    QString GetPath() const;
    void SetPath(QString value);
    /// Reference name: identity of a preset across archives, attribute "refname".
    QString GetRefName() const;
    void SetRefName(QString value);
    /// Base name of the preview image, attribute "imgname".
    QString GetImageName() const;
    void SetImageName(QString value);
    /// File name of an archive reference without folder and extension, attribute
    /// "archiveFilename".
    QString GetShortArchiveFilename() const;
    void SetShortArchiveFilename(QString value);

    /// Attribute "ImageBorder"; ImageBorderNone when absent.
    ImageBorder GetImageBorder() const;
    void SetImageBorder(ImageBorder value);
    /// @}

    /// \name Flags
    /// 0 or 1; a setter takes any non-zero value as 1.
    /// @{

    /// Attribute "enabled"; 1 when absent.
    int IsEnabled() const;
    void SetEnabled(int value);
    /// Attribute "translationDisabled"; 0 when absent.
    int IsTranslationDisabled() const;
    void SetTranslationDisabled(int value);
    /// Attribute "custom"; 0 when absent.
    int IsCustom() const;
    void SetCustom(int value);
    /// Attribute "reset"; 0 when absent.
    int IsReset() const;
    void SetReset(int value);
    /// Attribute "thumbRegenerated"; 1 when absent: the thumbnail counts as current.
    int ThumbnailRegenerated() const;
    void SetThumbnailRegenerated(int value);
    /// @}

    /// \name Float triples
    /// Colours, points and vectors as one text: three numbers separated by single blanks.
    /// @{
    QString EncodeFloat3(float a, float b, float c) const;
    /// Reads three numbers separated by any white space; one that cannot be read becomes 0.
    /// The pointers must be valid.
    void DecodeFloat3(QString text, float* a, float* b, float* c) const;
    /// @}

    /// \name Archive references
    /// @{
    /// Full path of the archive that this node stands for, empty if it stands for none: the folder
    /// of "archiveType", "path" if any, "archiveFilename" and ".rvx".
    QString GetArchiveFilename() const;
    /// Folder of "archiveType" and "path"; empty when "path" is empty, so that an archive in a
    /// sub-folder can be told from one without.
    QString GetArchiveFolder() const;
    /// @}

private:
    friend struct NodeAccess;

    /// What holds an object besides the host.
    enum HeldAs : quint32 {
        HeldByNobody,
        HeldInChain, ///< A child of a node.
        HeldAside,   ///< A component of a snapshot, or kept for a host.
        HeldOutside  ///< By a manager, a registry or a clipboard.
    };
    struct ArchiveReference;
    struct Aside;

    void bind(const QDomNode& node, const QDomElement& element);
    void forgetNotes();
    void placeUnder(RVOpenNode* parent);
    QString attribute(const QString& name) const;
    void setAttribute(const QString& name, const QString& value);
    int flag(const QString& name, int valueWhenAbsent) const;
    ArchiveReference openArchive() const;
    bool isArchiveInPlace() const;
    static QDomNode shown(QDomNode child, const RVOpenNode* owner);
    RVOpenNode* materialiseNext();
    bool canTake(const RVOpenNode* child) const;
    bool standsOutside(const RVOpenNode* parent) const;
    bool belongsTo(const RVOpenNode* other) const;
    bool fetch(RVOpenNode* child);
    void shareChildrenOf(const RVOpenNode* owner);
    void insertHere(RVOpenNode* child, int index);
    void placeElement(RVOpenNode* child, int index, const RVOpenNode* previous);
    void detachHere(RVOpenNode* node);
    void replaceHere(RVOpenNode* oldChild, RVOpenNode* newChild);

    bool isHeldByNode() const;
    RVOpenNode* holder() const;
    RVOpenNode* chainOwner() const;
    void setHolder(RVOpenNode* holder, HeldAs as);
    void clearHolder();
    Aside* aside();
    RVOpenNode* shownParent() const;
    void showParent(RVOpenNode* parent);
    RVOpenNode* lastMade() const;
    RVOpenNode* endOfChain();
    static void link(RVOpenNode* owner, RVOpenNode* previous, RVOpenNode* node);
    void unlink();
    void cut();
    void takeOut();
    void own(RVOpenNode* first);
    void keep(RVOpenNode* first);
    void leaveKeeper();
    void keepChildren();
    void deleteKept();
    void deleteAlone(bool leavesDocument);
    std::vector<RVOpenNode*> takeOutBehind();
    void shareWith(const RVOpenNode& other);
    void rebindSubtree(const QDomNode& copy);
    void holdDocument();

    QDomNode m_node;
    QDomElement m_element; ///< The node as an element, null for another kind of node.
    RVOpenNode* m_next = nullptr;
    RVOpenNode* m_firstChild = nullptr;
    union {
        RVOpenNode* m_parent = nullptr; ///< Shown to the host; followed only where it holds this.
        Aside* m_aside;                 ///< Where m_hasAside is set.
    };
    ParamHelper m_paramHelper;
    QDomDocument m_document; ///< Keeps the document alive; a QDomNode alone does not.
    /// The node before this one. The first child of a node has the last one made here, unless it is
    /// the only one; the first of a chain that nobody owns has null.
    RVOpenNode* m_previous = nullptr;
    quint32 m_heldAs : 2;
    quint32 m_hasAside : 1;
    quint32 m_leavesDocument : 1; ///< A view or a copy: its end takes no element out.
    quint32 m_sharesNext : 1;     ///< The next link is a copy of another object's.
    quint32 m_sharesChild : 1;    ///< So is the first child link.
    quint32 m_skipsBlanks : 1;    ///< Text of white space alone gets no object among the children.
    quint32 m_makesNext : 1;      ///< The next node is being made.
    quint32 m_makesChild : 1;     ///< The first child is being made.
    quint32 m_hasNotes : 1;       ///< Look-ups noted it, or what is below it.
    /// There are handles that are to be null once it goes. No bit beside the others: the root of an
    /// archive gets handles in other threads than the one that works in its tree.
    std::atomic<bool> m_isReferred{false};
};

} // namespace rvopen
