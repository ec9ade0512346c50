// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Things.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/Sorting.h>

namespace rvopen::command {

using namespace toolkit;

namespace {

class Sort : public Command {
public:
    const char* name() const override
    {
        return "sort";
    }

    const char* summary() const override
    {
        return "Put presets, folders and snapshots in order";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Sorts what stands in sections, folders, collections and palettes, without regard to "
            "the case of letters: folders first, by their names, then all else. What is alike "
            "keeps its order, and a comment stays with what follows it. Sections and collections "
            "themselves stay where they are.");
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("paths", m_paths,
                             "Sections, folders, collections or palettes, with the folders in "
                             "them; all of them when none are given",
                             false);
        arguments.choice(
            "--by", m_by,
            {QStringLiteral("name"), QStringLiteral("refname"), QStringLiteral("category")},
            "What counts; the name when not given");
        arguments.flag("--reverse", m_isReverse, "From the last to the first; folders stay first");
        m_target.declare(arguments);
        arguments.example("rvopen sort archives/Zorvane/Product.rvx --by category -o sorted.rvx",
                          "a copy in which presets of a category stand together");
        arguments.example("rvopen sort --dry-run snapshots/house.xml \"snapshots[Model Cameras]\"",
                          "whether the saved cameras are in order");
    }

    int run(Session& session) override
    {
        m_target.lock(m_file);
        const std::unique_ptr<Document> document = readOrFail(m_file, session);
        m_target.check(*document);
        const SortBy by = m_by == QLatin1String("refname")    ? SortBy::RefName
                          : m_by == QLatin1String("category") ? SortBy::Category
                                                              : SortBy::Name;
        EditReport report;
        for (const PathPattern::Match& shelf : shelves(*document)) {
            const bool isChanged = SortShelf(
                shelf.element, by, m_isReverse ? SortOrder::Descending : SortOrder::Ascending);
            if (isChanged)
                report.edits.append({shelf.path, shelf.element.tagName(), QStringLiteral("sorted"),
                                     QString(), QString()});
        }
        PictureMoves none(false);
        if (!report.edits.isEmpty() || !m_target.isInPlace())
            report.written = writeTogether({document.get()}, m_target, none, session);
        report.print(name(), *document, m_target, session);
        return session.result(ExitFine);
    }

private:
    /// With their paths as they were.
    QVector<PathPattern::Match> shelves(const Document& document) const
    {
        QVector<QDomElement> named;
        for (const QString& path : m_paths) {
            const int before = int(named.size());
            for (const PathPattern::Match& match : PathPattern(path).Find(document.Root())) {
                if (isShelf(match.element))
                    named.append(match.element);
            }
            if (int(named.size()) == before)
                throw Failure(QStringLiteral("\"%1\" is no section, folder, collection or palette")
                                  .arg(path));
        }
        QVector<PathPattern::Match> found;
        Walk(document.Root(), QString(), [&](const QDomElement& element, const QString& path) {
            if (isShelf(element) && (m_paths.isEmpty() || isIn(element, named)))
                found.append({element, path});
            return !isParam(element);
        });
        return found;
    }

    static bool isIn(const QDomElement& element, const QVector<QDomElement>& shelves)
    {
        for (QDomNode node = element; !node.isNull(); node = node.parentNode()) {
            if (shelves.contains(node.toElement()))
                return true;
        }
        return false;
    }

    QString m_file;
    QStringList m_paths;
    QString m_by;
    bool m_isReverse = false;
    Target m_target;
};

} // namespace

std::unique_ptr<Command> makeSort()
{
    return std::make_unique<Sort>();
}

} // namespace rvopen::command
