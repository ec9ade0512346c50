// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

#include <QString>

#include <vector>

namespace rvopen {

class ArtificialLightStudio;
class Background;
class Camera;
class Foreground;
class Material;
class MaterialRepository;
class NaturalLightStudio;
class RenderTargets;
class Scenery;
class Scheme;
class SnapShotSettings;

/// A saved set-up of a rendered view: an element with one child element per component.
///
/// The components belong to the snapshot: a pointer that a getter hands out is valid until that
/// component is replaced or cleared or the snapshot is deleted. One that is deleted, or added to
/// another node, is the snapshot's no more. Changes go to the document at once; deleting a snapshot
/// takes its components' elements out of it.
///
/// A walk over the children wraps the elements of the components a second time. Where an element
/// goes with its component, so does its object go out of the walk; it stays valid until the
/// snapshot is deleted.
///
/// Add operations store a deep copy of their argument (except AddSnapShotSettings()), replace the
/// component held and leave the argument to the caller; the copy moves into the snapshot's document
/// wherever the argument came from. A null argument only removes the component. When the copy
/// cannot be made for want of memory they return null and change nothing.
class RVOPEN_EXPORT SnapShot : public RVOpenNode {
public:
    /// Binds to \p node and reads its components.
    explicit SnapShot(QDomNode node);
    /// A free-standing clone with components of its own; null gives a snapshot bound to nothing.
    explicit SnapShot(RVOpenNode* source);
    /// Shallow, as RVOpenNode's: a copy shows the components of the source and owns none of them.
    /// An object that is assigned to keeps the components it had valid until it is deleted.
    SnapShot(const SnapShot& other);
    SnapShot& operator=(const SnapShot& other);
    ~SnapShot() override;

    using RVOpenNode::GetNext;
    /// The next sibling, made on demand; null if there is none or it is no snapshot.
    SnapShot* GetNext();

    /// Makes the component objects from the children of the element. Elements that have their
    /// object keep it; where two children share a name the later one counts. Parameters are read,
    /// none is created.
    void Populate();

    /// \name Components
    /// Null when absent.
    /// @{
    Scheme* GetScheme() const;
    Background* GetBackground() const;
    Foreground* GetForeground() const;
    Camera* GetCamera() const;
    SnapShotSettings* GetSnapShotSettings() const;
    Scenery* GetScenery() const;
    NaturalLightStudio* GetNaturalLightStudio() const;
    /// @}

    /// \name Components created when absent
    /// Null only when memory is exhausted.
    /// @{

    /// A new studio is enabled with an intensity scale of 1.
    ArtificialLightStudio* GetArtificialLightStudio();
    RenderTargets* GetRenderTargets();
    MaterialRepository* GetMaterialRepository();
    /// @}

    /// \name Selection in the host's list
    /// SnapShotSettings::IsSelected() and SetSelected(); StatusMissing without settings.
    /// @{
    unsigned int IsSelected(int* out);
    unsigned int SetSelected(int value);
    /// @}

    /// \name Free-standing components
    /// Not stored in the snapshot; the caller owns the result and adds it with the matching Add
    /// operation. Null when memory is exhausted.
    /// @{

    /// With all parameters.
    Camera* CreateCamera();
    /// A deep copy of \p source, or for null new settings with all parameters.
    SnapShotSettings* CreateSnapShotSettings(SnapShotSettings* source);
    /// A deep copy of \p source, or for null new scenery with all parameters.
    Scenery* CreateScenery(Scenery* source);
    /// @}

    /// \name Replacing components
    /// A copy of the argument takes the component's place, as the class comment says; what is
    /// returned is the new component.
    /// @{

    /// A new scheme also discards the background, the foreground and the natural light studio.
    Scheme* AddScheme(Scheme* scheme);
    /// The copy gets the parameters of its kind if it has none.
    Background* AddBackground(Background* background);
    Foreground* AddForeground(Foreground* foreground);
    Camera* AddCamera(Camera* camera);
    MaterialRepository* AddMaterialRepository(MaterialRepository* repository);
    NaturalLightStudio* AddNaturalLightStudio(NaturalLightStudio* studio);
    void AddScenery(Scenery* scenery);
    /// Takes the given object itself over, without a copy, out of whatever holds it.
    void AddSnapShotSettings(SnapShotSettings* settings);
    /// A new studio with all parameters.
    NaturalLightStudio* CreateAndAddNaturalLightStudio();
    /// @}

    /// \name Removing components
    /// The component is deleted, its element taken out of the document. Nothing without one.
    /// @{
    void ClearScheme();
    void ClearBackground();
    void ClearNaturalLightStudio();
    void ClearScenery();
    /// @}

    /// Removes the base material of every material of the palette, if there is a palette, so that
    /// the snapshot carries no base materials when it is written.
    void SetupSnapShotForSerialise();

    /// \name Image files of the snapshot
    /// Names are empty while the path is. The name of the snapshot is made file-safe as
    /// XMLUtils::ReplaceIllegalCharacters() does.
    /// @{

    /// Folder of the snapshot's image files; at first the snapshots folder of the archive registry.
    /// An empty string keeps the old path.
    void SetSnapShotPath(QString path);
    /// "icon_NAME.jpg" in the path.
    QString GetThumbFilename() const;
    /// "real_time_NAME.jpg" in the path.
    QString GetRealTimeFilename() const;
    /// The file-safe short file name of the first render target in the path, which brings its own
    /// prefix and extension; empty without a render target.
    QString GetPhotoFilename();
    /// @}

    /// A document of its own with this snapshot alone in a "Model SnapShots" collection, as text
    /// indented by 2, attributes by name, U+FFFD for forbidden characters.
    QString CreateSnapShotDocumentAsString() const;

private:
    friend struct NodeAccess;

    struct Components;

    /// A component, and whether this snapshot owns it: what a copy shows is another one's.
    template <typename Component>
    struct Held {
        Held() = default;
        Held(const Held& other)
            : object(other.object)
        {
        }
        Held& operator=(const Held& other)
        {
            object = other.object;
            owned = false;
            return *this;
        }

        Component* object = nullptr;
        bool owned = false;
    };

    void ClearForeground();
    void ClearCamera();
    void ClearSnapShotSettings();
    void ClearMaterialRepository();
    void ClearArtificialLightStudio();
    void ClearRenderTargets();

    void forget(const RVOpenNode* component);
    std::vector<RVOpenNode*> components() const;
    QString fileSafeName() const;
    QString imageFilename(const QString& fileName) const;

    Held<Scheme> m_scheme;
    Held<Background> m_background;
    Held<Foreground> m_foreground;
    Held<NaturalLightStudio> m_naturalLightStudio;
    Held<ArtificialLightStudio> m_artificialLightStudio;
    Held<Camera> m_camera;
    Held<SnapShotSettings> m_snapShotSettings;
    Held<MaterialRepository> m_materialRepository;
    Held<RenderTargets> m_renderTargets;
    Held<Scenery> m_scenery;
    QString m_snapShotPath;
};

} // namespace rvopen
