// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Failure.h"
#include "Input.h"
#include "Inspection.h"
#include "Interrupts.h"
#include "NewFiles.h"
#include "NodePath.h"
#include "PictureFiles.h"
#include "Pictures.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"

#include "edit/Carrying.h"
#include "edit/PictureMoves.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QSet>

#include <algorithm>

namespace rvopen::tools {

namespace {

/// An image file that a document refers to.
struct Texture {
    QString reference;
    /// Empty when it is not there.
    QString file;
    QVector<QDomElement> params;
    QStringList paths;
};

QVector<Texture> texturesOf(const Document& document, const Selection& selection)
{
    const Scope scope = selection.in(document.root());
    QVector<Texture> textures;
    QHash<QString, int> known;
    const QString folder = document.folder();
    walk(document.root(), QString(), [&](const QDomElement& element, const QString& path) {
        const QString owner = element.parentNode().toElement().tagName();
        if (!isParam(element) || !isTextureParam(owner, element.attribute(QStringLiteral("name"))))
            return true;
        const QString reference = element.attribute(QStringLiteral("val"));
        if (reference.isEmpty() ||
            element.attribute(QStringLiteral("type")) != QLatin1String("string") ||
            !scope.covers(path))
            return true;
        if (!known.contains(reference)) {
            known.insert(reference, int(textures.size()));
            textures.append({reference, findReferenced(reference, folder), {}, {}});
        }
        Texture& texture = textures[known.value(reference)];
        texture.params.append(element);
        texture.paths << path;
        return true;
    });
    return textures;
}

void refer(const Texture& texture, const QString& reference)
{
    for (QDomElement param : texture.params)
        param.setAttribute(QStringLiteral("val"), reference);
}

/// The files below folders by their names in lower case.
class FileIndex {
public:
    explicit FileIndex(const QStringList& folders)
    {
        for (const QString& folder : folders) {
            if (!QFileInfo(PathToOpen(folder)).isDir())
                throw Failure(QStringLiteral("\"%1\" is no folder").arg(folder));
            QDirIterator it(PathToOpen(folder), QDir::Files, QDirIterator::Subdirectories);
            while (it.hasNext()) {
                const QString file = QFileInfo(it.next()).absoluteFilePath();
                m_files[LastPathComponent(file).toLower()] << file;
            }
        }
        for (QStringList& files : m_files)
            std::sort(files.begin(), files.end());
    }

    /// The files that could be meant: of that name, and of these those whose folders agree furthest
    /// with the reference. Of files with the same bytes only the first.
    QStringList find(const QString& reference)
    {
        QStringList best;
        int bestCount = -1;
        for (const QString& file : m_files.value(LastPathComponent(reference).toLower())) {
            const int count = commonEnd(reference, file);
            if (count > bestCount)
                best.clear();
            if (count >= bestCount)
                best << file;
            bestCount = std::max(bestCount, count);
        }
        if (best.size() < 2)
            return best;
        QStringList different;
        QSet<QByteArray> known;
        for (const QString& file : best) {
            const QByteArray content = digestOf(file);
            if (content.isEmpty() || !known.contains(content))
                different << file;
            known.insert(content);
        }
        return different;
    }

private:
    static QStringList components(QString path)
    {
        return path.replace(QLatin1Char('\\'), QLatin1Char('/')).toLower().split(QLatin1Char('/'));
    }

    static int commonEnd(const QString& a, const QString& b)
    {
        const QStringList first = components(a);
        const QStringList second = components(b);
        int count = 0;
        while (count < int(std::min(first.size(), second.size())) &&
               first[first.size() - 1 - count] == second[second.size() - 1 - count])
            ++count;
        return count;
    }

    /// What the bytes of the file are told by; empty when it cannot be read. Each file is read
    /// once, however many references could mean it.
    QByteArray digestOf(const QString& path)
    {
        const auto known = m_digests.constFind(path);
        if (known != m_digests.cend())
            return *known;
        QFile file(path);
        QCryptographicHash hash(QCryptographicHash::Sha256);
        const bool isRead = file.open(QIODevice::ReadOnly) && hash.addData(&file);
        const QByteArray digest = isRead ? hash.result() : QByteArray();
        m_digests.insert(path, digest);
        return digest;
    }

    QHash<QString, QStringList> m_files;
    QHash<QString, QByteArray> m_digests;
};

class Textures : public Command {
public:
    const char* name() const override
    {
        return "textures";
    }

    const char* summary() const override
    {
        return "List, find again and collect image files";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Textures, backgrounds and reflected environments, each with what refers to it. A "
            "reference is looked for as it stands and beside the document. Exit code 1 when some "
            "are missing that --missing, --relink or --collect look for.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"");
        arguments.flag("--missing", m_missing, "Only what is not there");
        arguments.option("--relink", m_relink, "DIR",
                         "Find what is missing in and below this folder, by file name in any case "
                         "of letters, and write a document that refers to it, relative where it "
                         "was; or FROM=TO, another beginning for what begins with FROM; may be "
                         "repeated");
        arguments.option(
            "--collect", m_collect, "DIR",
            "Copy the document, the images that it refers to and the pictures of its presets and "
            "snapshots into this folder, and refer to bare file names there");
        arguments.flag("--everywhere", m_isEverywhere,
                       "Collect also images that lie outside of the document's folder and those "
                       "of the host");
        arguments.onlyOne({QStringLiteral("--relink"), QStringLiteral("--collect")});
        m_target.declare(arguments);
        m_selection.declare(arguments);
        arguments.example("rvopen textures --missing snapshots/product.xml",
                          "what is not there, and what refers to it");
        arguments.example("rvopen textures --collect parcel snapshots/product.xml",
                          "a folder to hand on");
    }

    int run(Session& session) override
    {
        if (!m_collect.isEmpty() || !m_relink.isEmpty()) {
            if (m_files.size() != 1)
                throw Failure(QStringLiteral("--relink and --collect take one document"));
            return m_relink.isEmpty() ? collect(session) : relink(session);
        }
        if (m_target.isGiven() || m_target.isDryRun())
            throw Failure(QStringLiteral("--output, --in-place and --dry-run go with --relink"));
        const Selection selection = m_selection.selection();
        bool isMissing = false;
        QJsonArray list;
        forEachDocument(m_files, session, [&](Document& document) {
            for (const Texture& texture : texturesOf(document, selection)) {
                if (m_missing && !texture.file.isEmpty())
                    continue;
                isMissing = isMissing || texture.file.isEmpty();
                if (session.json)
                    list.append(object(document, texture, QString()));
                else
                    print(document, texture, session.out);
            }
        });
        if (session.json)
            printJson(list, session);
        return session.result(m_missing && isMissing ? ExitFindings : ExitFine);
    }

private:
    static QJsonObject object(const Document& document, const Texture& texture,
                              const QString& became)
    {
        return {{QStringLiteral("file"), document.name()},
                {QStringLiteral("reference"), texture.reference},
                {QStringLiteral("found"),
                 texture.file.isEmpty() ? QJsonValue() : QJsonValue(texture.file)},
                {QStringLiteral("became"), became.isEmpty() ? QJsonValue() : QJsonValue(became)},
                {QStringLiteral("uses"), QJsonArray::fromStringList(texture.paths)}};
    }

    static void printJson(const QJsonArray& list, Session& session)
    {
        QJsonObject result = Session::envelope("textures");
        result.insert(QStringLiteral("textures"), list);
        session.out.json(result);
    }

    static void print(const Document& document, const Texture& texture, Output& out)
    {
        const bool isThere = !texture.file.isEmpty();
        out.line(out.styled(visible(document.name()) + QLatin1String(": "), Style::Dim) +
                 out.styled(visible(texture.reference), Style::Bold) + QLatin1String("  ") +
                 (isThere ? out.styled(visible(texture.file), Style::Green)
                          : out.styled(QStringLiteral("missing"), Style::Red)));
        for (const QString& path : texture.paths)
            out.line(out.styled(QLatin1String("    ") + visible(path), Style::Dim));
    }

    int relink(Session& session)
    {
        m_target.lock(m_files.first());
        const std::unique_ptr<Document> document = readOrFail(m_files.first(), session);
        m_target.check(*document);
        QStringList folders;
        QVector<QPair<QString, QString>> prefixes;
        for (const QString& text : m_relink) {
            const int at = int(text.indexOf(QLatin1Char('=')));
            if (at > 0 && !QFileInfo(PathToOpen(text)).isDir())
                prefixes.append({text.left(at), text.mid(at + 1)});
            else
                folders << text;
        }
        FileIndex index(folders);
        bool isIncomplete = false;
        QJsonArray list;
        QStringList lines;
        for (Texture texture : texturesOf(*document, m_selection.selection())) {
            const QString changed = withAnotherPrefix(texture.reference, prefixes);
            if (!changed.isEmpty()) {
                refer(texture, changed);
                texture.file = findReferenced(changed, document->folder());
                list.append(object(*document, texture, changed));
                lines << texture.reference + QLatin1String(" -> ") + changed;
                continue;
            }
            if (!texture.file.isEmpty() || folders.isEmpty())
                continue;
            const QStringList found = index.find(texture.reference);
            if (found.size() != 1) {
                isIncomplete = true;
                session.warning(
                    document->name(),
                    found.isEmpty()
                        ? QStringLiteral("\"%1\" was not found").arg(texture.reference)
                        : QStringLiteral("\"%1\" could be any of: %2")
                              .arg(texture.reference, found.join(QStringLiteral(", "))));
                list.append(object(*document, texture, QString()));
                continue;
            }
            // Target re-bases what is relative to where the document was.
            const QString reference =
                isAbsoluteReference(texture.reference)
                    ? QDir::toNativeSeparators(found.first())
                    : relativeReference(found.first(), document->folder(), texture.reference);
            refer(texture, reference);
            texture.file = found.first();
            list.append(object(*document, texture, reference));
            lines << texture.reference + QLatin1String(" -> ") + reference;
        }
        m_target.write(*document, *document, session);
        report(lines, list, session);
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

    /// By the first prefix that the reference has; null without.
    static QString withAnotherPrefix(const QString& reference,
                                     const QVector<QPair<QString, QString>>& prefixes)
    {
        for (const auto& prefix : prefixes) {
            const QString changed = withOtherPrefix(reference, prefix.first, prefix.second);
            if (!changed.isEmpty())
                return changed;
        }
        return QString();
    }

    void report(const QStringList& lines, const QJsonArray& list, Session& session) const
    {
        if (m_target.isStandardOutput())
            return;
        if (session.json) {
            printJson(list, session);
            return;
        }
        for (const QString& line : lines)
            session.out.line(visible(line));
    }

    int collect(Session& session)
    {
        if (m_target.isGiven())
            throw Failure(QStringLiteral("--collect writes into its folder only"));
        const std::unique_ptr<Document> document = readOrFail(m_files.first(), session);
        if (document->isStandardInput())
            throw Failure(QStringLiteral("--collect needs a document with a name"));
        const Uninterrupted writing;
        NewFiles files;
        const QString folder = QFileInfo(PathToOpen(m_collect)).absoluteFilePath();
        const QString copy = folder + QLatin1Char('/') + LastPathComponent(document->path());
        if (QFileInfo::exists(copy) || QFileInfo(copy).isSymLink())
            throw Failure(QStringLiteral("\"%1\" is there already").arg(copy));
        if (!files.makeFolder(folder))
            throw Failure(QStringLiteral("\"%1\": %2").arg(m_collect, files.problem()));

        bool isIncomplete = false;
        QJsonArray list;
        QStringList lines;
        m_taken = {{LastPathComponent(copy).toLower(), QString()}};
        for (const Texture& texture : texturesOf(*document, m_selection.selection())) {
            const QString problem = problemOf(texture, *document, session.folders);
            if (!problem.isEmpty()) {
                isIncomplete = true;
                session.warning(document->name(), problem);
                list.append(object(*document, texture, QString()));
                continue;
            }
            const QString name = collectOne(texture.file, folder, files);
            refer(texture, name);
            list.append(object(*document, texture, name));
            lines << texture.reference + QLatin1String(" -> ") + name;
        }
        const QString text = XmlText(document->dom(), indentOf(document->kind()));
        if (text.isNull())
            throw Failure(QStringLiteral("\"%1\" could not be read again").arg(copy));
        if (!files.create(text.toUtf8(), copy))
            throw Failure(
                QStringLiteral("\"%1\": %2; nothing was collected").arg(copy, files.problem()));
        collectPictures(*document, folder, files, session);
        // What is not kept goes again.
        if (!m_target.isDryRun())
            files.keep();
        report(lines, list, session);
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

    /// The pictures of presets and snapshots, which lie beside documents, or below folders there.
    static void collectPictures(const Document& document, const QString& folder, NewFiles& files,
                                Session& session)
    {
        const Folders folders = foldersOf(document, session.folders, document.folder());
        const QString& root =
            document.kind() == DocumentKind::SnapShots ? folders.snapshots : folders.custom;
        QStringList pictures = picturesOf(document, folders).values();
        std::sort(pictures.begin(), pictures.end());
        for (const QString& picture : pictures) {
            if (!QFileInfo(picture).isFile() || !isBelow(picture, root) || !isPictureFile(picture))
                continue;
            const QString target =
                folder + QLatin1Char('/') + QDir(PathToOpen(root)).relativeFilePath(picture);
            if (QFileInfo::exists(target)) {
                if (!haveSameBytes(picture, target))
                    session.warning(
                        picture, QStringLiteral("it is left, another \"%1\" is there").arg(target));
                continue;
            }
            if (!files.makeFolder(QFileInfo(target).path()) || !files.copy(picture, target))
                throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was collected")
                                  .arg(picture, files.problem()));
        }
    }

    /// What speaks against handing the file on: a document may come from anybody and name any file
    /// of the machine. Empty when nothing does.
    QString problemOf(const Texture& texture, const Document& document,
                      const Folders& folders) const
    {
        if (texture.file.isEmpty())
            return QStringLiteral("\"%1\" is not there").arg(texture.reference);
        if (!QFileInfo(texture.file).isFile() || !isPictureFile(texture.file))
            return QStringLiteral("\"%1\" is no image and stays where it is").arg(texture.file);
        if (m_isEverywhere)
            return QString();
        for (const QString& folder : {document.folder(), folders.install, folders.archives,
                                      folders.custom, folders.snapshots}) {
            if (!folder.isEmpty() && isBelow(texture.file, folder))
                return QString();
        }
        return QStringLiteral("\"%1\" lies outside of the document's folder and those of the "
                              "host; --everywhere collects it too")
            .arg(texture.file);
    }

    /// The name that the file has in the folder: its own, or with a number where that is taken by
    /// another file. Names that differ in the case of letters only are one name elsewhere.
    QString collectOne(const QString& file, const QString& folder, NewFiles& files)
    {
        const QString own = LastPathComponent(file);
        const QString base = QFileInfo(own).completeBaseName();
        const QString suffix = QFileInfo(own).suffix();
        for (int number = 1;; ++number) {
            QString name = own;
            if (number > 1) {
                name = QStringLiteral("%1 (%2)").arg(base).arg(number) +
                       (suffix.isEmpty() ? QString() : QLatin1Char('.') + suffix);
            }
            const QString target = folder + QLatin1Char('/') + name;
            const auto taken = m_taken.constFind(name.toLower());
            if (taken != m_taken.cend()) {
                if (!taken->isEmpty() && haveSameBytes(file, *taken))
                    return LastPathComponent(*taken);
                continue;
            }
            const QFileInfo there(target);
            if (there.isSymLink() || (there.exists() && !haveSameBytes(file, target)))
                continue;
            if (!there.exists() && !files.copy(file, target))
                throw Failure(QStringLiteral("the copy of \"%1\": %2; nothing was collected")
                                  .arg(file, files.problem()));
            m_taken.insert(name.toLower(), target);
            return name;
        }
    }

    QStringList m_files;
    bool m_missing = false;
    QStringList m_relink;
    QString m_collect;
    bool m_isEverywhere = false;
    Target m_target;
    SelectionOptions m_selection;
    /// Names in lower case and the files in the folder that have them.
    QHash<QString, QString> m_taken;
};

} // namespace

std::unique_ptr<Command> makeTextures()
{
    return std::make_unique<Textures>();
}

} // namespace rvopen::tools
