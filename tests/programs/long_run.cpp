// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/Scenery.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/TemporaryItems.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>

/// A host that runs for months: loads a document, edits it and clears it, ten thousand times, and
/// saves it now and then, and prints the memory in use from time to time. Exits with 1 when that
/// grows.
namespace {

using namespace rvopen;

constexpr int s_cycles = 10000;
constexpr int s_interval = 1000;
/// What the allocator keeps in its caches varies by some 20,000 bytes; one block of the smallest
/// size that each cycle lost would be 288,000.
constexpr std::size_t s_tolerance = 64 * 1024;

const char s_document[] =
    "<?xml version='1.0' encoding='utf-8'?>"
    "<snapRoot unitsScale='0.01'>"
    "<snapshots name='Model SnapShots'><snapshot name='a'><camera name='c'/><other/></snapshot>"
    "<snapshot name='b'/></snapshots><snapshots name='Model Cameras'/>"
    "<snapshot name='CurrSnapshot'>"
    "<camera><param name='Field Of View' type='float' val='65'/></camera>"
    "<background subCat='plain'><param name='Colour' type='colour' val='1 1 1'/></background>"
    "<materialRepository><material linkname='wall'><colour><diffuse/></colour><bump/></material>"
    "<material linkname='floor' refName='oak'><finish/></material></materialRepository>"
    "<renderTargets><renderTarget/></renderTargets><scenery/><snapShotSettings/>"
    "</snapshot><background/></snapRoot>";

const char s_archive[] = "<root><materials><dir name='Wood'><material name='Oak' refName='oak'>"
                         "<colour/></material></dir></materials><cameras><camera/></cameras>"
                         "</root>";

class Host {
public:
    Host()
        : m_document(file("document.xml", s_document))
        , m_archive(file("archive.rvx", s_archive))
        , m_saved(m_folder.filePath(QStringLiteral("saved.rvx")))
    {
    }

    bool cycle(int number)
    {
        if (m_manager.LoadSnapShotDocFromFile(m_document) != 1)
            return false;
        SnapShot* const current = m_manager.GetCurrentSnapShot();
        current->Populate();
        edit(*current, number);
        // The document is read once only: one that was imported is kept as long as the manager.
        if (number == 1)
            m_manager.ImportSnapShotDoc(m_document, true, false);
        m_manager.AddImportedSnapShot(true);
        // Each save waits for the disk.
        const bool isSaved =
            number % 100 != 0 || m_manager.SaveArchive(m_saved, m_manager.GetSnapShots());
        if (!isSaved || !useArchive())
            return false;
        if (m_manager.LoadSnapShotDocFromString(m_manager.GetSnapShotDocumentAsString()) != 1)
            return false;
        m_manager.ClearSnapShotDoc();
        return true;
    }

private:
    void edit(SnapShot& snapShot, int number)
    {
        if (Camera* const camera = snapShot.GetCamera()) {
            camera->SetName(QString::number(number));
            snapShot.AddCamera(camera);
        }
        MaterialRepository* const palette = snapShot.GetMaterialRepository();
        Material* const material = palette->CreateMaterial();
        material->SetLinkName(QStringLiteral("made here"));
        palette->AddMaterial(material);
        material->GetColour(1)->GetDiffuse();
        m_manager.GetTemporaryItems()->SetMaterial(material);
        palette->ApplyMaterial(m_manager.GetTemporaryItems()->GetMaterial(),
                               QStringLiteral("made here"), nullptr);
        palette->RemoveMaterial(material);
        SnapShots* const collection = m_manager.GetSnapShots();
        collection->AddNode(m_manager.CreateInternalSnapShot(&snapShot), true);
        collection->DeleteNode(collection->GetFirstSnapShot());
    }

    bool useArchive()
    {
        DirectoryHandler* const registry = GetDirectoryHandler();
        RVOpenNode* const root = registry->LoadArchive(m_archive);
        if (!root)
            return false;
        for (RVOpenNode* node = root->GetChild(1, 1); node; node = node->GetNext(1))
            node->GetChild(1, 1);
        registry->CloseArchive(m_archive);
        return true;
    }

    QString file(const char* name, const char* text) const
    {
        const QString path = m_folder.filePath(QLatin1String(name));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) < 0)
            std::abort();
        return path;
    }

    QTemporaryDir m_folder;
    QString m_document;
    QString m_archive;
    QString m_saved;
    RVOpenManager m_manager;
};

std::size_t memoryInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Host host;
    std::size_t least = SIZE_MAX;
    std::size_t most = 0;
    for (int i = 1; i <= s_cycles; ++i) {
        if (!host.cycle(i)) {
            std::fprintf(stderr, "cycle %d failed\n", i);
            return 2;
        }
        if (i % s_interval != 0)
            continue;
        const std::size_t used = memoryInUse();
        std::printf("%5d cycles: %zu bytes\n", i, used);
        least = std::min(least, used);
        most = std::max(most, used);
    }
    const bool isFlat = most - least <= s_tolerance;
    std::printf("%s\n", isFlat ? "flat" : "GROWING");
    return isFlat ? EXIT_SUCCESS : EXIT_FAILURE;
}
