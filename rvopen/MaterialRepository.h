// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class Bump;
class Colour;
class Finish;
class Material;
class Transparency;

/// The material palette of a snapshot, element "materialRepository" with one "material" per entry.
///
/// The host ties each material to one of its objects by the material's link name, and most
/// operations address the target by it, compared exactly; where several materials share a link name
/// the first is the target. Walks over the materials end at the first child that is no material.
/// The materials belong to the palette and are valid until they are removed or it is deleted.
class RVOPEN_EXPORT MaterialRepository : public RVOpenNode {
public:
    /// A free-standing clone of \p source with the objects of its materials; bound to nothing for
    /// null.
    explicit MaterialRepository(RVOpenNode* source);
    /// Shallow, as RVOpenNode's.
    MaterialRepository(const MaterialRepository&) = default;
    MaterialRepository& operator=(const MaterialRepository&) = default;
    ~MaterialRepository() override;

    /// Makes a Material for every child node of the element, of whatever kind: each is expected to
    /// be a material. Objects that exist already stay.
    void Populate();

    /// \name The list of materials
    /// @{

    /// A new empty material in the palette's document, not part of the palette; the caller owns it
    /// until AddMaterial(). Null when memory is exhausted.
    Material* CreateMaterial();
    /// Appends \p material as the last one and takes ownership. It moves with its element: out of
    /// another palette, tree or document, and from its place in this palette to the end. Null is
    /// ignored.
    void AddMaterial(Material* material);
    /// Takes \p material out of the palette and deletes it with its element. One that is not in the
    /// palette is deleted all the same, out of the tree that it is in. When the first material is
    /// removed and no material follows it, the objects of whatever follows go too; their elements
    /// stay.
    void RemoveMaterial(Material* material);
    /// Removes materials as long as the first child is one.
    void Clear();
    /// The first child if its object exists and is a material, else null.
    Material* GetFirstMaterial();
    /// Number of materials from the first child on.
    unsigned int GetNumMaterials();
    /// The first material of that link name, or null. From the second look-up on it is where it was
    /// met before, if it has the name still; changes through objects are seen, but not that a host
    /// gave the name to an earlier material in the DOM itself.
    Material* GetMaterial(QString linkName);
    /// @}

    /// \name Changing the material of an object
    /// \p linkName names the target; where there is none the result is null and nothing changes.
    /// The target receives copies: what is passed in stays with its owner and may be a component of
    /// the target itself. Results belong to the target. Comparing may add shader nodes to both
    /// sides.
    /// @{

    /// Replaces the target's base material by a copy of \p material, which is returned; null
    /// removes it and is returned.
    Material* AddBaseMaterial(Material* material, QString linkName);
    /// Replaces the target's colour by a copy of \p colour, which is returned. Where the two are
    /// equal the target's own is kept and returned and \p alreadyPresent is set to 1; otherwise
    /// \p alreadyPresent is not touched. Null removes the colour and is returned.
    /// \p alreadyPresent may be null.
    Colour* AddColour(Colour* colour, QString linkName, int* alreadyPresent);
    /// As AddColour(), but \p alreadyPresent is set to 0 first. A finish in the reset state that is
    /// not there yet also gives the target a transparency with a plain white colour and a mask that
    /// is not inverted, in place of the one it had.
    Finish* AddFinish(Finish* finish, QString linkName, int* alreadyPresent);
    /// As AddColour(), but \p alreadyPresent is set to 0 first.
    Transparency* AddTransparency(Transparency* transparency, QString linkName,
                                  int* alreadyPresent);
    /// As AddColour(), but \p alreadyPresent is set to 0 first.
    Bump* AddBump(Bump* bump, QString linkName, int* alreadyPresent);
    /// Gives the target the four components, the reference name and the sub-category of
    /// \p material; components that it lacks are removed. The target, which is returned, keeps its
    /// link name and its base material. Where the two are equal, base materials aside, nothing
    /// changes and \p alreadyPresent is set to 1, otherwise to 0; it may be null.
    /// Null for a null \p material, with nothing changed.
    Material* ApplyMaterial(Material* material, QString linkName, int* alreadyPresent);
    /// @}
};

} // namespace rvopen
