// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/ParamHelper.h>

#include "TestSupport.h"

#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>

#include <string>

namespace rvopen::test {
namespace {

/// An element with three parameters and the node bound to it; no object of a child is made.
struct Owner {
    explicit Owner(
        const QString& xml = QStringLiteral("<item><param name='One' type='integer' val='1'/>"
                                            "<param name='Two' type='integer' val='2'/>"
                                            "<param name='Three' type='integer' val='3'/></item>"))
        : document(parse(xml))
        , node(bind(document.documentElement()))
        , params(node->GetParamHelper())
    {
    }

    QDomElement element() const
    {
        return document.documentElement();
    }

    QDomDocument document;
    std::unique_ptr<RVOpenNode> node;
    ParamHelper* params;
};

// Populate

TEST(ParamHelper, PopulateMakesAllChildren)
{
    const Owner owner;
    owner.params->Populate();
    int made = 0;
    for (RVOpenNode* child = owner.node->GetChild(0, 0); child; child = child->GetNext(0))
        ++made;
    EXPECT_EQ(made, 3);
    EXPECT_TRUE(mirrorsDom(owner.node.get()));
}

TEST(ParamHelper, PopulateMakesChildrenThatAreNoParametersToo)
{
    const Owner owner("<item><a/><!--c--><param name='One'/></item>");
    owner.params->Populate();
    ASSERT_NE(owner.node->GetChild(0, 0), nullptr);
    EXPECT_EQ(owner.node->GetChild(0, 0)->GetNumSiblings(), 3);
}

TEST(ParamHelper, PopulateTakesOneChildForAll)
{
    const Owner owner;
    RVOpenNode* const first = owner.node->GetChild(1, 1);
    owner.params->Populate();
    EXPECT_EQ(first->GetNext(0), nullptr);
}

TEST(ParamHelper, PopulatingTwiceGivesTheSameObjects)
{
    const Owner owner;
    owner.params->Populate();
    const auto before = children(owner.node.get());
    owner.params->Populate();
    EXPECT_EQ(children(owner.node.get()), before);
}

TEST(ParamHelper, PopulateWithoutChildrenMakesNone)
{
    const Owner owner("<item/>");
    owner.params->Populate();
    EXPECT_EQ(owner.node->GetChild(0, 0), nullptr);
}

// First parameter

TEST(ParamHelper, FirstParamIsTheFirstChildOnceItIsMade)
{
    const Owner owner;
    EXPECT_EQ(owner.params->GetFirstParam(), nullptr);
    EXPECT_EQ(owner.node->GetChild(0, 0), nullptr);
    RVOpenNode* const first = owner.node->GetChild(1, 1);
    EXPECT_EQ(owner.params->GetFirstParam(), first);
}

TEST(ParamHelper, FirstParamIsNullWhenTheFirstChildIsNone)
{
    const Owner owner("<item><other/><param name='One'/></item>");
    owner.params->Populate();
    EXPECT_EQ(owner.params->GetFirstParam(), nullptr);
}

// Creating

TEST(ParamHelper, CreatedParamIsANamedElementOfTheOwnersDocument)
{
    const Owner owner;
    const std::unique_ptr<Param> param(owner.params->CreateParam("Near"));
    ASSERT_NE(param, nullptr);
    EXPECT_EQ(xmlOf(param->GetDomNode()), "<param name=\"Near\"/>");
    EXPECT_EQ(param->GetDomNode().ownerDocument(), owner.document);
}

TEST(ParamHelper, CreatedParamIsLinkedNowhere)
{
    const Owner owner;
    const QString before = xmlOf(owner.document);
    const std::unique_ptr<Param> param(owner.params->CreateParam("Near"));
    EXPECT_TRUE(param->GetDomNode().parentNode().isNull());
    EXPECT_EQ(param->GetParent(), nullptr);
    EXPECT_EQ(owner.node->GetChild(0, 0), nullptr);
    EXPECT_EQ(xmlOf(owner.document), before);
}

TEST(ParamHelper, CreatedParamOutlivesItsOwnerAndDocument)
{
    std::unique_ptr<Param> param;
    {
        const Owner owner;
        param.reset(owner.params->CreateParam("Near"));
    }
    EXPECT_FALSE(param->GetDomNode().ownerDocument().isNull());
    EXPECT_EQ(param->GetName(), "Near");
}

// Adding

struct Addition {
    const char* description;
    Param* (*add)(ParamHelper*);
    const char* xml;
};

class AddedParam : public ::testing::TestWithParam<Addition> {};

TEST_P(AddedParam, HasItsTypeAndInitialValueAndNoPropertyLetters)
{
    const Owner owner("<item/>");
    GetParam().add(owner.params);
    EXPECT_EQ(xmlOf(owner.element()), xmlOf(parse(QString("<item>%1</item>").arg(GetParam().xml))));
}

TEST_P(AddedParam, IsTheLastChildInChainAndDom)
{
    const Owner owner;
    Param* const param = GetParam().add(owner.params);
    ASSERT_NE(param, nullptr);
    EXPECT_EQ(param->GetDomNode(), owner.element().lastChild());
    EXPECT_EQ(children(owner.node.get()).back(), param);
    EXPECT_EQ(param->GetParent(), owner.node.get());
    EXPECT_EQ(owner.element().childNodes().count(), 4);
    EXPECT_TRUE(mirrorsWholeDom(owner.node.get()));
}

TEST_P(AddedParam, IsFoundByItsName)
{
    const Owner owner;
    Param* const param = GetParam().add(owner.params);
    EXPECT_EQ(owner.params->FindParam("New One"), param);
}

TEST_P(AddedParam, IsStoredUnscaled)
{
    const Owner owner("<snapRoot unitsScale='2'><item/></snapRoot>");
    GetParam().add(owner.node->GetChild(1, 1)->GetParamHelper());
    EXPECT_EQ(xmlOf(owner.element().firstChild()),
              xmlOf(parse(QString("<item>%1</item>").arg(GetParam().xml))));
}

TEST_P(AddedParam, ComesAfterAnotherOfItsNameWhichIsFoundFirst)
{
    const Owner owner;
    Param* const first = GetParam().add(owner.params);
    Param* const second = GetParam().add(owner.params);
    EXPECT_NE(first, second);
    EXPECT_EQ(owner.element().childNodes().count(), 5);
    EXPECT_EQ(owner.params->FindParam("New One"), first);
    EXPECT_EQ(owner.params->GetParam("New One"), first);
}

TEST_P(AddedParam, GoesToTheArchiveThatTheOwnerStandsFor)
{
    ArchiveFolders folders;
    const QString fileName = folders.write("Studio", "<archive><a/></archive>");
    const Owner owner("<item archiveFilename='Studio' archiveType='Custom'/>");
    EXPECT_NE(GetParam().add(owner.params), nullptr);
    EXPECT_TRUE(owner.element().firstChild().isNull());
    EXPECT_EQ(domChildNames(GetDirectoryHandler()->LoadArchive(fileName)->GetDomNode()),
              QStringList({"a", "param"}));
}

TEST_P(AddedParam, IsNullAndNowhereWhenTheArchiveCannotBeOpened)
{
    const ArchiveFolders folders;
    const Owner owner("<item archiveFilename='Missing' archiveType='Custom'><a/></item>");
    EXPECT_EQ(GetParam().add(owner.params), nullptr);
    EXPECT_EQ(domChildNames(owner.element()), QStringList("a"));
    EXPECT_EQ(owner.node->GetChild(0, 0), nullptr);
}

INSTANTIATE_TEST_SUITE_P(
    ParamHelper, AddedParam,
    ::testing::Values(
        Addition{"Float", [](ParamHelper* params) { return params->AddFloatParam("New One"); },
                 "<param name='New One' type='float' val='0'/>"},
        Addition{"FloatWithValue",
                 [](ParamHelper* params) { return params->AddFloatParam("New One", 0.1f); },
                 "<param name='New One' type='float' val='0.1'/>"},
        Addition{"Int", [](ParamHelper* params) { return params->AddIntParam("New One"); },
                 "<param name='New One' type='integer' val='0'/>"},
        Addition{"String", [](ParamHelper* params) { return params->AddStringParam("New One"); },
                 "<param name='New One' type='string' val=''/>"},
        Addition{"Bool", [](ParamHelper* params) { return params->AddBoolParam("New One"); },
                 "<param name='New One' type='boolean' val='1'/>"},
        Addition{"Colour", [](ParamHelper* params) { return params->AddColourParam("New One"); },
                 "<param name='New One' type='colour' val='1 1 1'/>"},
        Addition{"Vector", [](ParamHelper* params) { return params->AddVectorParam("New One"); },
                 "<param name='New One' type='vector' val='1 1 1'/>"},
        Addition{"Point", [](ParamHelper* params) { return params->AddPointParam("New One"); },
                 "<param name='New One' type='point' val='1 1 1'/>"}),
    [](const auto& instance) { return std::string(instance.param.description); });

TEST(ParamHelper, AddedBoolParamReadsAsTrue)
{
    const Owner owner("<item/>");
    owner.params->AddBoolParam("On");
    int value = 0;
    EXPECT_EQ(owner.params->GetValBool("On", &value), StatusOk);
    EXPECT_EQ(value, 1);
}

// Finding

TEST(ParamHelper, FindLooksAtObjectsThatAreMadeOnly)
{
    const Owner owner;
    EXPECT_EQ(owner.params->FindParam("Two"), nullptr);
    EXPECT_EQ(owner.node->GetChild(0, 0), nullptr);
    owner.params->Populate();
    ASSERT_NE(owner.params->FindParam("Two"), nullptr);
    EXPECT_EQ(owner.params->FindParam("Two")->GetName(), "Two");
}

TEST(ParamHelper, GetMakesTheObjectsFirst)
{
    const Owner owner;
    Param* const param = owner.params->GetParam("Two");
    ASSERT_NE(param, nullptr);
    EXPECT_EQ(param->GetName(), "Two");
    EXPECT_EQ(owner.params->FindParam("Two"), param);
}

TEST(ParamHelper, GetTakesOneChildForAll)
{
    const Owner owner;
    owner.node->GetChild(1, 1);
    EXPECT_NE(owner.params->GetParam("One"), nullptr);
    EXPECT_EQ(owner.params->GetParam("Two"), nullptr);
}

TEST(ParamHelper, EveryParamIsFoundByItsName)
{
    const Owner owner;
    for (const char* name : {"One", "Two", "Three"}) {
        Param* const param = owner.params->GetParam(name);
        ASSERT_NE(param, nullptr) << name;
        EXPECT_EQ(param->GetName(), name);
    }
}

TEST(ParamHelper, NamesAreExact)
{
    const Owner owner;
    for (const char* name : {"one", "ONE", "On", "One ", ""}) {
        EXPECT_EQ(owner.params->GetParam(name), nullptr) << name;
        EXPECT_EQ(owner.params->FindParam(name), nullptr) << name;
    }
}

TEST(ParamHelper, FirstOfTwoParamsOfOneNameIsFound)
{
    const Owner owner("<item><param name='A' type='integer' val='1'/>"
                      "<param name='A' type='integer' val='2'/></item>");
    int value = 0;
    ASSERT_NE(owner.params->GetParam("A"), nullptr);
    owner.params->GetParam("A")->GetValInt(&value);
    EXPECT_EQ(value, 1);
}

TEST(ParamHelper, SearchStopsAtAChildThatIsNoParam)
{
    const Owner owner("<item><param name='One'/><other/><param name='Two'/></item>");
    EXPECT_NE(owner.params->GetParam("One"), nullptr);
    EXPECT_EQ(owner.params->GetParam("Two"), nullptr);
    EXPECT_EQ(owner.params->FindParam("Two"), nullptr);
}

TEST(ParamHelper, NothingIsFoundBehindAFirstChildThatIsNoParam)
{
    const Owner owner("<item><other/><param name='One'/></item>");
    EXPECT_EQ(owner.params->GetParam("One"), nullptr);
    EXPECT_EQ(owner.params->FindParam("One"), nullptr);
    EXPECT_EQ(owner.params->GetFirstParam(), nullptr);
}

TEST(ParamHelper, ColourShaderIsAParamOfTheList)
{
    const Owner owner("<item><param name='A' type='shader' val='colour'/>"
                      "<param name='B' type='integer' val='1'/></item>");
    EXPECT_NE(owner.params->GetParam("A"), nullptr);
    EXPECT_NE(owner.params->GetParam("B"), nullptr);
}

// Typed reads by name

/// Reads a value by name into three floats, so that one table serves all types.
using Read = unsigned int (*)(ParamHelper*, const char* name, float* out);

struct TypedRead {
    const char* type;
    const char* value;
    float expected[3];
    const char* malformed;
    Read read;
};

class ReadByName : public ::testing::TestWithParam<TypedRead> {
protected:
    static Owner owner(const QString& type, const QString& value)
    {
        return Owner(QString("<item><param name='A' type='%1' val='%2'/></item>").arg(type, value));
    }

    float m_out[3] = {-7.0f, -8.0f, -9.0f};
};

TEST_P(ReadByName, GivesTheValue)
{
    const Owner item = owner(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().read(item.params, "A", m_out), StatusOk);
    for (const int i : {0, 1, 2})
        EXPECT_EQ(m_out[i], GetParam().expected[i]);
}

TEST_P(ReadByName, OfAParamThatIsMissingLeavesTheOutput)
{
    const Owner item = owner(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().read(item.params, "a", m_out), StatusMissing);
    EXPECT_THAT(m_out, ::testing::ElementsAre(-7.0f, -8.0f, -9.0f));
}

TEST_P(ReadByName, OfAnotherTypeLeavesTheOutput)
{
    for (const char* type :
         {"", "float", "integer", "boolean", "string", "shader", "colour", "vector", "point"}) {
        if (GetParam().type == std::string(type))
            continue;
        const Owner item = owner(type, GetParam().value);
        EXPECT_EQ(GetParam().read(item.params, "A", m_out), StatusMissing) << type;
        EXPECT_THAT(m_out, ::testing::ElementsAre(-7.0f, -8.0f, -9.0f)) << type;
    }
}

TEST_P(ReadByName, OfAnEmptyValueLeavesTheOutput)
{
    const Owner item = owner(GetParam().type, "");
    EXPECT_EQ(GetParam().read(item.params, "A", m_out), StatusMissing);
    EXPECT_THAT(m_out, ::testing::ElementsAre(-7.0f, -8.0f, -9.0f));
}

TEST_P(ReadByName, OfAnAbsentValueLeavesTheOutput)
{
    const Owner item(QString("<item><param name='A' type='%1'/></item>").arg(GetParam().type));
    EXPECT_EQ(GetParam().read(item.params, "A", m_out), StatusMissing);
    EXPECT_THAT(m_out, ::testing::ElementsAre(-7.0f, -8.0f, -9.0f));
}

TEST_P(ReadByName, OfAMalformedValueGivesZero)
{
    const Owner item = owner(GetParam().type, GetParam().malformed);
    EXPECT_EQ(GetParam().read(item.params, "A", m_out), StatusOk);
    EXPECT_EQ(m_out[0], 0.0f);
}

TEST_P(ReadByName, WithoutOutputIsMissing)
{
    const Owner item = owner(GetParam().type, GetParam().value);
    EXPECT_EQ(GetParam().read(item.params, "A", nullptr), StatusMissing);
}

INSTANTIATE_TEST_SUITE_P(
    ParamHelper, ReadByName,
    ::testing::Values(TypedRead{"colour",
                                "1 0.5 0",
                                {1.0f, 0.5f, 0.0f},
                                "red",
                                [](ParamHelper* params, const char* name, float* out) {
                                    return params->GetValColour(name, out);
                                }},
                      TypedRead{"boolean",
                                "1",
                                {1.0f, -8.0f, -9.0f},
                                "yes",
                                [](ParamHelper* params, const char* name, float* out) {
                                    int value = -77;
                                    const unsigned int status =
                                        params->GetValBool(name, out ? &value : nullptr);
                                    if (out && value != -77)
                                        *out = static_cast<float>(value);
                                    return status;
                                }},
                      TypedRead{"float",
                                "2.5",
                                {2.5f, -8.0f, -9.0f},
                                "wide",
                                [](ParamHelper* params, const char* name, float* out) {
                                    return params->GetValFloat(name, out);
                                }}),
    [](const auto& instance) { return std::string(instance.param.type); });

TEST(ParamHelper, DimensionalFloatComesBackInSceneUnits)
{
    const Owner owner("<snapRoot unitsScale='2'><item>"
                      "<param name='A' type='float' prop='D' val='10'/></item></snapRoot>");
    float value = 0.0f;
    EXPECT_EQ(owner.node->GetChild(1, 1)->GetParamHelper()->GetValFloat("A", &value), StatusOk);
    EXPECT_EQ(value, 5.0f);
}

// Owner

TEST(ParamHelper, CopyHasTheSameOwner)
{
    const Owner owner("<item/>");
    ParamHelper copy(*owner.params);
    copy.AddIntParam("A");
    EXPECT_EQ(domChildNames(owner.element()), QStringList("param"));
}

TEST(ParamHelper, AssignmentTakesTheOwner)
{
    const Owner owner("<item/>");
    const Owner other("<item/>");
    ParamHelper copy(other.node.get());
    copy = *owner.params;
    copy.AddIntParam("A");
    EXPECT_EQ(domChildNames(owner.element()), QStringList("param"));
    EXPECT_EQ(domChildNames(other.element()), QStringList());
}

TEST(ParamHelper, ListOfAnUnboundNodeIsEmpty)
{
    const auto node = std::make_unique<RVOpenNode>();
    ParamHelper* const params = node->GetParamHelper();
    params->Populate();
    EXPECT_EQ(params->GetFirstParam(), nullptr);
    EXPECT_EQ(params->GetParam("A"), nullptr);
    float value = 3.0f;
    EXPECT_EQ(params->GetValFloat("A", &value), StatusMissing);
    EXPECT_EQ(value, 3.0f);
}

} // namespace
} // namespace rvopen::test
