// SPDX-License-Identifier: MIT
#include "examples/klondike/decks/drawing_file.h"

#include <zlib.h>

#include <array>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace klondike
{

namespace
{

constexpr int kSuits = 4;
constexpr int kRanks = 13;
constexpr std::size_t kLongest = std::size_t{64} << 20; // bytes unpacked; real decks stay below two million

struct CloseGz {
    void operator()(gzFile_s* file) const { gzclose_r(file); }
};

/// The file's text, unpacked. Empty when it cannot be read to its end or is too long.
std::optional<std::string> Unpacked(const std::string& file)
{
    const std::unique_ptr<gzFile_s, CloseGz> packed(gzopen(file.c_str(), "rb"));
    if (packed == nullptr) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 1 << 16> part{};
    int count = 0;
    while ((count = gzread(packed.get(), part.data(), static_cast<unsigned>(part.size()))) > 0) {
        text.append(part.data(), static_cast<std::size_t>(count));
        if (text.size() > kLongest) {
            return std::nullopt;
        }
    }
    // A file that ends too early reads like one that ends: only the error number tells.
    int error = Z_OK;
    gzerror(packed.get(), &error);
    return count < 0 || error != Z_OK ? std::nullopt : std::optional(std::move(text));
}

/// The values of all id attributes.
std::unordered_set<std::string_view> Names(std::string_view text)
{
    constexpr std::string_view kAttribute = "id=";
    std::unordered_set<std::string_view> names;
    for (std::size_t at = text.find(kAttribute); at != std::string_view::npos; at = text.find(kAttribute, at)) {
        at += kAttribute.size();
        const char quote = at < text.size() ? text[at] : ' ';
        const std::size_t end = text.find(quote, at + 1);
        if ((quote == '"' || quote == '\'') && end != std::string_view::npos) {
            names.insert(text.substr(at + 1, end - at - 1));
        }
    }
    return names;
}

bool HasElements(std::string_view text)
{
    const std::unordered_set<std::string_view> names = Names(text);
    for (int suit = 0; suit < kSuits; ++suit) {
        for (int rank = 0; rank < kRanks; ++rank) {
            if (!names.contains(ElementName(suit, rank))) {
                return false;
            }
        }
    }
    return names.contains(kBackElement);
}

/// The last end tag is the root's, whatever its prefix; a file that is cut off ends with another.
bool EndsWithItsRoot(std::string_view text)
{
    const std::size_t tag = text.rfind("</");
    const std::string_view end = tag == std::string_view::npos ? "" : text.substr(tag + 2);
    return end.starts_with("svg") || end.find(":svg") < end.find('>');
}

} // namespace

std::string ElementName(int suit, int rank)
{
    static constexpr std::array<const char*, kSuits> kSuitNames{"club", "diamond", "heart", "spade"};
    static constexpr std::array<const char*, 3> kCourts{"jack", "queen", "king"};
    constexpr int kPips = kRanks - 3;
    const std::string name =
        rank < kPips ? std::to_string(rank + 1) : kCourts.at(static_cast<std::size_t>(rank - kPips));
    return name + "_" + kSuitNames.at(static_cast<std::size_t>(suit));
}

DrawingFile ReadDrawing(const std::string& file)
{
    const std::optional<std::string> text = Unpacked(file);
    if (!text) {
        return {"cannot be read to its end", false};
    }
    if (text->find("<svg") == std::string::npos && text->find(":svg") == std::string::npos) {
        return {"is no SVG drawing", false};
    }
    if (!EndsWithItsRoot(*text)) {
        return {"ends in the middle", false};
    }
    return {"", HasElements(*text)};
}

} // namespace klondike
