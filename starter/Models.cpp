// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Models.h"

#include "Archive.h"
#include "Presets.h"
#include "Tables.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenPaths.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>

#include <QDir>
#include <QDirIterator>
#include <QDomDocument>
#include <QFileInfo>

namespace rvopen::starter {

namespace {

/// What makes a preset a preset of an archive; a snapshot only keeps its names.
void forgetArchive(QDomElement element)
{
    for (const char* name : {"cat", "path", "desc", "imgname"})
        element.removeAttribute(QLatin1String(name));
}

QVector<QDomElement> paramsBelow(const QDomElement& element)
{
    QVector<QDomElement> params;
    const QDomNodeList found = element.elementsByTagName(QStringLiteral("param"));
    for (int i = 0; i < found.size(); ++i)
        params << found.at(i).toElement();
    return params;
}

class Model {
public:
    Model(const Row& row, const Tables& tables, const Presets& presets)
        : m_row(row)
        , m_tables(tables)
        , m_presets(presets)
        , m_scale(row.has("scale") ? row.number("scale") : 1)
    {
        m_manager.Initialise(3, 1, QString());
        m_manager.ClearSnapShotDoc();
        m_manager.InitialiseSnapShotDoc();
        m_manager.SetUnitsScale(m_scale);
        for (const Row& snapShot : rowsOf("snapshots"))
            add(snapShot);
        addOriginalBackground();
        if (row.has("older"))
            makeOlder();
    }

    void save(const QString& path)
    {
        if (!WriteXmlDocument(document(), path, SnapShotFileIndent))
            throw Failure(QStringLiteral("cannot write %1").arg(path));
    }

private:
    QDomDocument document() const
    {
        return m_manager.GetSnapShots()->GetDomNode().ownerDocument();
    }

    QVector<Row> rowsOf(const char* table) const
    {
        QVector<Row> rows;
        for (const Row& row : m_tables.rows(table)) {
            if (row.text("document") == m_row.text("document"))
                rows << row;
        }
        return rows;
    }

    SnapShots* collectionOf(const Row& row)
    {
        const QString name = row.text("collection");
        if (name == QLatin1String("Model Cameras"))
            return m_manager.GetSnapShotsCameras();
        if (name == QLatin1String("Model Material Palettes"))
            return m_manager.GetSnapShotsMaterialRepositories();
        if (name == QLatin1String("Model Backgrounds"))
            return m_manager.GetSnapShotsBackgrounds();
        return m_manager.GetSnapShots();
    }

    void add(const Row& row)
    {
        SnapShots* const collection = collectionOf(row);
        SnapShot* const snapShot = collection->CreateSnapShot(nullptr);
        snapShot->SetName(row.text("name"));
        if (row.has("description"))
            snapShot->SetDescription(row.text("description"));
        if (row.has("border"))
            snapShot->SetImageBorder(RVOpenNode::ImageBorder(row.integer("border")));
        collection->AddNode(snapShot, true);
        fill(snapShot, row);
        if (collection != m_manager.GetSnapShots() || row.text("name") != m_row.text("current"))
            return;
        setSelected(snapShot, 1);
        fill(m_manager.GetCurrentSnapShot(), row);
    }

    static void setSelected(SnapShot* snapShot, int selected)
    {
        snapShot->GetSnapShotSettings()->SetSelected(selected);
    }

    void fill(SnapShot* snapShot, const Row& row)
    {
        if (row.has("ambient"))
            addSettings(snapShot, row);
        if (row.has("shadow"))
            addScenery(snapShot, row);
        if (row.has("from"))
            addCamera(snapShot, row);
        addPresets(snapShot, row);
        if (row.has("azimuth")) {
            NaturalLightStudio* const sun = snapShot->CreateAndAddNaturalLightStudio();
            sun->SetEnabled(row.integer("sun"));
            sun->SetSunAzimuth(row.number("azimuth"));
            sun->SetSunAltitude(row.number("altitude"));
        }
        if (row.has("lamps")) {
            ArtificialLightStudio* const lamps = snapShot->GetArtificialLightStudio();
            lamps->SetEnabled(row.integer("lamps"));
            lamps->SetIntensityScale(row.number("intensity"));
        }
        if (row.has("palette"))
            addPalette(snapShot, row.text("palette"));
        addTargets(snapShot, row.text("name"));
    }

    void addSettings(SnapShot* snapShot, const Row& row)
    {
        SnapShotSettings* const settings = snapShot->CreateSnapShotSettings(nullptr);
        settings->SetAmbientLightsIntensityScale(row.number("ambient"));
        settings->SetTwist(row.number("twist"));
        float up[] = {0, 0, 1};
        float north[] = {0, 1, 0};
        float front[3];
        settings->DecodeFloat3(row.text("front"), &front[0], &front[1], &front[2]);
        settings->SetOrientationInfo(up, north, front);
        settings->GetParamHelper()
            ->GetParam(QStringLiteral("Image File Name"))
            ->SetValString(QStringLiteral("icon_%1.jpg").arg(row.text("name")));
        settings->SetSessionName(row.text("session"));
        settings->SetBackgroundReflected(row.text("environment"), row.number("reflection"));
        if (row.has("backplate"))
            settings->SetReflectBackPlate(row.integer("backplate"));
        settings->SetSelected(0);
        snapShot->AddSnapShotSettings(settings);
    }

    static void addScenery(SnapShot* snapShot, const Row& row)
    {
        Scenery* const made = snapShot->CreateScenery(nullptr);
        snapShot->AddScenery(made);
        delete made;
        Scenery* const scenery = snapShot->GetScenery();
        scenery->EnableDropShadow(row.integer("shadow"));
        scenery->EnableDropSunLight(row.integer("sunlight"));
        scenery->EnableDropReflection(row.integer("mirror"));
        scenery->SetDropShadowQuality(10);
        scenery->SetDropShadowContrast(row.number("contrast"));
        scenery->SetDropSunLightBrightness(row.number("brightness"));
        scenery->SetDropReflectionBrightness(row.number("mirrored"));
        scenery->SetDropReflectionBlur(row.number("blur"));
        if (row.has("base"))
            scenery->SetBaseSize(row.number("base"));
        if (row.has("spots"))
            scenery->SetDropShadowCatchSpots(row.integer("spots"));
    }

    static void addCamera(SnapShot* snapShot, const Row& row)
    {
        Camera* const made = snapShot->CreateCamera();
        Camera* const camera = snapShot->AddCamera(made);
        delete made;
        if (row.has("camera"))
            camera->SetName(row.text("camera"));
        float from[3];
        float to[3];
        float up[3];
        camera->DecodeFloat3(row.text("from"), &from[0], &from[1], &from[2]);
        camera->DecodeFloat3(row.text("to"), &to[0], &to[1], &to[2]);
        camera->DecodeFloat3(row.text("up"), &up[0], &up[1], &up[2]);
        camera->SetPinhole(from, to, up, row.integer("parallel"), row.number("angle"));
        camera->SetClipping(row.number("near"), row.number("far"));
        if (row.has("fit"))
            camera->SetViewFit(row.integer("fit"));
    }

    template <typename Object>
    Object* preset(const Row& row, const char* column) const
    {
        return static_cast<Object*>(m_presets.find(row.text(column)));
    }

    void addPresets(SnapShot* snapShot, const Row& row)
    {
        // A new scheme takes the background and the light away: it comes first.
        if (row.has("scheme")) {
            Scheme* const scheme = snapShot->AddScheme(preset<Scheme>(row, "scheme"));
            scheme->DeleteNode(scheme->GetBackground());
            forgetArchive(scheme->GetDomNode().toElement());
        }
        if (row.has("background"))
            forgetArchive(snapShot->AddBackground(preset<Background>(row, "background"))
                              ->GetDomNode()
                              .toElement());
        if (row.has("foreground"))
            forgetArchive(snapShot->AddForeground(preset<Foreground>(row, "foreground"))
                              ->GetDomNode()
                              .toElement());
    }

    void addPalette(SnapShot* snapShot, const QString& palette)
    {
        MaterialRepository* const repository = snapShot->GetMaterialRepository();
        for (const Row& row : rowsOf("palettes")) {
            if (row.text("palette") != palette)
                continue;
            auto* const source = preset<Material>(row, "material");
            const QString object = row.text("object");
            Material* const material = repository->CreateMaterial();
            material->SetLinkName(object);
            material->SetName(row.has("name") ? row.text("name") : source->GetName());
            repository->AddMaterial(material);
            repository->ApplyMaterial(source, object, nullptr);
            if (source->GetBaseMaterial())
                forgetArchive(repository->AddBaseMaterial(source->GetBaseMaterial(), object)
                                  ->GetDomNode()
                                  .toElement());
            scaleLengths(material->GetDomNode().toElement());
        }
    }

    /// The presets' lengths are in scene units.
    void scaleLengths(const QDomElement& element) const
    {
        for (QDomElement param : paramsBelow(element)) {
            if (!param.attribute(QStringLiteral("prop")).contains(QLatin1Char('D')))
                continue;
            const QString val = QStringLiteral("val");
            param.setAttribute(val, param.attribute(val).toFloat() * m_scale);
        }
    }

    void addTargets(SnapShot* snapShot, const QString& name)
    {
        for (const Row& row : rowsOf("targets")) {
            if (row.text("snapshot") != name)
                continue;
            RenderTargets* const targets = snapShot->GetRenderTargets();
            RenderTarget* const target = targets->CreateRenderTarget(nullptr);
            targets->AddNode(target, true);
            target->SetName(row.text("name"));
            target->SetLightingQuality(row.integer("lighting"));
            target->SetMaterialQuality(row.integer("materials"));
            target->SetRenderQuality(row.text("quality"));
            target->SetModelHint(row.number("hint"));
            target->SetWidth(row.integer("width"));
            target->SetHeight(row.integer("height"));
            target->SetUseAspectRatio(row.integer("useaspect"));
            target->SetAspectRatio(row.number("aspect"));
            if (row.has("landscape"))
                target->SetLandscape(row.integer("landscape"));
            target->SetFileName(row.text("file"));
            target->SetShortFileName(row.text("short"));
            target->SetOutputFormat(row.text("format"));
            if (row.has("gamma"))
                target->SetGamma(row.number("gamma"));
        }
    }

    void addOriginalBackground()
    {
        if (!m_row.has("original"))
            return;
        QDomDocument target = document();
        QDomElement element =
            target.importNode(m_presets.find(m_row.text("original"))->GetDomNode(), true)
                .toElement();
        forgetArchive(element);
        element.removeAttribute(QStringLiteral("name"));
        element.removeAttribute(QStringLiteral("refname"));
        target.documentElement().appendChild(element);
    }

    /// What the first versions of the host did not write, and what they wrote and later ones did
    /// not.
    void makeOlder()
    {
        QDomElement root = document().documentElement();
        root.removeAttribute(QStringLiteral("unitsScale"));
        root.setAttribute(QStringLiteral("zorvane_version"), m_row.text("older"));
        m_manager.GetSnapShots()->SetName(QStringLiteral("SnapShots"));
        const QStringList later{QStringLiteral("View Fit"),
                                QStringLiteral("Base Size"),
                                QStringLiteral("Drop Shadow Catch Spots"),
                                QStringLiteral("Reflect BackPlate"),
                                QStringLiteral("Landscape"),
                                QStringLiteral("Gamma")};
        for (QDomElement param : paramsBelow(root)) {
            if (later.contains(param.attribute(QStringLiteral("name"))))
                param.parentNode().removeChild(param);
        }
        for (SnapShot* snapShot :
             {m_manager.GetSnapShots()->GetFirstSnapShot(), m_manager.GetCurrentSnapShot()}) {
            auto* const lens = static_cast<Lens*>(createNode(*snapShot, "lens"));
            float angle = 0;
            snapShot->GetCamera()->GetParamHelper()->GetValFloat(QStringLiteral("Field Of View"),
                                                                 &angle);
            lens->GetParamHelper()->AddFloatParam(QStringLiteral("Angle"), angle);
            snapShot->GetDomNode().insertAfter(lens->GetDomNode(),
                                               snapShot->GetCamera()->GetDomNode());
            lens->SetDomNode(QDomNode());
            delete lens;
        }
    }

    const Row& m_row;
    const Tables& m_tables;
    const Presets& m_presets;
    float m_scale;
    RVOpenManager m_manager;
};

/// Copies what the document refers to from the archives' folder to its own.
void provideImages(const QString& file, const QString& archives)
{
    RVOpenManager manager;
    RVOpenNode* const root = manager.LoadArchive(file);
    if (!root)
        throw Failure(QStringLiteral("cannot read %1").arg(file));
    const QString folder = QFileInfo(file).path() + QLatin1Char('/');
    for (const QDomElement& param : paramsBelow(root->GetDomNode().toElement())) {
        QString name = param.attribute(QStringLiteral("val"));
        const QString source =
            archives + QLatin1Char('/') + name.replace(QLatin1Char('\\'), QLatin1Char('/'));
        if (!name.endsWith(QLatin1String(".png")) || !QFileInfo(source).isFile() ||
            !StaysInside(name))
            continue;
        const QString target = folder + name;
        QDir().mkpath(QFileInfo(target).path());
        if (!QFile::exists(target) && !QFile::copy(source, target))
            throw Failure(QStringLiteral("cannot write %1").arg(target));
    }
    delete root;
}

} // namespace

void makeModels(const Tables& tables, const Presets& presets, const QString& archives,
                const QString& data)
{
    const QString folder = data + QLatin1String("/snapshots");
    QDir().mkpath(folder);
    for (const Row& row : tables.rows("models"))
        Model(row, tables, presets).save(folder + QLatin1Char('/') + row.text("document"));
    for (const char* part : {"/snapshots", "/archives"}) {
        QDirIterator it(data + QLatin1String(part), {"*.xml", "*.rvx"}, QDir::Files,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            provideImages(it.next(), archives);
    }
}

} // namespace rvopen::starter
