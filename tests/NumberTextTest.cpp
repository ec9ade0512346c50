// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include "TestSupport.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <random>

namespace rvopen::test {
namespace {

struct NumberText : ::testing::Test {
    QDomDocument document = parse(QStringLiteral("<item/>"));
    std::unique_ptr<RVOpenNode> node = bind(document.documentElement());

    QString written(float value)
    {
        node->SetAttributeFloat("a", value);
        return document.documentElement().attribute(QStringLiteral("a"));
    }

    float read(const QString& text)
    {
        document.documentElement().setAttribute(QStringLiteral("a"), text);
        float value = -77.5f;
        node->GetAttributeFloat("a", &value);
        return value;
    }
};

bool areSameBits(float a, float b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

/// Of every size, those of scenes more often than others.
float anyNumber(std::mt19937& random, int i)
{
    const auto bits = static_cast<quint32>(random());
    if (i % 3 == 0)
        return static_cast<float>(static_cast<int>(bits % 2000001) - 1000000) / 1000.0f;
    if (i % 3 == 1)
        return std::ldexp(static_cast<float>(bits % 16777216), -static_cast<int>(random() % 40));
    float value = 0.0f;
    std::memcpy(&value, &bits, sizeof value);
    return std::isnan(value) ? 0.0f : value;
}

QString anyText(std::mt19937& random)
{
    const char characters[] = "01234567899.-+ e";
    QString text;
    for (auto length = random() % 20 + 1; length > 0; --length)
        text += QLatin1Char(characters[random() % (random() % 4 == 0 ? 16 : 12)]);
    return text;
}

TEST_F(NumberText, AnyNumberIsWrittenWithSixSignificantDigits)
{
    std::mt19937 random(1);
    for (int i = 0; i < 60000; ++i) {
        const float value = anyNumber(random, i);
        ASSERT_EQ(written(value), QString::number(static_cast<double>(value), 'g', 6));
    }
}

TEST_F(NumberText, NumbersAtTheBordersAreWrittenWithSixSignificantDigits)
{
    const float infinite = std::numeric_limits<float>::infinity();
    for (const float border : {0.0f, 1e-4f, 1e-3f, 0.01f, 0.1f, 1.0f, 100000.5f, 999999.5f, 1e6f}) {
        for (const float value :
             {std::nextafter(border, -infinite), border, std::nextafter(border, infinite)}) {
            ASSERT_EQ(written(value), QString::number(static_cast<double>(value), 'g', 6));
            ASSERT_EQ(written(-value), QString::number(static_cast<double>(-value), 'g', 6));
        }
    }
}

TEST_F(NumberText, AnyTextIsReadToTheSameBits)
{
    std::mt19937 random(2);
    for (int i = 0; i < 60000; ++i) {
        const QString text = anyText(random);
        ASSERT_TRUE(areSameBits(read(text), text.toFloat())) << text.toStdString();
    }
}

TEST_F(NumberText, AnyTextIsReadAsTheSameTriple)
{
    std::mt19937 random(3);
    for (int i = 0; i < 20000; ++i) {
        QString text = anyText(random) + QLatin1Char(' ') + anyText(random) + QLatin1Char(' ') +
                       anyText(random);
        float values[3] = {};
        node->DecodeFloat3(text, values, values + 1, values + 2);
        float expected[3] = {};
        QTextStream(&text, QIODevice::ReadOnly) >> expected[0] >> expected[1] >> expected[2];
        for (int j = 0; j < 3; ++j)
            ASSERT_TRUE(areSameBits(values[j], expected[j])) << text.toStdString();
    }
}

} // namespace
} // namespace rvopen::test
