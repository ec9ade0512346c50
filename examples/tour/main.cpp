// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

// A tour through the library. With what the Debian package rvopen-data installs:
// tour --install /usr/share/rvopen/install --documents /usr/share/rvopen/snapshots
//     --archives /usr/share/rvopen/archives --out tour-output

#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/DirectoryHandler.h>
#include <rvopen/Finish.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/XMLUtils.h>

#include <QCommandLineParser>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QGuiApplication>
#include <QSaveFile>
#include <QStringList>
#include <QTextStream>

#include <stdexcept>
#include <string>
#include <utility>

/// A walk through the library: what a host program does with it, from the first call to the saved
/// file, told on the documents in data/. It works on copies; the originals stay as they are.
namespace {

using namespace rvopen;

class TourStopped : public std::runtime_error {
public:
    explicit TourStopped(const QString& what)
        : std::runtime_error(what.toStdString())
    {
    }
};

/// The tour depends on each step: one that does not do what the text says ends it.
template <typename Pointer>
Pointer expect(Pointer object, const QString& what)
{
    if (!object)
        throw TourStopped(what);
    return object;
}

void expectOk(unsigned int status, const QString& what)
{
    if (status != StatusOk)
        throw TourStopped(QStringLiteral("%1: status %2").arg(what).arg(status));
}

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

void heading(const QString& text)
{
    out() << '\n' << text << '\n' << QString(text.size(), QLatin1Char('-')) << '\n';
}

void line(const QString& label, const QString& text)
{
    out() << "  " << label.leftJustified(26) << text << '\n';
}

QString triple(const float (&value)[3])
{
    return QStringLiteral("%1 %2 %3").arg(value[0]).arg(value[1]).arg(value[2]);
}

QString yesNo(int value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

/// Where a preset lies: the names of the folders down to it.
QString placeOf(RVOpenNode* preset)
{
    QStringList place;
    for (RVOpenNode* node = preset; node; node = node->GetParent())
        place.prepend(node->GetName().isEmpty() ? node->GetNodeName() : node->GetName());
    return place.join(QStringLiteral(" / "));
}

void copyFolder(const QString& from, const QString& to)
{
    QDir().mkpath(to);
    const QDir source(from);
    for (const QFileInfo& entry :
         source.entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
        const QString target = to + QLatin1Char('/') + entry.fileName();
        if (entry.isDir()) {
            copyFolder(entry.filePath(), target);
            continue;
        }
        QFile::remove(target);
        expect(QFile::copy(entry.filePath(), target), QStringLiteral("cannot write ") + target);
    }
}

void saveText(const QString& path, const QString& text)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    const bool saved =
        file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    expect(saved, QStringLiteral("cannot write ") + path);
}

struct Folders {
    QString install;
    QString documents;
    QString archives;
    QString out;

    QString document(const QString& name) const
    {
        return documents + QLatin1Char('/') + name;
    }
};

void start(RVOpenManager& manager, const Folders& folders)
{
    heading(QStringLiteral("1. Starting up"));
    manager.Initialise(3, 1, folders.install);
    const QString snapShots = folders.out + QStringLiteral("/snapshots");
    const QString archives = folders.out + QStringLiteral("/archives");
    QDir().mkpath(snapShots);
    copyFolder(folders.archives, archives);
    GetDirectoryHandler()->SetSnapshotsFolder(snapShots);
    GetDirectoryHandler()->SetZorvaneArchivesFolder(archives + QStringLiteral("/Zorvane"));
    GetDirectoryHandler()->SetCustomArchivesFolder(archives + QStringLiteral("/Custom"));
    line(QStringLiteral("default archives"), folders.install);
    line(QStringLiteral("archives to browse"), archives);
    line(QStringLiteral("snapshot images"), snapShots);
}

void printCamera(Camera* camera)
{
    float from[3];
    float to[3];
    float up[3];
    int orthographic = 0;
    float fieldOfView = 0.0f;
    expectOk(camera->GetPinhole(from, to, up, &orthographic, &fieldOfView),
             QStringLiteral("reading the camera"));
    line(QStringLiteral("camera from"), triple(from));
    line(QStringLiteral("camera to"), triple(to));
    line(QStringLiteral("camera up"), triple(up));
    line(QStringLiteral("orthographic"), yesNo(orthographic));
    line(QStringLiteral("field of view"), QStringLiteral("%1 degrees").arg(fieldOfView));
}

void printSun(NaturalLightStudio* studio)
{
    int enabled = 0;
    float azimuth = 0.0f;
    float altitude = 0.0f;
    expectOk(studio->GetEnabled(&enabled), QStringLiteral("reading the sun"));
    expectOk(studio->GetSunAzimuth(&azimuth), QStringLiteral("reading the sun"));
    expectOk(studio->GetSunAltitude(&altitude), QStringLiteral("reading the sun"));
    line(QStringLiteral("sun"), QStringLiteral("%1, azimuth %2, altitude %3 degrees")
                                    .arg(enabled ? QStringLiteral("on") : QStringLiteral("off"))
                                    .arg(azimuth)
                                    .arg(altitude));
}

void printBackground(Background* background)
{
    line(QStringLiteral("background"),
         background->GetName() + QStringLiteral(", kind ") + background->GetSubCat());
    float sky[3];
    if (background->GetSkyColour(sky) == StatusOk)
        line(QStringLiteral("sky colour"), triple(sky));
}

void printRenderSize(SnapShot* snapShot)
{
    RenderTargets* const targets =
        expect(snapShot->GetRenderTargets(), QStringLiteral("there are no render targets"));
    RenderTarget* const target =
        expect(targets->GetFirstRenderTarget(), QStringLiteral("there is no render target"));
    int width = 0;
    int height = 0;
    expectOk(target->GetWidthHeightUsingAspectRatio(&width, &height),
             QStringLiteral("reading the render size"));
    line(
        QStringLiteral("render size"),
        QStringLiteral("%1 x %2 pixels, %3").arg(width).arg(height).arg(target->GetOutputFormat()));
}

/// Null in a document without it: any well-formed XML loads.
SnapShots* collectionOf(RVOpenManager& manager)
{
    return expect(manager.GetSnapShots(), QStringLiteral("there are no snapshots"));
}

SnapShot* currentOf(RVOpenManager& manager)
{
    return expect(manager.GetCurrentSnapShot(), QStringLiteral("there is no current snapshot"));
}

Camera* cameraOf(SnapShot* snapShot)
{
    return expect(snapShot->GetCamera(), QStringLiteral("there is no camera"));
}

MaterialRepository* paletteOf(SnapShot* snapShot)
{
    return expect(snapShot->GetMaterialRepository(), QStringLiteral("there is no palette"));
}

void loadDocument(RVOpenManager& manager, const Folders& folders)
{
    heading(QStringLiteral("2. A snapshot document"));
    const QString path = folders.document(QStringLiteral("house.xml"));
    expect(manager.LoadSnapShotDocFromFile(path), QStringLiteral("cannot load ") + path);
    line(QStringLiteral("loaded"), path);
    line(QStringLiteral("snapshots"), QString::number(manager.GetNumSnapShots()));
    for (SnapShot* snapShot = collectionOf(manager)->GetFirstSnapShot(); snapShot;
         snapShot = snapShot->GetNext())
        line(QString(), snapShot->GetName());

    SnapShot* const current = currentOf(manager);
    line(QStringLiteral("current snapshot"), current->GetName());
    Scheme* const scheme = expect(current->GetScheme(), QStringLiteral("there is no scheme"));
    line(QStringLiteral("scheme"), scheme->GetName());
    printCamera(cameraOf(current));
    printSun(expect(current->GetNaturalLightStudio(), QStringLiteral("there is no sun")));
    printBackground(expect(current->GetBackground(), QStringLiteral("there is no background")));
    printRenderSize(current);
    line(QStringLiteral("materials"), QString::number(paletteOf(current)->GetNumMaterials()));
}

RVOpenNode* findPreset(RVOpenManager& manager, const QString& type, const QString& subcat,
                       const QString& refName)
{
    RVOpenNode* const preset = expect(manager.FindRVOpenNodeFromType(type, subcat, refName),
                                      QStringLiteral("no preset ") + refName);
    line(refName, placeOf(preset));
    return preset;
}

void lookUpPresets(RVOpenManager& manager)
{
    heading(QStringLiteral("3. Presets by type, sub-category and reference name"));
    expect(manager.SetArchiveNode(QStringLiteral("Product.rvx"), QStringLiteral("Zorvane")),
           QStringLiteral("cannot open Product.rvx"));
    const QString materials = QStringLiteral("materials");
    const QString opaque = QStringLiteral("Opaque");
    out() << "  In the archive that the user chose:\n";
    findPreset(manager, materials, opaque, QStringLiteral("material.soft_touch_grey"));
    out() << "  In the extra archive of the product, merged on first use:\n";
    findPreset(manager, materials, opaque, QStringLiteral("material.rose_gold"));
    out() << "  In the default archive, of any sub-category:\n";
    findPreset(manager, materials, QString(), QStringLiteral("material.brass"));
}

QString describe(Material* material)
{
    Finish* const finish = material->GetFinish();
    QString text = material->GetRefName().isEmpty() ? material->GetName() : material->GetRefName();
    text += finish ? QStringLiteral(", finish of class \"%1\"").arg(finish->GetShaderClass())
                   : QStringLiteral(", no finish");
    return text;
}

void applyMaterial(RVOpenManager& manager)
{
    heading(QStringLiteral("4. A material from an archive on an object of the model"));
    MaterialRepository* const palette = paletteOf(currentOf(manager));
    const QString object = QStringLiteral("Window frames");
    line(QStringLiteral("object"), object);
    line(QStringLiteral("before"), describe(expect(palette->GetMaterial(object), object)));

    Material* const brass = RVOpenSchema::isNodeMaterial(findPreset(
        manager, QStringLiteral("materials"), QString(), QStringLiteral("material.brass")));
    int alreadyPresent = 0;
    Material* const applied =
        expect(palette->ApplyMaterial(expect(brass, QStringLiteral("not a material")), object,
                                      &alreadyPresent),
               QStringLiteral("cannot apply the material"));
    line(QStringLiteral("after"), describe(applied));
    line(QStringLiteral("was there already"), yesNo(alreadyPresent));
    palette->ApplyMaterial(brass, object, &alreadyPresent);
    line(QStringLiteral("and the second time"), yesNo(alreadyPresent));
}

void addSnapShot(RVOpenManager& manager)
{
    heading(QStringLiteral("5. A new snapshot"));
    SnapShots* const collection = collectionOf(manager);
    SnapShot* const snapShot = collection->CreateSnapShot(currentOf(manager));
    snapShot->SetName(
        manager.GetNextSnapShotName(QStringLiteral("View "), SnapShots::TypeSnapShots));
    float from[] = {4.0f, -9.0f, 2.5f};
    float to[] = {0.0f, 0.0f, 1.0f / 3.0f};
    float up[] = {0.0f, 0.0f, 1.0f};
    collection->AddNode(snapShot, true);
    expectOk(cameraOf(snapShot)->SetPinhole(from, to, up, 0, 35.0f),
             QStringLiteral("setting the camera"));
    line(QStringLiteral("name"), snapShot->GetName());
    printCamera(snapShot->GetCamera());
    line(QStringLiteral("snapshots now"), QString::number(manager.GetNumSnapShots()));
}

void importDocument(RVOpenManager& manager, const Folders& folders)
{
    heading(QStringLiteral("6. Importing another document"));
    const QString path = folders.document(QStringLiteral("import_me.xml"));
    const int before = manager.GetNumSnapShots();
    manager.ImportSnapShotDoc(path, false, true);
    line(QStringLiteral("imported"), path);
    SnapShot* snapShot = collectionOf(manager)->GetFirstSnapShot();
    for (int i = 0; i < before && snapShot; ++i)
        snapShot = snapShot->GetNext();
    for (expect(snapShot, QStringLiteral("nothing was imported")); snapShot;
         snapShot = snapShot->GetNext()) {
        const QPixmap thumbnail = XMLUtils().QPixmapFromRVOpenNode(snapShot, QString());
        line(snapShot->GetName(), QStringLiteral("thumbnail %1 x %2 pixels")
                                      .arg(thumbnail.width())
                                      .arg(thumbnail.height()));
    }
    line(QStringLiteral("snapshots now"), QString::number(manager.GetNumSnapShots()));
}

void stripTextures(RVOpenManager& manager)
{
    heading(QStringLiteral("7. Textures"));
    SnapShot* const current = currentOf(manager);
    QStringList textures;
    manager.FindRVOpenNodeTextures(current, textures);
    textures.removeDuplicates();
    out() << "  The current snapshot refers to these image files:\n";
    for (const QString& texture : std::as_const(textures))
        out() << "    " << texture << '\n';

    manager.StripTexturePaths(current);
    QStringList stripped;
    manager.FindRVOpenNodeTextures(current, stripped);
    stripped.removeDuplicates();
    out() << "  After stripping their paths, for sending the files along:\n";
    for (const QString& texture : std::as_const(stripped))
        out() << "    " << texture << '\n';
    out() << "  A base material keeps its path: it stands for the preset that it came from.\n";
}

void save(RVOpenManager& manager, const Folders& folders)
{
    heading(QStringLiteral("8. Saving, and reading back"));
    const QString text = manager.GetSnapShotDocumentAsString();
    const QString documentPath = folders.out + QStringLiteral("/house.xml");
    saveText(documentPath, text);
    line(QStringLiteral("document"), documentPath);

    RVOpenNode* const archive =
        expect(manager.SetArchiveNode(QStringLiteral("Product.rvx"), QStringLiteral("Zorvane")),
               QStringLiteral("cannot open Product.rvx"));
    RVOpenNode* const materials =
        expect(manager.GetRVOpenNodeFromType(QStringLiteral("materials"), false),
               QStringLiteral("the archive has no materials"));
    materials->SetDescription(QStringLiteral("With the extra materials of the product"));
    expect(GetDirectoryHandler()->SaveArchive(materials),
           QStringLiteral("cannot save the archive"));
    line(QStringLiteral("archive"), archive->GetArchiveFilename());

    RVOpenManager again;
    expect(again.LoadSnapShotDocFromFile(documentPath), QStringLiteral("cannot read it back"));
    expect(again.GetSnapShotDocumentAsString() == text,
           QStringLiteral("the document read back differs"));
    line(QStringLiteral("document read back"),
         QStringLiteral("equal, %1 snapshots").arg(again.GetNumSnapShots()));

    const QString copyPath = folders.out + QStringLiteral("/Product copy.rvx");
    RVOpenNode* const loaded = expect(again.LoadArchive(archive->GetArchiveFilename()),
                                      QStringLiteral("cannot read the archive back"));
    expect(again.SaveArchive(copyPath, loaded), QStringLiteral("cannot save the copy"));
    delete loaded;
    QFile original(archive->GetArchiveFilename());
    QFile copy(copyPath);
    expect(original.open(QIODevice::ReadOnly) && copy.open(QIODevice::ReadOnly) &&
               original.readAll() == copy.readAll(),
           QStringLiteral("the archive read back differs"));
    line(QStringLiteral("archive read back"), QStringLiteral("equal, byte for byte"));
}

void listSavedFiles(const Folders& folders)
{
    out() << "\nSaved in " << QDir(folders.out).absolutePath() << ":\n";
    QDirIterator files(folders.out, QDir::Files, QDirIterator::Subdirectories);
    QStringList names;
    while (files.hasNext())
        names.append(QDir(folders.out).relativeFilePath(files.next()));
    names.sort();
    for (const QString& name : std::as_const(names))
        out() << "  " << name << '\n';
}

Folders parseArguments(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows the library at work."));
    parser.addHelpOption();
    const QCommandLineOption install(QStringLiteral("install"),
                                     QStringLiteral("Installation folder."),
                                     QStringLiteral("folder"));
    const QCommandLineOption documents(QStringLiteral("documents"),
                                       QStringLiteral("Folder of the snapshot documents."),
                                       QStringLiteral("folder"));
    const QCommandLineOption archives(QStringLiteral("archives"),
                                      QStringLiteral("Folder of the archives to browse."),
                                      QStringLiteral("folder"));
    const QCommandLineOption output(QStringLiteral("out"),
                                    QStringLiteral("Folder for what is saved."),
                                    QStringLiteral("folder"));
    for (const QCommandLineOption& option : {install, documents, archives, output})
        parser.addOption(option);
    parser.process(application);
    const Folders folders{parser.value(install), parser.value(documents), parser.value(archives),
                          parser.value(output)};
    for (const QString& folder :
         {folders.install, folders.documents, folders.archives, folders.out}) {
        if (folder.isEmpty())
            parser.showHelp(2);
    }
    return folders;
}

} // namespace

int main(int argc, char** argv)
{
    // Pictures are loaded, none is shown: no screen is needed.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "minimal");
    const QGuiApplication application(argc, argv);
    const Folders folders = parseArguments(application);
    try {
        RVOpenManager manager;
        start(manager, folders);
        loadDocument(manager, folders);
        lookUpPresets(manager);
        applyMaterial(manager);
        addSnapShot(manager);
        importDocument(manager, folders);
        stripTextures(manager);
        save(manager, folders);
        listSavedFiles(folders);
    } catch (const TourStopped& stopped) {
        out().flush();
        QTextStream(stderr) << "The tour stopped: " << stopped.what() << '\n';
        return 1;
    }
    return 0;
}
