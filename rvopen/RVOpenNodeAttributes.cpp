// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include <rvopen/DirectoryHandler.h>
#include <rvopen/model/Names.h>
#include <rvopen/model/ValueText.h>

#include <QDir>

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

QString RVOpenNode::GetName() const
{
    return attribute(names::attribute::name());
}

void RVOpenNode::SetName(QString value)
{
    setAttribute(names::attribute::name(), value);
}

QString RVOpenNode::GetCat() const
{
    return attribute(names::attribute::cat());
}

void RVOpenNode::SetCat(QString value)
{
    setAttribute(names::attribute::cat(), value);
}

QString RVOpenNode::GetDescription() const
{
    return attribute(names::attribute::description());
}

void RVOpenNode::SetDescription(QString value)
{
    setAttribute(names::attribute::description(), value);
}

QString RVOpenNode::GetSubCat() const
{
    return attribute(names::attribute::subCat());
}

void RVOpenNode::SetSubCat(QString value)
{
    setAttribute(names::attribute::subCat(), value);
}

QString RVOpenNode::GetShaderClass() const
{
    return attribute(names::attribute::shaderClass());
}

void RVOpenNode::SetShaderClass(QString value)
{
    setAttribute(names::attribute::shaderClass(), value);
}

QString RVOpenNode::GetPath() const
{
    return attribute(names::attribute::path());
}

void RVOpenNode::SetPath(QString value)
{
    setAttribute(names::attribute::path(), value);
}

QString RVOpenNode::GetRefName() const
{
    return attribute(names::attribute::refName());
}

void RVOpenNode::SetRefName(QString value)
{
    setAttribute(names::attribute::refName(), value);
}

QString RVOpenNode::GetImageName() const
{
    return attribute(names::attribute::imageName());
}

void RVOpenNode::SetImageName(QString value)
{
    setAttribute(names::attribute::imageName(), value);
}

QString RVOpenNode::GetShortArchiveFilename() const
{
    return attribute(names::attribute::archiveFilename());
}

void RVOpenNode::SetShortArchiveFilename(QString value)
{
    setAttribute(names::attribute::archiveFilename(), value);
}

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

int RVOpenNode::IsEnabled() const
{
    return flag(names::attribute::enabled(), 1);
}

void RVOpenNode::SetEnabled(int value)
{
    setAttribute(names::attribute::enabled(), valueText::fromBool(value));
}

int RVOpenNode::IsTranslationDisabled() const
{
    return flag(names::attribute::translationDisabled(), 0);
}

void RVOpenNode::SetTranslationDisabled(int value)
{
    setAttribute(names::attribute::translationDisabled(), valueText::fromBool(value));
}

int RVOpenNode::IsCustom() const
{
    return flag(names::attribute::custom(), 0);
}

void RVOpenNode::SetCustom(int value)
{
    setAttribute(names::attribute::custom(), valueText::fromBool(value));
}

int RVOpenNode::IsReset() const
{
    return flag(names::attribute::reset(), 0);
}

void RVOpenNode::SetReset(int value)
{
    setAttribute(names::attribute::reset(), valueText::fromBool(value));
}

int RVOpenNode::ThumbnailRegenerated() const
{
    return flag(names::attribute::thumbRegenerated(), 1);
}

void RVOpenNode::SetThumbnailRegenerated(int value)
{
    setAttribute(names::attribute::thumbRegenerated(), valueText::fromBool(value));
}

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
    m_element.setAttribute(name, value);
}

int RVOpenNode::flag(const QString& name, int valueWhenAbsent) const
{
    int value = valueWhenAbsent;
    valueText::toBool(attribute(name), &value);
    return value;
}

} // namespace rvopen
