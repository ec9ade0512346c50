// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GridModel.h"

#include <rvopen/widgets/ParamModel.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>

#include <QPair>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <vector>

namespace rvopen::browser {

namespace {

/// More do not fit on screens.
constexpr int s_mostValues = 16;

/// More presets are found sooner by looking at all there are once.
constexpr int s_mostLookedFor = 32;

} // namespace

GridModel::GridModel(QObject* parent)
    : QIdentityProxyModel(parent)
{
}

void GridModel::setPresets(widgets::PresetModel* presets, widgets::PresetFilter* filter)
{
    m_presets = presets;
    m_filter = filter;
    setSourceModel(filter);
}

QModelIndex GridModel::presetOf(const QModelIndex& index) const
{
    return index.isValid() ? m_filter->mapToSource(mapToSource(index)) : QModelIndex();
}

QModelIndex GridModel::indexOf(const QModelIndex& preset) const
{
    return preset.isValid() ? mapFromSource(m_filter->mapFromSource(preset)) : QModelIndex();
}

toolkit::PresetPlace GridModel::placeOf(const QModelIndex& index) const
{
    const toolkit::ListedPreset preset = m_presets->Preset(presetOf(index));
    return {preset.file, preset.path};
}

QItemSelection GridModel::selectionOf(const QVector<toolkit::PresetPlace>& places) const
{
    std::vector<int> rows;
    if (places.size() <= s_mostLookedFor) {
        for (const toolkit::PresetPlace& place : places) {
            const QModelIndex index = indexOf(m_presets->IndexOf(place.file, place.path));
            if (index.isValid())
                rows.push_back(index.row());
        }
        std::sort(rows.begin(), rows.end());
    } else {
        QSet<QPair<QString, QString>> wanted;
        for (const toolkit::PresetPlace& place : places)
            wanted.insert({place.file, place.path});
        for (int row = 0; row < rowCount(); ++row) {
            const toolkit::PresetPlace place = placeOf(index(row, 0));
            if (wanted.contains({place.file, place.path}))
                rows.push_back(row);
        }
    }
    // A selection of one range for each preset would be slow to ask.
    QItemSelection selection;
    for (std::size_t first = 0, end = 0; first < rows.size(); first = end) {
        for (end = first + 1; end < rows.size() && rows[end] == rows[end - 1] + 1;)
            ++end;
        selection.select(index(rows[first], 0), index(rows[end - 1], 0));
    }
    return selection;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !m_filter ? 0 : 1;
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    return role == Qt::ToolTipRole ? toolTipOf(presetOf(index))
                                   : QIdentityProxyModel::data(index, role);
}

QString GridModel::toolTipOf(const QModelIndex& preset) const
{
    if (!preset.isValid())
        return QString();
    const toolkit::ListedPreset listed = m_presets->Preset(preset);
    QStringList lines{QStringLiteral("%1 – %2").arg(listed.name, listed.kind)};
    if (!listed.description.isEmpty())
        lines << listed.description;
    const toolkit::OpenPreset opened = m_presets->Open(preset);
    widgets::ParamModel values;
    values.SetElement(opened.element, widgets::ParamModel::Below);
    const int rows = values.rowCount();
    for (int row = 0; row < std::min(rows, s_mostValues); ++row) {
        const auto text = [&](widgets::ParamModel::Column column) {
            return values.index(row, column).data().toString();
        };
        lines << QStringLiteral("%1: %2 %3")
                     .arg(text(widgets::ParamModel::Name), text(widgets::ParamModel::Value),
                          text(widgets::ParamModel::Unit))
                     .trimmed();
    }
    if (rows > s_mostValues)
        lines << QStringLiteral("…");
    lines << listed.file;
    // Names are texts, whatever signs they have.
    return QStringLiteral("<p style='white-space:pre'>%1</p>")
        .arg(lines.join(QLatin1Char('\n')).toHtmlEscaped());
}

} // namespace rvopen::browser
