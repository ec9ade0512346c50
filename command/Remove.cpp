// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/edit/Things.h"
#include "toolkit/edit/Uses.h"

namespace rvopen::command {

using namespace toolkit;

namespace {

class Remove : public Command {
public:
    const char* name() const override
    {
        return "remove";
    }

    const char* summary() const override
    {
        return "Remove presets, folders and snapshots";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Takes the paths of get. A folder goes with all that is in it, a palette stands for "
            "its materials, the current snapshot stays. Pictures go with what they show unless "
            "something else shows them too; comments and image files stay. What is used, in the "
            "file, in the archives of the host's folders or in those named with --users, is not "
            "removed without --force. With a selection, what the paths lead to and is selected; "
            "without paths, all that is selected.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("paths", m_paths, "Presets, folders, snapshots or palette materials",
                             false);
        arguments.flag("--all", m_all,
                       "Remove every match of a path, without paths all that is selected");
        declareUsers(arguments, m_users);
        m_selection.declare(arguments);
        m_target.declare(arguments, "Remove also what is used, and write over another file than "
                                    "the input");
        arguments.example("rvopen remove archives/Custom/MyPresets.rvx \"colour[Our orange]\" "
                          "-o without.rvx",
                          "a copy without the preset");
        arguments.example("rvopen remove --dry-run --all snapshots/house.xml "
                          "\"/snapshots[Model Cameras]/*\"",
                          "what would go with all saved cameras");
    }

    int run(Session& session) override
    {
        m_target.lock(m_file);
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        m_target.check(*document);
        const QVector<Chosen> chosen =
            selectedThings(document->Root(), m_paths, m_selection.selection(), m_all);
        EditReport report;
        QVector<QDomElement> elements;
        for (const Chosen& one : chosen)
            elements.append(one.element);

        const bool isUsed = findUses(*document, elements, session);
        const bool isStopped = isUsed && !m_target.isForced();
        for (const Chosen& one : chosen)
            report.edits.append({one.path, thingName(one.thing),
                                 isStopped ? QStringLiteral("none") : QStringLiteral("removed"),
                                 QString(), QString()});
        if (!isStopped)
            remove(elements, *document, report, session);
        report.print(name(), *document, m_target, session);
        if (isStopped)
            session.warning(document->Name(),
                            QStringLiteral("nothing was removed: --force removes what is used"));
        return session.result(isStopped ? ExitFindings : ExitFine);
    }

private:
    bool findUses(const Document& document, const QVector<QDomElement>& elements,
                  Session& session) const
    {
        const Uses uses(document, elements);
        const QVector<Use> found = uses.inDocument() + uses.ofObjects() +
                                   usesInFiles(uses, OfArchive::Counted, m_users, session);
        complainOf(found, session);
        return !found.isEmpty();
    }

    void remove(const QVector<QDomElement>& elements, const Document& document, EditReport& report,
                Session& session) const
    {
        const Folders folders = foldersOf(document, session.folders, document.Folder());
        PictureMoves pictures(false);
        // A copy without it leaves the input its pictures.
        if (m_target.isInPlace() || m_target.isDryRun()) {
            for (const QDomElement& element : elements) {
                for (const QDomElement& leaf : leavesOf(element))
                    pictures.remove(pictureIn(leaf, document, folders));
            }
        }
        for (const QDomElement& element : elements)
            element.parentNode().removeChild(element);
        if (!pictures.moves().isEmpty()) {
            pictures.keep(picturesOf(document, folders));
            pictures.keep(picturesOfOthers({&document}, session));
        }
        complainOf(pictures, document, session);
        report.pictures = pictures.moves();
        report.written = writeTogether({&document}, m_target, pictures, session);
    }

    QString m_file;
    QStringList m_paths;
    bool m_all = false;
    QStringList m_users;
    SelectionOptions m_selection;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeRemove()
{
    return std::make_unique<Remove>();
}

} // namespace rvopen::command
