// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>

#include <QDomNode>

#include <vector>

namespace rvopen {

struct TakenView;

/// Takes changes back, in the document and in all objects below some roots. The objects of what is
/// taken out are kept by those that they were children of; the roots know of them until they stand
/// in their places again.
class TakingBack {
public:
    /// Null roots, and those of other documents, are passed over.
    explicit TakingBack(std::vector<RVOpenNode*> roots);

    /// False, with nothing changed, for what cannot be: a reset, a child that stands elsewhere now,
    /// a place that is gone.
    ///
    /// By value: who has the change may be told of this, and keep that beside it.
    bool takeBack(RVOpenChange change);

    /// An object of a node, and the root below which it is.
    struct Owner {
        RVOpenNode* object;
        RVOpenNode* root;
    };

private:
    bool setBefore(const RVOpenChange& change);
    bool takeOut(const RVOpenChange& change);
    bool putBack(const RVOpenChange& change);
    std::vector<Owner> objectsOf(const QDomNode& node) const;
    std::vector<TakenView> takenOf(const QDomNode& node) const;

    std::vector<RVOpenNode*> m_roots;
};

} // namespace rvopen
