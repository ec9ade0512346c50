// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/widgets/PresetFilter.h>

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QMetaObject>
#include <QObject>
#include <QVector>

#include <algorithm>
#include <utility>
#include <vector>

namespace rvopen::widgets {

using namespace toolkit;

namespace {

constexpr int s_none = -1;

/// More runs of rows than these come and go at once by a reset: a view takes as long for each.
constexpr int s_mostRuns = 200;

/// Which of the numbers, all different, are to stay for the rest to rise: as many as can.
std::vector<bool> longestRise(const std::vector<int>& numbers)
{
    // For each length the place of the least number that ends a rise of it.
    std::vector<std::size_t> ends;
    std::vector<std::size_t> before(numbers.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), numbers[i],
                             [&](std::size_t at, int number) { return numbers[at] < number; });
        before[i] = end == ends.begin() ? i : *(end - 1);
        if (end == ends.end())
            ends.push_back(i);
        else
            *end = i;
    }
    std::vector<bool> stay(numbers.size());
    std::size_t at = ends.empty() ? 0 : ends.back();
    for (std::size_t left = ends.size(); left > 0; --left, at = before[at])
        stay[at] = true;
    return stay;
}

template <typename Value>
CatalogueQuery with(CatalogueQuery query, Value CatalogueQuery::*member, const Value& value)
{
    query.*member = value;
    return query;
}

/// Calls \p visit with the start and the end of each run of places that are true, the last first.
template <typename Visit>
int forEachRunBackwards(const std::vector<bool>& places, const Visit& visit)
{
    int runs = 0;
    for (auto end = int(places.size()); end > 0;) {
        if (!places[std::size_t(end) - 1]) {
            --end;
            continue;
        }
        int start = end;
        while (start > 0 && places[std::size_t(start) - 1])
            --start;
        visit(start, std::exchange(end, start));
        ++runs;
    }
    return runs;
}

} // namespace

/// The rows of the model in the order in which they are shown.
class RVOPEN_WIDGETS_NO_EXPORT PresetFilter::Found {
public:
    explicit Found(PresetFilter& filter)
        : m_filter(filter)
    {
    }

    void setModel(PresetModel* model)
    {
        for (const QMetaObject::Connection& connection : std::exchange(m_connections, {}))
            QObject::disconnect(connection);
        m_isLate = false;
        m_model = model;
        show(found());
        if (model)
            follow(*model);
    }

    int count() const
    {
        return int(m_rows.size());
    }

    int rowAt(int index) const
    {
        return m_rows[std::size_t(index)];
    }

    int indexOf(int row) const
    {
        return row >= 0 && row < int(m_indexes.size()) ? m_indexes[std::size_t(row)] : s_none;
    }

    PresetModel* model() const
    {
        return m_model;
    }

    /// By as few steps as views bear.
    void search()
    {
        m_isLate = false;
        const std::vector<int> after = found();
        const int rows = m_model ? m_model->rowCount() : 0;
        std::vector<int> places(std::size_t(rows), s_none);
        for (std::size_t i = 0; i < after.size(); ++i)
            places[std::size_t(after[i])] = int(i);

        std::vector<int> kept;
        for (const int row : m_rows) {
            if (places[std::size_t(row)] != s_none)
                kept.push_back(places[std::size_t(row)]);
        }
        const std::vector<bool> stay = longestRise(kept);
        std::vector<bool> goes(m_rows.size(), true);
        std::vector<bool> comes(after.size(), true);
        std::size_t next = 0;
        for (std::size_t i = 0; i < m_rows.size(); ++i) {
            const int place = places[std::size_t(m_rows[i])];
            if (place == s_none || !stay[next++])
                continue;
            goes[i] = false;
            comes[std::size_t(place)] = false;
        }
        const auto ignore = [](int, int) {};
        if (forEachRunBackwards(goes, ignore) + forEachRunBackwards(comes, ignore) > s_mostRuns) {
            m_filter.beginResetModel();
            show(after);
            m_filter.endResetModel();
            return;
        }
        forEachRunBackwards(goes, [this](int start, int end) { remove(start, end); });
        insert(after, comes);
    }

    CatalogueQuery query;

private:
    void follow(PresetModel& model)
    {
        using Model = QAbstractItemModel;
        const auto connect = [&](auto signal, auto slot) {
            m_connections.push_back(QObject::connect(&model, signal, &m_filter, slot));
        };
        connect(&Model::dataChanged,
                [this](const QModelIndex& first, const QModelIndex& last,
                       const QVector<int>& roles) { changed(first.row(), last.row(), roles); });
        connect(&Model::rowsInserted, [this](const QModelIndex&, int first, int last) {
            shift(first, last - first + 1);
        });
        connect(&Model::rowsAboutToBeRemoved,
                [this](const QModelIndex&, int first, int last) { removeRows(first, last); });
        connect(&Model::rowsRemoved, [this](const QModelIndex&, int first, int last) {
            shift(last + 1, first - last - 1);
        });
        connect(&QObject::destroyed, [this] {
            m_filter.beginResetModel();
            setModel(nullptr);
            m_filter.endResetModel();
        });
        connect(&Model::modelAboutToBeReset, [this] { m_filter.beginResetModel(); });
        connect(&Model::modelReset, [this] {
            m_isLate = false;
            show(found());
            m_filter.endResetModel();
        });
    }

    std::vector<int> found() const
    {
        std::vector<int> rows;
        const auto catalogue = m_model ? m_model->CurrentCatalogue() : nullptr;
        if (!catalogue)
            return rows;
        const CatalogueMatches matches = catalogue->Search(query);
        rows.resize(std::size_t(matches.Count()));
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i] = matches.Place(int(i));
        return rows;
    }

    void show(const std::vector<int>& rows)
    {
        m_rows = rows;
        number();
    }

    void number()
    {
        m_indexes.assign(std::size_t(m_model ? m_model->rowCount() : 0), s_none);
        for (std::size_t i = 0; i < m_rows.size(); ++i)
            m_indexes[std::size_t(m_rows[i])] = int(i);
    }

    void remove(int start, int end)
    {
        m_filter.beginRemoveRows(QModelIndex(), start, end - 1);
        m_rows.erase(m_rows.begin() + start, m_rows.begin() + end);
        number();
        m_filter.endRemoveRows();
    }

    void insert(const std::vector<int>& after, const std::vector<bool>& comes)
    {
        for (std::size_t start = 0; start < after.size(); ++start) {
            if (!comes[start])
                continue;
            std::size_t end = start;
            while (end < after.size() && comes[end])
                ++end;
            m_filter.beginInsertRows(QModelIndex(), int(start), int(end) - 1);
            m_rows.insert(m_rows.begin() + int(start), after.begin() + int(start),
                          after.begin() + int(end));
            number();
            m_filter.endInsertRows();
            start = end;
        }
    }

    void searchLater()
    {
        m_isLate = true;
        if (std::exchange(m_isQueued, true))
            return;
        QMetaObject::invokeMethod(
            &m_here,
            [this] {
                m_isQueued = false;
                if (m_isLate)
                    search();
            },
            Qt::QueuedConnection);
    }

    /// Of the model, before it does so.
    void removeRows(int first, int last)
    {
        std::vector<bool> goes(m_rows.size());
        for (std::size_t i = 0; i < m_rows.size(); ++i)
            goes[i] = m_rows[i] >= first && m_rows[i] <= last;
        forEachRunBackwards(goes, [this](int start, int end) { remove(start, end); });
    }

    /// The rows of the model from there on have moved.
    void shift(int first, int by)
    {
        for (int& row : m_rows)
            row += row >= first ? by : 0;
        number();
        searchLater();
    }

    void changed(int first, int last, const QVector<int>& roles)
    {
        // A picture is none of what is looked for.
        if (roles != QVector<int>{Qt::DecorationRole})
            searchLater();
        std::vector<int> indexes;
        for (int row = first; row <= last; ++row) {
            if (indexOf(row) != s_none)
                indexes.push_back(indexOf(row));
        }
        if (indexes.empty())
            return;
        // Those between did not change; to say so costs less than to tell of each.
        const auto [least, most] = std::minmax_element(indexes.begin(), indexes.end());
        Q_EMIT m_filter.dataChanged(m_filter.index(*least, 0),
                                    m_filter.index(*most, m_filter.columnCount() - 1), roles);
    }

    PresetFilter& m_filter;
    PresetModel* m_model = nullptr;
    std::vector<QMetaObject::Connection> m_connections;
    QObject m_here; ///< What is queued ends with it.
    bool m_isQueued = false;
    bool m_isLate = false; ///< The model has changed since.
    std::vector<int> m_rows;
    /// Of each row of the model where it is shown.
    std::vector<int> m_indexes;
};

PresetFilter::PresetFilter(QObject* parent)
    : QAbstractProxyModel(parent)
    , m_found(std::make_unique<Found>(*this))
{
}

PresetFilter::~PresetFilter() = default;

bool PresetFilter::SetQuery(const CatalogueQuery& query)
{
    const CatalogueQuery before = std::exchange(m_found->query, query);
    try {
        m_found->search();
    } catch (const Failure&) {
        m_found->query = before;
        return false;
    }
    Q_EMIT QueryChanged();
    return true;
}

CatalogueQuery PresetFilter::Query() const
{
    return m_found->query;
}

QString PresetFilter::Words() const
{
    return m_found->query.text;
}

void PresetFilter::SetWords(const QString& words)
{
    SetQuery(with(Query(), &CatalogueQuery::text, words));
}

QString PresetFilter::Kind() const
{
    return m_found->query.kind;
}

void PresetFilter::SetKind(const QString& kind)
{
    SetQuery(with(Query(), &CatalogueQuery::kind, kind));
}

QString PresetFilter::Category() const
{
    return m_found->query.category;
}

void PresetFilter::SetCategory(const QString& category)
{
    SetQuery(with(Query(), &CatalogueQuery::category, category));
}

QString PresetFilter::Tag() const
{
    return m_found->query.subCategory;
}

void PresetFilter::SetTag(const QString& tag)
{
    SetQuery(with(Query(), &CatalogueQuery::subCategory, tag));
}

QString PresetFilter::Folder() const
{
    return m_found->query.folder;
}

void PresetFilter::SetFolder(const QString& folder)
{
    SetQuery(with(Query(), &CatalogueQuery::folder, folder));
}

QColor PresetFilter::Colour() const
{
    const QString text = m_found->query.colour;
    float channels[3] = {};
    if (!ToTriple(text, channels))
        return QColor(text);
    return QColor::fromRgbF(std::clamp(channels[0], 0.0F, 1.0F),
                            std::clamp(channels[1], 0.0F, 1.0F),
                            std::clamp(channels[2], 0.0F, 1.0F));
}

void PresetFilter::SetColour(const QColor& colour)
{
    const QString text = colour.isValid() ? colour.name() : QString();
    SetQuery(with(Query(), &CatalogueQuery::colour, text));
}

double PresetFilter::Within() const
{
    return m_found->query.within;
}

void PresetFilter::SetWithin(double within)
{
    SetQuery(with(Query(), &CatalogueQuery::within, within));
}

void PresetFilter::setSourceModel(QAbstractItemModel* model)
{
    PresetModel* const presets = qobject_cast<PresetModel*>(model);
    if (model && !presets)
        qWarning("A PresetFilter takes a PresetModel alone");
    beginResetModel();
    QAbstractProxyModel::setSourceModel(presets);
    m_found->setModel(presets);
    endResetModel();
}

QModelIndex PresetFilter::mapFromSource(const QModelIndex& source) const
{
    const int row = source.isValid() ? m_found->indexOf(source.row()) : s_none;
    return row == s_none ? QModelIndex() : createIndex(row, source.column());
}

QModelIndex PresetFilter::mapToSource(const QModelIndex& index) const
{
    return index.isValid() && m_found->model()
               ? m_found->model()->index(m_found->rowAt(index.row()), index.column())
               : QModelIndex();
}

QModelIndex PresetFilter::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex PresetFilter::parent(const QModelIndex& /*index*/) const
{
    return QModelIndex();
}

int PresetFilter::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_found->count();
}

int PresetFilter::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() || !sourceModel() ? 0 : sourceModel()->columnCount();
}

QVariant PresetFilter::headerData(int section, Qt::Orientation orientation, int role) const
{
    // QAbstractProxyModel would ask for the row that stands in front.
    return sourceModel() && orientation == Qt::Horizontal
               ? sourceModel()->headerData(section, orientation, role)
               : QAbstractItemModel::headerData(section, orientation, role);
}

} // namespace rvopen::widgets
