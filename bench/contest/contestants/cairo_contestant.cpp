// SPDX-License-Identifier: MIT
// cairo's image surfaces with three of its filters. Its maps are affine: a tilted card is drawn as two triangles with a
// map each, which shows.
#include "bench/contest/contestant.h"
#include "bench/contest/target_memory.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <initializer_list>
#include <stdexcept>

namespace contest
{

namespace
{

/// The affine map that takes three corners of the picture to the quad's: those beside the corner, and the corner.
cairo_matrix_t MapAtCorner(const Quad& quad, std::size_t corner, double width, double height)
{
    const Point& origin = quad[corner];
    // Corner 0 is the picture's origin; corner 2, the opposite one, is reached by walking back along both sides.
    const Point& across = corner == 0 ? quad[1] : quad[3];
    const Point& down = corner == 0 ? quad[3] : quad[1];
    const double sign = corner == 0 ? 1.0 : -1.0;
    cairo_matrix_t map;
    map.xx = sign * (across.x - origin.x) / width;
    map.yx = sign * (across.y - origin.y) / width;
    map.xy = sign * (down.x - origin.x) / height;
    map.yy = sign * (down.y - origin.y) / height;
    map.x0 = corner == 0 ? origin.x : origin.x - map.xx * width - map.xy * height;
    map.y0 = corner == 0 ? origin.y : origin.y - map.yx * width - map.yy * height;
    return map;
}

/// The point a pixel further than from, or to where that is nearer.
Point OnePixelTowards(const Point& from, const Point& to)
{
    const double share = std::min(1.0, 1.0 / std::max(std::hypot(to.x - from.x, to.y - from.y), 1e-9));
    return {from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)};
}

class CairoContestant final : public Contestant
{
public:
    explicit CairoContestant(cairo_filter_t filter) : m_filter(filter) {}
    ~CairoContestant() override
    {
        cairo_destroy(m_cairo);
        for (cairo_pattern_t* const pattern : m_patterns) {
            cairo_pattern_destroy(pattern);
        }
    }

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = TargetMemory(width, height);
        cairo_surface_t* const surface = cairo_image_surface_create_for_data(m_target.Bytes(), CAIRO_FORMAT_RGB24,
                                                                             width, height, m_target.RowBytes());
        m_cairo = cairo_create(surface);
        cairo_surface_destroy(surface);
        for (const Picture& picture : pictures) {
            // cairo reads from the memory only, but has no type for that
            auto* const bytes =
                reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(picture.premultiplied.data()));
            cairo_surface_t* const card = cairo_image_surface_create_for_data(bytes, CAIRO_FORMAT_ARGB32, picture.width,
                                                                              picture.height, picture.RowBytes());
            m_patterns.push_back(cairo_pattern_create_for_surface(card));
            cairo_surface_destroy(card);
            cairo_pattern_set_filter(m_patterns.back(), m_filter);
            cairo_pattern_set_extend(m_patterns.back(), CAIRO_EXTEND_PAD);
        }
        m_cardWidth = pictures.front().width;
        m_cardHeight = pictures.front().height;
        if (cairo_status(m_cairo) != CAIRO_STATUS_SUCCESS) {
            throw std::runtime_error(cairo_status_to_string(cairo_status(m_cairo)));
        }
    }

    void Draw(const Frame& frame) override
    {
        cairo_surface_mark_dirty(cairo_get_target(m_cairo));
        for (std::size_t i = 0; i < frame.size(); ++i) {
            const Quad& quad = frame[i];
            cairo_pattern_t* const pattern = m_patterns[i % m_patterns.size()];
            if (IsParallelogram(quad)) {
                Fill(pattern, MapAtCorner(quad, 0, m_cardWidth, m_cardHeight), {quad[0], quad[1], quad[2], quad[3]});
            } else {
                // The first triangle reaches a pixel across the diagonal: no seam shows between the two.
                Fill(pattern, MapAtCorner(quad, 0, m_cardWidth, m_cardHeight),
                     {quad[0], quad[1], OnePixelTowards(quad[1], quad[2]), OnePixelTowards(quad[3], quad[2]), quad[3]});
                Fill(pattern, MapAtCorner(quad, 2, m_cardWidth, m_cardHeight), {quad[1], quad[2], quad[3]});
            }
        }
        cairo_surface_flush(cairo_get_target(m_cairo));
    }

    Pixels Target() override { return m_target.Get(); }

private:
    void Fill(cairo_pattern_t* pattern, cairo_matrix_t map, std::initializer_list<Point> outline)
    {
        if (cairo_matrix_invert(&map) != CAIRO_STATUS_SUCCESS) {
            return; // edge-on
        }
        cairo_pattern_set_matrix(pattern, &map);
        cairo_set_source(m_cairo, pattern);
        for (const Point& corner : outline) {
            cairo_line_to(m_cairo, corner.x, corner.y);
        }
        cairo_close_path(m_cairo);
        cairo_fill(m_cairo);
    }

    cairo_filter_t m_filter;
    TargetMemory m_target;
    cairo_t* m_cairo = nullptr;
    std::vector<cairo_pattern_t*> m_patterns;
    int m_cardWidth = 0;
    int m_cardHeight = 0;
};

template <cairo_filter_t filter> std::unique_ptr<Contestant> Make()
{
    return std::make_unique<CairoContestant>(filter);
}

} // namespace

std::vector<Entry> Entries()
{
    const std::string library = std::string("cairo ") + cairo_version_string() + ", a filled path, ";
    return {{"cairo-fast", library + "filter FAST (nearest); tilted cards as two triangles", Make<CAIRO_FILTER_FAST>},
            {"cairo", library + "filter BILINEAR; tilted cards as two triangles", Make<CAIRO_FILTER_BILINEAR>},
            {"cairo-good", library + "filter GOOD; tilted cards as two triangles", Make<CAIRO_FILTER_GOOD>}};
}

} // namespace contest
