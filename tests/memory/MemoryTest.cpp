// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "AllocationFailure.h"

#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/Background.h>
#include <rvopen/Bump.h>
#include <rvopen/Camera.h>
#include <rvopen/Colour.h>
#include <rvopen/Finish.h>
#include <rvopen/Foreground.h>
#include <rvopen/Material.h>
#include <rvopen/MaterialRepository.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/Param.h>
#include <rvopen/ParamHelper.h>
#include <rvopen/RVOpenManager.h>
#include <rvopen/RVOpenReader.h>
#include <rvopen/RVOpenSchema.h>
#include <rvopen/RVOpenStatus.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/ShaderColour.h>
#include <rvopen/ShaderDiffuse.h>
#include <rvopen/ShaderMap.h>
#include <rvopen/ShaderPlainColour.h>
#include <rvopen/SnapShot.h>
#include <rvopen/SnapShotSettings.h>
#include <rvopen/SnapShots.h>
#include <rvopen/Transparency.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// What operations that create objects do when each of the allocations that they need fails.
namespace rvopen::test::memory {
namespace {

const QString s_document = QStringLiteral(
    "<snapRoot>"
    "<snapshots name='Model SnapShots'><snapshot name='a'><camera/></snapshot></snapshots>"
    "<snapshot name='CurrSnapshot'>"
    "<!-- A comment --><unknown><deeper/></unknown>"
    "<camera><param name='Lens' type='float' val='1'/></camera>"
    "<background subCat='plain'><param name='Colour' type='colour' val='1 1 1'/></background>"
    "<materialRepository><material linkname='a' refName='r'><finish/><bump/><other/></material>"
    "<material linkname='b'><colour><shader/></colour></material></materialRepository>"
    "<renderTargets><renderTarget><param name='Width' type='int' val='1'/></renderTarget>"
    "</renderTargets>"
    "</snapshot></snapRoot>");

/// Objects that are there before memory runs out. Each part is what the operations are tried on.
struct Host {
    Host()
    {
        manager = std::make_unique<RVOpenManager>();
        manager->LoadSnapShotDocFromString(s_document);
        snapShot = manager->GetCurrentSnapShot();
        snapShot->Populate();
        other.setContent(QStringLiteral("<other><param name='p' type='int' val='1'/><b/><c/>"
                                        "<colour/><param type='shader' val='colour'/></other>"));
        node.SetDomNode(other.documentElement());
        bare.SetDomNode(node.GetDomNode().appendChild(other.createElement("material")));
        colour.SetDomNode(node.GetDomNode().appendChild(other.createElement("colour")));
        transparency.SetDomNode(node.GetDomNode().appendChild(other.createElement("transparency")));
        bump.SetDomNode(node.GetDomNode().appendChild(other.createElement("bump")));
    }

    std::string text() const
    {
        return (manager->GetSnapShotDocumentAsString() + other.toString()).toStdString();
    }

    SnapShots* snapShots() const
    {
        return manager->GetSnapShots();
    }
    Material* material() const
    {
        return snapShot->GetMaterialRepository()->GetFirstMaterial();
    }
    RenderTarget* renderTarget() const
    {
        return snapShot->GetRenderTargets()->GetFirstRenderTarget();
    }

    std::unique_ptr<RVOpenManager> manager;
    SnapShot* snapShot = nullptr;
    QDomDocument other;
    RVOpenNode node;
    Material bare{nullptr};
    Colour colour{nullptr};
    Transparency transparency{nullptr};
    Bump bump{nullptr};
};

/// An object that an operation gave, and whether it is the caller's to free.
struct Made {
    RVOpenNode* object = nullptr;
    bool isOwned = false;
};

Made owned(RVOpenNode* object)
{
    return {object, true};
}

Made held(RVOpenNode* object)
{
    return {object, false};
}

struct Operation {
    const char* name;
    Made (*run)(Host& host);
};

void PrintTo(const Operation& operation, std::ostream* out)
{
    *out << operation.name;
}

class ExhaustedMemoryTest : public ::testing::TestWithParam<Operation> {
protected:
    /// Lets the allocation of that number fail while the operation runs. False when it needs fewer.
    bool failOnce(std::size_t number, Failure failure)
    {
        const std::size_t before = liveObjects();
        std::size_t failed = 0;
        {
            Host host;
            const std::string text = host.text();
            failAt(number, failure);
            const Made made = GetParam().run(host);
            failed = stopFailing();
            if (failed > 0) {
                EXPECT_EQ(made.object, nullptr) << "allocation " << number;
                EXPECT_EQ(host.text(), text) << "allocation " << number;
            } else {
                EXPECT_NE(made.object, nullptr);
            }
            expectGoesOn(host, made.object != nullptr);
            if (made.isOwned)
                delete made.object;
        }
        EXPECT_EQ(liveObjects(), before) << "allocation " << number;
        return failed > 0;
    }

    /// With memory again, the operation gives what it gives without ever having failed.
    static void expectGoesOn(Host& host, bool isDone)
    {
        if (isDone)
            return;
        Host unharmed;
        const Made again = GetParam().run(host);
        const Made expected = GetParam().run(unharmed);
        EXPECT_NE(again.object, nullptr);
        EXPECT_EQ(host.text(), unharmed.text());
        if (again.isOwned)
            delete again.object;
        if (expected.isOwned)
            delete expected.object;
    }

    void failEach(Failure failure)
    {
        // What is made once for the whole process is there after the first run.
        failOnce(1000000, failure);
        std::size_t number = 1;
        while (failOnce(number, failure) && !HasFailure())
            ++number;
        EXPECT_GT(number, 1u);
    }
};

TEST_P(ExhaustedMemoryTest, GivesNullAndChangesNothing)
{
    failEach(Failure::OneAllocation);
}

TEST_P(ExhaustedMemoryTest, GivesNullAndChangesNothingWhenItStaysExhausted)
{
    failEach(Failure::AllFromThen);
}

constexpr float s_value = 2;

INSTANTIATE_TEST_SUITE_P(
    Params, ExhaustedMemoryTest,
    ::testing::Values(
        Operation{"CreateParam",
                  [](Host& h) { return owned(h.node.GetParamHelper()->CreateParam("n")); }},
        Operation{"AddFloatParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddFloatParam("n")); }},
        Operation{
            "AddFloatParamWithValue",
            [](Host& h) { return held(h.node.GetParamHelper()->AddFloatParam("n", s_value)); }},
        Operation{"AddIntParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddIntParam("n")); }},
        Operation{"AddStringParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddStringParam("n")); }},
        Operation{"AddBoolParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddBoolParam("n")); }},
        Operation{"AddColourParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddColourParam("n")); }},
        Operation{"AddVectorParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddVectorParam("n")); }},
        Operation{"AddPointParam",
                  [](Host& h) { return held(h.node.GetParamHelper()->AddPointParam("n")); }}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Materials, ExhaustedMemoryTest,
    ::testing::Values(
        Operation{
            "CreateMaterial",
            [](Host& h) { return owned(h.snapShot->GetMaterialRepository()->CreateMaterial()); }},
        Operation{"Colour", [](Host& h) { return held(h.material()->GetColour(1)); }},
        Operation{"Transparency", [](Host& h) { return held(h.material()->GetTransparency(1)); }},
        Operation{"Bump", [](Host& h) { return held(h.bare.GetBump(1)); }},
        Operation{"Diffuse", [](Host& h) { return held(h.colour.GetDiffuse()); }},
        Operation{"TransparencyColour", [](Host& h) { return held(h.transparency.GetColour()); }},
        Operation{"BumpColour", [](Host& h) { return held(h.bump.GetColour()); }}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    SnapShots, ExhaustedMemoryTest,
    ::testing::Values(
        Operation{"ArtificialLightStudio",
                  [](Host& h) { return held(h.snapShot->GetArtificialLightStudio()); }},
        Operation{"CreateCamera", [](Host& h) { return owned(h.snapShot->CreateCamera()); }},
        Operation{"CreateSettings",
                  [](Host& h) { return owned(h.snapShot->CreateSnapShotSettings(nullptr)); }},
        Operation{"CreateScenery",
                  [](Host& h) { return owned(h.snapShot->CreateScenery(nullptr)); }},
        Operation{"AddCamera",
                  [](Host& h) { return held(h.snapShot->AddCamera(h.snapShot->GetCamera())); }},
        Operation{
            "AddBackground",
            [](Host& h) { return held(h.snapShot->AddBackground(h.snapShot->GetBackground())); }},
        Operation{"AddEmptyBackground",
                  [](Host& h) {
                      Background background(nullptr);
                      QDomElement element = h.other.createElement("background");
                      element.setAttribute("subCat", "graduated");
                      background.SetDomNode(element);
                      return held(h.snapShot->AddBackground(&background));
                  }},
        Operation{"AddScheme",
                  [](Host& h) {
                      Scheme scheme(nullptr);
                      scheme.SetDomNode(h.other.createElement("scheme"));
                      return held(h.snapShot->AddScheme(&scheme));
                  }},
        Operation{"AddForeground",
                  [](Host& h) {
                      Foreground foreground(nullptr);
                      foreground.SetDomNode(h.other.createElement("foreground"));
                      return held(h.snapShot->AddForeground(&foreground));
                  }},
        Operation{"AddMaterialRepository",
                  [](Host& h) {
                      return held(
                          h.snapShot->AddMaterialRepository(h.snapShot->GetMaterialRepository()));
                  }},
        Operation{"CreateAndAddNaturalLightStudio",
                  [](Host& h) { return held(h.snapShot->CreateAndAddNaturalLightStudio()); }},
        Operation{"CreateSnapShot",
                  [](Host& h) { return owned(h.snapShots()->CreateSnapShot(nullptr)); }},
        Operation{"CloneSnapShot",
                  [](Host& h) { return owned(h.snapShots()->CreateSnapShot(h.snapShot)); }},
        Operation{
            "CloneCamera",
            [](Host& h) { return owned(h.snapShots()->CreateCamera(h.snapShot->GetCamera())); }},
        Operation{"CloneMaterialRepository",
                  [](Host& h) {
                      return owned(h.snapShots()->CreateMaterialRepository(
                          h.snapShot->GetMaterialRepository()));
                  }},
        Operation{"CreateRenderTarget",
                  [](Host& h) {
                      return owned(h.snapShot->GetRenderTargets()->CreateRenderTarget(nullptr));
                  }},
        Operation{"CloneRenderTarget",
                  [](Host& h) {
                      return owned(
                          h.snapShot->GetRenderTargets()->CreateRenderTarget(h.renderTarget()));
                  }},
        Operation{"CreateInternalSnapShot",
                  [](Host& h) { return owned(h.manager->CreateInternalSnapShot(nullptr)); }},
        Operation{"CloneInternalSnapShot",
                  [](Host& h) { return owned(h.manager->CreateInternalSnapShot(h.snapShot)); }}),
    [](const auto& test) { return std::string(test.param.name); });

INSTANTIATE_TEST_SUITE_P(
    Documents, ExhaustedMemoryTest,
    ::testing::Values(
        Operation{"Cameras", [](Host& h) { return held(h.manager->GetSnapShotsCameras()); }},
        Operation{"Temporary", [](Host& h) { return held(h.manager->GetTempSnapShots()); }},
        Operation{"OriginalBackground",
                  [](Host& h) { return held(h.manager->GetOriginalBackground()); }},
        Operation{"Schema",
                  [](Host& h) {
                      return owned(RVOpenSchema::createNode(h.other.createElement("camera")));
                  }}),
    [](const auto& test) { return std::string(test.param.name); });

/// A map whose setters create two parameters.
class ExhaustedMapTest : public ::testing::Test {
protected:
    ExhaustedMapTest()
    {
        m_document.setContent(QStringLiteral("<map/>"));
        m_map.SetDomNode(m_document.documentElement());
    }

    template <typename Operation>
    unsigned int failing(std::size_t number, Failure failure, Operation operation)
    {
        failAt(number, failure);
        const unsigned int status = operation(m_map);
        EXPECT_GT(stopFailing(), 0u);
        return status;
    }

    QStringList names() const
    {
        QStringList names;
        const QDomElement map = m_document.documentElement();
        for (auto param = map.firstChildElement(); !param.isNull();
             param = param.nextSiblingElement())
            names.append(param.attribute("name"));
        return names;
    }

private:
    QDomDocument m_document;
    ShaderMap m_map;
};

unsigned int setMapping(ShaderMap& map)
{
    return map.SetMapping(1, 1);
}

unsigned int setOffset(ShaderMap& map)
{
    return map.SetOffset(1, 1);
}

TEST_F(ExhaustedMapTest, KeepsTheSecondReflectionWithoutTheFirst)
{
    EXPECT_EQ(failing(1, Failure::OneAllocation, setMapping), StatusOk);
    EXPECT_EQ(names(), QStringList("T Reflect"));
}

TEST_F(ExhaustedMapTest, AnswersForTheFirstReflectionWithoutTheSecond)
{
    EXPECT_EQ(failing(2, Failure::OneAllocation, setMapping), StatusOk);
    EXPECT_EQ(names(), QStringList("S Reflect"));
}

TEST_F(ExhaustedMapTest, MissesBothReflections)
{
    EXPECT_EQ(failing(1, Failure::AllFromThen, setMapping), StatusMissing);
    EXPECT_EQ(names(), QStringList());
}

TEST_F(ExhaustedMapTest, KeepsTheSecondOffsetWithoutTheFirst)
{
    EXPECT_EQ(failing(1, Failure::OneAllocation, setOffset), StatusOk);
    EXPECT_EQ(names(), QStringList("T Offset"));
}

TEST_F(ExhaustedMapTest, AnswersForTheFirstOffsetWithoutTheSecond)
{
    EXPECT_EQ(failing(2, Failure::OneAllocation, setOffset), StatusOk);
    EXPECT_EQ(names(), QStringList("S Offset"));
}

TEST_F(ExhaustedMapTest, MissesBothOffsets)
{
    EXPECT_EQ(failing(1, Failure::AllFromThen, setOffset), StatusMissing);
    EXPECT_EQ(names(), QStringList());
}

} // namespace
} // namespace rvopen::test::memory
