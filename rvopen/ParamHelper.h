// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/ORVBase.h>

#include <QString>

namespace rvopen {

class Param;
class RVOpenNode;

/// The list of named, typed parameters of a node: the "param" children of its element, seen
/// through the node's own child chain.
///
/// Look-ups go by display name, exactly and case-sensitively. They step over comments, processing
/// instructions and text of white space alone, and stop at the first other child that is not a
/// parameter: parameters come before a node's other children. Where two parameters share a name the
/// first is found. The list owns nothing; parameters belong to the node's tree and stay
/// valid until they or the node are deleted.
class RVOPEN_EXPORT ParamHelper : public ORVBase {
public:
    /// Binds the list to \p owner, the node whose children are the parameters. Not owned.
    explicit ParamHelper(RVOpenNode* owner);
    virtual ~ParamHelper();
    /// Shallow: both are lists of the same node.
    ParamHelper(const ParamHelper&) = default;
    ParamHelper& operator=(const ParamHelper&) = default;

    /// Makes the objects of all children of the owner, unless some are already there.
    void Populate();

    /// The owner's first child that no look-up steps over, if that is made already and is a
    /// parameter, else null.
    Param* GetFirstParam();

    /// A new parameter element named \p name in the owner's document, not linked anywhere; the
    /// caller owns it until it is added to a node. Null when memory is exhausted.
    Param* CreateParam(QString name);

    /// \name Adding
    /// Each appends a new parameter as the owner's last child and returns it, or null when it could
    /// not be made or when the owner stands for an archive that cannot be opened (nothing is added
    /// then). An existing parameter of the same name is not replaced: it is still found first.
    /// A new parameter carries no property letters, so its initial value is stored unscaled.
    /// @{

    /// "float", 0.
    Param* AddFloatParam(QString name);
    /// "float", \p value.
    Param* AddFloatParam(QString name, float value);
    /// "integer", 0.
    Param* AddIntParam(QString name);
    /// "string", empty.
    Param* AddStringParam(QString name);
    /// "boolean", true.
    Param* AddBoolParam(QString name);
    /// "colour", 1 1 1 (white).
    Param* AddColourParam(QString name);
    /// "vector", 1 1 1.
    Param* AddVectorParam(QString name);
    /// "point", 1 1 1.
    Param* AddPointParam(QString name);
    /// @}

    /// The parameter of that name among those whose objects exist already, or null.
    Param* FindParam(QString name);
    /// As FindParam(), after making the children's objects if none exists yet.
    Param* GetParam(QString name);

    /// \name Typed reads by name
    /// StatusMissing when there is no such parameter or it has another type or no value.
    /// @{

    /// Red, green and blue, three floats.
    unsigned int GetValColour(QString name, float* const out);
    /// 0 or 1.
    unsigned int GetValBool(QString name, int* out);
    /// Dimensional values come back in scene units.
    unsigned int GetValFloat(QString name, float* out);
    /// @}

private:
    RVOpenNode* m_owner;
};

} // namespace rvopen
