// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/ArchiveModel.h>

namespace rvopen::widgets {

ArchiveModel::ArchiveModel(QObject* parent)
    : NodeModel(parent)
{
}

ArchiveModel::~ArchiveModel() = default;

void ArchiveModel::SetArchive(RVOpenNode* root)
{
    setRoot(root);
}

bool ArchiveModel::isShown(const QDomElement& element) const
{
    return element.tagName() != QLatin1String("param");
}

bool ArchiveModel::isShelf(const QDomElement& element) const
{
    return element.parentNode() == Root() ||
           (element.tagName() == QLatin1String("dir") &&
            element.attribute(QStringLiteral("archiveFilename")).isEmpty());
}

} // namespace rvopen::widgets
