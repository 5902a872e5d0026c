// SPDX-License-Identifier: MIT
#include "examples/klondike/labels/plain_text.h"

#include <cstdint>

namespace klondike
{

namespace
{

constexpr std::size_t kLongest = 4096;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// How many bytes of a character follow its first one; -1 for a byte that starts none.
int Followers(unsigned char first)
{
    if (first < 0x80) {
        return 0;
    }
    if (first >= 0xC2 && first < 0xE0) {
        return 1;
    }
    if (first >= 0xE0 && first < 0xF0) {
        return 2;
    }
    return first >= 0xF0 && first < 0xF5 ? 3 : -1;
}

/// False for what has the form of a character and is none: too long a form, half of a pair, beyond the last one.
bool IsCharacter(std::uint32_t code, int followers)
{
    const bool isShortest = followers < 2 || code >= (followers == 2 ? 0x800U : 0x10000U);
    return isShortest && (code < 0xD800 || code > 0xDFFF) && code <= 0x10FFFF;
}

/// The bytes of the character at the beginning; 0 when there is none.
std::size_t CharacterLength(std::string_view text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    const int followers = Followers(first);
    const auto length = static_cast<std::size_t>(followers + 1);
    if (followers < 0 || text.size() < length) {
        return 0;
    }
    std::uint32_t code = followers == 0 ? first : first & (0x3FU >> followers);
    for (const char next : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0U) != 0x80U) {
            return 0;
        }
        code = code << 6 | (byte & 0x3FU);
    }
    return IsCharacter(code, followers) ? length : 0;
}

bool IsControl(char byte)
{
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || code == 0x7F;
}

} // namespace

std::string PlainText(std::string_view text)
{
    std::string plain;
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        const std::string_view character = length == 0 ? kReplacement : text.substr(0, length);
        if (plain.size() + character.size() > kLongest) {
            break;
        }
        if (!IsControl(character[0])) {
            plain += character;
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return plain;
}

} // namespace klondike
