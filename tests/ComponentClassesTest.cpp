// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/AlbumInfo.h>
#include <rvopen/ArtificialLightStudio.h>
#include <rvopen/AspectRatio.h>
#include <rvopen/AspectRatioOrient.h>
#include <rvopen/Background.h>
#include <rvopen/Camera.h>
#include <rvopen/Directory.h>
#include <rvopen/Foreground.h>
#include <rvopen/Lens.h>
#include <rvopen/NaturalLightStudio.h>
#include <rvopen/RenderTarget.h>
#include <rvopen/RenderTargets.h>
#include <rvopen/Scenery.h>
#include <rvopen/Scheme.h>
#include <rvopen/SnapShotSettings.h>

// What the component classes have in common: how they are made, copied and destroyed.

namespace {

using namespace rvopen;
using namespace rvopen::test;

const char* const documentText = "<snapRoot><node name=\"A\" subcat=\"Image\">"
                                 "<param name=\"P\" type=\"float\" val=\"1\"/>"
                                 "</node></snapRoot>";
const char* const nodeText = "<node name=\"A\" subcat=\"Image\">"
                             "<param name=\"P\" type=\"float\" val=\"1\"/>"
                             "</node>";

struct ClassNames {
    template <typename Class>
    static std::string GetName(int)
    {
        // The parameter's name as the compiler spells it: "[with Class = rvopen::Camera; ...".
        const std::string text = __PRETTY_FUNCTION__;
        const std::size_t start = text.find("rvopen::", text.find("Class =")) + 8;
        return text.substr(start, text.find_first_of(";],", start) - start);
    }
};

template <typename Class>
class ClonedComponent : public testing::Test {
protected:
    QDomDocument document = parse(QString::fromUtf8(documentText));
    QDomElement element = document.documentElement().firstChildElement();
    std::unique_ptr<Class> source = bind<Class>(element);
    std::unique_ptr<Class> clone{new Class(static_cast<RVOpenNode*>(source.get()))};
};

using ClonedClasses =
    testing::Types<AlbumInfo, ArtificialLightStudio, AspectRatio, AspectRatioOrient, Background,
                   Camera, Directory, Foreground, Lens, NaturalLightStudio, RenderTarget, Scenery,
                   Scheme, SnapShotSettings>;
TYPED_TEST_SUITE(ClonedComponent, ClonedClasses, ClassNames);

TYPED_TEST(ClonedComponent, OfNullIsBoundToNothing)
{
    const TypeParam empty(static_cast<RVOpenNode*>(nullptr));
    EXPECT_TRUE(empty.GetDomNode().isNull());
}

TYPED_TEST(ClonedComponent, HasADeepCopyOfTheElement)
{
    EXPECT_EQ(xmlOf(this->clone->GetDomNode()), xmlOf(nodeText));
}

TYPED_TEST(ClonedComponent, StandsNowhereInTheDocument)
{
    EXPECT_TRUE(this->clone->GetDomNode().parentNode().isNull());
}

TYPED_TEST(ClonedComponent, ChangesApartFromItsSource)
{
    this->clone->SetName(QStringLiteral("B"));
    EXPECT_EQ(xmlOf(this->element), xmlOf(nodeText));
}

TYPED_TEST(ClonedComponent, StaysUsableWithoutItsSourceAndDocument)
{
    this->source.reset();
    this->element = QDomElement();
    this->document.clear();
    this->document = QDomDocument();
    const TypeParam again(static_cast<RVOpenNode*>(this->clone.get()));
    EXPECT_EQ(xmlOf(again.GetDomNode()), xmlOf(nodeText));
}

template <typename Class>
class CopiedComponent : public testing::Test {
protected:
    QDomDocument document = parse(QString::fromUtf8(documentText));
    QDomElement element = document.documentElement().firstChildElement();
    std::unique_ptr<Class> object = bind<Class>(element);
};

using CopiedClasses =
    testing::Types<AlbumInfo, ArtificialLightStudio, AspectRatio, AspectRatioOrient, Background,
                   Camera, Directory, Foreground, Lens, NaturalLightStudio, RenderTarget,
                   RenderTargets, Scenery, Scheme, SnapShotSettings>;
TYPED_TEST_SUITE(CopiedComponent, CopiedClasses, ClassNames);

TYPED_TEST(CopiedComponent, IsBoundToTheElementItWasMadeOver)
{
    EXPECT_TRUE(this->object->GetDomNode() == this->element);
}

TYPED_TEST(CopiedComponent, SharesTheElementWithACopy)
{
    const TypeParam copy(*this->object);
    EXPECT_TRUE(copy.GetDomNode() == this->element);
}

TYPED_TEST(CopiedComponent, SharesTheElementAfterAssignment)
{
    const auto other = bind<TypeParam>(this->document.createElement(QStringLiteral("other")));
    *other = *this->object;
    EXPECT_TRUE(other->GetDomNode() == this->element);
}

TYPED_TEST(CopiedComponent, MakesNoObjectsOfItsChildren)
{
    EXPECT_EQ(this->object->GetChild(0, 0), nullptr);
}

TYPED_TEST(CopiedComponent, GoesThroughItsBaseAndTakesItsElementAlong)
{
    std::unique_ptr<RVOpenNode> base = std::move(this->object);
    base.reset();
    EXPECT_EQ(xmlOf(this->document), xmlOf("<snapRoot/>"));
}

} // namespace
