// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "Printing.h"

#include <rvopen/DirectoryHandler.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>

#include <QDir>
#include <QDomDocument>
#include <QDomElement>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QTextStream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace rvopen::test {

/// \name Documents
/// @{

/// The document of an inline text. A text that is not well-formed fails the test.
inline QDomDocument parse(const QString& xml)
{
    QDomDocument document;
    EXPECT_TRUE(document.setContent(xml)) << "not well-formed: " << xml.toStdString();
    return document;
}

/// A node as text without indentation, attributes in the order of their names: equal texts, equal
/// content.
inline QString xmlOf(const QDomNode& node)
{
    if (node.isDocument()) {
        QString text;
        for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
            text += xmlOf(child);
        return text;
    }
    if (!node.isElement()) {
        QString text;
        QTextStream stream(&text);
        node.save(stream, 0);
        return text.trimmed();
    }
    QMap<QString, QString> attributes;
    for (int i = 0; i < node.attributes().count(); ++i) {
        const QDomAttr attribute = node.attributes().item(i).toAttr();
        attributes[attribute.name()] = attribute.value();
    }
    QString text = QLatin1Char('<') + node.nodeName();
    for (auto it = attributes.cbegin(); it != attributes.cend(); ++it)
        text += QLatin1Char(' ') + it.key() + QLatin1String("=\"") + it.value().toHtmlEscaped() +
                QLatin1Char('"');
    if (!node.hasChildNodes())
        return text + QLatin1String("/>");
    text += QLatin1Char('>');
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        text += xmlOf(child);
    return text + QLatin1String("</") + node.nodeName() + QLatin1Char('>');
}

/// The same for an inline text: what xmlOf() gives after parsing it.
inline QString xmlOf(const char* xml)
{
    return xmlOf(parse(QString::fromUtf8(xml)));
}

/// The node names of the DOM children, in order.
inline QStringList domChildNames(const QDomNode& node)
{
    QStringList result;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling())
        result << child.nodeName();
    return result;
}

/// @}

/// \name Nodes
/// @{

/// An object of \p Class bound to \p node, owned by the test. When it goes it takes its element out
/// of the document, as every object does.
template <typename Class = RVOpenNode>
std::unique_ptr<Class> bind(const QDomNode& node)
{
    if constexpr (std::is_constructible_v<Class, QDomNode>) {
        return std::unique_ptr<Class>(new Class(node));
    } else {
        std::unique_ptr<Class> object;
        if constexpr (std::is_default_constructible_v<Class>)
            object.reset(new Class());
        else
            object.reset(new Class(nullptr));
        object->SetDomNode(node);
        return object;
    }
}

/// The object that the factory makes for \p node, owned by the test.
inline std::unique_ptr<RVOpenNode> create(const QDomNode& node)
{
    return std::unique_ptr<RVOpenNode>(RVOpenSchema::createNode(node));
}

/// All children as objects, made on demand, archive references followed.
inline std::vector<RVOpenNode*> children(RVOpenNode* node)
{
    std::vector<RVOpenNode*> result;
    for (RVOpenNode* child = node->GetChild(1, 1); child; child = child->GetNext(1))
        result.push_back(child);
    return result;
}

/// Their node names, in order.
inline QStringList childNames(RVOpenNode* node)
{
    QStringList result;
    for (const RVOpenNode* child : children(node))
        result << child->GetNodeName();
    return result;
}

/// Makes the objects of the whole subtree, without following archive references.
inline void materialise(RVOpenNode* node)
{
    for (RVOpenNode* child = node->GetChild(1, 0); child; child = child->GetNext(1))
        materialise(child);
}

/// Whether the objects below \p node, as far as they are made, stand for the DOM children of their
/// parents' elements, one each, in the same order, and know their parents. Makes no objects.
inline ::testing::AssertionResult mirrorsDom(RVOpenNode* node)
{
    QDomNode expected = node->GetDomNode().firstChild();
    int position = 0;
    for (RVOpenNode* child = node->GetChild(0, 0); child; child = child->GetNext(0), ++position) {
        const std::string where = "child " + std::to_string(position) + " (" +
                                  child->GetNodeName().toStdString() + ") of " +
                                  node->GetNodeName().toStdString();
        if (child->GetDomNode() != expected) {
            return ::testing::AssertionFailure()
                   << where << " is not DOM child " << position << " ("
                   << expected.nodeName().toStdString() << ")";
        }
        if (child->GetParent() != node)
            return ::testing::AssertionFailure() << where << " has another parent";
        const ::testing::AssertionResult below = mirrorsDom(child);
        if (!below)
            return below;
        expected = expected.nextSibling();
    }
    return ::testing::AssertionSuccess();
}

/// As mirrorsDom(), after making the objects of the whole subtree: nothing of the DOM is left out.
inline ::testing::AssertionResult mirrorsWholeDom(RVOpenNode* node)
{
    materialise(node);
    const ::testing::AssertionResult result = mirrorsDom(node);
    if (!result)
        return result;
    int objects = 0;
    for (RVOpenNode* child = node->GetChild(0, 0); child; child = child->GetNext(0)) {
        ++objects;
        const ::testing::AssertionResult below = mirrorsWholeDom(child);
        if (!below)
            return below;
    }
    const auto nodes = domChildNames(node->GetDomNode()).size();
    if (objects != nodes) {
        return ::testing::AssertionFailure()
               << node->GetNodeName().toStdString() << " has " << objects << " objects for "
               << nodes << " DOM children";
    }
    return ::testing::AssertionSuccess();
}

/// @}

/// \name Files
/// @{

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

/// Empty when there is no such file.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The three folders of the process's archive registry, in a temporary folder for as long as this
/// object lives. At its end the archives that it knows are closed and the folders forgotten.
class ArchiveFolders {
public:
    ArchiveFolders()
    {
        for (const char* folder : {"snapshots", "product", "custom"})
            EXPECT_TRUE(QDir(m_root.path()).mkdir(folder));
        GetDirectoryHandler()->SetSnapshotsFolder(snapshots());
        GetDirectoryHandler()->SetZorvaneArchivesFolder(product());
        GetDirectoryHandler()->SetCustomArchivesFolder(custom());
    }
    ~ArchiveFolders()
    {
        for (const QString& fileName : m_fileNames)
            GetDirectoryHandler()->CloseArchive(fileName);
        GetDirectoryHandler()->SetSnapshotsFolder(QString());
        GetDirectoryHandler()->SetZorvaneArchivesFolder(QString());
        GetDirectoryHandler()->SetCustomArchivesFolder(QString());
    }
    ArchiveFolders(const ArchiveFolders&) = delete;
    ArchiveFolders& operator=(const ArchiveFolders&) = delete;

    /// The temporary folder that holds the three.
    QString root() const
    {
        return m_root.path();
    }
    QString snapshots() const
    {
        return m_root.filePath(QStringLiteral("snapshots"));
    }
    QString product() const
    {
        return m_root.filePath(QStringLiteral("product"));
    }
    QString custom() const
    {
        return m_root.filePath(QStringLiteral("custom"));
    }

    /// Writes "<name>.rvx" to the custom archives folder and gives its full name, which an element
    /// with archiveType="Custom" and archiveFilename="<name>" stands for. \p name may start with a
    /// sub-folder, which is made.
    QString write(const QString& name, const QString& xml)
    {
        const QString fileName = full(name);
        EXPECT_TRUE(QDir().mkpath(QFileInfo(fileName).path()));
        writeFile(fileName, xml.toUtf8());
        return fileName;
    }

    /// The full name of an archive of the custom folder, which is closed at the end.
    QString full(const QString& name)
    {
        const QString fileName = custom() + QDir::separator() + name + QStringLiteral(".rvx");
        closeAtEnd(fileName);
        return fileName;
    }

    void closeAtEnd(const QString& fileName)
    {
        if (!m_fileNames.contains(fileName))
            m_fileNames << fileName;
    }

private:
    QTemporaryDir m_root;
    QStringList m_fileNames;
};

/// Closes the archive and reads it back from its file: what a later session finds.
inline RVOpenNode* reopenArchive(const QString& fileName)
{
    GetDirectoryHandler()->CloseArchive(fileName);
    return GetDirectoryHandler()->LoadArchive(fileName);
}

/// @}

/// \name Assertions
/// @{

/// Whether the library was built with Qt's assertions, which end the program, or without.
#if defined(QT_NO_DEBUG) && !defined(QT_FORCE_ASSERTS)
inline constexpr bool AssertionsEnabled = false;
#else
inline constexpr bool AssertionsEnabled = true;
#endif

/// The message of a failed assertion of \p expression in the source of class \p source.
inline ::testing::Matcher<const std::string&> assertionMessage(const char* expression,
                                                               const char* source)
{
    return ::testing::AllOf(
        ::testing::HasSubstr("ASSERT: \"" + std::string(expression) + "\" in file "),
        ::testing::HasSubstr(std::string(source) + ".cpp, line "));
}

/// @}

} // namespace rvopen::test

/// With assertions \p statement must end the program with that one; without, it runs, for the test
/// to look at what it left behind.
#define EXPECT_ASSERTION(statement, expression, source)                                            \
    do {                                                                                           \
        if constexpr (::rvopen::test::AssertionsEnabled) {                                         \
            EXPECT_DEATH(statement, ::rvopen::test::assertionMessage(expression, source));         \
        } else {                                                                                   \
            statement;                                                                             \
        }                                                                                          \
    } while (false)
