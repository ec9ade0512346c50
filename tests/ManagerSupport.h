// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include "TestSupport.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>

#include <QDomDocument>
#include <QDomElement>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// What the tests of snapshots and of the document manager share.
namespace rvopen::test {

/// The snapshot document as it stands, in a document of its own.
inline QDomDocument documentOf(const RVOpenManager& manager)
{
    return parse(manager.GetSnapShotDocumentAsString());
}

/// The same as comparable text.
inline QString textOf(const RVOpenManager& manager)
{
    return xmlOf(documentOf(manager));
}

/// Makes the manager hold the document of an inline text.
inline void load(RVOpenManager& manager, const QString& xml)
{
    ASSERT_EQ(manager.LoadSnapShotDocFromString(xml), 1) << xml.toStdString();
}

/// The names of a collection's snapshots in their order, separated by blanks.
inline QString namesIn(SnapShots* collection)
{
    QStringList names;
    SnapShot* snapShot = collection ? collection->GetFirstSnapShot() : nullptr;
    for (; snapShot; snapShot = snapShot->GetNext())
        names << snapShot->GetName();
    return names.join(QLatin1Char(' '));
}

/// The "name" attributes of the "snapshots" elements under the root, in their order.
inline QStringList collectionNames(const QDomDocument& document)
{
    QStringList names;
    QDomElement collection = document.documentElement().firstChildElement("snapshots");
    for (; !collection.isNull(); collection = collection.nextSiblingElement("snapshots"))
        names << collection.attribute("name");
    return names;
}

/// The parameter element of that name under \p element; a null element when there is none.
inline QDomElement paramElement(const QDomNode& element, const QString& name)
{
    QDomElement param = element.firstChildElement("param");
    while (!param.isNull() && param.attribute("name") != name)
        param = param.nextSiblingElement("param");
    return param;
}

/// Its value as it stands in the document, "(none)" when there is no such parameter.
inline QString paramValue(const QDomNode& element, const QString& name)
{
    return paramElement(element, name).attribute("val", "(none)");
}

/// An installation folder with its default archives.
class InstallFolder {
public:
    InstallFolder()
    {
        EXPECT_TRUE(QDir(m_root.path()).mkdir("xml"));
    }

    QString path() const
    {
        return m_root.path();
    }
    /// "Default", "Product_extra" or "Architectural_extra".
    QString archive(const QString& name) const
    {
        return m_root.filePath("xml/" + name + ".rvx");
    }
    void write(const QString& name, const QString& xml)
    {
        writeFile(archive(name), xml.toUtf8());
    }

private:
    QTemporaryDir m_root;
};

} // namespace rvopen::test
