// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenObserver.h>

#include <QDomDocument>
#include <QDomElement>
#include <QVector>

namespace rvopen::widgets {

/// The presets of a document in memory, kept as the document has them.
class FollowedPresets : public RVOpenObserver {
public:
    /// Who shows them. What is told is of presets that stand together, by the place of the first.
    class Listener {
    public:
        virtual ~Listener() = default;

        virtual void presetsAboutToCome(int first, int count) = 0;
        virtual void presetsCame() = 0;
        virtual void presetsAboutToGo(int first, int count) = 0;
        virtual void presetsWent() = 0;
        virtual void presetsChanged(int first, int count) = 0;
        /// The presets are there still, and nothing is told of them any more.
        virtual void documentGoes() = 0;
        /// The replacement may be null. May end this.
        virtual void documentWent(const QDomDocument& replacement) = 0;
    };

    /// The listener has to stay.
    FollowedPresets(Listener& listener, const QDomDocument& document);

    QDomDocument document() const;
    const QVector<QDomElement>& presets() const;
    /// Of the preset that the node is or stands in; below 0 for none.
    int indexOf(const QDomNode& node) const;
    /// Whether the document changed since this was asked, or is to count as changed; true at first.
    bool takeChanged();
    void setChanged();

    void Changed(const RVOpenChange& change) override;
    void BlockEnded() override;

private:
    void attributeSet(const RVOpenChange& change);
    void inserted(const RVOpenChange& change);
    void removed(const RVOpenChange& change);
    void renumber(const QDomNode& parent);
    void tell(const QVector<QDomElement>& presets);
    void tellAround(const QDomNode& node);

    Listener& m_listener;
    QDomDocument m_document; ///< Elements alone do not keep it alive.
    QVector<QDomElement> m_presets;
    QVector<QDomElement> m_going;
    QDomElement m_renumbered; ///< What is in it may have other paths.
    bool m_isChanged = true;
};

} // namespace rvopen::widgets
