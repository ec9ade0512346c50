// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <QString>

#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace rvopen::widgets {

/// What is dragged out of a model of nodes.
class NodeMime : public QMimeData {
    Q_OBJECT

public:
    /// Elements of one document.
    NodeMime(const QAbstractItemModel* source, const std::vector<QDomElement>& elements);

    static QString type();

    /// The model; only to be compared, since it may be gone.
    const QAbstractItemModel* source() const;
    /// In the model.
    const std::vector<QDomElement>& elements() const;

    /// The elements that somebody gives away, of which nothing is known but that they can be read;
    /// their document is in \p document.
    static std::vector<QDomElement> read(const QMimeData& data, QDomDocument& document);

private:
    const QAbstractItemModel* m_source;
    QDomDocument m_document; ///< Elements alone do not keep it alive.
    std::vector<QDomElement> m_elements;
};

} // namespace rvopen::widgets
