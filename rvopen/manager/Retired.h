// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/model/HeldObject.h>

#include <QDomDocument>

#include <memory>
#include <utility>
#include <vector>

namespace rvopen {

/// What gave way to something newer, or was read for a host, while the host may still hold it. All
/// of it goes with this store.
class Retired {
public:
    Retired() = default;
    ~Retired();
    Retired(const Retired&) = delete;
    Retired& operator=(const Retired&) = delete;

    /// Takes over. Null is ignored.
    void keep(View<RVOpenNode> object);
    void keep(std::unique_ptr<QDomDocument> document);
    /// Puts \p fresh in the place of the object held, which is kept.
    template <typename Class>
    void replace(View<Class>& held, View<Class> fresh)
    {
        keep(std::move(held));
        held = std::move(fresh);
    }
    /// Whether the object goes with this store.
    bool holds(const RVOpenNode* object) const;

private:
    std::vector<std::unique_ptr<QDomDocument>> m_documents;
    std::vector<View<RVOpenNode>> m_objects;
};

} // namespace rvopen
