// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/toolkit/edit/NodePath.h>

#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

namespace rvopen::toolkit {

/// What can be taken, put somewhere else and named anew.
enum class Thing {
    Other,
    Preset,
    /// Of an archive; also one that stands for another archive.
    Folder,
    /// Of a collection.
    SnapShot,
    CurrentSnapShot,
    Palette,
    PaletteMaterial
};

Thing thingOf(const QDomElement& element);
/// Whether it goes by the reference name of a preset that is somewhere else.
bool goesByRefName(const QDomElement& element);
/// "preset", "folder", "snapshot", "palette" or "material".
QString thingName(Thing thing);

/// \name Shelves
/// Where things stand: sections and folders of archives, collections of snapshots, palettes.
/// @{

/// A folder that stands for another archive has its presets there: it is no shelf.
bool isShelf(const QDomElement& element);
/// Whether it is a section or folder of an archive. Comments in other shelves count as children.
bool isArchiveShelf(const QDomElement& element);
/// The section that an element of an archive stands in or is; null elsewhere.
QDomElement sectionOf(const QDomElement& element);
/// Why the element cannot stand there; empty when it can.
QString problemOfPlace(const QDomElement& element, const QDomElement& shelf);
/// Whether a section takes presets of the tag: the library has rules for the sections that it
/// knows, others take what they had.
bool sectionTakes(const QString& section, const QString& tag);
/// The shelf with the path. A missing section, and folders that the path ends with, are made.
/// Throws a Failure when there is none, or several.
QDomElement shelfAt(const QString& path, const QDomDocument& document);
/// The shelf in \p document that the element has in its own: the section and the folders, or the
/// collection, of the same names, made where they are missing. Materials go from palettes into the
/// section "materials" and back into the palette of the current snapshot; null where there is none.
QDomElement standingPlace(const QDomElement& element, const QDomDocument& document);
/// The collection that holds the snapshots of a model; null without.
QDomElement mainCollection(const QDomElement& root);
/// @}

struct Chosen {
    QDomElement element;
    QString path;
    Thing thing = Thing::Other;
};

/// What an element with that path stands for: itself, a palette its materials, what is no thing
/// that can be taken nothing.
QVector<Chosen> thingsOf(const PathPattern::Match& match);

enum class Matches { OneForEachPath, All };

/// The things with these paths, which are those of PathPattern, in document order. A palette stands
/// for its materials; what lies in a chosen thing is chosen with it. Throws a Failure where a path
/// leads to nothing of the kind, or to several and \p matches does not allow that.
QVector<Chosen> chosenThings(const QDomElement& root, const QStringList& paths, Matches matches);

/// The presets below a folder in document order; otherwise the element alone.
QVector<QDomElement> leavesOf(const QDomElement& element);

/// The comments and other nodes between the element and the one before it: they tell about the
/// element.
QVector<QDomNode> nodesBefore(const QDomElement& element);

} // namespace rvopen::toolkit
