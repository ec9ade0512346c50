// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "SchemaSupport.h"

namespace rvopen::test {

namespace {

using namespace toolkit;

/// A value of a parameter, and what is wrong with it.
struct ValueCase {
    const char* element;
    const char* kind;
    const char* name;
    const char* text;
    Fault fault;
    const char* part;
    const char* message;
};

void PrintTo(const ValueCase& one, std::ostream* out)
{
    *out << one.element << ':' << one.name << " = " << one.text;
}

class CheckedValue : public ::testing::TestWithParam<ValueCase> {};

ValueFault checkAttribute(const char* element, const char* name, const char* text)
{
    const ParamInfo* const info = FindAttribute(QLatin1String(element), QLatin1String(name));
    EXPECT_TRUE(info) << name;
    return info ? CheckValue(*info, QString::fromUtf8(text)) : ValueFault();
}

} // namespace

TEST_P(CheckedValue, IsWrongInThis)
{
    const ValueCase& one = GetParam();
    const ParamInfo& info = rowOf(one.element, one.kind, one.name);
    const ValueFault fault = CheckValue(info, QString::fromUtf8(one.text));
    EXPECT_EQ(fault.fault, one.fault);
    EXPECT_EQ(fault.part, QString::fromUtf8(one.part));
    EXPECT_EQ(FaultMessage(info, fault), QString::fromUtf8(one.message));
    EXPECT_EQ(bool(fault), one.fault != Fault::None);
}

INSTANTIATE_TEST_SUITE_P(
    Good, CheckedValue,
    ::testing::Values(ValueCase{"camera", "", "Field Of View", "40", Fault::None, "", ""},
                      ValueCase{"camera", "", "Field Of View", "179.999", Fault::None, "", ""},
                      ValueCase{"camera", "", "Field Of View", "1e-3", Fault::None, "", ""},
                      // What the model creates, which stands for a value that is not set.
                      ValueCase{"camera", "", "Field Of View", "0", Fault::None, "", ""},
                      ValueCase{"camera", "", "Field Of View", "0.0", Fault::None, "", ""},
                      ValueCase{"renderTarget", "", "Width", "0", Fault::None, "", ""},
                      ValueCase{"renderTarget", "", "Width", "1", Fault::None, "", ""},
                      ValueCase{"camera", "", "Orthographic", "1", Fault::None, "", ""},
                      ValueCase{"camera", "", "Orthographic", "7", Fault::None, "", ""},
                      ValueCase{"camera", "", "From", "-1 2.5 1e3", Fault::None, "", ""},
                      ValueCase{"background", "Plain", "Colour", "0 0.5 2", Fault::None, "", ""},
                      ValueCase{"renderTarget", "", "Output Format", "EXR", Fault::None, "", ""},
                      ValueCase{"renderTarget", "", "Filename", "", Fault::None, "", ""},
                      ValueCase{"diffuse", "", "Colour", "colour", Fault::None, "", ""}));

INSTANTIATE_TEST_SUITE_P(
    Bad, CheckedValue,
    ::testing::Values(
        ValueCase{"camera", "", "Near", "", Fault::Empty, "", "There is no value"},
        ValueCase{"camera", "", "Near", " ", Fault::Empty, " ", "There is no value"},
        ValueCase{"camera", "", "Near", "wide", Fault::NoNumber, "wide", "\"wide\" is no number"},
        ValueCase{"camera", "", "Near", "1 2", Fault::NoNumber, "1 2", "\"1 2\" is no number"},
        ValueCase{"camera", "", "Near", "0,5", Fault::DecimalComma, "0,5",
                  "\"0,5\" has a comma where a number has its decimal point: 0.5"},
        ValueCase{"camera", "", "Near", "nan", Fault::NotFinite, "nan",
                  "\"nan\" is no finite number"},
        ValueCase{"camera", "", "Near", "-inf", Fault::NotFinite, "-inf",
                  "\"-inf\" is no finite number"},
        ValueCase{"camera", "", "Near", "3.5e38", Fault::NotFinite, "3.5e38",
                  "\"3.5e38\" is no finite number"},
        ValueCase{"camera", "", "Near", "1e999", Fault::NotFinite, "1e999",
                  "\"1e999\" is no finite number"},
        ValueCase{"camera", "", "Near", "-0.1", Fault::OutsideRange, "-0.1", "-0.1 is not from 0"},
        ValueCase{"camera", "", "Field Of View", "180", Fault::OutsideRange, "180",
                  "180 is not above 0 and below 180"},
        ValueCase{"naturalLightStudio", "", "Sun Altitude", "90.5", Fault::OutsideRange, "90.5",
                  "90.5 is not -90 to 90"},
        ValueCase{"map", "", "Width", "0", Fault::OutsideRange, "0", "0 is not above 0"},
        ValueCase{"renderTarget", "", "Width", "-1", Fault::OutsideRange, "-1", "-1 is not from 1"},
        ValueCase{"renderTarget", "", "Width", "1.5", Fault::NoInteger, "1.5",
                  "\"1.5\" is no whole number of 32 bits"},
        ValueCase{"renderTarget", "", "Width", "2147483648", Fault::NoInteger, "2147483648",
                  "\"2147483648\" is no whole number of 32 bits"},
        ValueCase{"renderTarget", "", "Width", "1,5", Fault::DecimalComma, "1,5",
                  "\"1,5\" has a comma where a number has its decimal point: 1.5"},
        ValueCase{"renderTarget", "", "Width", "many", Fault::NoNumber, "many",
                  "\"many\" is no number"},
        ValueCase{"camera", "", "Orthographic", "true", Fault::NoNumber, "true",
                  "\"true\" is no number"},
        ValueCase{"background", "Plain", "Colour", "1 -0.1 0", Fault::OutsideRange, "-0.1",
                  "-0.1 is not from 0"},
        ValueCase{"background", "Plain", "Colour", "1 0,5 0", Fault::DecimalComma, "0,5",
                  "\"0,5\" has a comma where a number has its decimal point: 0.5"},
        ValueCase{"background", "Plain", "Colour", "1 0", Fault::NotThreeNumbers, "1 0",
                  "\"1 0\" is not three numbers"},
        ValueCase{"background", "Plain", "Colour", "1 0 0 1", Fault::NotThreeNumbers, "1 0 0 1",
                  "\"1 0 0 1\" is not three numbers"},
        ValueCase{"camera", "", "Up", "0 0 up", Fault::NoNumber, "up", "\"up\" is no number"},
        ValueCase{"camera", "", "To", "0 nan 0", Fault::NotFinite, "nan",
                  "\"nan\" is no finite number"},
        ValueCase{"diffuse", "", "Colour", "marble", Fault::NoChoice, "marble",
                  "\"marble\" is none of \"colour\""},
        ValueCase{"renderTarget", "", "Filename", "a\x01", Fault::ForbiddenCharacter, "a\x01",
                  "The text has a character that no document may contain"}));

TEST(CheckValue, TakesAnEmptyAttributeAsAbsent)
{
    EXPECT_FALSE(checkAttribute("snapRoot", "unitsScale", ""));
    EXPECT_FALSE(checkAttribute("scheme", "subcat", ""));
}

TEST(CheckValue, ChecksAttributesByTheirElement)
{
    EXPECT_EQ(checkAttribute("snapRoot", "unitsScale", "0").fault, Fault::OutsideRange);
    EXPECT_EQ(checkAttribute("snapRoot", "unitsScale", "1000").fault, Fault::None);
    EXPECT_EQ(checkAttribute("scheme", "subcat", "exterior").fault, Fault::NoChoice);
    EXPECT_EQ(checkAttribute("scheme", "subcat", "Exterior").fault, Fault::None);
    EXPECT_EQ(checkAttribute("camera", "subcat", "Mine").fault, Fault::None);
    EXPECT_EQ(checkAttribute("camera", "ImageBorder", "2").fault, Fault::None);
    EXPECT_EQ(checkAttribute("camera", "ImageBorder", "x").fault, Fault::NoNumber);
    EXPECT_EQ(checkAttribute("camera", "xmlImage", "00 fF\n9a").fault, Fault::None);
    EXPECT_EQ(checkAttribute("camera", "xmlImage", "0g").fault, Fault::NoHexadecimal);
    EXPECT_EQ(checkAttribute("camera", "xmlImage", "0:").fault, Fault::NoHexadecimal);
}

TEST(CheckText, KnowsNoRangesAndChoices)
{
    EXPECT_FALSE(CheckText(ValueType::Float, QStringLiteral("-1e30")));
    EXPECT_FALSE(CheckText(ValueType::Shader, QStringLiteral("marble")));
    EXPECT_FALSE(CheckText(ValueType::Colour, QStringLiteral("-1 -1 -1")));
    EXPECT_EQ(CheckText(ValueType::Vector, QString()).fault, Fault::Empty);
    EXPECT_FALSE(CheckText(ValueType::String, QString()));
}

} // namespace rvopen::test
