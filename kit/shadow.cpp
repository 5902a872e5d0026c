// SPDX-License-Identifier: MIT
#include "kit/shadow.h"

#include "geometry/polygon.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace cardkit
{

namespace
{

constexpr double kSoftness = 0.15; // width of the soft margin outside the card's outline, parts of the card's width
constexpr double kDarkness = 84.0; // alpha in the middle, of 255
constexpr int kTexelPixels = 2;    // one texel for so many pixels: nothing in it is sharp

/// Black, opaque in the middle and soft at the edges.
OwnedBitmap MakePicture(double halfWidth, double halfHeight, double margin)
{
    const int width = std::max(1, static_cast<int>(std::lround(2.0 * halfWidth / kTexelPixels)));
    const int height = std::max(1, static_cast<int>(std::lround(2.0 * halfHeight / kTexelPixels)));
    OwnedBitmap picture(BitmapManager::Instance().Create(width, height));
    std::uint8_t* pixel = picture->Buffer();
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x, pixel += 4) {
            // Distances to the edge of the inner rectangle from which the darkness falls off on all sides.
            const double dx = std::abs((x + 0.5) * kTexelPixels - halfWidth) - (halfWidth - 2.0 * margin);
            const double dy = std::abs((y + 0.5) * kTexelPixels - halfHeight) - (halfHeight - 2.0 * margin);
            const double away = std::hypot(std::max(dx, 0.0), std::max(dy, 0.0)) / (2.0 * margin);
            const double light = std::clamp(away, 0.0, 1.0);
            const double dark = 1.0 - light * light * (3.0 - 2.0 * light);
            pixel[3] = static_cast<std::uint8_t>(std::lround(kDarkness * dark));
        }
    }
    return picture;
}

} // namespace

ShadowCaster::ShadowCaster(const TablePlane& plane, CardSize size)
    : m_plane(plane), m_halfWidth(size.width * (0.5 + kSoftness)),
      m_halfHeight(size.height / 2.0 + size.width * kSoftness),
      m_picture(MakePicture(m_halfWidth, m_halfHeight, size.width * kSoftness))
{
}

Placement ShadowCaster::Below(const Placement& card) const
{
    // Not the laws of optics: the shadow stays near the place where the card is seen, that both read as one thing.
    constexpr double kParallax = 0.3;
    constexpr double kAsideX = 0.05; // of the card's height above the table
    constexpr double kAsideY = 0.10;
    constexpr double kHidden = 0.7;   // the scale at which a resting card covers it
    constexpr double kFullAt = 0.25;  // of the picture's height: from there on the shadow has its full size
    constexpr double kUnderAll = 0.5; // below the plane, so that the scene draws it before every card

    const double height = std::max(0.0, -card.z);
    const double turned = std::cos(card.rotX * std::numbers::pi / 180.0);
    const double seen = 1.0 / m_plane.Shrinkage(card.z);
    const double grown = std::min(1.0, height / (kFullAt * 2.0 * m_halfHeight));
    Placement place;
    place.x = std::lerp(card.x * seen, card.x, kParallax) + kAsideX * height;
    place.y = std::lerp(card.y * seen, card.y, kParallax) - kAsideY * height;
    place.z = kUnderAll;
    place.rotZ = card.rotZ * turned;
    place.scale = std::lerp(kHidden, std::lerp(0.85, 1.0, std::abs(turned)), grown);
    return place;
}

FlyingShadow ShadowCaster::Cast(const Way& way, int frames) const
{
    auto polygon = std::make_unique<CPolygon>();
    polygon->SetTexture(m_picture.get(), m_picture->Width(), m_picture->Height(), 0.0, 0.0, 1.0, 1.0);
    polygon->Set3D(-m_halfWidth, -m_halfHeight, 0.0, m_halfWidth, -m_halfHeight, 0.0, m_halfWidth, m_halfHeight, 0.0,
                   -m_halfWidth, m_halfHeight, 0.0);
    auto object = std::make_unique<CObject>();
    if (object->AddPolygon(polygon.get()) != 0) {
        polygon.release();
    }
    return {std::move(object), MakeMoves([&](double progress) { return Below(way(progress)); }, frames)};
}

} // namespace cardkit
