// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../starter/Comparison.h"
#include "../starter/Tables.h"
#include "StarterSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QTemporaryDir>

/// The tables that the starter installation is made of, and how what was made is compared.
namespace rvopen::test {
namespace {

class TableTest : public ::testing::TestWithParam<std::string> {};

TEST_P(TableTest, TellsOfEachRowWhereItIsFrom)
{
    const QVector<starter::Row> rows = starter::readTable(QString::fromStdString(GetParam()));
    EXPECT_FALSE(rows.isEmpty());
    for (const starter::Row& row : rows)
        EXPECT_TRUE(row.has("source")) << row.place().toStdString();
}

INSTANTIATE_TEST_SUITE_P(Tables, TableTest,
                         ::testing::ValuesIn(filesBelow(
                             QStringLiteral(RVOPEN_DATA_DIR "/../starter/tables"), {"*.csv"})));

/// A folder with one file.
class OneFile {
public:
    explicit OneFile(const QString& name = QStringLiteral("a.csv"))
        : path(m_folder.path() + '/' + name)
    {
    }

    void write(const QByteArray& bytes) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    void write(const QImage& image) const
    {
        ASSERT_TRUE(image.save(path, nullptr, 90));
    }

    QString folder() const
    {
        return m_folder.path();
    }

private:
    QTemporaryDir m_folder;

public:
    const QString path;
};

TEST(Table, TakesARowWithASourceThatItTellsOf)
{
    const OneFile table;
    table.write("# [iso] A standard.\nname,source\nA4,iso\n");
    EXPECT_EQ(starter::readTable(table.path).size(), 1);
}

TEST(Table, RefusesARowWithoutASource)
{
    const OneFile table;
    table.write("# [iso] A standard.\nname,source\nA4,iso\nA5,\n");
    EXPECT_THROW(starter::readTable(table.path), starter::Failure);
}

TEST(Table, RefusesARowWithASourceThatNoNoteTellsOf)
{
    const OneFile table;
    table.write("# [iso] A standard.\nname,source\nA4,iso\nA5,din\n");
    EXPECT_THROW(starter::readTable(table.path), starter::Failure);
}

TEST(Table, RefusesASourceThatNoRowIsFrom)
{
    const OneFile table;
    table.write("# [iso] A standard.\n# [din] Another.\nname,source\nA4,iso\n");
    EXPECT_THROW(starter::readTable(table.path), starter::Failure);
}

TEST(Table, RefusesATableWithoutSources)
{
    const OneFile table;
    table.write("name\nA4\n");
    EXPECT_THROW(starter::readTable(table.path), starter::Failure);
}

QImage slope(int side, int lighter)
{
    QImage image(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            image.setPixel(x, y, qRgb(2 * x + lighter, 2 * y + lighter, 100 + lighter));
    }
    return image;
}

/// What is said of two pictures in files of that name.
QStringList compared(const char* name, const QImage& kept, const QImage& made)
{
    const OneFile a((QLatin1String(name)));
    const OneFile b((QLatin1String(name)));
    a.write(kept);
    b.write(made);
    return starter::differences(a.folder(), b.folder());
}

TEST(Comparison, TakesThePictureThatIsTheSame)
{
    EXPECT_EQ(compared("a.jpg", slope(64, 0), slope(64, 0)), QStringList());
}

TEST(Comparison, TakesAPictureThatAnEncoderRoundedOtherwise)
{
    EXPECT_EQ(compared("a.jpg", slope(64, 0), slope(64, 1)), QStringList());
}

TEST(Comparison, SeesAPictureThatIsLighterAllOver)
{
    EXPECT_EQ(compared("a.jpg", slope(64, 0), slope(64, 4)).size(), 1);
}

TEST(Comparison, SeesASpotInAPicture)
{
    QImage spotted = slope(64, 0);
    for (int i = 0; i < 4; ++i)
        spotted.setPixel(30 + i % 2, 30 + i / 2, qRgb(255, 0, 0));
    EXPECT_EQ(compared("a.jpg", slope(64, 0), spotted).size(), 1);
}

TEST(Comparison, SeesAPictureOfAnotherSize)
{
    EXPECT_EQ(compared("a.jpg", slope(64, 0), slope(63, 0)).size(), 1);
}

TEST(Comparison, HoldsImagesToTheLastLevelOfAPixel)
{
    QImage changed = slope(64, 0);
    changed.setPixel(5, 5, qRgb(10, 10, 101));
    EXPECT_EQ(compared("a.png", slope(64, 0), slope(64, 0)), QStringList());
    EXPECT_EQ(compared("a.png", slope(64, 0), changed).size(), 1);
}

TEST(Comparison, HoldsImagesToTheirPixelsHoweverTheyAreCompressed)
{
    const OneFile a(QStringLiteral("a.png"));
    const OneFile b(QStringLiteral("a.png"));
    ASSERT_TRUE(slope(64, 0).save(a.path, "PNG", 0));
    ASSERT_TRUE(slope(64, 0).save(b.path, "PNG", 100));
    ASSERT_NE(QFileInfo(a.path).size(), QFileInfo(b.path).size());
    EXPECT_EQ(starter::differences(a.folder(), b.folder()), QStringList());
}

TEST(Comparison, SeesAPictureThatIsNone)
{
    const OneFile a(QStringLiteral("a.jpg"));
    const OneFile b(QStringLiteral("a.jpg"));
    a.write(slope(8, 0));
    b.write(QByteArray("no picture"));
    EXPECT_EQ(starter::differences(a.folder(), b.folder()).size(), 1);
}

TEST(Comparison, HoldsDocumentsToTheirBytes)
{
    const OneFile a(QStringLiteral("a.rvx"));
    const OneFile b(QStringLiteral("a.rvx"));
    a.write(QByteArray("<presets/>"));
    b.write(QByteArray("<presets/>\n"));
    EXPECT_EQ(starter::differences(a.folder(), b.folder()).size(), 1);
    b.write(QByteArray("<presets/>"));
    EXPECT_EQ(starter::differences(a.folder(), b.folder()), QStringList());
}

TEST(Comparison, SeesFilesThatOnlyOneSideHas)
{
    const OneFile a(QStringLiteral("a.rvx"));
    const OneFile b(QStringLiteral("b.rvx"));
    a.write(QByteArray("x"));
    b.write(QByteArray("x"));
    EXPECT_EQ(starter::differences(a.folder(), b.folder()).size(), 2);
}

} // namespace
} // namespace rvopen::test
