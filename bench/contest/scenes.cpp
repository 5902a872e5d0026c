// SPDX-License-Identifier: MIT
#include "bench/contest/scenes.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <random>
#include <stdexcept>

namespace contest
{

namespace
{

constexpr std::size_t kFrames = 100;
constexpr std::size_t kCards = 52;
constexpr double kEyeDistance = 1200.0; ///< of the eye from the plane of the table, pixels
constexpr double kMostTilt = 1.05;      ///< radians about the x and the y axis
constexpr double kMostDepth = 350.0;    ///< before or behind the plane of the table, pixels
constexpr double kLeastCorner = 50.0;   ///< of the cross product of two sides of a tilted card that is drawn
constexpr int kSmallWidth = 71;         ///< the size at which minified cards are drawn
constexpr int kSmallHeight = 96;
constexpr double kMinifiedMargin = 60.0;

/// Random numbers that are the same with every standard library.
class Chance
{
public:
    explicit Chance(std::uint64_t seed) : m_engine(seed) {}

    double Between(double low, double high)
    {
        return low + (high - low) * static_cast<double>(m_engine() >> 11) * 0x1p-53;
    }
    double Angle() { return Between(-std::numbers::pi, std::numbers::pi); }

private:
    std::mt19937_64 m_engine;
};

double ToHalf(double value)
{
    return std::floor(value * 2.0 + 0.5) / 2.0;
}

Point ToHalves(const Point& point)
{
    return {ToHalf(point.x), ToHalf(point.y)};
}

Quad Rectangle(double left, double top, double width, double height)
{
    return {{{left, top}, {left + width, top}, {left + width, top + height}, {left, top + height}}};
}

Quad RotatedCard(const Point& middle, double width, double height, double angle)
{
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    Quad quad = Rectangle(-width / 2.0, -height / 2.0, width, height);
    for (Point& corner : quad) {
        corner =
            ToHalves({middle.x + cosine * corner.x - sine * corner.y, middle.y + sine * corner.x + cosine * corner.y});
    }
    // Rounding three corners and deriving the fourth keeps the card a parallelogram.
    quad[2] = {quad[1].x + quad[3].x - quad[0].x, quad[1].y + quad[3].y - quad[0].y};
    return quad;
}

/// Rotates (a, b) in its plane.
void Turn(double& a, double& b, double angle)
{
    const double turned = a * std::cos(angle) - b * std::sin(angle);
    b = a * std::sin(angle) + b * std::cos(angle);
    a = turned;
}

/// Convex, its front towards the eye, and no corner nearly flat.
bool ShowsItsFront(const Quad& quad)
{
    for (std::size_t i = 0; i < quad.size(); ++i) {
        const Point& before = quad[i];
        const Point& corner = quad[(i + 1) % quad.size()];
        const Point& after = quad[(i + 2) % quad.size()];
        if ((corner.x - before.x) * (after.y - corner.y) - (corner.y - before.y) * (after.x - corner.x) <=
            kLeastCorner) {
            return false;
        }
    }
    return true;
}

class CardThrower
{
public:
    explicit CardThrower(const Scene& scene) : m_scene(scene), m_chance(Seed(scene)) {}

    Quad Throw()
    {
        switch (m_scene.kind) {
        case Kind::Blit:
            return Upright([](double place) { return std::floor(place); });
        case Kind::Upright:
            return Upright(ToHalf);
        case Kind::Rotated:
            return Rotated();
        case Kind::Minified:
            return Minified();
        case Kind::Tilted:
            break;
        }
        Quad quad = Tilted();
        while (!ShowsItsFront(quad)) {
            quad = Tilted();
        }
        return quad;
    }

private:
    /// The number of pictures is left out: scenes that differ in it are compared.
    static std::uint64_t Seed(const Scene& scene)
    {
        constexpr std::uint64_t kTargets = 10000;
        return (static_cast<std::uint64_t>(scene.kind) * kTargets + static_cast<std::uint64_t>(scene.width)) *
                   kTargets +
               static_cast<std::uint64_t>(scene.cardWidth);
    }

    template <class Round> Quad Upright(Round round)
    {
        const double left = round(m_chance.Between(0.0, m_scene.width - m_scene.cardWidth));
        const double top = round(m_chance.Between(0.0, m_scene.height - m_scene.cardHeight));
        return Rectangle(left, top, m_scene.cardWidth, m_scene.cardHeight);
    }

    Quad Rotated()
    {
        const double size = m_chance.Between(0.6, 1.6);
        const double angle = m_chance.Angle();
        return RotatedCard(Middle(), m_scene.cardWidth * size, m_scene.cardHeight * size, angle);
    }

    Quad Minified()
    {
        const double angle = m_chance.Angle();
        const double x = m_chance.Between(kMinifiedMargin, m_scene.width - kMinifiedMargin);
        const double y = m_chance.Between(kMinifiedMargin, m_scene.height - kMinifiedMargin);
        return RotatedCard({x, y}, kSmallWidth, kSmallHeight, angle);
    }

    Quad Tilted()
    {
        const double aboutX = m_chance.Between(-kMostTilt, kMostTilt);
        const double aboutY = m_chance.Between(-kMostTilt, kMostTilt);
        const double aboutZ = m_chance.Angle();
        const Point middle = Middle();
        const double depth = m_chance.Between(-kMostDepth, kMostDepth);
        const Point axis{m_scene.width / 2.0, m_scene.height / 2.0};
        Quad quad =
            Rectangle(-m_scene.cardWidth / 2.0, -m_scene.cardHeight / 2.0, m_scene.cardWidth, m_scene.cardHeight);
        for (Point& corner : quad) {
            double z = 0.0;
            Turn(corner.x, corner.y, aboutZ);
            Turn(corner.y, z, aboutX);
            Turn(corner.x, z, aboutY);
            const double nearness = kEyeDistance / (kEyeDistance + depth + z);
            corner = ToHalves({axis.x + (middle.x - axis.x + corner.x) * nearness,
                               axis.y + (middle.y - axis.y + corner.y) * nearness});
        }
        return quad;
    }

    Point Middle()
    {
        const double x = m_chance.Between(0.15 * m_scene.width, 0.85 * m_scene.width);
        const double y = m_chance.Between(0.2 * m_scene.height, 0.8 * m_scene.height);
        return {x, y};
    }

    Scene m_scene;
    Chance m_chance;
};

Scene MakeScene(Kind kind, bool largeCard, bool largeTarget, int pictures)
{
    Scene scene{KindName(kind), kind, 800, 600, kSmallWidth, kSmallHeight, pictures};
    if (largeCard) {
        scene.cardWidth = 240;
        scene.cardHeight = 336;
    }
    if (largeTarget) {
        scene.width = 1920;
        scene.height = 1080;
    }
    if (kind != Kind::Minified) { // of which there is one size
        scene.name += std::to_string(scene.cardWidth);
    }
    if (largeTarget) {
        scene.name += "hd";
    }
    if (pictures > 1) {
        scene.name += "-" + std::to_string(pictures);
    }
    return scene;
}

std::vector<Scene> MakeScenes()
{
    std::vector<Scene> scenes;
    for (const Kind kind : {Kind::Blit, Kind::Upright, Kind::Rotated}) {
        scenes.push_back(MakeScene(kind, false, false, 1));
        scenes.push_back(MakeScene(kind, true, false, 1));
    }
    scenes.push_back(MakeScene(Kind::Minified, true, false, 1));
    scenes.push_back(MakeScene(Kind::Tilted, false, false, 1));
    scenes.push_back(MakeScene(Kind::Tilted, true, false, 1));
    for (const Kind kind : {Kind::Upright, Kind::Rotated, Kind::Tilted}) {
        scenes.push_back(MakeScene(kind, true, true, 1));
    }
    for (const Kind kind : {Kind::Upright, Kind::Rotated, Kind::Minified, Kind::Tilted}) {
        scenes.push_back(MakeScene(kind, true, false, static_cast<int>(kCards)));
    }
    return scenes;
}

} // namespace

const char* KindName(Kind kind)
{
    switch (kind) {
    case Kind::Blit:
        return "blit";
    case Kind::Upright:
        return "upright";
    case Kind::Rotated:
        return "rotated";
    case Kind::Minified:
        return "minified";
    case Kind::Tilted:
        break;
    }
    return "tilted";
}

const std::vector<Scene>& Scenes()
{
    static const std::vector<Scene> scenes = MakeScenes();
    return scenes;
}

const Scene& FindScene(const std::string& name)
{
    for (const Scene& scene : Scenes()) {
        if (scene.name == name) {
            return scene;
        }
    }
    throw std::invalid_argument("there is no scene " + name);
}

std::vector<Frame> MakeFrames(const Scene& scene)
{
    CardThrower thrower(scene);
    std::vector<Frame> frames(kFrames);
    for (Frame& frame : frames) {
        for (std::size_t card = 0; card < kCards; ++card) {
            frame.push_back(thrower.Throw());
        }
    }
    return frames;
}

} // namespace contest
