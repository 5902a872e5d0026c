// SPDX-License-Identifier: MIT
// Composing the whole of a 1920 x 1080 screen from a table picture and 52 resting cards, and what other renderers that
// draw without a GPU take for the same picture.
#include "bench/card_sheet.h"
#include "host/canvas.h"
#include "host/render.h"
#include "host/window.h"
#include "orvane/orvane.h"

#include <SDL.h>
#include <benchmark/benchmark.h>
#include <cairo.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

namespace
{

constexpr int kWidth = 1920;
constexpr int kHeight = 1080;
constexpr int kColumns = 13;
constexpr int kRows = 4;

/// What is shown: 52 pictures of that size in a grid, or none for a width of 0.
struct Layout {
    explicit Layout(benchmark::State& state)
        : cardWidth(static_cast<int>(state.range(0))), cardHeight(static_cast<int>(state.range(1))),
          table(bench::DrawTable(kWidth, kHeight))
    {
        if (cardWidth == 0) {
            return;
        }
        const OwnedBitmap sheet = bench::DrawSheet(kColumns, kRows, cardWidth, cardHeight);
        for (int row = 0; row < kRows; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                cards.push_back({bench::MakeBitmap(cardWidth, cardHeight),
                                 column * (kWidth - cardWidth) / (kColumns - 1),
                                 row * (kHeight - cardHeight) / (kRows - 1)});
                Render::Instance().Copy(sheet.get(), cards.back().picture.get(), 0, 0, column * cardWidth,
                                        row * cardHeight, cardWidth, cardHeight);
            }
        }
    }

    struct Card {
        OwnedBitmap picture;
        int x;
        int y;
    };
    int cardWidth;
    int cardHeight;
    OwnedBitmap table;
    std::vector<Card> cards;
};

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->Args({0, 0})->Args({71, 96})->Args({240, 336})->Unit(benchmark::kMicrosecond);
}

void ComposeOurs(benchmark::State& state)
{
    orvane::Settings settings;
    settings.width = kWidth;
    settings.height = kHeight;
    orvane::Host host(settings);
    const Layout layout(state);
    CDialog dialog;
    std::vector<std::unique_ptr<Canvas>> controls;
    const auto show = [&](Bitmap* picture, int x, int y) {
        controls.push_back(std::make_unique<Canvas>());
        controls.back()->Create(x, y, picture->Width(), picture->Height());
        controls.back()->SetBitmap(picture);
        dialog.AddCntrlBefore(controls.back().get(), nullptr);
    };
    show(layout.table.get(), 0, 0);
    for (const Layout::Card& card : layout.cards) {
        show(card.picture.get(), card.x, card.y);
    }
    dialog.Show();
    // Which parts are opaque is found out once, when a picture is composed for the second time.
    host.ComposeAll();
    host.ComposeAll();
    for (auto _ : state) {
        Render::Instance().InvalidateArea({0, 0, kWidth, kHeight});
        host.Compose();
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ComposeOurs)->Apply(Sizes);

struct SdlFree {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
    void operator()(SDL_Texture* texture) const { SDL_DestroyTexture(texture); }
};

/// SDL blends straight alpha.
std::vector<std::uint32_t> StraightPixels(const Bitmap& picture)
{
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(picture.Width()) *
                                      static_cast<std::size_t>(picture.Height()));
    const std::uint8_t* from = picture.Buffer();
    for (std::uint32_t& pixel : pixels) {
        const unsigned alpha = from[3];
        const auto straight = [&](unsigned byte) { return alpha == 0 ? 0U : (byte * 255U + alpha / 2) / alpha; };
        pixel = alpha << 24 | straight(from[2]) << 16 | straight(from[1]) << 8 | straight(from[0]);
        from += 4;
    }
    return pixels;
}

void ComposeSdl(benchmark::State& state)
{
    const Layout layout(state);
    const std::unique_ptr<SDL_Surface, SdlFree> screen(
        SDL_CreateRGBSurfaceWithFormat(0, kWidth, kHeight, 32, SDL_PIXELFORMAT_ARGB8888));
    const std::unique_ptr<SDL_Renderer, SdlFree> renderer(SDL_CreateSoftwareRenderer(screen.get()));
    std::vector<std::unique_ptr<SDL_Texture, SdlFree>> textures;
    const auto texture = [&](const Bitmap& picture, SDL_BlendMode mode) {
        textures.emplace_back(SDL_CreateTexture(renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC,
                                                picture.Width(), picture.Height()));
        SDL_UpdateTexture(textures.back().get(), nullptr, StraightPixels(picture).data(), picture.Width() * 4);
        SDL_SetTextureBlendMode(textures.back().get(), mode);
    };
    texture(*layout.table, SDL_BLENDMODE_NONE);
    for (const Layout::Card& card : layout.cards) {
        texture(*card.picture, SDL_BLENDMODE_BLEND);
    }
    for (auto _ : state) {
        SDL_RenderCopy(renderer.get(), textures.front().get(), nullptr, nullptr);
        for (std::size_t i = 0; i < layout.cards.size(); ++i) {
            const SDL_Rect place{layout.cards[i].x, layout.cards[i].y, layout.cardWidth, layout.cardHeight};
            SDL_RenderCopy(renderer.get(), textures[i + 1].get(), nullptr, &place);
        }
        SDL_RenderFlush(renderer.get());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ComposeSdl)->Apply(Sizes);

struct CairoFree {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    void operator()(cairo_t* context) const { cairo_destroy(context); }
};
using CairoSurface = std::unique_ptr<cairo_surface_t, CairoFree>;

CairoSurface CairoCopy(const Bitmap& picture)
{
    CairoSurface surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.Width(), picture.Height()));
    std::memcpy(cairo_image_surface_get_data(surface.get()), picture.Buffer(),
                std::size_t{4} * static_cast<std::size_t>(picture.Width()) *
                    static_cast<std::size_t>(picture.Height()));
    cairo_surface_mark_dirty(surface.get());
    return surface;
}

void ComposeCairo(benchmark::State& state)
{
    const Layout layout(state);
    const CairoSurface screen(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, kWidth, kHeight));
    const std::unique_ptr<cairo_t, CairoFree> context(cairo_create(screen.get()));
    const CairoSurface table = CairoCopy(*layout.table);
    std::vector<CairoSurface> cards;
    for (const Layout::Card& card : layout.cards) {
        cards.push_back(CairoCopy(*card.picture));
    }
    for (auto _ : state) {
        cairo_set_operator(context.get(), CAIRO_OPERATOR_SOURCE);
        cairo_set_source_surface(context.get(), table.get(), 0.0, 0.0);
        cairo_paint(context.get());
        cairo_set_operator(context.get(), CAIRO_OPERATOR_OVER);
        for (std::size_t i = 0; i < cards.size(); ++i) {
            cairo_set_source_surface(context.get(), cards[i].get(), layout.cards[i].x, layout.cards[i].y);
            cairo_paint(context.get());
        }
        benchmark::ClobberMemory();
    }
}
BENCHMARK(ComposeCairo)->Apply(Sizes);

} // namespace
