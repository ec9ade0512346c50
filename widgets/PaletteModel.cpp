// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/PaletteModel.h>

#include <rvopen/MaterialRepository.h>

namespace rvopen::widgets {

PaletteModel::PaletteModel(QObject* parent)
    : NodeModel(parent)
{
}

PaletteModel::~PaletteModel() = default;

void PaletteModel::SetPalette(MaterialRepository* palette)
{
    setRoot(palette);
}

bool PaletteModel::isShown(const QDomElement& element) const
{
    return element.tagName() == QLatin1String("material");
}

bool PaletteModel::isShelf(const QDomElement& /*element*/) const
{
    return false;
}

} // namespace rvopen::widgets
