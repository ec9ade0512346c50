// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/Transparency.h>

/// What stands between the children of an element and is no child of its own.
namespace rvopen::test {
namespace {

/// A document in which \p between, which no parser keeps, is text or whatever its first letter
/// says, in front of the children of the root.
QDomDocument withInFront(const QString& xml, const QString& between)
{
    QDomDocument document = parse(xml);
    QDomElement root = document.documentElement();
    const QDomNode node = between.startsWith('c') ? QDomNode(document.createComment("note"))
                          : between.startsWith('p')
                              ? QDomNode(document.createProcessingInstruction("pi", "x"))
                          : between.startsWith('d') ? QDomNode(document.createCDATASection(" "))
                          : between.startsWith('e') ? QDomNode(document.createElement("other"))
                                                    : QDomNode(document.createTextNode(between));
    root.insertBefore(node, root.firstChild());
    return document;
}

constexpr const char* s_twoParams =
    "<scenery><param name='A' type='float' val='1'/><param name='B' type='float' val='2'/>"
    "</scenery>";

class SteppedOver : public ::testing::TestWithParam<const char*> {
protected:
    const QDomDocument m_document = withInFront(s_twoParams, GetParam());
    const std::unique_ptr<Scenery> m_node = bind<Scenery>(m_document.documentElement());
};

TEST_P(SteppedOver, ParametersBehindItAreFound)
{
    ParamHelper* const params = m_node->GetParamHelper();
    ASSERT_NE(params->GetParam("A"), nullptr);
    EXPECT_EQ(params->GetFirstParam(), params->GetParam("A"));
    EXPECT_EQ(params->FindParam("B"), params->GetParam("B"));
    float value = 0.0f;
    EXPECT_EQ(params->GetValFloat("B", &value), StatusOk);
    EXPECT_EQ(value, 2.0f);
}

TEST_P(SteppedOver, ParameterBehindItIsTheNextOne)
{
    QDomElement root = m_document.documentElement();
    root.insertAfter(root.firstChild(), root.firstChildElement());
    Param* const first = m_node->GetParamHelper()->GetParam("A");
    ASSERT_NE(first, nullptr);
    ASSERT_NE(first->GetNext(), nullptr);
    EXPECT_EQ(first->GetNext()->GetName(), "B");
    EXPECT_EQ(first->GetNext()->GetNext(), nullptr);
}

TEST_P(SteppedOver, IsAChildInAWalkStill)
{
    EXPECT_TRUE(mirrorsWholeDom(m_node.get()));
    EXPECT_EQ(m_node->GetNumChildren(), 3);
}

INSTANTIATE_TEST_SUITE_P(LookUp, SteppedOver,
                         ::testing::Values("comment", "pi", " ", "\n\t\r  \n"));

class NotSteppedOver : public ::testing::TestWithParam<const char*> {};

TEST_P(NotSteppedOver, EndsTheLookUp)
{
    const QDomDocument document = withInFront(s_twoParams, GetParam());
    const auto node = bind<Scenery>(document.documentElement());
    EXPECT_EQ(node->GetParamHelper()->GetParam("A"), nullptr);
    EXPECT_EQ(node->GetParamHelper()->GetFirstParam(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(LookUp, NotSteppedOver,
                         ::testing::Values("element", "data", "ink", " x ", "\u00a0"));

/// A setter that creates its parameter.
struct Setter {
    const char* name; ///< Of the parameter.
    const char* type;
    const char* value; ///< As it is set.
    /// Calls it on an object over the root of the document, which is as saved and loaded then.
    std::function<unsigned int(QDomDocument& document)> set;
};

void PrintTo(const Setter& setter, std::ostream* out)
{
    *out << setter.name;
}

template <typename Class, typename... Value>
Setter setter(const char* name, const char* type, const char* value,
              unsigned int (Class::*set)(Value...), Value... argument)
{
    return {name, type, value, [=](QDomDocument& document) {
                const QDomDocument original = document;
                const auto object = bind<Class>(original.documentElement());
                const unsigned int status = (object.get()->*set)(argument...);
                document = original.cloneNode(true).toDocument();
                return status;
            }};
}

const Setter s_setters[] = {
    setter("Base Size", "float", "4", &Scenery::SetBaseSize, 4.0f),
    setter("Drop Shadow Catch Spots", "boolean", "1", &Scenery::SetDropShadowCatchSpots, 1),
    setter("Selected", "boolean", "1", &SnapShotSettings::SetSelected, 1),
    setter("Reflect BackPlate", "boolean", "1", &SnapShotSettings::SetReflectBackPlate, 1),
    setter("Landscape", "boolean", "1", &RenderTarget::SetLandscape, 1),
    setter("Gamma", "float", "4", &RenderTarget::SetGamma, 4.0f),
};

class CreatingSetter : public ::testing::TestWithParam<Setter> {
protected:
    QString param() const
    {
        return test::param(GetParam().name, GetParam().type, "0");
    }
    std::string expected() const
    {
        return std::string(GetParam().name) + ": " + GetParam().type + " = " + GetParam().value +
               "\n";
    }
};

TEST_P(CreatingSetter, UsesTheParameterThatIsThereWhateverStandsInFront)
{
    for (const char* between : {"comment", "pi", " ", "element", "data", "ink"}) {
        QDomDocument document = withInFront("<x>" + param() + "</x>", between);
        for (int session = 0; session < 3; ++session) {
            EXPECT_EQ(GetParam().set(document), StatusOk) << between;
            EXPECT_EQ(paramsOf(document.documentElement()), expected()) << between;
        }
    }
}

TEST_P(CreatingSetter, CreatesTheParameterOnceWhereNoneIs)
{
    for (const char* between : {"comment", "pi", " ", "element", "data", "ink"}) {
        QDomDocument document = withInFront("<x/>", between);
        for (int session = 0; session < 3; ++session) {
            EXPECT_EQ(GetParam().set(document), StatusOk) << between;
            EXPECT_EQ(paramsOf(document.documentElement()), expected()) << between;
        }
    }
}

TEST_P(CreatingSetter, LeavesAHiddenParameterOfAnotherType)
{
    QDomDocument document =
        parse("<x><other/>" + test::param(GetParam().name, "string", "0") + "</x>");
    EXPECT_EQ(GetParam().set(document), StatusMissing);
    EXPECT_EQ(paramsOf(document.documentElement()),
              std::string(GetParam().name) + ": string = 0\n");
}

TEST_P(CreatingSetter, UsesTheParameterOfTheArchiveThatTheElementStandsFor)
{
    ArchiveFolders folders;
    const QString fileName = folders.write("Studio", "<x><other/>" + param() + "</x>");
    QDomDocument document = parse("<x archiveFilename='Studio' archiveType='Custom'/>");
    for (int session = 0; session < 2; ++session) {
        EXPECT_EQ(GetParam().set(document), StatusOk);
        RVOpenNode* const archive = GetDirectoryHandler()->LoadArchive(fileName);
        ASSERT_NE(archive, nullptr);
        EXPECT_EQ(paramsOf(archive->GetDomNode().toElement()), expected());
        EXPECT_FALSE(document.documentElement().hasChildNodes());
    }
}

INSTANTIATE_TEST_SUITE_P(LookUp, CreatingSetter, ::testing::ValuesIn(s_setters));

TEST(CreatingSetter, OfTheReflectedEnvironmentUsesBothParametersThatAreThere)
{
    const QDomDocument document =
        parse("<x><other/>" + param("Reflected Env Intensity", "float", "0") +
              param("Reflected Env Path", "string", "old") + "</x>");
    SnapShotSettings settings(document.documentElement());
    EXPECT_EQ(settings.SetBackgroundReflected("new", 2.0f), StatusOk);
    EXPECT_EQ(paramsOf(document.documentElement()),
              "Reflected Env Intensity: float = 2\nReflected Env Path: string = new\n");
}

// Collections

template <typename Collection>
void expectNoObjectForBlanks(const char* tag)
{
    QDomDocument document = parse("<list><x name='a'/><x name='b'/></list>");
    QDomElement list = document.documentElement();
    const QDomNode second = list.lastChild();
    list.insertBefore(document.createTextNode("\n "), list.firstChild());
    list.insertBefore(document.createTextNode(" "), second);
    list.insertBefore(document.createComment("note"), second);
    list.insertBefore(document.createTextNode("ink"), second);
    list.appendChild(document.createTextNode("\n"));
    const auto collection = bind<Collection>(list);
    collection->Populate();
    collection->Populate();
    QStringList expected({"x", "#comment", "#text", "x"});
    EXPECT_EQ(childNames(collection.get()), expected) << tag;
    collection->AddNode(bind(document.createElement("y")).release(), true);
    EXPECT_EQ(childNames(collection.get()), expected << "y") << tag;
}

TEST(Collection, HasNoObjectForBlankText)
{
    expectNoObjectForBlanks<SnapShots>("snapshots");
    expectNoObjectForBlanks<MaterialRepository>("materialRepository");
    expectNoObjectForBlanks<RenderTargets>("renderTargets");
}

TEST(Collection, TakesAnInsertedElementWhereItsObjectIs)
{
    for (int index = 0; index <= 2; ++index) {
        QDomDocument document = parse("<snapshots><snapshot name='a'/><snapshot name='b'/>"
                                      "</snapshots>");
        QDomElement list = document.documentElement();
        list.insertBefore(document.createTextNode("\n "), list.firstChild());
        list.insertBefore(document.createTextNode("\n "), list.lastChild());
        SnapShots collection(list);
        collection.Populate();
        SnapShot* const added = collection.CreateSnapShot(nullptr);
        added->SetName("new");
        collection.InsertNode(added, index);

        QStringList expected({"a", "b"});
        expected.insert(index, "new");
        QStringList inDocument;
        for (QDomElement e = list.firstChildElement(); !e.isNull(); e = e.nextSiblingElement())
            inDocument << e.attribute("name");
        EXPECT_EQ(inDocument, expected);
        QStringList inChain;
        for (SnapShot* s = collection.GetFirstSnapShot(); s; s = s->GetNext())
            inChain << s->GetName();
        EXPECT_EQ(inChain, expected);
    }
}

} // namespace
} // namespace rvopen::test
