// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/edit/Things.h"
#include "toolkit/edit/Uses.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <algorithm>

namespace rvopen::command {

using namespace toolkit;

namespace {

const QString s_name = QStringLiteral("name");
const QString s_refName = QStringLiteral("refname");
const QString s_linkName = QStringLiteral("linkname");
const QString s_category = QStringLiteral("cat");

class Rename : public Command {
public:
    const char* name() const override
    {
        return "rename";
    }

    const char* summary() const override
    {
        return "Rename presets, folders and snapshots";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "The picture of what is renamed gets the name that the host looks for, and those of a "
            "category go into its new folder. A name that a neighbour of the same kind has is "
            "refused. So is a new reference name or link name for what is used, in the file, in "
            "the archives of the host's folders or in those named with --users; with --force the "
            "uses in the file itself follow. The current snapshot keeps its name.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("path", m_path,
                             "What to rename, as for get; the old name of a "
                             "category");
        arguments.positional("name", m_newName, "The new name");
        arguments.flag("--refname", m_isRefName, "Change the reference name instead");
        arguments.flag("--linkname", m_isLinkName, "Change the link name instead");
        arguments.flag("--category", m_isCategory, "Rename a category of presets");
        arguments.onlyOne({QStringLiteral("--refname"), QStringLiteral("--linkname"),
                           QStringLiteral("--category")});
        declareUsers(arguments, m_users);
        m_target.declare(arguments, "Rename also what is used, and write over other pictures and "
                                    "another file than the input");
        arguments.example("rvopen rename --in-place archives/Custom/MyPresets.rvx "
                          "\"colour[Our blue]\" \"House blue\"",
                          "with its thumbnail");
        arguments.example("rvopen rename --category --in-place archives/Custom/MyPresets.rvx "
                          "Stones Rocks",
                          "with the folder of the thumbnails");
    }

    int run(Session& session) override
    {
        m_target.lock(m_file);
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        m_target.check(*document);
        if (!toolkit::IsXmlText(m_newName) || m_newName.isEmpty())
            throw Failure(QStringLiteral("\"%1\" is no name").arg(m_newName));
        QVector<Chosen> chosen = m_isCategory ? presetsOfCategory(*document) : named(*document);
        const QString refused = m_isCategory ? QString() : problemOf(chosen.first());
        const bool isStopped =
            !refused.isEmpty() || (isUsed(*document, chosen, session) && !m_target.isForced());
        if (isStopped) {
            EditReport report;
            addEdits(report, chosen, QStringLiteral("none"));
            report.print(name(), *document, m_target, session);
            session.warning(document->Name(),
                            refused.isEmpty()
                                ? QStringLiteral("nothing was renamed: --force renames what is "
                                                 "used")
                                : refused + QLatin1String("; nothing was renamed"));
            return session.result(ExitFindings);
        }
        return rename(chosen, *document, session);
    }

private:
    QString attribute() const
    {
        return m_isCategory   ? s_category
               : m_isRefName  ? s_refName
               : m_isLinkName ? s_linkName
                              : s_name;
    }

    QVector<Chosen> named(const Document& document) const
    {
        const QVector<Chosen> chosen = chosenThings(document.Root(), {m_path}, Matches::All);
        if (chosen.size() > 1)
            throw Failure(QStringLiteral("\"%1\" leads to %2 things")
                              .arg(m_path, QString::number(chosen.size())));
        if (m_isLinkName && chosen.first().thing != Thing::PaletteMaterial)
            throw Failure(QStringLiteral("only materials of palettes have link names"));
        return chosen;
    }

    QVector<Chosen> presetsOfCategory(const Document& document) const
    {
        if (document.Kind() == DocumentKind::SnapShots)
            throw Failure(QStringLiteral("archives have categories, snapshot documents do not"));
        if (!StaysInside(m_newName))
            throw Failure(QStringLiteral("\"%1\" is no folder for pictures").arg(m_newName));
        QVector<Chosen> presets;
        forEachPreset(document.Root(), [&](const Preset& preset) {
            if (preset.element.attribute(s_category) == m_path)
                presets.append({preset.element, preset.path, Thing::Preset});
        });
        if (presets.isEmpty())
            throw Failure(QStringLiteral("no preset has the category \"%1\"").arg(m_path));
        return presets;
    }

    /// Why the thing cannot have the name; empty when it can.
    QString problemOf(const Chosen& one) const
    {
        const QDomElement& element = one.element;
        const QDomElement shelf = element.parentNode().toElement();
        const QDomElement top =
            m_isRefName && one.thing == Thing::Preset ? sectionOf(element) : shelf;
        QString problem;
        Walk(top, PathOf(top), [&](const QDomElement& other, const QString& path) {
            const bool isRival = other != element && other.tagName() == element.tagName() &&
                                 thingOf(other) == one.thing &&
                                 other.attribute(attribute()) == m_newName;
            if (isRival && problem.isEmpty())
                problem = QStringLiteral("%1 has the name \"%2\"").arg(path, m_newName);
            return problem.isEmpty() && m_isRefName && thingOf(other) == Thing::Folder;
        });
        // Several objects of a palette may have been given one preset.
        return m_isRefName && one.thing != Thing::Preset ? QString() : problem;
    }

    bool isUsed(const Document& document, const QVector<Chosen>& chosen, Session& session) const
    {
        if (!m_isRefName && !m_isLinkName)
            return false;
        const Uses uses(document, {chosen.first().element});
        const QVector<Use> found =
            m_isLinkName ? uses.ofObjects()
                         : uses.inDocument() + usesInFiles(uses, OfArchive::Left, m_users, session);
        complainOf(found, session);
        return !found.isEmpty();
    }

    int rename(const QVector<Chosen>& chosen, const Document& document, Session& session)
    {
        const Folders before = foldersOf(document, session.folders, document.Folder());
        const Folders after =
            foldersOf(document, session.folders, outputFolder(document, m_target));
        QVector<PictureLocation> places;
        for (const Chosen& one : chosen)
            places.append(pictureIn(one.element, document, before));
        QVector<QDomElement> elements;
        if (m_isRefName)
            elements = Uses(document, {chosen.first().element}).elementsInDocument();
        for (const Chosen& one : chosen)
            elements.append(one.element);
        for (QDomElement element : elements)
            element.setAttribute(attribute(), m_newName);

        PictureMoves pictures(m_target.isForced());
        const bool isCopy = !m_target.isInPlace() && !m_target.isDryRun();
        for (int i = 0; i < int(chosen.size()); ++i)
            pictures.follow(places[i], pictureIn(chosen[i].element, document, after),
                            isCopy ? PictureMoves::Old::Kept : PictureMoves::Old::Removed);
        if (!pictures.moves().isEmpty()) {
            pictures.keep(picturesOf(document, before));
            pictures.keep(picturesOfOthers({&document}, session));
        }
        if (complainOf(pictures, document, session))
            throw Failure(QStringLiteral("nothing was renamed"));
        EditReport report;
        report.pictures = pictures.moves();
        addEdits(report, chosen, QStringLiteral("renamed"));
        report.written = writeTogether({&document}, m_target, pictures, session);
        report.print(name(), document, m_target, session);
        return session.result(ExitFine);
    }

    void addEdits(EditReport& report, const QVector<Chosen>& chosen, const QString& action) const
    {
        for (const Chosen& one : chosen) {
            const bool isNone = action == QLatin1String("none");
            const QString path = isNone ? QString() : PathOf(one.element);
            report.edits.append({one.path, thingName(one.thing), action, path,
                                 path == one.path ? newNameNote() : QString()});
        }
    }

    /// What is new where the path does not show it.
    QString newNameNote() const
    {
        const QString what = m_isCategory   ? QStringLiteral("category")
                             : m_isRefName  ? QStringLiteral("reference name")
                             : m_isLinkName ? QStringLiteral("link name")
                                            : QStringLiteral("name");
        return QStringLiteral("its %1 is \"%2\"").arg(what, m_newName);
    }

    QString m_file;
    QString m_path;
    QString m_newName;
    bool m_isRefName = false;
    bool m_isLinkName = false;
    bool m_isCategory = false;
    QStringList m_users;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeRename()
{
    return std::make_unique<Rename>();
}

} // namespace rvopen::command
