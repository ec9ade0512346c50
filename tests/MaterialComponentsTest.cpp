// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "MaterialFixtures.h"

#include <rvopen/Bump.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/Transparency.h>

#include <functional>

// The components of a material and their shaders: what they are made of, what they make and when
// two of them are equal.

namespace {

using namespace rvopen;
using namespace rvopen::test;

/// Making

template <typename Class>
class ComponentTest : public testing::Test {
};

using ComponentClasses = testing::Types<Colour, Finish, Transparency, Bump>;
TYPED_TEST_SUITE(ComponentTest, ComponentClasses);

TYPED_TEST(ComponentTest, MadeFromNullStandsForNothing)
{
    const TypeParam empty(nullptr);
    EXPECT_TRUE(empty.GetDomNode().isNull());
}

TYPED_TEST(ComponentTest, MadeFromASourceIsAnIndependentDeepCopyInTheSameDocument)
{
    const auto source = bindRoot<TypeParam>("<component name='a'><part/></component>");
    TypeParam copy(source.get());
    EXPECT_EQ(textOf(copy), textOf(*source));
    EXPECT_TRUE(copy.GetDomNode().parentNode().isNull());
    EXPECT_EQ(copy.GetDomNode().ownerDocument(), source->GetDomNode().ownerDocument());
    copy.SetName("b");
    EXPECT_EQ(source->GetName(), "a");
}

TYPED_TEST(ComponentTest, IsNotEqualToNull)
{
    EXPECT_FALSE(bindRoot<TypeParam>("<component refname='a'/>")->Equal(nullptr));
}

template <typename Class>
class ShaderTest : public testing::Test {
};

using ShaderClasses = testing::Types<ShaderDiffuse, ShaderColour, ShaderPlainColour, ShaderMap>;
TYPED_TEST_SUITE(ShaderTest, ShaderClasses);

TYPED_TEST(ShaderTest, IsMadeStandingForNothing)
{
    const TypeParam empty;
    EXPECT_TRUE(empty.GetDomNode().isNull());
}

TYPED_TEST(ShaderTest, IsNotEqualToNull)
{
    EXPECT_FALSE(bindRoot<TypeParam>("<shader/>")->Equal(nullptr));
}

/// Children that are made on demand

struct ChildGetter {
    const char* name;
    /// The element that owns the child.
    QString owner;
    /// The child as it is made.
    QString made;
    /// A second child of the kind, which differs from the made one.
    QString other;
    /// Gets the child of a new object over the element, creating or not.
    std::function<RVOpenNode*(RVOpenNode*, int)> get;
    std::function<std::unique_ptr<RVOpenNode>(const QString&)> bindOwner;
};

void PrintTo(const ChildGetter& getter, std::ostream* out)
{
    *out << getter.name;
}

template <typename Class, typename Child>
ChildGetter childGetter(const char* name, const char* owner, const QString& made,
                        Child* (Class::*get)())
{
    return {name,
            owner,
            made,
            QString(made)
                .replace("<diffuse", "<diffuse name='other'")
                .replace("name='Colour'", "name='other'"),
            [get](RVOpenNode* node, int) { return (dynamic_cast<Class*>(node)->*get)(); },
            [](const QString& xml) { return bindRoot<Class>(xml); }};
}

template <typename Class, typename Child>
ChildGetter childGetter(const char* name, const char* owner, const char* made,
                        Child* (Class::*get)(int))
{
    return {
        name,
        owner,
        QStringLiteral("<%1 enabled='1'/>").arg(made),
        QStringLiteral("<%1 name='other'/>").arg(made),
        [get](RVOpenNode* node, int create) { return (dynamic_cast<Class*>(node)->*get)(create); },
        [](const QString& xml) { return bindRoot<Class>(xml); }};
}

class ChildGetterTest : public testing::TestWithParam<ChildGetter> {
protected:
    static std::unique_ptr<RVOpenNode> ownerWith(const QString& content)
    {
        return GetParam().bindOwner(QStringLiteral("<%1>%2</%1>").arg(GetParam().owner, content));
    }
    static QString ownerText(const QString& content)
    {
        return textOf(QStringLiteral("<%1>%2</%1>").arg(GetParam().owner, content));
    }
};

const ChildGetter s_childGetters[] = {
    childGetter("ColourGetDiffuse", "colour", "<diffuse enabled='1'/>", &Colour::GetDiffuse),
    childGetter("TransparencyGetColour", "transparency", shaderColourXml(),
                &Transparency::GetColour),
    childGetter("BumpGetColour", "bump", shaderColourXml(), &Bump::GetColour),
    childGetter("ShaderDiffuseGetColour", "diffuse", shaderColourXml(), &ShaderDiffuse::GetColour),
};

/// Those that create only when they are asked to.
const ChildGetter s_optionalChildGetters[] = {
    childGetter("ShaderColourGetPlainColour", "param", "plainColour",
                &ShaderColour::GetPlainColour),
    childGetter("ShaderColourGetMap", "param", "map", &ShaderColour::GetMap),
};

class OptionalChildGetterTest : public ChildGetterTest {};

std::string childGetterName(const testing::TestParamInfo<ChildGetter>& getter)
{
    return getter.param.name;
}

INSTANTIATE_TEST_SUITE_P(All, ChildGetterTest, testing::ValuesIn(s_childGetters), childGetterName);
INSTANTIATE_TEST_SUITE_P(Optional, ChildGetterTest, testing::ValuesIn(s_optionalChildGetters),
                         childGetterName);
INSTANTIATE_TEST_SUITE_P(All, OptionalChildGetterTest, testing::ValuesIn(s_optionalChildGetters),
                         childGetterName);

TEST_P(ChildGetterTest, AppendsAMissingChildOnce)
{
    const auto owner = ownerWith("<unknown/>");
    RVOpenNode* const made = GetParam().get(owner.get(), 1);
    ASSERT_TRUE(made);
    EXPECT_EQ(GetParam().get(owner.get(), 1), made);
    EXPECT_EQ(textOf(*owner), ownerText("<unknown/>" + GetParam().made));
    EXPECT_TRUE(mirrorsWholeDom(owner.get()));
}

TEST_P(ChildGetterTest, GivesTheFirstChildOfTheKindAndAddsNothing)
{
    const auto owner = ownerWith("<unknown/>" + GetParam().other + GetParam().made);
    const RVOpenNode* const found = GetParam().get(owner.get(), 1);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->GetName(), "other");
    EXPECT_EQ(textOf(*owner), ownerText("<unknown/>" + GetParam().other + GetParam().made));
}

TEST_P(OptionalChildGetterTest, WithoutTheFlagAddsNothing)
{
    const auto owner = ownerWith("<unknown/>");
    EXPECT_FALSE(GetParam().get(owner.get(), 0));
    EXPECT_EQ(textOf(*owner), ownerText("<unknown/>"));
}

TEST_P(ChildGetterTest, AddsNothingToAnArchiveThatCannotBeOpened)
{
    const auto owner = GetParam().bindOwner(stoneReference(GetParam().owner));
    EXPECT_FALSE(GetParam().get(owner.get(), 1));
    EXPECT_EQ(textOf(*owner), textOf(stoneReference(GetParam().owner)));
}

TEST(BumpTest, ParametersBehindTheColourAreFoundAfterTheColour)
{
    const auto bump =
        bindRoot<Bump>("<bump>" + shaderColourXml() + param("Height", "float", "3") + "</bump>");
    ASSERT_TRUE(bump->GetColour());
    float height = 0.0f;
    EXPECT_EQ(bump->GetHeight(&height), StatusOk);
    EXPECT_EQ(height, 3.0f);
}

TEST(ColourTest, SettingTheDiffuseReplacesThePresentOne)
{
    const auto colour = bindRoot<Colour>("<colour><diffuse name='old'/></colour>");
    QDomDocument document = colour->GetDomNode().ownerDocument();
    ShaderDiffuse* const fresh = bind<ShaderDiffuse>(document.createElement("diffuse")).release();
    EXPECT_EQ(colour->SetDiffuse(fresh), StatusOk);
    EXPECT_EQ(colour->GetDiffuse(), fresh);
    EXPECT_EQ(textOf(*colour), "<colour><diffuse/></colour>");
    EXPECT_TRUE(mirrorsWholeDom(colour.get()));
}

TEST(ColourTest, SettingADiffuseWhereNoneIsLeavesThatOneAlone)
{
    const auto colour = bindRoot<Colour>("<colour/>");
    QDomDocument document = colour->GetDomNode().ownerDocument();
    colour->SetDiffuse(bind<ShaderDiffuse>(document.createElement("diffuse")).release());
    EXPECT_EQ(textOf(*colour), "<colour><diffuse/></colour>");
}

TEST(ColourTest, SettingANullDiffuseRemoves)
{
    const auto colour = bindRoot<Colour>("<colour><diffuse/></colour>");
    EXPECT_EQ(colour->SetDiffuse(nullptr), StatusOk);
    EXPECT_EQ(textOf(*colour), "<colour/>");
}

TEST(ColourTest, SettingTheOwnDiffuseLeavesEqualContent)
{
    const auto colour = bindRoot<Colour>(colourXml("1 0 0"));
    EXPECT_EQ(colour->SetDiffuse(colour->GetDiffuse()), StatusOk);
    EXPECT_EQ(textOf(*colour), textOf(colourXml("1 0 0")));
    EXPECT_TRUE(mirrorsWholeDom(colour.get()));
}

/// Finish

const char* const s_litAppearance = "diffuse factor: float = 0\n"
                                    "specular factor: float = 0\n"
                                    "transmission factor: float = 0\n"
                                    "mirror factor: float = 0\n"
                                    "roughness: float = 0\n"
                                    "refraction: float = 0\n"
                                    "light intensity: float = 0\n"
                                    "object area: float = 0 [D]\n"
                                    "object size: float = 0 [D]\n"
                                    "light colour: colour = 1 1 1\n";

TEST(FinishTest, LitAppearanceHasItsParametersInOrder)
{
    const auto finish = bindRoot<Finish>("<finish/>");
    EXPECT_EQ(finish->SetAndPopulateShaderClass("lit appearance"), StatusOk);
    EXPECT_EQ(finish->GetShaderClass(), "lit appearance");
    EXPECT_EQ(paramsOf(finish->GetDomNode().toElement()), s_litAppearance);
    EXPECT_TRUE(mirrorsWholeDom(finish.get()));
}

TEST(FinishTest, TakingAShaderClassAgainAddsTheParametersAgain)
{
    const auto finish = bindRoot<Finish>("<finish/>");
    finish->SetAndPopulateShaderClass("lit appearance");
    EXPECT_EQ(finish->SetAndPopulateShaderClass("lit appearance"), StatusOk);
    EXPECT_EQ(paramsOf(finish->GetDomNode().toElement()),
              std::string(s_litAppearance) + s_litAppearance);
}

class UnknownShaderClassTest : public testing::TestWithParam<const char*> {};

INSTANTIATE_TEST_SUITE_P(Names, UnknownShaderClassTest,
                         testing::Values("", "Lit Appearance", "lit appearance ", "metal"));

TEST_P(UnknownShaderClassTest, IsRefusedWithNothingChanged)
{
    const char* const xml = "<finish shaderClass='before'><param name='a'/></finish>";
    const auto finish = bindRoot<Finish>(xml);
    EXPECT_EQ(finish->SetAndPopulateShaderClass(GetParam()), StatusUnknownShaderClass);
    EXPECT_EQ(textOf(*finish), textOf(QString(xml)));
}

/// Parameters

/// What an output holds before a getter is called.
constexpr int untouched = 77;

/// A value in its texts: as it is set and stored, as something malformed reads, as an output that
/// was left alone.
struct Texts {
    const char* value;
    const char* malformed;
    const char* untouched;
};

Texts textsOf(const std::string& type)
{
    if (type == "colour")
        return {"0.25 0.5 1", "0 0 0", "77 77 77"};
    return {type == "float" ? "2.5" : "1", "0", "77"};
}

struct Accessor {
    const char* name;
    const char* parameter;
    const char* type;
    /// Property letters of a parameter that the setter creates, as paramsOf() shows them.
    const char* letters;
    /// The status and the output of the getter on a node with these parameters.
    std::function<std::string(const QString&)> get;
    std::function<unsigned int(const QString&)> getIntoNull;
    /// The status of the setter and the parameters after it.
    std::function<std::string(const QString&)> set;

    Accessor ofLength() const
    {
        Accessor changed = *this;
        changed.letters = " [D]";
        return changed;
    }
    QString withValue(const char* value) const
    {
        return param(parameter, type, value);
    }
    QString ofOtherType() const
    {
        return param(parameter, "string", "3");
    }
};

void PrintTo(const Accessor& accessor, std::ostream* out)
{
    *out << accessor.name;
}

template <typename Class, typename Value, typename Argument>
Accessor accessor(const char* name, const char* parameter, const char* type,
                  unsigned int (Class::*get)(Value*), unsigned int (Class::*set)(Argument),
                  Argument value)
{
    const auto nodeWith = [](const QString& params) {
        return bindRoot<Class>("<node>" + params + "</node>");
    };
    return {name,
            parameter,
            type,
            "",
            [=](const QString& params) {
                Value out[] = {untouched, untouched, untouched};
                const unsigned int status = (nodeWith(params).get()->*get)(out);
                QString text = QStringLiteral("%1 %2").arg(status).arg(out[0]);
                if (std::string(type) == "colour")
                    text += QStringLiteral(" %1 %2").arg(out[1]).arg(out[2]);
                return text.toStdString();
            },
            [=](const QString& params) { return (nodeWith(params).get()->*get)(nullptr); },
            [=](const QString& params) {
                const auto node = nodeWith(params);
                const unsigned int status = (node.get()->*set)(value);
                return std::to_string(status) + "\n" + paramsOf(node->GetDomNode().toElement());
            }};
}

template <typename Class>
Accessor flag(const char* name, const char* parameter, unsigned int (Class::*get)(int*),
              unsigned int (Class::*set)(int))
{
    return accessor(name, parameter, "boolean", get, set, 7);
}

template <typename Class>
Accessor number(const char* name, const char* parameter, unsigned int (Class::*get)(float*),
                unsigned int (Class::*set)(float))
{
    return accessor(name, parameter, "float", get, set, 2.5f);
}

template <typename Class>
Accessor rgb(const char* name, const char* parameter, unsigned int (Class::*get)(float*),
             unsigned int (Class::*set)(float*))
{
    static float value[] = {0.25f, 0.5f, 1.0f};
    return accessor(name, parameter, "colour", get, set, static_cast<float*>(value));
}

const Accessor s_accessors[] = {
    flag("BumpUseDiffuse", "Use Diffuse", &Bump::GetUseDiffuse, &Bump::SetUseDiffuse),
    flag("BumpIsNormalMap", "Is Normal Map", &Bump::GetIsNormalMap, &Bump::SetIsNormalMap),
    number("BumpHeight", "Height", &Bump::GetHeight, &Bump::SetHeight),
    number("BumpSoftness", "Softness", &Bump::GetSoftness, &Bump::SetSoftness),
    flag("TransparencyInvertMask", "InvertMask", &Transparency::GetInvertMask,
         &Transparency::SetInvertMask),
    rgb("ShaderPlainColourColour", "Colour", &ShaderPlainColour::GetColour,
        &ShaderPlainColour::SetColour),
    number("ShaderMapRotation", "Rotation", &ShaderMap::GetRotation, &ShaderMap::SetRotation),
    number("ShaderMapWidth", "Width", &ShaderMap::GetWidth, &ShaderMap::SetWidth).ofLength(),
    number("ShaderMapHeight", "Height", &ShaderMap::GetHeight, &ShaderMap::SetHeight).ofLength(),
    flag("ShaderMapUseAlpha", "Use Alpha", &ShaderMap::GetUseAlpha, &ShaderMap::SetUseAlpha),
};

class AccessorTest : public testing::TestWithParam<Accessor> {
protected:
    /// The getter's answer, as it should be.
    static std::string answer(unsigned int status, const char* output)
    {
        return std::to_string(status) + " " + output;
    }
    static Texts texts()
    {
        return textsOf(GetParam().type);
    }
};

INSTANTIATE_TEST_SUITE_P(All, AccessorTest, testing::ValuesIn(s_accessors),
                         [](const auto& accessor) { return std::string(accessor.param.name); });

TEST_P(AccessorTest, ReadsTheParameterOfItsName)
{
    EXPECT_EQ(GetParam().get(param("Other", "string", "a") + GetParam().withValue(texts().value)),
              answer(StatusOk, texts().value));
}

TEST_P(AccessorTest, ReadsNothingWhereTheParameterIsMissing)
{
    const QString otherName = QString(GetParam().parameter).toUpper();
    EXPECT_EQ(GetParam().get(param(otherName.toUtf8().constData(), GetParam().type, "1")),
              answer(StatusMissing, texts().untouched));
}

TEST_P(AccessorTest, ReadsNothingFromAnEmptyValue)
{
    EXPECT_EQ(GetParam().get(GetParam().withValue("")), answer(StatusMissing, texts().untouched));
}

TEST_P(AccessorTest, ReadsNothingFromAParameterOfAnotherType)
{
    EXPECT_EQ(GetParam().get(GetParam().ofOtherType()), answer(StatusMissing, texts().untouched));
}

TEST_P(AccessorTest, ReadsZeroFromAMalformedValue)
{
    EXPECT_EQ(GetParam().get(GetParam().withValue("abc")), answer(StatusOk, texts().malformed));
}

TEST_P(AccessorTest, ReadsNothingIntoANullOutput)
{
    EXPECT_EQ(GetParam().getIntoNull(GetParam().withValue(texts().value)), StatusMissing);
}

TEST_P(AccessorTest, WritesTheValueOfAPresentParameterAndNothingElse)
{
    EXPECT_EQ(GetParam().set(GetParam().withValue("abc")),
              std::string("0\n") + GetParam().parameter + ": " + GetParam().type + " = " +
                  texts().value + "\n");
}

TEST_P(AccessorTest, CreatesAMissingParameter)
{
    EXPECT_EQ(GetParam().set(param("Other", "string", "a")),
              std::string("0\nOther: string = a\n") + GetParam().parameter + ": " +
                  GetParam().type + " = " + texts().value + GetParam().letters + "\n");
}

TEST_P(AccessorTest, RefusesAParameterOfAnotherType)
{
    EXPECT_EQ(GetParam().set(GetParam().ofOtherType()),
              std::string("2\n") + GetParam().parameter + ": string = 3\n");
}

TEST(ShaderMapTest, TheTextureIsEmptyWhereTheParameterIsMissingOrOfAnotherType)
{
    EXPECT_EQ(bindRoot<ShaderMap>("<map/>")->GetTexture(), QString());
    EXPECT_EQ(
        bindRoot<ShaderMap>("<map>" + param("Texture", "float", "1") + "</map>")->GetTexture(),
        QString());
}

TEST(ShaderMapTest, SettingTheTextureCreatesItsParameter)
{
    const auto map = bindRoot<ShaderMap>("<map/>");
    EXPECT_EQ(map->SetTexture("maps\\wood.png"), StatusOk);
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()), "Texture: string = maps\\wood.png\n");
}

TEST(ShaderMapTest, SettingTheTextureWritesThePresentParameter)
{
    const auto map = bindRoot<ShaderMap>("<map>" + param("Texture", "string", "a") + "</map>");
    EXPECT_EQ(map->SetTexture("b"), StatusOk);
    EXPECT_EQ(map->GetTexture(), "b");
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()), "Texture: string = b\n");
}

TEST(ShaderMapTest, SettingTheTextureRefusesAParameterOfAnotherType)
{
    const auto map = bindRoot<ShaderMap>("<map>" + param("Texture", "float", "1") + "</map>");
    EXPECT_EQ(map->SetTexture("b"), StatusMissing);
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()), "Texture: float = 1\n");
}

TEST(ShaderMapTest, LengthsAreStoredInDocumentUnits)
{
    const QDomDocument document = parse("<snapRoot unitsScale='2'><map/></snapRoot>");
    const QDomElement element = document.documentElement().firstChildElement();
    const auto map = bind<ShaderMap>(element);
    map->SetWidth(1.0f);
    map->SetHeight(2.0f);
    map->SetOffset(3.0f, 4.0f);
    map->SetRotation(5.0f);
    EXPECT_EQ(paramsOf(element), "Width: float = 2 [D]\n"
                                 "Height: float = 4 [D]\n"
                                 "S Offset: float = 6 [D]\n"
                                 "T Offset: float = 8 [D]\n"
                                 "Rotation: float = 5\n");

    float values[] = {0.0f, 0.0f, 0.0f, 0.0f};
    map->GetWidth(&values[0]);
    map->GetHeight(&values[1]);
    map->GetOffset(&values[2], &values[3]);
    EXPECT_THAT(values, testing::ElementsAre(1.0f, 2.0f, 3.0f, 4.0f));
}

struct Length {
    const char* parameter;
    void (*set)(ShaderMap&);
};

class ShaderMapLengthTest : public testing::TestWithParam<Length> {};

INSTANTIATE_TEST_SUITE_P(
    All, ShaderMapLengthTest,
    testing::Values(Length{"Width", [](ShaderMap& map) { map.SetWidth(3.0f); }},
                    Length{"Height", [](ShaderMap& map) { map.SetHeight(3.0f); }},
                    Length{"S Offset", [](ShaderMap& map) { map.SetOffset(3.0f, 1.0f); }},
                    Length{"T Offset", [](ShaderMap& map) { map.SetOffset(1.0f, 3.0f); }}),
    [](const auto& length) { return QString(length.param.parameter).remove(' ').toStdString(); });

TEST_P(ShaderMapLengthTest, IsNotMarkedOnAParameterThatExists)
{
    const auto map = bindRoot<ShaderMap>(
        QStringLiteral("<map>%1</map>").arg(param(GetParam().parameter, "float", "1")));
    GetParam().set(*map);
    const QDomElement element = map->GetDomNode().firstChildElement();
    EXPECT_EQ(element.attribute("val"), "3");
    EXPECT_FALSE(element.hasAttribute("prop"));
}

/// Pairs of parameters: statuses of the pair for the states of its two parameters.

enum class State { Good, Missing, OtherType };

struct Pair {
    State first;
    State second;
    unsigned int status;
};

void PrintTo(const Pair& pair, std::ostream* out)
{
    const char* const names[] = {"good", "missing", "of another type"};
    *out << "first " << names[static_cast<int>(pair.first)] << ", second "
         << names[static_cast<int>(pair.second)];
}

QString pairParam(const char* name, const char* type, State state)
{
    if (state == State::Missing)
        return QString();
    return state == State::Good ? param(name, type, "1") : param(name, "string", "1");
}

std::unique_ptr<ShaderMap> mapWithMapping(const Pair& pair)
{
    return bindRoot<ShaderMap>("<map>" + pairParam("S Reflect", "boolean", pair.first) +
                               pairParam("T Reflect", "boolean", pair.second) + "</map>");
}

std::unique_ptr<ShaderMap> mapWithOffset(const Pair& pair)
{
    return bindRoot<ShaderMap>("<map>" + pairParam("S Offset", "float", pair.first) +
                               pairParam("T Offset", "float", pair.second) + "</map>");
}

class GetMappingTest : public testing::TestWithParam<Pair> {};

INSTANTIATE_TEST_SUITE_P(States, GetMappingTest,
                         testing::Values(Pair{State::Good, State::Good, 0},
                                         Pair{State::Missing, State::Good, 0},
                                         Pair{State::OtherType, State::Good, 0},
                                         Pair{State::Good, State::Missing, 2},
                                         Pair{State::Good, State::OtherType, 2},
                                         Pair{State::Missing, State::Missing, 2}));

TEST_P(GetMappingTest, AnswersForTheSecond)
{
    int s = 77;
    int t = 77;
    EXPECT_EQ(mapWithMapping(GetParam())->GetMapping(&s, &t), GetParam().status);
}

TEST_P(GetMappingTest, ReadsEachThatCanBeRead)
{
    int s = 77;
    int t = 77;
    mapWithMapping(GetParam())->GetMapping(&s, &t);
    EXPECT_EQ(s, GetParam().first == State::Good ? 1 : 77);
    EXPECT_EQ(t, GetParam().second == State::Good ? 1 : 77);
}

class GetOffsetTest : public testing::TestWithParam<Pair> {};

INSTANTIATE_TEST_SUITE_P(
    States, GetOffsetTest,
    testing::Values(Pair{State::Good, State::Good, 0}, Pair{State::Missing, State::Good, 0},
                    Pair{State::OtherType, State::Good, 0}, Pair{State::Good, State::OtherType, 2},
                    Pair{State::Good, State::Missing, 0}, Pair{State::OtherType, State::Missing, 2},
                    Pair{State::Missing, State::Missing, 2}));

TEST_P(GetOffsetTest, AnswersForTheSecondWhereItExistsElseForTheFirst)
{
    float s = 77.0f;
    float t = 77.0f;
    EXPECT_EQ(mapWithOffset(GetParam())->GetOffset(&s, &t), GetParam().status);
}

TEST_P(GetOffsetTest, ReadsEachThatCanBeRead)
{
    float s = 77.0f;
    float t = 77.0f;
    mapWithOffset(GetParam())->GetOffset(&s, &t);
    EXPECT_EQ(s, GetParam().first == State::Good ? 1.0f : 77.0f);
    EXPECT_EQ(t, GetParam().second == State::Good ? 1.0f : 77.0f);
}

TEST(ShaderMapTest, NullOutputsOfAPairReadNothing)
{
    const auto map = bindRoot<ShaderMap>(
        "<map>" + param("S Reflect", "boolean", "1") + param("T Reflect", "boolean", "1") +
        param("S Offset", "float", "1") + param("T Offset", "float", "1") + "</map>");
    EXPECT_EQ(map->GetMapping(nullptr, nullptr), StatusMissing);
    EXPECT_EQ(map->GetOffset(nullptr, nullptr), StatusMissing);
}

class SetPairTest : public testing::TestWithParam<Pair> {
protected:
    /// The parameters of the pair after both were set to 0 and 1.
    static std::string written(const char* first, const char* second, const char* type,
                               const char* letters)
    {
        const auto line = [&](const char* name, State state, const char* value) {
            if (state == State::OtherType)
                return std::string(name) + ": string = 1\n";
            return std::string(name) + ": " + type + " = " + value +
                   (state == State::Missing ? letters : "") + "\n";
        };
        const std::string firstLine = line(first, GetParam().first, "0");
        const std::string secondLine = line(second, GetParam().second, "1");
        const bool firstIsAppended =
            GetParam().first == State::Missing && GetParam().second != State::Missing;
        return firstIsAppended ? secondLine + firstLine : firstLine + secondLine;
    }
};

INSTANTIATE_TEST_SUITE_P(States, SetPairTest,
                         testing::Values(Pair{State::Good, State::Good, 0},
                                         Pair{State::Missing, State::Missing, 0},
                                         Pair{State::Missing, State::Good, 0},
                                         Pair{State::Good, State::Missing, 0},
                                         Pair{State::OtherType, State::Good, 0},
                                         Pair{State::OtherType, State::Missing, 0},
                                         Pair{State::Good, State::OtherType, 2},
                                         Pair{State::Missing, State::OtherType, 2}));

TEST_P(SetPairTest, MappingAnswersForTheSecond)
{
    EXPECT_EQ(mapWithMapping(GetParam())->SetMapping(0, 1), GetParam().status);
}

TEST_P(SetPairTest, OffsetAnswersForTheSecond)
{
    EXPECT_EQ(mapWithOffset(GetParam())->SetOffset(0.0f, 1.0f), GetParam().status);
}

TEST_P(SetPairTest, MappingWritesAndCreatesBoth)
{
    const auto map = mapWithMapping(GetParam());
    map->SetMapping(0, 1);
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()),
              written("S Reflect", "T Reflect", "boolean", ""));
}

TEST_P(SetPairTest, OffsetWritesAndCreatesBothAsLengths)
{
    const auto map = mapWithOffset(GetParam());
    map->SetOffset(0.0f, 1.0f);
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()),
              written("S Offset", "T Offset", "float", " [D]"));
}

TEST(ShaderMapTest, APairThatIsBehindOtherChildrenIsStillWritten)
{
    const auto map =
        bindRoot<ShaderMap>("<map>" + param("S Reflect", "string", "1") + "<unknown/></map>");
    EXPECT_EQ(map->SetMapping(0, 1), StatusOk);
    EXPECT_EQ(paramsOf(map->GetDomNode().toElement()), "S Reflect: string = 1\n"
                                                       "T Reflect: boolean = 1\n");
}

TEST(ShaderMapTest, NeitherOfAPairCanBeCreatedInAnArchiveThatCannotBeOpened)
{
    const auto map = bindRoot<ShaderMap>(stoneReference("map"));
    EXPECT_EQ(map->SetMapping(1, 1), StatusMissing);
    EXPECT_EQ(map->SetOffset(1.0f, 1.0f), StatusMissing);
    EXPECT_EQ(textOf(*map), textOf(stoneReference("map")));
}

/// Equality

template <typename Class>
bool equal(const QString& one, const QString& other)
{
    return bindRoot<Class>(one)->Equal(bindRoot<Class>(other).get());
}

class ColourEqualTest : public testing::TestWithParam<Comparison> {};
class FinishEqualTest : public testing::TestWithParam<Comparison> {};
class TransparencyEqualTest : public testing::TestWithParam<Comparison> {};
class BumpEqualTest : public testing::TestWithParam<Comparison> {};
class DiffuseEqualTest : public testing::TestWithParam<Comparison> {};
class ShaderColourEqualTest : public testing::TestWithParam<Comparison> {};
class PlainColourEqualTest : public testing::TestWithParam<Comparison> {};
class MapEqualTest : public testing::TestWithParam<Comparison> {};

#define TEST_EQUAL(Suite, Class)                                                                   \
    TEST_P(Suite, Compares)                                                                        \
    {                                                                                              \
        EXPECT_EQ(equal<Class>(GetParam().one, GetParam().other), GetParam().equal);               \
    }                                                                                              \
    TEST_P(Suite, ComparesTheOtherWayRound)                                                        \
    {                                                                                              \
        EXPECT_EQ(equal<Class>(GetParam().other, GetParam().one), GetParam().equal);               \
    }

TEST_EQUAL(ColourEqualTest, Colour)
TEST_EQUAL(FinishEqualTest, Finish)
TEST_EQUAL(TransparencyEqualTest, Transparency)
TEST_EQUAL(BumpEqualTest, Bump)
TEST_EQUAL(DiffuseEqualTest, ShaderDiffuse)
TEST_EQUAL(ShaderColourEqualTest, ShaderColour)
TEST_EQUAL(PlainColourEqualTest, ShaderPlainColour)
TEST_EQUAL(MapEqualTest, ShaderMap)

/// What every component has in common: reference names come before content.
std::vector<Comparison> byReferenceName(const QString& element, const QString& content,
                                        const QString& otherContent)
{
    const auto with = [&](const QString& refName, const QString& inside) {
        return QStringLiteral("<%1 refname='%2'>%3</%1>").arg(element, refName, inside);
    };
    return {
        {"SameReferenceNameDecidesOverContent", with("a", content), with("a", otherContent), true},
        {"DifferentReferenceNamesDecideOverContent", with("a", content), with("b", content), false},
        {"ReferenceNamesAreCaseSensitive", with("a", content), with("A", content), false},
        {"ReferenceNameOnOneSide", with("a", content), with("", content), false},
        {"EmptyReferenceNamesLeaveItToTheContent", with("", content), with("", content), true},
    };
}

std::vector<Comparison> operator+(std::vector<Comparison> some, const std::vector<Comparison>& more)
{
    some.insert(some.end(), more.begin(), more.end());
    return some;
}

QString diffuseXml(const QString& rgb)
{
    return "<diffuse>" + shaderColourXml(plainColourXml(rgb)) + "</diffuse>";
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, ColourEqualTest,
    testing::ValuesIn(byReferenceName("colour", diffuseXml("1 0 0"), diffuseXml("0 1 0")) +
                      std::vector<Comparison>{
                          {"Same", colourXml("1 0 0"), colourXml("1 0 0"), true},
                          {"Different", colourXml("1 0 0"), colourXml("0 1 0"), false},
                          {"OneEmpty", colourXml("1 0 0"), "<colour/>", false},
                          {"BothEmpty", "<colour/>", "<colour/>", false},
                      }),
    comparisonName);

INSTANTIATE_TEST_SUITE_P(
    Pairs, FinishEqualTest,
    testing::ValuesIn(
        byReferenceName("finish", "", param("roughness", "float", "1")) +
        std::vector<Comparison>{
            {"DifferentParameters",
             "<finish shaderClass='a'>" + param("roughness", "float", "1") + "</finish>",
             "<finish shaderClass='b'>" + param("roughness", "float", "2") + "</finish>", true},
        }),
    comparisonName);

INSTANTIATE_TEST_SUITE_P(
    Pairs, TransparencyEqualTest,
    testing::ValuesIn(
        byReferenceName("transparency", shaderColourXml(plainColourXml("1 0 0")),
                        shaderColourXml(plainColourXml("0 1 0"))) +
        std::vector<Comparison>{
            {"Same", transparencyXml("1"), transparencyXml("1"), true},
            {"DifferentMask", transparencyXml("1"), transparencyXml("0"), false},
            {"MaskMissingOnOneSide", transparencyXml("1"),
             "<transparency>" + shaderColourXml(plainColourXml("1 1 1")) + "</transparency>", true},
            {"DifferentColours",
             "<transparency>" + shaderColourXml(plainColourXml("1 0 0")) + "</transparency>",
             "<transparency>" + shaderColourXml(plainColourXml("0 1 0")) + "</transparency>",
             false},
            {"BothEmpty", "<transparency/>", "<transparency/>", false},
        }),
    comparisonName);

QString bumpWith(const QString& params)
{
    return "<bump>" + params + shaderColourXml(plainColourXml("1 1 1")) + "</bump>";
}

QString mapWith(const QString& params)
{
    return "<map>" + params + "</map>";
}

/// The states of one parameter of the two sides. Where a value cannot be read, there is nothing to
/// compare.
std::vector<Comparison> byParameter(const QString& name, const char* type,
                                    QString (*with)(const QString&))
{
    const std::string title = QString(name).remove(' ').toStdString();
    const auto value = [&](const char* valueType, const char* val) {
        return with(param(name.toUtf8().constData(), valueType, val));
    };
    std::vector<Comparison> result = {
        {title + "Same", value(type, "1"), value(type, "1"), true},
        {title + "Different", value(type, "1"), value(type, "0"), false},
        {title + "MissingOnOneSide", value(type, "1"), with(QString()), true},
        {title + "EmptyOnOneSide", value(type, "1"), value(type, ""), true},
        {title + "OfAnotherTypeOnOneSide", value(type, "1"), value("string", "0"), true},
    };
    if (std::string(type) == "float") {
        result.push_back(
            {title + "ALittleDifferent", value(type, "1.00001"), value(type, "1"), false});
        result.push_back({title + "NoNumber", value(type, "nan"), value(type, "nan"), false});
        result.push_back({title + "Infinite", value(type, "inf"), value(type, "inf"), true});
        result.push_back(
            {title + "InfiniteBothWays", value(type, "inf"), value(type, "-inf"), false});
        result.push_back(
            {title + "InfiniteOnOneSide", value(type, "inf"), value(type, "3.4e38"), false});
        result.push_back({title + "TooLarge", value(type, "1e999"), value(type, "1e999"), true});
        result.push_back(
            {title + "TooLargeIsInfinite", value(type, "1e39"), value(type, "inf"), true});
    }
    return result;
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, BumpEqualTest,
    testing::ValuesIn(byReferenceName("bump", shaderColourXml(plainColourXml("1 0 0")),
                                      shaderColourXml(plainColourXml("0 1 0"))) +
                      byParameter("Height", "float", bumpWith) +
                      byParameter("Softness", "float", bumpWith) +
                      byParameter("Use Diffuse", "boolean", bumpWith) +
                      byParameter("Is Normal Map", "boolean", bumpWith) +
                      std::vector<Comparison>{
                          {"DifferentColours",
                           "<bump>" + shaderColourXml(plainColourXml("1 0 0")) + "</bump>",
                           "<bump>" + shaderColourXml(plainColourXml("0 1 0")) + "</bump>", false},
                          {"BothEmpty", "<bump/>", "<bump/>", false},
                      }),
    comparisonName);

INSTANTIATE_TEST_SUITE_P(
    Pairs, DiffuseEqualTest,
    testing::Values(Comparison{"Same", diffuseXml("1 0 0"), diffuseXml("1 0 0"), true},
                    Comparison{"Different", diffuseXml("1 0 0"), diffuseXml("0 1 0"), false},
                    Comparison{"OneEmpty", diffuseXml("1 0 0"), "<diffuse/>", false},
                    Comparison{"BothEmpty", "<diffuse/>", "<diffuse/>", false}),
    comparisonName);

const QString s_red = plainColourXml("1 0 0");
const QString s_green = plainColourXml("0 1 0");
const QString s_wood = mapWith(param("Texture", "string", "wood.png"));
const QString s_stone = mapWith(param("Texture", "string", "stone.png"));

Comparison shaderColours(const char* name, const QString& one, const QString& other, bool areEqual)
{
    return {name, shaderColourXml(one), shaderColourXml(other), areEqual};
}

INSTANTIATE_TEST_SUITE_P(
    Pairs, ShaderColourEqualTest,
    testing::Values(shaderColours("SamePlain", s_red, s_red, true),
                    shaderColours("DifferentPlain", s_red, s_green, false),
                    shaderColours("SameMap", s_wood, s_wood, true),
                    shaderColours("DifferentMap", s_wood, s_stone, false),
                    shaderColours("SameBoth", s_red + s_wood, s_red + s_wood, true),
                    shaderColours("SamePlainDifferentMap", s_red + s_wood, s_red + s_stone, false),
                    shaderColours("DifferentPlainSameMap", s_red + s_wood, s_green + s_wood, false),
                    shaderColours("SamePlainMapOnOneSide", s_red + s_wood, s_red, false),
                    shaderColours("SameMapPlainOnOneSide", s_red + s_wood, s_wood, false),
                    shaderColours("PlainAgainstMap", s_red, s_wood, false),
                    shaderColours("PlainAgainstNothing", s_red, "", false),
                    shaderColours("MapAgainstNothing", s_wood, "", false),
                    shaderColours("BothEmpty", "", "", false),
                    shaderColours("FirstOfAKindCounts", s_red + s_green, s_red, true),
                    Comparison{"EnabledFlagsAndNamesDoNotCount",
                               "<param enabled='0' name='a' refname='a'>" + s_red + "</param>",
                               "<param name='b' refname='b'>" + s_red + "</param>", true}),
    comparisonName);

INSTANTIATE_TEST_SUITE_P(
    Pairs, PlainColourEqualTest,
    testing::Values(
        Comparison{"Same", plainColourXml("1 2 3"), plainColourXml("1 2 3"), true},
        Comparison{"DifferentRed", plainColourXml("1 2 3"), plainColourXml("0 2 3"), false},
        Comparison{"DifferentGreen", plainColourXml("1 2 3"), plainColourXml("1 0 3"), false},
        Comparison{"DifferentBlue", plainColourXml("1 2 3"), plainColourXml("1 2 0"), false},
        Comparison{"ALittleDifferent", plainColourXml("1 2 3"), plainColourXml("1 2 3.00001"),
                   false},
        Comparison{"NoNumber", plainColourXml("nan 2 3"), plainColourXml("nan 2 3"), false},
        Comparison{"Infinite", plainColourXml("inf 2 -inf"), plainColourXml("inf 2 -inf"), true},
        Comparison{"InfiniteBothWays", plainColourXml("1 inf 3"), plainColourXml("1 -inf 3"),
                   false},
        Comparison{"InfiniteOnOneSide", plainColourXml("1 2 inf"), plainColourXml("1 2 3.4e38"),
                   false},
        Comparison{"TooLargeForAFloatIsInfinite", plainColourXml("1e39 2 3"),
                   plainColourXml("inf 2 3"), true},
        Comparison{"TooLargeForANumberIsZero", plainColourXml("1e999 2 3"), plainColourXml("0 2 3"),
                   true},
        Comparison{"MissingOnOneSide", plainColourXml("1 2 3"), "<plainColour/>", true},
        Comparison{"EmptyOnOneSide", plainColourXml("1 2 3"), plainColourXml(""), true},
        Comparison{"OfAnotherTypeOnOneSide", plainColourXml("1 2 3"),
                   "<plainColour>" + param("Colour", "vector", "0 0 0") + "</plainColour>", true},
        Comparison{"BothWithoutColour", "<plainColour/>", "<plainColour/>", true},
        Comparison{"DisabledOnOneSide", "<plainColour enabled='0'/>", "<plainColour/>", false},
        Comparison{"DisabledOnBothSides", "<plainColour enabled='0'/>",
                   "<plainColour enabled='0'/>", true},
        Comparison{"ReferenceNamesDoNotCount", "<plainColour refname='a'/>",
                   "<plainColour refname='b'/>", true}),
    comparisonName);

QString mapping(const QString& s, const QString& t)
{
    const auto flag = [](const char* name, const QString& val) {
        return val.isNull() ? QString() : param(name, "boolean", val.toUtf8().constData());
    };
    return mapWith(flag("S Reflect", s) + flag("T Reflect", t));
}

QString offset(const QString& s, const QString& t)
{
    const auto length = [](const char* name, const QString& val) {
        return val.isNull() ? QString() : param(name, "float", val.toUtf8().constData());
    };
    return mapWith(length("S Offset", s) + length("T Offset", t));
}

const QString s_none;

INSTANTIATE_TEST_SUITE_P(
    Pairs, MapEqualTest,
    testing::ValuesIn(
        byParameter("Width", "float", mapWith) + byParameter("Height", "float", mapWith) +
        byParameter("Rotation", "float", mapWith) + byParameter("Use Alpha", "boolean", mapWith) +
        std::vector<Comparison>{
            {"BothEmpty", "<map/>", "<map/>", true},
            {"DisabledOnOneSide", "<map enabled='0'/>", "<map/>", false},
            {"DisabledOnBothSides", "<map enabled='0'/>", "<map enabled='0'/>", true},
            {"ReferenceNamesDoNotCount", "<map refname='a'/>", "<map refname='b'/>", true},
            {"SameTexture", s_wood, s_wood, true},
            {"DifferentTexture", s_wood, s_stone, false},
            {"TexturesAreCaseSensitive", s_wood, mapWith(param("Texture", "string", "Wood.png")),
             false},
            {"TextureOnOneSide", s_wood, "<map/>", false},
            {"TextureEmptyOnOneSide", mapWith(param("Texture", "string", "")), "<map/>", true},

            {"MappingSameButUneven", mapping("1", "0"), mapping("1", "0"), false},
            {"MappingDifferentButEven", mapping("1", "1"), mapping("0", "0"), true},
            {"MappingUnevenOnOneSide", mapping("1", "0"), mapping("0", "0"), false},
            {"MappingUnevenAgainstNone", mapping("1", "0"), mapping(s_none, s_none), true},
            {"MappingUnevenAgainstNoSecond", mapping("1", "0"), mapping("1", s_none), true},
            {"MappingMissingFirstIsZero", mapping(s_none, "0"), mapping("0", "0"), true},
            {"MappingMissingFirstIsNotOne", mapping(s_none, "1"), mapping("0", "0"), false},
            {"MappingUnreadableFirstIsZero", mapping("", "0"), mapping("0", "0"), true},
            {"MappingUnreadableFirstIsNotOne", mapping("", "1"), mapping("0", "0"), false},

            {"OffsetSameButUneven", offset("1", "0"), offset("1", "0"), false},
            {"OffsetDifferentButEven", offset("1", "1"), offset("2", "2"), true},
            {"OffsetUnevenOnOneSide", offset("1", "0"), offset("0", "0"), false},
            {"OffsetUnevenAgainstNone", offset("1", "0"), offset(s_none, s_none), true},
            {"OffsetUnevenAgainstUnreadableSecond", offset("1", "0"), offset("1", ""), true},
            {"OffsetMissingSecondIsZero", offset("0", s_none), offset("0", "0"), true},
            {"OffsetMissingSecondIsNotOne", offset("1", s_none), offset("0", "0"), false},
            {"OffsetMissingFirstIsZero", offset(s_none, "0"), offset("0", "0"), true},
            {"OffsetMissingFirstIsNotOne", offset(s_none, "1"), offset("0", "0"), false},
            {"OffsetInfiniteButEven", offset("inf", "1e999"), offset("-inf", "-inf"), true},
            {"OffsetInfiniteBothWays", offset("inf", "-inf"), offset("0", "0"), false},
            {"OffsetUnreadableFirstIsNotOne", offset("", "1"), offset("0", "0"), false},
        }),
    comparisonName);

TEST(ShaderMapTest, LengthsAreComparedInSceneUnits)
{
    const auto mapIn = [](const char* unitsScale, const char* width) {
        return parse(QStringLiteral("<snapRoot unitsScale='%1'><map>"
                                    "<param name='Width' type='float' prop='D' val='%2'/>"
                                    "</map></snapRoot>")
                         .arg(unitsScale, width));
    };
    const QDomDocument one = mapIn("2", "6");
    const QDomDocument other = mapIn("4", "12");
    EXPECT_TRUE(bind<ShaderMap>(one.documentElement().firstChild())
                    ->Equal(bind<ShaderMap>(other.documentElement().firstChild()).get()));
}

TEST(ColourTest, ComparingGivesBothSidesTheirMissingShaders)
{
    const auto one = bindRoot<Colour>("<colour/>");
    const auto other = bindRoot<Colour>("<colour/>");
    one->Equal(other.get());
    const QString made =
        textOf("<colour><diffuse enabled='1'>" + shaderColourXml() + "</diffuse></colour>");
    EXPECT_EQ(textOf(*one), made);
    EXPECT_EQ(textOf(*other), made);
}

TEST(TransparencyTest, ComparingGivesBothSidesTheirMissingColours)
{
    const auto one = bindRoot<Transparency>("<transparency/>");
    const auto other = bindRoot<Transparency>("<transparency/>");
    one->Equal(other.get());
    const QString made = textOf("<transparency>" + shaderColourXml() + "</transparency>");
    EXPECT_EQ(textOf(*one), made);
    EXPECT_EQ(textOf(*other), made);
}

TEST(BumpTest, ComparingGivesBothSidesTheirMissingColours)
{
    const auto one = bindRoot<Bump>("<bump/>");
    const auto other = bindRoot<Bump>("<bump/>");
    one->Equal(other.get());
    const QString made = textOf("<bump>" + shaderColourXml() + "</bump>");
    EXPECT_EQ(textOf(*one), made);
    EXPECT_EQ(textOf(*other), made);
}

TEST(BumpTest, ComparingByReferenceNameAddsNothing)
{
    const auto one = bindRoot<Bump>("<bump refname='a'/>");
    const auto other = bindRoot<Bump>("<bump/>");
    one->Equal(other.get());
    EXPECT_EQ(textOf(*one) + textOf(*other), "<bump refname=\"a\"/><bump/>");
}

TEST(ShaderColourTest, ComparingAddsNothing)
{
    const auto one = bindRoot<ShaderColour>(shaderColourXml());
    const auto other = bindRoot<ShaderColour>(shaderColourXml());
    one->Equal(other.get());
    EXPECT_EQ(textOf(*one), textOf(shaderColourXml()));
    EXPECT_EQ(textOf(*other), textOf(shaderColourXml()));
}

} // namespace
