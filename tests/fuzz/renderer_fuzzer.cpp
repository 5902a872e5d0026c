// SPDX-License-Identifier: MIT
// The renderer with every instruction set against its plain reference: random quadrilaterals, pictures, alphas, targets
// and clips.
#include "host/globals.h"
#include "host/polygon_render.h"
#include "host/rect.h"
#include "orvane/raster/renderer_choice.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/guarded_bitmap.h"
#include "tests/fuzz/input.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

namespace
{

using namespace orvane::raster;

/// What renderer_choice.h allows between the fast renderer and the reference.
constexpr int kMostDifference = 1;
constexpr int kQuadsAnInput = 24;

Tally quads("quadrilaterals compared");
Tally draws("draws");

struct Quad {
    std::array<long, 8> corners;
    std::array<long, 8> texels;
    long state;
    bool withClip;
};

/// A turned rectangle, now and then seen in perspective, about as large as the target.
void TurnedCorners(Input& input, int width, int height, std::array<long, 8>& corners)
{
    const double angle = input.Fraction() * 6.2831853;
    const double halfWidth = 0.5 + input.Fraction() * width * 1.3;
    const double halfHeight = 0.5 + input.Fraction() * height * 1.3;
    const double tilt = input.OneIn(2) ? (input.Fraction() - 0.5) * 1.9 : 0.0;
    const double x = input.Fraction() * width * 2;
    const double y = input.Fraction() * height * 2;
    for (std::size_t i = 0; i < 4; ++i) {
        const double px = i == 1 || i == 2 ? halfWidth : -halfWidth;
        const double py = i >= 2 ? halfHeight : -halfHeight;
        const double scale = 1 / (1 + tilt * px / halfWidth);
        corners[2 * i] = std::lround(x + (px * std::cos(angle) - py * std::sin(angle)) * scale);
        corners[2 * i + 1] = std::lround(y + (px * std::sin(angle) + py * std::cos(angle)) * scale);
    }
}

Quad RandomQuad(Input& input, const Bitmap& target, const Bitmap& texture)
{
    Quad quad{};
    const int width = target.Width();
    const int height = target.Height();
    switch (input.Below(4)) {
    case 0: {
        const long left = input.Between(-20, 2L * width);
        const long top = input.Between(-20, 2L * height);
        const bool natural = input.OneIn(2);
        const long right = left + (natural ? 2L * texture.Width() : input.Between(0, 2L * width));
        const long bottom = top + (natural ? 2L * texture.Height() : input.Between(0, 2L * height));
        quad.corners = {left, top, right, top, right, bottom, left, bottom};
        break;
    }
    case 1:
        for (std::size_t i = 0; i < 8; ++i) {
            quad.corners[i] = input.Number(i % 2 == 0 ? 2L * width : 2L * height);
        }
        break;
    default:
        TurnedCorners(input, width, height, quad.corners);
    }

    constexpr long kTexel = 65536;
    const auto edge = [](long texels) { return texels == 0 ? 0 : texels * kTexel - 1; };
    long left = 0;
    long top = 0;
    long right = edge(texture.Width());
    long bottom = edge(texture.Height());
    if (input.OneIn(4)) {
        left = edge(input.Between(0, texture.Width()));
        top = edge(input.Between(0, texture.Height()));
        right = edge(input.Between(0, texture.Width()));
        bottom = input.Between(-1, texture.Height()) * kTexel / 3;
    }
    quad.texels = {left, top, right, top, right, bottom, left, bottom};
    if (input.OneIn(32)) {
        for (long& texel : quad.texels) {
            texel = input.OneIn(2) ? input.Number(texture.Width()) : static_cast<std::int32_t>(input.Word());
        }
    }
    quad.state = input.Below(2) == 0 ? 0 : input.Number(2);
    quad.withClip = !input.OneIn(8);
    return quad;
}

/// Fills with pixels of which some are opaque, some clear, and some hold colours above their alpha.
void Paint(Input& input, GuardedBitmap& bitmap)
{
    const std::uint32_t kind = input.Below(4);
    std::uint32_t word = input.Word();
    for (std::size_t i = 0; i < bitmap.Count(); ++i) {
        word = word * 1664525U + 1013904223U;
        std::uint32_t pixel = word ^ word >> 15;
        if (kind == 0) {
            pixel |= 0xFF000000U;
        } else if (kind == 1) {
            pixel = (word >> 28) < 6 ? 0 : 0xFF406080U;
        } else if (kind == 2) {
            const std::uint32_t level = pixel >> 24;
            pixel = level << 24 | (level / 2) << 16 | (level / 3) << 8 | level;
        }
        bitmap.Pixels()[i] = pixel;
    }
    bitmap.Get()->Changed();
}

struct Drawn {
    CRect rectangle; ///< as the renderer tells; empty when nothing was drawn
    CRect clip;
};

Drawn Draw(const Quad& quad, Bitmap* target, Bitmap* texture)
{
    PolygonRender& render = *glb->polygonRender;
    const auto& c = quad.corners;
    const auto& t = quad.texels;
    render.SetVertices(c[0], c[1], 0, c[2], c[3], 0, c[4], c[5], 0, c[6], c[7], 0);
    render.SetTexCoords(t[0], t[1], t[2], t[3], t[4], t[5], t[6], t[7]);
    render.SetTexture(texture);
    render.SetRenderState(1, quad.state);
    Drawn drawn;
    drawn.clip.Set(-7, -7, -7, -7);
    CRect* clip = quad.withClip ? &drawn.clip : nullptr;
    render.Draw(target, clip);
    if (CRect* const last = render.GetLastDrawnRect()) {
        drawn.rectangle.Copy(last);
    }
    ++draws;
    return drawn;
}

bool Same(const CRect& a, const CRect& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

/// The rectangle lies in the target, the clip says the same, and no pixel changed outside.
void CheckRectangle(const Drawn& drawn, bool withClip, const GuardedBitmap& target,
                    const std::vector<std::uint32_t>& ground)
{
    const Bitmap& bitmap = *target.Get();
    const CRect& r = drawn.rectangle;
    if (!r.IsEmpty()) {
        FUZZ_CHECK(r.left >= 0 && r.top >= 0 && r.right <= bitmap.Width() && r.bottom <= bitmap.Height());
        FUZZ_CHECK(!withClip || Same(drawn.clip, r));
    } else {
        FUZZ_CHECK(Same(r, CRect()));
        FUZZ_CHECK(!withClip || drawn.clip.IsEmpty());
    }
    const auto width = static_cast<std::size_t>(bitmap.Width());
    for (std::size_t y = 0; y < static_cast<std::size_t>(bitmap.Height()); ++y) {
        const std::uint32_t* const before = ground.data() + y * width;
        const std::uint32_t* const after = target.Pixels() + y * width;
        const bool inRows = static_cast<long>(y) >= r.top && static_cast<long>(y) < r.bottom;
        const std::size_t left = inRows ? static_cast<std::size_t>(r.left) : width;
        const std::size_t right = inRows ? static_cast<std::size_t>(r.right) : width;
        FUZZ_CHECK(std::memcmp(before, after, left * 4) == 0);
        FUZZ_CHECK(std::memcmp(before + right, after + right, (width - right) * 4) == 0);
    }
}

int LargestDifference(const std::vector<std::uint32_t>& a, const std::uint32_t* b)
{
    int largest = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i]) {
            continue;
        }
        for (unsigned shift = 0; shift < 32; shift += 8) {
            largest = std::max(
                largest, std::abs(static_cast<int>(a[i] >> shift & 255U) - static_cast<int>(b[i] >> shift & 255U)));
        }
    }
    return largest;
}

/// What a report of a failed check begins with.
void Describe(const Quad& quad, std::string_view set, const Bitmap& texture, const Bitmap& target)
{
    std::fprintf(stderr,
                 "%.*s, state %ld, picture %d x %d, target %d x %d, corners and texels:", static_cast<int>(set.size()),
                 set.data(), quad.state, texture.Width(), texture.Height(), target.Width(), target.Height());
    for (const auto& values : {quad.corners, quad.texels}) {
        for (const long value : values) {
            std::fprintf(stderr, " %ld", value);
        }
    }
    std::fprintf(stderr, "\n");
}

/// Pixels of one drawing against those of another; a channel may differ by a tolerance.
void CheckPixels(const std::vector<std::uint32_t>& wanted, const GuardedBitmap& target, int tolerance, const Quad& quad,
                 std::string_view set, const Bitmap& texture)
{
    const int difference = LargestDifference(wanted, target.Pixels());
    if (difference > tolerance) {
        Describe(quad, set, texture, *target.Get());
        std::fprintf(stderr, "largest difference %d, allowed %d\n", difference, tolerance);
    }
    FUZZ_CHECK(difference <= tolerance);
}

/// One side of a picture: mostly so small that a round costs little, now and then one that needs whole vectors.
int Side(Input& input)
{
    return static_cast<int>(input.OneIn(8) ? input.Between(1, 90) : input.Between(1, 28));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::vector<std::string_view> sets = InstructionSets();
    Input input(data, size);
    GuardedBitmap texture(Side(input), Side(input), input.Word());
    GuardedBitmap target(Side(input), Side(input), input.Word());
    Paint(input, texture);
    Paint(input, target);
    const std::vector<std::uint32_t> picture(texture.Pixels(), texture.Pixels() + texture.Count());
    const std::vector<std::uint32_t> ground(target.Pixels(), target.Pixels() + target.Count());
    const auto restore = [&] { std::memcpy(target.Pixels(), ground.data(), ground.size() * 4); };

    std::vector<std::uint32_t> first;
    for (int i = 0; i < kQuadsAnInput; ++i) {
        const Quad quad = RandomQuad(input, *target.Get(), *texture.Get());
        restore();
        SetRenderer(Renderer::Reference);
        const Drawn plain = Draw(quad, target.Get(), texture.Get());
        CheckRectangle(plain, quad.withClip, target, ground);
        const std::vector<std::uint32_t> reference(target.Pixels(), target.Pixels() + target.Count());
        SetRenderer(Renderer::Fast);
        first.clear();
        for (const std::string_view set : sets) {
            SetInstructionSet(set);
            restore();
            const Drawn fast = Draw(quad, target.Get(), texture.Get());
            CheckRectangle(fast, quad.withClip, target, ground);
            CheckPixels(reference, target, kMostDifference, quad, set, *texture.Get());
            if (first.empty()) {
                first.assign(target.Pixels(), target.Pixels() + target.Count());
            }
            CheckPixels(first, target, 0, quad, set, *texture.Get());
            target.CheckGuards();
        }
        ++quads;
    }
    texture.CheckGuards();
    FUZZ_CHECK(std::memcmp(picture.data(), texture.Pixels(), picture.size() * 4) == 0);
    return 0;
}
