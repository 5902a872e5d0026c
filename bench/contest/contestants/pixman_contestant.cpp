// SPDX-License-Identifier: MIT
// pixman with a projective transform: the card's two triangles make the mask.
#include "bench/contest/contestant.h"
#include "bench/contest/projective_map.h"
#include "bench/contest/target_memory.h"

#include <pixman.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>

namespace contest
{

namespace
{

/// pixman's numbers are 16.16: what it computes inside the box must stay below this.
constexpr double kLargest = 32000.0;

/// The map from the box, whose corner becomes (0, 0), to the picture, times the factor that uses the digits best. The
/// factor of a projective map is free; an affine one must keep its last row.
pixman_transform_t ToPicture(const Quad& quad, const Box& box, int cardWidth, int cardHeight)
{
    Quad moved = quad;
    for (Point& corner : moved) {
        corner = {corner.x - box.left, corner.y - box.top};
    }
    const ProjectiveMap map = ProjectiveMap::OfPicture(cardWidth, cardHeight, moved).Inverse();
    double factor = 1.0 / map(2, 2);
    if (!IsParallelogram(quad)) {
        double largest = 0.0;
        for (int row = 0; row < 3; ++row) {
            for (int column = 0; column < 3; ++column) {
                largest = std::max(largest, std::abs(map(row, column)));
            }
            for (const double x : {-1.0, box.Width() + 1.0}) {
                for (const double y : {-1.0, box.Height() + 1.0}) {
                    largest = std::max(largest, std::abs(map.Row(row, x, y)));
                }
            }
        }
        factor = kLargest / largest;
    }
    pixman_transform_t transform;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            transform.matrix[row][column] =
                static_cast<pixman_fixed_t>(std::lround(map(row, column) * factor * pixman_fixed_1));
        }
    }
    return transform;
}

pixman_point_fixed_t Fixed(const Point& point)
{
    return {pixman_double_to_fixed(point.x), pixman_double_to_fixed(point.y)};
}

struct Unref {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};
using Image = std::unique_ptr<pixman_image_t, Unref>;

Image ImageOn(pixman_format_code_t format, int width, int height, std::uint32_t* words, int rowBytes)
{
    Image image(pixman_image_create_bits_no_clear(format, width, height, words, rowBytes));
    if (image == nullptr) {
        throw std::runtime_error("pixman makes no image");
    }
    return image;
}

class PixmanContestant final : public Contestant
{
public:
    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_memory = TargetMemory(width, height);
        m_target = ImageOn(PIXMAN_x8r8g8b8, width, height, m_memory.Get().first, m_memory.RowBytes());
        for (const Picture& picture : pictures) {
            // pixman reads from the memory only, but has no type for that
            m_cards.push_back(ImageOn(PIXMAN_a8r8g8b8, picture.width, picture.height,
                                      const_cast<std::uint32_t*>(picture.premultiplied.data()), picture.RowBytes()));
            pixman_image_set_filter(m_cards.back().get(), PIXMAN_FILTER_BILINEAR, nullptr, 0);
            pixman_image_set_repeat(m_cards.back().get(), PIXMAN_REPEAT_PAD);
        }
    }

    void Draw(const Frame& frame) override
    {
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const Quad& quad = frame[i];
            pixman_image_t* const card = m_cards[i % m_cards.size()].get();
            const Box box = PixelBox(quad, m_memory.Get().width, m_memory.Get().height, 0);
            if (box.Empty()) {
                continue;
            }
            const pixman_transform_t transform =
                ToPicture(quad, box, pixman_image_get_width(card), pixman_image_get_height(card));
            pixman_image_set_transform(card, &transform);
            const pixman_triangle_t halves[] = {{Fixed(quad[0]), Fixed(quad[1]), Fixed(quad[2])},
                                                {Fixed(quad[0]), Fixed(quad[2]), Fixed(quad[3])}};
            pixman_composite_triangles(PIXMAN_OP_OVER, card, m_target.get(), PIXMAN_a8, -box.left, -box.top, 0, 0, 2,
                                       halves);
        }
    }

    Pixels Target() override { return m_memory.Get(); }

private:
    TargetMemory m_memory;
    Image m_target;
    std::vector<Image> m_cards;
};

} // namespace

std::vector<Entry> Entries()
{
    return {{"pixman", std::string("pixman ") + pixman_version_string() + ", bilinear, true perspective, soft edges",
             []() -> std::unique_ptr<Contestant> { return std::make_unique<PixmanContestant>(); }}};
}

} // namespace contest
