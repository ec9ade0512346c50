// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/check/Inspection.h>

#include "Inspecting.h"
#include "Parameters.h"
#include "Places.h"
#include "References.h"
#include "RuleTable.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/RowFilter.h"
#include "toolkit/documents/SafeFiles.h"
#include "toolkit/documents/Stopping.h"
#include "toolkit/edit/Likeness.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <algorithm>

namespace rvopen::toolkit {

namespace {

/// What look-ups of parameters step over.
bool isSteppedOver(const QDomNode& node)
{
    return node.isComment() || node.isProcessingInstruction() ||
           (node.nodeType() == QDomNode::TextNode && node.nodeValue().trimmed().isEmpty());
}

/// What an element is, as far as the inspection treats it in its own way.
enum class Role { Plain, Root, Collection, SnapShot, Section, Folder, Palette, Material, Targets };

struct Frame {
    QDomElement element;
    QString tag;
    /// What is known of it, if anything.
    const ElementInfo* info = nullptr;
    Role role = Role::Plain;
    /// Of the enclosing section; where presets are told apart by reference name.
    QSet<QString>* refNames = nullptr;
    bool isInPreset = false;
    QString collection;
};

class Inspector {
public:
    Inspector(const Document& document, const Surroundings& surroundings)
        : m_inspecting(document, surroundings)
        , m_references(m_inspecting)
    {
    }

    QVector<Finding> run()
    {
        const QDomElement root = m_inspecting.document.Root();
        Frame frame;
        frame.element = root;
        frame.tag = root.tagName();
        frame.info = FindElement(frame.tag);
        frame.role = Role::Root;
        inspectRoot(frame);
        inspectAttributes(frame, 0);
        inspectChildren(frame, 0);
        return std::move(m_inspecting.findings);
    }

private:
    // The root.

    void inspectRoot(const Frame& frame)
    {
        const QDomElement& root = frame.element;
        if (m_inspecting.document.Kind() == DocumentKind::Unknown)
            m_inspecting.report(rules::unknownDocument, root, 0,
                                QStringLiteral("The root is \"%1\"").arg(frame.tag));
        const QString version = root.attribute(QStringLiteral("zorvane_version"));
        const int major = version.section(QLatin1Char('.'), 0, 0).toInt();
        const int minor = version.section(QLatin1Char('.'), 1, 1).toInt();
        const Surroundings& known = m_inspecting.surroundings;
        if (major > known.knownMajor || (major == known.knownMajor && minor > known.knownMinor)) {
            m_inspecting.report(rules::newerVersion, root, 0,
                                QStringLiteral("Version %1 is newer than %2.%3")
                                    .arg(version)
                                    .arg(known.knownMajor)
                                    .arg(known.knownMinor));
        }
        const QString scale = root.attribute(QStringLiteral("unitsScale"));
        if (scale.isEmpty())
            return;
        double number = 0;
        if (!ToNumber(scale, number) || number <= 0)
            m_inspecting.report(rules::unitsScale, root, 0,
                                QStringLiteral("The units scale is \"%1\"").arg(scale));
        else
            m_inspecting.unitsScale = number;
    }

    // Elements.

    Role roleOf(const Frame& frame) const
    {
        const QString& tag = frame.tag;
        if (tag == m_inspecting.words.dir)
            return Role::Folder;
        if (tag == m_inspecting.words.snapshots)
            return Role::Collection;
        if (tag == m_inspecting.words.snapshot)
            return Role::SnapShot;
        if (tag == m_inspecting.words.material)
            return Role::Material;
        if (tag == QLatin1String("materialRepository"))
            return Role::Palette;
        if (tag == QLatin1String("renderTargets"))
            return Role::Targets;
        return frame.info && frame.info->isSection ? Role::Section : Role::Plain;
    }

    void inspectChildren(const Frame& frame, int ordinal)
    {
        QSet<QString> names;
        QSet<QString> refNames;
        QSet<QString> components;
        bool isBehindOther = false;
        Parameters params(m_inspecting, m_references, frame.element, frame.tag);
        for (QDomNode node = frame.element.firstChild(); !node.isNull() && !isStopped();
             node = node.nextSibling()) {
            if (!node.isElement()) {
                isBehindOther = isBehindOther || !isSteppedOver(node);
                continue;
            }
            const QDomElement child = node.toElement();
            const int number = ++m_ordinal;
            const QString tag = child.tagName();
            if (tag == m_inspecting.words.param) {
                params.inspect(child, number, isBehindOther);
                if (!child.firstChild().isNull())
                    inspectChildrenOfParam(child, frame.isInPreset, number);
                continue;
            }
            isBehindOther = true;
            Frame next;
            next.element = child;
            next.tag = tag;
            next.info = FindElement(tag);
            next.role = roleOf(next);
            next.refNames = frame.role == Role::Section || frame.role == Role::Folder
                                ? frame.refNames
                                : nullptr;
            next.isInPreset = frame.isInPreset;
            if (next.role == Role::Section)
                next.refNames = &refNames;
            inspectElement(frame, next, number, names, components);
            inspectAttributes(next, number);
            inspectChildren(next, number);
            if (next.role == Role::Section)
                refNames.clear();
        }
        if (frame.role == Role::SnapShot)
            inspectComponents(frame, ordinal, components);
    }

    void inspectChildrenOfParam(const QDomElement& param, bool isInPreset, int ordinal)
    {
        Frame frame;
        frame.element = param;
        frame.tag = m_inspecting.words.param;
        frame.isInPreset = isInPreset;
        inspectChildren(frame, ordinal);
    }

    void inspectElement(const Frame& parent, Frame& child, int ordinal, QSet<QString>& names,
                        QSet<QString>& components)
    {
        const QDomElement& element = child.element;
        if (!child.info) {
            m_inspecting.report(rules::unknownElement, element, ordinal,
                                QStringLiteral("Unknown element \"%1\"").arg(child.tag));
            return;
        }
        inspectPlace(parent, child, ordinal, components);
        inspectKind(child, ordinal);
        const bool isOnShelf = parent.role == Role::Section || parent.role == Role::Folder;
        const bool isPreset =
            isOnShelf && child.role != Role::Folder && parent.refNames && !parent.isInPreset;
        const QString refName = element.attribute(m_inspecting.words.refname);
        if (isPreset) {
            child.isInPreset = true;
            if (!refName.isEmpty()) {
                inspectRefName(child, refName, *parent.refNames, ordinal);
                parent.refNames->insert(refName);
            }
            m_references.inspectThumbnail(element, ordinal);
        } else {
            m_references.inspectPreset(element, child.tag, refName, ordinal);
        }
        if (isOnShelf || parent.role == Role::Collection)
            inspectName(child, ordinal, names);
        if (parent.role == Role::Palette && child.role == Role::Material) {
            const QString linkName = element.attribute(m_inspecting.words.linkname);
            if (!linkName.isEmpty() && names.contains(linkName))
                m_inspecting.report(rules::duplicateLinkName, element, ordinal,
                                    QStringLiteral("The link name \"%1\" is taken").arg(linkName));
            names.insert(linkName);
        }
        if (child.role == Role::Folder)
            m_references.inspectArchive(element, ordinal);
        if (child.role == Role::Collection) {
            child.collection = element.attribute(m_inspecting.words.name);
            if (child.collection == QLatin1String("SnapShots") && parent.role == Role::Root)
                m_inspecting.report(rules::oldCollectionName, element, ordinal,
                                    QStringLiteral("The collection is named \"SnapShots\""));
        }
        if (child.role == Role::SnapShot) {
            child.collection =
                parent.role == Role::Root ? QStringLiteral("CurrSnapshot") : parent.collection;
            if (parent.role == Role::Collection)
                m_references.inspectSnapShotPicture(element, ordinal);
        }
        const QString image = element.attribute(m_inspecting.words.xmlImage);
        if (!image.isEmpty() && !HasEmbeddedPreview(element))
            m_inspecting.report(rules::unreadablePreview, element, ordinal,
                                QStringLiteral("The embedded preview cannot be decoded"));
    }

    void inspectRefName(const Frame& preset, const QString& refName, const QSet<QString>& refNames,
                        int ordinal)
    {
        const QString other = m_inspecting.surroundings.taken.value(presetKey(preset.tag, refName));
        const bool isElsewhere =
            !other.isEmpty() && !isSameFile(other, m_inspecting.document.Name());
        if (refNames.contains(refName) || isElsewhere)
            m_inspecting.report(
                rules::duplicateRefName, preset.element, ordinal,
                QStringLiteral("The reference name \"%1\" is taken").arg(refName) +
                    (isElsewhere ? QStringLiteral(" in \"%1\"").arg(other) : QString()));
    }

    void inspectName(const Frame& child, int ordinal, QSet<QString>& names)
    {
        const QString name = child.element.attribute(m_inspecting.words.name);
        if (name.isEmpty())
            return;
        const QString key = child.tag + QLatin1Char('/') + name;
        if (names.contains(key))
            m_inspecting.report(rules::duplicateName, child.element, ordinal,
                                QStringLiteral("The name \"%1\" is taken").arg(name));
        names.insert(key);
    }

    void inspectPlace(const Frame& parent, const Frame& child, int ordinal,
                      QSet<QString>& components)
    {
        bool isGood = true;
        switch (parent.role) {
        case Role::Section:
            // The library has rules for the sections that it creates presets of.
            isGood = m_vocabulary.canAdd(parent.tag, m_inspecting.words.dir)
                         ? m_vocabulary.canAdd(parent.tag, child.tag)
                         : child.role == Role::Folder || child.info->isPreset;
            break;
        case Role::Material:
            isGood = child.role == Role::Material || m_vocabulary.canAdd(parent.tag, child.tag);
            repeated(child, ordinal, components);
            break;
        case Role::Collection:
            isGood = child.role == Role::SnapShot;
            break;
        case Role::Palette:
            isGood = child.role == Role::Material;
            break;
        case Role::Targets:
            isGood = child.tag == QLatin1String("renderTarget");
            break;
        case Role::SnapShot:
            if (child.info->isComponent)
                repeated(child, ordinal, components);
            else
                m_inspecting.report(rules::ignoredChild, child.element, ordinal,
                                    QStringLiteral("Snapshots ignore \"%1\"").arg(child.tag));
            break;
        default:
            break;
        }
        if (!isGood)
            m_inspecting.report(
                rules::misplacedChild, child.element, ordinal,
                QStringLiteral("No \"%1\" belongs under \"%2\"").arg(child.tag, parent.tag));
    }

    void repeated(const Frame& child, int ordinal, QSet<QString>& components)
    {
        if (components.contains(child.tag))
            m_inspecting.report(rules::repeatedComponent, child.element, ordinal,
                                QStringLiteral("Another \"%1\"").arg(child.tag));
        components.insert(child.tag);
    }

    void inspectKind(const Frame& child, int ordinal)
    {
        if (child.info->kinds.isEmpty())
            return;
        const bool isFinish = child.tag == QLatin1String("finish");
        const bool matters = isFinish || child.tag == QLatin1String("background") ||
                             child.tag == QLatin1String("scheme");
        const QString kind = KindOf(child.element);
        // A finish without class is one that nothing was said of yet.
        if (child.info->kinds.contains(kind) || (kind.isEmpty() && (isFinish || !matters)))
            return;
        // Where other kinds are as good, one that looks like a known one is a slip.
        const QString likely = likeliestKind(kind, child.info->kinds);
        if (matters || !likely.isEmpty())
            m_inspecting.report(rules::unknownKind, child.element, ordinal,
                                QStringLiteral("A %1 of kind \"%2\"").arg(child.tag, kind) +
                                    didYouMean(likely));
    }

    void inspectComponents(const Frame& snapShot, int ordinal, const QSet<QString>& components)
    {
        QStringList needed;
        if (snapShot.collection == QLatin1String("Model SnapShots") ||
            snapShot.collection == QLatin1String("SnapShots"))
            needed << QStringLiteral("snapShotSettings") << QStringLiteral("camera");
        else if (snapShot.collection == QLatin1String("CurrSnapshot"))
            needed << QStringLiteral("snapShotSettings");
        else if (snapShot.collection == QLatin1String("Model Cameras"))
            needed << QStringLiteral("camera");
        else if (snapShot.collection == QLatin1String("Model Material Palettes"))
            needed << QStringLiteral("materialRepository");
        else if (snapShot.collection == QLatin1String("Model Backgrounds"))
            needed << QStringLiteral("background");
        for (const QString& component : needed) {
            if (!components.contains(component))
                m_inspecting.report(rules::missingComponent, snapShot.element, ordinal,
                                    QStringLiteral("The snapshot has no \"%1\"").arg(component));
        }
    }

    void inspectAttributes(const Frame& frame, int ordinal)
    {
        if (!frame.info)
            return;
        const QStringList others =
            frame.role == Role::Root
                ? QStringList{m_inspecting.words.type, QStringLiteral("zorvane_version"),
                              QStringLiteral("unitsScale")}
                : QStringList();
        m_inspecting.inspectAttributes(frame.element, frame.tag, ordinal, others);
    }

    Inspecting m_inspecting;
    References m_references;
    const Vocabulary& m_vocabulary = Vocabulary::instance();
    int m_ordinal = 0;
};

} // namespace

Surroundings LookAround(const Folders& folders, const std::function<void(const ReadError&)>& failed)
{
    Surroundings surroundings;
    surroundings.folders = folders;
    const catalogue::BlockStore archives(archivesIn(folders));
    const auto add = [&surroundings](const QString& kind, const QString& refName) {
        // Of presets without a name, too: that there are some is enough to miss others.
        surroundings.presets.insert(presetKey(kind, refName));
    };
    for (int i = 0; i < archives.count(); ++i) {
        const catalogue::Block& block = archives.block(i);
        const auto addRow = [&](quint32, const catalogue::BlockRow& row) {
            add(catalogue::toQString(block.text(row.kind)),
                catalogue::toQString(block.text(row.refName)));
        };
        if (catalogue::forEachPassing(block, AttributeFilter(), addRow))
            continue;
        ReadError error;
        const std::unique_ptr<Document> archive = Document::Read(archives.file(i), error);
        if (archive) {
            forEachPreset(archive->Root(), [&add](const Preset& preset) {
                add(preset.element.tagName(), preset.element.attribute(QStringLiteral("refname")));
            });
        } else if (failed) {
            failed(error);
        }
    }
    return surroundings;
}

void TakeNames(const Document& archive, Surroundings& surroundings)
{
    if (archive.Kind() != DocumentKind::Archive)
        return;
    forEachPreset(archive.Root(), [&](const Preset& preset) {
        const QString key = presetKey(preset.element);
        if (!key.isEmpty() && !surroundings.taken.contains(key))
            surroundings.taken.insert(key, archive.Name());
    });
}

QVector<Finding> Inspect(const Document& document, const Surroundings& surroundings,
                         const std::atomic<bool>* stop)
{
    const Stoppable stoppable(stop);
    QVector<Finding> findings = Inspector(document, surroundings).run();
    if (isStopped())
        return {};
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.ordinal < b.ordinal; });
    for (Finding& finding : findings)
        finding.file = document.Name();
    givePlaces(findings, document);
    return findings;
}

Finding FindingOf(const ReadError& error)
{
    Finding finding;
    finding.rule = &rules::malformedXml;
    finding.file = error.file;
    finding.line = error.line;
    finding.column = error.column;
    finding.message = error.message;
    return finding;
}

} // namespace rvopen::toolkit
