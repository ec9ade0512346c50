// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Block.h"
#include "toolkit/edit/PathSegment.h"

#include <rvopen/RVOpenScanner.h>

#include <QString>
#include <QVector>

#include <string_view>
#include <vector>

namespace rvopen::toolkit {

/// Tells in one pass over a file which presets of it paths lead to or into.
class PathScan : private XmlScan {
public:
    /// For all of them at once.
    explicit PathScan(const std::vector<PathPattern>& patterns);

    /// Whether what the patterns lead to can be told without values.
    bool isPossible() const
    {
        return m_isPossible;
    }

    /// The rows of the block of the file that have all that the patterns lead to, or more. False
    /// where something else may be meant, such as a folder.
    bool findRows(const QString& file, const catalogue::Block& block,
                  std::vector<catalogue::BlockRow>& rows);

private:
    void StartElement(std::u16string_view name,
                      const std::vector<ScannedAttribute>& attributes) override;
    void EndElement() override;

    bool m_isPossible = true;
    std::vector<PathPattern::Steps> m_steps;
    /// Of each element that is open what all of them reached.
    std::vector<std::vector<QVector<int>>> m_reached;
    /// Where elements begin that are meant, in bytes.
    std::vector<quint64> m_places;
};

} // namespace rvopen::toolkit
