// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../InAFolder.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/catalogue/SmallDocument.h"
#include "toolkit/edit/Placement.h"

#include <rvopen/RVOpenWriter.h>
#include <rvopen/toolkit/catalogue/Catalogue.h>
#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/edit/NodePath.h>
#include <rvopen/toolkit/edit/ParamValues.h>

#include <QStringList>

#include <memory>
#include <vector>

namespace rvopen::test {

using namespace toolkit;
using namespace toolkit::catalogue;

namespace {

/// Two presets of one name, between others.
QByteArray archive(const QByteArray& value)
{
    return "<?xml version='1.0' encoding='utf-8'?><!-- All. --><presets version='2'>"
           "<colours name='Größen'><colour name='a'/><dir name='d &amp; e' refname='f'>"
           "<colour name='b' cat='first'/>text<colour name='b' cat='second'><param name='Colour' "
           "type='colour' val='" +
           value + "'/></colour><colour name='c'/></dir></colours><materials/></presets>";
}

const QString s_second = QString::fromUtf8("colours[Größen]/dir[d & e]/colour[b]#2");

QString textOf(const QDomElement& element)
{
    QDomDocument document;
    document.appendChild(document.importNode(element, true));
    return XmlText(document, ArchiveFileIndent);
}

/// The preset of the catalogue that has this path.
ListedPreset listed(const Catalogue& catalogue, const QString& path)
{
    for (const ListedPreset& preset : catalogue.Find(CatalogueQuery())) {
        if (preset.path == path)
            return preset;
    }
    ADD_FAILURE() << path.toStdString();
    return ListedPreset();
}

QString valueOf(const OpenPreset& preset)
{
    return ParamValues().Text(preset.element.firstChildElement());
}

/// How many elements its shelf has.
int neighbours(const OpenPreset& preset)
{
    return int(preset.element.parentNode().childNodes().size());
}

class CatalogueTest : public InAFolder {
protected:
    OpenPreset opened(const QByteArray& text) const
    {
        const Catalogue catalogue({write("a.rvx", text)});
        return catalogue.Open(listed(catalogue, s_second));
    }
};

/// All that a list shows of it.
QString shownOf(const ListedPreset& preset)
{
    return QStringList{preset.file,    preset.kind,        preset.name,
                       preset.refName, preset.category,    preset.folder,
                       preset.path,    preset.subCategory, preset.description}
        .join(QLatin1Char('|'));
}

QDomDocument readFile(const QString& file)
{
    const std::unique_ptr<QDomDocument> document(ReadXmlDocument(file));
    EXPECT_TRUE(document);
    return document ? *document : QDomDocument();
}

/// With folders in folders, presets of one name, and what is no preset.
const QByteArray s_nested = "<presets><materials><dir name='d'><material name='a' refname='r' "
                            "cat='c' subcat='s' desc='t'/><dir><material/><param name='p'/>"
                            "<material name='in'><dir name='no shelf'/></material></dir></dir>"
                            "<material name='a'/><material name='a'/></materials><dir><colour "
                            "name='last'/></dir></presets>";

/// The current snapshot is no preset, what stands beside it is.
const QByteArray s_snapShots = "<snapRoot><snapshots name='s'><snapshot name='one'/></snapshots>"
                               "<snapshot name='current'><camera name='inner'/></snapshot>"
                               "<snapshots name='t'><snapshot name='two'/></snapshots></snapRoot>";

} // namespace

TEST_F(CatalogueTest, HasAPlaceForEachPreset)
{
    const QStringList files{write("a.rvx", archive("1 0 0")), write("b.rvx", "<presets>"),
                            write("c.xml", s_snapShots), write("d.rvx", s_nested)};
    const Catalogue catalogue(files);
    EXPECT_EQ(catalogue.Files(), files);
    const int counts[] = {4, 0, 3, 6};
    int sum = 0;
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(catalogue.Count(i), counts[i]) << i;
        sum += counts[i];
    }
    EXPECT_EQ(catalogue.Count(-1), 0);
    EXPECT_EQ(catalogue.Count(4), 0);
    EXPECT_EQ(catalogue.Count(), sum);
    const CatalogueMatches all = catalogue.Search({});
    ASSERT_EQ(all.Count(), sum);
    for (int i = 0; i < sum; ++i) {
        EXPECT_EQ(all.Place(i), i);
        EXPECT_EQ(shownOf(catalogue.At(i)).toStdString(), shownOf(all.At(i)).toStdString());
    }
    CatalogueQuery query;
    query.text = QStringLiteral("two");
    const CatalogueMatches two = catalogue.Search(query);
    ASSERT_EQ(two.Count(), 1);
    EXPECT_EQ(catalogue.At(two.Place(0)).name, QStringLiteral("two"));
    for (const int beyond : {-1, sum}) {
        EXPECT_EQ(all.Place(beyond), -1);
        EXPECT_EQ(catalogue.At(beyond).kind, QString());
    }
}

TEST_F(CatalogueTest, ListsOfADocumentInMemoryWhatItHasOfItsFile)
{
    for (const QByteArray& text : {archive("1 0 0"), s_nested, s_snapShots}) {
        const QString file = write("a.rvx", text);
        const Catalogue catalogue({file});
        const QDomDocument document = readFile(file);
        const QVector<QDomElement> presets = PresetsIn(document.documentElement());
        ASSERT_EQ(presets.size(), catalogue.Count());
        const auto other = catalogue.With(file, document);
        ASSERT_EQ(other->Count(), catalogue.Count());
        for (int i = 0; i < catalogue.Count(); ++i) {
            const std::string listed = shownOf(catalogue.At(i)).toStdString();
            EXPECT_EQ(shownOf(ListedOf(file, presets[i])).toStdString(), listed);
            EXPECT_EQ(shownOf(other->At(i)).toStdString(), listed);
            EXPECT_EQ(PresetsIn(presets[i]), QVector<QDomElement>{presets[i]});
        }
    }
}

TEST_F(CatalogueTest, ListsThePresetsInAFolder)
{
    QDomDocument document = readFile(write("a.rvx", s_nested));
    const QDomElement materials = document.documentElement().firstChildElement();
    const QDomElement folder = materials.firstChildElement();
    EXPECT_EQ(PresetsIn(materials).size(), 5);
    EXPECT_EQ(PresetsIn(folder).size(), 3);
    EXPECT_EQ(PresetsIn(folder.lastChildElement()).size(), 2);
    const QDomElement inner = folder.lastChildElement().lastChildElement();
    EXPECT_EQ(PresetsIn(inner).size(), 1);
    // A folder in a preset, a parameter, what stands nowhere.
    EXPECT_EQ(PresetsIn(inner.firstChildElement()).size(), 0);
    EXPECT_EQ(PresetsIn(folder.lastChildElement().firstChildElement("param")).size(), 0);
    EXPECT_EQ(PresetsIn(document.createElement("material")).size(), 0);
    EXPECT_EQ(PresetsIn(QDomElement()).size(), 0);
}

TEST_F(CatalogueTest, SearchesWhatIsNotSaved)
{
    const QString file = write("a.rvx", archive("1 0 0"));
    const Catalogue catalogue({file, write("b.rvx", s_nested)});
    const QDomDocument document = readFile(file);
    const QDomElement changed = PresetsIn(document.documentElement())[2];
    ASSERT_EQ(changed.attribute("cat"), QStringLiteral("second"));
    changed.firstChildElement("param").setAttribute("val", "0 0 1");
    changed.parentNode().removeChild(changed.previousSiblingElement());
    const auto now = catalogue.With(file, document);
    CatalogueQuery blue;
    blue.colour = QStringLiteral("0 0 1");
    EXPECT_EQ(catalogue.Search(blue).Count(), 0);
    ASSERT_EQ(now->Search(blue).Count(), 1);
    EXPECT_EQ(now->Search(blue).At(0).category, QStringLiteral("second"));
    EXPECT_EQ(now->Count(), catalogue.Count() - 1);
    EXPECT_EQ(now->Files(), catalogue.Files());
    // What is opened was saved.
    EXPECT_EQ(valueOf(now->Open(ListedOf(file, changed))), QString());
    EXPECT_EQ(valueOf(now->Open(catalogue.At(2))), QStringLiteral("1 0 0"));
    // What others wrote into the file.
    write("a.rvx", archive("0 0 1").replace("<colour name='a'/>", ""));
    const auto again = now->With(file);
    EXPECT_EQ(again->Count(), 9);
    EXPECT_EQ(again->Files(), catalogue.Files());
    ASSERT_EQ(again->Search(blue).Count(), 1);
    EXPECT_EQ(valueOf(again->Open(again->Search(blue).At(0))), QStringLiteral("0 0 1"));
    EXPECT_EQ(catalogue.Count(), 10);
    // Of a new file, and of one that has come to nothing.
    const auto more = now->With(path("new.rvx"), document);
    EXPECT_EQ(more->Files().last(), path("new.rvx"));
    EXPECT_EQ(more->Search(blue).Count(), 2);
    EXPECT_EQ(now->With(file, QDomDocument())->Count(), 6);
    EXPECT_EQ(now->With(file, QDomDocument())->Problems().size(), 1);
}

TEST_F(CatalogueTest, OpensOnePresetWithWhatItStandsInAlone)
{
    const OpenPreset preset = opened(archive("1 0 0.5"));
    ASSERT_TRUE(preset);
    EXPECT_EQ(valueOf(preset), QStringLiteral("1 0 0.5"));
    EXPECT_EQ(preset.element.attribute(QStringLiteral("cat")), QStringLiteral("second"));
    EXPECT_EQ(neighbours(preset), 1);
    EXPECT_EQ(PathOf(preset.element), QString::fromUtf8("colours[Größen]/dir[d & e]/colour[b]"));
    EXPECT_EQ(preset.dom.documentElement().attribute(QStringLiteral("version")),
              QStringLiteral("2"));
    EXPECT_EQ(preset.error.message, QString());
}

TEST_F(CatalogueTest, OpensWhatTheWholeDocumentHas)
{
    QVector<ReadError> problems;
    int opened = 0;
    for (const QString& file : DocumentsBelow(QStringLiteral(RVOPEN_DATA_DIR), problems)) {
        if (!file.endsWith(QLatin1String(".rvx")))
            continue;
        const BlockStore store({file});
        ReadError error;
        const std::unique_ptr<Document> document = Document::Read(file, error);
        ASSERT_TRUE(document);
        QStringList whole;
        forEachPreset(document->Root(),
                      [&whole](const Preset& preset) { whole << textOf(preset.element); });
        QStringList alone;
        const Block& block = store.block(0);
        for (quint32 i = 0; i < block.head().rows; ++i)
            alone << textOf(openThere(file, store.state(0), block, block.row(i)).element);
        EXPECT_EQ(alone, whole) << file.toStdString();
        opened += int(alone.size());
    }
    EXPECT_GT(opened, 100);
}

TEST_F(CatalogueTest, OpensSeveralPresetsOfADocumentAsTheWholeHasThem)
{
    const QString file =
        write("a.rvx", "<!-- head --><presets name='P'><bumps name='B'/><colours name='1'><dir "
                       "name='d'><colour name='a'/><colour name='b' cat='x'>text<param/></colour>"
                       "</dir><dir name='e'><colour name='c'/></dir></colours><colours name='2'>"
                       "<param/><colour name='a'><!-- in --></colour><dir name='f'/></colours>" +
                           QByteArray(400, ' ') + "</presets>");
    const BlockStore store({file});
    const Block& block = store.block(0);
    ReadError error;
    const std::unique_ptr<Document> whole = Document::Read(file, error);
    ASSERT_TRUE(whole);
    QStringList all;
    forEachPreset(whole->Root(), [&all](const Preset& preset) {
        all << preset.path + preset.folder + textOf(preset.element);
    });
    ASSERT_EQ(all.size(), 4);
    for (int chosen = 0; chosen < 16; ++chosen) {
        std::vector<BlockRow> rows;
        QStringList wanted;
        for (int i = 0; i < 4; ++i) {
            if ((chosen >> i & 1) != 0) {
                rows.push_back(block.row(quint32(i)));
                wanted << all[i];
            }
        }
        const std::unique_ptr<Document> part = documentOfRows(file, store.state(0), block, rows);
        ASSERT_TRUE(part) << chosen;
        QStringList found;
        forEachPreset(part->Root(), [&found](const Preset& preset) {
            found << preset.path + preset.folder + textOf(preset.element);
        });
        EXPECT_EQ(found, wanted);
        QStringList sections;
        for (QDomElement section = part->Root().firstChildElement(); !section.isNull();
             section = section.nextSiblingElement())
            sections << section.tagName() + section.attribute(QStringLiteral("name"));
        EXPECT_EQ(sections.join(QLatin1Char(' ')), QStringLiteral("bumpsB colours1 colours2"));
        EXPECT_EQ(part->Name(), file);
        EXPECT_EQ(part->Folder(), whole->Folder());
        EXPECT_EQ(part->Kind(), DocumentKind::Archive);
    }
}

TEST_F(CatalogueTest, OpensNoPartThatHasOtherPathsOrIsMostOfTheDocument)
{
    const QString file =
        write("a.rvx", "<presets><colours><colour name='a'/><colour name='a'/><dir name='d'/><dir "
                       "name='d'><colour name='b'/></dir><colour name='c' desc='" +
                           QByteArray(400, 'c') + "'/></colours></presets>");
    const BlockStore store({file});
    QString opened;
    for (quint32 i = 0; i < 4; ++i)
        opened += documentOfRows(file, store.state(0), store.block(0), {store.block(0).row(i)})
                      ? QLatin1Char('1')
                      : QLatin1Char('0');
    EXPECT_EQ(opened, QStringLiteral("1000"));
}

TEST_F(CatalogueTest, OpensNoPartOfWhatIsAnotherDocumentNow)
{
    const QByteArray text = "<presets><bumps/><colours><colour name='a'/><colour name='b'    />"
                            "</colours></presets>" +
                            QByteArray(200, ' ');
    const QString file = write("a.rvx", text);
    const BlockStore store({file});
    const std::vector<BlockRow> rows{store.block(0).row(0), store.block(0).row(1)};
    ASSERT_EQ(openPart(file, store.state(0), store.block(0), rows, Sections::All).presets.size(),
              2);
    // As if nothing had told that the file changed.
    for (const auto& [before, after] :
         {std::pair("name='b'", "name='x'"), std::pair("    />", "/><c/>"),
          std::pair("<bumps/>", "<b><c/>"), std::pair("<bumps/>", "<BUMPS/>"),
          std::pair("<colours>", "<coloors>"), std::pair("<presets>", "<preset_>")}) {
        write("a.rvx", QByteArray(text).replace(before, after));
        FileState now;
        ASSERT_TRUE(findState(QFile::encodeName(file), now));
        EXPECT_TRUE(openPart(file, now, store.block(0), rows, Sections::All).dom.isNull()) << after;
        EXPECT_FALSE(documentOfRows(file, now, store.block(0), rows)) << after;
    }
}

TEST_F(CatalogueTest, OpensWhatHasSignsInItsNameThatPathsEscape)
{
    const Catalogue catalogue(
        {write("a.rvx", "<presets><colours><colour name='a' cat='0'/><colour name='x]*\\y' "
                        "cat='1'/><colour name='@z' cat='2'/><colour name='l&#10;m' cat='3'/>"
                        "<colour cat='4'/></colours></presets>")});
    QString categories;
    for (const ListedPreset& preset : catalogue.Find(CatalogueQuery())) {
        const OpenPreset one = catalogue.Open(preset);
        ASSERT_TRUE(one) << preset.path.toStdString();
        EXPECT_EQ(neighbours(one), 1);
        categories += one.element.attribute(QStringLiteral("cat"));
    }
    EXPECT_EQ(categories, QStringLiteral("01234"));
}

TEST_F(CatalogueTest, OpensWhatIsThereNow)
{
    const QString file = write("a.rvx", archive("1 0 0"));
    const Catalogue catalogue({file});
    const ListedPreset preset = listed(catalogue, s_second);
    write("a.rvx", archive("0 1 0").replace("<colour name='a'/>", ""));
    EXPECT_EQ(valueOf(catalogue.Open(preset)), QStringLiteral("0 1 0"));
    write("a.rvx", archive("0 1 0").replace("name='b'", "name='z'"));
    const OpenPreset gone = catalogue.Open(preset);
    EXPECT_FALSE(gone);
    EXPECT_EQ(gone.error.file, file);
    EXPECT_EQ(gone.error.message,
              QStringLiteral("There is no preset \"%1\" any more").arg(s_second));
    write("a.rvx", "<presets>");
    EXPECT_EQ(catalogue.Open(preset).error.line, 1);
}

TEST_F(CatalogueTest, LooksAtWhatStandsThereAlsoWhereTheStateIsTheSame)
{
    const QString file = write("a.rvx", archive("1 0 0"));
    const BlockStore store({file});
    const Block& block = store.block(0);
    const BlockRow row = block.row(2);
    ASSERT_TRUE(openThere(file, store.state(0), block, row));
    // As if nothing had told that the file changed.
    for (const auto& [before, after] :
         {std::pair("name='b' cat='second'", "name='x' cat='second'"),
          std::pair("<!-- All. -->", "<!-- All -->"), std::pair("<dir name='d", "<dir name='D"),
          std::pair("<presets ", "<preset_ ")}) {
        write("a.rvx", archive("1 0 0").replace(before, after));
        FileState now;
        ASSERT_TRUE(findState(QFile::encodeName(file), now));
        EXPECT_FALSE(openThere(file, now, block, row)) << before;
    }
}

TEST_F(CatalogueTest, BuildsTheWholeWhereAPartDoesNotSayWhatItMeans)
{
    const QByteArray text = archive("1 0 0");
    // In the order of bytes that the mark says.
    QByteArray wide("\xff\xfe");
    for (const QChar c : QString::fromUtf8(text)) {
        wide += char(c.cell());
        wide += char(c.row());
    }
    const OpenPreset preset = opened(wide);
    EXPECT_EQ(valueOf(preset), QStringLiteral("1 0 0"));
    EXPECT_GT(neighbours(preset), 1);
    EXPECT_EQ(neighbours(opened("\xef\xbb\xbf" + text)), 1);
}

TEST_F(CatalogueTest, TellsWhatItCannotRead)
{
    const QStringList files{write("a.rvx", archive("1 0 0")), write("b.rvx", "<presets>"),
                            write("c.rvx", "<presets xmlns:p='u'><colours><colour/></colours>"
                                           "</presets>"),
                            path("none.rvx")};
    const Catalogue catalogue(files);
    QStringList problems;
    for (const ReadError& problem : catalogue.Problems()) {
        EXPECT_NE(problem.message, QString());
        problems << problem.file;
    }
    EXPECT_EQ(problems, files.mid(1));
    EXPECT_EQ(catalogue.Count(), 4);
}

TEST_F(CatalogueTest, FindsPresetsOfManyFiles)
{
    const Catalogue catalogue({write("b.rvx", archive("1 0 0")), write("a.rvx", archive("0 1 0"))});
    CatalogueQuery query;
    query.text = QStringLiteral("B");
    query.colour = QStringLiteral("#00ff00");
    const QVector<ListedPreset> found = catalogue.Find(query);
    ASSERT_EQ(found.size(), 1);
    EXPECT_EQ(found[0].file, path("a.rvx"));
    EXPECT_EQ(found[0].path, s_second);
    EXPECT_EQ(found[0].category, QStringLiteral("second"));
    EXPECT_EQ(found[0].folder, QStringLiteral("d & e"));
}

TEST_F(CatalogueTest, FindsInSomeFilesAndOfSomePresetsAlone)
{
    const QString first = write("a.rvx", archive("1 0 0"));
    const QString second = write("b.rvx", archive("0 1 0"));
    const Catalogue catalogue({first, second});
    const auto found = [&](const CatalogueQuery& query) {
        QStringList places;
        for (const ListedPreset& preset : catalogue.Find(query))
            places << (preset.file == first ? "a " : "b ") + preset.path;
        return places;
    };
    CatalogueQuery query;
    query.text = QStringLiteral("b");
    query.files = QStringList{second};
    const QString third = QString::fromUtf8("colours[Größen]/dir[d & e]/colour[b]");
    EXPECT_EQ(found(query), (QStringList{"b " + third, "b " + s_second}));
    query.files.append(first);
    EXPECT_EQ(found(query).size(), 4);
    query.presets = {{second, s_second}, {first, s_second}, {first, QStringLiteral("colours/x")}};
    EXPECT_EQ(found(query), (QStringList{"a " + s_second, "b " + s_second}));
    query.files = QStringList{first};
    EXPECT_EQ(found(query), QStringList{"a " + s_second});
    query.presets = {{second, s_second}};
    EXPECT_EQ(found(query), QStringList());
    query = CatalogueQuery();
    query.files = QStringList{QStringLiteral("c.rvx")};
    EXPECT_EQ(found(query), QStringList());
}

TEST_F(CatalogueTest, ReadsColoursHoweverTheyAreWritten)
{
    const struct {
        const char* text;
        bool isColour;
    } values[] = {{"0 1 0", true},     {"0.0 1. -0", true},  {" 0  1\t0 ", true},
                  {"+0 1e0 .0", true}, {"0 1 1e-3", true},   {"0 1", false},
                  {"0 1 0 0", false},  {"0 1 0x", false},    {"0 1 0 x", false},
                  {"0,1,0", false},    {"0 1 inf", false},   {"0 nan 0", false},
                  {"0 1 1e99", false}, {"0 1 1e999", false}, {"", false}};
    QStringList files;
    QStringList expected;
    for (const auto& value : values) {
        files << write(QByteArray::number(files.size()) + ".rvx", archive(value.text));
        if (value.isColour)
            expected << files.last();
    }
    CatalogueQuery query;
    query.colour = QStringLiteral("#00ff00");
    QStringList found;
    for (const ListedPreset& preset : Catalogue(files).Find(query))
        found << preset.file;
    // The one that is a shade off is the last.
    expected.append(expected.takeAt(4));
    EXPECT_EQ(found, expected);
}

TEST_F(CatalogueTest, FindsInTheOrderOfFilesWhateverProcessorWasFirst)
{
    QStringList files;
    for (int i = 0; i < 60; ++i)
        files << write(QByteArray::number(i * 7 % 60) + ".rvx",
                       i == 30 ? QByteArray("<broken") : archive("1 0 0"));
    CatalogueQuery query;
    query.category = QStringLiteral("second");
    const CatalogueMatches matches = Catalogue(files).Search(query);
    files.removeAt(30);
    QStringList found;
    for (int i = 0; i < matches.Count(); ++i)
        found << matches.At(i).file;
    EXPECT_EQ(found, files);
}

TEST_F(CatalogueTest, KeepsWhatWasFound)
{
    CatalogueMatches kept;
    EXPECT_EQ(kept.Count(), 0);
    EXPECT_EQ(kept.At(0).file, QString());
    {
        const Catalogue catalogue({write("a.rvx", archive("1 0 0"))});
        kept = catalogue.Search(CatalogueQuery());
        EXPECT_EQ(catalogue.Find(CatalogueQuery()).size(), kept.Count());
    }
    const CatalogueMatches copy = kept;
    kept = CatalogueMatches();
    ASSERT_EQ(copy.Count(), 4);
    EXPECT_EQ(copy.At(2).path, s_second);
    EXPECT_EQ(copy.At(-1).file, QString());
    EXPECT_EQ(copy.At(4).file, QString());
}

} // namespace rvopen::test
