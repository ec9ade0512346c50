// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PathScan.h"

#include <algorithm>
#include <utility>

namespace rvopen::toolkit {

using catalogue::Block;
using catalogue::BlockRow;
using catalogue::NoFolder;

PathScan::PathScan(const std::vector<PathPattern>& patterns)
{
    for (const PathPattern& pattern : patterns) {
        // An attribute of the root.
        if (pattern.m_segments->empty())
            continue;
        for (const PathPattern::Segment& segment : *pattern.m_segments) {
            m_isPossible =
                m_isPossible &&
                std::all_of(segment.conditions.begin(), segment.conditions.end(),
                            [](const Condition& each) { return each.isAboutAttribute(); });
        }
        const std::vector<PathPattern::Steps> steps = PathPattern::Steps::of(pattern);
        m_steps.insert(m_steps.end(), steps.begin(), steps.end());
    }
}

bool PathScan::findRows(const QString& file, const Block& block, std::vector<BlockRow>& rows)
{
    m_reached.clear();
    m_places.clear();
    if (!ScanFile(file))
        return false;
    const quint32 count = block.head().rows;
    quint32 next = 0;
    for (const quint64 place : m_places) {
        // The current snapshot is around others.
        while (next < count && (block.row(next).folder == NoFolder ||
                                block.row(next).offset + block.row(next).length <= place))
            ++next;
        if (next == count || block.row(next).offset > place)
            return false;
        if (rows.empty() || rows.back().offset != block.row(next).offset)
            rows.push_back(block.row(next));
    }
    return true;
}

void PathScan::StartElement(std::u16string_view name,
                            const std::vector<ScannedAttribute>& attributes)
{
    if (m_reached.empty()) {
        m_reached.emplace_back(m_steps.size(), PathPattern::Steps::start());
        return;
    }
    const QString tag(reinterpret_cast<const QChar*>(name.data()), int(name.size()));
    const auto attribute = [&attributes](QLatin1String wanted) {
        const auto found =
            std::find_if(attributes.begin(), attributes.end(), [wanted](const auto& each) {
                return QStringView(each.name.data(), int(each.name.size())) == wanted;
            });
        return found == attributes.end() ? QString() : found->Text();
    };
    std::vector<QVector<int>> reached;
    bool isMeant = false;
    for (std::size_t i = 0; i < m_steps.size(); ++i) {
        bool isMatch = false;
        reached.push_back(
            m_steps[i].next(m_reached.back()[i], isMatch, [&](const PathPattern::Segment& segment) {
                return segment.fits(tag, attribute);
            }));
        isMeant = isMeant || isMatch;
    }
    if (isMeant)
        m_places.push_back(quint64(Offset()));
    m_reached.push_back(std::move(reached));
}

void PathScan::EndElement()
{
    m_reached.pop_back();
}

} // namespace rvopen::toolkit
