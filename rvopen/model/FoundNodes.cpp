// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/model/FoundNodes.h>

#include <rvopen/model/NodeAccess.h>

#include <QHash>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace rvopen {

namespace {

/// Each change is held against all that has notes.
constexpr std::size_t s_mostTops = 32;

struct Notes {
    FoundNodes::Below below = FoundNodes::Below::Children;
    QString attribute;
    bool areMade = false;
    QHash<QString, RVOpenNode*> nodes;
};

struct AllNotes {
    std::mutex mutex;
    std::unordered_map<const RVOpenNode*, Notes> tops;
    /// The nodes that have notes of a noted one.
    QMultiHash<const RVOpenNode*, const RVOpenNode*> topsOf;
};

AllNotes& all()
{
    // Never destroyed: nodes may go later.
    static AllNotes* const notes = new AllNotes;
    return *notes;
}

bool standsBelow(const RVOpenNode* node, const RVOpenNode* top)
{
    while (node && node != top)
        node = NodeAccess::chainOwner(node);
    return node != nullptr;
}

/// With the lock.
void drop(AllNotes& notes, const RVOpenNode* top, std::atomic<int>& count)
{
    const auto found = notes.tops.find(top);
    if (found == notes.tops.end())
        return;
    for (const RVOpenNode* const node : found->second.nodes)
        notes.topsOf.remove(node, top);
    notes.tops.erase(found);
    --count;
}

} // namespace

std::atomic<int> FoundNodes::s_tops{0};

RVOpenNode* FoundNodes::find(const RVOpenNode* top, const QString& value)
{
    if (!NodeAccess::hasNotes(top))
        return nullptr;
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    const auto found = notes.tops.find(top);
    if (found == notes.tops.end())
        return nullptr;
    RVOpenNode* const node = found->second.nodes.value(value);
    const bool isThere = node && NodeAccess::attribute(node, found->second.attribute) == value &&
                         standsBelow(node, top);
    return isThere ? node : nullptr;
}

bool FoundNodes::begin(RVOpenNode* top, Below below, const QString& attribute)
{
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    if (notes.tops.size() >= s_mostTops && notes.tops.count(top) == 0) {
        notes.tops.clear();
        notes.topsOf.clear();
        s_tops = 0;
    }
    const auto [found, isNew] = notes.tops.try_emplace(top);
    if (isNew) {
        found->second.below = below;
        found->second.attribute = attribute;
        NodeAccess::setHasNotes(top);
        ++s_tops;
        return false;
    }
    const bool isWorth = !found->second.areMade;
    found->second.areMade = true;
    return isWorth;
}

void FoundNodes::note(const RVOpenNode* top, const QString& value, RVOpenNode* node)
{
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    const auto found = notes.tops.find(top);
    if (found == notes.tops.end() || found->second.nodes.contains(value))
        return;
    found->second.nodes.insert(value, node);
    notes.topsOf.insert(node, top);
    NodeAccess::setHasNotes(node);
}

void FoundNodes::end(const RVOpenNode* top)
{
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    drop(notes, top, s_tops);
}

void FoundNodes::forget(const RVOpenNode* node)
{
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    drop(notes, node, s_tops);
    for (const RVOpenNode* const top : notes.topsOf.values(node))
        drop(notes, top, s_tops);
}

void FoundNodes::changed(const RVOpenNode* node, const QString& attribute)
{
    AllNotes& notes = all();
    const std::lock_guard<std::mutex> lock(notes.mutex);
    std::vector<const RVOpenNode*> ended;
    for (const auto& [top, of] : notes.tops) {
        if ((!attribute.isEmpty() && attribute != of.attribute) ||
            !NodeAccess::isOfDocument(node, top))
            continue;
        const QDomNode parent =
            attribute.isEmpty() ? node->GetDomNode() : node->GetDomNode().parentNode();
        if (of.below == Below::Descendants || parent == top->GetDomNode())
            ended.push_back(top);
    }
    for (const RVOpenNode* const top : ended)
        drop(notes, top, s_tops);
}

} // namespace rvopen
