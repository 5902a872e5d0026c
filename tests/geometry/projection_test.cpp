// SPDX-License-Identifier: MIT
#include "animation/object.h"
#include "geometry/camera.h"
#include "geometry/light.h"
#include "geometry/polygon.h"
#include "geometry/projection.h"
#include "scene/scene_handler.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace
{

using Point = std::array<double, 3>;
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

Point Rotated(const Point& point, const Point& angles)
{
    CPolygon polygon;
    polygon.Set3D(point[0], point[1], point[2], 0, 0, 0, 0, 0, 0, 0, 0, 0);
    polygon.Rotate(angles[0], angles[1], angles[2]);
    Point result{};
    polygon.GetPoint(0, result[0], result[1], result[2]);
    return result;
}

/// Taken while the program loads, before any test sets the field of view.
const Point kBeforeFieldOfView = Rotated({1, 2, 3}, {0, 0, 0});

class Projection : public HostTest
{
};

TEST_F(Projection, RotationsGiveZeroUntilTheFieldOfViewIsSet)
{
    EXPECT_EQ(kBeforeFieldOfView, (Point{0, 0, 0}));
    EXPECT_EQ(Rotated({1, 2, 3}, {0, 0, 0}), (Point{1, -2, 3}));
}

TEST_F(Projection, SignsOfTheRotations)
{
    const struct {
        Point point, angles, result;
    } cases[] = {
        {{1, 0, 0}, {0, 90, 0}, {0, 0, 1}},  {{0, 0, 1}, {0, 90, 0}, {-1, 0, 0}}, {{0, 1, 0}, {90, 0, 0}, {0, 0, -1}},
        {{0, 0, 1}, {90, 0, 0}, {0, -1, 0}}, {{1, 0, 0}, {0, 0, 90}, {0, 1, 0}},  {{0, 1, 0}, {0, 0, 90}, {1, 0, 0}},
        {{1, 2, 3}, {0, 0, 90}, {2, 1, 3}},
    };
    for (const auto& c : cases) {
        const Point result = Rotated(c.point, c.angles);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_NEAR(result[axis], c.result[axis], 1e-15) << (&c - cases) << " axis " << axis;
        }
    }
    const Point quantised = Rotated({1, 2, 3}, {30, 45, 60});
    EXPECT_NEAR(quantised[0], -0.5430, 5e-5);
    EXPECT_NEAR(quantised[1], -1.9647, 5e-5);
    EXPECT_NEAR(quantised[2], 3.1377, 5e-5);
}

/// The step of the 8192 of a full turn that an angle about an axis stands for.
long StepOf(double angle, std::size_t axis)
{
    Point angles{};
    angles[axis] = angle;
    // A point on the next axis but one or on the next: both are turned in the plane of sine and cosine.
    const Point result = axis == 0 ? Rotated({0, 0, 1}, angles) : Rotated({1, 0, 0}, angles);
    const double sine = axis == 0 ? -result[1] : axis == 1 ? result[2] : result[1];
    const double cosine = axis == 0 ? result[2] : result[0];
    return (std::lround(std::atan2(sine, cosine) * 4096 / std::numbers::pi) + 8192) % 8192;
}

TEST_F(Projection, AnglesAreTruncatedToStepsAndWrap)
{
    const struct {
        double angle;
        long step;
    } cases[] = {
        {45, 1024},        {90, 2048},    {1, 22},         {-1, 8170},  {-0.01, 0},     {-0.05, 8191},
        {360, 0},          {720, 0},      {-360, 0},       {-720, 0},   {359.99, 8191}, {30, 682},
        {361, 22},         {-359, 23},    {0.0439, 0},     {0.044, 1},  {-180, 4096},   {kNaN, 0},
        {kInfinity, 8191}, {1e300, 8191}, {-kInfinity, 0}, {-1e308, 0},
    };
    for (const auto& c : cases) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_EQ(StepOf(c.angle, axis), c.step) << c.angle << " about axis " << axis;
        }
    }
}

/// The screen corners of a square of side 2 and its projection through a camera.
std::array<long, 8> Square(RecordingRenderer& renderer, const Point& position, CCamera* camera)
{
    CPolygon polygon;
    polygon.Set3D(-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0);
    polygon.SetPosition(position[0], position[1], position[2]);
    polygon.RotatePolygon();
    polygon.Project(camera);
    polygon.DrawToSurface(nullptr, nullptr);
    return renderer.draws.back().vertices;
}

TEST_F(Projection, CornersOfASquare)
{
    using Corners = std::array<long, 8>;
    RecordingRenderer renderer;
    CCamera raised;
    raised.SetPosition(0, 2, 0);
    CCamera turned;
    turned.SetRotate(0, 90, 0);
    EXPECT_EQ(Square(renderer, {0, 0, 10}, nullptr), (Corners{556, 350, 1043, 350, 1043, 849, 556, 849}));
    EXPECT_EQ(Square(renderer, {0, 2, 10}, nullptr), (Corners{556, -149, 1043, -149, 1043, 350, 556, 350}));
    EXPECT_EQ(Square(renderer, {0, 0, 10}, &raised), (Corners{556, 849, 1043, 849, 1043, 1349, 556, 1349}));
    // Seen from the side: what lies along x is in front now, the square edge-on.
    const Corners side = Square(renderer, {-10, 0, 1}, &turned);
    EXPECT_EQ(side[0], trunc(2 * (1216.607 / 11 + 400)));
    EXPECT_EQ(side[2], trunc(2 * (1216.607 / 9 + 400)));

    // Other angles change the focal lengths and leave the rotation tables; an odd size is halved before they are made.
    const Point before = Rotated({1, 2, 3}, {10, 20, 30});
    host.host.SetActiveSize(801, 601);
    SetCameraFOV(36.4, 27.0);
    EXPECT_EQ(Square(renderer, {0, 0, 10}, nullptr), (Corners{556, 350, 1043, 350, 1043, 849, 556, 849}));
    SetCameraFOV(60, 60);
    EXPECT_EQ(Square(renderer, {0, 0, 10}, nullptr), (Corners{661, 496, 938, 496, 938, 703, 661, 703}));
    EXPECT_EQ(Rotated({1, 2, 3}, {10, 20, 30}), before);
}

TEST_F(Projection, OwnCameraGoesBeforeTheOneGivenAndThatBeforeTheOrigin)
{
    RecordingRenderer renderer;
    CCamera own;
    own.SetPosition(-1, 0, 0);
    CCamera given;
    given.SetPosition(-2, 0, 0);
    CObject object;
    auto* const polygon = new CPolygon;
    object.AddPolygon(polygon);
    object.SetPosition(0, 0, 10);
    const auto leftEdge = [&](CCamera* camera) {
        polygon->Project(camera);
        polygon->DrawToSurface(nullptr, nullptr);
        return renderer.draws.back().vertices[0];
    };
    EXPECT_EQ(leftEdge(nullptr), 800);
    EXPECT_EQ(leftEdge(&given), 1286);
    object.SetCamera(&own);
    EXPECT_EQ(leftEdge(&given), 1043);
    EXPECT_EQ(leftEdge(nullptr), 1043);
    object.SetCamera(nullptr);
    EXPECT_EQ(leftEdge(&given), 1286);
}

TEST_F(Projection, SinglePoints)
{
    constexpr long kMax = std::numeric_limits<std::int32_t>::max();
    constexpr long kMin = std::numeric_limits<std::int32_t>::min();
    CCamera camera;
    CSceneHandler scene;
    scene.SetActiveCamera(&camera);
    const struct {
        Point point;
        long x, y;
    } cases[] = {
        {{0, 0, 10}, 800, 600}, {{0, 0, 1e-9}, 800, 600},  {{1, 1, 10}, 1043, 350}, {{-4, 0, 10}, -173, 600},
        {{1, 0, 0}, kMax, 0},   {{-1, 0, 0}, kMin, 0},     {{0, 0, 0}, 0, 0},       {{1e300, 1e300, 1}, kMax, kMin},
        {{kNaN, 0, 1}, 0, 0},   {{kInfinity, 0, 1}, 0, 0}, {{1, 1, -10}, 556, 849}, {{1, 1, kInfinity}, 0, 0},
    };
    for (const auto& c : cases) {
        long x = -7;
        long y = -7;
        scene.ProjectPoint2Screen(c.point[0], c.point[1], c.point[2], x, y);
        EXPECT_EQ(x, c.x) << (&c - cases);
        EXPECT_EQ(y, c.y) << (&c - cases);
    }
    for (const double angle : {0.0, 180.0, -30.0, 1e300, kNaN, kInfinity}) {
        long x = 0;
        long y = 0;
        SetCameraFOV(angle, angle);
        scene.ProjectPoint2Screen(1, 1, 10, x, y); // any result, no undefined behaviour
        EXPECT_TRUE(x >= kMin && x <= kMax && y >= kMin && y <= kMax) << angle;
    }
}

TEST(Camera, RecordsStartAsDocumentedAndKeepWhatTheyGet)
{
    CCamera camera;
    double x = 1, y = 1, z = 1, a = 1, b = 1, c = 1;
    camera.GetPosition(x, y, z);
    camera.GetRotate(a, b, c);
    EXPECT_EQ((std::array{x, y, z, a, b, c}), (std::array<double, 6>{}));
    camera.SetPosition(1, 2, 3);
    camera.SetRotate(4, 5, 6);
    const CCamera copy = camera;
    EXPECT_EQ((std::array{copy.X(), copy.Y(), copy.Z(), copy.XRotate(), copy.YRotate(), copy.ZRotate()}),
              (std::array{1.0, 2.0, 3.0, 4.0, 5.0, 6.0}));
    CLight light;
    EXPECT_EQ((std::array{light.X(), light.Y(), light.Z(), light.PP()}), (std::array{10.5, 23.0, 4.0, 10.0}));
    light.SetPosition(1, 2, 3);
    light.SetProjectionPlane(4);
    EXPECT_EQ((std::array{light.X(), light.Y(), light.Z(), light.PP()}), (std::array{1.0, 2.0, 3.0, 4.0}));
}

} // namespace
