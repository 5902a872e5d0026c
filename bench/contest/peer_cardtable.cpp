// SPDX-License-Identifier: MIT
// The card table's renderer as a contestant, through the public interface alone:
//  cardtable-motion  render state 1 at 0: one sample a pixel, for cards that move
//  cardtable-rest    render state 1 at 1: as fine as the renderer can, for cards that lie still
// CARDTABLE_RENDERER=reference in the environment takes the plain renderer, CARDTABLE_SIMD=sse4, avx2 or avx512 a
// narrower instruction set than the machine has.
//
// The renderer draws into bitmaps, which own their pixels: the contestant lends those to the harness (ownTarget), which
// then clears, times and dumps them as it does its own memory. Nothing is copied, neither in nor outside the timing.
#include "harness.h"

#include "host/bitmap.h"
#include "host/bitmap_manager.h"
#include "host/globals.h"
#include "host/polygon_render.h"
#include "orvane/raster/renderer_choice.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{

class Cardtable : public Peer
{
public:
    explicit Cardtable(bool rest) : m_rest(rest) {}

    const char* name() const override { return m_rest ? "cardtable-rest" : "cardtable-motion"; }
    const char* notes() const override
    {
        return m_rest ? "true perspective; filtered by area; AA" : "true perspective; bilinear; AA";
    }

    uint32_t* ownTarget(int w, int h) override
    {
        using namespace orvane::raster;
        const char* const renderer = std::getenv("CARDTABLE_RENDERER");
        if (renderer != nullptr && std::string(renderer) == "reference")
            SetRenderer(Renderer::Reference);
        if (const char* const simd = std::getenv("CARDTABLE_SIMD"))
            SetInstructionSet(simd);
        m_target = BitmapManager::Instance().Create(w, h);
        return reinterpret_cast<uint32_t*>(m_target->Buffer());
    }

    void setTarget(uint32_t*, int, int, int) override { glb->polygonRender->SetRenderState(1, m_rest ? 1 : 0); }

    void addTexture(const Texture& texture) override
    {
        Bitmap* const picture = BitmapManager::Instance().Create(texture.w, texture.h);
        uint8_t* const pixels = picture->Buffer();
        for (int y = 0; y < texture.h; ++y)
            std::memcpy(pixels + size_t(y) * texture.w * 4,
                        reinterpret_cast<const uint8_t*>(texture.premul) + size_t(y) * texture.stride,
                        size_t(texture.w) * 4);
        m_pictures.push_back(picture);
    }

    void drawQuad(const double c[8], const Texture& texture) override
    {
        PolygonRender& render = *glb->polygonRender;
        const long right = texture.w * 65536L - 1;
        const long bottom = texture.h * 65536L - 1;
        render.SetTexture(m_pictures[static_cast<size_t>(texture.id)]);
        render.SetTexCoords(0, 0, right, 0, right, bottom, 0, bottom);
        const auto half = [c](int i) { return static_cast<long>(c[i] * 2); }; // corners are whole half pixels
        render.SetVertices(half(0), half(1), 0, half(2), half(3), 0, half(4), half(5), 0, half(6), half(7), 0);
        CRect* none = nullptr;
        render.Draw(m_target, none);
    }

private:
    bool m_rest;
    Bitmap* m_target = nullptr;
    std::vector<Bitmap*> m_pictures;
};

} // namespace

REGISTER_PEER(Cardtable(false));
REGISTER_PEER(Cardtable(true));
