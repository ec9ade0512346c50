// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Memory.h"

#include <algorithm>

namespace rvopen::browser {

namespace {

const QString s_opened = QStringLiteral("opened");
const QString s_folders = QStringLiteral("folders/");
const QString s_appearance = QStringLiteral("appearance");
const QString s_darkName = QStringLiteral("dark");
const QString s_lightName = QStringLiteral("light");
const QString s_favourites = QStringLiteral("favourites");
const QString s_recentKey = QStringLiteral("recent");
const QString s_fileKey = QStringLiteral("file");
const QString s_pathKey = QStringLiteral("path");
const QString s_geometry = QStringLiteral("window/geometry");
const QString s_layout = QStringLiteral("window/layout");
const QString s_pictureSizeKey = QStringLiteral("window/pictureSize");

constexpr int s_mostRecent = 50;
constexpr int s_usualPictureSize = 96;

struct FolderKey {
    const char* name;
    QString toolkit::Folders::*folder;
};

constexpr FolderKey s_folderKeys[] = {
    {"install", &toolkit::Folders::install},
    {"archives", &toolkit::Folders::archives},
    {"custom", &toolkit::Folders::custom},
    {"snapshots", &toolkit::Folders::snapshots},
};

} // namespace

bool isSame(const toolkit::PresetPlace& a, const toolkit::PresetPlace& b)
{
    return a.file == b.file && a.path == b.path;
}

Memory::Memory()
    : m_settings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("rvopen"),
                 QStringLiteral("rvopen-browser"))
{
}

Memory::Memory(const QString& file)
    : m_settings(file, QSettings::IniFormat)
{
}

QStringList Memory::opened() const
{
    return m_settings.value(s_opened).toStringList();
}

void Memory::setOpened(const QStringList& paths)
{
    m_settings.setValue(s_opened, paths);
}

toolkit::Folders Memory::folders() const
{
    toolkit::Folders folders;
    for (const FolderKey& key : s_folderKeys)
        folders.*key.folder = m_settings.value(s_folders + QLatin1String(key.name)).toString();
    return folders;
}

void Memory::setFolders(const toolkit::Folders& folders)
{
    for (const FolderKey& key : s_folderKeys)
        m_settings.setValue(s_folders + QLatin1String(key.name), folders.*key.folder);
}

Memory::Places Memory::favourites() const
{
    return places(s_favourites);
}

bool Memory::isFavourite(const toolkit::PresetPlace& place) const
{
    const Places all = favourites();
    return std::any_of(all.begin(), all.end(), [&place](const toolkit::PresetPlace& favourite) {
        return isSame(favourite, place);
    });
}

void Memory::setFavourite(const toolkit::PresetPlace& place, bool isFavourite)
{
    Places all = favourites();
    all.erase(
        std::remove_if(all.begin(), all.end(),
                       [&](const toolkit::PresetPlace& other) { return isSame(other, place); }),
        all.end());
    if (isFavourite)
        all.append(place);
    setPlaces(s_favourites, all);
}

Memory::Places Memory::recent() const
{
    return places(s_recentKey);
}

void Memory::addRecent(const toolkit::PresetPlace& place)
{
    Places all{place};
    for (const toolkit::PresetPlace& other : recent()) {
        if (!isSame(other, place) && all.size() < s_mostRecent)
            all.append(other);
    }
    setPlaces(s_recentKey, all);
}

void Memory::move(const Moves& moves)
{
    for (const QString& key : {s_favourites, s_recentKey}) {
        Places all = places(key);
        for (toolkit::PresetPlace& place : all) {
            const auto moved = std::find_if(moves.begin(), moves.end(), [&place](const auto& one) {
                return isSame(one.first, place);
            });
            if (moved != moves.end())
                place = moved->second;
        }
        setPlaces(key, all);
    }
}

QByteArray Memory::geometry() const
{
    return m_settings.value(s_geometry).toByteArray();
}

QByteArray Memory::layout() const
{
    return m_settings.value(s_layout).toByteArray();
}

void Memory::setWindow(const QByteArray& geometry, const QByteArray& layout)
{
    m_settings.setValue(s_geometry, geometry);
    m_settings.setValue(s_layout, layout);
}

int Memory::pictureSize() const
{
    return m_settings.value(s_pictureSizeKey, s_usualPictureSize).toInt();
}

void Memory::setPictureSize(int size)
{
    m_settings.setValue(s_pictureSizeKey, size);
}

Appearance Memory::appearance() const
{
    const QString name = m_settings.value(s_appearance).toString();
    return name == s_darkName    ? Appearance::Dark
           : name == s_lightName ? Appearance::Light
                                 : Appearance::System;
}

void Memory::setAppearance(Appearance appearance)
{
    if (appearance == Appearance::System)
        m_settings.remove(s_appearance);
    else
        m_settings.setValue(s_appearance,
                            appearance == Appearance::Dark ? s_darkName : s_lightName);
}

Memory::Places Memory::places(const QString& key) const
{
    Places all;
    QSettings& settings = m_settings;
    const int count = settings.beginReadArray(key);
    for (int i = 0; i < count; ++i) {
        settings.setArrayIndex(i);
        all.append({settings.value(s_fileKey).toString(), settings.value(s_pathKey).toString()});
    }
    settings.endArray();
    return all;
}

void Memory::setPlaces(const QString& key, const Places& places)
{
    m_settings.remove(key);
    m_settings.beginWriteArray(key, int(places.size()));
    for (int i = 0; i < int(places.size()); ++i) {
        m_settings.setArrayIndex(i);
        m_settings.setValue(s_fileKey, places[i].file);
        m_settings.setValue(s_pathKey, places[i].path);
    }
    m_settings.endArray();
}

} // namespace rvopen::browser
