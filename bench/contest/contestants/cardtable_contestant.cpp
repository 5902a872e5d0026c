// SPDX-License-Identifier: MIT
// This project's renderer, through the interface that a game's cards use, for cards that move and for cards that rest.
#include "bench/contest/contestant.h"

#include "host/bitmap_manager.h"
#include "host/globals.h"
#include "host/polygon_render.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <stdexcept>

namespace contest
{

namespace
{

Bitmap& MakeBitmap(int width, int height)
{
    Bitmap* const bitmap = BitmapManager::Instance().Create(width, height);
    if (bitmap == nullptr) {
        throw std::runtime_error("there is no bitmap of that size");
    }
    return *bitmap;
}

long HalfPixels(double pixels)
{
    return static_cast<long>(pixels * 2.0);
}

/// Its bitmaps live as long as the process.
class CardtableContestant final : public Contestant
{
public:
    explicit CardtableContestant(bool rest) : m_rest(rest) {}

    void SetUp(int width, int height, const std::vector<Picture>& pictures) override
    {
        m_target = &MakeBitmap(width, height);
        for (const Picture& picture : pictures) {
            Bitmap& bitmap = MakeBitmap(picture.width, picture.height);
            std::copy(picture.premultiplied.begin(), picture.premultiplied.end(),
                      reinterpret_cast<std::uint32_t*>(bitmap.Buffer()));
            m_pictures.push_back(&bitmap);
        }
    }

    void Draw(const Frame& frame) override
    {
        PolygonRender& renderer = *glb->polygonRender;
        renderer.SetRenderState(1, m_rest ? 1 : 0);
        CRect* noClip = nullptr;
        for (std::size_t i = 0; i < frame.size(); ++i) {
            Bitmap& picture = *m_pictures[i % m_pictures.size()];
            const long right = picture.Width() * kTexel - 1;
            const long bottom = picture.Height() * kTexel - 1;
            std::array<long, 8> place{};
            for (std::size_t corner = 0; corner < 4; ++corner) {
                place[corner * 2] = HalfPixels(frame[i][corner].x);
                place[corner * 2 + 1] = HalfPixels(frame[i][corner].y);
            }
            renderer.SetTexture(&picture);
            renderer.SetTexCoords(0, 0, right, 0, right, bottom, 0, bottom);
            renderer.SetVertices(place[0], place[1], 0.0F, place[2], place[3], 0.0F, place[4], place[5], 0.0F, place[6],
                                 place[7], 0.0F);
            renderer.Draw(m_target, noClip);
        }
    }

    Pixels Target() override
    {
        return {reinterpret_cast<std::uint32_t*>(m_target->Buffer()), m_target->Width(), m_target->Height(),
                m_target->Width()};
    }

private:
    static constexpr long kTexel = 65536;

    bool m_rest;
    Bitmap* m_target = nullptr;
    std::vector<Bitmap*> m_pictures;
};

template <bool rest> std::unique_ptr<Contestant> Make()
{
    return std::make_unique<CardtableContestant>(rest);
}

} // namespace

std::vector<Entry> Entries()
{
    return {{"cardtable-motion", "this project, drawing for motion", Make<false>},
            {"cardtable-rest", "this project, drawing for rest", Make<true>}};
}

} // namespace contest
