// SPDX-License-Identifier: MIT
// Anti-Grain Geometry: bilinear spans with an exact perspective division for each pixel, and its resampling filter,
// which weighs the area where the picture shrinks.
#include "bench/contest/contestant.h"
#include "bench/contest/target_memory.h"

#include <agg_image_accessors.h>
#include <agg_image_filters.h>
#include <agg_pixfmt_rgba.h>
#include <agg_rasterizer_scanline_aa.h>
#include <agg_renderer_base.h>
#include <agg_renderer_scanline.h>
#include <agg_rendering_buffer.h>
#include <agg_scanline_u.h>
#include <agg_span_allocator.h>
#include <agg_span_image_filter_rgba.h>
#include <agg_span_interpolator_linear.h>
#include <agg_span_interpolator_persp.h>
#include <agg_trans_affine.h>

#include <array>
#include <cstddef>

namespace contest
{

namespace
{

using Format = agg::pixfmt_bgra32_pre;
using Source = agg::image_accessor_clone<Format>;
using Affine = agg::span_interpolator_linear<>;
using Perspective = agg::span_interpolator_persp_exact<>;

/// A picture as AGG sees it; the parts point to each other.
struct Card {
    explicit Card(const Picture& picture)
        // AGG reads from the memory only, but has no type for that
        : buffer(reinterpret_cast<agg::int8u*>(const_cast<std::uint32_t*>(picture.premultiplied.data())),
                 static_cast<unsigned>(picture.width), static_cast<unsigned>(picture.height), picture.RowBytes()),
          format(buffer), source(format)
    {
    }
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;

    agg::rendering_buffer buffer;
    Format format;
    Source source;
};

class AggContestant final : public Contestant
{
public:
    explicit AggContestant(bool resample) : m_resample(resample)
    {
        m_weights.calculate(agg::image_filter_bilinear(), true);
    }

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_memory = TargetMemory(width, height);
        m_buffer.attach(m_memory.Bytes(), static_cast<unsigned>(width), static_cast<unsigned>(height),
                        m_memory.RowBytes());
        m_format.attach(m_buffer);
        m_renderer.attach(m_format);
        m_rasterizer.clip_box(0.0, 0.0, width, height);
        for (const Picture& picture : pictures) {
            m_cards.push_back(std::make_unique<Card>(picture));
        }
    }

    void Draw(const Frame& frame) override
    {
        for (std::size_t i = 0; i < frame.size(); ++i) {
            DrawCard(*m_cards[i % m_cards.size()], frame[i]);
        }
    }

    Pixels Target() override { return m_memory.Get(); }

private:
    void DrawCard(Card& card, const Quad& quad)
    {
        m_rasterizer.reset();
        m_rasterizer.move_to_d(quad[0].x, quad[0].y);
        for (const std::size_t corner : {1U, 2U, 3U}) {
            m_rasterizer.line_to_d(quad[corner].x, quad[corner].y);
        }
        m_rasterizer.close_polygon();
        const double width = card.buffer.width();
        const double height = card.buffer.height();
        const std::array<double, 8> place{quad[0].x, quad[0].y, quad[1].x, quad[1].y,
                                          quad[2].x, quad[2].y, quad[3].x, quad[3].y};
        const std::array<double, 8> picture{0.0, 0.0, width, 0.0, width, height, 0.0, height};
        if (IsParallelogram(quad)) {
            agg::trans_affine map(place.data(), picture.data()); // takes three corners
            Affine interpolator(map);
            if (m_resample) {
                Fill(agg::span_image_resample_rgba_affine<Source>(card.source, interpolator, m_weights));
            } else {
                Fill(agg::span_image_filter_rgba_bilinear<Source, Affine>(card.source, interpolator));
            }
        } else {
            Perspective interpolator(place.data(), picture.data());
            if (m_resample) {
                Fill(agg::span_image_resample_rgba<Source, Perspective>(card.source, interpolator, m_weights));
            } else {
                Fill(agg::span_image_filter_rgba_bilinear<Source, Perspective>(card.source, interpolator));
            }
        }
    }

    template <class Spans> void Fill(Spans spans)
    {
        agg::render_scanlines_aa(m_rasterizer, m_scanline, m_renderer, m_spans, spans);
    }

    bool m_resample;
    TargetMemory m_memory;
    agg::rendering_buffer m_buffer;
    Format m_format;
    agg::renderer_base<Format> m_renderer;
    agg::rasterizer_scanline_aa<> m_rasterizer;
    agg::scanline_u8 m_scanline;
    agg::span_allocator<agg::rgba8> m_spans;
    agg::image_filter_lut m_weights;
    std::vector<std::unique_ptr<Card>> m_cards;
};

template <bool resample> std::unique_ptr<Contestant> Make()
{
    return std::make_unique<AggContestant>(resample);
}

} // namespace

std::vector<Entry> Entries()
{
    return {{"agg", "AGG 2.6, bilinear, true perspective, soft edges", Make<false>},
            {"agg-resample", "AGG 2.6, weighs the area, true perspective, soft edges", Make<true>}};
}

} // namespace contest
