// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "GridModel.h"

#include <rvopen/widgets/ParamModel.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>

#include <QStringList>

#include <algorithm>

namespace rvopen::browser {

namespace {

/// More do not fit on screens.
constexpr int s_mostValues = 16;

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
