// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/model/Changes.h>
#include <rvopen/model/FoundNodes.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ValueText.h>

#include <QDir>

/// Definitions of the properties, a row each.
#define RVOPEN_TEXT(Get, Set, name)                                                                \
    QString RVOpenNode::Get() const                                                                \
    {                                                                                              \
        return attribute(names::attribute::name());                                                \
    }                                                                                              \
    void RVOpenNode::Set(QString value)                                                            \
    {                                                                                              \
        setAttribute(names::attribute::name(), value);                                             \
    }
#define RVOPEN_FLAG(Is, Set, name, valueWhenAbsent)                                                \
    int RVOpenNode::Is() const                                                                     \
    {                                                                                              \
        return flag(names::attribute::name(), valueWhenAbsent);                                    \
    }                                                                                              \
    void RVOpenNode::Set(int value)                                                                \
    {                                                                                              \
        setAttribute(names::attribute::name(), valueText::fromBool(value));                        \
    }

namespace rvopen {

unsigned int RVOpenNode::GetAttributeFloat(const char* name, float* out) const
{
    return valueText::toFloat(GetAttributeString(name), out);
}

unsigned int RVOpenNode::GetAttributeInt(const char* name, int* out) const
{
    return valueText::toInt(GetAttributeString(name), out);
}

unsigned int RVOpenNode::GetAttributeBool(const char* name, int* out) const
{
    return valueText::toBool(GetAttributeString(name), out);
}

QString RVOpenNode::GetAttributeString(const char* name) const
{
    return attribute(QString::fromLatin1(name));
}

void RVOpenNode::SetAttributeFloat(const char* name, float value)
{
    SetAttributeString(name, valueText::fromFloat(value));
}

void RVOpenNode::SetAttributeInt(const char* name, int value)
{
    SetAttributeString(name, QString::number(value));
}

void RVOpenNode::SetAttributeBool(const char* name, int value)
{
    SetAttributeString(name, valueText::fromBool(value));
}

void RVOpenNode::SetAttributeString(const char* name, QString value)
{
    setAttribute(QString::fromLatin1(name), value);
}

RVOPEN_TEXT(GetName, SetName, name)
RVOPEN_TEXT(GetCat, SetCat, cat)
RVOPEN_TEXT(GetDescription, SetDescription, description)
RVOPEN_TEXT(GetSubCat, SetSubCat, subCat)
RVOPEN_TEXT(GetShaderClass, SetShaderClass, shaderClass)
RVOPEN_TEXT(GetPath, SetPath, path)
RVOPEN_TEXT(GetRefName, SetRefName, refName)
RVOPEN_TEXT(GetImageName, SetImageName, imageName)
RVOPEN_TEXT(GetShortArchiveFilename, SetShortArchiveFilename, archiveFilename)

RVOpenNode::ImageBorder RVOpenNode::GetImageBorder() const
{
    int value = ImageBorderNone;
    valueText::toInt(attribute(names::attribute::imageBorder()), &value);
    return static_cast<ImageBorder>(value);
}

void RVOpenNode::SetImageBorder(ImageBorder value)
{
    setAttribute(names::attribute::imageBorder(), QString::number(static_cast<int>(value)));
}

RVOPEN_FLAG(IsEnabled, SetEnabled, enabled, 1)
RVOPEN_FLAG(IsTranslationDisabled, SetTranslationDisabled, translationDisabled, 0)
RVOPEN_FLAG(IsCustom, SetCustom, custom, 0)
RVOPEN_FLAG(IsReset, SetReset, reset, 0)
RVOPEN_FLAG(ThumbnailRegenerated, SetThumbnailRegenerated, thumbRegenerated, 1)

QString RVOpenNode::EncodeFloat3(float a, float b, float c) const
{
    return valueText::fromTriple(a, b, c);
}

void RVOpenNode::DecodeFloat3(QString text, float* a, float* b, float* c) const
{
    valueText::toTriple(text, a, b, c);
}

QString RVOpenNode::GetArchiveFilename() const
{
    const QString fileName = GetShortArchiveFilename();
    if (fileName.isEmpty())
        return QString();
    QString full = GetDirectoryHandler()->GetFolder(attribute(names::attribute::archiveType()));
    const QString path = GetPath();
    if (!path.isEmpty())
        full += QDir::separator() + path;
    return full + QDir::separator() + fileName + names::value::archiveExtension();
}

QString RVOpenNode::GetArchiveFolder() const
{
    const QString path = GetPath();
    if (path.isEmpty())
        return QString();
    const QString folder =
        GetDirectoryHandler()->GetFolder(attribute(names::attribute::archiveType()));
    return folder + QDir::separator() + path;
}

QString RVOpenNode::attribute(const QString& name) const
{
    return m_element.attribute(name);
}

void RVOpenNode::setAttribute(const QString& name, const QString& value)
{
    FoundNodes::attributeChanged(this, name);
    changes::setAttribute(m_element, name, value);
}

int RVOpenNode::flag(const QString& name, int valueWhenAbsent) const
{
    int value = valueWhenAbsent;
    valueText::toBool(attribute(name), &value);
    return value;
}

} // namespace rvopen
