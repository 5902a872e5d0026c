// SPDX-License-Identifier: MIT
// SDL2's software renderer, which knows textured triangles with an affine map each and snaps their corners to whole
// pixels, and its blits of surfaces, plain and run-length encoded.
#include "bench/contest/contestant.h"
#include "bench/contest/target_memory.h"

#include <SDL.h>

#include <cstddef>
#include <stdexcept>

namespace contest
{

namespace
{

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

struct FreeRenderer {
    void operator()(SDL_Renderer* renderer) const { SDL_DestroyRenderer(renderer); }
};
using Renderer = std::unique_ptr<SDL_Renderer, FreeRenderer>;

template <class Pointer> Pointer Checked(Pointer pointer)
{
    if (pointer == nullptr) {
        throw std::runtime_error(SDL_GetError());
    }
    return pointer;
}

Surface SurfaceOn(const TargetMemory& target)
{
    return Surface(Checked(SDL_CreateRGBSurfaceWithFormatFrom(target.Bytes(), target.Get().width, target.Get().height,
                                                              32, target.RowBytes(), SDL_PIXELFORMAT_RGB888)));
}

class TrianglesContestant final : public Contestant
{
public:
    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = TargetMemory(width, height);
        m_surface = SurfaceOn(m_target);
        m_renderer.reset(Checked(SDL_CreateSoftwareRenderer(m_surface.get())));
        for (const Picture& picture : pictures) {
            // lives as long as the renderer
            SDL_Texture* const texture = Checked(SDL_CreateTexture(
                m_renderer.get(), SDL_PIXELFORMAT_ARGB8888, SDL_TEXTUREACCESS_STATIC, picture.width, picture.height));
            SDL_UpdateTexture(texture, nullptr, picture.straight.data(), picture.RowBytes());
            SDL_SetTextureBlendMode(texture, SDL_BLENDMODE_BLEND);
            SDL_SetTextureScaleMode(texture, SDL_ScaleModeLinear);
            m_textures.push_back(texture);
        }
    }

    void Draw(const Frame& frame) override
    {
        constexpr int kIndices[] = {0, 1, 2, 0, 2, 3};
        constexpr SDL_FPoint kPictureCorners[] = {{0.0F, 0.0F}, {1.0F, 0.0F}, {1.0F, 1.0F}, {0.0F, 1.0F}};
        for (std::size_t i = 0; i < frame.size(); ++i) {
            SDL_Vertex vertices[4];
            for (std::size_t corner = 0; corner < 4; ++corner) {
                const Point& place = frame[i][corner];
                vertices[corner] = {{static_cast<float>(place.x), static_cast<float>(place.y)},
                                    {255, 255, 255, 255},
                                    kPictureCorners[corner]};
            }
            SDL_RenderGeometry(m_renderer.get(), m_textures[i % m_textures.size()], vertices, 4, kIndices, 6);
        }
        SDL_RenderFlush(m_renderer.get());
    }

    Pixels Target() override { return m_target.Get(); }

private:
    TargetMemory m_target;
    Surface m_surface;
    Renderer m_renderer;
    std::vector<SDL_Texture*> m_textures;
};

class BlitContestant final : public Contestant
{
public:
    explicit BlitContestant(bool runLengths) : m_runLengths(runLengths) {}

    bool CanDraw(Kind kind) const override { return kind == Kind::Blit || kind == Kind::Upright; }

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = TargetMemory(width, height);
        m_surface = SurfaceOn(m_target);
        for (const Picture& picture : pictures) {
            // SDL reads from the memory only, but has no type for that
            auto* const words = const_cast<std::uint32_t*>(picture.straight.data());
            m_cards.emplace_back(Checked(SDL_CreateRGBSurfaceWithFormatFrom(
                words, picture.width, picture.height, 32, picture.RowBytes(), SDL_PIXELFORMAT_ARGB8888)));
            SDL_SetSurfaceBlendMode(m_cards.back().get(), SDL_BLENDMODE_BLEND);
            SDL_SetSurfaceRLE(m_cards.back().get(), m_runLengths ? 1 : 0);
        }
    }

    void Draw(const Frame& frame) override
    {
        for (std::size_t i = 0; i < frame.size(); ++i) {
            SDL_Rect place{static_cast<int>(frame[i][0].x), static_cast<int>(frame[i][0].y), 0, 0};
            SDL_BlitSurface(m_cards[i % m_cards.size()].get(), nullptr, m_surface.get(), &place);
        }
    }

    Pixels Target() override { return m_target.Get(); }

private:
    bool m_runLengths;
    TargetMemory m_target;
    Surface m_surface;
    std::vector<Surface> m_cards;
};

std::string Library()
{
    SDL_version version;
    SDL_GetVersion(&version);
    return "SDL " + std::to_string(version.major) + '.' + std::to_string(version.minor) + '.' +
           std::to_string(version.patch) + ", ";
}

template <bool runLengths> std::unique_ptr<Contestant> MakeBlit()
{
    return std::make_unique<BlitContestant>(runLengths);
}

} // namespace

std::vector<Entry> Entries()
{
    return {
        {"sdl2", Library() + "software renderer, two triangles a card, nearest texel, whole pixels",
         []() -> std::unique_ptr<Contestant> { return std::make_unique<TrianglesContestant>(); }},
        {"sdl2-blit", Library() + "surface blit, whole pixels; upright cards only", MakeBlit<false>},
        {"sdl2-rle", Library() + "run-length encoded surface blit, whole pixels; upright cards only", MakeBlit<true>}};
}

} // namespace contest
