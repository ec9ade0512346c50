// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// Prints what a browser of presets shows: browser_data <folder of archives> [<preset>]
// All presets with their kinds and categories, and what is wrong with the archives; with the name
// of a preset also its values and its picture, which is written to "<preset>.png".

#include <rvopen/toolkit/check/Inspection.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/drawing/Subjects.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/images/PictureLocations.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <QFile>
#include <QGuiApplication>
#include <QTextStream>

namespace {

using namespace rvopen;

/// Of the preset's own parameters and of those of its parts.
void printValues(QTextStream& out, const QDomElement& owner, toolkit::ParamValues& values,
                 const QString& indent)
{
    const QString kind = toolkit::KindOf(owner);
    for (QDomElement child = owner.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement()) {
        const QString name = child.attribute(QStringLiteral("name"));
        if (child.tagName() != QLatin1String("param")) {
            out << indent << child.tagName() << '\n';
        } else {
            const toolkit::ParamInfo* const info = toolkit::FindParam(owner.tagName(), kind, name);
            const QString unit = info ? toolkit::UnitName(info->unit) : QString();
            out << indent << (info ? info->label.toString() : name) << ": " << values.Text(child)
                << (unit.isEmpty() ? unit : QLatin1Char(' ') + unit) << '\n';
        }
        // A parameter that is a shader has its values below it.
        printValues(out, child, values, indent + QLatin1String("  "));
    }
}

/// The picture that the host has of the preset, else one that is drawn.
bool writePicture(QTextStream& out, const toolkit::Subject& preset,
                  const toolkit::Document& archive, const toolkit::Folders& folders)
{
    QImage picture = toolkit::ExistingPicture(preset.element, archive, folders);
    const bool isDrawn = picture.isNull();
    if (isDrawn)
        picture =
            toolkit::DrawPicture(preset.element, {}, toolkit::TextureFinder(archive, folders));
    QString file = preset.name + QLatin1String(".png");
    file.replace(QLatin1Char('/'), QLatin1Char('-')).replace(QLatin1Char('\\'), QLatin1Char('-'));
    if (!picture.save(file))
        return false;
    out << "  " << file << ": " << picture.width() << " by " << picture.height()
        << (isDrawn ? ", drawn\n" : "\n");
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    // Pictures need no screen.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication application(argc, argv);
    QTextStream out(stdout);
    if (argc < 2) {
        out << "browser_data <folder of archives> [<preset>]\n";
        return 1;
    }
    const QString wanted = argc > 2 ? QFile::decodeName(argv[2]) : QString();
    toolkit::Folders folders;
    folders.archives = QFile::decodeName(argv[1]);
    QVector<ReadError> problems;
    const QStringList files = toolkit::DocumentsBelow(folders.archives, problems);
    const toolkit::Surroundings surroundings = toolkit::LookAround(folders);
    bool isFine = true;
    for (const QString& file : files) {
        const toolkit::Load load = toolkit::LoadDocument(file, toolkit::DocumentKind::Archive);
        if (!load) {
            problems.append(load.error);
            continue;
        }
        out << file << '\n';
        toolkit::ParamValues values;
        for (const toolkit::Subject& preset : toolkit::SubjectsOf(*load.document)) {
            if (!wanted.isEmpty() && preset.name != wanted)
                continue;
            out << "  " << preset.name << " (" << preset.element.tagName() << ", " << preset.heading
                << ")\n";
            if (wanted.isEmpty())
                continue;
            printValues(out, preset.element, values, QStringLiteral("    "));
            isFine = writePicture(out, preset, *load.document, folders) && isFine;
        }
        for (const toolkit::Finding& finding : toolkit::Inspect(*load.document, surroundings))
            out << "  " << toolkit::SeverityName(finding.rule->severity) << " in line "
                << finding.line << ": " << finding.message << '\n';
    }
    for (const ReadError& problem : problems)
        out << problem.file << ", line " << problem.line << ": " << problem.message << '\n';
    return isFine && problems.isEmpty() ? 0 : 1;
}
