// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Program.h"

namespace rvopen::test {

namespace {

QByteArray colour(const QByteArray& name, const QByteArray& value)
{
    return "<colour name=\"" + name + "\" refname=\"c." + name +
           "\"><diffuse><plainColour><param name=\"Colour\" type=\"colour\" val=\"" + value +
           "\"/></plainColour></diffuse></colour>";
}

/// Colours, textures, and presets that are made of others.
QByteArray manyColours()
{
    return "<presets><colours><dir name=\"Früchte\">" + colour("Apple", "1 0 0") +
           colour("Cherry", "0.9 0 0.1") + colour("Lime", "0 1 0") + "</dir>" +
           colour("Again", "1.0 0 0.00") +
           "<colour name=\"Oak\"><diffuse><map><param name=\"Texture\" type=\"string\" "
           "val=\"textures\\Woods\\Oak.png\"/></map></diffuse></colour></colours><materials>"
           "<material name=\"Fruit\" refname=\"m.fruit\" cat=\"Café\"><colour refname=\"c.Apple\"/>"
           "</material></materials></presets>";
}

class Finding : public ::testing::Test {
protected:
    Finding()
    {
        workspace.write(QStringLiteral("a.rvx"), manyColours());
        workspace.write(QStringLiteral("b.xml"),
                        "<snapRoot><snapshot name=\"CurrSnapshot\"><materialRepository><material "
                        "name=\"Red\" refname=\"m.fruit\"/></materialRepository></snapshot>"
                        "</snapRoot>");
    }

    /// What is found, each by one of its members.
    std::string found(const char* line, const char* member = "name") const
    {
        const Outcome run = workspace.run(line);
        EXPECT_TRUE(isOfSchema(run, QStringLiteral("find"))) << line;
        QStringList list;
        for (const auto& hit : run.json()[QStringLiteral("found")].toArray())
            list << hit.toObject()[QLatin1String(member)].toVariant().toString();
        EXPECT_EQ(run.code, list.isEmpty() ? 1 : 0) << line << run.err.toStdString();
        return list.join(QLatin1Char(' ')).toStdString();
    }

    Workspace workspace;
};

} // namespace

TEST_F(Finding, ByTexture)
{
    EXPECT_EQ(found("find --json --texture OAK.png a.rvx b.xml"), "Oak");
    EXPECT_EQ(found("find --json --texture *oak* a.rvx", "at"),
              "colours/colour[Oak]/diffuse/map:Texture");
    EXPECT_EQ(found("find --json --texture woods/oak.png a.rvx", "value"),
              "textures\\Woods\\Oak.png");
    EXPECT_EQ(found("find --json --texture stones/oak.png a.rvx"), "");
    EXPECT_EQ(found("find --json --texture oak a.rvx"), "");
}

TEST_F(Finding, ByColourTheNearestFirst)
{
    EXPECT_EQ(found("find --json --colour #ff0000 a.rvx"), "Apple Again Cherry");
    EXPECT_EQ(found("find --json --colour '0.9 0 0.1' a.rvx"), "Cherry Apple Again");
    EXPECT_EQ(found("find --json --colour #ff0000 --within 0 a.rvx"), "Apple Again");
    EXPECT_EQ(found("find --json --colour #ff0000 --within 0 a.rvx", "distance"), "0 0");
    EXPECT_EQ(found("find --json --colour #0000ff a.rvx"), "");
}

TEST_F(Finding, ByEqualContent)
{
    EXPECT_EQ(found("find --json --equal a.rvx"), "Apple Again");
    EXPECT_EQ(found("find --json --equal a.rvx", "group"), "1 1");
    workspace.write(QStringLiteral("c.rvx"), manyColours());
    EXPECT_EQ(found("find --json --equal --select Cherry a.rvx c.rvx", "file"), "a.rvx c.rvx");
}

TEST_F(Finding, ByUsers)
{
    EXPECT_EQ(found("find --json --users c.Apple a.rvx b.xml"), "Fruit");
    EXPECT_EQ(found("find --json --users m.fruit a.rvx b.xml", "at"),
              "snapshot[CurrSnapshot]/materialRepository/material[Red]");
    EXPECT_EQ(found("find --json --type material --users m.fruit b.xml"), "Red");
}

TEST_F(Finding, ByWordsWithoutAccentsAndCase)
{
    EXPECT_EQ(found("find --json --text CAFE a.rvx b.xml"), "Fruit");
    EXPECT_EQ(found("find --json --text 'fruchte lime' a.rvx"), "Lime");
    EXPECT_EQ(found("find --json --text m.fruit a.rvx b.xml"), "Fruit Red");
}

TEST_F(Finding, AmongWhatIsSelected)
{
    EXPECT_EQ(found("find --json --colour #ff0000 --select dir a.rvx"), "Apple Cherry");
}

TEST_F(Finding, TheSameInRowsAsInDocuments)
{
    const QByteArray archive = manyColours().replace(
        "</colours>", colour("Commas", "1,0,0") + colour("None", "") + colour("Word", "red") +
                          colour("Three", "1 0 0 1") + "<colour refname=\"c.x\"/></colours>");
    // With a prefix the document is built.
    const QByteArray prefixed = QByteArray(archive).replace("<presets>", "<presets xmlns:p=\"u\">");
    ASSERT_NE(prefixed, archive);
    int lines = 0;
    for (const char* const line :
         {"find --text c. a.rvx", "find --type colour a.rvx", "find --category cafe a.rvx",
          "find --colour #ff0000 a.rvx", "find --colour #000000 --within 30 a.rvx",
          "find --colour #ff0000 --within 0 --text früchte a.rvx", "find --texture *oak* a.rvx",
          "find --texture * --type colours a.rvx", "find --category Cafe --texture x a.rvx",
          "find --category Cafee a.rvx", "find --users c.Apple a.rvx", "find --equal a.rvx"}) {
        for (const char* const form : {"", " --json"}) {
            const QByteArray whole = QByteArray(line) + form;
            workspace.write(QStringLiteral("a.rvx"), archive);
            const Outcome rows = workspace.run(whole.constData());
            workspace.write(QStringLiteral("a.rvx"), prefixed);
            const Outcome documents = workspace.run(whole.constData());
            EXPECT_EQ(rows.out, documents.out) << line;
            lines += int(rows.lines().size());
            EXPECT_EQ(rows.err, documents.err) << line;
            EXPECT_EQ(rows.code, documents.code) << line;
        }
    }
    EXPECT_GT(lines, 25);
}

TEST_F(Finding, InTheOrderOfFiles)
{
    workspace.write(QStringLiteral("c.rvx"),
                    manyColours().replace("<presets>", "<presets xmlns:p=\"u\">"));
    EXPECT_EQ(found("find --json --text m.fruit c.rvx a.rvx b.xml", "file"), "c.rvx a.rvx b.xml");
}

TEST_F(Finding, TellsWhatIsNoDocumentAndFindsTheRest)
{
    workspace.write(QStringLiteral("c.rvx"), QByteArray("\xff\xd8\xff\xe0\0\x10JFIF", 10));
    const Outcome run = workspace.run("find --text m.fruit c.rvx a.rvx");
    EXPECT_THAT(run.err.toStdString(),
                ::testing::HasSubstr(": This is a JPEG picture, no document\n"));
    EXPECT_EQ(run.lines().size(), 1);
    EXPECT_EQ(run.code, 2);
}

TEST_F(Finding, PrintsWhere)
{
    EXPECT_EQ(workspace.run("find --colour #00ff00 --within 1 a.rvx").out,
              QString::fromUtf8("colour  Lime  0.00  0 1 0  a.rvx: colours/dir[Früchte]/"
                                "colour[Lime]/diffuse/plainColour:Colour\n"));
}

TEST_F(Finding, NeedsToKnowWhatAndWhere)
{
    for (const char* const line :
         {"find a.rvx", "find --equal", "find --colour reddish a.rvx", "find --within 3 a.rvx",
          "find --within 0 --text x a.rvx", "find --equal --users x a.rvx"})
        EXPECT_EQ(workspace.run(line).code, 2) << line;
}

} // namespace rvopen::test
