// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Compare.h"
#include "Failure.h"
#include "FileWriting.h"
#include "Input.h"
#include "Interrupts.h"
#include "NewFiles.h"
#include "NodePath.h"
#include "PictureFiles.h"
#include "Pictures.h"
#include "Presets.h"
#include "Session.h"
#include "Target.h"
#include "Vocabulary.h"

#include "edit/Carrying.h"
#include "edit/Editing.h"
#include "edit/Things.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>

#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QSet>

#include <filesystem>
#include <optional>

namespace rvopen::tools {

namespace {

const QString s_name = QStringLiteral("name");

enum class State { New, Same, Changed, Refused };
enum class Action { None, Added, Replaced, Renamed };

struct Item {
    QDomElement source;
    QString sourcePath;
    /// For presets.
    Preset preset;
    /// What has its identity in the target already.
    QDomElement existing;
    State state = State::New;
    Action action = Action::None;
    /// What stands in the target afterwards.
    QDomElement result;
    QString note;
};

QString stateName(State state)
{
    switch (state) {
    case State::New:
        return QStringLiteral("new");
    case State::Same:
        return QStringLiteral("same");
    case State::Changed:
        return QStringLiteral("changed");
    case State::Refused:
        break;
    }
    return QStringLiteral("refused");
}

QString actionName(Action action)
{
    switch (action) {
    case Action::Added:
        return QStringLiteral("added");
    case Action::Replaced:
        return QStringLiteral("replaced");
    case Action::Renamed:
        return QStringLiteral("renamed");
    case Action::None:
        break;
    }
    return QStringLiteral("none");
}

/// What importing itself sets is no difference.
Comparison importComparison()
{
    Comparison comparison;
    comparison.ignoredAttributes << QStringLiteral("ImageBorder");
    return comparison;
}

/// What a preset is told by within its section; empty without.
QString identity(const Preset& preset)
{
    const QString key = keyOf(preset.element, preset.element.parentNode().toElement());
    return key.isEmpty() ? key : preset.section + key;
}

class Import : public Command {
public:
    const char* name() const override
    {
        return "import";
    }

    const char* summary() const override
    {
        return "Take snapshots or presets over from another file";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Snapshots are told apart by their names, presets by their reference names; both go "
            "where they stood, presets into sections and folders that take their kind. What is "
            "there "
            "with the same content is left alone. What is there with another content stops the "
            "import, unless it is said what to do with it. Thumbnails of snapshots are copied from "
            "beside the source to --snapshots, or beside the output, those of presets to where the "
            "host looks for them; relative references to image files lead to the same files from "
            "the new place. What was written is read back.");
        arguments.positional("source", m_source, "Document or archive to take from");
        arguments.positional("target", m_targetFile,
                             "Document or archive of the same kind to add to");
        arguments.option("--select", m_select, "PATH",
                         "Only snapshots or presets with this path, as for get; may be repeated");
        arguments.flag("--skip", m_skip, "Leave out what was changed");
        arguments.flag("--rename", m_rename, "Take over what was changed under another name");
        arguments.flag("--replace", m_replace, "Put what was changed in the place of the old");
        arguments.onlyOne(
            {QStringLiteral("--skip"), QStringLiteral("--rename"), QStringLiteral("--replace")});
        m_target.declare(arguments);
        arguments.example("rvopen import snapshots/import_me.xml snapshots/house.xml -o both.xml",
                          "the neighbour's snapshots beside one's own, with their pictures");
        arguments.example("rvopen import --dry-run archives/Custom/Sub/Studio.rvx "
                          "archives/Custom/MyPresets.rvx",
                          "what would come into an archive");
    }

    int run(Session& session) override
    {
        if (m_source == QLatin1String("-") && m_targetFile == m_source)
            throw Failure(QStringLiteral("standard input can be one of the two only"));
        const std::unique_ptr<Document> source = readOrFail(m_source, session);
        m_target.lock(m_targetFile);
        const std::unique_ptr<Document> target = readOrFail(m_targetFile, session);
        m_target.check(*target);
        if (!m_target.isDryRun() && m_target.isStandardOutput())
            throw Failure(QStringLiteral("an import writes to a file, to read it back"));
        if (!m_target.isDryRun() && isSameFile(m_target.file(*target), source->path()))
            throw Failure(QStringLiteral("the source cannot be the output"));
        if (source->kind() != target->kind() || source->kind() == DocumentKind::Unknown)
            throw Failure(QStringLiteral("both have to be snapshot documents, or both archives"));

        select(*source);
        // In memory: what was imported before is told by what its references lead to.
        const QVector<Rebased> textures =
            rebaseTextures(source->root(), source->folder(), target->folder());
        QVector<Item> items = source->kind() == DocumentKind::SnapShots
                                  ? snapShotItems(*source, *target)
                                  : presetItems(*source, *target);
        if (items.isEmpty())
            throw Failure(
                QStringLiteral("there is nothing to import in \"%1\"").arg(source->name()));
        const bool isStopped = isAnyChanged(items) && !m_skip && !m_rename && !m_replace;
        for (Item& item : items) {
            if (!isStopped)
                apply(item, *target, unitsScale(target->root()) / unitsScale(source->root()));
        }
        if (!isStopped)
            complainOf(textures, *source, session);
        if (!m_target.isDryRun() && !isStopped)
            write(items, *source, *target, session);
        report(items, isStopped, *target, session);
        const bool isRefused = std::any_of(items.cbegin(), items.cend(), [](const Item& item) {
            return item.state == State::Refused;
        });
        return session.result(isStopped || isRefused ? ExitFindings : ExitFine);
    }

private:
    // What there is to import.

    void select(const Document& source)
    {
        for (const QString& text : m_select) {
            for (const PathPattern::Match& match : PathPattern(text).find(source.root()))
                m_selected.append(match.element);
        }
    }

    bool isSelected(const QDomElement& element) const
    {
        return m_select.isEmpty() || m_selected.contains(element);
    }

    QVector<Item> snapShotItems(const Document& source, const Document& target)
    {
        QVector<Item> items;
        QHash<QString, QDomElement> existing;
        const QDomElement into = mainCollection(target.root());
        for (QDomElement element = into.firstChildElement(); !element.isNull();
             element = element.nextSiblingElement())
            existing.insert(element.attribute(s_name), element);
        const QDomElement from = mainCollection(source.root());
        Labels labels;
        for (QDomElement element = from.firstChildElement(); !element.isNull();
             element = element.nextSiblingElement()) {
            const QString path = joined(pathOf(from), labels.next(element));
            if (!isSelected(element))
                continue;
            Item item;
            item.source = element;
            item.sourcePath = path;
            item.existing = existing.value(element.attribute(s_name));
            if (element.tagName() != QLatin1String("snapshot")) {
                item.state = State::Refused;
                item.note = QStringLiteral("it is no snapshot");
            } else {
                judge(item, element.attribute(s_name));
            }
            items.append(item);
        }
        return items;
    }

    QVector<Item> presetItems(const Document& source, const Document& target)
    {
        QVector<Item> items;
        QHash<QString, QDomElement> existing;
        forEachPreset(target.root(), [&existing](const Preset& preset) {
            const QString key = identity(preset);
            if (!key.isEmpty() && !existing.contains(key))
                existing.insert(key, preset.element);
        });
        forEachPreset(source.root(), [&](const Preset& preset) {
            if (!isSelected(preset.element))
                return;
            Item item;
            item.source = preset.element;
            item.sourcePath = preset.path;
            item.preset = preset;
            item.existing = existing.value(identity(preset));
            if (!isPlaceFor(preset)) {
                item.state = State::Refused;
                item.note = QStringLiteral("\"%1\" takes no \"%2\"")
                                .arg(preset.section, preset.element.tagName());
            } else {
                judge(item, identity(preset));
            }
            items.append(item);
        });
        return items;
    }

    /// The library has rules for the sections that it knows; others take what they had.
    static bool isPlaceFor(const Preset& preset)
    {
        const Vocabulary& vocabulary = Vocabulary::instance();
        const QString dir = QStringLiteral("dir");
        return !vocabulary.canAdd(preset.section, dir) ||
               vocabulary.canAdd(preset.section, preset.element.tagName());
    }

    void judge(Item& item, const QString& key)
    {
        if (!key.isEmpty() && m_seen.contains(key)) {
            item.state = State::Refused;
            item.note = QStringLiteral("another one of that name comes first");
            return;
        }
        m_seen.insert(key);
        if (item.existing.isNull())
            item.state = State::New;
        else
            item.state =
                m_comparer.run(item.source, item.existing).isEmpty() ? State::Same : State::Changed;
    }

    static bool isAnyChanged(const QVector<Item>& items)
    {
        return std::any_of(items.cbegin(), items.cend(),
                           [](const Item& item) { return item.state == State::Changed; });
    }

    // What is done with it, in the target in memory.

    void apply(Item& item, const Document& target, double ratio)
    {
        if (item.state == State::Same || item.state == State::Refused ||
            (item.state == State::Changed && m_skip))
            return;
        QDomDocument document = target.dom();
        item.result = document.importNode(item.source, true).toElement();
        if (ratio != 1)
            convertLengths(item.result, ratio);
        const bool isSnapShot = item.source.tagName() == QLatin1String("snapshot");
        // As the host marks what came from another document.
        if (isSnapShot)
            item.result.setAttribute(QStringLiteral("ImageBorder"), 1);
        if (item.state == State::Changed && m_replace) {
            item.action = Action::Replaced;
            QDomNode parent = item.existing.parentNode();
            parent.replaceChild(item.result, item.existing);
            return;
        }
        item.action = Action::Added;
        QDomElement place = standingPlace(item.source, document);
        if (item.state == State::Changed) {
            item.action = Action::Renamed;
            if (!m_freeNames)
                m_freeNames.emplace(target.root());
            m_freeNames->rename(item.result);
        }
        place.appendChild(item.result);
    }

    // Writing.

    void write(QVector<Item>& items, const Document& source, const Document& target,
               Session& session) const
    {
        const bool isNothing = std::all_of(items.cbegin(), items.cend(), [](const Item& item) {
            return item.action == Action::None;
        });
        if (isNothing && m_target.isInPlace())
            return;
        const Uninterrupted writing;
        NewFiles pictures;
        QVector<QPair<QString, QString>> replaced;
        const QString output = m_target.file(target);
        for (Item& item : items) {
            if (item.action != Action::None && item.source.tagName() == QLatin1String("snapshot"))
                copyPicture(item, source, output, pictures, replaced, session);
        }
        PictureMoves thumbnails(m_replace || m_target.isForced());
        followThumbnails(items, source, target, thumbnails, session);
        thumbnails.make();
        if (isInterrupted())
            throw Failure(QStringLiteral("interrupted; nothing was imported"));
        m_target.write(target, target, session);
        pictures.keep();
        thumbnails.finish(m_target, session);
        for (const auto& picture : replaced) {
            QByteArray bytes;
            if (!readWhole(picture.first, bytes))
                session.error(picture.first, QStringLiteral("the thumbnail could not be read"));
            else if (const QString problem = problemOfWriting(bytes, picture.second);
                     !problem.isEmpty())
                session.error(picture.second, QLatin1String("the thumbnail: ") + problem);
        }
        readBack(target, output);
    }

    /// Of presets. Where another picture is there, it stays.
    void followThumbnails(const QVector<Item>& items, const Document& source,
                          const Document& target, PictureMoves& thumbnails, Session& session) const
    {
        const Folders before = foldersOf(source, session.folders, source.folder());
        const Folders after = foldersOf(target, session.folders, outputFolder(target, m_target));
        for (const Item& item : items) {
            if (item.action != Action::None && thingOf(item.source) == Thing::Preset)
                thumbnails.follow(pictureIn(item.source, source, before),
                                  pictureIn(item.result, target, after), PictureMoves::Old::Kept);
        }
        complainOf(thumbnails, target, session);
    }

    static QString pictureName(QString snapShot)
    {
        return QLatin1String("icon_") + XMLUtils::ReplaceIllegalCharacters(snapShot) +
               QLatin1String(".jpg");
    }

    void copyPicture(Item& item, const Document& source, const QString& output, NewFiles& pictures,
                     QVector<QPair<QString, QString>>& replaced, Session& session) const
    {
        const QString name = item.source.attribute(s_name);
        const QString folder = session.folders.snapshots.isEmpty()
                                   ? QFileInfo(PathToOpen(output)).absolutePath()
                                   : session.folders.snapshots;
        const QString fileName = pictureName(item.result.attribute(s_name));
        const QString from = source.folder() + QLatin1Char('/') + pictureName(name);
        const QString to = folder + QLatin1Char('/') + fileName;
        if (!StaysInside(fileName) || !StaysInside(pictureName(name)) || !isThere(from))
            return;
        if (!QFileInfo(from).isFile() || !isBelow(from, source.folder()) || !isPictureFile(from)) {
            session.error(from, QStringLiteral("it is no picture of the source, and stays there"));
            return;
        }
        if (QFileInfo(to).isSymLink()) {
            session.error(to, linkInTheWay(to, folder));
            return;
        }
        if (QFileInfo::exists(to) && haveSameBytes(from, to))
            return;
        if (QFileInfo::exists(to) && item.action == Action::Replaced)
            replaced.append({from, to});
        else if (QFileInfo::exists(to))
            item.note = QStringLiteral("another thumbnail \"%1\" is there and stays").arg(to);
        else if (!pictures.copy(from, to))
            throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was imported")
                              .arg(from, pictures.problem()));
    }

    /// Whether something has the name. That this cannot be told is no answer: the picture would be
    /// left behind unseen.
    static bool isThere(const QString& path)
    {
        std::error_code failure;
        const auto type =
            std::filesystem::symlink_status(std::filesystem::u8path(path.toStdString()), failure)
                .type();
        if (type == std::filesystem::file_type::not_found)
            return false;
        if (failure) {
            throw Failure(QStringLiteral("\"%1\": %2; nothing was imported")
                              .arg(path, QString::fromStdString(failure.message())));
        }
        return true;
    }

    static void readBack(const Document& target, const QString& output)
    {
        ReadError error;
        const std::unique_ptr<Document> written = Document::read(output, error);
        if (!written || !Comparer(Comparison()).run(target.root(), written->root()).isEmpty())
            throw Failure(QStringLiteral("\"%1\" was written, but does not read back").arg(output));
    }

    // What is said.

    void report(const QVector<Item>& items, bool isStopped, const Document& target,
                Session& session) const
    {
        if (session.json) {
            QJsonArray list;
            for (const Item& item : items) {
                list.append(QJsonObject{
                    {QStringLiteral("path"), item.sourcePath},
                    {QStringLiteral("state"), stateName(item.state)},
                    {QStringLiteral("action"), actionName(item.action)},
                    {QStringLiteral("name"),
                     (item.result.isNull() ? item.source : item.result).attribute(s_name)},
                    {QStringLiteral("note"),
                     item.note.isEmpty() ? QJsonValue() : QJsonValue(item.note)}});
            }
            QJsonObject result = Session::envelope(name());
            result.insert(QStringLiteral("target"), target.name());
            result.insert(QStringLiteral("written"), m_target.isDryRun() || isStopped
                                                         ? QJsonValue()
                                                         : QJsonValue(m_target.file(target)));
            result.insert(QStringLiteral("items"), list);
            session.out.json(result);
        } else {
            Table table;
            for (const Item& item : items)
                table.row({{stateName(item.state), item.state == State::New    ? Style::Green
                                                   : item.state == State::Same ? Style::Dim
                                                                               : Style::Yellow},
                           {item.action == Action::None ? QStringLiteral("left out")
                                                        : actionName(item.action)},
                           {item.sourcePath, Style::Bold},
                           {item.action == Action::Renamed
                                ? QLatin1String("as ") + item.result.attribute(s_name)
                                : item.note}});
            table.print(session.out);
        }
        if (isStopped)
            session.warning(
                target.name(),
                QStringLiteral("nothing was imported: say --skip, --rename or --replace "
                               "for what was changed"));
    }

    QString m_source;
    QString m_targetFile;
    QStringList m_select;
    bool m_skip = false;
    bool m_rename = false;
    bool m_replace = false;
    Target m_target;
    QVector<QDomElement> m_selected;
    Comparer m_comparer{importComparison()};
    std::optional<FreeNames> m_freeNames;
    /// What the items before it are told by.
    QSet<QString> m_seen;
};

} // namespace

std::unique_ptr<Command> makeImport()
{
    return std::make_unique<Import>();
}

} // namespace rvopen::tools
