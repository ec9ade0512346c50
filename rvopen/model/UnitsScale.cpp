// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/UnitsScale.h>

#include <rvopen/model/Names.h>

#include <algorithm>
#include <vector>

namespace rvopen {

namespace {

/// The searches that somebody holds. Documents of different threads have nothing to do with each
/// other, so each thread has its own.
thread_local std::vector<std::weak_ptr<const InnerSnapRoot>> t_searches;

} // namespace

std::shared_ptr<const InnerSnapRoot> InnerSnapRoot::of(const QDomDocument& document)
{
    for (const std::weak_ptr<const InnerSnapRoot>& known : t_searches) {
        std::shared_ptr<const InnerSnapRoot> search = known.lock();
        if (search && search->m_document == document)
            return search;
    }
    const auto gone = std::remove_if(t_searches.begin(), t_searches.end(),
                                     [](const auto& known) { return known.expired(); });
    t_searches.erase(gone, t_searches.end());
    const auto search = std::make_shared<const InnerSnapRoot>(document);
    t_searches.push_back(search);
    return search;
}

InnerSnapRoot::InnerSnapRoot(const QDomDocument& document)
    : m_document(document)
    , m_elements(document.elementsByTagName(names::element::snapRoot()))
{
}

QDomElement InnerSnapRoot::element() const
{
    return m_elements.at(0).toElement();
}

} // namespace rvopen
