// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "EveryAccessor.h"
#include "FuzzInput.h"
#include "FuzzSupport.h"

#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/XMLUtils.h>

#include <QDomDocument>

#include <memory>

/// Any bytes as a file and as a text: read, every accessor called, written, read and written again.
namespace rvopen::fuzz {

namespace {

QString file(const char* name)
{
    return scratch() + QLatin1Char('/') + QLatin1String(name);
}

QByteArray saved(RVOpenNode* root)
{
    RVOpenManager manager;
    const QString path = file("saved.rvx");
    require(manager.SaveArchive(path, root), "what was read can be saved");
    return readFile(path);
}

/// Saves the document of \p root, loads it again and saves that.
void requireSavedLoadsEqual(RVOpenNode* root)
{
    const QByteArray second = saved(root);
    const std::unique_ptr<QDomDocument> again(XMLUtils().ReadXmlDocument(file("saved.rvx")));
    require(again != nullptr, "what was saved loads",
            [&second] { return QString::fromUtf8(second); });
    RVOpenNode plain;
    plain.SetDomNode(again->documentElement());
    requireEqual(QString::fromUtf8(second), QString::fromUtf8(saved(&plain)),
                 "the second and the third file are the same");
}

void throughFile(const QByteArray& bytes)
{
    const QString path = file("input.xml");
    writeFile(path, bytes);
    const std::unique_ptr<QDomDocument> document(XMLUtils().ReadXmlDocument(path));
    require(readFile(path) == bytes, "reading leaves the file as it is");
    if (!document)
        return;
    const std::unique_ptr<RVOpenNode> root(RVOpenSchema::createNode(document->documentElement()));
    if (!root)
        return;

    materialise(root.get());
    const QByteArray before = saved(root.get());
    readEverything(root.get());
    requireEqual(QString::fromUtf8(before), QString::fromUtf8(saved(root.get())),
                 "reading accessors leave the document as it is");
    requireSavedLoadsEqual(root.get());

    FuzzInput values(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                     static_cast<std::size_t>(bytes.size()));
    writeEverything(root.get(), values);
    readEverything(root.get());
    requireSavedLoadsEqual(root.get());
}

/// The objects of the snapshot document, each if there is one; none is made.
template <typename Visit>
void visitSnapShotDocument(RVOpenManager& manager, Visit visit)
{
    visit(manager.GetCurrentSnapShot());
    visit(manager.GetSnapShots());
}

void throughText(const QByteArray& bytes)
{
    const QString text = QString::fromUtf8(bytes);
    RVOpenManager manager;
    const QString fresh = manager.GetSnapShotDocumentAsString();
    const bool loaded = manager.LoadSnapShotDocFromString(text) == 1;
    {
        const std::unique_ptr<RVOpenNode> root(manager.DecodeXML(text));
        if (root) {
            require(root->GetDomNode().isNull() != loaded,
                    "a text that loads can be decoded and no other");
            readEverything(root.get());
        }
    }
    if (!loaded) {
        requireEqual(fresh, manager.GetSnapShotDocumentAsString(),
                     "a text that does not load leaves the document as it is");
        return;
    }

    visitSnapShotDocument(manager, materialise);
    const QString before = manager.GetSnapShotDocumentAsString();
    visitSnapShotDocument(manager, readEverything);
    requireEqual(before, manager.GetSnapShotDocumentAsString(),
                 "reading accessors leave the snapshot document as it is");
    requireTextLoadsEqual(manager.GetSnapShotDocumentAsString());

    FuzzInput values(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                     static_cast<std::size_t>(bytes.size()));
    visitSnapShotDocument(manager, [&values](RVOpenNode* node) { writeEverything(node, values); });
    requireTextLoadsEqual(manager.GetSnapShotDocumentAsString());
}

} // namespace

} // namespace rvopen::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace rvopen::fuzz;
    prepare();
    const QByteArray bytes = FuzzInput(data, size).rest();
    throughFile(bytes);
    throughText(bytes);
    return 0;
}
