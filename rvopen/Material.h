// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>

namespace rvopen {

class Bump;
class Colour;
class Finish;
class Transparency;

/// One entry of a material palette, element "material": at most one colour, finish, transparency
/// and bump, and optionally a base material, all of them child elements. Of several children of one
/// kind the first counts. A link name ties the material to an object of the host.
///
/// Components and base material belong to the material: the pointers handed out are valid until
/// they are replaced or removed or the material is deleted. No getter looks into the base material.
class RVOPEN_EXPORT Material : public RVOpenNode {
public:
    /// A free-standing clone of \p source; bound to nothing for null.
    explicit Material(RVOpenNode* source);
    /// Shallow, as RVOpenNode's.
    Material(const Material&) = default;
    Material& operator=(const Material&) = default;
    /// Removes the base material, then the material. The base material of an archive that the
    /// material stands for stays where it is.
    ~Material() override;

    using RVOpenNode::GetNext;
    /// The next sibling, or null when there is none or it is no material.
    Material* GetNext();

    /// Name of the host's object that the material belongs to, attribute "linkname"; empty when
    /// absent.
    QString GetLinkName() const;
    void SetLinkName(QString linkName);

    /// \name Components
    /// Null when absent. With \p create non-zero a component that no child element is, one that no
    /// walk comes to included, is added, empty; null then means that it could not be, and the
    /// document is unchanged.
    /// @{
    Colour* GetColour(int create);
    Finish* GetFinish();
    Transparency* GetTransparency(int create);
    Bump* GetBump(int create);
    /// @}

    /// The material that this one is layered on; null when absent.
    Material* GetBaseMaterial();

    /// \name Replacing
    /// Each deletes the present component, one that no walk comes to included, and takes over the
    /// one passed in; null just removes.
    /// What is passed must not be in another tree. Where the material stands for an archive that
    /// cannot be opened, as AddNode().
    /// @{

    /// The material's own colour stays as it is.
    void SetColour(Colour* colour);
    /// The material's own finish is deleted like any other: a copy takes its place.
    void SetFinish(Finish* finish);
    /// The material's own transparency stays as it is.
    void SetTransparency(Transparency* transparency);
    /// The material's own bump is deleted like any other: a copy takes its place.
    void SetBump(Bump* bump);
    /// The material's own base material, or one inside it, is deleted like any other: a copy takes
    /// its place.
    void SetBaseMaterial(Material* baseMaterial);
    /// @}

    /// By reference name where either material has one, else by the four components: a kind that
    /// only one of them has makes them different. With \p compareBase the base materials must be
    /// equal or both absent as well; what those are based on is not compared. False for null.
    /// May add shader nodes to the components of both. No archive is opened to compare, by this and
    /// by the Equal() of all other classes: what stands for an archive that is not open is equal to
    /// what stands for the same archive, and to nothing else.
    bool Equal(Material* other, bool compareBase);

    /// Copies every component that the material lacks and its base material has into it, whole,
    /// then removes the base material. Does nothing without a base material.
    void ConsolidateBaseMaterial();
};

} // namespace rvopen
