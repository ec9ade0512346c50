// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Appearance.h"

#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/documents/Folders.h>

#include <QByteArray>
#include <QPair>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::browser {

/// What the browser remembers from one run to the next, in a file of settings.
class Memory {
public:
    using Places = QVector<toolkit::PresetPlace>;
    using Moves = QVector<QPair<toolkit::PresetPlace, toolkit::PresetPlace>>;

    /// That of the user.
    Memory();
    /// That of the file.
    explicit Memory(const QString& file);

    /// \name What is open
    /// Files and folders.
    /// @{
    QStringList opened() const;
    void setOpened(const QStringList& paths);
    toolkit::Folders folders() const;
    void setFolders(const toolkit::Folders& folders);
    /// @}

    /// \name Presets
    /// @{
    Places favourites() const;
    bool isFavourite(const toolkit::PresetPlace& place) const;
    void setFavourite(const toolkit::PresetPlace& place, bool isFavourite);
    /// The last one first.
    Places recent() const;
    void addRecent(const toolkit::PresetPlace& place);
    /// What is known of each first place is known of the second one instead, of all at once.
    void move(const Moves& moves);
    /// @}

    /// \name The window
    /// @{
    QByteArray geometry() const;
    QByteArray layout() const;
    void setWindow(const QByteArray& geometry, const QByteArray& layout);
    int pictureSize() const;
    void setPictureSize(int size);
    Appearance appearance() const;
    void setAppearance(Appearance appearance);
    /// @}

private:
    Places places(const QString& key) const;
    void setPlaces(const QString& key, const Places& places);

    mutable QSettings m_settings; ///< An array is read by going into it.
};

/// Whether both are the same place.
bool isSame(const toolkit::PresetPlace& a, const toolkit::PresetPlace& b);

} // namespace rvopen::browser
