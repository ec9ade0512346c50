// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>
#include <rvopen/host/Ref.h>
#include <rvopen/widgets/NodeModel.h>

#include <QDomDocument>
#include <QDomElement>
#include <QModelIndex>

#include <memory>
#include <vector>

namespace rvopen::widgets {

/// The rows of a NodeModel, kept as the document has them.
class NodeRows : public RVOpenObserver {
public:
    /// One that was looked at.
    struct Row {
        QDomElement element;
        Row* parent = nullptr; ///< Null for the top, which is no row itself.
        bool isFetched = false;
        std::vector<std::unique_ptr<Row>> rows;
    };

    /// The model is being reset. Without root until the document, which may be null, has one.
    NodeRows(NodeModel& model, RVOpenNode* root, const QDomDocument& document);

    const Row& top() const;
    /// That of an index, the top for an invalid one.
    Row& rowOf(const QModelIndex& index) const;
    /// That of the element or of the nearest one around it that was looked at; null outside.
    Row* find(const QDomNode& node) const;
    QModelIndex indexOf(const Row& row, int column = 0) const;
    bool hasRows(const Row& row) const;
    void fetch(Row& row);
    /// The object that the rows at the top stand in; null once it is gone.
    RVOpenNode* root() const;
    /// Observers are being told.
    bool isTold() const;

    void Changed(const RVOpenChange& change) override;

private:
    bool isShown(const QDomNode& node) const;
    void addRows(Row& row, std::vector<std::unique_ptr<Row>>& rows) const;
    void fill(Row& row) const;
    void show(RVOpenNode* root);
    void hide();
    void inserted(const RVOpenChange& change);
    void removed(const RVOpenChange& change);
    void tell(const Row& row);

    NodeModel& m_model;
    host::Ref<> m_root;
    QDomDocument m_document; ///< Elements alone do not keep it alive.
    std::unique_ptr<Row> m_top;
    bool m_isTold = false;
};

} // namespace rvopen::widgets
