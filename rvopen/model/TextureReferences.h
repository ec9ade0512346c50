// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <functional>

namespace rvopen {

class RVOpenNode;

enum class BaseMaterials { Visited, Skipped };

/// What is done with a reference to an image file: the text that takes its place, or the same text
/// to leave it alone.
using TextureVisitor = std::function<QString(const QString& reference)>;

/// Calls \p visit for every image file that the tree of \p node refers to, in document order, a
/// material's base material before the material. The tree keeps its shape: no element is added,
/// and no object stays behind that was not there.
void visitTextureReferences(RVOpenNode* node, BaseMaterials baseMaterials,
                            const TextureVisitor& visit);

} // namespace rvopen
