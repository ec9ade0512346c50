// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../ReadTexts.h"

#include <gtest/gtest.h>

namespace rvopen::test {

using namespace toolkit;

class NumberOf : public ::testing::TestWithParam<TextCase> {};

TEST_P(NumberOf, TheTextIsThis)
{
    EXPECT_EQ(valueOf(ToNumber, GetParam().text, 77.0), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, NumberOf,
                         ::testing::Values(TextCase{"1", "1"}, TextCase{"-0.5", "-0.5"},
                                           TextCase{"1e3", "1000"}, TextCase{"3.4e38", "3.4e+38"},
                                           TextCase{"3.5e38", "refused"},
                                           TextCase{"-3.5e38", "refused"},
                                           TextCase{"nan", "refused"}, TextCase{"inf", "refused"},
                                           TextCase{"", "refused"}, TextCase{"1,5", "refused"},
                                           TextCase{"1 2", "refused"}, TextCase{"x", "refused"}));

class IntegerOf : public ::testing::TestWithParam<TextCase> {};

TEST_P(IntegerOf, TheTextIsThis)
{
    EXPECT_EQ(valueOf(ToInteger, GetParam().text, 77), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, IntegerOf,
                         ::testing::Values(TextCase{"1", "1"}, TextCase{"-12", "-12"},
                                           TextCase{"2147483648", "refused"},
                                           TextCase{"1.0", "refused"}, TextCase{"", "refused"},
                                           TextCase{"0x10", "refused"}));

class TripleOf : public ::testing::TestWithParam<TextCase> {};

TEST_P(TripleOf, TheTextIsThis)
{
    EXPECT_EQ(tripleOf(ToTriple, GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, TripleOf,
                         ::testing::Values(TextCase{"1 2 3", "1 2 3"},
                                           TextCase{" 1\n 2\t3 ", "1 2 3"},
                                           TextCase{"1,2,3", "refused"}, TextCase{"1 2", "refused"},
                                           TextCase{"1 2 3 4", "refused"},
                                           TextCase{"1 2 x", "refused"},
                                           TextCase{"x 2 3", "refused"}, TextCase{"", "refused"}));

TEST(NumberText, HasSixSignificantDigits)
{
    const struct {
        double number;
        const char* text;
    } cases[] = {{0, "0"},           {1, "1"},
                 {0.1, "0.1"},       {1.0 / 3, "0.333333"},
                 {123456, "123456"}, {1234567, "1.23457e+06"},
                 {-2.5, "-2.5"},     {0.00001, "1e-05"}};
    for (const auto& one : cases)
        EXPECT_EQ(NumberText(one.number).toStdString(), one.text);
}

TEST(XmlText, HasNoCharacterThatNoDocumentMayContain)
{
    const struct {
        uint code;
        bool isGood;
    } cases[] = {{0x0, false},   {0x8, false},    {0x9, true},     {0xa, true},     {0xb, false},
                 {0xc, false},   {0xd, true},     {0xe, false},    {0x1f, false},   {0x20, true},
                 {0x7f, true},   {0xd7ff, true},  {0xd800, false}, {0xdfff, false}, {0xe000, true},
                 {0xfffd, true}, {0xfffe, false}, {0xffff, false}, {0x10000, true}};
    for (const auto& one : cases) {
        QString text = QStringLiteral("a");
        if (one.code < 0x10000)
            text += QChar(ushort(one.code));
        else
            text += QString::fromUtf8("\xf0\x90\x80\x80");
        EXPECT_EQ(IsXmlText(text), one.isGood) << std::hex << one.code;
    }
    EXPECT_TRUE(IsXmlText(QString()));
}

} // namespace rvopen::test
