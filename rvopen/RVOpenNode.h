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
///
/// Lifetime of the document: a node holds a handle to its document, so a node that was cloned or
/// detached stays usable after everybody else let go of that document.
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
    /// Shallow: both objects wrap the same element and hold the same links, and the parameter list
    /// still designates the source. Clear the links of one before both are destroyed.
    RVOpenNode(const RVOpenNode& other);
    RVOpenNode& operator=(const RVOpenNode& other);
    /// Deletes the subtree and the following siblings, then takes the element out of its parent.
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
    /// Null for a root or a free node.
    RVOpenNode* GetParent() const;
    /// Sets the parent link and, for a non-null \p parent, moves the element under the parent's
    /// element if it is not there.
    void SetParent(RVOpenNode* parent);
    /// Next sibling. With \p create zero only the one that was already made.
    RVOpenNode* GetNext(int create);
    /// Sets the next link alone: no DOM change, nothing is freed.
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
    /// A node that is added must not be in a tree, nor have siblings behind it that a walk made:
    /// detach it there first. Null, and a node that is this node or one of its ancestors, are
    /// ignored.
    /// @{

    /// Appends \p child as the last child and takes ownership. A child whose element stands in
    /// another document leaves a copy here and keeps its own element there; one that stands nowhere
    /// moves here. When this node stands for an archive that cannot be opened, the element is added
    /// under this element but the caller keeps the object.
    void AddNode(RVOpenNode* child, bool followArchive);
    /// Inserts \p child so that it becomes child number \p index (0-based; past the end appends)
    /// and takes ownership. An element that stands in another document is copied and the child is
    /// bound to the copy. When this node stands for an archive that cannot be opened, as AddNode().
    void InsertNode(RVOpenNode* child, int index);
    /// Unlinks \p child in objects and DOM without deleting it; the caller owns it then. Its next
    /// link is cleared, its parent link stays. A node that is not a child ends up bound to nothing.
    /// The children of an archive reference are the archive's whatever \p followArchive says.
    void DetachNode(RVOpenNode* child, bool followArchive);
    /// Detaches and deletes \p child. Where the child itself is an archive reference whose archive
    /// is open, that archive's file is deleted from disk and its nodes with it; what lies deeper in
    /// the child keeps its files.
    void DeleteNode(RVOpenNode* child);
    /// Deletes \p oldChild and puts \p newChild, which it takes over, at its position. Nothing
    /// happens when either is null or \p oldChild is not among the children already made. The
    /// archive that \p oldChild stands for keeps its file and stays open.
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

    struct ArchiveReference;

    void bind(const QDomNode& node, const QDomElement& element);
    void placeUnder(RVOpenNode* parent);
    QString attribute(const QString& name) const;
    void setAttribute(const QString& name, const QString& value);
    int flag(const QString& name, int valueWhenAbsent) const;
    ArchiveReference openArchive() const;
    bool isArchiveInPlace() const;
    RVOpenNode* materialiseNext();
    bool canTake(const RVOpenNode* child) const;
    bool standsOutside(const RVOpenNode* parent) const;
    bool hasNote() const;
    void note(RVOpenNode* previous);
    void noteChain();
    RVOpenNode* endOfChain();
    void linkBehind(RVOpenNode* last, RVOpenNode* child);
    RVOpenNode* before(RVOpenNode* first, const RVOpenNode* node) const;
    void unlinkHere(RVOpenNode* node);
    void insertHere(RVOpenNode* child, int index);
    void placeElement(RVOpenNode* child, RVOpenNode* parent, int index);
    void detachHere(RVOpenNode* node);
    void replaceHere(RVOpenNode* oldChild, RVOpenNode* newChild);
    void rebindSubtree(const QDomNode& copy);
    void holdDocument();
    void removeElement();

    QDomNode m_node;
    QDomElement m_element; ///< The node as an element, null for another kind of node.
    RVOpenNode* m_next = nullptr;
    RVOpenNode* m_firstChild = nullptr;
    RVOpenNode* m_parent = nullptr;
    ParamHelper m_paramHelper;
    QDomDocument m_document; ///< Keeps the document alive; a QDomNode alone does not.
    /// A note about the chain, good as long as the epoch lasts: the node before this one; for the
    /// first one a node from which the end is near.
    RVOpenNode* m_noted = nullptr;
    quint32 m_notedIn : 31; ///< The epoch of the note.
    quint32 m_isNoted : 1;  ///< Another node may have a note about this one.
};

} // namespace rvopen
