// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenExport.h>
#include <rvopen/SnapShots.h>
#include <rvopen/TemporaryItems.h>

#include <QString>
#include <QStringList>

#include <memory>

QT_BEGIN_NAMESPACE
class QDomDocument;
QT_END_NAMESPACE

namespace rvopen {

class Background;
class RVOpenNode;
class SnapShot;
struct RVOpenChange;

/// The library's entry object: owns the snapshot document with its objects and the three default
/// preset archives; loads, imports and saves; finds presets; lists textures.
///
/// Ownership: what the getters hand out belongs to the manager. Objects of the snapshot document
/// are valid until ClearSnapShotDoc() or the next load, the others until the manager is destroyed.
/// Where a load, an import or a repeated Initialise() puts a new object in the place of an old one,
/// the old one stays valid as long as that. A thread may have managers of its own; each, with all
/// that it gives, is used by one thread at a time.
///
/// Copies of a manager share all that it has: what one loads, clears or chooses the others see.
/// What is said here to go with the manager goes with the last of them.
///
/// Text: whatever writes a document, as a string or to a file, here and in the other classes,
/// writes what QDomDocument::toString() gives, with three differences. The attributes of an element
/// stand in the order of their names, so that the same document gives the same bytes each time.
/// Namespaces are declared once, and indentation is no part of any text. And the text loads again:
/// a character that XML forbids is written as U+FFFD, one that XML allows in
/// no name by its code as in "_x0020_"; what would end a CDATA section, comment or processing
/// instruction early is broken up; a prefix that nothing declares gets a declaration.
///
/// A new manager holds an empty document, made before Initialise() can tell the version: call
/// ClearSnapShotDoc() and InitialiseSnapShotDoc() after it for a document that carries it.
class RVOPEN_EXPORT RVOpenManager {
public:
    RVOpenManager();
    /// Shallow: both managers refer to the same objects. They may go in any order.
    RVOpenManager(const RVOpenManager& other);
    /// As copying. What this manager referred to goes, unless another copy refers to it.
    RVOpenManager& operator=(const RVOpenManager& other);
    ~RVOpenManager();

    /// \name Lifecycle
    /// @{

    /// Stores the version written into documents made later and reads the default archives
    /// "\xml\Default.rvx" (once), "\xml\Product_extra.rvx" and "\xml\Architectural_extra.rvx"
    /// (at each call) below \p folder, which is given without a trailing separator. Archives that
    /// cannot be read are passed over. Always StatusOk.
    unsigned int Initialise(unsigned int major, unsigned int minor, QString folder);
    /// Does nothing: everything is released by the destructor.
    void Terminate();
    /// @}

    /// \name The snapshot document
    /// @{

    /// Builds a fresh document with an empty "Model SnapShots" collection and a current snapshot
    /// with default settings and scenery. Clear the old document first.
    void InitialiseSnapShotDoc();
    /// Deletes the document and its objects, the reset snapshot included. Harmless when repeated.
    void ClearSnapShotDoc();
    /// Replaces the document by the one in the file. 1, or 0 with the document untouched when
    /// \p path is empty or the file cannot be read.
    int LoadSnapShotDocFromFile(QString path);
    /// Replaces the document by the one in the text. 1, or 0 with the document untouched when the
    /// text is not well-formed.
    int LoadSnapShotDocFromString(QString xml);
    /// The document as text indented by 2, attributes by name, U+FFFD for forbidden characters;
    /// empty without a document and for one that lost its root element. To save it, see WriteFile()
    /// and mind an empty text.
    QString GetSnapShotDocumentAsString() const;
    /// A node over the document's root element, the way to look at the whole document. Null without
    /// a document and for one without a root; the same object each time. Owned by the manager, do
    /// not delete it; valid until the document is cleared or replaced. Its children are objects of
    /// their own, beside those that the other getters give for the same elements: read through
    /// them, and change the tree through one of the two only.
    RVOpenNode* GetRootNode();
    /// RVOpenChange::TakeBack() for a change of the document, with all objects that this manager
    /// has of it, its getters' included: one whose element is taken out is not given until that is
    /// back, and stays valid as long as the document. False also for a change of another document.
    bool TakeBack(const RVOpenChange& change);
    /// Document units per scene unit, "unitsScale" of the root. Reaches only parameter objects that
    /// have not converted a value yet.
    void SetUnitsScale(float scale);
    /// @}

    /// \name Snapshots
    /// @{

    /// Null when the document has none.
    SnapShot* GetCurrentSnapShot() const;
    /// The last one given to SetResetSnapShot(); null before that and in another document.
    SnapShot* GetResetSnapShot() const;
    /// Takes ownership of \p snapShot and hands the previous reset snapshot back, which belongs to
    /// the caller then; null when there was none. What is owned already cannot be owned twice: the
    /// reset snapshot itself, the current one, members of collections and all else that the manager
    /// gave out are refused. Null is returned then, and nothing changes. To go back to the current
    /// snapshot, set a copy of it from CreateInternalSnapShot().
    SnapShot* SetResetSnapShot(SnapShot* snapShot);
    /// The current snapshot of the last imported document that had one: a later import without
    /// leaves the one of the earlier. Null before that.
    SnapShot* GetImportCurrentSnapShot() const;
    /// The "Model SnapShots" collection; null when the document has none.
    SnapShots* GetSnapShots() const;
    /// The collection of that type as far as the document has it, where the getters of most create
    /// it; null otherwise.
    SnapShots* FindSnapShots(SnapShots::SnapShotType type) const;
    /// Number of snapshots in "Model SnapShots"; 0 without one.
    int GetNumSnapShots() const;
    /// A free-standing deep copy of \p source, or for null a new snapshot "CurrSnapshot" under the
    /// document's root. The caller owns it. Null without a document or when memory is exhausted.
    SnapShot* CreateInternalSnapShot(SnapShot* source);
    /// \p base followed by a number, a name that no snapshot of the selected collection has.
    /// Numbers rise for the manager's life, so the same name never comes twice.
    QString GetNextSnapShotName(QString base, SnapShots::SnapShotType type);
    /// @}

    /// \name Collections created on demand
    /// Null only without a document.
    /// @{

    /// "Model Backgrounds".
    SnapShots* GetSnapShotsBackgrounds();
    /// "Model Cameras".
    SnapShots* GetSnapShotsCameras();
    /// "Model Material Palettes".
    SnapShots* GetSnapShotsMaterialRepositories();
    /// "Temp SnapShots", which a load does not read.
    SnapShots* GetTempSnapShots();
    /// The background as it was loaded, by default a "Horizon" one with its parameters.
    Background* GetOriginalBackground();
    /// @}

    /// \name Importing
    /// @{

    /// Reads another snapshot document, whose current snapshot GetImportCurrentSnapShot() gives
    /// then, and with \p addSnapShots appends its snapshots at once. An unreadable file changes
    /// nothing but the name of the import.
    void ImportSnapShotDoc(QString path, bool useCurrentCamera, bool addSnapShots);
    /// Appends copies of the imported document's snapshots to the main collection, which is created
    /// if the document has none; with \p useCurrentCamera they get the current snapshot's camera.
    /// Their thumbnails are copied from the imported document's folder to the snapshots folder,
    /// whole or not at all, where there is no file of that name yet. Only with its thumbnail a
    /// snapshot gets the current snapshot's session. LastWriteError() tells then of the first
    /// thumbnail that was there and could not be copied.
    void AddImportedSnapShot(bool useCurrentCamera);
    /// @}

    /// \name Archives
    /// @{

    /// Chooses the archive that look-ups search first: \p name in the folder of \p type ("Zorvane"
    /// or "Custom"). An empty name recalls the last one of that type. The archive's root node,
    /// owned by the archive registry, or null when it cannot be read.
    RVOpenNode* SetArchiveNode(QString name, QString type);
    /// The type last given to SetArchiveNode().
    QString GetArchiveType() const;
    /// The section of that element name in the chosen archive, or in the default archive with
    /// \p fromDefault; null if there is none. With archive type "Zorvane" the same section of the
    /// product or architectural extra archive, told by the chosen archive's name, is merged into it
    /// first. Owned by the archive.
    RVOpenNode* GetRVOpenNodeFromType(QString type, bool fromDefault);
    /// The first preset of the section with that reference name and, unless \p subcat is empty,
    /// that sub-category: in the chosen archive, else in the default archive; null if neither has
    /// it. The extra archives are searched only as they are merged into the chosen one, see
    /// GetRVOpenNodeFromType(). From the second look-up on it is where it was met before, if it has
    /// the name still; changes through objects are seen, but not that a host gave the name to an
    /// earlier preset in the DOM itself.
    RVOpenNode* FindRVOpenNodeFromType(QString type, QString subcat, QString refName);
    /// The same through all archives that there are: after the chosen and the default archive the
    /// two extra archives as they are, then those of the custom and of the product's folder, by
    /// their file names ("*.rvx", without sub-folders). What is open is searched as it is in
    /// memory. Of what is not, the files are scanned, and only one with a preset of that reference
    /// name is opened, in the registry. Null if none has it. No other thread may be in the tree of
    /// one of these archives meanwhile.
    RVOpenNode* FindRVOpenNodeInAllArchives(QString type, QString subcat, QString refName);
    /// Writes the document of \p rootNode to \p path in UTF-8, indented by 3, attributes by name,
    /// U+FFFD for forbidden characters. False when it cannot be written, or could not be read again
    /// (two roots, nesting beyond MaxNestingDepth); a file that was there is as it was then. The
    /// path gives the old content or the new one, whole, even if the process or the machine ends in
    /// the middle. Only where the folder may not be written, so that the file itself has to be,
    /// that may leave a mixture.
    bool SaveArchive(QString path, RVOpenNode* rootNode);
    /// A node over the root of the archive in the file, outside of the archive registry; the caller
    /// owns the node. Null when the file cannot be read.
    RVOpenNode* LoadArchive(QString path);
    /// A typed node over the root of the document in the text, bound to nothing when it is not
    /// well-formed; the caller owns the node.
    RVOpenNode* DecodeXML(QString xml);
    /// @}

    /// \name Textures
    /// @{

    /// Appends the image files that the tree of \p node refers to, as they stand, repetitions
    /// included. The size of the whole list.
    int FindRVOpenNodeTextures(RVOpenNode* node, QStringList& textures);
    /// Reduces every such reference to its file name; base materials keep theirs.
    void StripTexturePaths(RVOpenNode* node);
    /// @}

    /// The clipboard of the materials editor, owned by the manager.
    TemporaryItems* GetTemporaryItems();

private:
    struct Parts;

    int load(QDomDocument* document);

    std::shared_ptr<Parts> m_parts;
};

} // namespace rvopen
