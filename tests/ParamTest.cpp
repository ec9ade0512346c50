// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/Param.h>

#include "LoggedMessages.h"
#include "TestSupport.h"

#include <rvopen/RVOpenStatus.h>
#include <rvopen/RVOpenView.h>
#include <rvopen/ShaderColour.h>

#include <algorithm>
#include <limits>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace rvopen::test {
namespace {

constexpr const char* typeNames[] = {"float",  "boolean", "shader", "colour",
                                     "vector", "point",   "string", "integer"};

/// A document whose root is a "param" element, and the parameter bound to it.
struct Single {
    explicit Single(const QString& xml)
        : document(parse(xml))
        , param(bind<Param>(document.documentElement()))
    {
    }
    Single(const QString& type, const QString& value)
        : Single(QString("<param name='n' type='%1' val='%2' extra='e'/>").arg(type, value))
    {
    }

    QDomElement element() const
    {
        return document.documentElement();
    }
    QString value() const
    {
        return element().attribute("val");
    }

    QDomDocument document;
    std::unique_ptr<Param> param;
};

/// A dimensional float parameter in a document with the given "snapRoot" attributes.
struct Scaled {
    explicit Scaled(const QString& rootAttributes, const QString& value = QStringLiteral("10"))
        : document(parse(QString("<snapRoot %1><param type='float' prop='D' val='%2'/></snapRoot>")
                             .arg(rootAttributes, value)))
        , param(bind<Param>(element()))
    {
    }

    QDomElement root() const
    {
        return document.documentElement();
    }
    QDomElement element() const
    {
        return root().firstChildElement();
    }
    float read() const
    {
        float value = -1.0f;
        param->GetValFloat(&value);
        return value;
    }
    QString write(float value) const
    {
        param->SetValFloat(value);
        return element().attribute("val");
    }

    QDomDocument document;
    std::unique_ptr<Param> param;
};

// Construction

TEST(Param, NewParamIsBoundToNothing)
{
    const auto param = std::make_unique<Param>();
    EXPECT_TRUE(param->GetDomNode().isNull());
    EXPECT_EQ(param->GetNext(), nullptr);
}

TEST(Param, CopySharesTheElement)
{
    const Single single("integer", "4");
    Param copy(*single.param);
    copy.SetValInt(5);
    EXPECT_EQ(single.value(), "5");
    copy.SetDomNode(QDomNode());
}

TEST(Param, AssignmentSharesTheElement)
{
    const Single single("integer", "4");
    Param copy;
    copy = *single.param;
    copy.SetValInt(5);
    EXPECT_EQ(single.value(), "5");
    copy.SetDomNode(QDomNode());
}

TEST(Param, CopyKeepsTheUnitsScaleThatWasRead)
{
    const Scaled scaled("unitsScale='2'");
    ASSERT_EQ(scaled.read(), 5.0f);
    scaled.root().setAttribute("unitsScale", "5");
    Param copy(*scaled.param);
    float value = 0.0f;
    copy.GetValFloat(&value);
    EXPECT_EQ(value, 5.0f);
    copy.SetDomNode(QDomNode());
}

TEST(Param, BindsAsItsBaseDoes)
{
    const Single single("integer", "4");
    Param* const param = new ShaderColour();
    param->SetDomNode(single.element());
    EXPECT_EQ(param->GetDomNode(), single.element());
    param->SetDomNode(QDomNode());
    delete param;
}

// Next

struct Three {
    const QDomDocument document = parse("<item><param/><param/><other/></item>");
    const std::unique_ptr<RVOpenNode> node = bind(document.documentElement());
    Param* const first = dynamic_cast<Param*>(node->GetChild(1, 1));
};

TEST(Param, NextIsTheSiblingOnceItIsMade)
{
    const Three three;
    EXPECT_EQ(three.first->GetNext(), nullptr);
    RVOpenNode* const second = three.first->GetNext(1);
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(three.first->GetNext(), second);
}

TEST(Param, NextIsNullWhenTheSiblingIsNoParam)
{
    const Three three;
    RVOpenNode* const third = three.first->GetNext(1)->GetNext(1);
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(three.first->GetNext()->GetNext(), nullptr);
}

// Types and properties

struct TypeTest {
    const char* type;
    int (Param::*is)() const;
};

class TypeOf : public ::testing::TestWithParam<TypeTest> {
protected:
    int ask(const QString& xml) const
    {
        return (Single(xml).param.get()->*GetParam().is)();
    }
};

TEST_P(TypeOf, IsTrueForItsNameAlone)
{
    for (const char* type : typeNames) {
        EXPECT_EQ(ask(QString("<param type='%1'/>").arg(type)),
                  GetParam().type == std::string(type) ? 1 : 0)
            << type;
    }
}

TEST_P(TypeOf, IsFalseWithoutType)
{
    EXPECT_EQ(ask("<param/>"), 0);
    EXPECT_EQ(ask("<param type=''/>"), 0);
}

TEST_P(TypeOf, IsCaseSensitive)
{
    EXPECT_EQ(ask(QString("<param type='%1'/>").arg(QString(GetParam().type).toUpper())), 0);
}

TEST_P(TypeOf, IsFalseForAParamBoundToNothing)
{
    EXPECT_EQ((std::make_unique<Param>().get()->*GetParam().is)(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Param, TypeOf,
    ::testing::Values(TypeTest{"float", &Param::IsFloat}, TypeTest{"boolean", &Param::IsBool},
                      TypeTest{"shader", &Param::IsShader}, TypeTest{"colour", &Param::IsColour},
                      TypeTest{"vector", &Param::IsVector}, TypeTest{"point", &Param::IsPoint},
                      TypeTest{"string", &Param::IsString}, TypeTest{"integer", &Param::IsInt}),
    [](const auto& instance) { return std::string(instance.param.type); });

struct PropertyCase {
    const char* description;
    const char* xml;
    int dimensional;
    int readOnly;
};

class PropertyLetters : public ::testing::TestWithParam<PropertyCase> {
protected:
    const Single m_single{QString(GetParam().xml)};
};

TEST_P(PropertyLetters, SayWhetherTheValueIsALength)
{
    EXPECT_EQ(m_single.param->IsDimensional(), GetParam().dimensional);
}

TEST_P(PropertyLetters, SayWhetherTheValueIsReadOnly)
{
    EXPECT_EQ(m_single.param->IsReadOnly(), GetParam().readOnly);
}

INSTANTIATE_TEST_SUITE_P(
    Param, PropertyLetters,
    ::testing::Values(PropertyCase{"Absent", "<param/>", 0, 0},
                      PropertyCase{"Empty", "<param prop=''/>", 0, 0},
                      PropertyCase{"D", "<param prop='D'/>", 1, 0},
                      PropertyCase{"R", "<param prop='R'/>", 0, 1},
                      PropertyCase{"DR", "<param prop='DR'/>", 1, 1},
                      PropertyCase{"RD", "<param prop='RD'/>", 1, 1},
                      PropertyCase{"AmongOthers", "<param prop='xDyRz'/>", 1, 1},
                      PropertyCase{"LowerD", "<param prop='d'/>", 0, 0},
                      PropertyCase{"LowerR", "<param prop='r'/>", 0, 0}),
    [](const auto& instance) { return std::string(instance.param.description); });

TEST(Param, ReadOnlyIsNotEnforced)
{
    const Single single("<param type='integer' val='1' prop='R'/>");
    EXPECT_EQ(single.param->SetValInt(2), StatusOk);
    EXPECT_EQ(single.value(), "2");
    single.param->SetTypeInt(3);
    EXPECT_EQ(single.value(), "3");
}

// Setting type and value together

struct TypeSetter {
    const char* type;
    const char* value;
    void (*set)(Param*);
};

class SetType : public ::testing::TestWithParam<TypeSetter> {};

TEST_P(SetType, ReplacesTypeAndValueWhateverTheyWere)
{
    for (const char* before : typeNames) {
        const Single single(before, "9 9 9");
        GetParam().set(single.param.get());
        EXPECT_EQ(xmlOf(single.element()),
                  xmlOf(parse(QString("<param name='n' type='%1' val='%2' extra='e'/>")
                                  .arg(GetParam().type, GetParam().value))))
            << before;
    }
}

TEST_P(SetType, CreatesTypeAndValue)
{
    const Single single("<param/>");
    GetParam().set(single.param.get());
    EXPECT_EQ(xmlOf(single.element()),
              xmlOf(parse(
                  QString("<param type='%1' val='%2'/>").arg(GetParam().type, GetParam().value))));
}

TEST_P(SetType, LeavesPropertyLetters)
{
    const Single single("<param prop='DR'/>");
    GetParam().set(single.param.get());
    EXPECT_EQ(single.element().attribute("prop"), "DR");
}

TEST_P(SetType, LeavesAParamBoundToNothing)
{
    const auto param = std::make_unique<Param>();
    GetParam().set(param.get());
    EXPECT_TRUE(param->GetDomNode().isNull());
}

float triple[] = {1.0f, 0.5f, 0.1f};

INSTANTIATE_TEST_SUITE_P(
    Param, SetType,
    ::testing::Values(
        TypeSetter{"float", "0.333333", [](Param* param) { param->SetTypeFloat(1.0f / 3.0f); }},
        TypeSetter{"integer", "-7", [](Param* param) { param->SetTypeInt(-7); }},
        TypeSetter{"boolean", "1", [](Param* param) { param->SetTypeBool(5); }},
        TypeSetter{"boolean", "0", [](Param* param) { param->SetTypeBool(0); }},
        TypeSetter{"string", "Morning mist",
                   [](Param* param) { param->SetTypeString("Morning mist"); }},
        TypeSetter{"shader", "colour", [](Param* param) { param->SetTypeShader("colour"); }},
        TypeSetter{"colour", "1 0.5 0.1", [](Param* param) { param->SetTypeColour(triple); }},
        TypeSetter{"vector", "1 0.5 0.1", [](Param* param) { param->SetTypeVector(triple); }},
        TypeSetter{"point", "1 0.5 0.1", [](Param* param) { param->SetTypePoint(triple); }}),
    [](const auto& instance) {
        return std::string(instance.param.type) + std::to_string(instance.index);
    });

TEST(Param, SetTypeFloatScalesADimensionalValue)
{
    const Scaled scaled("unitsScale='2'");
    scaled.element().setAttribute("type", "string");
    scaled.param->SetTypeFloat(5.0f);
    EXPECT_EQ(scaled.element().attribute("type"), "float");
    EXPECT_EQ(scaled.element().attribute("val"), "10");
}

TEST(Param, SetTypeFloatLeavesAnotherValueUnscaled)
{
    const Scaled scaled("unitsScale='2'");
    scaled.element().removeAttribute("prop");
    scaled.param->SetTypeFloat(5.0f);
    EXPECT_EQ(scaled.element().attribute("val"), "5");
}

TEST(Param, OtherTypesAreNeverScaled)
{
    const Scaled scaled("unitsScale='2'");
    scaled.param->SetTypeInt(5);
    EXPECT_EQ(scaled.element().attribute("val"), "5");
    int value = 0;
    EXPECT_EQ(scaled.param->GetValInt(&value), StatusOk);
    EXPECT_EQ(value, 5);
    scaled.param->SetTypePoint(triple);
    EXPECT_EQ(scaled.element().attribute("val"), "1 0.5 0.1");
    float point[3] = {};
    EXPECT_EQ(scaled.param->GetValPoint(point), StatusOk);
    EXPECT_THAT(point, ::testing::ElementsAre(1.0f, 0.5f, 0.1f));
}

// Typed values

/// What a typed getter gave, as text: "untouched" where the output is as it was.
using Get = unsigned int (*)(Param*, QString* out);
using Set = unsigned int (*)(Param*);

struct TypedValue {
    const char* description;
    const char* type;
    const char* value;     ///< A value, and what the getter makes of it.
    const char* malformed; ///< A text that is no value of the type, or null if any text is.
    const char* asZero;    ///< What the getter makes of that.
    const char* written;   ///< What the setter writes.
    Get get;
    Set set;
    Get getWithoutOutput; ///< Null for string getters.
};

constexpr const char* untouched = "untouched";

template <unsigned int (Param::*getter)(float* const) const>
unsigned int getTriple(Param* param, QString* out)
{
    float values[] = {-7.0f, -8.0f, -9.0f};
    const unsigned int status = (param->*getter)(values);
    *out = values[0] == -7.0f && values[1] == -8.0f && values[2] == -9.0f
               ? QString(untouched)
               : QString("%1 %2 %3").arg(values[0]).arg(values[1]).arg(values[2]);
    return status;
}

template <unsigned int (Param::*getter)(int*) const>
unsigned int getInteger(Param* param, QString* out)
{
    int value = -77;
    const unsigned int status = (param->*getter)(&value);
    *out = value == -77 ? QString(untouched) : QString::number(value);
    return status;
}

unsigned int getFloat(Param* param, QString* out)
{
    float value = -77.0f;
    const unsigned int status = param->GetValFloat(&value);
    *out = value == -77.0f ? QString(untouched) : QString::number(value);
    return status;
}

/// A string getter has no code: empty means missing.
template <QString (Param::*getter)() const>
unsigned int getText(Param* param, QString* out)
{
    const QString text = (param->*getter)();
    *out = text.isEmpty() ? QString(untouched) : text;
    return text.isEmpty() ? StatusMissing : StatusOk;
}

template <typename Output, unsigned int (Param::*getter)(Output*) const>
unsigned int getNothing(Param* param, QString*)
{
    return (param->*getter)(nullptr);
}

template <unsigned int (Param::*setter)(float* const)>
unsigned int setTriple(Param* param)
{
    return (param->*setter)(triple);
}

std::vector<TypedValue> typedValues()
{
    return {
        {"Float", "float", "2.5", "wide", "0", "0.1", getFloat,
         [](Param* param) { return param->SetValFloat(0.1f); },
         [](Param* param, QString*) { return param->GetValFloat(nullptr); }},
        {"Int", "integer", "-12", "2.5", "0", "34", getInteger<&Param::GetValInt>,
         [](Param* param) { return param->SetValInt(34); }, getNothing<int, &Param::GetValInt>},
        {"Bool", "boolean", "1", "yes", "0", "1", getInteger<&Param::GetValBool>,
         [](Param* param) { return param->SetValBool(5); }, getNothing<int, &Param::GetValBool>},
        {"Colour", "colour", "1 0.5 0.25", "red", "0 0 0", "1 0.5 0.1",
         getTriple<&Param::GetValColour>, setTriple<&Param::SetValColour>,
         getNothing<float, &Param::GetValColour>},
        {"Vector", "vector", "1 0.5 0.25", "up", "0 0 0", "1 0.5 0.1",
         getTriple<&Param::GetValVector>, setTriple<&Param::SetValVector>,
         getNothing<float, &Param::GetValVector>},
        {"Point", "point", "1 0.5 0.25", "here", "0 0 0", "1 0.5 0.1",
         getTriple<&Param::GetValPoint>, setTriple<&Param::SetValPoint>,
         getNothing<float, &Param::GetValPoint>},
        {"String", "string", "Morning mist", nullptr, nullptr, "Street corner",
         getText<&Param::GetValString>,
         [](Param* param) { return param->SetValString("Street corner"); }, nullptr},
        {"ShaderType", "shader", "colour", nullptr, nullptr, "map",
         getText<&Param::GetValShaderType>,
         [](Param* param) { return param->SetValShaderType("map"); }, nullptr},
    };
}

class ValueOf : public ::testing::TestWithParam<TypedValue> {
protected:
    QString m_out;
};

TEST_P(ValueOf, IsRead)
{
    const Single single(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusOk);
    EXPECT_EQ(m_out, GetParam().value);
}

TEST_P(ValueOf, ThatIsAbsentIsMissing)
{
    const Single single(QString("<param type='%1'/>").arg(GetParam().type));
    EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusMissing);
    EXPECT_EQ(m_out, untouched);
}

TEST_P(ValueOf, ThatIsEmptyIsMissing)
{
    const Single single(GetParam().type, "");
    EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusMissing);
    EXPECT_EQ(m_out, untouched);
}

TEST_P(ValueOf, IsMissingOnEveryOtherType)
{
    for (const char* type : typeNames) {
        if (GetParam().type == std::string(type))
            continue;
        const Single single(type, GetParam().value);
        EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusMissing) << type;
        EXPECT_EQ(m_out, untouched) << type;
    }
}

TEST_P(ValueOf, IsMissingWithoutType)
{
    const Single single(QString("<param val='%1'/>").arg(GetParam().value));
    EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusMissing);
    EXPECT_EQ(m_out, untouched);
}

TEST_P(ValueOf, IsWrittenAndNothingElse)
{
    const Single single(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().set(single.param.get()), StatusOk);
    EXPECT_EQ(xmlOf(single.element()),
              xmlOf(parse(QString("<param name='n' type='%1' val='%2' extra='e'/>")
                              .arg(GetParam().type, GetParam().written))));
}

TEST_P(ValueOf, IsWrittenWhereItWasAbsent)
{
    const Single single(QString("<param type='%1'/>").arg(GetParam().type));
    EXPECT_EQ(GetParam().set(single.param.get()), StatusOk);
    EXPECT_EQ(single.value(), GetParam().written);
}

TEST_P(ValueOf, IsNotWrittenToAnotherType)
{
    for (const char* type : typeNames) {
        if (GetParam().type == std::string(type))
            continue;
        const Single single(type, "before");
        const QString before = xmlOf(single.element());
        EXPECT_EQ(GetParam().set(single.param.get()), StatusMissing) << type;
        EXPECT_EQ(xmlOf(single.element()), before) << type;
    }
}

TEST_P(ValueOf, OfAParamBoundToNothingIsMissing)
{
    const auto param = std::make_unique<Param>();
    EXPECT_EQ(GetParam().set(param.get()), StatusMissing);
    EXPECT_EQ(GetParam().get(param.get(), &m_out), StatusMissing);
    EXPECT_EQ(m_out, untouched);
}

INSTANTIATE_TEST_SUITE_P(Param, ValueOf, ::testing::ValuesIn(typedValues()),
                         [](const auto& instance) {
                             return std::string(instance.param.description);
                         });

/// The types that are not text: not every text is a value, and the value comes through a pointer.
using NumberOf = ValueOf;

TEST_P(NumberOf, ThatIsMalformedReadsAsZero)
{
    const Single single(GetParam().type, GetParam().malformed);
    EXPECT_EQ(GetParam().get(single.param.get(), &m_out), StatusOk);
    EXPECT_EQ(m_out, GetParam().asZero);
}

TEST_P(NumberOf, IsMissingWithoutOutput)
{
    const Single single(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().getWithoutOutput(single.param.get(), nullptr), StatusMissing);
}

std::vector<TypedValue> numbers(std::vector<TypedValue> values)
{
    values.erase(std::remove_if(values.begin(), values.end(),
                                [](const TypedValue& value) { return !value.malformed; }),
                 values.end());
    return values;
}

INSTANTIATE_TEST_SUITE_P(Param, NumberOf, ::testing::ValuesIn(numbers(typedValues())),
                         [](const auto& instance) {
                             return std::string(instance.param.description);
                         });

TEST_P(ValueOf, IsNeverLogged)
{
    const Single missing(QString("<param type='%1'/>").arg(GetParam().type));
    const Single malformed(GetParam().type, "no value");
    const Single ofNoType("other", GetParam().value);
    const LoggedMessages logged;
    for (const Single* single : {&missing, &malformed, &ofNoType}) {
        GetParam().get(single->param.get(), &m_out);
        GetParam().set(single->param.get());
    }
    EXPECT_EQ(logged.texts(), QStringList());
}

TEST(Param, BoolIsTrueFromOneOn)
{
    const std::pair<const char*, int> cases[] = {{"2", 1}, {"1", 1}, {"0", 0}, {"-1", 0}};
    for (const auto& [text, expected] : cases) {
        int value = -77;
        EXPECT_EQ(Single("boolean", text).param->GetValBool(&value), StatusOk);
        EXPECT_EQ(value, expected) << text;
    }
}

TEST(Param, BoolIsWrittenAsOneOrZero)
{
    const std::pair<int, const char*> cases[] = {{0, "0"}, {1, "1"}, {-1, "1"}};
    for (const auto& [value, text] : cases) {
        const Single single("boolean", "9");
        single.param->SetValBool(value);
        EXPECT_EQ(single.value(), text);
    }
}

TEST(Param, FloatIsWrittenWithSixSignificantDigits)
{
    const std::pair<float, const char*> cases[] = {
        {0.1f, "0.1"}, {1.0f / 3.0f, "0.333333"}, {1.0f, "1"}, {1234567.0f, "1.23457e+06"}};
    for (const auto& [value, text] : cases) {
        const Single single("float", "9");
        single.param->SetValFloat(value);
        EXPECT_EQ(single.value(), text);
    }
}

TEST(Param, EmptyStringCanBeWritten)
{
    const Single single("string", "before");
    EXPECT_EQ(single.param->SetValString(QString()), StatusOk);
    EXPECT_TRUE(single.element().hasAttribute("val"));
    EXPECT_EQ(single.value(), "");
}

TEST(Param, PartOfATripleThatIsMissingReadsAsZero)
{
    float values[] = {-7.0f, -8.0f, -9.0f};
    EXPECT_EQ(Single("colour", "1 2").param->GetValColour(values), StatusOk);
    EXPECT_THAT(values, ::testing::ElementsAre(1.0f, 2.0f, 0.0f));
}

// Dimensional values

TEST(Param, DimensionalValueIsStoredTimesTheScale)
{
    EXPECT_EQ(Scaled("unitsScale='2'").write(5.0f), "10");
}

TEST(Param, DimensionalValueIsReadDividedByTheScale)
{
    EXPECT_EQ(Scaled("unitsScale='2'", "10").read(), 5.0f);
}

TEST(Param, ValueThatIsNoLengthIsNotScaled)
{
    const Scaled scaled("unitsScale='2'", "10");
    scaled.element().setAttribute("prop", "dR");
    EXPECT_EQ(scaled.read(), 10.0f);
    EXPECT_EQ(scaled.write(5.0f), "5");
}

struct MissingLength {
    const char* description;
    const char* xml;
};

class DimensionalOutput : public ::testing::TestWithParam<MissingLength> {};

TEST_P(DimensionalOutput, IsDividedEvenWhenNothingWasRead)
{
    const QDomDocument document = parse(GetParam().xml);
    const auto param = bind<Param>(document.documentElement().firstChild());
    float value = 8.0f;
    EXPECT_EQ(param->GetValFloat(&value), StatusMissing);
    EXPECT_EQ(value, 4.0f);
}

INSTANTIATE_TEST_SUITE_P(
    Param, DimensionalOutput,
    ::testing::Values(
        MissingLength{"Absent",
                      "<snapRoot unitsScale='2'><param type='float' prop='D'/></snapRoot>"},
        MissingLength{"Empty",
                      "<snapRoot unitsScale='2'><param type='float' prop='D' val=''/></snapRoot>"}),
    [](const auto& instance) { return std::string(instance.param.description); });

TEST(Param, OutputOfAnotherTypeIsNotDivided)
{
    const Scaled scaled("unitsScale='2'");
    scaled.element().setAttribute("type", "integer");
    float value = 8.0f;
    EXPECT_EQ(scaled.param->GetValFloat(&value), StatusMissing);
    EXPECT_EQ(value, 8.0f);
}

// Units scale

struct ScaleCase {
    const char* description;
    const char* xml; ///< With a dimensional parameter of value 10 somewhere.
    float sceneValue;
};

class UnitsScale : public ::testing::TestWithParam<ScaleCase> {};

TEST_P(UnitsScale, IsThatOfTheFirstSnapRoot)
{
    const QDomDocument document =
        parse(QString(GetParam().xml).replace("PARAM", "<param type='float' prop='D' val='10'/>"));
    const auto param = bind<Param>(document.elementsByTagName("param").at(0));
    float value = -1.0f;
    EXPECT_EQ(param->GetValFloat(&value), StatusOk);
    EXPECT_EQ(value, GetParam().sceneValue);
}

INSTANTIATE_TEST_SUITE_P(
    Param, UnitsScale,
    ::testing::Values(
        ScaleCase{"Plain", "<snapRoot unitsScale='2'>PARAM</snapRoot>", 5.0f},
        ScaleCase{"Fraction", "<snapRoot unitsScale='0.5'>PARAM</snapRoot>", 20.0f},
        ScaleCase{"Absent", "<snapRoot>PARAM</snapRoot>", 10.0f},
        ScaleCase{"Empty", "<snapRoot unitsScale=''>PARAM</snapRoot>", 10.0f},
        ScaleCase{"NoSnapRoot", "<archive unitsScale='2'>PARAM</archive>", 10.0f},
        ScaleCase{"OtherCase", "<snaproot unitsScale='2'>PARAM</snaproot>", 10.0f},
        ScaleCase{"OnAnInnerElement", "<snapRoot><item unitsScale='2'>PARAM</item></snapRoot>",
                  10.0f},
        ScaleCase{"Inner", "<a><b/><b><c/><snapRoot unitsScale='2'/></b><d>PARAM</d></a>", 5.0f},
        ScaleCase{"AfterTheParam", "<a>PARAM<snapRoot unitsScale='2'/></a>", 5.0f},
        ScaleCase{"FirstOfTwo", "<a><snapRoot unitsScale='2'/><snapRoot unitsScale='5'/>PARAM</a>",
                  5.0f},
        ScaleCase{"OuterBeforeInner",
                  "<snapRoot unitsScale='2'><snapRoot unitsScale='5'>PARAM</snapRoot></snapRoot>",
                  5.0f},
        ScaleCase{"DeeperBeforeLater",
                  "<a><b><c><snapRoot unitsScale='2'/></c></b><snapRoot unitsScale='5'/>PARAM</a>",
                  5.0f},
        ScaleCase{"FirstWithoutScale", "<a><snapRoot/><snapRoot unitsScale='5'/>PARAM</a>", 10.0f},
        ScaleCase{"BehindOtherNodes",
                  "<!--snapRoot--><?snapRoot unitsScale='5'?><a><!--c-->t<snapRoot "
                  "unitsScale='2'/>PARAM</a>",
                  5.0f}),
    [](const auto& instance) { return std::string(instance.param.description); });

/// A document whose root is no "snapRoot", with two lengths of value 10.
class ArchiveUnitsScale : public ::testing::Test {
protected:
    /// By a parameter object that reads for the first time.
    float read(int number) const
    {
        const auto view = RVOpenView<Param>(m_document.elementsByTagName("param").at(number));
        float value = -1.0f;
        view->GetValFloat(&value);
        return value;
    }
    QDomElement snapRoot(const QString& scale)
    {
        QDomElement element = m_document.createElement("snapRoot");
        element.setAttribute("unitsScale", scale);
        return element;
    }

    QDomDocument m_document = parse("<presets><a><param type='float' prop='D' val='10'/></a>"
                                    "<param type='float' prop='D' val='10'/></presets>");
    /// Holds what was found out about the document.
    const std::unique_ptr<Param> m_first =
        bind<Param>(m_document.documentElement().firstChild().firstChild());
};

TEST_F(ArchiveUnitsScale, IsThatOfASnapRootThatIsAddedToTheDocumentLater)
{
    float value = 0.0f;
    m_first->GetValFloat(&value);
    ASSERT_EQ(value, 10.0f);
    EXPECT_EQ(read(1), 10.0f);
    m_document.documentElement().appendChild(snapRoot("2"));

    EXPECT_EQ(read(1), 5.0f);
    m_first->GetValFloat(&value);
    EXPECT_EQ(value, 10.0f) << "a parameter keeps the scale that it saw first";
}

TEST_F(ArchiveUnitsScale, IsThatOfASnapRootThatIsAddedThroughANodeLater)
{
    float value = 0.0f;
    m_first->GetValFloat(&value);
    const RVOpenView<> root(m_document.documentElement());
    auto* const added = new RVOpenNode();
    added->SetDomNode(snapRoot("5"));
    root->InsertNode(added, 0);

    EXPECT_EQ(read(1), 2.0f);
}

TEST_F(ArchiveUnitsScale, FollowsTheFirstSnapRootOfTheMoment)
{
    float value = 0.0f;
    m_first->GetValFloat(&value);
    QDomElement root = m_document.documentElement();
    QDomElement later = snapRoot("2");
    root.appendChild(later);
    EXPECT_EQ(read(1), 5.0f);
    QDomNode earlier = root.insertBefore(snapRoot("5"), root.firstChild());
    EXPECT_EQ(read(1), 2.0f);
    earlier.toElement().setAttribute("unitsScale", "10");
    EXPECT_EQ(read(1), 1.0f);
    root.removeChild(earlier);
    EXPECT_EQ(read(1), 5.0f);
    root.removeChild(later);
    EXPECT_EQ(read(1), 10.0f);
}

TEST_F(ArchiveUnitsScale, IsThatOfTheParametersOwnDocument)
{
    float value = 0.0f;
    m_first->GetValFloat(&value);
    const QDomDocument other = parse("<presets><snapRoot unitsScale='2'/>"
                                     "<param type='float' prop='D' val='10'/></presets>");
    const auto param = bind<Param>(other.documentElement().lastChild());
    param->GetValFloat(&value);

    EXPECT_EQ(value, 5.0f);
    EXPECT_EQ(read(1), 10.0f);
}

TEST_F(ArchiveUnitsScale, OfManyLengthsIsFoundByOneWalk)
{
    // A walk for each would take a thousand million steps.
    QString text = "<presets>";
    for (int i = 0; i < 40000; ++i)
        text += "<param type='float' prop='D' val='10'/>";
    m_document = parse(text + "</presets>");
    const auto root = create(m_document.documentElement());
    int read = 0;
    for (RVOpenNode* child = root->GetChild(1, 1); child; child = child->GetNext(1)) {
        float value = 0.0f;
        read += dynamic_cast<Param*>(child)->GetValFloat(&value) == StatusOk && value == 10.0f;
    }

    EXPECT_EQ(read, 40000);
}

TEST(Param, ScaleOfZeroIsUsed)
{
    EXPECT_EQ(Scaled("unitsScale='0'").write(5.0f), "0");
    EXPECT_EQ(Scaled("unitsScale='0'", "10").read(), std::numeric_limits<float>::infinity());
}

TEST(Param, ScaleThatIsNoNumberIsZero)
{
    EXPECT_EQ(Scaled("unitsScale='wide'").write(5.0f), "0");
}

TEST(Param, ScaleOfZeroIsReadAgain)
{
    const Scaled scaled("unitsScale='0'");
    ASSERT_EQ(scaled.write(5.0f), "0");
    scaled.root().setAttribute("unitsScale", "2");
    EXPECT_EQ(scaled.write(5.0f), "10");
}

TEST(Param, ScaleIsReadOnceByEachObject)
{
    const Scaled scaled("unitsScale='2'");
    ASSERT_EQ(scaled.read(), 5.0f);
    scaled.root().setAttribute("unitsScale", "5");
    EXPECT_EQ(scaled.read(), 5.0f);
    EXPECT_EQ(scaled.write(3.0f), "6");
}

TEST(Param, DefaultScaleIsKeptToo)
{
    const Scaled scaled("");
    ASSERT_EQ(scaled.read(), 10.0f);
    scaled.root().setAttribute("unitsScale", "5");
    EXPECT_EQ(scaled.read(), 10.0f);
}

TEST(Param, NewObjectReadsTheNewScale)
{
    const Scaled scaled("unitsScale='2'");
    ASSERT_EQ(scaled.read(), 5.0f);
    scaled.root().setAttribute("unitsScale", "5");
    const auto other = bind<Param>(scaled.element());
    float value = 0.0f;
    other->GetValFloat(&value);
    EXPECT_EQ(value, 2.0f);
}

TEST(Param, ScaleIsNotReadBeforeItIsNeeded)
{
    const Scaled scaled("unitsScale='2'");
    scaled.param->IsDimensional();
    scaled.root().setAttribute("unitsScale", "5");
    EXPECT_EQ(scaled.read(), 2.0f);
}

TEST(Param, BindingToAnotherElementKeepsTheScale)
{
    const Scaled first("unitsScale='2'");
    const Scaled second("unitsScale='5'", "20");
    ASSERT_EQ(first.read(), 5.0f);
    first.param->SetDomNode(second.element());
    EXPECT_EQ(first.read(), 10.0f);
    first.param->SetDomNode(QDomNode());
}

TEST(Param, FreeParamHasTheScaleOfItsDocument)
{
    const Scaled scaled("unitsScale='2'");
    const auto root = bind(scaled.root());
    const std::unique_ptr<Param> param(root->GetParamHelper()->CreateParam("A"));
    param->GetDomNode().toElement().setAttribute("prop", "D");
    param->SetTypeFloat(5.0f);
    EXPECT_EQ(param->GetDomNode().toElement().attribute("val"), "10");
}

// Range

struct RangeCase {
    const char* description;
    const char* attributes;
    float min;
    float max;
};

class FloatRange : public ::testing::TestWithParam<RangeCase> {
protected:
    const Single m_single{QString("<param type='float' %1/>").arg(GetParam().attributes)};
};

TEST_P(FloatRange, IsGiven)
{
    float min = -77.0f;
    float max = -78.0f;
    EXPECT_EQ(m_single.param->GetFloatRange(&min, &max), StatusOk);
    EXPECT_EQ(min, GetParam().min);
    EXPECT_EQ(max, GetParam().max);
}

TEST_P(FloatRange, IsGivenToOneOutput)
{
    float min = -77.0f;
    float max = -78.0f;
    EXPECT_EQ(m_single.param->GetFloatRange(&min, nullptr), StatusOk);
    EXPECT_EQ(m_single.param->GetFloatRange(nullptr, &max), StatusOk);
    EXPECT_EQ(min, GetParam().min);
    EXPECT_EQ(max, GetParam().max);
}

TEST_P(FloatRange, CanBeAskedForWithoutOutputs)
{
    EXPECT_EQ(m_single.param->GetFloatRange(nullptr, nullptr), StatusOk);
}

INSTANTIATE_TEST_SUITE_P(
    Param, FloatRange,
    ::testing::Values(
        RangeCase{"Narrowed", "rangeMin='0' rangeMax='100' centre='50' range='10'", 45.0f, 55.0f},
        RangeCase{"ClippedAbove", "rangeMin='0' rangeMax='100' centre='99' range='10'",
                  99.0f - 9.9f, 100.0f},
        RangeCase{"ClippedBelow", "rangeMin='0' rangeMax='100' centre='1' range='200'", 0.0f, 3.0f},
        RangeCase{"WithoutCentre", "rangeMin='0' rangeMax='100' range='10'", 0.0f, 100.0f},
        RangeCase{"EmptyCentre", "rangeMin='0' rangeMax='100' centre='' range='10'", 0.0f, 100.0f},
        RangeCase{"WithoutRange", "rangeMin='0' rangeMax='100' centre='50'", 0.0f, 100.0f},
        RangeCase{"EmptyRange", "rangeMin='0' rangeMax='100' centre='50' range=''", 0.0f, 100.0f},
        RangeCase{"RangeOfZero", "rangeMin='0' rangeMax='100' centre='50' range='0'", 50.0f, 50.0f},
        RangeCase{"NegativeCentre", "rangeMin='-100' rangeMax='0' centre='-50' range='10'", -55.0f,
                  -45.0f},
        RangeCase{"AllAbove", "rangeMin='0' rangeMax='100' centre='200' range='10'", 100.0f,
                  100.0f},
        RangeCase{"AllBelow", "rangeMin='0' rangeMax='100' centre='-50' range='10'", 0.0f, 0.0f},
        RangeCase{"Malformed", "rangeMin='low' rangeMax='100'", 0.0f, 100.0f},
        // Rounded in single precision before the percentage, in double precision there.
        RangeCase{"RoundedAsStated", "rangeMin='0' rangeMax='100' centre='3' range='42.1000252'",
                  1.73699915f, 4.26300097f},
        RangeCase{"OfALength",
                  "prop='D' unitsScale='2' rangeMin='0' rangeMax='100' centre='50' range='10'",
                  45.0f, 55.0f}),
    [](const auto& instance) { return std::string(instance.param.description); });

TEST(Param, RangeIsNeverConverted)
{
    const Scaled scaled("unitsScale='2'");
    scaled.element().setAttribute("rangeMin", "4");
    scaled.element().setAttribute("rangeMax", "8");
    float min = 0.0f;
    float max = 0.0f;
    ASSERT_EQ(scaled.read(), 5.0f);
    EXPECT_EQ(scaled.param->GetFloatRange(&min, &max), StatusOk);
    EXPECT_EQ(min, 4.0f);
    EXPECT_EQ(max, 8.0f);
}

class MissingRange : public ::testing::TestWithParam<const char*> {};

TEST_P(MissingRange, LeavesTheOutputs)
{
    float min = -77.0f;
    float max = -78.0f;
    EXPECT_EQ(Single(GetParam()).param->GetFloatRange(&min, &max), StatusMissing);
    EXPECT_EQ(min, -77.0f);
    EXPECT_EQ(max, -78.0f);
}

INSTANTIATE_TEST_SUITE_P(
    Param, MissingRange,
    ::testing::Values("<param type='float'/>", "<param type='float' rangeMin='0'/>",
                      "<param type='float' rangeMax='100'/>",
                      "<param type='float' rangeMin='' rangeMax='100'/>",
                      "<param type='float' rangeMin='0' rangeMax=''/>",
                      "<param type='float' rangeMin='0' centre='50' range='10'/>",
                      "<param type='integer' rangeMin='0' rangeMax='100'/>",
                      "<param rangeMin='0' rangeMax='100'/>"));

} // namespace
} // namespace rvopen::test
