// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/toolkit/documents/NewDocuments.h>

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenVocabulary.h>

#include <QDomElement>
#include <QFileInfo>

#include <memory>

namespace rvopen::toolkit {

QDomDocument NewSnapShots(const HostVersion& version, double unitsScale)
{
    RVOpenManager manager;
    manager.Initialise(version.major, version.minor, QString());
    manager.ClearSnapShotDoc();
    manager.InitialiseSnapShotDoc();
    manager.SetUnitsScale(float(unitsScale));
    const std::unique_ptr<QDomDocument> document(
        ParseXmlDocument(manager.GetSnapShotDocumentAsString()));
    return *document;
}

QDomDocument NewArchive(const QString& file, const QString& name, const HostVersion& version)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
        QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"utf-8\"")));
    QDomElement root = document.createElement(QStringLiteral("presets"));
    const QString base =
        file.isEmpty() ? QString() : QFileInfo(LastPathComponent(file)).completeBaseName();
    root.setAttribute(QStringLiteral("type"), QStringLiteral("UserArchives"));
    root.setAttribute(QStringLiteral("zorvane_version"),
                      QStringLiteral("%1.%2").arg(version.major).arg(version.minor));
    root.setAttribute(QStringLiteral("name"), name.isEmpty() ? base : name);
    if (!base.isEmpty()) {
        root.setAttribute(QStringLiteral("archiveType"), QStringLiteral("Custom"));
        root.setAttribute(QStringLiteral("archiveFilename"), base);
    }
    document.appendChild(root);
    for (const ArchiveSection& section : ArchiveSections()) {
        QDomElement element = document.createElement(section.element);
        element.setAttribute(QStringLiteral("name"), section.title);
        root.appendChild(element);
    }
    return document;
}

} // namespace rvopen::toolkit
