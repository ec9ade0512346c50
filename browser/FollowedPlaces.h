// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Memory.h"

#include <QDomElement>
#include <QString>
#include <QVector>

namespace rvopen::browser {

class EditedFile;

/// What is remembered of presets of a file that is edited, by their paths: it goes along when they
/// are renamed or moved, and back when that is not saved.
class FollowedPlaces {
public:
    /// Both outlive it.
    FollowedPlaces(Memory& memory, const EditedFile& file);

    /// What is remembered has changed.
    void lookUp();
    /// The file was edited.
    void follow();
    /// It was saved.
    void keep();
    /// What was edited and not saved is lost.
    void goBack();

private:
    struct Place {
        QDomElement element;
        /// In the file.
        QString saved;
        /// In memory.
        QString now;
    };

    void take(const Memory::Moves& moves);

    Memory& m_memory;
    const EditedFile& m_file;
    QVector<Place> m_places;
};

} // namespace rvopen::browser
