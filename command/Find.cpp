// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Arguments.h"
#include "Command.h"
#include "Input.h"
#include "Inputs.h"
#include "SelectionOptions.h"
#include "Session.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/drawing/ColourDistance.h"
#include "toolkit/edit/Content.h"
#include "toolkit/edit/Folding.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/edit/TypedText.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/toolkit/documents/Failure.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QHash>
#include <QJsonArray>

#include <algorithm>
#include <limits>
#include <vector>

namespace rvopen::command {

using namespace toolkit;
using catalogue::Block;
using catalogue::BlockRow;
using catalogue::BlockStore;

namespace {

/// Colours of one name, such as two browns.
constexpr double s_standardDistance = 10;

/// How much further away than asked for a colour may seem that is as it was written.
constexpr double s_doubt = 1;

/// Of one file.
struct Rows {
    /// They are all that is selected.
    bool isAll = false;
    std::vector<BlockRow> rows;
};

/// A preset or snapshot that was found.
struct Hit {
    QString file;
    QString kind;
    QString name;
    QString refName;
    QString path;
    /// The parameter or element that it was found by; empty where it was found by itself.
    QString at;
    /// What stands there.
    QString value;
    /// From the colour that is looked for; below 0 without.
    double distance = -1;
    QByteArray content;
    /// Of presets with equal content, from 1; 0 without.
    int group = 0;
};

/// A reference in lower case and without accents, its folders divided by slashes.
QString plainReference(const QString& reference)
{
    return folded(QString(reference).replace(QLatin1Char('\\'), QLatin1Char('/')));
}

class Find : public Command {
public:
    const char* name() const override
    {
        return "find";
    }

    const char* summary() const override
    {
        return "Find presets by texture, colour, content or users";
    }

    void declare(Arguments& arguments) override
    {
        arguments.description(
            "Presets of archives, and snapshots with what is in them, that are selected and have "
            "what is looked for. Without files, all archives in the folders of the host. Exit "
            "code 1 when nothing is found.");
        arguments.positional("files", m_files, "Documents, archives, folders, or \"-\"", false);
        arguments.option("--texture", m_texture, "NAME",
                         "What refers to an image of this file name, in any case, also with a part "
                         "of its folders; \"*\" stands for any characters");
        arguments.option("--colour", m_colour, "COLOUR",
                         "What has a colour like this, \"#rrggbb\" or \"1 0.5 0\"; the nearest "
                         "comes first");
        arguments.option("--within", m_within, "DISTANCE",
                         "How far from it, by CIEDE2000; 10 when not given, 1 is hardly seen");
        arguments.flag("--equal", m_isEqual, "What is there more than once, whatever it is called");
        arguments.option("--users", m_users, "REFNAME",
                         "What has in it a preset of this reference name");
        arguments.onlyOne({QStringLiteral("--texture"), QStringLiteral("--colour"),
                           QStringLiteral("--equal"), QStringLiteral("--users")});
        m_selection.declare(arguments);
        m_inputs.declare(arguments);
        arguments.example("rvopen find --texture \"*oak*\" archives snapshots",
                          "what would change with an image");
        arguments.example("rvopen find --colour \"#b5651d\" --within 8 --type material install",
                          "materials of about this brown");
    }

    int run(Session& session) override
    {
        const Selection selection = m_selection.selection();
        if (m_within >= 0 && m_colour.isEmpty())
            throw Failure(QStringLiteral("--within goes with --colour"));
        if (m_within < 0)
            m_within = s_standardDistance;
        float colour[3] = {};
        if (!m_colour.isEmpty() && !toColour(m_colour, colour))
            throw Failure(QStringLiteral("\"%1\" is no colour").arg(m_colour));
        m_lab = drawing::labOf(colour);
        if (m_texture.isEmpty() && m_colour.isEmpty() && m_users.isEmpty() && !m_isEqual &&
            selection.isEverything())
            throw Failure(QStringLiteral("say what to find"));
        QStringList files = m_inputs.files(m_files, session);
        if (files.isEmpty() && m_files.isEmpty())
            files = archivesIn(session.folders);
        if (files.isEmpty() && !session.hasFailed())
            throw Failure(QStringLiteral(
                "name documents, or the folders of the host (--install, --archives, --custom)"));

        QVector<Hit> hits;
        findInAll(files, selection, session, hits);
        if (m_isEqual)
            keepEqual(hits);
        if (!m_colour.isEmpty()) {
            std::stable_sort(hits.begin(), hits.end(),
                             [](const Hit& a, const Hit& b) { return a.distance < b.distance; });
        }
        if (session.json)
            printJson(hits, session.out);
        else
            print(hits, session.out);
        return session.result(hits.isEmpty() ? ExitFindings : ExitFine);
    }

private:
    /// By the rows of the catalogue what they can say, and in documents the rest.
    void findInAll(const QStringList& files, const Selection& selection, Session& session,
                   QVector<Hit>& hits) const
    {
        AttributeFilter filter;
        const bool isInRows =
            selection.isAttributeFilter(filter) && m_users.isEmpty() && !m_isEqual;
        const BlockStore store(isInRows ? files : QStringList(), [&](int at, const QString& file) {
            session.progress(at, int(files.size()), file);
        });
        std::vector<Rows> selected(std::size_t(files.size()));
        bool isSelected = false;
        for (int i = 0; i < store.count(); ++i) {
            const Block& block = store.block(i);
            Rows& rows = selected[std::size_t(i)];
            // In documents of snapshots more than rows is found.
            rows.isAll =
                block.text(block.head().root) != "snapRoot" &&
                catalogue::forEachPassing(block, filter, [&rows](quint32, const BlockRow& row) {
                    rows.rows.push_back(row);
                });
            isSelected = isSelected || !rows.rows.empty();
        }
        QStringList left;
        for (int i = 0; i < int(files.size()); ++i) {
            const Rows& rows = selected[std::size_t(i)];
            QVector<Hit> found;
            if (!rows.isAll || !findInRows(store, i, rows.rows, found)) {
                left << files[i];
                continue;
            }
            findInDocuments(left, selection, session, hits);
            left.clear();
            hits += found;
        }
        findInDocuments(left, selection, session, hits);
        session.clearProgress();
        if (!isSelected) {
            for (int i = 0; i < store.count(); ++i)
                catalogue::noteOthers(store.block(i), selection);
            m_selection.tellMisspelling(session);
        }
    }

    void findInDocuments(const QStringList& files, const Selection& selection, Session& session,
                         QVector<Hit>& hits) const
    {
        forEachDocument(
            files, session,
            [&](Document& document) {
                ParamValues values;
                for (const PathPattern::Match& item : selection.items(document.Root()))
                    examine(item, document.Name(), values, hits);
            },
            {}, Access::Reading, m_inputs.jobs());
    }

    /// False where a preset does not stand any more where its row has it.
    bool findInRows(const BlockStore& store, int document, const std::vector<BlockRow>& rows,
                    QVector<Hit>& hits) const
    {
        const Block& block = store.block(document);
        const QString file = store.file(document);
        for (const BlockRow& row : rows) {
            if (m_texture.isEmpty() && m_colour.isEmpty()) {
                Hit hit;
                hit.file = file;
                hit.kind = catalogue::toQString(block.text(row.kind));
                hit.name = catalogue::toQString(block.text(catalogue::identityOf(row)));
                hit.refName = catalogue::toQString(block.text(row.refName));
                hit.path = catalogue::toQString(catalogue::pathOf(block, row));
                hits.append(hit);
            } else if (mayHave(block, row)) {
                // Where in the preset it is, the preset itself says.
                const OpenPreset preset =
                    catalogue::openThere(file, store.state(document), block, row);
                if (!preset)
                    return false;
                ParamValues values;
                examine({preset.element, catalogue::toQString(catalogue::pathOf(block, row))}, file,
                        values, hits);
            }
        }
        return true;
    }

    /// Whether what is looked for may be in the preset. What is not written as a colour the host
    /// may still take for one.
    bool mayHave(const Block& block, const BlockRow& row) const
    {
        const bool isOfTexture = !m_texture.isEmpty();
        const quint64 first = quint64(row.firstItem) + (isOfTexture ? 0 : row.textures);
        const quint32 count = block.itemCount(first, isOfTexture ? row.textures : row.colours);
        for (quint32 i = 0; i < count; ++i) {
            const QString text = catalogue::toQString(block.text(block.item(quint32(first) + i)));
            float colour[3] = {};
            if (isOfTexture ? isTexture(text)
                            : !ToTriple(text, colour) || distanceTo(colour) <= m_within + s_doubt)
                return true;
        }
        return false;
    }

    double distanceTo(const float (&colour)[3]) const
    {
        return drawing::colourDistance(m_lab, drawing::labOf(colour));
    }

    void examine(const PathPattern::Match& item, const QString& file, ParamValues& values,
                 QVector<Hit>& hits) const
    {
        const QDomElement& element = item.element;
        Hit hit;
        hit.file = file;
        hit.kind = element.tagName();
        hit.name = IdentityOf(element);
        hit.refName = element.attribute(QStringLiteral("refname"));
        hit.path = item.path;
        if (!m_texture.isEmpty()) {
            findTextures(item, hit, hits);
        } else if (!m_colour.isEmpty()) {
            findColour(item, hit, values, hits);
        } else if (!m_users.isEmpty()) {
            findUses(item, hit, hits);
        } else {
            if (m_isEqual)
                hit.content = contentDigest(element, values);
            hits.append(hit);
        }
    }

    void findTextures(const PathPattern::Match& item, Hit hit, QVector<Hit>& hits) const
    {
        Walk(item.element, item.path, [&](const QDomElement& element, const QString& path) {
            const QString owner = element.parentNode().nodeName();
            const QString reference = element.attribute(QStringLiteral("val"));
            if (isParam(element) && !reference.isEmpty() && isTexture(reference) &&
                isTextureParam(owner, element.attribute(QStringLiteral("name")))) {
                hit.at = path;
                hit.value = reference;
                hits.append(hit);
            }
            return true;
        });
    }

    bool isTexture(const QString& reference) const
    {
        const QString wanted = plainReference(m_texture);
        QStringList parts = plainReference(reference).split(QLatin1Char('/'));
        const int count = int(wanted.count(QLatin1Char('/'))) + 1;
        while (int(parts.size()) > count)
            parts.removeFirst();
        return hasParts(parts.join(QLatin1Char('/')), wanted.split(QLatin1Char('*')));
    }

    void findColour(const PathPattern::Match& item, Hit hit, ParamValues& values,
                    QVector<Hit>& hits) const
    {
        double nearest = std::numeric_limits<double>::infinity();
        Walk(item.element, item.path, [&](const QDomElement& element, const QString& path) {
            if (!isParam(element) ||
                element.attribute(QStringLiteral("type")) != QLatin1String("colour"))
                return true;
            const QString text = values.Text(element);
            float colour[3] = {};
            if (!toTriple(text, colour))
                return true;
            const double distance = distanceTo(colour);
            if (distance < nearest) {
                nearest = distance;
                hit.at = path;
                hit.value = text;
                hit.distance = distance;
            }
            return true;
        });
        if (nearest <= m_within)
            hits.append(hit);
    }

    void findUses(const PathPattern::Match& item, Hit hit, QVector<Hit>& hits) const
    {
        const auto add = [&](const QDomElement& element, const QString& path) {
            if (element.attribute(QStringLiteral("refname")) == m_users) {
                hit.at = path;
                hit.value = m_users;
                hits.append(hit);
            }
            return true;
        };
        // In an archive it is the preset itself that has the name.
        const QDomElement root = item.element.ownerDocument().documentElement();
        if (root.tagName() == QLatin1String("snapRoot"))
            add(item.element, item.path);
        Walk(item.element, item.path, add);
    }

    /// Those of which there are several, together, in the order of the first of them.
    static void keepEqual(QVector<Hit>& hits)
    {
        QHash<QByteArray, QVector<Hit>> byContent;
        QVector<QByteArray> order;
        for (const Hit& hit : hits) {
            QVector<Hit>& equal = byContent[hit.content];
            if (equal.isEmpty())
                order.append(hit.content);
            equal.append(hit);
        }
        hits.clear();
        int group = 0;
        for (const QByteArray& content : order) {
            const QVector<Hit> equal = byContent.value(content);
            if (equal.size() < 2)
                continue;
            ++group;
            for (Hit hit : equal) {
                hit.group = group;
                hits.append(hit);
            }
        }
    }

    static void print(const QVector<Hit>& hits, Output& out)
    {
        Table table;
        for (const Hit& hit : hits) {
            QString what = hit.value;
            if (hit.group > 0)
                what = QString::number(hit.group);
            if (hit.distance >= 0)
                what = QString::number(hit.distance, 'f', 2) + QLatin1String("  ") + hit.value;
            table.row({{hit.kind, Style::Dim},
                       {hit.name, Style::Bold},
                       {what, Style::Cyan},
                       {hit.file + QLatin1String(": ") + (hit.at.isEmpty() ? hit.path : hit.at),
                        Style::Dim}});
        }
        table.print(out);
    }

    static void printJson(const QVector<Hit>& hits, Output& out)
    {
        QJsonArray found;
        for (const Hit& hit : hits) {
            QJsonObject object{{QStringLiteral("file"), hit.file},
                               {QStringLiteral("kind"), hit.kind},
                               {QStringLiteral("name"), hit.name},
                               {QStringLiteral("refname"), hit.refName},
                               {QStringLiteral("path"), hit.path}};
            if (!hit.at.isEmpty()) {
                object.insert(QStringLiteral("at"), hit.at);
                object.insert(QStringLiteral("value"), hit.value);
            }
            if (hit.distance >= 0)
                object.insert(QStringLiteral("distance"), hit.distance);
            if (hit.group > 0)
                object.insert(QStringLiteral("group"), hit.group);
            found.append(object);
        }
        QJsonObject result = Session::envelope("find");
        result.insert(QStringLiteral("found"), found);
        out.json(result);
    }

    QStringList m_files;
    QString m_texture;
    QString m_colour;
    double m_within = -1;
    bool m_isEqual = false;
    QString m_users;
    SelectionOptions m_selection;
    Inputs m_inputs;
    drawing::Lab m_lab;
};

} // namespace

std::unique_ptr<Command> makeFind()
{
    return std::make_unique<Find>();
}

} // namespace rvopen::command
