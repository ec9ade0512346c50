// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#include "ParamSupport.h"

#include <rvopen/Camera.h>

namespace {

using namespace rvopen;
using namespace rvopen::test;
using testing::Each;
using testing::ElementsAre;

struct Pinhole {
    float from[3] = {77, 77, 77};
    float to[3] = {77, 77, 77};
    float up[3] = {77, 77, 77};
    int orthographic = 77;
    float fieldOfView = 77;

    unsigned int readFrom(Camera* camera)
    {
        return camera->GetPinhole(from, to, up, &orthographic, &fieldOfView);
    }
};

unsigned int setPinhole(Camera* camera)
{
    float from[] = {1, 2, 3};
    float to[] = {4, 5, 6};
    float up[] = {0, 0, 1};
    return camera->SetPinhole(from, to, up, 1, 45.5f);
}

const char* const fullCamera = "<camera>"
                               "<param name=\"From\" type=\"point\" val=\"9 8 7\"/>"
                               "<param name=\"To\" type=\"point\" val=\"6 5 4\"/>"
                               "<param name=\"Up\" type=\"vector\" val=\"0 1 0\"/>"
                               "<param name=\"Orthographic\" type=\"boolean\" val=\"0\"/>"
                               "<param name=\"Field Of View\" type=\"float\" val=\"30\"/>"
                               "<param name=\"Near\" type=\"float\" val=\"0.1\"/>"
                               "<param name=\"Far\" type=\"float\" val=\"100\"/>"
                               "</camera>";

TEST(CameraSetPinhole, WritesTheFiveParameters)
{
    const Bound<Camera> camera(fullCamera);
    EXPECT_EQ(setPinhole(camera.get()), 0u);
    EXPECT_EQ(paramsOf(camera.element()), "From: point = 1 2 3\n"
                                          "To: point = 4 5 6\n"
                                          "Up: vector = 0 0 1\n"
                                          "Orthographic: boolean = 1\n"
                                          "Field Of View: float = 45.5\n"
                                          "Near: float = 0.1\n"
                                          "Far: float = 100\n");
}

TEST(CameraSetPinhole, AnswersTheStatusOfTheOnlyParameterThatExists)
{
    const Bound<Camera> camera(
        "<camera><param name=\"From\" type=\"point\" val=\"0 0 0\"/></camera>");
    EXPECT_EQ(setPinhole(camera.get()), 0u);
    EXPECT_EQ(paramsOf(camera.element()), "From: point = 1 2 3\n");
}

TEST(CameraSetPinhole, AnswersMissingWhereTheOnlyParameterIsOfAnotherType)
{
    const Bound<Camera> camera(
        "<camera><param name=\"From\" type=\"vector\" val=\"0 0 0\"/></camera>");
    EXPECT_EQ(setPinhole(camera.get()), 2u);
}

TEST(CameraSetPinhole, ChangesNothingWithoutParameters)
{
    const Bound<Camera> camera("<camera/>");
    EXPECT_EQ(setPinhole(camera.get()), 2u);
    EXPECT_EQ(xmlOf(camera.element()), xmlOf("<camera/>"));
}

/// A parameter that comes after "From".
struct LaterParam {
    const char* name;
    const char* param;
};

void PrintTo(const LaterParam& later, std::ostream* out)
{
    *out << later.name;
}

class CameraSetPinholePart : public testing::TestWithParam<LaterParam> {};

TEST_P(CameraSetPinholePart, HidesAnEarlierFailureBehindItsSuccess)
{
    const Bound<Camera> camera(
        QStringLiteral("<camera>%1%2</camera>")
            .arg(param("From", "vector", "0 0 0"), QString::fromUtf8(GetParam().param)));
    EXPECT_EQ(setPinhole(camera.get()), 0u);
}

INSTANTIATE_TEST_SUITE_P(
    All, CameraSetPinholePart,
    testing::Values(
        LaterParam{"To", "<param name=\"To\" type=\"point\" val=\"0 0 0\"/>"},
        LaterParam{"Up", "<param name=\"Up\" type=\"vector\" val=\"0 0 0\"/>"},
        LaterParam{"Orthographic", "<param name=\"Orthographic\" type=\"boolean\" val=\"0\"/>"},
        LaterParam{"FieldOfView", "<param name=\"Field Of View\" type=\"float\" val=\"0\"/>"}),
    RowName());

TEST(CameraSetPinhole, ShowsALaterFailureAfterASuccess)
{
    const Bound<Camera> camera("<camera>"
                               "<param name=\"From\" type=\"point\" val=\"0 0 0\"/>"
                               "<param name=\"Field Of View\" type=\"integer\" val=\"0\"/>"
                               "</camera>");
    EXPECT_EQ(setPinhole(camera.get()), 2u);
}

TEST(CameraSetPinhole, GoesByItsOwnOrderNotByTheElements)
{
    const Bound<Camera> camera("<camera>"
                               "<param name=\"Field Of View\" type=\"integer\" val=\"0\"/>"
                               "<param name=\"From\" type=\"point\" val=\"0 0 0\"/>"
                               "</camera>");
    EXPECT_EQ(setPinhole(camera.get()), 2u);
}

TEST(CameraGetPinhole, ReadsTheFiveParameters)
{
    const Bound<Camera> camera(fullCamera);
    Pinhole pinhole;
    EXPECT_EQ(pinhole.readFrom(camera.get()), 0u);
    EXPECT_THAT(pinhole.from, ElementsAre(9, 8, 7));
    EXPECT_THAT(pinhole.to, ElementsAre(6, 5, 4));
    EXPECT_THAT(pinhole.up, ElementsAre(0, 1, 0));
    EXPECT_EQ(pinhole.orthographic, 0);
    EXPECT_EQ(pinhole.fieldOfView, 30.0f);
}

TEST(CameraGetPinhole, AnswersTheStatusOfTheFieldOfViewAlone)
{
    const Bound<Camera> camera("<camera>"
                               "<param name=\"Field Of View\" type=\"float\" val=\"30\"/>"
                               "</camera>");
    Pinhole pinhole;
    EXPECT_EQ(pinhole.readFrom(camera.get()), 0u);
}

TEST(CameraGetPinhole, LeavesOutputsWithoutParameterUntouched)
{
    const Bound<Camera> camera("<camera>"
                               "<param name=\"Field Of View\" type=\"float\" val=\"30\"/>"
                               "</camera>");
    Pinhole pinhole;
    pinhole.readFrom(camera.get());
    EXPECT_THAT(pinhole.from, Each(77));
    EXPECT_THAT(pinhole.to, Each(77));
    EXPECT_THAT(pinhole.up, Each(77));
    EXPECT_EQ(pinhole.orthographic, 77);
}

TEST(CameraGetPinhole, AnswersMissingWithoutFieldOfViewAndReadsTheRest)
{
    const Bound<Camera> camera("<camera>"
                               "<param name=\"From\" type=\"point\" val=\"9 8 7\"/>"
                               "</camera>");
    Pinhole pinhole;
    EXPECT_EQ(pinhole.readFrom(camera.get()), 2u);
    EXPECT_THAT(pinhole.from, ElementsAre(9, 8, 7));
    EXPECT_EQ(pinhole.fieldOfView, 77.0f);
}

TEST(CameraGetPinhole, SkipsNullOutputs)
{
    const Bound<Camera> camera(fullCamera);
    float fieldOfView = 77;
    EXPECT_EQ(camera->GetPinhole(nullptr, nullptr, nullptr, nullptr, &fieldOfView), 0u);
    EXPECT_EQ(fieldOfView, 30.0f);
}

struct Clipping {
    const char* name;
    const char* camera;
    unsigned int status;
    const char* paramsAfter;
};

void PrintTo(const Clipping& clipping, std::ostream* out)
{
    *out << clipping.name;
}

class CameraSetClipping : public testing::TestWithParam<Clipping> {};

TEST_P(CameraSetClipping, WritesWhatExistsAndJoinsTheStatuses)
{
    const Bound<Camera> camera(GetParam().camera);
    EXPECT_EQ(camera->SetClipping(0.5f, 50.0f), GetParam().status);
    EXPECT_EQ(paramsOf(camera.element()), GetParam().paramsAfter);
}

INSTANTIATE_TEST_SUITE_P(
    All, CameraSetClipping,
    testing::Values(Clipping{"Both",
                             "<camera><param name=\"Near\" type=\"float\" val=\"1\"/>"
                             "<param name=\"Far\" type=\"float\" val=\"2\"/></camera>",
                             0, "Near: float = 0.5\nFar: float = 50\n"},
                    Clipping{"None", "<camera/>", 2, ""},
                    Clipping{"NearMissing",
                             "<camera><param name=\"Far\" type=\"float\" val=\"2\"/></camera>", 2,
                             "Far: float = 50\n"},
                    Clipping{"FarMissing",
                             "<camera><param name=\"Near\" type=\"float\" val=\"1\"/></camera>", 0,
                             "Near: float = 0.5\n"},
                    Clipping{"NearOfAnotherType",
                             "<camera><param name=\"Near\" type=\"integer\" val=\"1\"/>"
                             "<param name=\"Far\" type=\"float\" val=\"2\"/></camera>",
                             2, "Near: integer = 1\nFar: float = 50\n"},
                    Clipping{"FarOfAnotherType",
                             "<camera><param name=\"Near\" type=\"float\" val=\"1\"/>"
                             "<param name=\"Far\" type=\"integer\" val=\"2\"/></camera>",
                             2, "Near: float = 0.5\nFar: integer = 2\n"}),
    RowName());

TEST(CameraViewFit, IsReadBackAfterItWasCreated)
{
    const Bound<Camera> camera("<camera/>");
    camera->SetViewFit(1);
    int viewFit = 77;
    EXPECT_EQ(camera->GetViewFit(&viewFit), 0u);
    EXPECT_EQ(viewFit, 1);
}

TEST(CameraSubCategory, BecomesUpVector)
{
    const Bound<Camera> camera("<camera subcat=\"Other\"/>");
    EXPECT_EQ(camera->SetSubCatAsUpVector(), 0u);
    EXPECT_EQ(xmlOf(camera.element()), xmlOf("<camera subcat=\"Up Vector\"/>"));
}

/// A host's camera that answers itself, as calls through the base class must see.
class HostCamera : public Camera {
public:
    HostCamera()
        : Camera(static_cast<RVOpenNode*>(nullptr))
    {
    }
    unsigned int SetPinhole(float* const, float* const, float* const, int, float) override
    {
        return 101;
    }
    unsigned int GetPinhole(float* const, float* const, float* const, int*, float*) override
    {
        return 102;
    }
    unsigned int SetClipping(float, float) override
    {
        return 103;
    }
};

TEST(CameraOverrides, AreCalledThroughTheBase)
{
    HostCamera host;
    Camera& camera = host;
    EXPECT_EQ(camera.SetPinhole(nullptr, nullptr, nullptr, 0, 0), 101u);
    EXPECT_EQ(camera.GetPinhole(nullptr, nullptr, nullptr, nullptr, nullptr), 102u);
    EXPECT_EQ(camera.SetClipping(0, 0), 103u);
}

} // namespace
