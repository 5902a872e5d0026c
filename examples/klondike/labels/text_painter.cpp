// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/text_painter.h"

#include "examples/klondike/labels/plain_text.h"
#include "orvane/pixel.h"

#include <SDL_ttf.h>

#include <algorithm>
#include <cstdint>

namespace klondike
{

namespace
{

constexpr int kLargest = 512;      // pixels
constexpr std::size_t kFonts = 16; // kept open; a game shows a handful of sizes at a time

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

std::uint32_t ScaledPixel(std::uint32_t pixel, std::uint32_t factor)
{
    using orvane::MultiplyBytes;
    return MultiplyBytes(pixel >> 24, factor) << 24 | MultiplyBytes(pixel >> 16 & 255U, factor) << 16 |
           MultiplyBytes(pixel >> 8 & 255U, factor) << 8 | MultiplyBytes(pixel & 255U, factor);
}

/// A premultiplied pixel over another, each channel saturating.
std::uint32_t Over(std::uint32_t above, std::uint32_t below)
{
    const std::uint32_t rest = ScaledPixel(below, 255U - (above >> 24));
    std::uint32_t sum = 0;
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
        sum |= std::min((above >> shift & 255U) + (rest >> shift & 255U), 255U) << shift;
    }
    return sum;
}

/// Colours the bitmap where the letters' alphas say, the letters' top-left corner at (x, y).
void Blend(Bitmap& bitmap, const SDL_Surface& letters, int x, int y, std::uint32_t colour)
{
    const int left = std::max(0, -x);
    const int right = std::min<int>(letters.w, bitmap.Width() - x);
    const int bottom = std::min<int>(letters.h, bitmap.Height() - y);
    std::uint32_t* const pixels = orvane::Pixels(bitmap);
    for (int row = std::max(0, -y); row < bottom; ++row) {
        const auto* const source = reinterpret_cast<const std::uint32_t*>(
            static_cast<const std::uint8_t*>(letters.pixels) + std::ptrdiff_t{row} * letters.pitch);
        std::uint32_t* const target = pixels + std::ptrdiff_t{y + row} * bitmap.Width() + x;
        for (int column = left; column < right; ++column) {
            const std::uint32_t coverage = source[column] >> 24;
            if (coverage != 0U) {
                target[column] = Over(ScaledPixel(colour, coverage), target[column]);
            }
        }
    }
}

} // namespace

void TextPainter::CloseFont::operator()(_TTF_Font* font) const
{
    TTF_CloseFont(font);
}

TextPainter::TextPainter(FontFiles files) : m_files(std::move(files))
{
    if (m_files.regular.empty()) {
        m_error = "there is no font: install fonts-dejavu-core, or name a font file in " + std::string(kFontVariable);
        return;
    }
    m_isStarted = TTF_Init() == 0;
    if (!m_isStarted || FontOf({}) == nullptr) {
        m_error = "cannot use the font '" + m_files.regular + "': " + TTF_GetError();
    }
}

TextPainter::~TextPainter()
{
    m_fonts.clear();
    if (m_isStarted) {
        TTF_Quit();
    }
}

TextPainter::Font TextPainter::Open(const TextStyle& style) const
{
    const bool isBold = style.weight == FontWeight::Bold && !m_files.bold.empty();
    // A point is a pixel: the library counts 72 points and 72 pixels to the inch.
    Font font(TTF_OpenFont((isBold ? m_files.bold : m_files.regular).c_str(), style.pixels));
    if (font == nullptr && isBold) {
        font.reset(TTF_OpenFont(m_files.regular.c_str(), style.pixels));
    }
    if (font != nullptr) {
        TTF_SetFontHinting(font.get(), TTF_HINTING_LIGHT);
    }
    return font;
}

/// Null without a font, and for a size out of range.
_TTF_Font* TextPainter::FontOf(const TextStyle& style) const
{
    if (!m_error.empty() || style.pixels < 1 || style.pixels > kLargest) {
        return nullptr;
    }
    const std::pair key(style.pixels, style.weight);
    const auto known = m_fonts.find(key);
    if (known != m_fonts.end()) {
        return known->second.get();
    }
    if (m_fonts.size() >= kFonts) {
        m_fonts.clear();
    }
    return m_fonts.emplace(key, Open(style)).first->second.get();
}

TextSize TextPainter::Measure(std::string_view text, const TextStyle& style) const
{
    TTF_Font* const font = FontOf(style);
    if (font == nullptr) {
        return {};
    }
    TextSize size{0, TTF_FontHeight(font)};
    const std::string line = PlainText(text);
    if (!line.empty() && TTF_SizeUTF8(font, line.c_str(), &size.width, &size.height) != 0) {
        return {};
    }
    return size;
}

void TextPainter::Draw(Bitmap& bitmap, int x, int y, std::string_view text, const TextStyle& style,
                       const Rgba& colour) const
{
    TTF_Font* const font = FontOf(style);
    const std::string line = PlainText(text);
    // Beyond these the letters are outside, and sums of places and sizes would not be.
    constexpr int kFar = 1 << 20;
    if (font == nullptr || line.empty() || x < -kFar || x > kFar || y < -kFar || y > kFar) {
        return;
    }
    const Surface letters(TTF_RenderUTF8_Blended(font, line.c_str(), SDL_Color{255, 255, 255, 255}));
    if (letters != nullptr) {
        Blend(bitmap, *letters, x, y, orvane::PremultipliedPixel(colour));
    }
}

std::string TextPainter::Fitting(std::string_view text, const TextStyle& style, int width) const
{
    constexpr const char* kEllipsis = "\xE2\x80\xA6";
    std::string line = PlainText(text);
    if (Measure(line, style).width <= width) {
        return line;
    }
    int extent = 0;
    int characters = 0;
    const int room = width - Measure(kEllipsis, style).width;
    TTF_Font* const font = FontOf(style);
    if (font == nullptr || room < 0 || TTF_MeasureUTF8(font, line.c_str(), room, &extent, &characters) != 0) {
        return {};
    }
    std::size_t end = 0;
    while (characters > 0 || (end < line.size() && (line[end] & 0xC0) == 0x80)) {
        characters -= (line[end++] & 0xC0) != 0x80 ? 1 : 0;
    }
    return line.substr(0, end) + kEllipsis;
}

std::vector<std::string> TextPainter::Wrap(std::string_view text, const TextStyle& style, int width) const
{
    std::vector<std::string> lines(1);
    std::size_t at = 0;
    while (at < text.size()) {
        const std::size_t end = std::min(text.find_first_of(" \n", at), text.size());
        const std::string_view word = text.substr(at, end - at);
        std::string& line = lines.back();
        const std::string longer = line.empty() ? std::string(word) : line + ' ' + std::string(word);
        if (line.empty() || Measure(longer, style).width <= width) {
            line = longer;
        } else {
            lines.emplace_back(word);
        }
        if (end < text.size() && text[end] == '\n') {
            lines.emplace_back();
        }
        at = end + 1;
    }
    return lines;
}

} // namespace klondike
