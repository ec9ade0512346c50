// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "../Parts.h"
#include "../ReadTexts.h"
#include "toolkit/edit/TypedText.h"

#include <rvopen/toolkit/edit/ParamValues.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace rvopen::test {

using namespace toolkit;

class TypedBoolean : public ::testing::TestWithParam<TextCase> {};

TEST_P(TypedBoolean, TheTextIsThis)
{
    for (const bool before : {false, true})
        EXPECT_EQ(valueOf(toBoolean, GetParam().text, before), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedBoolean,
                         ::testing::Values(TextCase{"true", "1"}, TextCase{"YES", "1"},
                                           TextCase{"On", "1"}, TextCase{"1", "1"},
                                           TextCase{"false", "0"}, TextCase{"no", "0"},
                                           TextCase{"OFF", "0"}, TextCase{"0", "0"},
                                           TextCase{"2", "refused"}, TextCase{"", "refused"},
                                           TextCase{"truee", "refused"}));

class TypedTriple : public ::testing::TestWithParam<TextCase> {};

TEST_P(TypedTriple, TheTextIsThis)
{
    EXPECT_EQ(tripleOf(toTriple, GetParam().text), GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(Texts, TypedTriple,
                         ::testing::Values(TextCase{"1 2 3", "1 2 3"}, TextCase{"1,2,3", "1 2 3"},
                                           TextCase{" 1,  2 3 ", "1 2 3"},
                                           TextCase{"1 2", "refused"},
                                           TextCase{"1 2 3 4", "refused"},
                                           TextCase{"1 2 x", "refused"},
                                           TextCase{"x 2 3", "refused"}, TextCase{"", "refused"}));

// Values of parameters.

struct ParamCase {
    const char* param;
    /// What people and programs see.
    const char* text;
    const char* json;
};

void PrintTo(const ParamCase& one, std::ostream* out)
{
    *out << one.param;
}

class ParamValue : public ::testing::TestWithParam<ParamCase> {};

TEST_P(ParamValue, IsShownAs)
{
    const QByteArray xml = QByteArray("<snapRoot unitsScale='10'><camera><param name='x' ") +
                           GetParam().param + "/></camera></snapRoot>";
    const QDomDocument document = parsed(xml.constData());
    const QDomElement param = document.documentElement().firstChildElement().firstChildElement();
    ParamValues values;
    EXPECT_EQ(values.Text(param).toStdString(), GetParam().text);
    const QByteArray json =
        QJsonDocument(
            QJsonObject{{QStringLiteral("v"), QJsonValue::fromVariant(values.Value(param))}})
            .toJson(QJsonDocument::Compact);
    EXPECT_EQ(json.toStdString(), "{\"v\":" + std::string(GetParam().json) + "}");
}

INSTANTIATE_TEST_SUITE_P(
    Types, ParamValue,
    ::testing::Values(ParamCase{"type='float' val='0.1'", "0.1", "0.1"},
                      ParamCase{"type='float' prop='D' val='5'", "0.5", "0.5"},
                      ParamCase{"type='float'", "", "null"},
                      ParamCase{"type='integer' val='-7'", "-7", "-7"},
                      ParamCase{"type='integer'", "", "null"},
                      ParamCase{"type='boolean' val='1'", "true", "true"},
                      ParamCase{"type='boolean' val='0'", "false", "false"},
                      ParamCase{"type='boolean' val='2'", "true", "true"},
                      ParamCase{"type='boolean'", "", "null"},
                      ParamCase{"type='colour' val='1 0.5 0'", "1 0.5 0", "[1,0.5,0]"},
                      ParamCase{"type='vector' val='1 2 3'", "1 2 3", "[1,2,3]"},
                      ParamCase{"type='colour'", "", "null"},
                      ParamCase{"type='string' val='a b'", "a b", "\"a b\""},
                      ParamCase{"type='shader' val='colour'", "colour", "\"colour\""},
                      ParamCase{"type='odd' val='1'", "1", "\"1\""},
                      ParamCase{"val='1'", "1", "\"1\""}));

struct SetCase {
    const char* param;
    const char* text;
    /// The stored value, or null when it is refused.
    const char* stored;
};

void PrintTo(const SetCase& one, std::ostream* out)
{
    *out << one.param << " = " << one.text;
}

class ParamSetting : public ::testing::TestWithParam<SetCase> {};

TEST_P(ParamSetting, IsCheckedAndStored)
{
    const QByteArray xml =
        QByteArray("<snapRoot unitsScale='10'><camera><param name='x' val='old' ") +
        GetParam().param + "/></camera></snapRoot>";
    const QDomDocument document = parsed(xml.constData());
    const QDomElement param = document.documentElement().firstChildElement().firstChildElement();
    ParamValues values;
    const QString text = QString::fromUtf8(GetParam().text);
    const QString problem = values.Check(param, text);
    EXPECT_EQ(problem.isEmpty(), GetParam().stored != nullptr) << problem.toStdString();
    EXPECT_EQ(param.attribute(QStringLiteral("val")), QStringLiteral("old"));
    if (GetParam().stored) {
        values.Set(param, text);
        EXPECT_EQ(param.attribute(QStringLiteral("val")).toStdString(), GetParam().stored);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Types, ParamSetting,
    ::testing::Values(
        SetCase{"type='float'", "1.5", "1.5"}, SetCase{"type='float'", "x", nullptr},
        SetCase{"type='float' prop='D'", "1.5", "15"},
        SetCase{"type='float' rangeMin='1' rangeMax='2'", "1", "1"},
        SetCase{"type='float' rangeMin='1' rangeMax='2'", "2", "2"},
        SetCase{"type='float' rangeMin='1' rangeMax='2'", "0.99", nullptr},
        SetCase{"type='float' rangeMin='1' rangeMax='2'", "2.01", nullptr},
        SetCase{"type='float' rangeMin='1'", "99", "99"},
        SetCase{"type='float' rangeMin='1'", "0", nullptr},
        SetCase{"type='float' rangeMax='2'", "-99", "-99"},
        SetCase{"type='float' rangeMax='2'", "3", nullptr},
        SetCase{"type='integer' rangeMin='1' rangeMax='2'", "1", "1"},
        SetCase{"type='integer' rangeMin='1' rangeMax='2'", "2", "2"},
        SetCase{"type='integer' rangeMin='1' rangeMax='2'", "0", nullptr},
        SetCase{"type='integer' rangeMin='1' rangeMax='2'", "3", nullptr},
        SetCase{"type='integer'", "1.5", nullptr}, SetCase{"type='boolean'", "yes", "1"},
        SetCase{"type='boolean'", "off", "0"}, SetCase{"type='boolean'", "2", nullptr},
        SetCase{"type='colour'", "0.5 0 1", "0.5 0 1"},
        SetCase{"type='colour'", "0.5,0, 1", "0.5 0 1"},
        SetCase{"type='colour'", "#ff0033", "1 0 0.2"},
        SetCase{"type='colour'", "#FF0033", "1 0 0.2"}, SetCase{"type='colour'", "#ff003", nullptr},
        SetCase{"type='colour'", "#ff00333", nullptr}, SetCase{"type='colour'", "#gg0000", nullptr},
        SetCase{"type='vector'", "#ff0033", nullptr}, SetCase{"type='vector'", "1 2 3", "1 2 3"},
        SetCase{"type='vector'", "1,2,3", "1 2 3"}, SetCase{"type='point'", "1 2 3", "1 2 3"},
        SetCase{"type='point'", "1 2", nullptr}, SetCase{"type='string'", "", ""},
        SetCase{"type='string'", "a\x01", nullptr}, SetCase{"type='shader'", "colour", "colour"},
        SetCase{"type='shader'", "marble", nullptr}, SetCase{"type='odd'", "1", nullptr},
        SetCase{"", "1", nullptr}));

} // namespace rvopen::test
