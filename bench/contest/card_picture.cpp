// SPDX-License-Identifier: MIT
#include "bench/contest/card_picture.h"

#include "bench/contest/quad.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace contest
{

namespace
{

// The card is designed around its middle: 240 wide, 336 high, y downwards. A point turned by half a turn looks the
// same.
constexpr double kWidth = 240.0;
constexpr double kHeight = 336.0;
constexpr double kCornerRadius = 14.0;
constexpr int kSamples = 8; ///< in a row and in a column of a pixel

struct Colour {
    double red;
    double green;
    double blue;
};

constexpr Colour kPaper{252.0, 250.0, 244.0};
constexpr Colour kRim{88.0, 88.0, 96.0};
constexpr Colour kInk{18.0, 18.0, 26.0};
constexpr Colour kRed{200.0, 16.0, 28.0};
constexpr Colour kBlue{26.0, 46.0, 140.0};
constexpr Colour kGold{236.0, 186.0, 40.0};
constexpr Colour kPaleBlue{158.0, 178.0, 220.0};

/// How far outside the rounded rectangle around the middle a point lies; negative inside.
double OutsideRounded(const Point& point, double width, double height, double radius)
{
    const double x = std::abs(point.x) - width / 2.0 + radius;
    const double y = std::abs(point.y) - height / 2.0 + radius;
    return std::hypot(std::max(x, 0.0), std::max(y, 0.0)) + std::min(std::max(x, y), 0.0) - radius;
}

Point From(const Point& origin, const Point& point)
{
    return {point.x - origin.x, point.y - origin.y};
}

/// True on lines of that width which repeat every period along the value.
bool OnLines(double value, double period, double width)
{
    return value - period * std::floor(value / period) < width;
}

bool InDiscs(const Point& point, double period, double radius)
{
    const double x = point.x - period * std::round(point.x / period);
    const double y = point.y - period * std::round(point.y / period);
    return std::hypot(x, y) < radius;
}

bool InStroke(const Point& point, const Point& from, const Point& to, double halfWidth)
{
    const Point along = From(from, to);
    const Point away = From(from, point);
    const double length = along.x * along.x + along.y * along.y;
    const double share = std::clamp((away.x * along.x + away.y * along.y) / length, 0.0, 1.0);
    return std::hypot(away.x - share * along.x, away.y - share * along.y) < halfWidth;
}

bool InDiamond(const Point& point, double size)
{
    return std::abs(point.x) / 0.8 + std::abs(point.y) < size;
}

bool InClub(const Point& point, double size)
{
    const double x = std::abs(point.x) / size;
    const double y = point.y / size;
    const bool leaf = std::hypot(x, y + 0.45) < 0.42 || std::hypot(x - 0.45, y - 0.15) < 0.42;
    return leaf || (y > -0.2 && y < 0.95 && x < 0.05 + 0.3 * std::max(y - 0.2, 0.0));
}

bool InIndex(const Point& point)
{
    const Point letter = From({-99.0, -138.0}, point);
    const double ring = std::hypot(letter.x / 8.0, letter.y / 12.5);
    return (ring < 1.0 && ring > 0.62) || InStroke(letter, {1.0, 4.0}, {8.5, 14.0}, 1.6) ||
           InDiamond(From({-99.0, -108.0}, point), 10.0);
}

/// The head of the figure: rings and rays in a disc.
bool InkRosette(const Point& point, double radius, Colour& colour)
{
    const double distance = std::hypot(point.x, point.y);
    if (distance > radius) {
        return false;
    }
    const double angle = std::atan2(point.y, point.x) * radius;
    if (distance > radius - 1.2 || std::abs(distance - 0.55 * radius) < 0.7) {
        colour = kInk;
    } else if (distance > 0.55 * radius) {
        colour = OnLines(angle, 6.0, 2.2) ? kRed : kGold;
    } else if (distance > 0.25 * radius) {
        colour = OnLines(distance, 2.4, 1.1) ? Colour{115.0, 70.0, 26.0} : Colour{190.0, 140.0, 64.0};
    } else {
        colour = InDiamond(point, 0.17 * radius) ? kInk : Colour{250.0, 214.0, 184.0};
    }
    return true;
}

/// The robe of the figure: it widens downwards, has a hem, a hatched middle and slanting stripes at its sides.
bool InkRobe(const Point& point, Colour& colour)
{
    const double fromShoulder = point.y + 82.0;
    const double reach = 24.0 + 0.7 * fromShoulder;
    const double x = std::abs(point.x);
    if (fromShoulder < 0.0 || x > reach) {
        return false;
    }
    const double slant = 0.8 * x + point.y;
    const double stripe = slant - 14.0 * std::floor(slant / 14.0);
    if (x > reach - 1.2 || std::abs(x - 9.0) < 0.6) {
        colour = kInk;
    } else if (x < 9.0) {
        colour = OnLines(point.y, 5.0, 2.2) ? kGold : kBlue;
    } else if (InDiscs({x - 9.0, point.y}, 16.0, 2.2)) {
        colour = {255.0, 255.0, 255.0};
    } else if (stripe < 1.0 || (stripe >= 7.0 && stripe < 8.0)) {
        colour = kInk;
    } else if (stripe < 7.0) {
        colour = kRed;
    } else {
        colour = OnLines(point.x + 0.3 * point.y, 3.0, 1.1) ? kBlue : kGold;
    }
    return true;
}

Colour InkGround(const Point& point)
{
    if (InDiscs(point, 18.0, 1.1)) {
        return kRed;
    }
    const bool lattice = OnLines(point.x + point.y, 9.0, 0.7) || OnLines(point.x - point.y, 9.0, 0.7);
    return lattice ? kPaleBlue : kPaper;
}

/// The colour of the upper half of the card.
Colour InkUpperHalf(const Point& point)
{
    if (InIndex(point)) {
        return kRed;
    }
    if (InClub(From({-58.0, -104.0}, point), 14.0)) {
        return kInk;
    }
    const double outside = OutsideRounded(point, 164.0, 272.0, 0.0);
    if (std::abs(outside) < 0.8 || std::abs(outside + 3.5) < 0.5) {
        return kBlue;
    }
    if (outside > -4.0) {
        return kPaper;
    }
    Colour colour = kPaper;
    if (InkRosette(From({0.0, -96.0}, point), 30.0, colour) || InkRobe(point, colour)) {
        return colour;
    }
    return InkGround(point);
}

/// False outside the card.
bool Ink(const Point& point, Colour& colour)
{
    const double outside = OutsideRounded(point, kWidth, kHeight, kCornerRadius);
    if (outside > 0.0) {
        return false;
    }
    colour = outside > -1.0 ? kRim : InkUpperHalf(point.y > 0.0 ? Point{-point.x, -point.y} : point);
    return true;
}

/// A premultiplied channel from a straight one.
std::uint32_t Times(std::uint32_t channel, std::uint32_t alpha)
{
    return (channel * alpha + 127U) / 255U;
}

std::uint32_t Premultiply(std::uint32_t straight)
{
    const std::uint32_t alpha = straight >> 24;
    return (alpha << 24) | (Times((straight >> 16) & 255U, alpha) << 16) | (Times((straight >> 8) & 255U, alpha) << 8) |
           Times(straight & 255U, alpha);
}

std::uint32_t Byte(double value)
{
    return static_cast<std::uint32_t>(std::lround(value));
}

/// The mean over the pixel, with straight alpha.
std::uint32_t MeanInk(int x, int y, double texelWidth, double texelHeight)
{
    Colour sum{};
    int inside = 0;
    for (int row = 0; row < kSamples; ++row) {
        for (int column = 0; column < kSamples; ++column) {
            Colour colour{};
            if (Ink({(x + (column + 0.5) / kSamples) * texelWidth - kWidth / 2.0,
                     (y + (row + 0.5) / kSamples) * texelHeight - kHeight / 2.0},
                    colour)) {
                sum = {sum.red + colour.red, sum.green + colour.green, sum.blue + colour.blue};
                ++inside;
            }
        }
    }
    if (inside == 0) {
        return 0U;
    }
    return (Byte(255.0 * inside / (kSamples * kSamples)) << 24) | (Byte(sum.red / inside) << 16) |
           (Byte(sum.green / inside) << 8) | Byte(sum.blue / inside);
}

} // namespace

Picture DrawCard(int width, int height)
{
    Picture picture{width, height, {}, {}};
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            picture.straight.push_back(MeanInk(x, y, kWidth / width, kHeight / height));
        }
    }
    picture.premultiplied.resize(picture.straight.size());
    std::transform(picture.straight.begin(), picture.straight.end(), picture.premultiplied.begin(), Premultiply);
    return picture;
}

} // namespace contest
