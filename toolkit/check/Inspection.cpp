// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/check/Inspection.h>

#include "Places.h"
#include "RuleTable.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/images/ImageFiles.h"
#include "toolkit/images/ReferencedTextures.h"
#include "toolkit/schema/Vocabulary.h"

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/XMLUtils.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/images/EmbeddedPreview.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>
#include <rvopen/toolkit/schema/ValueCheck.h>
#include <rvopen/toolkit/schema/ValueText.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QVarLengthArray>

#include <algorithm>
#include <cmath>

namespace rvopen::toolkit {

namespace {

/// What look-ups of parameters step over.
bool isSteppedOver(const QDomNode& node)
{
    return node.isComment() || node.isProcessingInstruction() ||
           (node.nodeType() == QDomNode::TextNode && node.nodeValue().trimmed().isEmpty());
}

/// Names that every element is asked for: made once.
struct Words {
    const QString name = QStringLiteral("name");
    const QString type = QStringLiteral("type");
    const QString val = QStringLiteral("val");
    const QString prop = QStringLiteral("prop");
    const QString rangeMin = QStringLiteral("rangeMin");
    const QString rangeMax = QStringLiteral("rangeMax");
    const QString refname = QStringLiteral("refname");
    const QString linkname = QStringLiteral("linkname");
    const QString imgname = QStringLiteral("imgname");
    const QString xmlImage = QStringLiteral("xmlImage");
    const QString archiveFilename = QStringLiteral("archiveFilename");
    const QString param = QStringLiteral("param");
    const QString dir = QStringLiteral("dir");
    const QString material = QStringLiteral("material");
    const QString snapshot = QStringLiteral("snapshot");
    const QString snapshots = QStringLiteral("snapshots");
    const QString string = QStringLiteral("string");
    const QString shader = QStringLiteral("shader");
    const QString colour = QStringLiteral("colour");
};

/// Whether the text is a value of the type, as the host would read it. \p type is one.
bool isValueOf(const QString& type, const QString& text)
{
    const std::optional<ValueType> valueType = TypeNamed(type);
    return valueType && !CheckText(*valueType, text);
}

using ParamRows = QVector<const ParamInfo*>;

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
        : m_document(document)
        , m_surroundings(surroundings)
        , m_vocabulary(Vocabulary::instance())
        , m_folder(document.Folder())
    {
    }

    QVector<Finding> run()
    {
        const QDomElement root = m_document.Root();
        Frame frame;
        frame.element = root;
        frame.tag = root.tagName();
        frame.info = FindElement(frame.tag);
        frame.role = Role::Root;
        m_ordinal = 0;
        inspectRoot(frame);
        inspectAttributes(frame, 0);
        inspectChildren(frame, 0);
        return std::move(m_findings);
    }

private:
    void report(const Rule& rule, const QDomElement& element, int ordinal, const QString& message)
    {
        Finding finding;
        finding.rule = &rule;
        finding.element = element;
        finding.ordinal = ordinal;
        finding.message = message;
        m_findings.append(finding);
    }

    // The root.

    void inspectRoot(const Frame& frame)
    {
        const QDomElement& root = frame.element;
        if (m_document.Kind() == DocumentKind::Unknown)
            report(rules::unknownDocument, root, 0,
                   QStringLiteral("The root is \"%1\"").arg(frame.tag));
        const QString version = root.attribute(QStringLiteral("zorvane_version"));
        const int major = version.section(QLatin1Char('.'), 0, 0).toInt();
        const int minor = version.section(QLatin1Char('.'), 1, 1).toInt();
        if (major > m_surroundings.knownMajor ||
            (major == m_surroundings.knownMajor && minor > m_surroundings.knownMinor)) {
            report(rules::newerVersion, root, 0,
                   QStringLiteral("Version %1 is newer than %2.%3")
                       .arg(version)
                       .arg(m_surroundings.knownMajor)
                       .arg(m_surroundings.knownMinor));
        }
        const QString scale = root.attribute(QStringLiteral("unitsScale"));
        if (scale.isEmpty())
            return;
        double number = 0;
        if (!ToNumber(scale, number) || number <= 0)
            report(rules::unitsScale, root, 0,
                   QStringLiteral("The units scale is \"%1\"").arg(scale));
        else
            m_unitsScale = number;
    }

    // Elements.

    Role roleOf(const Frame& frame) const
    {
        const QString& tag = frame.tag;
        if (tag == m_words.dir)
            return Role::Folder;
        if (tag == m_words.snapshots)
            return Role::Collection;
        if (tag == m_words.snapshot)
            return Role::SnapShot;
        if (tag == m_words.material)
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
        QVarLengthArray<QString, 16> params;
        QSet<QString> components;
        bool isBehindOther = false;
        const ParamRows infos = ParamsOf(frame.tag, KindOf(frame.element));
        for (QDomNode node = frame.element.firstChild(); !node.isNull();
             node = node.nextSibling()) {
            if (!node.isElement()) {
                isBehindOther = isBehindOther || !isSteppedOver(node);
                continue;
            }
            const QDomElement child = node.toElement();
            const int number = ++m_ordinal;
            const QString tag = child.tagName();
            if (tag == m_words.param) {
                inspectParam(frame, infos, child, number, isBehindOther, params);
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

    void inspectElement(const Frame& parent, Frame& child, int ordinal, QSet<QString>& names,
                        QSet<QString>& components)
    {
        const QDomElement& element = child.element;
        if (!child.info) {
            report(rules::unknownElement, element, ordinal,
                   QStringLiteral("Unknown element \"%1\"").arg(child.tag));
            return;
        }
        inspectPlace(parent, child, ordinal, components);
        inspectKind(child, ordinal);
        const bool isOnShelf = parent.role == Role::Section || parent.role == Role::Folder;
        const bool isPreset =
            isOnShelf && child.role != Role::Folder && parent.refNames && !parent.isInPreset;
        const QString refName = element.attribute(m_words.refname);
        if (isPreset) {
            child.isInPreset = true;
            if (!refName.isEmpty()) {
                if (parent.refNames->contains(refName))
                    report(rules::duplicateRefName, element, ordinal,
                           QStringLiteral("The reference name \"%1\" is taken").arg(refName));
                parent.refNames->insert(refName);
            }
            inspectThumbnail(element, ordinal);
        } else if (!refName.isEmpty() && !m_surroundings.presets.isEmpty() &&
                   !m_surroundings.presets.contains(child.tag + QLatin1Char('/') + refName)) {
            report(rules::missingPreset, element, ordinal,
                   QStringLiteral("No archive has a %1 \"%2\"").arg(child.tag, refName));
        }
        if (isOnShelf || parent.role == Role::Collection)
            inspectName(child, ordinal, names);
        if (parent.role == Role::Palette && child.role == Role::Material) {
            const QString linkName = element.attribute(m_words.linkname);
            if (!linkName.isEmpty() && names.contains(linkName))
                report(rules::duplicateLinkName, element, ordinal,
                       QStringLiteral("The link name \"%1\" is taken").arg(linkName));
            names.insert(linkName);
        }
        if (child.role == Role::Folder)
            inspectReference(element, ordinal);
        if (child.role == Role::Collection) {
            child.collection = element.attribute(m_words.name);
            if (child.collection == QLatin1String("SnapShots") && parent.role == Role::Root)
                report(rules::oldCollectionName, element, ordinal,
                       QStringLiteral("The collection is named \"SnapShots\""));
        }
        if (child.role == Role::SnapShot) {
            child.collection =
                parent.role == Role::Root ? QStringLiteral("CurrSnapshot") : parent.collection;
            if (parent.role == Role::Collection)
                inspectSnapShotPicture(element, ordinal);
        }
        const QString image = element.attribute(m_words.xmlImage);
        if (!image.isEmpty() && !HasEmbeddedPreview(element))
            report(rules::unreadablePreview, element, ordinal,
                   QStringLiteral("The embedded preview cannot be decoded"));
    }

    void inspectName(const Frame& child, int ordinal, QSet<QString>& names)
    {
        const QString name = child.element.attribute(m_words.name);
        if (name.isEmpty())
            return;
        const QString key = child.tag + QLatin1Char('/') + name;
        if (names.contains(key))
            report(rules::duplicateName, child.element, ordinal,
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
            isGood = m_vocabulary.canAdd(parent.tag, m_words.dir)
                         ? m_vocabulary.canAdd(parent.tag, child.tag)
                         : child.role == Role::Folder || (child.info && child.info->isPreset);
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
            if (child.info && child.info->isComponent)
                repeated(child, ordinal, components);
            else
                report(rules::ignoredChild, child.element, ordinal,
                       QStringLiteral("Snapshots ignore \"%1\"").arg(child.tag));
            break;
        default:
            break;
        }
        if (!isGood)
            report(rules::misplacedChild, child.element, ordinal,
                   QStringLiteral("No \"%1\" belongs under \"%2\"").arg(child.tag, parent.tag));
    }

    void repeated(const Frame& child, int ordinal, QSet<QString>& components)
    {
        if (components.contains(child.tag))
            report(rules::repeatedComponent, child.element, ordinal,
                   QStringLiteral("Another \"%1\"").arg(child.tag));
        components.insert(child.tag);
    }

    void inspectKind(const Frame& child, int ordinal)
    {
        const bool isFinish = child.tag == QLatin1String("finish");
        const bool matters = isFinish || child.tag == QLatin1String("background") ||
                             child.tag == QLatin1String("scheme");
        if (!matters)
            return;
        const QString kind = KindOf(child.element);
        // A finish without class is one that nothing was said of yet.
        if (!child.info->kinds.contains(kind) && !(isFinish && kind.isEmpty()))
            report(rules::unknownKind, child.element, ordinal,
                   QStringLiteral("A %1 of kind \"%2\"").arg(child.tag, kind));
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
                report(rules::missingComponent, snapShot.element, ordinal,
                       QStringLiteral("The snapshot has no \"%1\"").arg(component));
        }
    }

    void inspectAttributes(const Frame& frame, int ordinal)
    {
        if (!frame.info)
            return;
        const QDomNamedNodeMap attributes = frame.element.attributes();
        const int count = attributes.count();
        for (int i = 0; i < count; ++i) {
            const QString name = attributes.item(i).nodeName();
            const bool isOfRoot =
                frame.role == Role::Root &&
                (name == m_words.type || name == QLatin1String("zorvane_version") ||
                 name == QLatin1String("unitsScale"));
            if (!isOfRoot && !m_vocabulary.isAttribute(frame.tag, name))
                report(rules::unknownAttribute, frame.element, ordinal,
                       QStringLiteral("Unknown attribute \"%1\"").arg(name));
        }
    }

    // Parameters.

    void inspectParam(const Frame& owner, const ParamRows& infos, const QDomElement& param,
                      int ordinal, bool isBehindOther, QVarLengthArray<QString, 16>& names)
    {
        const QString name = param.attribute(m_words.name);
        const QString type = param.attribute(m_words.type);
        const QString text = param.attribute(m_words.val);
        if (name.isEmpty())
            report(rules::paramWithoutName, param, ordinal,
                   QStringLiteral("A parameter without name"));
        else if (std::find(names.cbegin(), names.cend(), name) != names.cend())
            report(rules::duplicateParam, param, ordinal,
                   QStringLiteral("Another parameter \"%1\"").arg(name));
        names.append(name);
        if (isBehindOther)
            report(rules::hiddenParam, param, ordinal,
                   QStringLiteral("\"%1\" is hidden behind another child of \"%2\"")
                       .arg(name, owner.tag));
        const auto info = std::find_if(infos.cbegin(), infos.cend(), [&name](const ParamInfo* row) {
            return row->name == QStringView(name);
        });
        const bool isExpected = info != infos.cend();
        if (!isExpected && !infos.isEmpty() && !name.isEmpty())
            report(rules::unknownParam, param, ordinal,
                   QStringLiteral("Unknown parameter \"%1\" of \"%2\"").arg(name, owner.tag));
        const std::optional<ValueType> valueType = TypeNamed(type);
        const bool isOfType = !isExpected || valueType == (*info)->type;
        // Most have these three attributes and no others; the rest is looked up where there is
        // more.
        const int usual =
            (name.isNull() ? 0 : 1) + (type.isNull() ? 0 : 1) + (text.isNull() ? 0 : 1);
        const bool hasMore = param.attributes().count() > usual;
        const int count = int(m_findings.size());
        if (type.isEmpty())
            report(rules::missingType, param, ordinal,
                   QStringLiteral("\"%1\" has no type").arg(name));
        else if (!valueType)
            report(rules::wrongType, param, ordinal,
                   QStringLiteral("\"%1\" has the unknown type \"%2\"").arg(name, type));
        else if (!isOfType)
            report(rules::wrongType, param, ordinal,
                   QStringLiteral("\"%1\" has type \"%2\" instead of \"%3\"")
                       .arg(name, type, TypeName((*info)->type)));
        else
            inspectValue(param, ordinal, name, *valueType, type, text, hasMore);
        if (int(m_findings.size()) > count && !isOfType)
            m_findings.last().expectedType = TypeName((*info)->type);
        if (type == m_words.string && !text.isEmpty() && isTextureParam(owner.tag, name) &&
            !isThere(text))
            report(rules::missingTexture, param, ordinal,
                   QStringLiteral("\"%1\" is not there").arg(text));
        if (hasMore)
            inspectParamAttributes(param, ordinal);
        if (type == m_words.shader && text != m_words.colour)
            report(rules::shaderEndsList, param, ordinal,
                   QStringLiteral("A shader parameter of kind \"%1\"").arg(text));
        if (param.firstChild().isNull())
            return;
        Frame frame;
        frame.element = param;
        frame.tag = m_words.param;
        frame.info = FindElement(frame.tag);
        frame.isInPreset = owner.isInPreset;
        inspectChildren(frame, ordinal);
    }

    void inspectValue(const QDomElement& param, int ordinal, const QString& name,
                      ValueType valueType, const QString& type, const QString& text, bool hasMore)
    {
        if (CheckText(valueType, text)) {
            const QString message =
                text.isEmpty() ? QStringLiteral("\"%1\" has no value").arg(name)
                               : QStringLiteral("\"%1\": \"%2\" is no value of type \"%3\"")
                                     .arg(name, text, type);
            report(rules::badValue, param, ordinal, message);
            return;
        }
        if (valueType != ValueType::Float || !hasMore)
            return;
        const QString lowText = param.attribute(m_words.rangeMin);
        const QString highText = param.attribute(m_words.rangeMax);
        if (lowText.isEmpty() && highText.isEmpty())
            return;
        double value = 0;
        double low = 0;
        double high = 0;
        ToNumber(text, value);
        if (param.attribute(m_words.prop).contains(QLatin1Char('D')))
            value /= m_unitsScale;
        const bool hasLow = ToNumber(lowText, low);
        const bool hasHigh = ToNumber(highText, high);
        const auto isLess = [](double a, double b) { return a < b - std::abs(b) * 1e-6; };
        if ((hasLow && isLess(value, low)) || (hasHigh && isLess(high, value)))
            report(rules::outOfRange, param, ordinal,
                   QStringLiteral("\"%1\": %2 is outside of %3 to %4")
                       .arg(name, NumberText(value), hasLow ? NumberText(low) : QStringLiteral("?"),
                            hasHigh ? NumberText(high) : QStringLiteral("?")));
    }

    void inspectParamAttributes(const QDomElement& param, int ordinal)
    {
        const QDomNamedNodeMap attributes = param.attributes();
        for (int i = 0; i < attributes.count(); ++i) {
            const QString name = attributes.item(i).nodeName();
            if (!m_vocabulary.isAttribute(m_words.param, name))
                report(rules::unknownAttribute, param, ordinal,
                       QStringLiteral("Unknown attribute \"%1\"").arg(name));
        }
    }

    // What is referred to.

    bool isThere(const QString& reference)
    {
        const auto known = m_references.constFind(reference);
        if (known != m_references.cend())
            return *known;
        const bool isFound = !findReferenced(reference, m_folder).isEmpty();
        m_references.insert(reference, isFound);
        return isFound;
    }

    void inspectReference(const QDomElement& element, int ordinal)
    {
        const QString name = element.attribute(m_words.archiveFilename);
        if (name.isEmpty())
            return;
        const QString type = element.attribute(QStringLiteral("archiveType"));
        QString folder;
        if (type == QLatin1String("Zorvane"))
            folder = m_surroundings.folders.archives;
        else if (type == QLatin1String("Custom"))
            folder = m_surroundings.folders.custom;
        else
            report(rules::missingArchive, element, ordinal,
                   QStringLiteral("There is no folder of archives of type \"%1\"").arg(type));
        if (folder.isEmpty())
            return;
        // The library says where such an archive is, and opens none outside of the folder.
        RVOpenNode node;
        node.SetDomNode(element);
        const QString file = node.GetArchiveFilename();
        node.SetDomNode(QDomNode());
        const QString inside = element.attribute(QStringLiteral("path")) + QLatin1Char('/') + name;
        if (!StaysInside(inside) || !QFileInfo(PathToOpen(file)).isFile())
            report(rules::missingArchive, element, ordinal,
                   QStringLiteral("The archive \"%1\" is not there").arg(name));
    }

    void inspectThumbnail(const QDomElement& element, int ordinal)
    {
        if (element.attribute(m_words.imgname).isEmpty() ||
            !element.attribute(m_words.xmlImage).isEmpty())
            return;
        const QString type = m_document.Root().attribute(m_words.type);
        const bool isOfUser = type == QLatin1String("UserArchives");
        if ((isOfUser ? m_surroundings.folders.custom : m_surroundings.folders.install).isEmpty())
            return;
        RVOpenNode node;
        node.SetDomNode(element);
        XMLUtils utils;
        const QString file = utils.ImagePathFromRVOpenNode(&node, m_surroundings.folders.install) +
                             QLatin1Char('\\') + utils.GetImageName(&node) + QLatin1String(".jpg");
        node.SetDomNode(QDomNode());
        inspectPicture(file, element, ordinal);
    }

    void inspectSnapShotPicture(const QDomElement& element, int ordinal)
    {
        QString name = element.attribute(m_words.name);
        const QString folder = m_surroundings.folders.snapshots;
        if (folder.isEmpty() || name.isEmpty())
            return;
        inspectPicture(folder + QLatin1String("/icon_") + XMLUtils::ReplaceIllegalCharacters(name) +
                           QLatin1String(".jpg"),
                       element, ordinal);
    }

    void inspectPicture(const QString& path, const QDomElement& element, int ordinal)
    {
        const QString file = PathToOpen(path);
        if (!QFileInfo(file).isFile())
            report(rules::missingThumbnail, element, ordinal,
                   QStringLiteral("The thumbnail \"%1\" is not there").arg(file));
        else if (!isPictureFile(file))
            report(rules::unreadablePreview, element, ordinal,
                   QStringLiteral("The thumbnail \"%1\" cannot be decoded").arg(file));
    }

    const Document& m_document;
    const Surroundings& m_surroundings;
    const Vocabulary& m_vocabulary;
    const Words m_words;
    QString m_folder;
    double m_unitsScale = 1;
    int m_ordinal = 0;
    QHash<QString, bool> m_references;
    QVector<Finding> m_findings;
};

/// In front of the first child that is no parameter.
void bringForward(const QDomElement& param)
{
    QDomNode parent = param.parentNode();
    QDomNode node = parent.firstChild();
    while (node.isElement() && isParam(node.toElement()) && node != param)
        node = node.nextSibling();
    if (node != param)
        parent.insertBefore(param, node);
}

bool mendOne(const Finding& finding)
{
    QDomElement element = finding.element;
    if (finding.rule == &rules::oldCollectionName) {
        element.setAttribute(QStringLiteral("name"), QStringLiteral("Model SnapShots"));
        return true;
    }
    if (finding.rule == &rules::hiddenParam) {
        bringForward(element);
        return true;
    }
    if (finding.rule == &rules::missingType || finding.rule == &rules::wrongType) {
        const QString text = element.attribute(QStringLiteral("val"));
        // A text may be any string, and a shader is more than its value.
        const bool isSafe = !finding.expectedType.isEmpty() &&
                            finding.expectedType != QLatin1String("shader") &&
                            element.attribute(QStringLiteral("type")) != QLatin1String("shader") &&
                            isValueOf(finding.expectedType, text);
        if (isSafe)
            element.setAttribute(QStringLiteral("type"), finding.expectedType);
        return isSafe;
    }
    return false;
}

} // namespace

Surroundings LookAround(const Folders& folders, const std::function<void(const ReadError&)>& failed)
{
    Surroundings surroundings;
    surroundings.folders = folders;
    for (const QString& file : archivesIn(folders)) {
        ReadError error;
        const std::unique_ptr<Document> archive = Document::Read(file, error);
        if (archive) {
            forEachPreset(archive->Root(), [&surroundings](const Preset& preset) {
                surroundings.presets.insert(preset.element.tagName() + QLatin1Char('/') +
                                            preset.element.attribute(QStringLiteral("refname")));
            });
        } else if (failed) {
            failed(error);
        }
    }
    return surroundings;
}

QVector<Finding> Inspect(const Document& document, const Surroundings& surroundings)
{
    QVector<Finding> findings = Inspector(document, surroundings).run();
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

int Mend(QVector<Finding>& findings)
{
    int count = 0;
    for (Finding& finding : findings) {
        finding.isFixed = mendOne(finding);
        count += finding.isFixed ? 1 : 0;
    }
    return count;
}

} // namespace rvopen::toolkit
