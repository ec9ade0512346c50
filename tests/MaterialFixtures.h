// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "ParamSupport.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>

#include <QString>

#include <memory>

/// Materials and their parts, written inline.
namespace rvopen::test {

/// An object over the root element of a document of its own.
template <typename Class>
std::unique_ptr<Class> bindRoot(const QString& xml)
{
    const QDomDocument document = parse(xml);
    return bind<Class>(document.documentElement());
}

/// What an object stands for, and what an inline text means, to be compared.
inline QString textOf(const RVOpenNode& node)
{
    return xmlOf(node.GetDomNode());
}
inline QString textOf(const QString& xml)
{
    return xmlOf(parse(xml));
}

/// A shader colour with this content.
inline QString shaderColourXml(const QString& content = QString())
{
    return QStringLiteral("<param name='Colour' type='shader' val='colour'>%1</param>")
        .arg(content);
}

inline QString plainColourXml(const QString& rgb)
{
    return QStringLiteral("<plainColour enabled='1'><param name='Colour' type='colour' "
                          "val='%1'/></plainColour>")
        .arg(rgb);
}

inline QString colourXml(const QString& rgb)
{
    return QLatin1String("<colour><diffuse enabled='1'>") + shaderColourXml(plainColourXml(rgb)) +
           QLatin1String("</diffuse></colour>");
}

inline QString bumpXml(const QString& height)
{
    return QStringLiteral("<bump><param name='Height' type='float' val='%1'/>").arg(height) +
           shaderColourXml(plainColourXml("1 1 1")) + QLatin1String("</bump>");
}

inline QString transparencyXml(const QString& invertMask)
{
    return QStringLiteral("<transparency><param name='InvertMask' type='boolean' val='%1'/>")
               .arg(invertMask) +
           shaderColourXml(plainColourXml("1 1 1")) + QLatin1String("</transparency>");
}

inline QString materialXml(const QString& content, const QString& attributes = QString())
{
    return QStringLiteral("<material %1>%2</material>").arg(attributes, content);
}

/// An element that stands for the archive "Stone" of the custom folder.
inline QString stoneReference(const QString& element, const QString& content = QString())
{
    return QStringLiteral("<%1 archiveFilename='Stone' archiveType='Custom'>%2</%1>")
        .arg(element, content);
}

/// That archive, open.
struct Stone {
    explicit Stone(const QString& xml)
        : fileName(folders.write("Stone", xml))
        , root(GetDirectoryHandler()->LoadArchive(fileName))
    {
        EXPECT_TRUE(root);
    }

    ArchiveFolders folders;
    QString fileName;
    RVOpenNode* root;
};

/// One pair for the Equal() of a class.
struct Comparison {
    std::string name;
    QString one;
    QString other;
    bool equal;
    /// For materials.
    bool compareBase = false;
};

inline void PrintTo(const Comparison& comparison, std::ostream* out)
{
    *out << comparison.name;
}

inline std::string comparisonName(const ::testing::TestParamInfo<Comparison>& info)
{
    return info.param.name;
}

} // namespace rvopen::test
