// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/ToolkitExport.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QVector>

#include <limits>
#include <memory>

namespace rvopen::toolkit {

/// A preset in a list, as people see it.
struct ListedPreset {
    /// As it was given.
    QString file;
    /// Element name.
    QString kind;
    /// Empty where it has none.
    QString name;
    /// By which others refer to it.
    QString refName;
    /// Attribute "cat".
    QString category;
    /// Attribute "subcat".
    QString subCategory;
    /// Names of the folders, joined by " / ".
    QString folder;
    /// As PathOf() has it.
    QString path;
    /// Attribute "desc".
    QString description;
};

/// What a number of a finish may be.
struct NumberRange {
    /// Of the parameter, in any case.
    QString name;
    /// It may be this.
    double least = -std::numeric_limits<double>::infinity();
    /// And this.
    double most = std::numeric_limits<double>::infinity();
};

/// Where a preset is.
struct PresetPlace {
    /// As the catalogue was given it.
    QString file;
    /// As PathOf() has it.
    QString path;
};

/// What presets are looked for; what is empty is not asked for. Texts are compared in any case and
/// without accents.
struct CatalogueQuery {
    /// Beginnings of words that all occur in name, reference name, category, folders or
    /// description.
    QString text;
    /// Kind or section: "material", "materials".
    QString kind;
    /// All of it.
    QString category;
    /// All of it.
    QString subCategory;
    /// The name of one of the folders that it stands in.
    QString folder;
    /// One that it has, as "#rrggbb" or "1 0.5 0".
    QString colour;
    /// How far from it, by CIEDE2000; 1 is hardly seen.
    double within = 10;
    /// All of these have to hold, each for one number of the preset.
    QVector<NumberRange> numbers;
    /// It is in one of these, as the catalogue was given them.
    QStringList files;
    /// It is one of these; one that is not there is passed over.
    QVector<PresetPlace> presets;
};

/// One preset that was opened, with the folders, section and root that it stands in, and as a rule
/// without its neighbours. To be looked at: what is changed in it is changed in memory alone, and
/// the archive is edited as a whole.
struct OpenPreset {
    /// All of it; null where the preset is not there.
    QDomDocument dom;
    /// The preset in it.
    QDomElement element;
    /// Why it is not there; without message when it is.
    ReadError error;

    /// Whether it is there.
    explicit operator bool() const
    {
        return !element.isNull();
    }
};

/// Presets that were found, the best first; each is read from the catalogue when it is asked for,
/// so that a list of very many costs as much as what is shown of it. Copies share what they have,
/// and may outlive the catalogue.
class RVOPEN_TOOLKIT_EXPORT CatalogueMatches {
public:
    /// None.
    CatalogueMatches();
    ~CatalogueMatches();
    /// Shares.
    CatalogueMatches(const CatalogueMatches& other);
    /// Shares.
    CatalogueMatches& operator=(const CatalogueMatches& other);

    /// How many there are.
    int Count() const;
    /// The one at that place, from 0; empty beyond the end.
    ListedPreset At(int index) const;
    /// Where that one stands among all presets of the catalogue, as Catalogue::At() takes it; -1
    /// beyond the end.
    int Place(int index) const;

private:
    friend class Catalogue;
    struct Found;
    std::shared_ptr<const Found> m_found;
};

/// The presets of many archives, found without building one. What was found is kept in an index
/// below $XDG_CACHE_HOME/rvopen/, which can be deleted at any time; with RVOPEN_CATALOGUE=off in
/// the environment there is none. It is of the state that the files had when it was made.
class RVOPEN_TOOLKIT_EXPORT Catalogue {
public:
    /// Reads what is new of the files, with all processors.
    explicit Catalogue(const QStringList& files);
    ~Catalogue();
    Catalogue(const Catalogue&) = delete;
    Catalogue& operator=(const Catalogue&) = delete;

    /// What cannot be read, and documents with prefixes of namespaces, which have to be loaded to
    /// know what is in them. Their presets are not found.
    QVector<ReadError> Problems() const;
    /// \name All presets
    /// In the order of the files and in that of each.
    /// @{

    /// The files as they were given, and those that With() added.
    QStringList Files() const;
    /// How many presets there are.
    int Count() const;
    /// How many there are in the file at that place of Files(), from 0; 0 beyond the end.
    int Count(int file) const;
    /// The one at that place, from 0; empty beyond the end.
    ListedPreset At(int place) const;
    /// @}

    /// The same catalogue, with which it shares everything, but that of \p file it has what is in
    /// \p document now, saved or not; a file that is none of Files() comes last. Nothing is written
    /// into the index. Open() gives what was saved.
    std::shared_ptr<const Catalogue> With(const QString& file, const QDomDocument& document) const;
    /// The same of the file as it is now.
    std::shared_ptr<const Catalogue> With(const QString& file) const;
    /// Those that are looked for: the text as a name first, then names that begin with it, then
    /// names that have its words, then all others; among these the nearest to the colour, then in
    /// the order of files and in that of each. Throws a Failure when the colour is none. For each
    /// letter that somebody types: by all processors, and nothing is read of what is found.
    CatalogueMatches Search(const CatalogueQuery& query) const;
    /// The same as a list.
    QVector<ListedPreset> Find(const CatalogueQuery& query) const;
    /// Opens a preset by its file and path. It is read where it was found, and looked for again
    /// when something else is there now.
    OpenPreset Open(const ListedPreset& preset) const;

private:
    friend struct CatalogueMatches::Found;
    class Store;
    explicit Catalogue(std::shared_ptr<const Store> store);

    std::shared_ptr<const Store> m_store;
};

/// \name Presets of a document in memory
/// @{

/// Those in \p element, or itself, that a catalogue would have of its document, in document order:
/// of the document element all of them.
RVOPEN_TOOLKIT_EXPORT QVector<QDomElement> PresetsIn(const QDomElement& element);
/// What a catalogue would have of one of these, under the name \p file.
RVOPEN_TOOLKIT_EXPORT ListedPreset ListedOf(const QString& file, const QDomElement& preset);
/// @}

} // namespace rvopen::toolkit
