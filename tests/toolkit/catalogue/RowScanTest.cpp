// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "toolkit/catalogue/RowScan.h"
#include "../InAFolder.h"
#include "toolkit/catalogue/BlockStore.h"
#include "toolkit/edit/Folding.h"
#include "toolkit/edit/Labels.h"
#include "toolkit/edit/Placement.h"
#include "toolkit/images/ReferencedTextures.h"

#include <rvopen/toolkit/documents/Load.h>
#include <rvopen/toolkit/edit/NodePath.h>

#include <QStringList>

#include <string>

namespace rvopen::test {

using namespace toolkit;
using namespace toolkit::catalogue;

namespace {

/// The block of a file, with its bytes.
struct Scanned {
    explicit Scanned(const QString& path)
        : bytes(RowScan().blockOf(path, error))
        , block(viewOf(bytes))
    {
    }

    ReadError error;
    QByteArray bytes;
    Block block;
};

QString shown(const Block& block, TextId id)
{
    return toQString(block.text(id));
}

QString line(const QStringList& parts)
{
    return parts.join(QStringLiteral(" | "));
}

/// Everything that a row says, a line for each, but of the current snapshot.
QStringList rowsOf(const Block& block)
{
    QStringList lines;
    for (quint32 i = 0; i < block.head().rows; ++i) {
        const BlockRow row = block.row(i);
        if (row.folder == NoFolder)
            continue;
        QStringList parts{toQString(sectionOf(block, row)), toQString(foldersOf(block, row)),
                          toQString(pathOf(block, row))};
        for (const TextId id : {row.kind, row.name, row.refName, row.linkName, row.category,
                                row.subCategory, row.description, row.thumbnail})
            parts << shown(block, id);
        QStringList textures;
        for (quint32 at = 0; at < row.textures; ++at)
            textures << shown(block, block.item(row.firstItem + at));
        QStringList colours;
        for (quint32 at = 0; at < row.colours; ++at)
            colours << shown(block, block.item(row.firstItem + row.textures + at));
        lines << line(parts + textures + colours);
    }
    return lines;
}

/// The same of the document that is built of the file.
QStringList rowsOf(const Document& document)
{
    QStringList lines;
    forEachPreset(document.Root(), [&lines](const Preset& preset) {
        const auto value = [&preset](const char* name) {
            return preset.element.attribute(QLatin1String(name));
        };
        QStringList textures;
        QStringList colours;
        Walk(preset.element, QString(), [&](const QDomElement& element, const QString&) {
            const QString text = element.attribute(QStringLiteral("val"));
            if (!isParam(element))
                return true;
            if (!text.isEmpty() && !textures.contains(text) &&
                isTextureParam(element.parentNode().nodeName(),
                               element.attribute(QStringLiteral("name"))))
                textures << text;
            if (element.attribute(QStringLiteral("type")) == QLatin1String("colour") &&
                !colours.contains(text))
                colours << text;
            return true;
        });
        lines << line(QStringList{preset.section, preset.folder, preset.path,
                                  preset.element.tagName(), value("name"), value("refname"),
                                  value("linkname"), value("cat"), value("subcat"), value("desc"),
                                  value("imgname")} +
                      textures + colours);
    });
    return lines;
}

class RowScanTest : public InAFolder {
protected:
    void expectRowsOfTheDocument(const QString& path) const
    {
        ReadError error;
        const std::unique_ptr<Document> document = Document::Read(path, error);
        ASSERT_TRUE(document);
        const Scanned scanned(path);
        EXPECT_EQ(rowsOf(scanned.block), rowsOf(*document)) << path.toStdString();
        EXPECT_EQ(scanned.block.head().needsDom, 0U);
    }
};

} // namespace

TEST_F(RowScanTest, RowsAreThoseOfTheDocument)
{
    QVector<ReadError> problems;
    const QStringList files = DocumentsBelow(QStringLiteral(RVOPEN_DATA_DIR), problems);
    EXPECT_GT(files.size(), 7);
    for (const QString& file : files)
        expectRowsOfTheDocument(file);
}

TEST_F(RowScanTest, RowsAreThoseOfAnArchiveOfOddShape)
{
    expectRowsOfTheDocument(write(
        "a.rvx",
        "<presets><materials name='M'><dir name='a'><dir/><dir name='a'><material "
        "name='&lt;x&gt;'/>"
        "<material name='&lt;x&gt;'/><material refname='r'/><material linkname='l'/><material/>"
        "<material name='a]b*c\\'/><material name='@x'/><material name='a&#10;b'/></dir></dir>"
        "<param name='p'><material name='no'/></param><dir refname='d'><dir name='e'>"
        "<colour name='c' desc='\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80'/></dir></dir>"
        "<dir name='a'><colour/></dir></materials><materials name='M'><x/></materials><y/>text"
        "<z name=''><w name='' refname='q' cat='a\tb'/></z></presets>"));
}

TEST_F(RowScanTest, RowsAreThoseOfNamesThatBeginWithTheMarkOfAnEncoding)
{
    const QByteArray mark = "\xEF\xBB\xBF";
    expectRowsOfTheDocument(write("a.rvx", mark + "<presets><materials name='" + mark + mark +
                                               "M'><dir name='" + mark + "d]'><material name='" +
                                               mark + "' cat='" + mark + "c' desc='a" + mark +
                                               "'/></dir></materials></presets>"));
}

TEST_F(RowScanTest, RowsAreThoseOfWhatStandsInParts)
{
    expectRowsOfTheDocument(write(
        "a.rvx",
        "<presets><materials><material name='m'><colour><diffuse><param name='Colour' "
        "type='shader'><plainColour><param name='Colour' type='colour' val='1 0 0'/></plainColour>"
        "<map><param name='Texture' type='string' val='a\\b.png'/><param name='Texture' "
        "type='string' val='a\\b.png'/></map></param></diffuse></colour></material>"
        "</materials></presets>"));
}

TEST_F(RowScanTest, GivesThePlaceOfEachPreset)
{
    const QByteArray bytes = "<presets>\r\n<colours name='\xC3\xA4'><colour name='1'/>\r\n"
                             "<dir name='d'><colour name='2'>\xE2\x82\xAC<b/></colour></dir>"
                             "</colours></presets>";
    const Scanned scanned(write("a.rvx", bytes));
    const auto place = [&bytes](quint64 offset, quint64 length) {
        return bytes.mid(int(offset), int(length));
    };
    ASSERT_EQ(scanned.block.head().rows, 2U);
    const BlockRow first = scanned.block.row(0);
    const BlockRow second = scanned.block.row(1);
    EXPECT_EQ(place(first.offset, first.length), "<colour name='1'/>");
    EXPECT_EQ(place(second.offset, second.length), "<colour name='2'>\xE2\x82\xAC<b/></colour>");
    const BlockFolder folder = scanned.block.folder(second.folder);
    EXPECT_EQ(place(folder.offset, folder.length), "<dir name='d'>");
    EXPECT_EQ(place(scanned.block.head().rootOffset, scanned.block.head().rootLength), "<presets>");
}

TEST_F(RowScanTest, TellsTheCurrentSnapShotFromTheOthers)
{
    const Scanned scanned(
        write("a.xml", "<snapRoot><snapshots name='S'><snapshot name='a'/></snapshots>"
                       "<snapshot name='CurrSnapshot'><camera name='c'/></snapshot></snapRoot>"));
    ASSERT_EQ(scanned.block.head().rows, 3U);
    const BlockRow current = scanned.block.row(1);
    EXPECT_EQ(current.folder, NoFolder);
    EXPECT_EQ(shown(scanned.block, current.name), QStringLiteral("CurrSnapshot"));
    EXPECT_EQ(current.length, 59U);
    EXPECT_EQ(pathOf(scanned.block, scanned.block.row(2)), "snapshot[CurrSnapshot]/camera[c]");
}

TEST_F(RowScanTest, KeepsNumbersOfFinishesAndTheFirstPlainColour)
{
    const Scanned scanned(write(
        "a.rvx",
        "<presets><materials><material><plainColour><param name='Colour' type='colour' val='1 0 "
        "0'/></plainColour><plainColour><param name='Colour' type='colour' val='0 1 "
        "0'/></plainColour><finish><param name='roughness' type='float' val='0.5'/><param "
        "name='x' type='string' val='y'/></finish></material></materials></presets>"));
    const Block& block = scanned.block;
    const BlockRow row = block.row(0);
    EXPECT_EQ(shown(block, row.plainColour), QStringLiteral("1 0 0"));
    ASSERT_EQ(row.numbers, 1U);
    const quint32 at = row.firstItem + row.textures + row.colours;
    EXPECT_EQ(shown(block, block.item(at)), QStringLiteral("roughness"));
    EXPECT_EQ(shown(block, block.item(at + 1)), QStringLiteral("0.5"));
}

TEST_F(RowScanTest, OtherArchivesAreFoldersWithAReference)
{
    const Scanned scanned(write(
        "a.rvx", "<presets><colours><dir name='d' archiveFilename='b.rvx'/></colours></presets>"));
    EXPECT_EQ(scanned.block.head().rows, 0U);
    EXPECT_EQ(shown(scanned.block, scanned.block.folder(1).archive), QStringLiteral("b.rvx"));
}

TEST_F(RowScanTest, LeavesNamesInNamespacesToTheDocument)
{
    for (const char* const text :
         {"<presets xmlns:p='u'><colours/></presets>",
          "<presets><colours><c xml:name='n'/></colours></presets>", "<presets><param/></presets>"})
        EXPECT_EQ(Scanned(write("a.rvx", text)).block.head().needsDom, 1U) << text;
    EXPECT_EQ(Scanned(write("a.rvx", "<p:a xmlns='u' q:b='1'/>")).block.head().needsDom, 0U);
}

TEST_F(RowScanTest, SaysWhyThereIsNoBlock)
{
    const Scanned scanned(write("a.rvx", "<presets>\n<colours></presets>"));
    EXPECT_FALSE(scanned.block.isValid());
    EXPECT_EQ(scanned.error.line, 2);
    EXPECT_EQ(scanned.error.message, QStringLiteral("The element \"colours\" is not closed"));
}

TEST_F(RowScanTest, TextsAreFoldedAsSearchesFoldThem)
{
    const QStringList texts{QStringLiteral("Plain ASCII"), QString::fromUtf8("Größe CAFÉ"),
                            QString::fromUtf8("ǅ İ ﬁ \u00df"), QString::fromUtf8("😀雪")};
    QString archive = QStringLiteral("<presets><colours>");
    for (const QString& text : texts)
        archive += QStringLiteral("<colour name='%1'/>").arg(text);
    const Scanned scanned(
        write("a.rvx", (archive + QStringLiteral("</colours></presets>")).toUtf8()));
    for (int i = 0; i < int(texts.size()); ++i) {
        const TextId name = scanned.block.row(quint32(i)).name;
        EXPECT_EQ(toQString(scanned.block.foldedText(name)), folded(texts[i]));
        EXPECT_EQ(toQString(scanned.block.caseFoldedText(name)), texts[i].toCaseFolded());
    }
}

TEST_F(RowScanTest, AWordIsFoundInTheTextsThatHaveItFolded)
{
    // Names that end as words begin, that have a word only before they are folded, or only then,
    // and one that is the end of all.
    const QStringList names{
        QStringLiteral("Oak"),          QStringLiteral("soaked oak"), QStringLiteral("o"),
        QStringLiteral("ak"),           QStringLiteral("OAK"),        QString::fromUtf8("Öak"),
        QString::fromUtf8("o\u0308ak"), QString::fromUtf8("Straße"),  QStringLiteral("strasse 7"),
        QString::fromUtf8("雪 oak 雪")};
    QString archive = QStringLiteral("<presets><colours>");
    for (const QString& name : names)
        archive += QStringLiteral("<colour name='%1'/>").arg(name);
    const Scanned scanned(
        write("a.rvx", (archive + QStringLiteral("</colours></presets>")).toUtf8()));
    int found = 0;
    for (const char* const word : {"oak", "ak", "k", "strasse", "strase", "雪", "7", "ss", "no"}) {
        const std::vector<bool> with = scanned.block.textsWith(word);
        for (int i = 0; i < int(names.size()); ++i) {
            const TextId name = scanned.block.row(quint32(i)).name;
            const bool has = folded(names[i]).contains(QString::fromUtf8(word));
            EXPECT_EQ(with[name], has) << word << " in " << names[i].toStdString();
            found += has;
        }
    }
    EXPECT_EQ(found, 26);
}

TEST(Block, BytesThatAreNoneAreOfNoDocument)
{
    EXPECT_FALSE(Block("").isValid());
    EXPECT_FALSE(Block("no block").isValid());
    BlockWriter writer;
    writer.rows.resize(2);
    const QByteArray bytes = writer.bytes();
    const std::string_view whole = viewOf(bytes);
    EXPECT_TRUE(Block(whole).isValid());
    for (std::size_t size = 0; size < whole.size(); ++size)
        EXPECT_FALSE(Block(whole.substr(0, size)).isValid()) << size;
}

TEST(Block, WhatIsAskedForBeyondItsEndIsEmpty)
{
    BlockWriter writer;
    writer.folders.resize(1);
    writer.folders[0].parent = 0;
    writer.rows.resize(1);
    writer.rows[0].name = 1000;
    const QByteArray bytes = writer.bytes();
    const Block block(viewOf(bytes));
    EXPECT_EQ(block.text(block.row(0).name), "");
    EXPECT_EQ(block.text(2), "");
    EXPECT_EQ(block.item(7), 0U);
    EXPECT_EQ(block.row(5).folder, NoFolder);
    EXPECT_EQ(block.folder(0).parent, NoFolder);
}

TEST(Block, TextsAreOrderedAsQtOrdersThem)
{
    const QStringList texts{QString(),
                            QStringLiteral("a"),
                            QStringLiteral("ab"),
                            QStringLiteral("b"),
                            QString::fromUtf8("ä"),
                            QString::fromUtf8("€"),
                            QString::fromUtf8("퟿"),
                            QString::fromUtf8("😀"),
                            QString::fromUtf8("\uE000"),
                            QString::fromUtf8("\uFFFD"),
                            QString::fromUtf8("a😀"),
                            QString::fromUtf8("a\uFFFD")};
    const auto sign = [](int number) { return (number > 0) - (number < 0); };
    for (const QString& a : texts) {
        for (const QString& b : texts)
            EXPECT_EQ(compared(a.toStdString(), b.toStdString()), sign(QString::compare(a, b)))
                << a.toStdString() << ' ' << b.toStdString();
    }
}

TEST(Block, NoChangedByteKeepsTheChecksum)
{
    std::string bytes(77, 'x');
    const quint64 sum = checksum(bytes);
    for (char& byte : bytes) {
        for (int bit = 0; bit < 8; ++bit) {
            const char before = byte;
            byte = static_cast<char>(byte ^ (1 << bit));
            EXPECT_NE(checksum(bytes), sum);
            byte = before;
        }
    }
    EXPECT_NE(checksum(bytes + '\0'), sum);
}

} // namespace rvopen::test
