// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include <rvopen/host/CameraValues.h>
#include <rvopen/host/Values.h>

#include "RecordingObserver.h"
#include "TestSupport.h"

#include <rvopen/Camera.h>
#include <rvopen/Param.h>
#include <rvopen/RVOpenView.h>

namespace rvopen::test {
namespace {

using host::Clipping;
using host::Pinhole;
using host::Point;
using host::Rgb;
using host::setValue;
using host::value;
using host::Vector;

/// One parameter of each type, an empty one, and one behind a child that is none.
const char* const s_valuesDocument =
    "<snapRoot unitsScale='10'><camera>"
    "<param name='F' type='float' val='1.5'/><param name='L' type='float' prop='D' val='15'/>"
    "<param name='I' type='integer' val='7'/><param name='B' type='boolean' val='1'/>"
    "<param name='S' type='string' val='text'/><param name='C' type='colour' val='1 0.5 0'/>"
    "<param name='P' type='point' val='1 2 3'/><param name='V' type='vector' val='4 5 6'/>"
    "<param name='E' type='float' val=''/><param name='ES' type='string' val=''/>"
    "<colour/><param name='H' type='float' val='9'/></camera></snapRoot>";

struct HostValues : ::testing::Test {
    QDomDocument document = parse(s_valuesDocument);
    RVOpenView<Camera> view{document.documentElement().firstChild()};
    Camera* node = view.get();

    /// The text of a parameter's value, after its type.
    QString stored(const char* name) const
    {
        QDomElement param = node->GetDomNode().firstChildElement("param");
        while (!param.isNull() && param.attribute("name") != QLatin1String(name))
            param = param.nextSiblingElement("param");
        return param.isNull() ? "none" : param.attribute("type") + ' ' + param.attribute("val");
    }
};

TEST_F(HostValues, AreReadByTheirType)
{
    EXPECT_EQ(value<float>(node, "F"), 1.5F);
    EXPECT_EQ(value<float>(node, "L"), 1.5F);
    EXPECT_EQ(value<float>(node, "I"), 7.0F);
    EXPECT_EQ(value<int>(node, "I"), 7);
    EXPECT_EQ(value<bool>(node, "B"), true);
    EXPECT_EQ(value<QString>(node, "S"), QString("text"));
    EXPECT_EQ(value<QString>(node, "ES"), QString());
    EXPECT_EQ(value<Rgb>(node, "C"), (Rgb{1, 0.5F, 0}));
    EXPECT_EQ(value<Point>(node, "P"), (Point{1, 2, 3}));
    EXPECT_EQ(value<Vector>(node, "V"), (Vector{4, 5, 6}));
    EXPECT_EQ(value<float>(node, "H"), 9.0F);
}

TEST_F(HostValues, AreNoneWhereTheyCannotBeRead)
{
    RecordingObserver observer(document);
    EXPECT_EQ(value<float>(node, "none"), std::nullopt);
    EXPECT_EQ(value<float>(node, "f"), std::nullopt);
    EXPECT_EQ(value<float>(node, "E"), std::nullopt);
    EXPECT_EQ(value<int>(node, "F"), std::nullopt);
    EXPECT_EQ(value<bool>(node, "I"), std::nullopt);
    EXPECT_EQ(value<QString>(node, "F"), std::nullopt);
    EXPECT_EQ(value<Rgb>(node, "P"), std::nullopt);
    EXPECT_EQ(value<Point>(node, "V"), std::nullopt);
    EXPECT_EQ(value<Vector>(node, "C"), std::nullopt);
    EXPECT_EQ(value<float>(nullptr, "F"), std::nullopt);
    EXPECT_EQ(observer.take(), "");
}

TEST_F(HostValues, FallBack)
{
    EXPECT_EQ(value(node, "F", 3.0F), 1.5F);
    EXPECT_EQ(value(node, "none", 3.0F), 3.0F);
    EXPECT_EQ(value<float>(nullptr, "F", 3), 3.0F);
    EXPECT_EQ(value<QString>(node, "S", "else"), "text");
    EXPECT_EQ(value<QString>(node, "F", "else"), "else");
    EXPECT_EQ(value(node, "C", Rgb{}), (Rgb{1, 0.5F, 0}));
}

TEST_F(HostValues, AreSetWhereTheyAre)
{
    EXPECT_TRUE(setValue(node, "F", 2.5F));
    EXPECT_TRUE(setValue(node, "L", 2.5));
    EXPECT_TRUE(setValue(node, "H", 3));
    EXPECT_TRUE(setValue(node, "I", 8));
    EXPECT_TRUE(setValue(node, "B", false));
    EXPECT_TRUE(setValue(node, "S",
                         "m\xc3\xbc"
                         "de"));
    EXPECT_TRUE(setValue(node, "C", Rgb{0, 1, 0}));
    EXPECT_TRUE(setValue(node, "P", Point{3, 2, 1}));
    EXPECT_TRUE(setValue(node, "V", Vector{6, 5, 4}));
    EXPECT_EQ(stored("F"), "float 2.5");
    EXPECT_EQ(stored("L"), "float 25");
    EXPECT_EQ(stored("H"), "float 3");
    EXPECT_EQ(stored("I"), "integer 8");
    EXPECT_EQ(stored("B"), "boolean 0");
    EXPECT_EQ(stored("S"), QString::fromUtf8("string m\xc3\xbc"
                                             "de"));
    EXPECT_EQ(stored("C"), "colour 0 1 0");
    EXPECT_EQ(stored("P"), "point 3 2 1");
    EXPECT_EQ(stored("V"), "vector 6 5 4");
    EXPECT_EQ(node->GetDomNode().childNodes().count(), 12);
}

TEST_F(HostValues, AreCreatedOnceWithTheirType)
{
    for (int time = 0; time < 2; ++time) {
        RecordingObserver observer(document);
        EXPECT_TRUE(setValue(node, "nF", 2.5F));
        EXPECT_TRUE(setValue(node, "nI", 8));
        EXPECT_TRUE(setValue(node, "nB", true));
        EXPECT_TRUE(setValue(node, "nS", QString("s")));
        EXPECT_TRUE(setValue(node, "nC", Rgb{0, 1, 0}));
        EXPECT_TRUE(setValue(node, "nP", Point{3, 2, 1}));
        EXPECT_TRUE(setValue(node, "nV", Vector{6, 5, 4}));
        EXPECT_EQ(observer.lines.count("."), time == 0 ? 7 : 0);
    }
    EXPECT_EQ(stored("nF"), "float 2.5");
    EXPECT_EQ(stored("nI"), "integer 8");
    EXPECT_EQ(stored("nB"), "boolean 1");
    EXPECT_EQ(stored("nS"), "string s");
    EXPECT_EQ(stored("nC"), "colour 0 1 0");
    EXPECT_EQ(stored("nP"), "point 3 2 1");
    EXPECT_EQ(stored("nV"), "vector 6 5 4");
    EXPECT_EQ(node->GetDomNode().childNodes().count(), 19);
    EXPECT_EQ(value<Rgb>(node, "nC"), (Rgb{0, 1, 0}));
}

TEST_F(HostValues, AreNotSetWhereTheTypeIsAnother)
{
    const QString before = xmlOf(document);
    EXPECT_FALSE(setValue(node, "I", 2.5F));
    EXPECT_FALSE(setValue(node, "B", 1));
    EXPECT_FALSE(setValue(node, "F", true));
    EXPECT_FALSE(setValue(node, "F", "2.5"));
    EXPECT_FALSE(setValue(node, "H", "2.5"));
    EXPECT_FALSE(setValue(node, "P", Vector{}));
    EXPECT_FALSE(setValue(node, "V", Rgb{}));
    EXPECT_FALSE(setValue(node, "C", Point{}));
    EXPECT_FALSE(setValue(nullptr, "F", 2.5F));
    RVOpenNode unbound;
    EXPECT_FALSE(setValue(&unbound, "F", 2.5F));
    node->SetAttributeString("archiveFilename", "missing");
    RVOpenView<Camera> reference(parse("<camera archiveFilename='missing'/>").documentElement());
    EXPECT_FALSE(setValue(reference.get(), "F", 2.5F));
    EXPECT_FALSE(reference->GetDomNode().hasChildNodes());
    node->GetDomNode().toElement().removeAttribute("archiveFilename");
    EXPECT_EQ(xmlOf(document), before);
}

struct HostCameraValues : ::testing::Test {
    QDomDocument document = parse("<cameras><camera/></cameras>");
    RVOpenView<Camera> view{document.documentElement().firstChild()};
    Camera* camera = view.get();
    Pinhole pinhole{{1, 2, 3}, {4, 5, 6}, {0, 0, 1}, true, 42};
};

TEST_F(HostCameraValues, APinholeComesBackAsItWasWritten)
{
    EXPECT_EQ(Pinhole::read(camera), std::nullopt);
    RecordingObserver observer(document);
    ASSERT_TRUE(pinhole.write(camera));
    EXPECT_EQ(observer.lines.count("."), 1);
    EXPECT_EQ(Pinhole::read(camera), pinhole);
    float from[3], to[3], up[3], fieldOfView = 0;
    int orthographic = 0;
    EXPECT_EQ(camera->GetPinhole(from, to, up, &orthographic, &fieldOfView), 0U);
    EXPECT_EQ(Point({from[0], from[1], from[2]}), pinhole.from);
    EXPECT_EQ(Point({to[0], to[1], to[2]}), pinhole.to);
    EXPECT_EQ(Vector({up[0], up[1], up[2]}), pinhole.up);
    EXPECT_EQ(orthographic, 1);
    EXPECT_EQ(fieldOfView, 42);
    observer.take();
    ASSERT_TRUE(pinhole.write(camera));
    EXPECT_EQ(observer.take(), "");
}

TEST_F(HostCameraValues, APinholeNeedsAllButTheKindOfProjection)
{
    for (const char* name : {"From", "To", "Up", "Field Of View", "Orthographic"}) {
        ASSERT_TRUE(pinhole.write(camera));
        camera->DeleteNode(camera->GetParamHelper()->GetParam(name));
        const std::optional<Pinhole> read = Pinhole::read(camera);
        EXPECT_EQ(read.has_value(), QByteArray(name) == "Orthographic") << name;
        EXPECT_FALSE(read && read->orthographic);
    }
}

TEST_F(HostCameraValues, NothingIsWrittenWhereOneCannotBe)
{
    ASSERT_TRUE(pinhole.write(camera));
    camera->GetParamHelper()->GetParam("Field Of View")->SetTypeString("wide");
    const QString before = xmlOf(document);
    Pinhole other = pinhole;
    other.from.x = 7;
    EXPECT_FALSE(other.write(camera));
    camera->GetParamHelper()->AddStringParam("Far");
    EXPECT_FALSE((Clipping{1, 2}.write(camera)));
    camera->DeleteNode(camera->GetParamHelper()->GetParam("Far"));
    EXPECT_EQ(xmlOf(document), before);
    EXPECT_FALSE(other.write(nullptr));
    EXPECT_EQ(Pinhole::read(nullptr), std::nullopt);
}

TEST_F(HostCameraValues, ClippingComesBackAsItWasWritten)
{
    EXPECT_EQ(Clipping::read(camera), std::nullopt);
    ASSERT_TRUE((Clipping{0.5F, 200}.write(camera)));
    EXPECT_EQ(Clipping::read(camera), (Clipping{0.5F, 200}));
    EXPECT_EQ(camera->SetClipping(1, 100), 0U);
    EXPECT_EQ(Clipping::read(camera), (Clipping{1, 100}));
    EXPECT_NE(Clipping::read(camera), (Clipping{1, 101}));
    camera->DeleteNode(camera->GetParamHelper()->GetParam("Far"));
    EXPECT_EQ(Clipping::read(camera), std::nullopt);
    EXPECT_EQ(Clipping::read(nullptr), std::nullopt);
}

TEST_F(HostCameraValues, DifferInEachPart)
{
    for (const auto& change :
         {+[](Pinhole& p) { p.from.x = 9; }, +[](Pinhole& p) { p.to.y = 9; },
          +[](Pinhole& p) { p.up.z = 9; }, +[](Pinhole& p) { p.orthographic = false; },
          +[](Pinhole& p) { p.fieldOfView = 9; }}) {
        Pinhole other = pinhole;
        change(other);
        EXPECT_NE(other, pinhole);
    }
}

} // namespace
} // namespace rvopen::test
