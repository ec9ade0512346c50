// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/NodeAccess.h>

#include <optional>

/// What the comparisons of the material classes have in common.
namespace rvopen {

/// Whether both nodes stand for the archive of the same type, sub-folder and name.
inline bool standForSameArchive(const RVOpenNode* one, const RVOpenNode* other)
{
    for (const auto name : {names::attribute::archiveFilename, names::attribute::archiveType,
                            names::attribute::path}) {
        if (NodeAccess::attribute(one, name()) != NodeAccess::attribute(other, name()))
            return false;
    }
    return true;
}

/// What decides where the content of either node is in an archive that is not open: whether the two
/// stand for the same one. Nothing where the content can be compared. No archive is opened for it.
inline std::optional<bool> equalByArchive(RVOpenNode* one, RVOpenNode* other)
{
    const ArchivesStayClosed closed;
    if (NodeAccess::childOwner(one) && NodeAccess::childOwner(other))
        return std::nullopt;
    return standForSameArchive(one, other);
}

/// Where either node has a reference name, whether the two are the same; nothing where neither has
/// one.
inline std::optional<bool> equalByRefName(const RVOpenNode* one, const RVOpenNode* other)
{
    const QString name = one->GetRefName();
    const QString otherName = other->GetRefName();
    if (name.isEmpty() && otherName.isEmpty())
        return std::nullopt;
    return name == otherName;
}

/// What decides before the content: reference names, then archives.
inline std::optional<bool> equalByReference(RVOpenNode* one, RVOpenNode* other)
{
    const auto byName = equalByRefName(one, other);
    return byName ? byName : equalByArchive(one, other);
}

/// Equal() where both are there; else whether both are absent.
template <typename Component, typename... Arguments>
bool equalOrBothAbsent(Component* one, Component* other, Arguments... arguments)
{
    return one && other ? one->Equal(other, arguments...) : one == other;
}

/// Compares two values exactly; a value that cannot be read on either side counts as equal.
template <typename Class, typename Value>
bool equalWhereReadable(Class* one, Class* other, unsigned int (Class::*getter)(Value*))
{
    Value value{};
    Value otherValue{};
    return (one->*getter)(&value) != StatusOk || (other->*getter)(&otherValue) != StatusOk ||
           value == otherValue;
}

} // namespace rvopen
