// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "Output.h"

#include "../../toolkit/Parts.h"

#include <rvopen/toolkit/documents/Failure.h>

#include <cstdio>
#include <functional>

namespace rvopen::test {

namespace {

using namespace command;
using toolkit::Failure;

/// What is written into a file meanwhile.
std::string written(const std::function<void(Output&)>& write)
{
    std::FILE* const file = std::tmpfile();
    {
        Output out(file);
        write(out);
    }
    std::string text(std::size_t(std::ftell(file)), '\0');
    std::rewind(file);
    EXPECT_EQ(std::fread(&text[0], 1, text.size(), file), text.size());
    std::fclose(file);
    return text;
}

} // namespace

TEST(Visible, ControlsAndTurnsOfDirectionAreEscaped)
{
    const struct {
        uint code;
        bool isEscaped;
    } cases[] = {{0x0, true},     {0x1f, true},   {0x20, false},   {0x7e, false},   {0x7f, true},
                 {0x9f, true},    {0xa0, false},  {0x61b, false},  {0x61c, true},   {0x61d, false},
                 {0x200d, false}, {0x200e, true}, {0x200f, true},  {0x2010, false}, {0x2029, false},
                 {0x202a, true},  {0x202e, true}, {0x202f, false}, {0x2065, false}, {0x2066, true},
                 {0x2067, true},  {0x2068, true}, {0x2069, true},  {0x206a, false}};
    for (const auto& one : cases) {
        const QString text = QLatin1String("a") + QChar(ushort(one.code)) + QLatin1String("b");
        const QString escaped = QStringLiteral("a\\u%1b").arg(one.code, 4, 16, QLatin1Char('0'));
        EXPECT_EQ(visible(text), one.isEscaped ? escaped : text) << std::hex << one.code;
        // Qt itself escapes the first of them in JSON.
        if (one.code >= 0x20) {
            const std::string json = written([&text](Output& out) {
                out.json(QJsonObject{{QStringLiteral("x"), text}});
            });
            EXPECT_EQ(json.find(text.toStdString()) == std::string::npos, one.isEscaped)
                << std::hex << one.code;
            EXPECT_EQ(json.find(escaped.toStdString()) != std::string::npos, one.isEscaped)
                << std::hex << one.code;
        }
    }
    EXPECT_EQ(visible(QStringLiteral("a\nb\tc")), QStringLiteral("a\\nb\\tc"));
}

TEST(DisplayWidth, CountsColumnsOfATerminal)
{
    const struct {
        uint code;
        int width;
    } cases[] = {
        {'a', 1},     {0xe4, 1},    {0x301, 0},   {0x20dd, 0},  {0x200b, 0},  {0x10ff, 1},
        {0x1100, 2},  {0x115f, 2},  {0x1160, 1},  {0x2e7f, 1},  {0x2e80, 2},  {0x96ea, 2},
        {0xa4cf, 2},  {0xa4d0, 1},  {0xabff, 1},  {0xac00, 2},  {0xd7a3, 2},  {0xd7a4, 1},
        {0xf8ff, 1},  {0xf900, 2},  {0xfaff, 2},  {0xfb00, 1},  {0xfe2f, 0},  {0xfe30, 2},
        {0xfe6f, 2},  {0xfe70, 1},  {0xfeff, 0},  {0xff00, 2},  {0xff60, 2},  {0xff61, 1},
        {0xffdf, 1},  {0xffe0, 2},  {0xffe6, 2},  {0xffe7, 1},  {0x1f2ff, 1}, {0x1f300, 2},
        {0x1faff, 2}, {0x1fb00, 1}, {0x1ffff, 1}, {0x20000, 2}, {0x3fffd, 2}, {0x3fffe, 1}};
    for (const auto& one : cases) {
        const char32_t code = one.code;
        EXPECT_EQ(displayWidth(QString::fromUcs4(&code, 1).toStdString()), one.width)
            << std::hex << one.code;
    }
    EXPECT_EQ(displayWidth(std::string()), 0);
    EXPECT_EQ(displayWidth("Größe"), 5);
    EXPECT_EQ(displayWidth("eight or more: Größe"), 20);
}

// Eight bytes are looked at together: each character at each place among them, with another before
// and behind.
TEST(Visible, IsTheSameInBytes)
{
    for (char16_t c = 1; c < 0x120; ++c) {
        for (int before = 0; before < 10; ++before) {
            for (const int behind : {0, 1, 7, 8}) {
                const QString text = QString(before, QLatin1Char('a')) + QChar(c) +
                                     QString(behind, QLatin1Char('~'));
                std::string bytes = text.toStdString();
                makeVisible(bytes);
                ASSERT_EQ(bytes, visible(text).toStdString()) << before << " before " << int(c);
            }
        }
    }
}

TEST(Counted, HasThePluralForAllButOne)
{
    EXPECT_EQ(counted(0, QStringLiteral("file")), QStringLiteral("0 files"));
    EXPECT_EQ(counted(1, QStringLiteral("file")), QStringLiteral("1 file"));
    EXPECT_EQ(counted(2, QStringLiteral("file")), QStringLiteral("2 files"));
    EXPECT_EQ(counted(2, QStringLiteral("lens"), QStringLiteral("lenses")),
              QStringLiteral("2 lenses"));
}

TEST(ReadableSize, HasTwoDigitsOrMore)
{
    const struct {
        qint64 bytes;
        const char* text;
    } cases[] = {
        {0, "0 bytes"},      {1, "1 byte"},          {999, "999 bytes"},        {1000, "1.0 kB"},
        {9900, "9.9 kB"},    {10000, "10 kB"},       {999000, "999 kB"},        {1000000, "1.0 MB"},
        {1234567, "1.2 MB"}, {2000000000, "2.0 GB"}, {5000000000000, "5000 GB"}};
    for (const auto& one : cases)
        EXPECT_EQ(readableSize(one.bytes).toStdString(), one.text);
}

TEST(Table, AlignsColumnsByTheirWidthOnTheTerminal)
{
    Table table;
    EXPECT_TRUE(table.isEmpty());
    table.row({{QStringLiteral("a")}, {QStringLiteral("bb")}, {QStringLiteral("c")}});
    table.row({{QStringLiteral("雪雪")}, {QStringLiteral("b")}, {QString()}});
    table.row({{QStringLiteral("x\u202e")}, {QString()}, {QStringLiteral("c")}});
    EXPECT_FALSE(table.isEmpty());
    EXPECT_EQ(written([&table](Output& out) { table.print(out, 1); }),
              " a        bb  c\n 雪雪     b\n x\\u202e      c\n");
}

TEST(Output, IsColouredWhenItIsToBe)
{
    for (const char* const when : {"always", "never", "auto"}) {
        const std::string text = written([when](Output& out) {
            out.setColour(QLatin1String(when));
            out.text(out.styled(QStringLiteral("a"), Style::Red));
            out.text(out.styled(QStringLiteral("b"), Style::Plain));
            out.text(out.styled(QString(), Style::Green));
            out.line();
        });
        EXPECT_EQ(text,
                  QLatin1String(when) == QLatin1String("always") ? "\033[31ma\033[0mb\n" : "ab\n");
    }
}

TEST(Output, ThatCannotBeWrittenIsAFailure)
{
    std::FILE* const full = std::fopen("/dev/full", "w");
    ASSERT_TRUE(full);
    {
        Output out(full);
        out.line(QStringLiteral("x"));
        EXPECT_THROW(out.flush(), Failure);
        // More than is kept back.
        EXPECT_NO_THROW(out.bytes(std::string(65536, 'x')));
        EXPECT_THROW(out.bytes("x"), Failure);
    }
    std::fclose(full);
}

} // namespace rvopen::test
