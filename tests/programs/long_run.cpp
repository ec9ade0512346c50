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
#include <atomic>
#include <cerrno>
#include <cstdint>
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
/// What hash tables and buffers that grow by doubling differ in from one moment to the next. One
/// block of the smallest size that each cycle lost would be 216,000.
constexpr std::size_t s_tolerance = 16 * 1024;

/// Of all blocks that are allocated; what the allocator itself keeps back varies too much.
std::atomic<std::size_t> s_bytesInUse{0};

void* taken(void* memory)
{
    s_bytesInUse += malloc_usable_size(memory);
    return memory;
}

void* givenBack(void* memory)
{
    s_bytesInUse -= malloc_usable_size(memory);
    return memory;
}

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

} // namespace

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);

__attribute__((visibility("default"))) void* malloc(std::size_t size)
{
    return taken(__libc_malloc(size));
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t size)
{
    return taken(__libc_calloc(count, size));
}

__attribute__((visibility("default"))) void* realloc(void* memory, std::size_t size)
{
    return taken(__libc_realloc(givenBack(memory), size));
}

__attribute__((visibility("default"))) void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return taken(__libc_memalign(alignment, size));
}

__attribute__((visibility("default"))) int posix_memalign(void** memory, std::size_t alignment,
                                                          std::size_t size)
{
    *memory = taken(__libc_memalign(alignment, size));
    return *memory ? 0 : ENOMEM;
}

__attribute__((visibility("default"))) void free(void* memory)
{
    __libc_free(givenBack(memory));
}
}

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
        const std::size_t used = s_bytesInUse;
        std::printf("%5d cycles: %zu bytes\n", i, used);
        least = std::min(least, used);
        most = std::max(most, used);
    }
    const bool isFlat = most - least <= s_tolerance;
    std::printf("%s\n", isFlat ? "flat" : "GROWING");
    return isFlat ? EXIT_SUCCESS : EXIT_FAILURE;
}
