// SPDX-License-Identifier: MIT
#include "orvane/sdl/surface_pixels.h"

#include "host/bitmap.h"
#include "orvane/pixel.h"

#include <SDL.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <optional>

namespace orvane
{

namespace
{

/// The pixel value that stands for transparent, and the bits of it that count.
struct ColourKey {
    Uint32 value;
    Uint32 mask;

    bool Matches(Uint32 raw) const { return ((raw ^ value) & mask) == 0; }
};

std::optional<ColourKey> FindColourKey(SDL_Surface& surface)
{
    Uint32 key = 0;
    if (SDL_HasColorKey(&surface) == SDL_FALSE || SDL_GetColorKey(&surface, &key) != 0) {
        return std::nullopt;
    }
    return ColourKey{key, ~surface.format->Amask};
}

/// Converts every pixel value there is.
class PaletteConverter
{
public:
    PaletteConverter(const SDL_Palette& palette, const std::optional<ColourKey>& key)
    {
        for (std::size_t i = 0; i < m_pixels.size() && i < static_cast<std::size_t>(palette.ncolors); ++i) {
            const SDL_Color& colour = palette.colors[i];
            if (!key || !key->Matches(static_cast<Uint32>(i))) {
                m_pixels[i] = PremultipliedPixel({colour.r, colour.g, colour.b, colour.a});
            }
        }
    }

    std::uint32_t operator()(Uint32 raw) const { return m_pixels[raw & 255U]; }

private:
    std::array<std::uint32_t, 256> m_pixels{};
};

/// For layouts with one byte a channel.
class ByteChannelConverter
{
public:
    explicit ByteChannelConverter(const SDL_PixelFormat& format) : m_format(format), m_noAlpha(format.Amask == 0) {}

    std::uint32_t operator()(Uint32 raw) const
    {
        const auto channel = [raw](Uint8 shift) { return static_cast<std::uint8_t>(raw >> shift); };
        const std::uint8_t alpha = m_noAlpha ? std::uint8_t{255} : channel(m_format.Ashift);
        return PremultipliedPixel(
            {channel(m_format.Rshift), channel(m_format.Gshift), channel(m_format.Bshift), alpha});
    }

private:
    const SDL_PixelFormat& m_format;
    bool m_noAlpha;
};

/// For all others: fewer or more bits a channel.
class AnyChannelConverter
{
public:
    explicit AnyChannelConverter(const SDL_PixelFormat& format) : m_format(format) {}

    std::uint32_t operator()(Uint32 raw) const
    {
        Rgba colour;
        SDL_GetRGBA(raw, &m_format, &colour.r, &colour.g, &colour.b, &colour.a);
        return PremultipliedPixel(colour);
    }

private:
    const SDL_PixelFormat& m_format;
};

/// Whether each channel has eight bits: layouts of fewer lose some, those of more spill over the lowest eight.
bool HasByteChannels(const SDL_PixelFormat& format)
{
    const auto isByte = [](Uint32 mask, Uint8 shift) { return (mask >> shift) == 0xFFU; };
    return isByte(format.Rmask, format.Rshift) && isByte(format.Gmask, format.Gshift) &&
           isByte(format.Bmask, format.Bshift) && (format.Amask == 0 || isByte(format.Amask, format.Ashift));
}

/// The value of a pixel of that many bytes, in the machine's byte order.
Uint32 ReadRaw(const std::uint8_t* bytes, int count)
{
    Uint32 raw = 0;
#if SDL_BYTEORDER == SDL_LIL_ENDIAN
    for (int i = count - 1; i >= 0; --i) {
        raw = (raw << 8) | bytes[i];
    }
#else
    for (int i = 0; i < count; ++i)
        raw = (raw << 8) | bytes[i];
#endif
    return raw;
}

template <typename Converter> void Convert(const SDL_Surface& surface, std::uint32_t* destination,
                                           const std::optional<ColourKey>& key, const Converter& convert)
{
    const int size = surface.format->BytesPerPixel;
    const auto* row = static_cast<const std::uint8_t*>(surface.pixels);
    for (int y = 0; y < surface.h; ++y, row += surface.pitch) {
        const std::uint8_t* bytes = row;
        for (int x = 0; x < surface.w; ++x, bytes += size) {
            const Uint32 raw = ReadRaw(bytes, size);
            *destination++ = key && key->Matches(raw) ? 0 : convert(raw);
        }
    }
}

} // namespace

bool CopySurfacePixels(SDL_Surface& surface, Bitmap& bitmap)
{
    const SDL_PixelFormat& format = *surface.format;
    if (format.BitsPerPixel < 8) {
        return false;
    }
    const std::optional<ColourKey> key = FindColourKey(surface);
    std::uint32_t* const pixels = Pixels(bitmap);
    if (format.palette != nullptr) {
        Convert(surface, pixels, std::nullopt, PaletteConverter(*format.palette, key));
    } else if (HasByteChannels(format)) {
        Convert(surface, pixels, key, ByteChannelConverter(format));
    } else {
        Convert(surface, pixels, key, AnyChannelConverter(format));
    }
    return true;
}

} // namespace orvane
