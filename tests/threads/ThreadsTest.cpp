// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../ManagerSupport.h"

#include <rvopen/Camera.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenLimits.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/RVOpenScanner.h>
#include <rvopen/host/Children.h>
#include <rvopen/host/Documents.h>
#include <rvopen/host/Find.h>
#include <rvopen/host/OpenArchive.h>
#include <rvopen/host/Owned.h>
#include <rvopen/host/Values.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/check/Inspection.h>
#include <rvopen/toolkit/documents/Document.h>
#include <rvopen/toolkit/drawing/Picture.h>
#include <rvopen/toolkit/schema/ElementInfo.h>
#include <rvopen/toolkit/schema/ParamInfo.h>

#include <array>
#include <atomic>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace rvopen::test {
namespace {

constexpr int s_threads = 4;
constexpr int s_rounds = 60;

/// Lets all threads go on when the last one is there, so that they do the same at the same moment.
class Gate {
public:
    void pass()
    {
        const int round = m_round.load();
        if (m_arrived.fetch_add(1) + 1 == s_threads) {
            m_arrived = 0;
            ++m_round;
        }
        while (m_round.load() == round)
            std::this_thread::yield();
    }

private:
    std::atomic<int> m_arrived{0};
    std::atomic<int> m_round{0};
};

/// Runs \p work in all threads at once, with the number of the thread, and waits for them.
void inThreads(const std::function<void(int)>& work)
{
    std::vector<std::thread> threads;
    for (int number = 0; number < s_threads; ++number)
        threads.emplace_back(work, number);
    for (std::thread& thread : threads)
        thread.join();
}

/// How often an observer was told.
class Counting : public RVOpenObserver {
public:
    using RVOpenObserver::RVOpenObserver;

    void Changed(const RVOpenChange& change) override
    {
        Q_UNUSED(change);
        ++m_changes;
    }
    int changes() const
    {
        return m_changes;
    }

private:
    int m_changes = 0;
};

struct Threads : ::testing::Test {
    ArchiveFolders folders;
    QTemporaryDir folder;
};

const char* const s_preset = "<archive><materials><material refname='x' name='%1'/>"
                             "<material refname='y' name='%1y'/></materials></archive>";

/// Everything that a manager gives, of documents of its own; what it wrote at the end.
QByteArray workOfAManager(const QString& install, const QString& file, const QString& archive)
{
    RVOpenManager manager;
    manager.Initialise(3, 1, install);
    if (!host::loadText(manager,
                        "<snapRoot unitsScale='10'><snapshots name='Model SnapShots'/><snapshot "
                        "name='now'><camera><param name='Near' type='float' prop='D' val='2'/>"
                        "</camera><materialRepository/></snapshot><dir archiveType='Custom' "
                        "archiveFilename='" +
                            archive + "'/></snapRoot>"))
        return "not loaded";
    const Counting observer(manager.GetRootNode()->GetDomNode().ownerDocument());
    SnapShot* const current = manager.GetCurrentSnapShot();
    auto* const camera = host::find<Camera>(current);
    const bool isSet = host::setValue(camera, "Near", 1.5F) &&
                       host::value<float>(camera, "Near") == 1.5F &&
                       host::setValue(camera, "New", "text");
    for (int i = 0; i < 3; ++i) {
        manager.GetSnapShots()->AddNode(manager.CreateInternalSnapShot(current), true);
        host::Owned<Material> material(current->GetMaterialRepository()->CreateMaterial());
        material->SetName(manager.GetNextSnapShotName("M", SnapShots::TypeSnapShots));
        host::append(current->GetMaterialRepository(), std::move(material));
        // The second look-up makes notes, the third uses them.
        const RVOpenNode* const preset = manager.FindRVOpenNodeFromType("materials", "", "y");
        current->GetMaterialRepository()->SetName(preset ? preset->GetName() : QString("none"));
    }
    QStringList textures;
    manager.FindRVOpenNodeTextures(manager.GetRootNode(), textures);
    QString inArchive;
    for (RVOpenNode* child : host::children(manager.GetRootNode())) {
        if (child->GetNodeName() == "dir" && child->GetChild(1, 1))
            inArchive = child->GetChild(1, 1)->GetNodeName();
    }
    current->SetName(inArchive + QString::number(isSet));
    current->GetThumbFilename();
    if (host::save(manager, file))
        return "not saved: " + LastWriteError().toUtf8();
    const QByteArray written = readFile(file);
    if (!host::load(manager, file) || manager.GetSnapShotDocumentAsString().toUtf8() != written)
        return "not the same again";
    return written + QByteArray::number(observer.changes());
}

TEST_F(Threads, ManagersOfTheirOwn)
{
    InstallFolder install;
    install.write("Default", QString::fromUtf8(s_preset).arg("default"));
    for (int number = 0; number <= s_threads; ++number)
        folders.write("A" + QString::number(number), "<archive><materials/></archive>");
    const QByteArray expected =
        workOfAManager(install.path(), folder.filePath("alone.xml"), "A4").replace("A4", "An");
    ASSERT_TRUE(expected.contains("name=\"materials1\"")) << expected.constData();
    ASSERT_TRUE(expected.contains("name=\"defaulty\"")) << expected.constData();
    std::array<int, s_threads> equal{};
    inThreads([&](int number) {
        const QString archive = "A" + QString::number(number);
        for (int round = 0; round < 10; ++round) {
            const QByteArray text =
                workOfAManager(install.path(), folder.filePath(archive), archive);
            equal[static_cast<size_t>(number)] +=
                QByteArray(text).replace(archive.toUtf8(), "An") == expected;
        }
    });
    EXPECT_THAT(equal, ::testing::Each(10));
}

TEST_F(Threads, OneArchiveHasOneRootWhoeverAsks)
{
    const QString file = folders.write("A", QString::fromUtf8(s_preset).arg("a"));
    Gate gate;
    std::array<std::array<RVOpenNode*, s_threads>, s_rounds> roots{};
    inThreads([&](int number) {
        for (auto& round : roots) {
            gate.pass();
            round[static_cast<size_t>(number)] = GetDirectoryHandler()->LoadArchive(file);
            gate.pass();
            if (number == 0)
                GetDirectoryHandler()->CloseArchive(file);
        }
    });
    for (const auto& round : roots) {
        EXPECT_NE(round[0], nullptr);
        EXPECT_THAT(round, ::testing::Each(round[0]));
    }
}

TEST_F(Threads, RootsThatAreGivenUpAreNotTold)
{
    const QString file = folders.write("A", QString::fromUtf8(s_preset).arg("a"));
    Gate gate;
    std::array<int, s_threads> told{};
    inThreads([&](int number) {
        for (int round = 0; round < s_rounds; ++round) {
            gate.pass();
            {
                const Counting observer;
                GetDirectoryHandler()->LoadArchive(file);
                told[static_cast<size_t>(number)] += observer.changes();
            }
            gate.pass();
            if (number == 0)
                GetDirectoryHandler()->CloseArchive(file);
        }
    });
    EXPECT_THAT(told, ::testing::Each(0));
}

TEST_F(Threads, AnArchiveGoesFromThreadToThread)
{
    const QString file = folders.write("A", "<archive name='0'/>");
    std::mutex turn;
    int errors = 0;
    inThreads([&](int) {
        for (int round = 0; round < s_rounds; ++round) {
            const std::lock_guard<std::mutex> lock(turn);
            host::OpenArchive archive(file);
            archive.root()->SetName(QString::number(archive.root()->GetName().toInt() + 1));
            errors += archive.save() ? 1 : 0;
        }
    });
    EXPECT_EQ(errors, 0);
    EXPECT_EQ(host::OpenArchive(file).root()->GetName().toInt(), s_threads * s_rounds);
}

TEST_F(Threads, AManagerGoesFromThreadToThreadWithAllThatItGave)
{
    RVOpenManager manager;
    load(manager, "<snapRoot><snapshot name='0'><camera/></snapshot></snapRoot>");
    SnapShot* const current = manager.GetCurrentSnapShot();
    const host::Ref<Camera> camera = current->GetCamera();
    std::mutex turn;
    inThreads([&](int) {
        for (int round = 0; round < s_rounds; ++round) {
            const std::lock_guard<std::mutex> lock(turn);
            const int number = current->GetName().toInt() + 1;
            current->SetName(QString::number(number));
            camera->SetName(current->GetName());
            const host::Owned<SnapShot> made(manager.CreateInternalSnapShot(nullptr));
            made->SetName(current->GetName());
        }
    });
    EXPECT_EQ(camera->GetName().toInt(), s_threads * s_rounds);
    EXPECT_EQ(manager.GetRootNode()->GetDomNode().childNodes().count(), 1);
}

TEST_F(Threads, AnArchiveIsOpenWhileOneOfThemHasIt)
{
    const QString file = folders.write("A", "<archive name='a'/>");
    std::mutex tree;
    std::array<int, s_threads> found{};
    inThreads([&](int number) {
        for (int round = 0; round < s_rounds; ++round) {
            std::unique_lock<std::mutex> lock(tree);
            std::optional<host::OpenArchive> archive(std::in_place, file);
            lock.unlock();
            std::this_thread::yield();
            lock.lock();
            found[static_cast<size_t>(number)] += *archive && archive->root()->GetName() == "a";
            archive.reset();
        }
    });
    EXPECT_THAT(found, ::testing::Each(s_rounds));
    EXPECT_FALSE(GetDirectoryHandler()->IsArchiveOpen(file));
}

// What is noted in a root that somebody has must not get lost while its tree is worked in: the
// handle would not be null at the end.
TEST_F(Threads, AnArchiveIsTakenAndLeftWhileOneThreadIsInItsTree)
{
    const QString file = folders.write("A", "<archive/>");
    const host::OpenArchive archive(file);
    std::array<int, s_threads> done{};
    inThreads([&](int number) {
        for (int round = 0; round < s_rounds; ++round) {
            if (number > 0) {
                done[static_cast<size_t>(number)] += host::OpenArchive(file).root() != nullptr;
                continue;
            }
            RVOpenNode* const root = archive.root();
            QDomDocument document = root->GetDomNode().ownerDocument();
            root->GetDomNode().appendChild(document.createElement("materials"));
            RVOpenNode* const made = root->GetChild(1, 1);
            done[0] += made && made->GetNodeName() == "materials";
            root->DeleteNode(made);
        }
    });
    EXPECT_THAT(done, ::testing::Each(s_rounds));
    RVOpenNode* const root = archive.root();
    EXPECT_NE(root, nullptr);
    GetDirectoryHandler()->CloseArchive(file);
    EXPECT_EQ(archive.root(), nullptr);
}

TEST_F(Threads, DifferentArchivesAreOpenedChangedAndClosed)
{
    std::array<int, s_threads> kept{};
    QStringList files;
    for (int number = 0; number < s_threads; ++number)
        files << folders.write("A" + QString::number(number), "<archive name='0'/>");
    inThreads([&](int number) {
        DirectoryHandler* const registry = GetDirectoryHandler();
        for (int round = 1; round <= s_rounds; ++round) {
            registry->SetCustomArchivesFolder(folders.custom());
            RVOpenNode* const root = registry->LoadArchive(files[number]);
            root->SetName(QString::number(round));
            const DirectoryHandler copy = *registry;
            const bool isSaved = registry->SaveArchive(files[number]);
            registry->CloseArchive(files[number]);
            kept[static_cast<size_t>(number)] +=
                isSaved && copy.IsArchiveOpen(files[number]) &&
                registry->GetFolder("Custom") == folders.custom() &&
                registry->LoadArchive(files[number])->GetName() == QString::number(round);
            registry->CloseArchive(files[number]);
        }
        registry->RemoveArchive(files[number]);
    });
    EXPECT_THAT(kept, ::testing::Each(s_rounds));
}

TEST_F(Threads, FilesAreReadScannedAndWritten)
{
    const QString shared = folder.filePath("shared.xml");
    writeFile(shared, "<a><b/></a>");
    std::array<int, s_threads> right{};
    inThreads([&](int number) {
        const QString own = folder.filePath(QString::number(number));
        for (int round = 0; round < s_rounds; ++round) {
            SetMaxInputSize(DefaultMaxInputSize);
            ReadError error;
            const std::unique_ptr<QDomDocument> document(ReadXmlDocument(shared, &error));
            const std::unique_ptr<QDomDocument> broken(ParseXmlDocument("<a"));
            XmlScan scan;
            right[static_cast<size_t>(number)] +=
                document && !broken && LastReadError().line == 1 && scan.ScanFile(shared) &&
                WriteXmlDocument(*document, own, ArchiveFileIndent) && LastWriteError().isEmpty() &&
                !WriteFile("x", own + "/below") && !LastWriteError().isEmpty();
        }
    });
    EXPECT_THAT(right, ::testing::Each(s_rounds));
}

TEST_F(Threads, MetadataIsRead)
{
    Gate gate;
    std::array<QStringList, s_threads> labels;
    inThreads([&](int number) {
        gate.pass();
        QStringList& mine = labels[static_cast<size_t>(number)];
        for (const toolkit::ParamInfo& info : toolkit::AllParams())
            mine << info.name.toString() << info.label.toString();
        const toolkit::ParamInfo* const fieldOfView =
            toolkit::FindParam("camera", QString(), "Field Of View");
        mine << (fieldOfView ? fieldOfView->label.toString() : QString("none"));
    });
    EXPECT_GT(labels[0].size(), 100);
    EXPECT_NE(labels[0].last(), "none");
    EXPECT_THAT(labels, ::testing::Each(labels[0]));
}

TEST_F(Threads, DocumentsOfTheirOwnAreInspected)
{
    Gate gate;
    std::array<QStringList, s_threads> found;
    QStringList files;
    for (int number = 0; number < s_threads; ++number) {
        files << folder.filePath(QString::number(number) + ".rvx");
        writeFile(files.last(), "<presets version='3.1'><materials><camera name='c'/><dir name='d'>"
                                "<material name='m' xmlImage='no picture'/></dir></materials>"
                                "<finishes><dir/><finish/></finishes><bumps><bump/></bumps>"
                                "<cameras><camera/></cameras></presets>");
    }
    inThreads([&](int number) {
        ReadError error;
        const auto document = toolkit::Document::Read(files[number], error);
        gate.pass();
        for (const toolkit::Finding& finding : toolkit::Inspect(*document))
            found[static_cast<size_t>(number)] << finding.path + ": " + finding.message;
    });
    EXPECT_GT(found[0].filter("No \"camera\" belongs under").size(), 0)
        << found[0].join('\n').toStdString();
    EXPECT_GT(found[0].filter("preview").size(), 0);
    EXPECT_THAT(found, ::testing::Each(found[0]));
}

TEST_F(Threads, PresetsAreDrawn)
{
    Gate gate;
    std::array<QImage, s_threads> pictures;
    inThreads([&](int number) {
        const QDomDocument document = parse("<material><colour><diffuse><param name='Colour'>"
                                            "<plainColour val='1 0 0'/></param></diffuse></colour>"
                                            "</material>");
        gate.pass();
        pictures[static_cast<size_t>(number)] =
            toolkit::DrawPicture(document.documentElement(), {toolkit::MinPictureSize, false});
    });
    EXPECT_FALSE(pictures[0].isNull());
    EXPECT_THAT(pictures, ::testing::Each(pictures[0]));
}

TEST_F(Threads, CataloguesOfTheSameFilesAreMadeAndSearched)
{
    qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.filePath("caches")));
    const QStringList files{folders.write("A", QString::fromUtf8(s_preset).arg("a")),
                            folders.write("B", QString::fromUtf8(s_preset).arg("b"))};
    Gate gate;
    std::array<int, s_threads> right{};
    inThreads([&](int number) {
        for (int round = 0; round < s_rounds; ++round) {
            gate.pass();
            const toolkit::Catalogue catalogue(files);
            toolkit::CatalogueQuery query;
            query.text = "by";
            const auto found = catalogue.Find(query);
            right[static_cast<size_t>(number)] += catalogue.Count() == 4 && found.size() == 1 &&
                                                  found[0].name == "by" && catalogue.Open(found[0]);
            gate.pass();
            // The first one to come makes the index, in every second round.
            if (number == 0 && round % 2 == 0)
                QDir(folder.filePath("caches")).removeRecursively();
        }
    });
    qunsetenv("XDG_CACHE_HOME");
    EXPECT_THAT(right, ::testing::Each(s_rounds));
}

} // namespace
} // namespace rvopen::test
