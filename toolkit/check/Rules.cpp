// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/check/Rules.h>

#include "RuleTable.h"

namespace rvopen::toolkit {

QString SeverityName(Severity severity)
{
    switch (severity) {
    case Severity::Note:
        return QStringLiteral("note");
    case Severity::Warning:
        return QStringLiteral("warning");
    case Severity::Error:
        break;
    }
    return QStringLiteral("error");
}

namespace rules {

const Rule malformedXml = {"malformed-xml", Severity::Error, "The file is no well-formed XML.",
                           "The host cannot load it at all. Look at the place in a text editor, or "
                           "take the file from a backup.",
                           nullptr};
const Rule unknownDocument = {
    "unknown-document", Severity::Error,
    "The file is XML, but neither a snapshot document nor an archive.",
    "A snapshot document has the root \"snapRoot\", an archive sections such as \"materials\".",
    nullptr};
const Rule newerVersion = {
    "newer-version", Severity::Warning, "The document comes from a newer version of the host.",
    "What that version added is kept but not understood. Open it with that version.", nullptr};
const Rule oldCollectionName = {"old-collection-name", Severity::Note,
                                "The collection of snapshots has its old name, \"SnapShots\".",
                                "The host renames it when it loads the document.",
                                "Renames it to \"Model SnapShots\"."};
const Rule unitsScale = {"units-scale", Severity::Error, "The units scale is no number above 0.",
                         "Every length of the document is divided by it. Set \"@unitsScale\".",
                         nullptr};
const Rule unknownElement = {"unknown-element", Severity::Warning,
                             "The host does not know elements of this name.",
                             "It is kept but has no effect. Mind the spelling: the case of letters "
                             "counts.",
                             nullptr};
const Rule unknownAttribute = {"unknown-attribute", Severity::Note,
                               "The host does not know attributes of this name.",
                               "It is kept but has no effect.", nullptr};
const Rule unknownKind = {"unknown-kind", Severity::Note,
                          "The host does not know this kind of background, scheme or finish.",
                          "The sub-category, or the shader class of a finish, decides which "
                          "parameters are read; the case of letters counts.",
                          nullptr};
const Rule misplacedChild = {
    "misplaced-child", Severity::Warning, "The element stands where none of its kind belongs.",
    "The host does not find it there, or takes it for something else. Move "
    "it under the right section, folder or collection.",
    nullptr};
const Rule repeatedComponent = {
    "repeated-component", Severity::Warning, "The component is there more than once.",
    "A snapshot uses the last of its kind, a material the first. Remove "
    "the others.",
    nullptr};
const Rule ignoredChild = {"ignored-child", Severity::Note, "Snapshots do not use this element.",
                           "It is kept but has no effect.", nullptr};
const Rule missingComponent = {
    "missing-component", Severity::Warning, "The snapshot lacks a component that it needs.",
    "Members of \"Model SnapShots\" need settings and a camera, those of "
    "the other collections what these hold.",
    nullptr};
const Rule hiddenParam = {
    "hidden-parameter", Severity::Error,
    "The parameter stands behind a child that is no parameter.",
    "Look-ups step over comments, processing instructions and white space and "
    "stop at any other child that is none: the host does not see the "
    "parameter.",
    "Moves parameters in front of the other children, in their order."};
const Rule shaderEndsList = {"unknown-shader", Severity::Error,
                             "A shader parameter of a kind other than \"colour\" ends the list.",
                             "The host makes no object of it and sees nothing that follows it.",
                             nullptr};
const Rule unknownParam = {"unknown-parameter", Severity::Note,
                           "The host reads no parameter of this name here.",
                           "It is kept but has no effect. Mind the spelling: the case of letters "
                           "counts.",
                           nullptr};
const Rule paramWithoutName = {"unnamed-parameter", Severity::Error, "The parameter has no name.",
                               "It cannot be looked up.", nullptr};
const Rule missingType = {"missing-type", Severity::Error, "The parameter has no type.",
                          "Every read of it fails. Give it the type that belongs to its name.",
                          "Sets the type that the host expects where the value is of that type."};
const Rule wrongType = {"wrong-type", Severity::Error,
                        "The parameter has another type than the host expects.",
                        "Every read of it fails.",
                        "Sets the type that the host expects where the value is of that type."};
const Rule badValue = {"bad-value", Severity::Error, "The value is none of the parameter's type.",
                       "It is read as 0, or not at all. Set it anew.", nullptr};
const Rule outOfRange = {"out-of-range", Severity::Warning,
                         "The value makes no sense, or is outside of \"rangeMin\" to \"rangeMax\".",
                         "The host offers values within the range only. Set another value, or "
                         "correct the range.",
                         nullptr};
const Rule duplicateParam = {"duplicate-parameter", Severity::Warning,
                             "Two parameters of one element have the same name.",
                             "The first is found, the others never.", nullptr};
const Rule duplicateName = {"duplicate-name", Severity::Warning,
                            "Two members of a collection or folder have the same name.",
                            "They cannot be told apart, and snapshots share their picture. Rename "
                            "one.",
                            nullptr};
const Rule duplicateLinkName = {
    "duplicate-link-name", Severity::Error, "Two materials of a palette have the same link name.",
    "The first is used for the object of the model, the others never.", nullptr};
const Rule duplicateRefName = {
    "duplicate-reference-name", Severity::Error,
    "Two presets of a section have the same reference name, in one archive or "
    "in two that are checked together.",
    "The first is found, the others never. Give each its own.", nullptr};
const Rule missingPreset = {"missing-preset", Severity::Warning,
                            "No archive has the preset that is referred to.",
                            "Looked for in the folders of the host when these are named.", nullptr};
const Rule missingArchive = {"missing-archive", Severity::Error,
                             "The archive that is referred to is not there.",
                             "Looked for in the folder of its type when that is named.", nullptr};
const Rule missingTexture = {"missing-texture", Severity::Warning,
                             "The image file that is referred to is not there.",
                             "Put it where the document says, or beside the document.", nullptr};
const Rule missingThumbnail = {"missing-thumbnail", Severity::Note,
                               "The thumbnail that is referred to is not there.",
                               "Looked for in the folders of the host when these are named. The "
                               "host can make it anew.",
                               nullptr};
const Rule unreadablePreview = {
    "unreadable-preview", Severity::Warning, "The preview cannot be decoded.",
    "The host shows no picture. Remove it and let the host make it anew.", nullptr};

} // namespace rules

QVector<const Rule*> AllRules()
{
    return {
        &rules::malformedXml,      &rules::unknownDocument,   &rules::newerVersion,
        &rules::oldCollectionName, &rules::unitsScale,        &rules::unknownElement,
        &rules::unknownAttribute,  &rules::unknownKind,       &rules::misplacedChild,
        &rules::repeatedComponent, &rules::ignoredChild,      &rules::missingComponent,
        &rules::hiddenParam,       &rules::shaderEndsList,    &rules::unknownParam,
        &rules::paramWithoutName,  &rules::missingType,       &rules::wrongType,
        &rules::badValue,          &rules::outOfRange,        &rules::duplicateParam,
        &rules::duplicateName,     &rules::duplicateLinkName, &rules::duplicateRefName,
        &rules::missingPreset,     &rules::missingArchive,    &rules::missingTexture,
        &rules::missingThumbnail,  &rules::unreadablePreview,
    };
}

const Rule* FindRule(const QString& id)
{
    for (const Rule* const rule : AllRules()) {
        if (id == QLatin1String(rule->id))
            return rule;
    }
    return nullptr;
}

} // namespace rvopen::toolkit
