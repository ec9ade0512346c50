// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "PresetRows.h"

#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/Thumbnails.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

bool isSame(const ListedPreset& a, const ListedPreset& b)
{
    return a.kind == b.kind && a.path == b.path;
}

} // namespace

struct PresetRows::Part : FollowedPresets::Listener {
    explicit Part(PresetRows& owner)
        : rows(owner)
    {
    }

    void presetsAboutToCome(int first, int added) override
    {
        model().beginInsertRows(QModelIndex(), start + first, start + first + added - 1);
        moving = added;
    }

    void presetsCame() override
    {
        count += moving;
        rows.place();
        model().endInsertRows();
    }

    void presetsAboutToGo(int first, int removed) override
    {
        model().beginRemoveRows(QModelIndex(), start + first, start + first + removed - 1);
        moving = removed;
    }

    void presetsWent() override
    {
        count -= moving;
        rows.place();
        model().endRemoveRows();
    }

    void presetsChanged(int first, int changed) override
    {
        Q_EMIT model().dataChanged(
            model().index(start + first, 0),
            model().index(start + first + changed - 1, PresetModel::ColumnCount - 1));
    }

    void documentGoes() override
    {
        passing = std::make_unique<QVector<ListedPreset>>(rows.presetsOf(*this));
    }

    void documentWent(const QDomDocument& replacement) override
    {
        rows.become(*this, replacement);
    }

    PresetModel& model() const
    {
        return rows.m_model;
    }

    PresetRows& rows;
    QString file;
    int count = 0;
    /// How many come or go.
    int moving = 0;
    /// Its first row.
    int start = 0;
    /// Its first place in the catalogue.
    int place = 0;
    /// Null where the rows are those of the catalogue.
    std::unique_ptr<FollowedPresets> followed;
    /// The rows while they become others.
    std::unique_ptr<QVector<ListedPreset>> passing;
};

PresetRows::PresetRows(PresetModel& model)
    : m_model(model)
{
}

PresetRows::~PresetRows() = default;

void PresetRows::setCatalogue(std::shared_ptr<const Catalogue> catalogue)
{
    std::vector<std::unique_ptr<Part>> before = std::exchange(m_parts, {});
    m_catalogue = std::move(catalogue);
    const QStringList files = m_catalogue ? m_catalogue->Files() : QStringList();
    for (int i = 0; i < files.size(); ++i) {
        const auto same = std::find_if(before.begin(), before.end(), [&](const auto& part) {
            return part && part->followed && part->file == files[i];
        });
        if (same != before.end()) {
            (*same)->followed->setChanged();
            m_parts.push_back(std::move(*same));
            continue;
        }
        m_parts.push_back(std::make_unique<Part>(*this));
        m_parts.back()->file = files[i];
        m_parts.back()->count = m_catalogue->Count(i);
    }
    place();
}

std::shared_ptr<const Catalogue> PresetRows::current()
{
    for (const auto& part : m_parts) {
        if (part->followed && part->followed->takeChanged())
            m_catalogue = m_catalogue->With(part->file, part->followed->document());
    }
    place();
    return m_catalogue;
}

void PresetRows::follow(const QString& file, const QDomDocument& document)
{
    if (document.isNull()) {
        reread(file);
        return;
    }
    if (!m_catalogue)
        m_catalogue = std::make_shared<const Catalogue>(QStringList());
    if (!partOf(file)) {
        m_catalogue = m_catalogue->With(file, QDomDocument());
        m_parts.push_back(std::make_unique<Part>(*this));
        m_parts.back()->file = file;
        place();
    }
    become(*partOf(file), document);
}

void PresetRows::reread(const QString& file)
{
    if (Part* const part = partOf(file))
        become(*part, QDomDocument());
}

int PresetRows::count() const
{
    return m_parts.empty() ? 0 : m_parts.back()->start + m_parts.back()->count;
}

ListedPreset PresetRows::preset(int row) const
{
    const Part* const part = partAt(row);
    return part ? presetOf(*part, row - part->start) : ListedPreset();
}

QDomElement PresetRows::element(int row) const
{
    const Part* const part = partAt(row);
    return part && part->followed && !part->passing ? part->followed->presets()[row - part->start]
                                                    : QDomElement();
}

OpenPreset PresetRows::open(int row) const
{
    const QDomElement element = this->element(row);
    if (element.isNull())
        return m_catalogue ? m_catalogue->Open(preset(row)) : OpenPreset();
    OpenPreset opened;
    opened.dom = element.ownerDocument().cloneNode(true).toDocument();
    opened.element = PresetsIn(opened.dom.documentElement())[row - partAt(row)->start];
    return opened;
}

int PresetRows::rowOf(const QString& file, const QString& path) const
{
    const Part* const part = partOf(file);
    for (int i = 0; part && i < part->count; ++i) {
        if (presetOf(*part, i).path == path)
            return part->start + i;
    }
    return -1;
}

int PresetRows::rowOf(const QDomElement& element) const
{
    for (const auto& part : m_parts) {
        if (!part->followed || part->followed->document() != element.ownerDocument())
            continue;
        const int index = part->followed->indexOf(element);
        return index < 0 ? -1 : part->start + index;
    }
    return -1;
}

PresetRows::Part* PresetRows::partOf(const QString& file) const
{
    const auto part = std::find_if(m_parts.begin(), m_parts.end(),
                                   [&file](const auto& each) { return each->file == file; });
    return part == m_parts.end() ? nullptr : part->get();
}

const PresetRows::Part* PresetRows::partAt(int row) const
{
    if (row < 0 || row >= count())
        return nullptr;
    const auto after = std::upper_bound(m_parts.begin(), m_parts.end(), row,
                                        [](int at, const auto& part) { return at < part->start; });
    return (after - 1)->get();
}

ListedPreset PresetRows::presetOf(const Part& part, int index) const
{
    if (part.passing)
        return part.passing->at(index);
    return part.followed ? ListedOf(part.file, part.followed->presets()[index])
                         : m_catalogue->At(part.place + index);
}

QVector<ListedPreset> PresetRows::presetsOf(const Part& part) const
{
    QVector<ListedPreset> presets;
    presets.reserve(part.count);
    for (int i = 0; i < part.count; ++i)
        presets.append(presetOf(part, i));
    return presets;
}

/// Says where each part starts, once counts or the catalogue are others.
void PresetRows::place()
{
    int start = 0;
    int place = 0;
    for (std::size_t i = 0; i < m_parts.size(); ++i) {
        m_parts[i]->start = std::exchange(start, start + m_parts[i]->count);
        m_parts[i]->place = std::exchange(place, place + m_catalogue->Count(int(i)));
    }
}

/// The presets of the document, or without one of the file.
void PresetRows::become(Part& part, const QDomDocument& document)
{
    if (!part.passing)
        part.documentGoes();
    // It may be who asks for this, and ends with it.
    const std::unique_ptr<FollowedPresets> before = std::move(part.followed);
    QVector<ListedPreset> after;
    if (document.isNull()) {
        m_catalogue = m_catalogue->With(part.file);
        place();
        if (m_model.m_thumbnails)
            m_model.m_thumbnails->SetCatalogue(m_catalogue);
        const auto index = std::find_if(m_parts.begin(), m_parts.end(),
                                        [&part](const auto& each) { return each.get() == &part; });
        const int count = m_catalogue->Count(int(index - m_parts.begin()));
        for (int i = 0; i < count; ++i)
            after.append(m_catalogue->At(part.place + i));
    } else {
        part.followed = std::make_unique<FollowedPresets>(part, document);
        for (const QDomElement& preset : part.followed->presets())
            after.append(ListedOf(part.file, preset));
    }
    showInstead(part, after);
}

/// What is in front of the first difference and behind the last one stays as rows.
void PresetRows::showInstead(Part& part, const QVector<ListedPreset>& after)
{
    const QVector<ListedPreset> before = *part.passing;
    const auto same =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), isSame);
    const auto first = int(same.first - before.begin());
    const auto sameBehind =
        std::mismatch(before.rbegin(), std::make_reverse_iterator(same.first), after.rbegin(),
                      std::make_reverse_iterator(same.second), isSame);
    const auto gone = int(sameBehind.first.base() - same.first);
    const auto come = int(sameBehind.second.base() - same.second);
    if (gone > 0) {
        part.presetsAboutToGo(first, gone);
        part.passing->remove(first, gone);
        part.presetsWent();
    }
    if (come > 0)
        part.presetsAboutToCome(first, come);
    part.passing = nullptr;
    if (come > 0)
        part.presetsCame();
    if (part.count > 0)
        part.presetsChanged(0, part.count);
}

} // namespace rvopen::widgets
