// SPDX-License-Identifier: MIT
#include "examples/common/felt.h"

#include "orvane/pixel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace common
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

/// A hash of a place: 32 bits, the same on every run.
std::uint32_t Scramble(std::uint32_t x, std::uint32_t y)
{
    std::uint32_t mixed = x * 0x8DA6B343U ^ y * 0xD8163841U;
    mixed ^= mixed >> 15;
    mixed *= 0x2C1B3C6DU;
    mixed ^= mixed >> 12;
    return mixed;
}

/// Grain of a place, -kGrain to kGrain - 1: a fibre's share of brightness in 65,536ths, 1.6 percent.
constexpr int kGrain = 1024;
int Grain(std::uint32_t x, std::uint32_t y)
{
    return static_cast<int>(Scramble(x, y) >> 21) - kGrain;
}

/// The light on the felt by the squared distance from its middle: colours in 256ths, from lit to dark.
class Light
{
public:
    Light(int width, int height) : m_x(width / 2.0), m_y(height * 0.36)
    {
        const double reach = std::hypot(width, height) * 0.62;
        m_scale = static_cast<float>(kSteps / (reach * reach));
        for (std::size_t i = 0; i < m_steps.size(); ++i) {
            const double distance = std::sqrt(static_cast<double>(i) / kSteps);
            const double dark = distance * distance * (3.0 - 2.0 * distance);
            m_steps[i] = {Channel(kLit.blue, kDark.blue, dark), Channel(kLit.green, kDark.green, dark),
                          Channel(kLit.red, kDark.red, dark)};
        }
    }

    struct Step {
        int blue;
        int green;
        int red;
    };

    /// The squared distance of a row, or of a column, from the middle: the sum of both is that of a pixel.
    float AcrossAt(int x) const { return Square(x + 0.5 - m_x); }
    float DownAt(int y) const { return Square(y + 0.5 - m_y); }
    const Step& At(float squaredDistance) const
    {
        return m_steps[static_cast<std::size_t>(std::min(squaredDistance * m_scale, static_cast<float>(kSteps)))];
    }

private:
    static constexpr int kSteps = 4096;

    static float Square(double distance) { return static_cast<float>(distance * distance); }
    static int Channel(double lit, double dark, double share)
    {
        return static_cast<int>(256.0 * (lit + (dark - lit) * share) + 0.5);
    }

    double m_x;
    double m_y;
    float m_scale = 0.0F;
    std::array<Step, kSteps + 1> m_steps{};
};

/// The brightness of a row's pixels: short fibres along both axes, and fine grain that also hides the bands of the
/// light, which has more shades than a channel.
class Fibres
{
public:
    Fibres(int left, int width)
        : m_left(static_cast<std::uint32_t>(left)), m_upright(static_cast<std::size_t>(width)), m_row(m_upright.size())
    {
    }

    /// The row's brightness in 65,536ths, from its first pixel on; valid until the next call.
    const std::vector<int>& Row(int y)
    {
        const auto row = static_cast<std::uint32_t>(y);
        if (row / kFibre != m_uprightRow) {
            m_uprightRow = row / kFibre;
            for (std::size_t i = 0; i < m_upright.size(); ++i) {
                m_upright[i] = kFull + Grain((m_left + static_cast<std::uint32_t>(i)) * 3U + 1U, m_uprightRow);
            }
        }
        for (std::size_t i = 0; i < m_row.size(); ++i) {
            m_row[i] = m_upright[i] + Grain(m_left + static_cast<std::uint32_t>(i), row) * 4 / 5;
        }
        AddLevelFibres(row);
        return m_row;
    }

private:
    static constexpr std::uint32_t kFibre = 5; // pixels
    static constexpr int kFull = 65536;

    void AddLevelFibres(std::uint32_t row)
    {
        std::size_t i = 0;
        while (i < m_row.size()) {
            const std::uint32_t x = m_left + static_cast<std::uint32_t>(i);
            const int grain = Grain(x / kFibre, row * 3U + 1U);
            for (std::size_t end = std::min(i + kFibre - x % kFibre, m_row.size()); i < end; ++i) {
                m_row[i] += grain;
            }
        }
    }

    std::uint32_t m_left;
    std::uint32_t m_uprightRow = ~0U;
    std::vector<int> m_upright;
    std::vector<int> m_row;
};

/// A channel in 256ths by a brightness in 65,536ths: below 256, as the felt's own colours are.
std::uint32_t Shaded(int channel, int brightness)
{
    return static_cast<std::uint32_t>(channel * (brightness >> 4) + (1 << 19)) >> 20;
}

} // namespace

void PaintFelt(Bitmap& table, const render::Rectangle<int>& part)
{
    const int left = std::max(part.x, 0);
    const int top = std::max(part.y, 0);
    const auto right = static_cast<int>(std::min<std::int64_t>(std::int64_t{part.x} + part.width, table.Width()));
    const auto bottom = static_cast<int>(std::min<std::int64_t>(std::int64_t{part.y} + part.height, table.Height()));
    if (left >= right || top >= bottom) {
        return;
    }
    const Light light(table.Width(), table.Height());
    std::vector<float> across(static_cast<std::size_t>(right - left));
    for (std::size_t i = 0; i < across.size(); ++i) {
        across[i] = light.AcrossAt(left + static_cast<int>(i));
    }
    Fibres fibres(left, right - left);
    std::uint32_t* line = orvane::Pixels(table) + std::ptrdiff_t{top} * table.Width() + left;
    for (int y = top; y < bottom; ++y, line += table.Width()) {
        const float down = light.DownAt(y);
        const std::vector<int>& brightness = fibres.Row(y);
        for (std::size_t i = 0; i < across.size(); ++i) {
            const Light::Step& colour = light.At(across[i] + down);
            line[i] = 0xFF000000U | Shaded(colour.red, brightness[i]) << 16 | Shaded(colour.green, brightness[i]) << 8 |
                      Shaded(colour.blue, brightness[i]);
        }
    }
}

} // namespace common
