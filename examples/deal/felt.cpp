// SPDX-License-Identifier: MIT
#include "examples/deal/felt.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace deal
{

namespace
{

struct Colour {
    double red;
    double green;
    double blue;
};

constexpr Colour kLit{44.0, 132.0, 88.0};
constexpr Colour kDark{9.0, 52.0, 38.0};

double Mix(double from, double to, double t)
{
    return from + (to - from) * t;
}

/// A number from -1 to 1 that belongs to a place: the same picture on every run.
double Grain(int x, int y)
{
    auto mixed = static_cast<std::uint32_t>(x) * 0x8DA6B343U ^ static_cast<std::uint32_t>(y) * 0xD8163841U;
    mixed ^= mixed >> 15;
    mixed *= 0x2C1B3C6DU;
    mixed ^= mixed >> 12;
    mixed *= 0x297A2D39U;
    mixed ^= mixed >> 15;
    return static_cast<double>(mixed & 0xFFFFU) / 32767.5 - 1.0;
}

/// Short fibres along both axes, and fine grain that also hides the bands of the vignette.
double Fibres(int x, int y)
{
    constexpr int kFibre = 5;
    return Grain(x / kFibre, y * 3 + 1) + Grain(x * 3 + 1, y / kFibre) + 0.8 * Grain(x, y);
}

/// How far a point lies outside a rectangle with rounded corners, pixels; negative inside.
double DistanceTo(const render::Rectangle<int>& box, double radius, double x, double y)
{
    const double dx = std::abs(x - (box.x + box.width / 2.0)) - (box.width / 2.0 - radius);
    const double dy = std::abs(y - (box.y + box.height / 2.0)) - (box.height / 2.0 - radius);
    return std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) + std::min(std::max(dx, dy), 0.0) - radius;
}

/// A slot's light at a distance from its edge: an inlaid line, and a slightly pressed surface inside it.
double SlotShade(double distance, double lineWidth)
{
    constexpr double kPressed = -0.10;
    constexpr double kLine = 0.30;
    const double line = std::clamp(lineWidth / 2.0 + 0.5 - std::abs(distance + lineWidth / 2.0), 0.0, 1.0);
    const double inside = std::clamp(0.5 - distance, 0.0, 1.0);
    return kLine * line + kPressed * inside * (1.0 - line);
}

std::uint8_t ToByte(double value)
{
    return static_cast<std::uint8_t>(std::clamp(value + 0.5, 0.0, 255.0));
}

class Light
{
public:
    Light(int width, int height) : m_x(width / 2.0), m_y(height * 0.42), m_reach(std::hypot(width, height) * 0.62) {}

    /// 0 where the felt is lit, 1 where it is dark.
    double Darkness(double x, double y) const
    {
        const double distance = std::min(1.0, std::hypot(x - m_x, y - m_y) / m_reach);
        return distance * distance * (3.0 - 2.0 * distance);
    }

private:
    double m_x;
    double m_y;
    double m_reach;
};

} // namespace

OwnedBitmap MakeFelt(int width, int height, const std::vector<render::Rectangle<int>>& slots)
{
    constexpr double kFibreLight = 0.016;
    constexpr double kRadius = 0.06; // of a slot's width, about that of a card's corners
    OwnedBitmap felt(BitmapManager::Instance().Create(width, height));
    if (felt == nullptr || felt->Buffer() == nullptr) {
        return felt;
    }
    const Light light(width, height);
    const double lineWidth = std::max(1.0, height / 480.0);
    std::uint8_t* pixel = felt->Buffer();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, pixel += 4) {
            double shade = kFibreLight * Fibres(x, y);
            for (const render::Rectangle<int>& slot : slots) {
                if (x >= slot.x - 1 && x <= slot.x + slot.width && y >= slot.y - 1 && y <= slot.y + slot.height) {
                    shade += SlotShade(DistanceTo(slot, kRadius * slot.width, x + 0.5, y + 0.5), lineWidth);
                }
            }
            const double dark = light.Darkness(x, y);
            pixel[0] = ToByte(Mix(kLit.blue, kDark.blue, dark) * (1.0 + shade));
            pixel[1] = ToByte(Mix(kLit.green, kDark.green, dark) * (1.0 + shade));
            pixel[2] = ToByte(Mix(kLit.red, kDark.red, dark) * (1.0 + shade));
            pixel[3] = 255;
        }
    }
    return felt;
}

} // namespace deal
