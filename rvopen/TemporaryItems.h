// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/ORVBase.h>
#include <rvopen/RVOpenExport.h>

#include <QString>

#include <memory>

namespace rvopen {

class Bump;
class Colour;
class Finish;
class Material;
class Transparency;
struct ObjectDeleter;
template <typename Class, typename Deleter>
class HeldObject;

/// The clipboard of a materials editor: copies of what was copied last, the reference name of it
/// and a tag of the host's.
///
/// The setters store copies that need neither their source nor its document any longer; each
/// replaces one item and leaves the others alone, null clears it. Items belong to the clipboard and
/// are valid until they are replaced or it is destroyed, in all its copies.
class RVOPEN_EXPORT TemporaryItems : public ORVBase {
public:
    /// What was copied. Stored and returned as it is; any other number is kept too.
    enum ComponentType : int {
        ComponentNone = 0,
        ComponentMaterial,
        ComponentColour,
        ComponentFinish,
        ComponentTransparency,
        ComponentBump,
    };

    /// Nothing held, no reference name, ComponentNone.
    TemporaryItems();
    /// Shallow: both objects hold the same items until one of them gets others. An item goes with
    /// the last of them that holds it.
    TemporaryItems(const TemporaryItems& other);
    TemporaryItems& operator=(const TemporaryItems& other);
    /// Deletes the items that no copy holds.
    ~TemporaryItems();

    /// \name Items
    /// Null when not held. Setting the very component that is held keeps it.
    /// @{

    Material* GetMaterial() const;
    /// Stores a copy without its base material. Setting the material that is held gives a fresh
    /// copy of it and deletes it.
    void SetMaterial(Material* material);
    Colour* GetColour() const;
    void SetColour(Colour* colour);
    Finish* GetFinish() const;
    void SetFinish(Finish* finish);
    Transparency* GetTransparency() const;
    void SetTransparency(Transparency* transparency);
    Bump* GetBump() const;
    void SetBump(Bump* bump);
    /// @}

    /// Reference name of what was copied.
    QString GetRefname() const;
    /// Of what is being copied.
    void SetRefName(QString refName);
    /// The host's tag; nothing here depends on it.
    ComponentType GetType() const;
    void SetType(ComponentType type);

    /// True when there is no colour, finish, bump or transparency and no reference name; a material
    /// does not count.
    bool IsEmpty() const;

private:
    std::shared_ptr<HeldObject<Material, ObjectDeleter>> m_material;
    std::shared_ptr<HeldObject<Colour, ObjectDeleter>> m_colour;
    std::shared_ptr<HeldObject<Finish, ObjectDeleter>> m_finish;
    std::shared_ptr<HeldObject<Transparency, ObjectDeleter>> m_transparency;
    std::shared_ptr<HeldObject<Bump, ObjectDeleter>> m_bump;
    QString m_refName;
    ComponentType m_type = ComponentNone;
};

} // namespace rvopen
