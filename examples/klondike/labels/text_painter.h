// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/labels/fonts.h"
#include "host/bitmap.h"
#include "host/rgba.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct _TTF_Font;

namespace klondike
{

enum class FontWeight { Regular, Bold };

/// How text is set; the size is that of the font's em square, 1 to 512 pixels.
struct TextStyle {
    int pixels = 16;
    FontWeight weight = FontWeight::Regular;
};

struct TextSize {
    int width = 0;
    int height = 0; ///< that of a line; more only for a sign that rises above the letters
};

/// Writes text into bitmaps. Without a font everything still works, but writes nothing and measures nothing: a game
/// goes on without text. For one thread.
class TextPainter
{
public:
    /// The environment's variable with the path of a font file that is taken in the place of the system's.
    static constexpr const char* kFontVariable = "KLONDIKE_FONT";

    TextPainter() : TextPainter(FindFonts(kFontVariable)) {}
    explicit TextPainter(FontFiles files);
    ~TextPainter();
    TextPainter(const TextPainter&) = delete;
    TextPainter& operator=(const TextPainter&) = delete;

    /// Empty with a font; else one line that says what is missing.
    const std::string& Error() const { return m_error; }

    /// The size of the box that Draw fills: a line of UTF-8 text. Wrong bytes show as the replacement character,
    /// control characters as nothing. An empty text has the height of a line and no width.
    TextSize Measure(std::string_view text, const TextStyle& style) const;
    /// Writes a line of text over the picture, its box's top-left corner at (x, y), cut at the bitmap's edges.
    void Draw(Bitmap& bitmap, int x, int y, std::string_view text, const TextStyle& style, const Rgba& colour) const;
    /// The text if it is at most so wide, else its beginning with an ellipsis; empty when not even that has room.
    std::string Fitting(std::string_view text, const TextStyle& style, int width) const;
    /// The text cut into lines at blanks and line ends, each at most so wide; a longer word has a line of its own.
    std::vector<std::string> Wrap(std::string_view text, const TextStyle& style, int width) const;

private:
    struct CloseFont {
        void operator()(_TTF_Font* font) const;
    };
    using Font = std::unique_ptr<_TTF_Font, CloseFont>;

    Font Open(const TextStyle& style) const;
    _TTF_Font* FontOf(const TextStyle& style) const;

    FontFiles m_files;
    std::string m_error;
    bool m_isStarted = false;
    mutable std::map<std::pair<int, FontWeight>, Font> m_fonts;
};

} // namespace klondike
