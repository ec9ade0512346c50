// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "FileWorks.h"

#include "Becoming.h"
#include "EditedFile.h"
#include "FileTexts.h"
#include "Workspace.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/drawing/PicturePlan.h>
#include <rvopen/toolkit/edit/Links.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>

#include <QCoreApplication>

#include <algorithm>

namespace rvopen::browser::works {

using namespace toolkit;
using Ending = LongWork::Ending;
using Lines = QVector<Findings::Line>;
using State = LongWork::State;

namespace {

class Texts {
    Q_DECLARE_TR_FUNCTIONS(rvopen::browser::works)
};

/// A file to be worked on, and how it was when its copy was made.
struct Worked {
    QString file;
    QDomDocument copy;
    quint64 revision = 0;
};

Worked workedOf(EditedFile& file)
{
    return {file.file(), file.copy(), file.revision()};
}

/// In the thread of the window: the copy comes in.
bool comeIn(const Workspace& workspace, const Worked& worked, const QString& step)
{
    EditedFile* const file = workspace.edited(worked.file);
    return file && file->revision() == worked.revision &&
           file->become(worked.copy.documentElement(), file->dom().documentElement(), step);
}

QString editedMeanwhile(const QString& file)
{
    return Texts::tr("%1 was edited meanwhile: nothing was done").arg(LastPathComponent(file));
}

std::unique_ptr<Document> readForWork(const QString& file)
{
    Load load = LoadDocument(file);
    if (!load)
        throw Failure(messageOf(load.error));
    return std::move(load.document);
}

/// The places of each file, and the file to be worked on.
struct WorkedPresets {
    Worked worked;
    QStringList paths;
};

QVector<WorkedPresets> workedPresets(Workspace& workspace, const QVector<PresetPlace>& presets)
{
    QVector<WorkedPresets> files;
    for (const PresetPlace& preset : presets) {
        const auto known =
            std::find_if(files.begin(), files.end(), [&preset](const WorkedPresets& one) {
                return one.worked.file == preset.file;
            });
        if (known != files.end()) {
            known->paths << preset.path;
        } else if (EditedFile* const file = workspace.edit(preset.file)) {
            files.append({workedOf(*file), {preset.path}});
        }
    }
    return files;
}

/// All of them, or those that were not edited meanwhile, with a message of these.
QString comeAllIn(const Workspace& workspace, const QVector<WorkedPresets>& files,
                  const QString& step, const QString& message)
{
    for (const WorkedPresets& one : files) {
        if (!comeIn(workspace, one.worked, step))
            return editedMeanwhile(one.worked.file);
    }
    return message;
}

Lines linesOf(const QVector<DocumentTexture>& textures, const QString& file)
{
    Lines lines;
    for (const DocumentTexture& texture : textures) {
        if (!texture.problem.isEmpty())
            lines.append({texture.problem, texture.paths.value(0), file, Severity::Warning, {}});
    }
    return lines;
}

QString shownText(const MergeText& text)
{
    return text ? *text : Texts::tr("nothing");
}

/// The tags from the preset down to the parameter; parameters with their names. What elements are
/// called differs from preset to preset.
QVector<QPair<QString, QString>> stepsTo(const QDomElement& param, const QDomElement& preset)
{
    QVector<QPair<QString, QString>> steps;
    for (QDomElement at = param; !at.isNull() && at != preset; at = at.parentNode().toElement()) {
        const bool isParam = at.tagName() == QLatin1String("param");
        steps.prepend({at.tagName(), isParam ? at.attribute(QStringLiteral("name")) : QString()});
    }
    return steps;
}

QDomElement stepDown(QDomElement at, const QVector<QPair<QString, QString>>& steps)
{
    for (const auto& [tag, name] : steps) {
        QDomElement child = at.firstChildElement(tag);
        while (!child.isNull() && !name.isEmpty() &&
               child.attribute(QStringLiteral("name")) != name)
            child = child.nextSiblingElement(tag);
        at = child;
    }
    return at;
}

} // namespace

Work importInto(Workspace& workspace, const QString& file, const QString& source,
                ChangedImports changed, const std::function<void(int)>& asked, const Show& show)
{
    EditedFile* const edited = workspace.edit(file);
    if (!edited)
        return {};
    return
        [&workspace, worked = workedOf(*edited), source, changed, asked, show](State&) -> Ending {
            const std::unique_ptr<Document> from = readForWork(source);
            const ImportOutcome outcome =
                Import(*from, *Document::Of(worked.file, worked.copy), changed);
            return [&workspace, worked, source, asked, show, outcome] {
                if (!comeIn(workspace, worked, Texts::tr("Import")))
                    return editedMeanwhile(worked.file);
                Lines lines;
                for (const QString& refused : outcome.refused)
                    lines.append({refused, QString(), source, Severity::Warning, {}});
                if (!lines.isEmpty())
                    show(lines);
                const int taken = outcome.added + outcome.replaced + outcome.renamed;
                if (outcome.left == 0)
                    return Texts::tr("%n element(s) were taken over", nullptr, taken);
                asked(outcome.left);
                return QString();
            };
        };
}

Work mergeInto(Workspace& workspace, const QString& file, const QString& theirs,
               const QString& base, const Show& show)
{
    EditedFile* const edited = workspace.edit(file);
    if (!edited)
        return {};
    return [&workspace, worked = workedOf(*edited), theirs, base, show](State&) -> Ending {
        std::unique_ptr<Document> before;
        if (!base.isEmpty())
            before = readForWork(base);
        const std::unique_ptr<Document> other = readForWork(theirs);
        const MergeOutcome outcome =
            Merge(before.get(), *Document::Of(worked.file, worked.copy), *other);
        return [&workspace, worked, show, outcome] {
            if (!comeIn(workspace, worked, Texts::tr("Merge")))
                return editedMeanwhile(worked.file);
            Lines lines;
            for (const MergeConflict& conflict : outcome.conflicts)
                lines.append({Texts::tr("Both changed: before %1, here %2, there %3")
                                  .arg(shownText(conflict.base), shownText(conflict.ours),
                                       shownText(conflict.theirs)),
                              conflict.path,
                              worked.file,
                              Severity::Warning,
                              {}});
            show(lines);
            return Texts::tr("%n change(s) were taken, ", nullptr, outcome.taken) +
                   Texts::tr("%n conflict(s) are to be looked at", nullptr,
                             int(outcome.conflicts.size()));
        };
    };
}

Work findImages(Workspace& workspace, const QString& file, const QString& folder, const Show& show)
{
    EditedFile* const edited = workspace.edit(file);
    if (!edited)
        return {};
    return [&workspace, worked = workedOf(*edited), folder, show](State&) -> Ending {
        const QVector<DocumentTexture> textures =
            RelinkTextures(*Document::Of(worked.file, worked.copy), {folder});
        return [&workspace, worked, textures, show] {
            const Lines lines = linesOf(textures, worked.file);
            const int found = int(textures.size() - lines.size());
            if (found > 0 && !comeIn(workspace, worked, Texts::tr("Find Images")))
                return editedMeanwhile(worked.file);
            show(lines);
            return Texts::tr("%n image(s) were found, ", nullptr, found) +
                   Texts::tr("%n are missing still", nullptr, int(lines.size()));
        };
    };
}

Work embedPictures(Workspace& workspace, const QVector<PresetPlace>& presets)
{
    return [&workspace, files = workedPresets(workspace, presets), folders = workspace.folders(),
            count = int(presets.size())](State& state) -> Ending {
        state.count = count;
        int embedded = 0;
        for (const WorkedPresets& one : files) {
            for (const QString& path : one.paths) {
                QDomElement preset = elementAt(one.worked.copy, path);
                const QString text = EmbeddedText(
                    PicturePlan::Drawn(preset, one.worked.file, folders).Draw(&state.stop));
                if (state.stop)
                    return {};
                state.done = state.done + 1;
                if (text.isEmpty())
                    continue;
                preset.setAttribute(QStringLiteral("xmlImage"), text);
                ++embedded;
            }
        }
        return [&workspace, files, embedded] {
            return comeAllIn(workspace, files, Texts::tr("Embed Pictures"),
                             Texts::tr("%n picture(s) were embedded", nullptr, embedded));
        };
    };
}

Work setForAll(Workspace& workspace, const PresetPlace& from, const QString& path,
               const QVector<PresetPlace>& presets)
{
    const EditedFile* const edited = workspace.edited(from.file);
    if (!edited)
        return {};
    return [&workspace, files = workedPresets(workspace, presets), copy = edited->copy(), from,
            path](State&) -> Ending {
        const QDomElement param = elementAt(copy, path);
        if (param.isNull())
            return {};
        const auto steps = stepsTo(param, elementAt(copy, from.path));
        ParamValues source;
        const QString text = source.Text(param);
        int set = 0;
        int without = 0;
        for (const WorkedPresets& one : files) {
            ParamValues values;
            for (const QString& preset : one.paths) {
                const QDomElement found = stepDown(elementAt(one.worked.copy, preset), steps);
                if (found.isNull() || !values.Check(found, text).isEmpty()) {
                    ++without;
                    continue;
                }
                values.Set(found, text);
                ++set;
            }
        }
        return [&workspace, files, set, without] {
            return comeAllIn(workspace, files, Texts::tr("Set for All"),
                             Texts::tr("The value was set in %n preset(s)", nullptr, set) +
                                 (without == 0
                                      ? QString()
                                      : Texts::tr(", and %n cannot have it", nullptr, without)));
        };
    };
}

Work collect(const Workspace& workspace, const QString& file, const QString& folder,
             CollectedTextures which, const Show& show)
{
    const EditedFile* const edited = workspace.edited(file);
    return [file, copy = edited ? edited->copy() : QDomDocument(), folder, which, show,
            folders = workspace.folders()](State&) -> Ending {
        const std::unique_ptr<Document> document =
            copy.isNull() ? readForWork(file) : Document::Of(file, copy);
        const QVector<DocumentTexture> textures =
            CollectTextures(*document, folder, folders, which);
        return [file, folder, textures, show] {
            const Lines lines = linesOf(textures, file);
            show(lines);
            return Texts::tr("%1 has the file and %n image(s)", nullptr,
                             int(textures.size() - lines.size()))
                .arg(LastPathComponent(folder));
        };
    };
}

bool hasImagesElsewhere(const Workspace& workspace, const QString& file)
{
    const EditedFile* const edited = workspace.edited(file);
    if (!edited)
        return false;
    const QVector<DocumentTexture> textures =
        TexturesOf(*Document::Of(file, edited->dom()), workspace.folders());
    return std::any_of(textures.begin(), textures.end(),
                       [](const DocumentTexture& texture) { return texture.isElsewhere; });
}

Work findUses(const Workspace& workspace, const ListedPreset& preset, const Show& show)
{
    QVector<QPair<QString, QDomDocument>> files;
    for (const QString& file : workspace.files()) {
        const EditedFile* const edited = workspace.edited(file);
        files.append({file, edited ? edited->copy() : QDomDocument()});
    }
    return [files, preset, show](State& state) -> Ending {
        Lines lines;
        state.count = int(files.size());
        for (const auto& [file, copy] : files) {
            if (state.stop)
                return {};
            const Load load = copy.isNull() ? LoadDocument(file) : Load();
            state.done = state.done + 1;
            if (copy.isNull() && !load)
                continue;
            const QDomElement root = copy.isNull() ? load.document->Root() : copy.documentElement();
            for (const Link& link : LinksTo(preset.kind, preset.refName, root))
                lines.append({Texts::tr("Uses %1 %2").arg(preset.kind, preset.name),
                              link.path,
                              file,
                              Severity::Note,
                              {}});
        }
        return [lines, preset, show] {
            show(lines);
            return Texts::tr("%1 is used in %n place(s)", nullptr, int(lines.size()))
                .arg(preset.name);
        };
    };
}

} // namespace rvopen::browser::works
