// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "FollowedPresets.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QVector>

#include <memory>
#include <vector>

namespace rvopen::widgets {

class PresetModel;

/// What a PresetModel shows, file by file in the order of its catalogue.
class PresetRows {
public:
    explicit PresetRows(PresetModel& model);
    ~PresetRows();

    /// The model is being reset.
    void setCatalogue(std::shared_ptr<const toolkit::Catalogue> catalogue);
    std::shared_ptr<const toolkit::Catalogue> current();
    void follow(const QString& file, const QDomDocument& document);
    void reread(const QString& file);

    int count() const;
    toolkit::ListedPreset preset(int row) const;
    QDomElement element(int row) const;
    toolkit::OpenPreset open(int row) const;
    int rowOf(const QString& file, const QString& path) const;
    int rowOf(const QDomElement& element) const;

private:
    /// The rows of one file.
    struct Part;

    /// Null for none.
    Part* partOf(const QString& file) const;
    const Part* partAt(int row) const;
    toolkit::ListedPreset presetOf(const Part& part, int index) const;
    QVector<toolkit::ListedPreset> presetsOf(const Part& part) const;
    void place();
    void become(Part& part, const QDomDocument& document);
    void showInstead(Part& part, const QVector<toolkit::ListedPreset>& after);

    PresetModel& m_model;
    std::shared_ptr<const toolkit::Catalogue> m_catalogue;
    std::vector<std::unique_ptr<Part>> m_parts;
};

} // namespace rvopen::widgets
