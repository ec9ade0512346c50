// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/widgets/NodeModel.h>

namespace rvopen {

class RVOpenManager;

namespace widgets {

/// The snapshots that a document saved, those of its main collection, as rows without rows of their
/// own. It follows the manager from document to document, and the collection when it is made.
///
/// \code
/// void showSnapShots(rvopen::RVOpenManager& manager, QListView& view,
///                    const std::function<void(rvopen::SnapShot*)>& render)
/// {
///     auto* const model = new rvopen::widgets::SnapShotModel(&view);
///     model->SetManager(&manager);
///     view.setModel(model);
///     QObject::connect(&view, &QListView::activated, model, [=](const QModelIndex& index) {
///         render(static_cast<rvopen::SnapShot*>(model->Node(index)));
///     });
/// }
/// \endcode
class RVOPEN_WIDGETS_EXPORT SnapShotModel : public NodeModel {
    Q_OBJECT

public:
    /// Without rows.
    explicit SnapShotModel(QObject* parent = nullptr);
    ~SnapShotModel() override;

    /// Which has to outlive the model or its document; null for none.
    void SetManager(RVOpenManager* manager);

protected:
    bool isShown(const QDomElement& element) const override;
    bool isShelf(const QDomElement& element) const override;
    RVOpenNode* findRoot() const override;

private:
    RVOpenManager* m_manager = nullptr;
};

} // namespace widgets
} // namespace rvopen
