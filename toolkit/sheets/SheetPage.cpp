// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SheetPage.h"

#include "toolkit/documents/FileWriting.h"
#include "toolkit/edit/Folding.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/TypedText.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QColor>
#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

const QString s_pictures = QStringLiteral("pictures");
const QString s_details = QStringLiteral("details");
const QString s_index = QStringLiteral("index.html");
const QString s_data = QStringLiteral("data.js");
/// What a browser loads at once when details are asked for.
const int s_detailsInFile = 100;
/// Of the digest that a file is named by.
const int s_digits = 16;

/// As a script that calls the function with it. No text in it ends a script or a line of one.
QByteArray scriptOf(const char* function, const QJsonDocument& data)
{
    QByteArray json = data.toJson(QJsonDocument::Compact);
    json.replace('<', "\\u003c");
    json.replace("\xe2\x80\xa8", "\\u2028");
    json.replace("\xe2\x80\xa9", "\\u2029");
    return QByteArray(function) + "(" + json + ");\n";
}

/// "#rrggbb"; empty for what is no colour.
QString colourOf(const QString& text)
{
    float rgb[3] = {};
    if (!toTriple(text, rgb))
        return QString();
    const auto channel = [&rgb](int i) {
        return qRound(std::clamp(double(rgb[i]), 0.0, 1.0) * 255);
    };
    return QColor(channel(0), channel(1), channel(2)).name();
}

/// The texts that --text looks in, and the sub-category.
QString searchText(const Subject& subject)
{
    QStringList texts{subject.name, subject.heading};
    for (const char* const name : {"name", "refname", "cat", "subcat", "desc"})
        texts << subject.element.attribute(QLatin1String(name));
    texts.removeDuplicates();
    return folded(texts.join(QLatin1Char('\n')));
}

} // namespace

void SheetData::add(const Subject& subject, const Document& document, ParamValues& values)
{
    QStringList colours;
    QStringList textures;
    QJsonArray rows;
    Walk(subject.element, QString(), [&](const QDomElement& element, const QString& path) {
        if (!isParam(element))
            return true;
        const QDomElement owner = element.parentNode().toElement();
        const QString name = element.attribute(QStringLiteral("name"));
        const ParamInfo* const info = FindParam(owner.tagName(), KindOf(owner), name);
        const QString text = values.Text(element);
        QString colour;
        if (element.attribute(QStringLiteral("type")) == QLatin1String("colour"))
            colour = colourOf(text);
        if (!colour.isEmpty() && !colours.contains(colour))
            colours << colour;
        if (!text.isEmpty() && isTextureParam(owner.tagName(), name) && !textures.contains(text))
            textures << text;
        rows.append(QJsonArray{path.left(path.lastIndexOf(labelOf(element))), name,
                               info ? info->label.toString() : name, text,
                               info ? UnitName(info->unit) : QString(), colour});
        return true;
    });
    const auto attribute = [&subject](const char* name) {
        return subject.element.attribute(QLatin1String(name));
    };
    m_items.append(QJsonObject{
        {QStringLiteral("name"), subject.name},
        {QStringLiteral("kind"), subject.element.tagName()},
        {QStringLiteral("refname"), attribute("refname")},
        {QStringLiteral("category"), attribute("cat")},
        {QStringLiteral("subcategory"), attribute("subcat")},
        {QStringLiteral("description"), attribute("desc")},
        {QStringLiteral("heading"), subject.heading},
        {QStringLiteral("file"), fileNumber(document.Name())},
        {QStringLiteral("path"), subject.path},
        {QStringLiteral("colours"), QJsonArray::fromStringList(colours)},
        {QStringLiteral("search"), searchText(subject)},
    });
    m_details.append(
        QJsonObject{{QStringLiteral("values"), rows},
                    {QStringLiteral("textures"), QJsonArray::fromStringList(textures)}});
}

int SheetData::fileNumber(const QString& name)
{
    if (m_fileNames.isEmpty() || m_fileNames.last().toString() != name)
        m_fileNames.append(name);
    return int(m_fileNames.size()) - 1;
}

SheetPage::SheetPage(const QString& folder, bool mayReplace, const SheetData& data)
    : m_folder(PathToOpen(folder))
    , m_data(data)
{
    const QFileInfo info(m_folder);
    if ((info.exists() || info.isSymLink()) && !info.isDir())
        throw Failure(QStringLiteral("\"%1\" is no folder").arg(folder));
    if (!info.exists() || QDir(m_folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System |
                                                 QDir::NoDotAndDotDot))
        return;
    if (!isPage())
        throw Failure(QStringLiteral("\"%1\" has other files: take an empty folder, or one with "
                                     "such a page")
                          .arg(folder));
    if (!mayReplace)
        throw Failure(
            QStringLiteral("\"%1\" has a page already: --force writes over it").arg(folder));
}

void SheetPage::setPicture(int index, const QImage& picture)
{
    if (!picture.isNull())
        m_data.m_items[index].insert(QStringLiteral("picture"),
                                     keepContent(s_pictures, encodedPicture(picture, "png"),
                                                 QStringLiteral(".png"), m_usedPictures));
}

void SheetPage::finish(const QString& title)
{
    const QJsonArray details = writtenDetails();
    QJsonArray items;
    for (const QJsonObject& item : m_data.m_items)
        items.append(item);
    const QByteArray data =
        scriptOf("rvopenPage", QJsonDocument(QJsonObject{
                                   {QStringLiteral("title"), title},
                                   {QStringLiteral("files"), m_data.m_fileNames},
                                   {QStringLiteral("details"), details},
                                   {QStringLiteral("detailsInFile"), s_detailsInFile},
                                   {QStringLiteral("items"), items},
                               }));
    for (const PageFile& file : pageFiles())
        writeOrFail(file.bytes, m_folder + QLatin1Char('/') + QLatin1String(file.name));
    // Last, since it leads to all the others.
    writeOrFail(data, m_folder + QLatin1Char('/') + s_data);
    m_files.keep();
    removeOthers(s_pictures, m_usedPictures);
    removeOthers(s_details, m_usedDetails);
}

bool SheetPage::isPage() const
{
    QStringList known{s_data, s_pictures, s_details};
    QByteArray index;
    for (const PageFile& file : pageFiles())
        known << QLatin1String(file.name);
    const QStringList names = QDir(m_folder).entryList(QDir::AllEntries | QDir::Hidden |
                                                       QDir::System | QDir::NoDotAndDotDot);
    return std::all_of(names.begin(), names.end(),
                       [&known](const QString& name) { return known.contains(name); }) &&
           readWhole(m_folder + QLatin1Char('/') + s_index, index) &&
           index.contains("<meta name=\"generator\" content=\"rvopen\">");
}

QString SheetPage::keepContent(const QString& folder, const QByteArray& bytes,
                               const QString& suffix, QSet<QString>& used)
{
    const QByteArray digest = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
    const QString name = QString::fromLatin1(digest.left(s_digits)) + suffix;
    if (used.contains(name))
        return name;
    used.insert(name);
    const QString place = m_folder + QLatin1Char('/') + folder;
    const QString file = place + QLatin1Char('/') + name;
    QByteArray there;
    if (QFileInfo(file).isFile() && readWhole(file, there) && there == bytes)
        return name;
    if (!m_files.makeFolder(place) || !m_files.create(bytes, file))
        throw Failure(
            QStringLiteral("\"%1\": %2; nothing was changed").arg(file, m_files.problem()));
    return name;
}

QJsonArray SheetPage::writtenDetails()
{
    QJsonArray names;
    for (int first = 0; first < int(m_data.m_details.size()); first += s_detailsInFile) {
        QJsonArray part;
        for (const QJsonObject& detail : m_data.m_details.mid(first, s_detailsInFile))
            part.append(detail);
        names.append(keepContent(s_details, scriptOf("rvopenDetails", QJsonDocument(part)),
                                 QStringLiteral(".js"), m_usedDetails));
    }
    return names;
}

/// Those of the page before; files with other names are somebody else's.
void SheetPage::removeOthers(const QString& folder, const QSet<QString>& used) const
{
    QDir place(m_folder + QLatin1Char('/') + folder);
    const QString pattern = QString(s_digits, QLatin1Char('?')) + QLatin1String(".*");
    for (const QString& name : place.entryList({pattern}, QDir::Files | QDir::NoSymLinks)) {
        if (!used.contains(name))
            place.remove(name);
    }
}

} // namespace rvopen::toolkit
