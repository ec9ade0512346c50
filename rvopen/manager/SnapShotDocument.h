// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/SnapShots.h>
#include <rvopen/manager/Retired.h>
#include <rvopen/model/Names.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>

#include <memory>
#include <vector>

namespace rvopen {

class Background;
class SnapShot;
struct RVOpenChange;

/// The snapshot document of a manager with the objects over it.
class SnapShotDocument {
public:
    /// Without a document. What a host may still hold when something newer takes its place goes to
    /// \p retired.
    explicit SnapShotDocument(Retired& retired);
    ~SnapShotDocument();
    SnapShotDocument(const SnapShotDocument&) = delete;
    SnapShotDocument& operator=(const SnapShotDocument&) = delete;

    /// \name The document
    /// @{

    /// Builds a fresh document. The old one is retired with its objects, but for the reset snapshot
    /// and the original background, which stay.
    void initialise(unsigned int major, unsigned int minor);
    /// Deletes the document with all objects.
    void clear();
    /// Takes the place of the old document, which is cleared.
    void load(std::unique_ptr<QDomDocument> document);
    /// False, with nothing changed, for what cannot be taken back here.
    bool takeBack(RVOpenChange change);
    bool exists() const;
    /// Empty without a document and for one without a root.
    QString text() const;
    void setUnitsScale(float scale);
    /// Null without a document and for one without a root.
    RVOpenNode* rootNode();
    /// @}

    /// \name Snapshots
    /// @{
    SnapShot* current() const;
    SnapShot* reset() const;
    /// The previous one, which is the caller's.
    SnapShot* setReset(SnapShot* snapShot);
    /// Whether the object is one of the document's and would be deleted with it.
    bool owns(const SnapShot* snapShot) const;
    /// A new snapshot under the root that is the caller's.
    SnapShot* createSnapShot();
    /// @}

    /// \name Collections
    /// Null where the document has none; those made on demand only without a document.
    /// @{
    SnapShots* main() const;
    SnapShots* mainOnDemand();
    SnapShots* backgrounds();
    SnapShots* cameras();
    SnapShots* materialPalettes();
    SnapShots* temporary();
    /// The collection of a type, never made for it.
    SnapShots* ofType(SnapShots::SnapShotType type) const;
    Background* originalBackground();
    /// @}

private:
    using Collection = View<SnapShots>;

    /// Null where there is none.
    QDomDocument document() const;
    void addDefaultComponents();
    void adopt(const QDomElement& element);
    void adoptBackground(const QDomElement& element);
    void adoptCollection(const QDomElement& element);
    Collection* collectionOf(const QDomElement& element);
    std::vector<RVOpenNode*> objects() const;
    void giveUp(const QDomNode& node);
    template <typename Class>
    Class* givenUp(const QDomElement& element);
    template <typename Class>
    void replaceView(View<Class>& held, Class* fresh);
    SnapShots* onDemand(Collection& collection, names::Name name);

    Retired& m_retired;
    std::unique_ptr<QDomDocument> m_document;
    QDomElement m_root;
    View<RVOpenNode> m_rootNode;
    Collection m_main;
    Collection m_backgrounds;
    Collection m_cameras;
    Collection m_materialPalettes;
    Collection m_temporary;
    View<SnapShot> m_current;
    HeldObject<SnapShot, ObjectDeleter> m_reset;
    View<Background> m_originalBackground;
    /// Of elements that a later one took the place of, valid as long as the document.
    std::vector<View<RVOpenNode>> m_replaced;
};

/// Whether the element is the collection of the model's snapshots, by its name or the one that
/// older documents use.
bool isMainCollection(const QDomElement& element);

} // namespace rvopen
