// SPDX-License-Identifier: MIT
#include "geometry/polygon.h"
#include "tests/support/recording_renderer.h"
#include "tests/support/test_host.h"

#include <array>
#include <limits>

namespace
{

using Calls = std::vector<std::string>;
using Coords = std::array<long, 8>;

class Polygon : public HostTest
{
protected:
    Coords CoordsOf(CPolygon& polygon)
    {
        polygon.DrawToSurface(nullptr, nullptr);
        return renderer.draws.back().coords;
    }

    RecordingRenderer renderer;
};

std::array<double, 3> Corner(const CPolygon& polygon, long index)
{
    std::array<double, 3> corner{};
    polygon.GetPoint(index, corner[0], corner[1], corner[2]);
    return corner;
}

TEST_F(Polygon, StartsOffAndEmpty)
{
    CPolygon polygon;
    double scale = 0;
    polygon.GetScale(scale);
    EXPECT_EQ(polygon.OnFlag(), 0);
    EXPECT_EQ(polygon.IsStamp(), 0);
    EXPECT_EQ(scale, 1.0);
    EXPECT_EQ(polygon.GetTexture(), nullptr);
    EXPECT_EQ(polygon.GetParent(), nullptr);
    EXPECT_EQ(Corner(polygon, 2), (std::array{0.0, 0.0, 0.0}));
    polygon.SetStamp(5);
    EXPECT_EQ(polygon.IsStamp(), 5);
}

TEST_F(Polygon, CornersAreScaledRotatedAndReset)
{
    double corners[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    CPolygon polygon;
    EXPECT_EQ(polygon.Set3D(corners), 1);
    EXPECT_EQ(polygon.Set3D(nullptr), 1);
    polygon.SetScale(2.0);
    polygon.SetPosition(100, 100, 100);
    EXPECT_EQ(Corner(polygon, 0), (std::array{2.0, 4.0, 6.0}));
    EXPECT_EQ(Corner(polygon, 3), (std::array{20.0, 22.0, 24.0}));
    for (const long outside : {-1L, 4L, std::numeric_limits<long>::max(), std::numeric_limits<long>::min()}) {
        EXPECT_EQ(Corner(polygon, outside), (std::array{0.0, 0.0, 0.0})) << outside;
    }
    polygon.Rotate(0, 0, 0);
    EXPECT_EQ(Corner(polygon, 0), (std::array{2.0, -4.0, 6.0}));
    polygon.Rotate(0, 0, 0);
    EXPECT_EQ(Corner(polygon, 0), (std::array{2.0, 4.0, 6.0}));
    polygon.SetRotate(10, 20, 30);
    polygon.RotatePolygon();
    polygon.RotatePolygon();
    EXPECT_NE(Corner(polygon, 0), (std::array{2.0, 4.0, 6.0}));
    polygon.ResetCoords();
    EXPECT_EQ(Corner(polygon, 0), (std::array{2.0, 4.0, 6.0}));
}

TEST_F(Polygon, TextureCoordinatesEndOneUnitInside)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const struct {
        int width, height;
        double left, top, right, bottom;
        Coords coords;
    } cases[] = {
        {100, 150, 0, 0, 1, 1, {0, 0, 6553599, 0, 6553599, 9830399, 0, 9830399}},
        {100, 150, 1, 1, 0, 0, {6553599, 9830399, 0, 9830399, 0, 0, 6553599, 0}},
        {100, 100, 0.5, 0.333, 1, 1, {3276799, 2162687, 6553599, 2162687, 6553599, 6553599, 3276799, 6553599}},
        {100, 100, -0.5, -0.004, 2, 0.009, {-3276801, 0, 13107199, 0, 13107199, 0, -3276801, 0}},
        // Products wrap in 32 bits: 65536 texels are 0, 32768 the smallest number, less one the largest.
        {65536, 32768, 0, 0, 1, 1, {0, 0, 0, 0, 0, 2147483647, 0, 2147483647}},
        {100, 100, kNaN, 0, kInfinity, -1e300, {0, 0, -65537, 0, -65537, 0, 0, 0}},
        {0, 0, 0, 0, 1, 1, {0, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        CPolygon polygon;
        EXPECT_EQ(polygon.SetTexture(nullptr, c.width, c.height, c.left, c.top, c.right, c.bottom), 1);
        EXPECT_EQ(CoordsOf(polygon), c.coords) << (&c - cases);
    }
}

TEST_F(Polygon, CloneMapsTheWholeTextureAndCopiesTheRest)
{
    const OwnBitmap texture(100, 150);
    CPolygon source;
    source.Set3D(1, 2, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0);
    source.SetPosition(4, 5, 6);
    source.SetScale(2);
    source.SetStamp(3);
    source.On();
    source.SetTexture(texture, 100, 150, 1, 1, 0.5, 0.5);
    CPolygon clone;
    clone.Clone(&source);
    EXPECT_EQ(clone.GetTexture(), texture);
    EXPECT_EQ(CoordsOf(clone), (Coords{0, 0, 6553599, 0, 6553599, 9830399, 0, 9830399}));
    double x = 0, y = 0, z = 0;
    clone.GetPosition(x, y, z);
    EXPECT_EQ((std::array{x, y, z}), (std::array{4.0, 5.0, 6.0}));
    EXPECT_EQ(Corner(clone, 0), (std::array{2.0, 4.0, 6.0}));
    EXPECT_EQ(clone.OnFlag(), 1);
    EXPECT_EQ(clone.IsStamp(), 3);

    const CPolygon copy = source;
    CPolygon textureless;
    textureless.SetTexture(nullptr, 10, 10, 0.5, 0.5, 1, 1);
    clone.Clone(&textureless);
    clone.Clone(nullptr);
    clone.Clone(&clone);
    EXPECT_EQ(CoordsOf(clone), CoordsOf(textureless));
    CPolygon again = copy;
    EXPECT_EQ(CoordsOf(again), CoordsOf(source));
}

TEST_F(Polygon, DrawMakesFourCallsOnOrOff)
{
    const OwnBitmap texture(10, 10);
    const OwnBitmap target(20, 20);
    CRect clip;
    renderer.Name(texture, "texture");
    renderer.Name(target, "target");
    renderer.Name(&clip, "clip");
    CPolygon polygon;
    polygon.Set3D(-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, 1, 0);
    polygon.SetPosition(0, 0, 10);
    polygon.SetTexture(texture, 10, 10, 0, 0, 1, 1);
    polygon.RotatePolygon();
    polygon.Project(nullptr);
    polygon.ResetCoords();
    const Calls vertices{"vertices 556 350 1043 350 1043 849 556 849"};
    const Calls draw{vertices[0], "coords 0 0 655359 0 655359 655359 0 655359", "texture texture", "draw target clip"};
    polygon.DrawToSurface(target, &clip);
    EXPECT_EQ(renderer.Take(), draw);
    polygon.On();
    polygon.DrawToSurface(target, &clip);
    EXPECT_EQ(renderer.Take(), draw);
    polygon.DrawToSurface(nullptr, nullptr);
    EXPECT_EQ(renderer.Take({"draw"}), Calls{"draw none none"});

    renderer.inside = 42;
    EXPECT_EQ(polygon.IsPointInside(-3, 9), 42);
    EXPECT_EQ(polygon.GetBoundingBox(), &renderer.boundingBox);
    EXPECT_EQ(renderer.Take(), (Calls{vertices[0], "inside -3 9", vertices[0], "box"}));
}

} // namespace
