// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenNode.h>
#include <rvopen/RVOpenObserver.h>
#include <rvopen/RVOpenWriter.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShots.h>
#include <rvopen/host/Find.h>
#include <rvopen/widgets/ArchiveModel.h>
#include <rvopen/widgets/PaletteModel.h>
#include <rvopen/widgets/SnapShotModel.h>
#include <rvopen/widgets/UndoRecorder.h>

#include <QAbstractItemModelTester>
#include <QListView>
#include <QMimeData>
#include <QPersistentModelIndex>
#include <QTreeView>
#include <QUndoStack>

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace rvopen::widgets {

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto s_fatalFailures = QAbstractItemModelTester::FailureReportingMode::Fatal;

/// What a model tells, in words.
class RowsTold {
public:
    explicit RowsTold(const QAbstractItemModel& model)
    {
        using Model = QAbstractItemModel;
        const auto rows = [this](const char* what) {
            return [this, what](const QModelIndex& parent, int first, int last) {
                m_texts.push_back(what + parent.data().toString().toStdString() +
                                  std::to_string(first) + "-" + std::to_string(last));
            };
        };
        QObject::connect(&model, &Model::rowsInserted, &m_here, rows("+"));
        QObject::connect(&model, &Model::rowsRemoved, &m_here, rows("-"));
        QObject::connect(&model, &Model::modelReset, &m_here,
                         [this] { m_texts.push_back("reset"); });
        QObject::connect(&model, &Model::dataChanged, &m_here, [this](const QModelIndex& index) {
            m_texts.push_back("~" + index.data().toString().toStdString());
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

/// The rows that were looked at, those below others in brackets.
std::string shown(const QAbstractItemModel& model, const QModelIndex& parent = QModelIndex())
{
    std::string text;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const std::string below = shown(model, index);
        text += (row > 0 ? " " : "") + index.data().toString().toStdString();
        if (!below.empty())
            text += "(" + below + ")";
    }
    return text;
}

class ArchiveModelTest : public ::testing::Test {
protected:
    ArchiveModelTest()
    {
        document.setContent(QStringLiteral(R"(<presets version="3.1"><colours name="Colours">
<colour name="a" refname="ra"/><!-- of b --><colour name="b" cat="c"/><dir name="d">
<colour name="in"/><dir name="deep"><colour name="deeper"/></dir></dir>
<dir name="other" archiveFilename="Other"/></colours>
<materials><material name="m" linkname="l"/></materials><finishes/></presets>)"));
        root.SetDomNode(document.documentElement());
        model.SetArchive(&root);
    }

    ~ArchiveModelTest() override
    {
        tester.reset();
        model.SetArchive(nullptr);
    }

    QModelIndex at(const std::vector<int>& rows)
    {
        QModelIndex index;
        for (const int row : rows) {
            if (model.canFetchMore(index))
                model.fetchMore(index);
            index = model.index(row, 0, index);
        }
        return index;
    }

    /// The tester looks at all rows, and does so while it takes a reset to last.
    void fetchAll(const QModelIndex& index = QModelIndex())
    {
        if (!tester)
            tester = std::make_unique<QAbstractItemModelTester>(&model, s_fatalFailures);
        if (model.canFetchMore(index))
            model.fetchMore(index);
        for (int row = 0; row < model.rowCount(index); ++row)
            fetchAll(model.index(row, 0, index));
    }

    QString text() const
    {
        return XmlText(document, 0);
    }

    std::unique_ptr<QMimeData> drag(const QModelIndexList& indexes) const
    {
        return std::unique_ptr<QMimeData>(model.mimeData(indexes));
    }

    /// What comes from another program.
    static std::unique_ptr<QMimeData> foreign(const QByteArray& nodes)
    {
        auto data = std::make_unique<QMimeData>();
        data->setData(NodeModel::MimeType(), nodes);
        return data;
    }

    QDomDocument document;
    RVOpenNode root;
    ArchiveModel model;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

} // namespace

TEST_F(ArchiveModelTest, LooksAtWhatIsOpenedAlone)
{
    EXPECT_EQ(shown(model), "Colours materials finishes");
    const QModelIndex colours = model.index(0, 0);
    EXPECT_TRUE(model.hasChildren(colours));
    EXPECT_TRUE(model.canFetchMore(colours));
    EXPECT_FALSE(model.hasChildren(model.index(2, 0)));
    EXPECT_EQ(model.rowCount(colours), 0);
    RowsTold told(model);
    model.fetchMore(colours);
    EXPECT_THAT(told.take(), ElementsAre("+Colours0-3"));
    EXPECT_FALSE(model.canFetchMore(colours));
    EXPECT_EQ(shown(model), "Colours(a b d other) materials finishes");
    // What stands for another archive has no rows here.
    EXPECT_FALSE(model.hasChildren(model.index(3, 0, colours)));
    fetchAll();
    EXPECT_EQ(shown(model), "Colours(a b d(in deep(deeper)) other) materials(m) finishes");
    // No object was made.
    EXPECT_EQ(root.GetChild(0, 0), nullptr);
}

TEST_F(ArchiveModelTest, TellsOfElements)
{
    const QModelIndex a = at({0, 0});
    EXPECT_EQ(a.data(NodeModel::PathRole).toString(), "colours[Colours]/colour[a]");
    EXPECT_EQ(a.data(NodeModel::RefNameRole).toString(), "ra");
    EXPECT_EQ(at({0, 1}).data(NodeModel::CategoryRole).toString(), "c");
    EXPECT_EQ(at({1, 0}).data(NodeModel::LinkNameRole).toString(), "l");
    EXPECT_EQ(a.siblingAtColumn(NodeModel::Kind).data().toString(), "colour");
    const QDomElement deeper = model.Element(at({0, 2, 1, 0}));
    EXPECT_EQ(deeper.attribute("name"), "deeper");
    EXPECT_EQ(model.IndexOf(deeper), at({0, 2, 1, 0}));
    ArchiveModel other;
    other.SetArchive(&root);
    EXPECT_EQ(other.IndexOf(deeper), other.index(0, 0)) << "as far as was looked";
    EXPECT_EQ(other.Fetch(deeper).data().toString(), "deeper");
    EXPECT_EQ(shown(other), "Colours(a b d(in deep(deeper)) other) materials finishes");
    EXPECT_EQ(other.IndexOf(QDomElement()), QModelIndex());
    RVOpenNode* const node = model.Node(at({0, 1}));
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->GetName(), "b");
    EXPECT_EQ(node->GetParent()->GetParent(), &root);
    EXPECT_EQ(model.Node(at({0, 1})), node);
    EXPECT_EQ(model.Node(QModelIndex()), nullptr);
}

TEST_F(ArchiveModelTest, FollowsRowByRow)
{
    fetchAll();
    RowsTold told(model);
    const QPersistentModelIndex deeper = at({0, 2, 1, 0});
    RVOpenNode* const colours = model.Node(at({0}));
    RVOpenNode* const made = new RVOpenNode();
    made->SetDomNode(document.createElement("colour"));
    made->SetName("new");
    EXPECT_THAT(told.take(), IsEmpty());
    colours->InsertNode(made, 1);
    EXPECT_THAT(told.take(), ElementsAre("+Colours1-1"));
    made->SetName("newer");
    EXPECT_THAT(told.take(), ElementsAre("~newer"));
    colours->DeleteNode(model.Node(at({0, 0})));
    EXPECT_THAT(told.take(), ElementsAre("-Colours0-0"));
    EXPECT_EQ(shown(model), "Colours(newer b d(in deep(deeper)) other) materials(m) finishes");
    EXPECT_EQ(deeper.data().toString(), "deeper");
    EXPECT_EQ(deeper.parent().parent().row(), 2);
    RVOpenNode* const param = new RVOpenNode();
    param->SetDomNode(document.createElement("param"));
    made->AddNode(param, false);
    EXPECT_THAT(told.take(), ElementsAre("~newer"));
    // Behind what is no row.
    RVOpenNode* const other = new RVOpenNode();
    other->SetDomNode(document.createElement("param"));
    colours->AddNode(other, false);
    EXPECT_THAT(told.take(), ElementsAre("~Colours"));
    RVOpenNode* const last = new RVOpenNode();
    last->SetDomNode(document.createElement("colour"));
    colours->AddNode(last, false);
    EXPECT_THAT(told.take(), ElementsAre("+Colours4-4"));
    colours->DeleteNode(last);
    colours->DeleteNode(other);
    told.take();
    // What is not open may be opened now.
    RVOpenNode* const finish = new RVOpenNode();
    finish->SetDomNode(document.createElement("finish"));
    ArchiveModel closed;
    closed.SetArchive(&root);
    RowsTold toldOther(closed);
    model.Node(at({2}))->AddNode(finish, false);
    EXPECT_THAT(toldOther.take(), ElementsAre("~finishes"));
    EXPECT_TRUE(closed.canFetchMore(closed.index(2, 0)));
    // A section that goes, and one that comes.
    told.take();
    root.DeleteNode(model.Node(at({1})));
    EXPECT_THAT(told.take(), ElementsAre("-1-1"));
    EXPECT_EQ(shown(model), "Colours(newer b d(in deep(deeper)) other) finishes(finish)");
}

TEST_F(ArchiveModelTest, GivesNamesAndTakesRowsAway)
{
    QUndoStack stack;
    UndoRecorder recorder(&root, &stack);
    const QString before = text();
    EXPECT_TRUE(model.setData(at({0, 1}), "B"));
    EXPECT_TRUE(text().contains("name=\"B\""));
    EXPECT_FALSE(model.setData(at({0, 1}), ""));
    EXPECT_FALSE(model.setData(at({0, 1}).siblingAtColumn(NodeModel::Kind), "finish"));
    EXPECT_FALSE(model.setData(QModelIndex(), "x"));
    EXPECT_TRUE(model.removeRows(2, 2, model.index(0, 0)));
    EXPECT_EQ(shown(model), "Colours(a B) materials finishes");
    EXPECT_FALSE(model.removeRows(1, 2, model.index(0, 0)));
    EXPECT_FALSE(text().contains("deeper"));
    EXPECT_EQ(stack.count(), 2);
    stack.undo();
    EXPECT_EQ(shown(model), "Colours(a B d(in deep(deeper)) other) materials finishes");
    stack.undo();
    EXPECT_EQ(text(), before);
}

TEST_F(ArchiveModelTest, DragsTextOfXml)
{
    fetchAll();
    const auto data = drag({at({0, 2}), at({0, 2}).siblingAtColumn(1), at({0, 2, 0}), at({1, 0})});
    const QString xml = QString::fromUtf8(data->data("application/x-rvopen-node+xml"));
    EXPECT_EQ(data->text(), xml);
    QDomDocument read;
    ASSERT_TRUE(read.setContent(xml));
    // Of what is in each other the outermost.
    const QDomElement first = read.documentElement().firstChildElement();
    EXPECT_EQ(first.attribute("name"), "d");
    EXPECT_EQ(first.nextSiblingElement().attribute("name"), "m");
    EXPECT_TRUE(first.nextSiblingElement().nextSiblingElement().isNull());
    EXPECT_EQ(model.mimeTypes(), QStringList{"application/x-rvopen-node+xml"});
    EXPECT_TRUE(model.flags(at({0, 0})) & Qt::ItemIsDragEnabled);
    EXPECT_FALSE(model.flags(at({0})) & Qt::ItemIsDragEnabled) << "a section stays";
    EXPECT_TRUE(model.flags(at({0})) & Qt::ItemIsDropEnabled);
    EXPECT_FALSE(model.flags(at({0, 0})) & Qt::ItemIsDropEnabled);
    EXPECT_FALSE(model.flags(at({0, 3})) & Qt::ItemIsDropEnabled);
}

TEST_F(ArchiveModelTest, TakesDropsWhereTheyBelong)
{
    fetchAll();
    const auto can = [&](const QMimeData& data, const QModelIndex& parent) {
        return model.canDropMimeData(&data, Qt::CopyAction, -1, -1, parent);
    };
    const auto colour = drag({at({0, 0})});
    const auto material = drag({at({1, 0})});
    const auto folder = drag({at({0, 2})});
    EXPECT_TRUE(can(*colour, at({0})));
    EXPECT_TRUE(can(*colour, at({0, 2, 1})));
    EXPECT_FALSE(can(*colour, at({1})));
    EXPECT_FALSE(can(*colour, at({0, 0})));
    EXPECT_FALSE(can(*colour, QModelIndex()));
    EXPECT_FALSE(can(*material, at({0})));
    EXPECT_TRUE(can(*folder, at({0})));
    EXPECT_FALSE(can(*folder, at({0, 2, 1}))) << "into itself";
    EXPECT_FALSE(can(*drag({at({0, 0}), at({1, 0})}), at({0}))) << "all or none";
    QMimeData other;
    other.setText("<colour/>");
    EXPECT_FALSE(can(other, at({0})));
    EXPECT_FALSE(can(*foreign("<rvopenNodes><colour></rvopenNodes>"), at({0})));
    EXPECT_FALSE(can(*foreign("<colour/>"), at({0})));
    EXPECT_FALSE(can(*foreign("<rvopenNodes/>"), at({0})));
    EXPECT_FALSE(can(*foreign("<rvopenNodes><script/></rvopenNodes>"), at({0})));
    EXPECT_TRUE(can(*foreign("<rvopenNodes><colour/></rvopenNodes>"), at({0})));
    const QString before = text();
    EXPECT_FALSE(model.dropMimeData(material.get(), Qt::CopyAction, 0, 0, at({0})));
    EXPECT_FALSE(model.dropMimeData(nullptr, Qt::CopyAction, 0, 0, at({0})));
    EXPECT_EQ(text(), before);
}

TEST_F(ArchiveModelTest, MovesWithinItself)
{
    fetchAll();
    QUndoStack stack;
    UndoRecorder recorder(&root, &stack);
    const QString before = text();
    // False, so that the view removes nothing.
    const auto move = [&](const QModelIndexList& rows, int place, const QModelIndex& parent) {
        EXPECT_FALSE(model.dropMimeData(drag(rows).get(), Qt::MoveAction, place, 0, parent));
        fetchAll();
    };
    move({at({0, 0})}, -1, at({0, 2, 1}));
    EXPECT_EQ(shown(model), "Colours(b d(in deep(deeper a)) other) materials(m) finishes");
    EXPECT_EQ(stack.count(), 1);
    move({at({0, 1})}, 0, at({0}));
    EXPECT_EQ(shown(model), "Colours(d(in deep(deeper a)) b other) materials(m) finishes");
    // Behind itself it stays; two go together.
    move({at({0, 0})}, 1, at({0}));
    EXPECT_EQ(shown(model), "Colours(d(in deep(deeper a)) b other) materials(m) finishes");
    move({at({0, 0, 0}), at({0, 0, 1, 1})}, 2, at({0}));
    EXPECT_EQ(shown(model), "Colours(d(deep(deeper)) b in a other) materials(m) finishes");
    EXPECT_EQ(model.Element(at({0, 3})).attribute("refname"), "ra") << "it keeps its names";
    EXPECT_EQ(model.Node(at({0, 3}))->GetName(), "a");
    while (stack.canUndo())
        stack.undo();
    EXPECT_EQ(text(), before);
    fetchAll();
    EXPECT_EQ(shown(model), "Colours(a b d(in deep(deeper)) other) materials(m) finishes");
}

TEST_F(ArchiveModelTest, CopiesUnderOtherNames)
{
    fetchAll();
    const QModelIndex colours = at({0});
    EXPECT_TRUE(model.dropMimeData(drag({at({0, 0})}).get(), Qt::CopyAction, 1, 0, colours));
    EXPECT_EQ(shown(model), "Colours(a a (2) b d(in deep(deeper)) other) materials(m) finishes");
    EXPECT_EQ(model.Element(at({0, 1})).attribute("refname"), "ra_2");
    // In another archive nothing is called so; lengths are in its units.
    QDomDocument second;
    second.setContent(QStringLiteral("<presets unitsScale='2'><colours/></presets>"));
    RVOpenNode otherRoot;
    otherRoot.SetDomNode(second.documentElement());
    ArchiveModel other;
    other.SetArchive(&otherRoot);
    const auto otherTester = std::make_unique<QAbstractItemModelTester>(&other, s_fatalFailures);
    EXPECT_TRUE(other.dropMimeData(drag({at({0, 0}), at({0, 3})}).get(), Qt::MoveAction, -1, -1,
                                   other.index(0, 0)));
    other.fetchMore(other.index(0, 0));
    EXPECT_EQ(shown(other), "colours(a d(in deep(deeper)))");
    EXPECT_EQ(other.Element(other.index(0, 0, other.index(0, 0))).attribute("refname"), "ra");
    EXPECT_EQ(shown(model), "Colours(a a (2) b d(in deep(deeper)) other) materials(m) finishes");
    // From another program.
    const auto data = foreign("<rvopenNodes unitsScale='4'><colour name='f'><param name='x' "
                              "type='float' prop='D' val='8'/></colour></rvopenNodes>");
    EXPECT_TRUE(other.dropMimeData(data.get(), Qt::CopyAction, 0, 0, other.index(0, 0)));
    EXPECT_EQ(shown(other), "colours(f a d(in deep(deeper)))");
    const QDomElement f = other.Element(other.index(0, 0, other.index(0, 0)));
    EXPECT_EQ(f.firstChildElement().attribute("val"), "4");
    other.SetArchive(nullptr);
}

TEST_F(ArchiveModelTest, ChangesNothingWhileObserversAreTold)
{
    fetchAll();
    bool isDone = true;
    QObject::connect(&model, &NodeModel::dataChanged, &model, [&] {
        isDone = model.setData(at({0, 1}), "told") || model.removeRows(0, 1, at({0})) ||
                 model.dropMimeData(drag({at({0, 0})}).get(), Qt::CopyAction, 0, 0, at({0}));
    });
    EXPECT_TRUE(model.setData(at({0, 0}), "z"));
    EXPECT_FALSE(isDone);
    EXPECT_EQ(shown(model), "Colours(z b d(in deep(deeper)) other) materials(m) finishes");
}

TEST_F(ArchiveModelTest, HasNoRowsOfNothing)
{
    fetchAll();
    model.SetArchive(nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_TRUE(model.Root().isNull());
    EXPECT_EQ(model.IndexOf(document.documentElement()), QModelIndex());
    EXPECT_FALSE(model.removeRows(0, 1));
    EXPECT_FALSE(model.canDropMimeData(nullptr, Qt::CopyAction, 0, 0, QModelIndex()));
}

TEST_F(ArchiveModelTest, IsShownByAView)
{
    QTreeView view;
    view.setModel(&model);
    view.expandAll();
    EXPECT_TRUE(view.isExpanded(at({0, 2, 1})));
    model.Node(at({0}))->DeleteNode(model.Node(at({0, 2})));
    EXPECT_EQ(shown(model), "Colours(a b other) materials(m) finishes");
}

TEST(SnapShotModel, FollowsTheManager)
{
    RVOpenManager manager;
    SnapShotModel model;
    model.SetManager(&manager);
    const QAbstractItemModelTester tester(&model, s_fatalFailures);
    RowsTold told(model);
    EXPECT_EQ(model.rowCount(), 0);
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        "<snapRoot><snapshot name='now'/><snapshots name='Model SnapShots'><snapshot name='one'/>"
        "<snapshot name='two'/></snapshots></snapRoot>"));
    EXPECT_EQ(shown(model), "one two");
    EXPECT_EQ(told.take().front(), "reset");
    RVOpenNode* const one = model.Node(model.index(0, 0));
    ASSERT_NE(dynamic_cast<SnapShot*>(one), nullptr);
    EXPECT_EQ(one->GetParent(), manager.GetSnapShots());
    EXPECT_TRUE(model.setData(model.index(1, 0), "second"));
    EXPECT_EQ(one->GetNext(1)->GetName(), "second");
    EXPECT_THAT(told.take(), ElementsAre("~second"));
    manager.GetSnapShots()->DeleteNode(one);
    EXPECT_THAT(told.take(), ElementsAre("-0-0"));
    // A copy by a drop.
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    EXPECT_TRUE(model.dropMimeData(data.get(), Qt::CopyAction, -1, -1, QModelIndex()));
    EXPECT_EQ(shown(model), "second second (2)");
    EXPECT_EQ(manager.GetNumSnapShots(), 2);
    manager.ClearSnapShotDoc();
    EXPECT_EQ(model.rowCount(), 0);
    model.SetManager(nullptr);
}

TEST(SnapShotModel, FollowsACollectionThatComesAndGoes)
{
    RVOpenManager manager;
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        "<snapRoot><snapshot name='now'/><snapshots name='Model SnapShots'><snapshot name='one'/>"
        "</snapshots></snapRoot>"));
    QUndoStack stack;
    UndoRecorder recorder(manager, &stack);
    SnapShotModel model;
    model.SetManager(&manager);
    const QAbstractItemModelTester tester(&model, s_fatalFailures);
    RowsTold told(model);
    manager.GetRootNode()->DeleteNode(manager.GetRootNode()->GetChild(1, 1)->GetNext(1));
    EXPECT_THAT(told.take(), ElementsAre("-0-0"));
    EXPECT_EQ(model.rowCount(), 0);
    stack.undo();
    EXPECT_EQ(shown(model), "one");
    EXPECT_THAT(told.take(), ElementsAre("+0-0"));
}

TEST(SnapShotModel, OutlivesTheManager)
{
    auto manager = std::make_unique<RVOpenManager>();
    ASSERT_TRUE(manager->LoadSnapShotDocFromString(
        "<snapRoot><snapshots name='Model SnapShots'><snapshot name='one'/></snapshots>"
        "</snapRoot>"));
    SnapShotModel model;
    model.SetManager(manager.get());
    EXPECT_EQ(model.rowCount(), 1);
    manager.reset();
    EXPECT_EQ(model.rowCount(), 0);
}

TEST(PaletteModel, ShowsMaterialsAndTakesPresets)
{
    RVOpenManager manager;
    ASSERT_TRUE(manager.LoadSnapShotDocFromString(
        "<snapRoot><snapshot name='now'><materialRepository><material name='Red' linkname='r'/>"
        "<!-- between --><material name='Blue'/></materialRepository></snapshot></snapRoot>"));
    PaletteModel model;
    const QAbstractItemModelTester tester(&model, s_fatalFailures);
    model.SetPalette(host::find<MaterialRepository>(manager.GetCurrentSnapShot()));
    EXPECT_EQ(shown(model), "Red Blue");
    EXPECT_EQ(model.index(0, 0).data(NodeModel::LinkNameRole).toString(), "r");
    RowsTold told(model);
    const std::unique_ptr<QMimeData> blue(model.mimeData({model.index(1, 0)}));
    EXPECT_FALSE(model.dropMimeData(blue.get(), Qt::MoveAction, 0, 0, QModelIndex()));
    EXPECT_EQ(shown(model), "Blue Red");
    // A preset of an archive comes in, and a material goes into one as a preset.
    QDomDocument archive;
    archive.setContent(
        QStringLiteral("<presets><materials><material name='Gold' refname='g'/></materials>"
                       "</presets>"));
    RVOpenNode root;
    root.SetDomNode(archive.documentElement());
    ArchiveModel presets;
    presets.SetArchive(&root);
    const QModelIndex materials = presets.index(0, 0);
    presets.fetchMore(materials);
    const std::unique_ptr<QMimeData> gold(presets.mimeData({presets.index(0, 0, materials)}));
    EXPECT_TRUE(model.dropMimeData(gold.get(), Qt::CopyAction, 1, 0, QModelIndex()));
    EXPECT_EQ(shown(model), "Blue Gold Red");
    EXPECT_NE(dynamic_cast<Material*>(model.Node(model.index(1, 0))), nullptr);
    const std::unique_ptr<QMimeData> red(model.mimeData({model.index(2, 0)}));
    EXPECT_TRUE(presets.dropMimeData(red.get(), Qt::CopyAction, -1, -1, materials));
    const QDomElement preset = presets.Element(presets.index(1, 0, materials));
    EXPECT_EQ(preset.attribute("name"), "Red");
    EXPECT_FALSE(preset.hasAttribute("linkname"));
    EXPECT_EQ(preset.attribute("refname"), "material.red");
    presets.SetArchive(nullptr);
}

} // namespace rvopen::widgets
