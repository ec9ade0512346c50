// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "Target.h"
#include "toolkit/documents/Interruption.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/images/FileIndex.h"
#include "toolkit/images/ReferencedTextures.h"
#include "toolkit/images/TextureCollection.h"
#include "toolkit/images/TextureReferences.h"

#include <rvopen/RVOpenPaths.h>
#include <rvopen/toolkit/documents/Failure.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

namespace rvopen::command {

using namespace toolkit;

namespace {

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
            "snapshots into this folder, and refer to bare file names there; --force writes over "
            "the document and pictures that are there");
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
            for (const ReferencedTexture& texture :
                 texturesOf(document, selection.in(document.Root()))) {
                if (m_missing && !texture.file.isEmpty())
                    continue;
                isMissing = isMissing || texture.file.isEmpty();
                if (session.json)
                    list.append(object(document, texture.described()));
                else
                    print(document, texture, session.out);
            }
        });
        m_selection.tellMisspelling(session);
        if (session.json)
            printJson(list, session);
        return session.result(m_missing && isMissing ? ExitFindings : ExitFine);
    }

private:
    static QJsonObject object(const Document& document, const DocumentTexture& texture)
    {
        return {{QStringLiteral("file"), document.Name()},
                {QStringLiteral("reference"), texture.reference},
                {QStringLiteral("found"),
                 texture.file.isEmpty() ? QJsonValue() : QJsonValue(texture.file)},
                {QStringLiteral("became"),
                 texture.became.isEmpty() ? QJsonValue() : QJsonValue(texture.became)},
                {QStringLiteral("uses"), QJsonArray::fromStringList(texture.paths)}};
    }

    static void printJson(const QJsonArray& list, Session& session)
    {
        QJsonObject result = Session::envelope("textures");
        result.insert(QStringLiteral("textures"), list);
        session.out.json(result);
    }

    static void print(const Document& document, const ReferencedTexture& texture, Output& out)
    {
        const bool isThere = !texture.file.isEmpty();
        out.line(out.styled(visible(document.Name()) + QLatin1String(": "), Style::Dim) +
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
        for (const ReferencedTexture& texture : selected(*document, session)) {
            DocumentTexture relinked = texture.described();
            relinked.became = withAnotherPrefix(texture.reference, prefixes);
            if (!relinked.became.isEmpty()) {
                texture.refer(relinked.became);
                relinked.file = findReferenced(relinked.became, document->Folder());
            } else if (!texture.file.isEmpty() || folders.isEmpty()) {
                continue;
            } else {
                // Target re-bases what is relative to where the document was.
                relinked = index.relink(texture, document->Folder());
            }
            list.append(object(*document, relinked));
            isIncomplete = !tell(relinked, *document, lines, session) || isIncomplete;
        }
        m_target.write(*document, *document, session);
        report(lines, list, session);
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

    /// False, with a warning, when there was a problem.
    static bool tell(const DocumentTexture& texture, const Document& document, QStringList& lines,
                     Session& session)
    {
        if (texture.problem.isEmpty())
            lines << texture.reference + QLatin1String(" -> ") + texture.became;
        else
            session.warning(document.Name(), texture.problem);
        return texture.problem.isEmpty();
    }

    QVector<ReferencedTexture> selected(const Document& document, Session& session)
    {
        const Scope scope = m_selection.selection().in(document.Root());
        m_selection.tellMisspelling(session);
        return texturesOf(document, scope);
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
        if (document->IsStandardInput())
            throw Failure(QStringLiteral("--collect needs a document with a name"));
        const QString copy = TextureCollection::copyOf(document->Path(), m_collect);
        if (isSameFile(copy, document->Path()))
            throw Failure(QStringLiteral("\"%1\" is the input").arg(copy));
        m_target.checkFile(copy);
        const Uninterrupted writing;
        TextureCollection::Overwriting overwriting;
        if (m_target.isForced())
            overwriting = [this](const QString& file) { m_target.backUp(file); };
        TextureCollection collection(m_collect, document->Path(), overwriting);
        const CollectedTextures which =
            m_isEverywhere ? CollectedTextures::Everywhere : CollectedTextures::Ours;
        bool isIncomplete = false;
        QJsonArray list;
        QStringList lines;
        for (const ReferencedTexture& texture : selected(*document, session)) {
            DocumentTexture taken = collection.take(texture, *document, session.folders, which);
            if (taken.isElsewhere)
                taken.problem += QStringLiteral("; --everywhere collects it too");
            list.append(object(*document, taken));
            isIncomplete = !tell(taken, *document, lines, session) || isIncomplete;
        }
        collection.addPictures(*document, session.folders,
                               [&session](const QString& file, const QString& message) {
                                   session.warning(file, message);
                               });
        if (!m_target.isDryRun()) {
            collection.write(*document);
            collection.keep();
        }
        report(lines, list, session);
        return session.result(isIncomplete ? ExitFindings : ExitFine);
    }

    QStringList m_files;
    bool m_missing = false;
    QStringList m_relink;
    QString m_collect;
    bool m_isEverywhere = false;
    Target m_target;
    SelectionOptions m_selection;
};

} // namespace

std::unique_ptr<Command> makeTextures()
{
    return std::make_unique<Textures>();
}

} // namespace rvopen::command
