// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QDomDocument>
#include <QDomElement>
#include <QMimeData>
#include <QString>
#include <QStringList>

#include <vector>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace rvopen::widgets {

/// What is dragged out of a model of nodes.
class NodeMime : public QMimeData {
    Q_OBJECT

public:
    /// With the elements goes where they are from: \p files has for each its file, empty where that
    /// is not known.
    NodeMime(const QAbstractItemModel* source, const std::vector<QDomElement>& elements,
             const QStringList& files);

    static QString type();

    /// The model; only to be compared, since it may be gone.
    const QAbstractItemModel* source() const;
    /// In the model.
    const std::vector<QDomElement>& elements() const;

    /// Of each of read() the file that it is from; fewer where that is not known.
    static QStringList filesOf(const QMimeData& data);
    /// The elements that somebody gives away, of which nothing is known but that they can be read;
    /// their document is in \p document.
    static std::vector<QDomElement> read(const QMimeData& data, QDomDocument& document);

private:
    const QAbstractItemModel* m_source;
    std::vector<QDomDocument> m_documents; ///< Elements alone do not keep them alive.
    std::vector<QDomElement> m_elements;
};

} // namespace rvopen::widgets
