// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Editing.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/documents/FileLock.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/edit/Carrying.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Things.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <algorithm>
#include <optional>

namespace rvopen::command {

using namespace toolkit;

namespace {

/// One preset, snapshot or material with its picture.
struct Leaf {
    PictureLocation before;
    QDomElement result;
};

/// What copy and move have in common.
class Transfer : public Command {
public:
    int run(Session& session) override
    {
        if (m_file == QLatin1String("-") && m_targetFile == m_file)
            throw Failure(QStringLiteral("standard input can be one of the two only"));
        const bool isWithin = m_targetFile.isEmpty() || isSameFile(m_targetFile, m_file);
        if (isMove() && !isWithin && !m_target.isInPlace() && !m_target.isDryRun())
            throw Failure(QStringLiteral("moving into another file changes both: say --in-place"));
        if (isMove() && isWithin && m_to.isEmpty())
            throw Failure(QStringLiteral("say where to: --to PATH or --into FILE"));
        FileLock sourceLock;
        lock(isWithin, sourceLock);
        const std::unique_ptr<Document> source = readOrFail(m_file, session);
        const std::unique_ptr<Document> other =
            isWithin ? nullptr : readOrFail(m_targetFile, session);
        const Document& target = other ? *other : *source;
        m_target.check(target);
        checkFiles(*source, target, isWithin);

        const QVector<Chosen> chosen =
            selectedThings(source->Root(), m_paths, m_selection.selection(), m_all);
        m_before = foldersOf(*source, session.folders, source->Folder());
        m_freeNames.emplace(target.Root());
        Walk(target.Root(), QString(), [this](const QDomElement& element, const QString&) {
            if (isShelf(element))
                m_shelves.append(element);
            return !isParam(element);
        });
        for (const Chosen& one : chosen)
            transfer(one, *source, target);
        const bool isStopped = m_isStopped;
        if (isStopped)
            undoReport();
        else
            write(*source, target, session);
        complainOf(m_report.textures, target, session);
        m_report.print(name(), target, m_target, session);
        if (isStopped)
            session.warning(target.Name(),
                            QStringLiteral("nothing was done: say --skip, --rename or --replace "
                                           "for what is there already"));
        return session.result(isStopped || m_isRefused ? ExitFindings : ExitFine);
    }

protected:
    virtual bool isMove() const = 0;

    void declareCommon(Arguments& arguments)
    {
        arguments.positional("file", m_file, "Document, archive, or \"-\"");
        arguments.positional("paths", m_paths,
                             "Presets, folders, snapshots, palettes or their materials", false);
        arguments.option("--into", m_targetFile, "FILE",
                         "Another document or archive that takes them");
        arguments.option("--to", m_to, "PATH",
                         "The section, folder, collection or palette that takes them; folders at "
                         "its end are made");
        arguments.flag("--all", m_all,
                       "Take every match of a path, without paths all that is selected");
        arguments.flag("--skip", m_skip, "Leave out what is there already");
        arguments.flag("--rename", m_rename, "Give it another name");
        arguments.flag("--replace", m_replace, "Put it in the place of what is there");
        arguments.onlyOne(
            {QStringLiteral("--skip"), QStringLiteral("--rename"), QStringLiteral("--replace")});
        m_selection.declare(arguments);
        m_target.declare(arguments, "Write over other pictures and another file than the input");
    }

private:
    /// Two runs that take the same two files take them in the same order.
    void lock(bool isWithin, FileLock& sourceLock)
    {
        if (isWithin) {
            m_target.lock(m_file);
            return;
        }
        const bool isSourceFirst = m_file < m_targetFile;
        const bool isBoth = isMove() && m_target.isInPlace() && !m_target.isDryRun();
        if (isBoth && isSourceFirst)
            sourceLock.take(m_file);
        m_target.lock(m_targetFile);
        if (isBoth && !isSourceFirst)
            sourceLock.take(m_file);
    }

    void checkFiles(const Document& source, const Document& target, bool isWithin) const
    {
        if (source.Kind() == DocumentKind::Unknown || target.Kind() == DocumentKind::Unknown)
            throw Failure(QStringLiteral("both have to be snapshot documents or archives"));
        if (!isWithin && isMove() && source.IsStream())
            throw Failure(
                QStringLiteral("\"%1\" is no file that could be written over").arg(source.Name()));
        const QString output = m_target.file(target);
        if (!isWithin && !output.isEmpty() && isSameFile(output, source.Path()))
            throw Failure(QStringLiteral("the source cannot be the output"));
    }

    // In memory.

    void transfer(const Chosen& one, const Document& source, const Document& target)
    {
        const bool isWithin = &source == &target;
        Edit edit{one.path, thingName(one.thing), QStringLiteral("none"), QString(), QString()};
        const QDomElement shelf = !m_to.isEmpty() ? shelfAt(m_to, target.Dom())
                                  : isWithin      ? one.element.parentNode().toElement()
                                                  : standingPlace(one.element, target.Dom());
        edit.note = shelf.isNull() ? QStringLiteral("there is no place for it: say --to PATH")
                                   : problemOfPlace(one.element, shelf);
        if (!edit.note.isEmpty()) {
            m_isRefused = true;
            m_report.edits.append(edit);
            dropUnused(shelf);
            return;
        }
        QVector<PictureLocation> places;
        for (const QDomElement& leaf : leavesOf(one.element))
            places.append(pictureIn(leaf, source, m_before));
        const QVector<QDomNode> comments = nodesBefore(one.element);
        const bool takesComments = isMove() && isArchiveShelf(shelf) &&
                                   isArchiveShelf(one.element.parentNode().toElement());
        const QDomElement result = made(one, shelf, source, target);
        const QVector<QDomElement> results = leavesOf(result);
        QVector<Leaf> leaves;
        for (int i = 0; i < int(results.size()); ++i)
            leaves.append({places[i], results[i]});
        const QDomNode old = settle(result, shelf, leaves, isWithin, edit);
        if (!edit.note.isEmpty()) {
            m_report.edits.append(edit);
            dropUnused(shelf);
            return;
        }
        QDomNode parent = old.isNull() ? QDomNode(shelf) : old.parentNode();
        if (isMove() && !isWithin)
            one.element.parentNode().removeChild(one.element);
        if (old.isNull())
            parent.appendChild(result);
        else
            parent.replaceChild(result, old);
        if (takesComments) {
            for (QDomNode comment : comments) {
                parent.insertBefore(target.Dom().importNode(comment, true), result);
                comment.parentNode().removeChild(comment);
            }
        }
        m_leaves += leaves;
        m_results.append(result);
        edit.action = edit.action == QLatin1String("none") ? done() : edit.action;
        m_report.edits.append(edit);
    }

    /// A shelf that was made for something that does not go there goes again.
    void dropUnused(QDomElement shelf) const
    {
        while (isShelf(shelf) && shelf.firstChild().isNull() && !m_shelves.contains(shelf) &&
               !m_results.contains(shelf)) {
            QDomElement parent = shelf.parentNode().toElement();
            parent.removeChild(shelf);
            shelf = parent;
        }
    }

    /// The element that goes into the target, as it is to be there. What is moved within a file
    /// stands where it stood.
    QDomElement made(const Chosen& one, const QDomElement& shelf, const Document& source,
                     const Document& target)
    {
        const bool isWithin = &source == &target;
        QDomElement result = isMove() && isWithin
                                 ? one.element
                                 : target.Dom().importNode(one.element, true).toElement();
        if (!isWithin) {
            const double ratio = unitsScale(target.Root()) / unitsScale(source.Root());
            if (ratio != 1)
                convertLengths(result, ratio);
            m_report.textures += rebaseTextures(result, source.Folder(), target.Folder());
            // As the host marks what came from another document.
            if (one.thing == Thing::SnapShot)
                result.setAttribute(QStringLiteral("ImageBorder"), 1);
        }
        if (one.thing == Thing::PaletteMaterial && isArchiveShelf(shelf))
            makePreset(result);
        return result;
    }

    /// Makes room for the element where its names are taken, as the user said. Answers the node
    /// whose place it takes, if any.
    QDomNode settle(const QDomElement& result, const QDomElement& shelf, QVector<Leaf>& leaves,
                    bool isWithin, Edit& edit)
    {
        const bool isRename = m_rename || (!isMove() && isWithin && !m_skip && !m_replace);
        QDomElement twin =
            result.tagName() == QLatin1String("dir") ? twinOf(result, shelf) : QDomElement();
        if (!twin.isNull() && !decide(edit, result, twin, isRename))
            return QDomNode();
        if (!twin.isNull() && isRename)
            twin = QDomElement();
        for (int i = 0; i < int(leaves.size());) {
            QDomElement leaf = leaves[i].result;
            const QDomElement other = twinOf(leaf, shelf);
            // What goes with its folder anyway is in nobody's way.
            if (other.isNull() || (!twin.isNull() && isBelow(other, twin))) {
                ++i;
                continue;
            }
            if (leaf == result) {
                if (!decide(edit, leaf, other, isRename))
                    return QDomNode();
                if (isRename)
                    return QDomNode();
                // Without a place of its own it goes where the other one was.
                return m_to.isEmpty() || other.parentNode() == shelf ? QDomNode(other)
                                                                     : displaced(other);
            }
            if (isRename) {
                m_freeNames->rename(leaf);
                ++i;
            } else if (m_replace) {
                displaced(other);
                ++i;
            } else if (m_skip && isMove()) {
                // A folder goes with all that is in it or stays.
                skip(edit, other);
                return QDomNode();
            } else if (m_skip) {
                leaf.parentNode().removeChild(leaf);
                leaves.remove(i);
            } else {
                stop(edit, other);
                return QDomNode();
            }
        }
        return twin;
    }

    /// What becomes of a thing whose name is taken. False when it is not put into the target.
    bool decide(Edit& edit, const QDomElement& element, const QDomElement& twin, bool isRename)
    {
        if (isRename) {
            m_freeNames->rename(element);
            edit.action = m_rename ? QStringLiteral("renamed") : QStringLiteral("none");
            return true;
        }
        if (m_replace) {
            edit.action = QStringLiteral("replaced");
            return true;
        }
        if (m_skip)
            skip(edit, twin);
        else
            stop(edit, twin);
        return false;
    }

    static void skip(Edit& edit, const QDomElement& twin)
    {
        edit.action = QStringLiteral("skipped");
        edit.note = QStringLiteral("%1 is there already").arg(PathOf(twin));
    }

    void stop(Edit& edit, const QDomElement& twin)
    {
        edit.note = QStringLiteral("%1 is there already").arg(PathOf(twin));
        m_isStopped = true;
    }

    static QDomNode displaced(const QDomElement& element)
    {
        element.parentNode().removeChild(element);
        return QDomNode();
    }

    static bool isBelow(const QDomNode& node, const QDomElement& above)
    {
        for (QDomNode parent = node; !parent.isNull(); parent = parent.parentNode()) {
            if (parent == above)
                return true;
        }
        return false;
    }

    /// What the element would be mistaken for: a preset of its section, or a neighbour.
    static QDomElement twinOf(const QDomElement& element, const QDomElement& shelf)
    {
        const QString key = keyOf(element, shelf);
        if (key.isEmpty())
            return QDomElement();
        const bool isFolder = element.tagName() == QLatin1String("dir");
        const bool isPreset = isArchiveShelf(shelf) && !isFolder;
        const QDomElement top = isPreset ? sectionOf(shelf) : shelf;
        QVector<QDomElement> others;
        for (QDomElement child = top.firstChildElement(); !child.isNull();
             child = child.nextSiblingElement()) {
            if (isPreset)
                others += leavesOf(child);
            else
                others.append(child);
        }
        const auto twin =
            std::find_if(others.cbegin(), others.cend(), [&](const QDomElement& other) {
                return other != element && !isParam(other) && keyOf(other, shelf) == key;
            });
        return twin == others.cend() ? QDomElement() : *twin;
    }

    QString done() const
    {
        return isMove() ? QStringLiteral("moved") : QStringLiteral("copied");
    }

    void undoReport()
    {
        for (Edit& edit : m_report.edits)
            edit.action = QStringLiteral("none");
        m_report.textures.clear();
    }

    // Writing.

    void write(const Document& source, const Document& target, Session& session)
    {
        int at = 0;
        for (Edit& edit : m_report.edits) {
            if (edit.action == done() || edit.action == QLatin1String("renamed") ||
                edit.action == QLatin1String("replaced"))
                edit.became = PathOf(m_results[at++]);
        }
        const Folders after = foldersOf(target, session.folders, outputFolder(target, m_target));
        const bool isGone = isMove() && (m_target.isInPlace() || m_target.isDryRun());
        PictureMoves pictures(m_target.isForced() || m_replace);
        for (const Leaf& leaf : m_leaves) {
            const PictureLocation place = pictureIn(leaf.result, target, after);
            if (!place.file.isEmpty() || place.lack != PictureLack::Nothing)
                pictures.follow(leaf.before, place,
                                isGone ? PictureMoves::Old::Removed : PictureMoves::Old::Kept);
        }
        const bool isWithin = &source == &target;
        if (isGone && !pictures.moves().isEmpty()) {
            pictures.keep(picturesOf(source, m_before));
            if (!isWithin)
                pictures.keep(picturesOf(target, after));
            pictures.keep(picturesOfOthers({&source, &target}, session));
        }
        if (complainOf(pictures, target, session))
            throw Failure(QStringLiteral("nothing was done"));
        m_report.pictures = pictures.moves();
        if (m_results.isEmpty() && m_target.isInPlace())
            return;
        QVector<const Document*> documents{&target};
        if (isMove() && !isWithin)
            documents.append(&source);
        m_report.written = writeTogether(documents, m_target, pictures, session);
    }

    QString m_file;
    QStringList m_paths;
    QString m_targetFile;
    QString m_to;
    bool m_all = false;
    bool m_skip = false;
    bool m_rename = false;
    bool m_replace = false;
    SelectionOptions m_selection;
    Target m_target;

    /// Of the pictures in the source.
    Folders m_before;
    std::optional<FreeNames> m_freeNames;
    /// Those that the target had.
    QVector<QDomElement> m_shelves;
    QVector<Leaf> m_leaves;
    /// What stands in the target, in the order of the report.
    QVector<QDomElement> m_results;
    EditReport m_report;
    bool m_isStopped = false;
    bool m_isRefused = false;
};

class Copy : public Transfer {
public:
    const char* name() const override
    {
        return "copy";
    }

    const char* summary() const override
    {
        return "Copy presets, folders, snapshots and palettes";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Takes the paths of get. Within a file, copies get names and reference names that are "
            "free; in another file what is there already stops it, unless it is said what to do. "
            "Without --to they go where they stood, materials of palettes into the section "
            "\"materials\". Pictures are copied for the new names; relative references to image "
            "files lead to the same files from the new place.");
        declareCommon(arguments);
        arguments.example(
            "rvopen copy archives/Custom/MyPresets.rvx \"colour[Our blue]\" --in-place",
            "a second one beside the first");
        arguments.example("rvopen copy snapshots/product.xml "
                          "\"/snapshot[CurrSnapshot]/materialRepository\" --into "
                          "archives/Custom/MyPresets.rvx --to \"materials/dir[Product]\" --rename "
                          "-o archives/Custom/Both.rvx",
                          "the materials of the current palette as presets");
    }

protected:
    bool isMove() const override
    {
        return false;
    }
};

class Move : public Transfer {
public:
    const char* name() const override
    {
        return "move";
    }

    const char* summary() const override
    {
        return "Move presets, folders, snapshots and palettes";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Takes the paths of get. Reference names stay, so that what uses a preset finds it. "
            "What is there already stops it, unless it is said what to do. Pictures and the "
            "comments before presets go along; relative references to image files lead to the same "
            "files from the new place. Between two files both are written, or neither is.");
        declareCommon(arguments);
        arguments.example(
            "rvopen move archives/Custom/MyPresets.rvx \"material[Loden green]\" --to "
            "\"materials/dir[Cloth]\" --in-place",
            "into another folder, which is made");
        arguments.example("rvopen move --dry-run snapshots/import_me.xml --all "
                          "\"/snapshots[Model SnapShots]/*\" --into snapshots/house.xml",
                          "which snapshots would go into another document");
    }

protected:
    bool isMove() const override
    {
        return true;
    }
};

} // namespace

std::unique_ptr<Command> makeCopy()
{
    return std::make_unique<Copy>();
}

std::unique_ptr<Command> makeMove()
{
    return std::make_unique<Move>();
}

} // namespace rvopen::command
