// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/edit/ParamValues.h>
#include <rvopen/widgets/ArchiveModel.h>
#include <rvopen/widgets/PresetFilter.h>
#include <rvopen/widgets/PresetModel.h>
#include <rvopen/widgets/Thumbnails.h>

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QUrl>

#include <gmock/gmock.h>

#include <memory>

namespace rvopen::widgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace toolkit;

/// Of each preset in a folder of an archive of materials and colours.
QByteArray preset(const char* name, const char* colour = "1 0 0")
{
    return QByteArray("<colour name='") + name +
           "' cat='c'><param name='Colour' type='colour' val='" + colour + "'/></colour>";
}

QByteArray archive(const QByteArray& colours, const QByteArray& rest = QByteArray())
{
    return "<presets version='3.1'><colours>" + colours + "</colours>" + rest + "</presets>";
}

/// What a model tells, in words.
class Told {
public:
    explicit Told(const QAbstractItemModel& model)
    {
        using Model = QAbstractItemModel;
        const auto rows = [this](const char* what) {
            return [this, what](const QModelIndex&, int first, int last) {
                m_texts.push_back(what + std::to_string(first) + "-" + std::to_string(last));
            };
        };
        QObject::connect(&model, &Model::rowsInserted, &m_here, rows("+"));
        QObject::connect(&model, &Model::rowsRemoved, &m_here, rows("-"));
        QObject::connect(&model, &Model::modelReset, &m_here,
                         [this] { m_texts.push_back("reset"); });
        QObject::connect(&model, &Model::dataChanged, &m_here,
                         [this](const QModelIndex& first, const QModelIndex& last) {
                             EXPECT_EQ(first.column(), 0);
                             m_texts.push_back("~" + std::to_string(first.row()) + "-" +
                                               std::to_string(last.row()));
                         });
    }

    std::vector<std::string> take()
    {
        return std::exchange(m_texts, {});
    }

private:
    QObject m_here;
    std::vector<std::string> m_texts;
};

std::vector<std::string> names(const QAbstractItemModel& model)
{
    std::vector<std::string> names;
    for (int row = 0; row < model.rowCount(); ++row)
        names.push_back(model.index(row, PresetModel::Name).data().toString().toStdString());
    return names;
}

class PresetModelTest : public ::testing::Test {
protected:
    PresetModelTest()
        : m_modelTester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal)
        , m_filterTester(&filter, QAbstractItemModelTester::FailureReportingMode::Fatal)
    {
        qputenv("RVOPEN_CATALOGUE", "off");
        filter.setSourceModel(&model);
    }

    ~PresetModelTest() override
    {
        qunsetenv("RVOPEN_CATALOGUE");
    }

    QString write(const char* name, const QByteArray& text) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        return file.fileName();
    }

    /// Three files: a b c, d, e.
    void showThree()
    {
        files = QStringList{write("1.rvx", archive(preset("a") + "<dir name='folder'>" +
                                                   preset("b", "0 1 0") + "</dir>" + preset("c"))),
                            write("2.rvx", archive(preset("d", "0 0.9 0"))),
                            write("3.rvx", archive(preset("e")))};
        model.SetCatalogue(std::make_shared<const Catalogue>(files));
    }

    /// The archive in memory, and what is at its root.
    RVOpenNode* follow(int file)
    {
        m_document.reset(ReadXmlDocument(files[file]));
        EXPECT_TRUE(m_document);
        m_root = std::make_unique<RVOpenNode>();
        m_root->SetDomNode(m_document->documentElement());
        model.Follow(files[file], *m_document);
        return m_root.get();
    }

    RVOpenNode* colours()
    {
        return m_root->GetChild(1, 1);
    }

    /// What was changed in the model is searched for.
    static void turn()
    {
        QCoreApplication::processEvents();
    }

    QTemporaryDir folder;
    QStringList files;
    PresetModel model;
    PresetFilter filter;
    std::unique_ptr<QDomDocument> m_document;
    std::unique_ptr<RVOpenNode> m_root;

private:
    QAbstractItemModelTester m_modelTester;
    QAbstractItemModelTester m_filterTester;
};

} // namespace

TEST_F(PresetModelTest, ShowsThePresetsOfAllFiles)
{
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.CurrentCatalogue(), nullptr);
    showThree();
    EXPECT_THAT(names(model), ElementsAre("a", "b", "c", "d", "e"));
    const QModelIndex b = model.index(1, PresetModel::Folder);
    EXPECT_EQ(b.data().toString(), "folder");
    EXPECT_EQ(b.siblingAtColumn(PresetModel::Kind).data().toString(), "colour");
    EXPECT_EQ(b.siblingAtColumn(PresetModel::Category).data().toString(), "c");
    EXPECT_EQ(b.siblingAtColumn(PresetModel::File).data().toString(), files[0]);
    const auto preset = b.data(PresetModel::PresetRole).value<ListedPreset>();
    EXPECT_EQ(preset.path, "colours/dir[folder]/colour[b]");
    EXPECT_EQ(model.Preset(b).path, preset.path);
    EXPECT_EQ(model.IndexOf(files[0], preset.path).row(), 1);
    EXPECT_FALSE(model.IndexOf(files[1], preset.path).isValid());
    EXPECT_FALSE(model.IndexOf("no file", preset.path).isValid());
    EXPECT_TRUE(model.Element(b).isNull());
    EXPECT_EQ(model.Open(b).element.attribute("name"), "b");
    EXPECT_EQ(model.Preset(QModelIndex()).file, QString());
    model.SetCatalogue(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(PresetModelTest, FollowsWhatIsMadeOfAnArchive)
{
    showThree();
    Told told(model);
    RVOpenNode* const root = follow(0);
    ASSERT_NE(root, nullptr);
    EXPECT_THAT(told.take(), ElementsAre("~0-2"));
    EXPECT_THAT(names(model), ElementsAre("a", "b", "c", "d", "e"));
    EXPECT_EQ(model.Element(model.index(1, 0)).attribute("name"), "b");
    EXPECT_TRUE(model.Element(model.index(3, 0)).isNull());

    RVOpenNode* const a = colours()->GetChild(1, 1);
    a->SetName("z");
    EXPECT_THAT(told.take(), ElementsAre("~0-0", "~0-2"));
    EXPECT_EQ(model.index(0, 0).data().toString(), "z");

    const QModelIndex c = model.IndexOf(files[0], "colours/colour[c]");
    ASSERT_EQ(c.row(), 2);
    const QPersistentModelIndex d = model.index(3, 0);
    QDomElement element = model.Element(c);
    ParamValues().Set(element.firstChildElement(), "0 0 1");
    EXPECT_THAT(told.take(), ElementsAre("~2-2"));

    colours()->DeleteNode(a);
    EXPECT_THAT(told.take(), ElementsAre("-0-0", "~0-1"));
    EXPECT_EQ(d.row(), 2);
    EXPECT_THAT(names(model), ElementsAre("b", "c", "d", "e"));
}

TEST_F(PresetModelTest, PutsWhatComesWhereItStands)
{
    showThree();
    follow(1);
    Told told(model);
    RVOpenNode* const copy = new RVOpenNode();
    copy->SetDomNode(colours()->GetChild(1, 1)->GetDomNode().cloneNode(true));
    copy->SetName("n");
    EXPECT_THAT(told.take(), IsEmpty());
    colours()->InsertNode(copy, 0);
    EXPECT_THAT(told.take(), ElementsAre("+3-3", "~3-4"));
    EXPECT_THAT(names(model), ElementsAre("a", "b", "c", "n", "d", "e"));

    RVOpenNode* const shelf = new RVOpenNode();
    shelf->SetDomNode(m_document->createElement("dir"));
    for (const char* name : {"x", "y"}) {
        RVOpenNode* const colour = new RVOpenNode();
        colour->SetDomNode(m_document->createElement("colour"));
        colour->SetName(name);
        shelf->AddNode(colour, false);
    }
    colours()->InsertNode(shelf, 1);
    EXPECT_THAT(told.take(), ElementsAre("+4-5", "~3-6"));
    EXPECT_THAT(names(model), ElementsAre("a", "b", "c", "n", "x", "y", "d", "e"));
    shelf->SetName("shelf");
    EXPECT_THAT(told.take(), ElementsAre("~4-5", "~3-6"));
    EXPECT_EQ(model.index(5, PresetModel::Folder).data().toString(), "shelf");

    // Behind a folder, and in a section that is new.
    RVOpenNode* const last = new RVOpenNode();
    last->SetDomNode(m_document->createElement("material"));
    RVOpenNode* const section = new RVOpenNode();
    section->SetDomNode(m_document->createElement("materials"));
    section->AddNode(last, false);
    colours()->DeleteNode(colours()->GetChild(1, 1)->GetNext(1)->GetNext(1));
    EXPECT_THAT(told.take(), ElementsAre("-6-6", "~3-5"));
    m_root->AddNode(section, false);
    EXPECT_THAT(told.take(), ElementsAre("+6-6", "~3-6"));
    EXPECT_EQ(model.index(6, PresetModel::Kind).data().toString(), "material");
    EXPECT_EQ(model.index(7, PresetModel::Name).data().toString(), "e");
    m_root->DeleteNode(section);
    EXPECT_THAT(told.take(), ElementsAre("-6-6", "~3-5"));
    EXPECT_EQ(model.IndexOf(shelf->GetDomNode().toElement()), QModelIndex());
    EXPECT_EQ(model.IndexOf(shelf->GetChild(1, 1)->GetDomNode().toElement()).row(), 4);
}

TEST_F(PresetModelTest, SaysOnceThatASortMovedNumbers)
{
    files = QStringList{write("1.rvx", archive(preset("a") + preset("a") + preset("a")))};
    model.SetCatalogue(std::make_shared<const Catalogue>(files));
    follow(0);
    const QModelIndex last = model.index(2, 0);
    EXPECT_EQ(model.Preset(last).path, "colours/colour[a]#3");
    Told told(model);
    {
        const RVOpenBlock block;
        colours()->DeleteNode(colours()->GetChild(1, 1));
        colours()->DeleteNode(colours()->GetChild(1, 1));
        EXPECT_THAT(told.take(), ElementsAre("-0-0", "-0-0"));
    }
    EXPECT_THAT(told.take(), ElementsAre("~0-0"));
    EXPECT_EQ(model.Preset(model.index(0, 0)).path, "colours/colour[a]");
}

TEST_F(PresetModelTest, SaysOnceThatNumbersInSeveralFoldersMoved)
{
    showThree();
    follow(0);
    Told told(model);
    {
        const RVOpenBlock block;
        RVOpenNode* const shelf = colours()->GetChild(1, 1)->GetNext(1);
        shelf->GetChild(1, 1)->SetName("x");
        colours()->GetChild(1, 1)->SetName("y");
        told.take();
    }
    EXPECT_THAT(told.take(), ElementsAre("~0-2"));
}

TEST_F(PresetModelTest, TellsOfAPresetWhatHappensInIt)
{
    showThree();
    follow(0);
    RVOpenNode* const c = colours()->GetChild(1, 1)->GetNext(1)->GetNext(1);
    ASSERT_EQ(c->GetName(), "c");
    Told told(model);
    RVOpenNode* const param = new RVOpenNode();
    param->SetDomNode(m_document->createElement("param"));
    c->AddNode(param, false);
    EXPECT_THAT(told.take(), ElementsAre("~2-2"));
    c->DeleteNode(param);
    EXPECT_THAT(told.take(), ElementsAre("~2-2"));
    EXPECT_EQ(model.IndexOf(c->GetDomNode().firstChildElement()).row(), 2);
    // Of the archive itself there is no row.
    m_root->SetAttributeString("version", "9");
    EXPECT_THAT(told.take(), ElementsAre("~0-2"));
}

TEST_F(PresetModelTest, HasTheFileAgainWhenTheDocumentGoes)
{
    showThree();
    follow(0);
    colours()->GetChild(1, 1)->SetName("not saved");
    Told told(model);
    write("1.rvx", archive(preset("b") + preset("c") + preset("saved")));
    model.Follow(files[0], QDomDocument());
    EXPECT_THAT(names(model), ElementsAre("b", "c", "saved", "d", "e"));
    // Of what was there "colour[c]" stays; what was in a folder is another preset.
    EXPECT_THAT(told.take(), ElementsAre("-0-2", "+0-2", "~0-2"));
    colours()->GetChild(1, 1)->SetName("unseen");
    EXPECT_THAT(told.take(), IsEmpty());
    EXPECT_TRUE(model.Element(model.index(0, 0)).isNull());
    // What others write.
    write("1.rvx", archive(preset("b") + preset("more") + preset("c") + preset("saved")));
    model.Reread(files[0]);
    EXPECT_THAT(told.take(), ElementsAre("+1-1", "~0-3"));
    EXPECT_EQ(model.Open(model.index(1, 0)).element.attribute("name"), "more");
    model.Reread("no file of it");
    EXPECT_THAT(told.take(), IsEmpty());
}

TEST_F(PresetModelTest, FollowsAFileThatIsNotThereYet)
{
    showThree();
    files << folder.filePath("new.rvx");
    m_document = std::make_unique<QDomDocument>();
    m_document->setContent(archive(preset("first")));
    Told told(model);
    model.Follow(files[3], *m_document);
    EXPECT_THAT(told.take(), ElementsAre("+5-5", "~5-5"));
    EXPECT_EQ(model.index(5, 0).data().toString(), "first");
    EXPECT_EQ(model.Open(model.index(5, 0)).element.attribute("name"), "first");
    EXPECT_NE(model.Open(model.index(5, 0)).dom, *m_document);
    model.Follow(files[3], QDomDocument());
    EXPECT_THAT(told.take(), ElementsAre("-5-5"));
    // Without any catalogue before.
    PresetModel other;
    other.Follow(files[3], *m_document);
    EXPECT_THAT(names(other), ElementsAre("first"));
}

TEST_F(PresetModelTest, KeepsWhatIsFollowedWhenTheCatalogueIsAnother)
{
    showThree();
    follow(1);
    colours()->GetChild(1, 1)->SetName("z");
    EXPECT_EQ(model.CurrentCatalogue()->At(3).name, "z");
    model.SetCatalogue(std::make_shared<const Catalogue>(QStringList{files[2], files[1]}));
    EXPECT_THAT(names(model), ElementsAre("e", "z"));
    EXPECT_EQ(model.CurrentCatalogue()->At(1).name, "z");
    EXPECT_EQ(model.CurrentCatalogue(), model.CurrentCatalogue());
    Told told(model);
    colours()->GetChild(1, 1)->SetName("y");
    EXPECT_THAT(told.take(), ElementsAre("~1-1", "~1-1"));
    model.SetCatalogue(std::make_shared<const Catalogue>(QStringList{files[1]}));
    EXPECT_THAT(names(model), ElementsAre("y"));
    model.SetCatalogue(std::make_shared<const Catalogue>(QStringList{files[2]}));
    EXPECT_THAT(told.take(), ElementsAre("reset", "reset"));
    colours()->GetChild(1, 1)->SetName("unseen");
    EXPECT_THAT(told.take(), IsEmpty());
}

TEST_F(PresetModelTest, FindsByAllThatIsAskedFor)
{
    showThree();
    EXPECT_THAT(names(filter), ElementsAre("a", "b", "c", "d", "e"));
    filter.SetColour(QColor(0, 255, 0));
    EXPECT_THAT(names(filter), ElementsAre("b", "d"));
    filter.SetWithin(0.5);
    EXPECT_THAT(names(filter), ElementsAre("b"));
    filter.SetColour(QColor());
    filter.SetWords("D");
    EXPECT_THAT(names(filter), ElementsAre("d"));
    EXPECT_EQ(filter.mapToSource(filter.index(0, 2)), model.index(3, 2));
    EXPECT_EQ(filter.mapFromSource(model.index(3, 1)), filter.index(0, 1));
    EXPECT_EQ(filter.mapFromSource(model.index(0, 0)), QModelIndex());
    filter.SetWords("");
    filter.SetFolder("folder");
    EXPECT_THAT(names(filter), ElementsAre("b"));
    filter.SetFolder("");
    filter.SetCategory("d");
    EXPECT_THAT(names(filter), IsEmpty());
    filter.SetCategory("c");
    EXPECT_EQ(filter.rowCount(), 5);
    filter.SetTag("t");
    EXPECT_EQ(filter.rowCount(), 0);
    filter.SetTag("");
    filter.SetKind("materials");
    EXPECT_EQ(filter.rowCount(), 0);
    QSignalSpy changed(&filter, &PresetFilter::QueryChanged);
    CatalogueQuery query;
    query.colour = "no colour";
    EXPECT_FALSE(filter.SetQuery(query));
    EXPECT_EQ(filter.Kind(), "materials");
    EXPECT_EQ(changed.count(), 0);
    query.colour = "0 1 0";
    EXPECT_TRUE(filter.SetQuery(query));
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(filter.Colour(), QColor(0, 255, 0));
    EXPECT_THAT(names(filter), ElementsAre("b", "d"));
    EXPECT_EQ(filter.headerData(PresetModel::Folder, Qt::Horizontal).toString(), "Folder");
    EXPECT_EQ(filter.headerData(0, Qt::Vertical).toInt(), 1);
}

TEST_F(PresetModelTest, KeepsRowsThatStay)
{
    showThree();
    Told told(filter);
    const QPersistentModelIndex d = filter.index(3, 0);
    filter.SetColour(QColor(0, 255, 0));
    EXPECT_THAT(told.take(), ElementsAre("-4-4", "-2-2", "-0-0"));
    EXPECT_EQ(d.row(), 1);
    // The best first: the order is another one.
    filter.SetColour(QColor(0, 229, 0));
    EXPECT_THAT(names(filter), ElementsAre("d", "b"));
    EXPECT_THAT(told.take(), ::testing::SizeIs(2));
    filter.SetColour(QColor());
    EXPECT_THAT(names(filter), ElementsAre("a", "b", "c", "d", "e"));
    for (const std::string& each : told.take())
        EXPECT_NE(each, "reset");
}

TEST_F(PresetModelTest, FindsWhatIsEdited)
{
    showThree();
    follow(0);
    filter.SetColour(QColor(0, 255, 0));
    turn();
    EXPECT_THAT(names(filter), ElementsAre("b", "d"));
    Told told(filter);
    const QDomElement b = model.Element(model.index(1, 0));
    ParamValues().Set(b.firstChildElement(), "1 0 1");
    EXPECT_THAT(told.take(), ElementsAre("~0-0"));
    turn();
    EXPECT_THAT(names(filter), ElementsAre("d"));
    EXPECT_THAT(told.take(), ElementsAre("-0-0"));
    const QDomElement c = model.Element(model.index(2, 0));
    ParamValues().Set(c.firstChildElement(), "0 1 0");
    turn();
    EXPECT_THAT(names(filter), ElementsAre("c", "d"));
    told.take();
    colours()->DeleteNode(colours()->GetChild(1, 1));
    // What is found stays where its preset is.
    EXPECT_THAT(names(filter), ElementsAre("c", "d"));
    turn();
    EXPECT_EQ(filter.mapToSource(filter.index(1, 0)).row(), 2);
    EXPECT_THAT(told.take(), ElementsAre("~0-0"));
    RVOpenNode* const section = colours();
    section->DeleteNode(section->GetChild(1, 1)->GetNext(1));
    EXPECT_THAT(names(filter), ElementsAre("d"));
    EXPECT_THAT(told.take(), ElementsAre("-0-0"));
}

TEST_F(PresetModelTest, HasPicturesOnceTheyAreMade)
{
    Thumbnails thumbnails;
    const auto picture = [this](int row) {
        return model.index(row, 0).data(Qt::DecorationRole).value<QImage>();
    };
    const auto wait = [&] {
        QElapsedTimer timer;
        timer.start();
        while (thumbnails.Waiting() > 0 && timer.elapsed() < 60000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
        turn();
    };
    showThree();
    EXPECT_TRUE(picture(0).isNull());
    model.SetThumbnails(&thumbnails, 40);
    // Meanwhile one that takes the same place.
    EXPECT_EQ(picture(0), Thumbnails::Placeholder(40));
    EXPECT_EQ(picture(0).size(), QSize(40, 40));
    EXPECT_FALSE(model.index(0, 1).data(Qt::DecorationRole).isValid());
    int searched = 0;
    QObject::connect(&model, &PresetModel::dataChanged, &model,
                     [&](const QModelIndex& first, const QModelIndex&, const QVector<int>& roles) {
                         EXPECT_EQ(roles, QVector<int>{Qt::DecorationRole});
                         EXPECT_EQ(first.row(), 0);
                         ++searched;
                     });
    wait();
    EXPECT_EQ(searched, 1);
    EXPECT_EQ(picture(0).width(), 40);
    EXPECT_NE(picture(0), Thumbnails::Placeholder(40));
    QObject::disconnect(&model, &PresetModel::dataChanged, &model, nullptr);
    // Of what is edited, as it is now, in the row where it is.
    follow(0);
    picture(2);
    wait();
    EXPECT_NE(picture(2), Thumbnails::Placeholder(40));
    Told told(filter);
    colours()->DeleteNode(colours()->GetChild(1, 1));
    ParamValues().Set(model.Element(model.index(1, 0)).firstChildElement(), "0 0 1");
    turn();
    told.take();
    picture(1);
    wait();
    EXPECT_THAT(told.take(), ElementsAre("~1-1"));
    EXPECT_EQ(picture(1).width(), 40);
    // A file that others wrote.
    const QImage d = [&] {
        picture(2);
        wait();
        return picture(2);
    }();
    write("2.rvx", archive(preset("d", "0 0 1")));
    model.Reread(files[1]);
    EXPECT_EQ(picture(2), d);
    EXPECT_EQ(thumbnails.Waiting(), 1);
    wait();
    // Once they are gone there are none.
    model.SetThumbnails(nullptr);
    EXPECT_TRUE(picture(1).isNull());
    {
        Thumbnails others;
        model.SetThumbnails(&others, 40);
    }
    EXPECT_TRUE(picture(1).isNull());
}

TEST_F(PresetModelTest, GivesPresetsToWhoDragsThem)
{
    showThree();
    follow(0);
    colours()->GetChild(1, 1)->SetName("not saved");
    const std::unique_ptr<QMimeData> data(filter.mimeData(
        {filter.index(0, 0), filter.index(0, 1), filter.index(1, 0), filter.index(3, 0)}));
    QDomDocument read;
    ASSERT_TRUE(read.setContent(QString::fromUtf8(data->data("application/x-rvopen-node+xml"))));
    QStringList given;
    for (QDomElement each = read.documentElement().firstChildElement(); !each.isNull();
         each = each.nextSiblingElement())
        given << each.attribute("name");
    EXPECT_EQ(given, (QStringList{"not saved", "b", "d"}));
    EXPECT_EQ(data->urls(),
              (QList<QUrl>{QUrl::fromLocalFile(files[0]), QUrl::fromLocalFile(files[1])}));
    // Into an archive.
    QDomDocument archive;
    archive.setContent(QStringLiteral("<presets><colours/></presets>"));
    RVOpenNode root;
    root.SetDomNode(archive.documentElement());
    ArchiveModel into;
    into.SetArchive(&root);
    EXPECT_TRUE(into.dropMimeData(data.get(), Qt::CopyAction, -1, -1, into.index(0, 0)));
    EXPECT_EQ(archive.documentElement().firstChildElement().childNodes().count(), 3);
    into.SetArchive(nullptr);
}

TEST_F(PresetModelTest, ShowsNothingOnceItsModelIsGone)
{
    showThree();
    auto other = std::make_unique<PresetModel>();
    other->SetCatalogue(model.CurrentCatalogue());
    filter.setSourceModel(other.get());
    EXPECT_EQ(filter.rowCount(), 5);
    other.reset();
    EXPECT_EQ(filter.rowCount(), 0);
    filter.SetWords("a");
    EXPECT_EQ(filter.rowCount(), 0);
    filter.setSourceModel(&model);
    EXPECT_THAT(names(filter), ElementsAre("a"));
    filter.setSourceModel(nullptr);
    EXPECT_EQ(filter.columnCount(), 0);
}

TEST_F(PresetModelTest, TakesNoOtherModel)
{
    showThree();
    PresetFilter other;
    filter.setSourceModel(&other);
    EXPECT_EQ(filter.sourceModel(), nullptr);
    EXPECT_EQ(filter.rowCount(), 0);
}

// Whatever is asked for after whatever: rows are those of the search.
TEST_F(PresetModelTest, HasTheOrderOfTheSearchAfterAnyOther)
{
    QByteArray colours;
    for (int i = 0; i < 300; ++i)
        colours +=
            preset(QByteArray::number(i * 7919 % 1000).constData(), i % 3 == 0   ? "0 0.9 0"
                                                                    : i % 5 == 0 ? "0.1 1 0"
                                                                                 : "0.4 0.4 0.4");
    files = QStringList{write("many.rvx", archive(colours))};
    model.SetCatalogue(std::make_shared<const Catalogue>(files));
    Told told(filter);
    int resets = 0;
    int steps = 0;
    for (int round = 0; round < 60; ++round) {
        CatalogueQuery query;
        if (round % 3 > 0)
            query.text = QString::number(round % 10);
        if (round % 4 > 1) {
            query.colour = round % 2 ? "#00ff00" : "#1aff00";
            query.within = 1 + round % 7 * 10;
        }
        ASSERT_TRUE(filter.SetQuery(query));
        const CatalogueMatches matches = model.CurrentCatalogue()->Search(query);
        ASSERT_EQ(filter.rowCount(), matches.Count());
        for (int i = 0; i < matches.Count(); ++i)
            ASSERT_EQ(filter.mapToSource(filter.index(i, 0)).row(), matches.Place(i)) << round;
        for (const std::string& each : told.take())
            ++(each == "reset" ? resets : steps);
    }
    EXPECT_GT(steps, 100);
    EXPECT_GE(resets, 0);
}

} // namespace rvopen::widgets
