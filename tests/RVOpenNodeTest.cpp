// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/RVOpenNode.h>

#include "TestSupport.h"

#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenStatus.h>

#include <QRegularExpression>

#include <limits>
#include <string>
#include <type_traits>

namespace rvopen::test {
namespace {

constexpr float UntouchedFloat = -77.5f;
constexpr int UntouchedInt = -77;
constexpr float Infinite = std::numeric_limits<float>::infinity();

std::string nameOf(const char* text)
{
    return text;
}

/// A document with one element and the node bound to it.
struct Single {
    explicit Single(const QString& xml = QStringLiteral("<item/>"))
        : document(parse(xml))
        , node(bind(document.documentElement()))
    {
    }

    QDomElement element() const
    {
        return document.documentElement();
    }

    QDomDocument document;
    std::unique_ptr<RVOpenNode> node;
};

/// An element whose attribute "x" has the given text.
struct WithAttribute : Single {
    explicit WithAttribute(const QString& text)
    {
        element().setAttribute(QStringLiteral("x"), text);
    }
};

// Construction and binding

TEST(RVOpenNode, NewNodeIsBoundToNothing)
{
    const auto node = std::make_unique<RVOpenNode>();
    EXPECT_TRUE(node->GetDomNode().isNull());
    EXPECT_EQ(node->GetNodeName(), "");
}

TEST(RVOpenNode, NewNodeHasNoLinks)
{
    const auto node = std::make_unique<RVOpenNode>();
    EXPECT_EQ(node->GetParent(), nullptr);
    EXPECT_EQ(node->GetNext(1), nullptr);
    EXPECT_EQ(node->GetChild(1, 1), nullptr);
}

TEST(RVOpenNode, BoundNodeHandsOutThatVeryElement)
{
    const Single item;
    EXPECT_EQ(item.node->GetDomNode(), item.element());
}

TEST(RVOpenNode, NodeNameIsTheTagName)
{
    EXPECT_EQ(Single("<renderTarget name='x'/>").node->GetNodeName(), "renderTarget");
}

TEST(RVOpenNode, BindingToAnotherElementLeavesTheLinks)
{
    const QDomDocument document = parse("<root><a><b/></a><c/><other/></root>");
    const auto root = bind(document.documentElement());
    RVOpenNode* const a = root->GetChild(1, 1);
    RVOpenNode* const b = a->GetChild(1, 1);
    RVOpenNode* const c = a->GetNext(1);

    a->SetDomNode(document.documentElement().lastChild());

    EXPECT_EQ(a->GetNodeName(), "other");
    EXPECT_EQ(a->GetParent(), root.get());
    EXPECT_EQ(a->GetChild(0, 0), b);
    EXPECT_EQ(a->GetNext(0), c);
}

TEST(RVOpenNode, SetNextChangesTheLinkAlone)
{
    const QDomDocument document = parse("<root><a/><b/><c/></root>");
    const auto root = bind(document.documentElement());
    RVOpenNode* const a = root->GetChild(1, 1);
    RVOpenNode* const b = a->GetNext(1);
    RVOpenNode* const c = b->GetNext(1);

    a->SetNext(c);

    EXPECT_EQ(a->GetNext(0), c);
    EXPECT_EQ(domChildNames(document.documentElement()), QStringList({"a", "b", "c"}));
    EXPECT_EQ(b->GetNodeName(), "b");
    EXPECT_EQ(c->GetNext(0), nullptr);
    a->SetNext(b);
    b->SetNext(c);
}

TEST(RVOpenNode, ParamHelperIsTheNodesOwn)
{
    const Single item;
    const Single other;
    EXPECT_EQ(item.node->GetParamHelper(), item.node->GetParamHelper());
    EXPECT_NE(item.node->GetParamHelper(), other.node->GetParamHelper());
    item.node->GetParamHelper()->AddIntParam("Count");
    EXPECT_EQ(domChildNames(item.element()), QStringList("param"));
}

// Typed attributes

struct NumberCase {
    const char* description;
    const char* text;
    float asFloat;
    int asInt;
    int asBool;
};

class AttributeText : public ::testing::TestWithParam<NumberCase> {
protected:
    const WithAttribute m_item{GetParam().text};
};

TEST_P(AttributeText, ReadsAsFloat)
{
    float value = UntouchedFloat;
    EXPECT_EQ(m_item.node->GetAttributeFloat("x", &value), StatusOk);
    EXPECT_EQ(value, GetParam().asFloat);
}

TEST_P(AttributeText, ReadsAsInt)
{
    int value = UntouchedInt;
    EXPECT_EQ(m_item.node->GetAttributeInt("x", &value), StatusOk);
    EXPECT_EQ(value, GetParam().asInt);
}

TEST_P(AttributeText, ReadsAsBool)
{
    int value = UntouchedInt;
    EXPECT_EQ(m_item.node->GetAttributeBool("x", &value), StatusOk);
    EXPECT_EQ(value, GetParam().asBool);
}

TEST_P(AttributeText, ReadsAsString)
{
    EXPECT_EQ(m_item.node->GetAttributeString("x"), GetParam().text);
}

TEST_P(AttributeText, IsPresentForGettersWithoutOutput)
{
    EXPECT_EQ(m_item.node->GetAttributeFloat("x", nullptr), StatusOk);
    EXPECT_EQ(m_item.node->GetAttributeInt("x", nullptr), StatusOk);
    EXPECT_EQ(m_item.node->GetAttributeBool("x", nullptr), StatusOk);
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenNode, AttributeText,
    ::testing::Values(NumberCase{"One", "1", 1.0f, 1, 1}, NumberCase{"Zero", "0", 0.0f, 0, 0},
                      NumberCase{"Two", "2", 2.0f, 2, 1},
                      NumberCase{"Negative", "-1", -1.0f, -1, 0},
                      NumberCase{"Fraction", "0.5", 0.5f, 0, 0},
                      NumberCase{"FractionAboveOne", "1.5", 1.5f, 0, 0},
                      NumberCase{"Exponent", "1.23457e+06", 1.23457e+06f, 0, 0},
                      NumberCase{"LeadingZeros", "0010", 10.0f, 10, 1},
                      NumberCase{"Hexadecimal", "0x10", 0.0f, 0, 0},
                      NumberCase{"DecimalComma", "1,5", 0.0f, 0, 0},
                      NumberCase{"BeyondInt", "4294967296", 4294967296.0f, 0, 0},
                      NumberCase{"BeyondFloat", "1e39", Infinite, 0, 0},
                      NumberCase{"BeyondEveryNumber", "-1e999", -Infinite, 0, 0},
                      NumberCase{"Infinite", "inf", Infinite, 0, 0},
                      NumberCase{"Word", "yes", 0.0f, 0, 0}, NumberCase{"True", "true", 0.0f, 0, 0},
                      NumberCase{"Blank", " ", 0.0f, 0, 0}),
    [](const auto& instance) { return nameOf(instance.param.description); });

struct MissingCase {
    const char* description;
    const char* xml;
};

class MissingAttribute : public ::testing::TestWithParam<MissingCase> {
protected:
    const Single m_item{GetParam().xml};
};

TEST_P(MissingAttribute, FloatGetterLeavesTheOutput)
{
    float value = UntouchedFloat;
    EXPECT_EQ(m_item.node->GetAttributeFloat("x", &value), StatusMissing);
    EXPECT_EQ(value, UntouchedFloat);
}

TEST_P(MissingAttribute, IntGetterLeavesTheOutput)
{
    int value = UntouchedInt;
    EXPECT_EQ(m_item.node->GetAttributeInt("x", &value), StatusMissing);
    EXPECT_EQ(value, UntouchedInt);
}

TEST_P(MissingAttribute, BoolGetterLeavesTheOutput)
{
    int value = UntouchedInt;
    EXPECT_EQ(m_item.node->GetAttributeBool("x", &value), StatusMissing);
    EXPECT_EQ(value, UntouchedInt);
}

TEST_P(MissingAttribute, GettersWithoutOutputReportIt)
{
    EXPECT_EQ(m_item.node->GetAttributeFloat("x", nullptr), StatusMissing);
    EXPECT_EQ(m_item.node->GetAttributeInt("x", nullptr), StatusMissing);
    EXPECT_EQ(m_item.node->GetAttributeBool("x", nullptr), StatusMissing);
}

TEST_P(MissingAttribute, StringGetterGivesAnEmptyString)
{
    EXPECT_EQ(m_item.node->GetAttributeString("x"), "");
}

INSTANTIATE_TEST_SUITE_P(RVOpenNode, MissingAttribute,
                         ::testing::Values(MissingCase{"Absent", "<item/>"},
                                           MissingCase{"Empty", "<item x=''/>"},
                                           MissingCase{"OtherCase", "<item X='1'/>"},
                                           MissingCase{"OnParentOnly", "<item><x x='1'/></item>"}),
                         [](const auto& instance) { return nameOf(instance.param.description); });

struct FloatText {
    const char* description;
    float value;
    const char* text;
};

class WrittenFloat : public ::testing::TestWithParam<FloatText> {};

TEST_P(WrittenFloat, HasSixSignificantDigits)
{
    const Single item;
    item.node->SetAttributeFloat("x", GetParam().value);
    EXPECT_EQ(item.element().attribute("x"), GetParam().text);
}

TEST_P(WrittenFloat, StandsAlikeInATriple)
{
    const Single item;
    const QString text = GetParam().text;
    EXPECT_EQ(item.node->EncodeFloat3(GetParam().value, 0.0f, GetParam().value),
              text + " 0 " + text);
}

INSTANTIATE_TEST_SUITE_P(RVOpenNode, WrittenFloat,
                         ::testing::Values(FloatText{"One", 1.0f, "1"},
                                           FloatText{"Zero", 0.0f, "0"},
                                           FloatText{"Tenth", 0.1f, "0.1"},
                                           FloatText{"Third", 1.0f / 3.0f, "0.333333"},
                                           FloatText{"Negative", -2.5f, "-2.5"},
                                           FloatText{"SixDigits", 123456.0f, "123456"},
                                           FloatText{"SevenDigits", 1234567.0f, "1.23457e+06"},
                                           FloatText{"Million", 1000000.0f, "1e+06"},
                                           FloatText{"Small", 0.0001f, "0.0001"},
                                           FloatText{"Smaller", 0.00001f, "1e-05"},
                                           FloatText{"Infinite", -Infinite, "-inf"}),
                         [](const auto& instance) { return nameOf(instance.param.description); });

TEST(RVOpenNode, WrittenIntIsPlainDecimal)
{
    const Single item;
    const std::pair<int, const char*> cases[] = {
        {0, "0"},
        {-7, "-7"},
        {1234567, "1234567"},
        {std::numeric_limits<int>::max(), "2147483647"},
        {std::numeric_limits<int>::min(), "-2147483648"},
    };
    for (const auto& [value, text] : cases) {
        item.node->SetAttributeInt("x", value);
        EXPECT_EQ(item.element().attribute("x"), text);
    }
}

TEST(RVOpenNode, WrittenBoolIsOneOrZero)
{
    const Single item;
    const std::pair<int, const char*> cases[] = {{0, "0"}, {1, "1"}, {5, "1"}, {-1, "1"}};
    for (const auto& [value, text] : cases) {
        item.node->SetAttributeBool("x", value);
        EXPECT_EQ(item.element().attribute("x"), text);
    }
}

TEST(RVOpenNode, WrittenStringIsTheTextItself)
{
    const Single item;
    const QString text = QString::fromUtf8("Größe <1> & \"x\"");
    item.node->SetAttributeString("x", text);
    EXPECT_EQ(item.element().attribute("x"), text);
}

TEST(RVOpenNode, WritingReplacesTheValueAndLeavesOtherAttributes)
{
    const Single item("<item before='b' x='old' zzz='z'/>");
    item.node->SetAttributeString("x", "new");
    EXPECT_EQ(xmlOf(item.element()), xmlOf("<item before='b' x='new' zzz='z'/>"));
}

TEST(RVOpenNode, AttributeNamesMayComeInWritableStrings)
{
    const Single item;
    char name[] = "x";
    item.node->SetAttributeInt(name, 4);
    int value = 0;
    EXPECT_EQ(item.node->GetAttributeInt(name, &value), StatusOk);
    EXPECT_EQ(value, 4);
}

// Named string properties

struct StringProperty {
    const char* attribute;
    QString (RVOpenNode::*get)() const;
    void (RVOpenNode::*set)(QString);
};

class NamedString : public ::testing::TestWithParam<StringProperty> {
protected:
    QString get() const
    {
        return (m_item.node.get()->*GetParam().get)();
    }
    void set(const QString& value)
    {
        (m_item.node.get()->*GetParam().set)(value);
    }
    QString attribute() const
    {
        return GetParam().attribute;
    }

    const Single m_item;
};

TEST_P(NamedString, IsEmptyWhenAbsent)
{
    EXPECT_EQ(get(), "");
}

TEST_P(NamedString, IsEmptyWhenEmpty)
{
    m_item.element().setAttribute(attribute(), "");
    EXPECT_EQ(get(), "");
}

TEST_P(NamedString, ReadsItsAttribute)
{
    m_item.element().setAttribute(attribute(), "Morning mist");
    EXPECT_EQ(get(), "Morning mist");
}

TEST_P(NamedString, CreatesItsAttributeAndNoOther)
{
    set("Morning mist");
    EXPECT_EQ(xmlOf(m_item.element()), "<item " + attribute() + "=\"Morning mist\"/>");
}

TEST_P(NamedString, ReplacesItsValue)
{
    m_item.element().setAttribute(attribute(), "old");
    set("new");
    EXPECT_EQ(m_item.element().attribute(attribute()), "new");
}

TEST_P(NamedString, EmptyValueLeavesAnEmptyAttribute)
{
    m_item.element().setAttribute(attribute(), "old");
    set(QString());
    EXPECT_TRUE(m_item.element().hasAttribute(attribute()));
    EXPECT_EQ(m_item.element().attribute(attribute()), "");
}

TEST_P(NamedString, OfAnUnboundNodeIsEmptyAndCannotBeSet)
{
    const auto node = std::make_unique<RVOpenNode>();
    (node.get()->*GetParam().set)("value");
    EXPECT_EQ((node.get()->*GetParam().get)(), "");
    EXPECT_TRUE(node->GetDomNode().isNull());
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenNode, NamedString,
    ::testing::Values(
        StringProperty{"name", &RVOpenNode::GetName, &RVOpenNode::SetName},
        StringProperty{"cat", &RVOpenNode::GetCat, &RVOpenNode::SetCat},
        StringProperty{"desc", &RVOpenNode::GetDescription, &RVOpenNode::SetDescription},
        StringProperty{"subcat", &RVOpenNode::GetSubCat, &RVOpenNode::SetSubCat},
        StringProperty{"shaderClass", &RVOpenNode::GetShaderClass, &RVOpenNode::SetShaderClass},
        StringProperty{"path", &RVOpenNode::GetPath, &RVOpenNode::SetPath},
        StringProperty{"refname", &RVOpenNode::GetRefName, &RVOpenNode::SetRefName},
        StringProperty{"imgname", &RVOpenNode::GetImageName, &RVOpenNode::SetImageName},
        StringProperty{"archiveFilename", &RVOpenNode::GetShortArchiveFilename,
                       &RVOpenNode::SetShortArchiveFilename}),
    [](const auto& instance) { return nameOf(instance.param.attribute); });

// Flags

struct Flag {
    const char* attribute;
    int (RVOpenNode::*get)() const;
    void (RVOpenNode::*set)(int);
    int whenAbsent;
};

class NodeFlag : public ::testing::TestWithParam<Flag> {
protected:
    int get() const
    {
        return (m_item.node.get()->*GetParam().get)();
    }
    QString attribute() const
    {
        return GetParam().attribute;
    }

    const Single m_item;
};

TEST_P(NodeFlag, HasItsDefaultWhenAbsent)
{
    EXPECT_EQ(get(), GetParam().whenAbsent);
}

TEST_P(NodeFlag, HasItsDefaultWhenEmpty)
{
    m_item.element().setAttribute(attribute(), "");
    EXPECT_EQ(get(), GetParam().whenAbsent);
}

TEST_P(NodeFlag, IsTrueFromOneOn)
{
    const std::pair<const char*, int> cases[] = {
        {"1", 1}, {"2", 1}, {"0", 0}, {"-1", 0}, {"yes", 0}};
    for (const auto& [text, value] : cases) {
        m_item.element().setAttribute(attribute(), text);
        EXPECT_EQ(get(), value) << text;
    }
}

TEST_P(NodeFlag, IsWrittenAsOneOrZero)
{
    const std::pair<int, const char*> cases[] = {{1, "1"}, {0, "0"}, {5, "1"}, {-1, "1"}};
    for (const auto& [value, text] : cases) {
        (m_item.node.get()->*GetParam().set)(value);
        EXPECT_EQ(xmlOf(m_item.element()), "<item " + attribute() + "=\"" + text + "\"/>");
    }
}

TEST_P(NodeFlag, OfAnUnboundNodeHasItsDefaultAndCannotBeSet)
{
    const auto node = std::make_unique<RVOpenNode>();
    (node.get()->*GetParam().set)(1 - GetParam().whenAbsent);
    EXPECT_EQ((node.get()->*GetParam().get)(), GetParam().whenAbsent);
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenNode, NodeFlag,
    ::testing::Values(Flag{"enabled", &RVOpenNode::IsEnabled, &RVOpenNode::SetEnabled, 1},
                      Flag{"translationDisabled", &RVOpenNode::IsTranslationDisabled,
                           &RVOpenNode::SetTranslationDisabled, 0},
                      Flag{"custom", &RVOpenNode::IsCustom, &RVOpenNode::SetCustom, 0},
                      Flag{"reset", &RVOpenNode::IsReset, &RVOpenNode::SetReset, 0},
                      Flag{"thumbRegenerated", &RVOpenNode::ThumbnailRegenerated,
                           &RVOpenNode::SetThumbnailRegenerated, 1}),
    [](const auto& instance) { return nameOf(instance.param.attribute); });

// Image border

TEST(RVOpenNode, ImageBorderReadsItsAttributeAsNumber)
{
    const std::pair<const char*, int> cases[] = {
        {"<item/>", 0},
        {"<item ImageBorder=''/>", 0},
        {"<item ImageBorder='1'/>", 1},
        {"<item ImageBorder='42'/>", 42},
        {"<item ImageBorder='-3'/>", -3},
        {"<item ImageBorder='yes'/>", 0},
        {"<item imageBorder='1'/>", 0},
    };
    for (const auto& [xml, value] : cases)
        EXPECT_EQ(static_cast<int>(Single(xml).node->GetImageBorder()), value) << xml;
}

TEST(RVOpenNode, ImageBorderIsWrittenAsNumber)
{
    const Single item;
    item.node->SetImageBorder(static_cast<RVOpenNode::ImageBorder>(42));
    EXPECT_EQ(xmlOf(item.element()), "<item ImageBorder=\"42\"/>");
}

TEST(RVOpenNode, ImageBorderHoldsAnyInt)
{
    EXPECT_TRUE((std::is_same_v<std::underlying_type_t<RVOpenNode::ImageBorder>, int>));
}

// A node that is bound to nothing

TEST(RVOpenNode, AttributesOfAnUnboundNodeAreMissing)
{
    const auto node = std::make_unique<RVOpenNode>();
    float number = UntouchedFloat;
    int integer = UntouchedInt;
    int boolean = UntouchedInt;
    EXPECT_EQ(node->GetAttributeFloat("x", &number), StatusMissing);
    EXPECT_EQ(node->GetAttributeInt("x", &integer), StatusMissing);
    EXPECT_EQ(node->GetAttributeBool("x", &boolean), StatusMissing);
    EXPECT_EQ(number, UntouchedFloat);
    EXPECT_EQ(integer, UntouchedInt);
    EXPECT_EQ(boolean, UntouchedInt);
    EXPECT_EQ(node->GetAttributeString("x"), "");
    EXPECT_EQ(node->GetImageBorder(), RVOpenNode::ImageBorderNone);
    EXPECT_EQ(node->GetArchiveFilename(), "");
    EXPECT_EQ(node->GetArchiveFolder(), "");
}

TEST(RVOpenNode, AttributesOfAnUnboundNodeCannotBeSet)
{
    const auto node = std::make_unique<RVOpenNode>();
    node->SetAttributeFloat("x", 1.0f);
    node->SetAttributeInt("x", 1);
    node->SetAttributeBool("x", 1);
    node->SetAttributeString("x", "1");
    node->SetImageBorder(RVOpenNode::ImageBorderImported);
    EXPECT_TRUE(node->GetDomNode().isNull());
}

TEST(RVOpenNode, NodeOfACommentHasNoAttributes)
{
    const QDomDocument document = parse("<item><!--note--></item>");
    const auto comment = bind(document.documentElement().firstChild());
    comment->SetName("x");
    EXPECT_EQ(comment->GetName(), "");
    EXPECT_EQ(comment->IsEnabled(), 1);
}

// Float triples

TEST(RVOpenNode, TripleIsThreeNumbersSeparatedBySingleBlanks)
{
    const auto node = std::make_unique<RVOpenNode>();
    EXPECT_EQ(node->EncodeFloat3(0.1f, 2.0f, -3.0f), "0.1 2 -3");
    EXPECT_EQ(node->EncodeFloat3(1.0f, 0.5f, 0.0f), "1 0.5 0");
}

struct TripleText {
    const char* description;
    const char* text;
    float a;
    float b;
    float c;
};

class DecodedTriple : public ::testing::TestWithParam<TripleText> {};

TEST_P(DecodedTriple, GivesItsNumbers)
{
    const auto node = std::make_unique<RVOpenNode>();
    float a = UntouchedFloat;
    float b = UntouchedFloat;
    float c = UntouchedFloat;
    node->DecodeFloat3(GetParam().text, &a, &b, &c);
    EXPECT_EQ(a, GetParam().a);
    EXPECT_EQ(b, GetParam().b);
    EXPECT_EQ(c, GetParam().c);
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenNode, DecodedTriple,
    ::testing::Values(TripleText{"Three", "0.1 2 -3", 0.1f, 2.0f, -3.0f},
                      TripleText{"Two", "1 2", 1.0f, 2.0f, 0.0f},
                      TripleText{"One", "1", 1.0f, 0.0f, 0.0f},
                      TripleText{"Nothing", "", 0.0f, 0.0f, 0.0f},
                      TripleText{"Four", "1 2 3 4", 1.0f, 2.0f, 3.0f},
                      TripleText{"AnyWhiteSpace", " 1\t2 \n 3 ", 1.0f, 2.0f, 3.0f},
                      TripleText{"Exponents", "1e2 2E-1 +3", 100.0f, 0.2f, 3.0f},
                      TripleText{"Infinite", "inf -inf 1e39", Infinite, -Infinite, Infinite},
                      TripleText{"BeyondEveryNumber", "1e999 2 3", 0.0f, 2.0f, 3.0f},
                      TripleText{"WordLast", "1 2 x", 1.0f, 2.0f, 0.0f},
                      TripleText{"WordSecond", "1 x 3", 1.0f, 0.0f, 0.0f},
                      TripleText{"WordFirst", "x 2 3", 0.0f, 0.0f, 0.0f},
                      TripleText{"Commas", "1,2,3", 1.0f, 0.0f, 0.0f}),
    [](const auto& instance) { return nameOf(instance.param.description); });

// Archive references

struct ArchiveNameCase {
    const char* description;
    const char* xml;
    const char* fileName;
    const char* folder;
};

/// Expected names with "C" for the custom and "P" for the product archives' folder and "/" for the
/// platform's separator.
class ArchiveName : public ::testing::TestWithParam<ArchiveNameCase> {
protected:
    QString expand(const QString& pattern) const
    {
        QStringList parts = pattern.split('/');
        parts.replaceInStrings(QRegularExpression("^C$"), m_folders.custom());
        parts.replaceInStrings(QRegularExpression("^P$"), m_folders.product());
        return parts.join(QDir::separator());
    }

    const ArchiveFolders m_folders;
    const Single m_item{GetParam().xml};
};

TEST_P(ArchiveName, GivesTheFullFileName)
{
    EXPECT_EQ(m_item.node->GetArchiveFilename(), expand(GetParam().fileName));
}

TEST_P(ArchiveName, GivesTheFolder)
{
    EXPECT_EQ(m_item.node->GetArchiveFolder(), expand(GetParam().folder));
}

INSTANTIATE_TEST_SUITE_P(
    RVOpenNode, ArchiveName,
    ::testing::Values(
        ArchiveNameCase{"WithoutPath", "<item archiveFilename='Studio' archiveType='Custom'/>",
                        "C/Studio.rvx", ""},
        ArchiveNameCase{"WithEmptyPath",
                        "<item archiveFilename='Studio' archiveType='Custom' path=''/>",
                        "C/Studio.rvx", ""},
        ArchiveNameCase{"WithPath",
                        "<item archiveFilename='Studio' archiveType='Custom' path='Sub'/>",
                        "C/Sub/Studio.rvx", "C/Sub"},
        ArchiveNameCase{"OfTheProduct",
                        "<item archiveFilename='Studio' archiveType='Zorvane' path='Sub'/>",
                        "P/Sub/Studio.rvx", "P/Sub"},
        ArchiveNameCase{"OfUnknownType",
                        "<item archiveFilename='Studio' archiveType='custom' path='Sub'/>",
                        "/Sub/Studio.rvx", "/Sub"},
        ArchiveNameCase{"WithoutType", "<item archiveFilename='Studio'/>", "/Studio.rvx", ""},
        ArchiveNameCase{"WithEmptyType",
                        "<item archiveFilename='Studio' archiveType='' path='Sub'/>",
                        "/Sub/Studio.rvx", "/Sub"},
        ArchiveNameCase{"WithoutFileName", "<item archiveType='Custom' path='Sub'/>", "", "C/Sub"},
        ArchiveNameCase{"WithEmptyFileName",
                        "<item archiveFilename='' archiveType='Custom' path='Sub'/>", "", "C/Sub"}),
    [](const auto& instance) { return nameOf(instance.param.description); });

TEST(RVOpenNode, ArchiveNameOfAnAncestorIsNotInherited)
{
    const ArchiveFolders folders;
    const QDomDocument document =
        parse("<item archiveFilename='Studio' archiveType='Custom' path='Sub'><child/></item>");
    const auto item = bind(document.documentElement());
    RVOpenNode* const child = item->GetChild(1, 0);
    ASSERT_NE(child, nullptr);
    EXPECT_EQ(child->GetArchiveFilename(), "");
    EXPECT_EQ(child->GetArchiveFolder(), "");
}

TEST(RVOpenNode, ArchiveFolderThatIsMissingCountsAsEmpty)
{
    const ArchiveFolders folders;
    GetDirectoryHandler()->SetCustomArchivesFolder(folders.root() + "/nowhere");
    const Single item("<item archiveFilename='Studio' archiveType='Custom'/>");
    EXPECT_EQ(item.node->GetArchiveFilename(), QDir::separator() + QString("Studio.rvx"));
}

// Clones

TEST(RVOpenNode, CloneOfNothingIsBoundToNothing)
{
    const std::unique_ptr<RVOpenNode> clone(new RVOpenNode(nullptr));
    EXPECT_TRUE(clone->GetDomNode().isNull());
}

TEST(RVOpenNode, CloneOfAnUnboundNodeIsBoundToNothing)
{
    const auto source = std::make_unique<RVOpenNode>();
    const std::unique_ptr<RVOpenNode> clone(new RVOpenNode(source.get()));
    EXPECT_TRUE(clone->GetDomNode().isNull());
}

struct Cloned : Single {
    Cloned()
        : Single("<root><item name='a' ImageBorder='7'><param name='p' val='1'/><!--c--><x><y/></x>"
                 "</item><next/></root>")
        , source(node->GetChild(1, 1))
        , clone(new RVOpenNode(source))
    {
    }

    RVOpenNode* source;
    std::unique_ptr<RVOpenNode> clone;
};

TEST(RVOpenNode, CloneHasEqualContentInAnElementOfItsOwn)
{
    const Cloned cloned;
    EXPECT_EQ(xmlOf(cloned.clone->GetDomNode()), xmlOf(cloned.source->GetDomNode()));
    EXPECT_NE(cloned.clone->GetDomNode(), cloned.source->GetDomNode());
}

TEST(RVOpenNode, CloneBelongsToTheSameDocumentAndStandsNowhereInIt)
{
    const Cloned cloned;
    EXPECT_EQ(cloned.clone->GetDomNode().ownerDocument(), cloned.document);
    EXPECT_TRUE(cloned.clone->GetDomNode().parentNode().isNull());
    EXPECT_EQ(domChildNames(cloned.element()), QStringList({"item", "next"}));
}

TEST(RVOpenNode, CloneHasNoLinks)
{
    const Cloned cloned;
    cloned.source->GetChild(1, 1);
    cloned.source->GetNext(1);
    const std::unique_ptr<RVOpenNode> clone(new RVOpenNode(cloned.source));
    EXPECT_EQ(clone->GetParent(), nullptr);
    EXPECT_EQ(clone->GetNext(1), nullptr);
    EXPECT_EQ(clone->GetChild(0, 0), nullptr);
}

TEST(RVOpenNode, CloneAndSourceChangeApart)
{
    const Cloned cloned;
    cloned.clone->SetName("b");
    cloned.source->SetCat("c");
    EXPECT_EQ(cloned.source->GetName(), "a");
    EXPECT_EQ(cloned.clone->GetCat(), "");
}

TEST(RVOpenNode, CloneAndSourceChangeApartBelowTheElement)
{
    const Cloned cloned;
    cloned.clone->GetChild(1, 1)->SetName("q");
    EXPECT_EQ(cloned.source->GetChild(1, 1)->GetName(), "p");
}

TEST(RVOpenNode, CloneHasAParameterListOfItsOwn)
{
    const Cloned cloned;
    cloned.clone->GetParamHelper()->AddIntParam("Count");
    EXPECT_EQ(domChildNames(cloned.clone->GetDomNode()),
              QStringList({"param", "#comment", "x", "param"}));
    EXPECT_EQ(domChildNames(cloned.source->GetDomNode()), QStringList({"param", "#comment", "x"}));
}

TEST(RVOpenNode, DeletingTheCloneLeavesTheSource)
{
    Cloned cloned;
    cloned.clone.reset();
    EXPECT_EQ(domChildNames(cloned.element()), QStringList({"item", "next"}));
    EXPECT_EQ(cloned.source->GetName(), "a");
}

// Documents that everybody else let go of

/// A clone whose source and document went.
std::unique_ptr<RVOpenNode> orphanedClone()
{
    const QDomDocument document = parse(
        "<snapRoot unitsScale='2'><item name='a'><param name='p' type='float' prop='D' val='10'/>"
        "</item></snapRoot>");
    const auto root = bind(document.documentElement());
    return std::unique_ptr<RVOpenNode>(new RVOpenNode(root->GetChild(1, 1)));
}

const char* const orphanedXml =
    "<item name='a'><param name='p' type='float' prop='D' val='10'/></item>";

TEST(OrphanedClone, CanBeRead)
{
    const auto clone = orphanedClone();
    EXPECT_EQ(clone->GetName(), "a");
    EXPECT_EQ(xmlOf(clone->GetDomNode()), xmlOf(orphanedXml));
}

TEST(OrphanedClone, StillHasADocument)
{
    EXPECT_FALSE(orphanedClone()->GetDomNode().ownerDocument().isNull());
}

TEST(OrphanedClone, CanBeChanged)
{
    const auto clone = orphanedClone();
    clone->SetName("b");
    EXPECT_EQ(clone->GetName(), "b");
}

TEST(OrphanedClone, GivesItsChildren)
{
    const auto clone = orphanedClone();
    ASSERT_EQ(childNames(clone.get()), QStringList("param"));
    EXPECT_TRUE(mirrorsWholeDom(clone.get()));
}

TEST(OrphanedClone, TakesNewParameters)
{
    const auto clone = orphanedClone();
    clone->GetParamHelper()->AddIntParam("n");
    EXPECT_EQ(xmlOf(clone->GetDomNode()),
              xmlOf("<item name='a'><param name='p' type='float' prop='D' val='10'/>"
                    "<param name='n' type='integer' val='0'/></item>"));
}

TEST(OrphanedClone, CanBeClonedAgainAndOutlived)
{
    auto clone = orphanedClone();
    const std::unique_ptr<RVOpenNode> second(new RVOpenNode(clone.get()));
    clone.reset();
    EXPECT_EQ(xmlOf(second->GetDomNode()), xmlOf(orphanedXml));
    EXPECT_FALSE(second->GetDomNode().ownerDocument().isNull());
}

TEST(OrphanedClone, CanBeAddedToAnotherDocument)
{
    const Single target("<target/>");
    target.node->AddNode(orphanedClone().release(), true);
    EXPECT_EQ(xmlOf(target.element()),
              xmlOf(("<target>" + std::string(orphanedXml) + "</target>").c_str()));
    EXPECT_TRUE(mirrorsWholeDom(target.node.get()));
}

TEST(OrphanedClone, CanBeInsertedIntoAnotherDocument)
{
    const Single target("<target><last/></target>");
    target.node->InsertNode(orphanedClone().release(), 0);
    EXPECT_EQ(xmlOf(target.element()),
              xmlOf(("<target>" + std::string(orphanedXml) + "<last/></target>").c_str()));
    EXPECT_TRUE(mirrorsWholeDom(target.node.get()));
}

TEST(OrphanedClone, ThatWasAddedFollowsItsNewDocument)
{
    auto target = std::make_unique<Single>("<target/>");
    RVOpenNode* const child = orphanedClone().release();
    child->GetChild(1, 1);
    target->node->AddNode(child, true);
    target->node->DetachNode(child, true);
    target.reset();
    const std::unique_ptr<RVOpenNode> owner(child);
    EXPECT_FALSE(child->GetDomNode().ownerDocument().isNull());
    EXPECT_FALSE(child->GetChild(1, 1)->GetDomNode().ownerDocument().isNull());
    EXPECT_EQ(xmlOf(child->GetDomNode()), xmlOf(orphanedXml));
}

TEST(OrphanedClone, CanBeBoundToAnotherDocument)
{
    const Single other("<other/>");
    const auto clone = orphanedClone();
    clone->SetDomNode(other.element());
    EXPECT_EQ(clone->GetNodeName(), "other");
    EXPECT_EQ(clone->GetDomNode().ownerDocument(), other.document);
}

TEST(RVOpenNode, BoundNodeKeepsItsDocument)
{
    std::unique_ptr<RVOpenNode> node;
    {
        const QDomDocument document = parse("<root><item name='a'/></root>");
        node = bind(document.documentElement().firstChild());
    }
    EXPECT_EQ(xmlOf(node->GetDomNode().ownerDocument()), xmlOf("<root><item name='a'/></root>"));
}

TEST(RVOpenNode, DetachedNodeOutlivesItsTreeAndDocument)
{
    std::unique_ptr<RVOpenNode> detached;
    {
        const Single root("<root><item name='a'><x/></item></root>");
        detached.reset(root.node->GetChild(1, 1));
        root.node->DetachNode(detached.get(), true);
    }
    EXPECT_FALSE(detached->GetDomNode().ownerDocument().isNull());
    EXPECT_EQ(xmlOf(detached->GetDomNode()), xmlOf("<item name='a'><x/></item>"));
    EXPECT_TRUE(mirrorsWholeDom(detached.get()));
}

TEST(RVOpenNode, BindingToAnotherDocumentLetsTheOldOneGo)
{
    const Single first("<root><item/></root>");
    const Single second("<other><item/></other>");
    const auto node = bind(first.element().firstChild());
    node->SetDomNode(second.element().firstChild());
    EXPECT_EQ(node->GetDomNode().ownerDocument(), second.document);
}

// Shallow copies

/// A source with parent, child and sibling, and an element for a copy to be bound to.
struct ShallowSource : Single {
    ShallowSource()
        : Single("<root><item><child/></item><next/><spare/></root>")
        , item(node->GetChild(1, 1))
        , child(item->GetChild(1, 1))
        , next(item->GetNext(1))
        , spare(next->GetNext(1))
    {
    }

    RVOpenNode* item;
    RVOpenNode* child;
    RVOpenNode* next;
    RVOpenNode* spare;
};

TEST(RVOpenNode, CopySharesElementAndLinks)
{
    const ShallowSource source;
    RVOpenNode copy(*source.item);
    EXPECT_EQ(copy.GetDomNode(), source.item->GetDomNode());
    EXPECT_EQ(copy.GetParent(), source.node.get());
    EXPECT_EQ(copy.GetChild(0, 0), source.child);
    EXPECT_EQ(copy.GetNext(0), source.next);
}

TEST(RVOpenNode, AssignmentSharesElementAndLinks)
{
    const ShallowSource source;
    RVOpenNode copy;
    copy = *source.item;
    EXPECT_EQ(copy.GetDomNode(), source.item->GetDomNode());
    EXPECT_EQ(copy.GetParent(), source.node.get());
    EXPECT_EQ(copy.GetChild(0, 0), source.child);
    EXPECT_EQ(copy.GetNext(0), source.next);
}

TEST(RVOpenNode, ParameterListOfACopyDesignatesTheSource)
{
    const ShallowSource source;
    RVOpenNode copy(*source.spare);
    copy.SetDomNode(source.next->GetDomNode());
    copy.GetParamHelper()->AddIntParam("Count");
    EXPECT_EQ(domChildNames(source.spare->GetDomNode()), QStringList("param"));
    EXPECT_EQ(domChildNames(source.next->GetDomNode()), QStringList());
}

TEST(RVOpenNode, ParameterListOfAnAssignedNodeDesignatesTheSource)
{
    const ShallowSource source;
    RVOpenNode copy;
    copy = *source.spare;
    copy.SetDomNode(source.next->GetDomNode());
    copy.GetParamHelper()->AddIntParam("Count");
    EXPECT_EQ(domChildNames(source.spare->GetDomNode()), QStringList("param"));
    EXPECT_EQ(domChildNames(source.next->GetDomNode()), QStringList());
}

} // namespace
} // namespace rvopen::test
