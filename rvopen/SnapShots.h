// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class Background;
class Camera;
class MaterialRepository;
class SnapShot;

/// A collection of snapshots: an element whose children are snapshot elements and nothing else.
class RVOPEN_EXPORT SnapShots : public RVOpenNode {
public:
    /// Which of the manager's collections a request means; any other number acts as 0.
    enum SnapShotType : int {
        TypeSnapShots = 0,        ///< "Model SnapShots"
        TypeMaterialPalettes = 1, ///< "Model Material Palettes"
        TypeBackgrounds = 2,      ///< "Model Backgrounds"
        TypeCameras = 3,          ///< "Model Cameras"
    };

    /// Binds to \p node without reading its children: call Populate().
    explicit SnapShots(QDomNode node);
    /// Shallow: both objects wrap the same element and hold the same links.
    SnapShots(const SnapShots& other);
    SnapShots& operator=(const SnapShots& other);
    ~SnapShots() override;

    /// Makes a snapshot of every child node, whatever its name and kind, in document order; text of
    /// white space alone is layout and gets none. Child nodes that have their object keep it.
    void Populate();
    /// The first snapshot whose object exists already; null if there is none or the first child is
    /// of another class. Owned by the collection.
    SnapShot* GetFirstSnapShot();
    /// Deletes the snapshots with their elements, up to the first child that is no snapshot.
    void Clear();

    /// \name Free-standing copies
    /// Neither added to this collection nor to the document's tree; the caller owns them. Null when
    /// memory is exhausted.
    /// @{

    /// A deep copy of \p source with its components, or for null a snapshot without components
    /// over a new element in this collection's document. It is given no name.
    SnapShot* CreateSnapShot(SnapShot* source);
    /// A deep copy; null for null.
    Background* CreateBackground(Background* source);
    /// A deep copy; null for null.
    Camera* CreateCamera(Camera* source);
    /// A deep copy; null for null.
    MaterialRepository* CreateMaterialRepository(MaterialRepository* source);
    /// @}
};

} // namespace rvopen
