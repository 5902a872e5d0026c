// SPDX-License-Identifier: MIT
#pragma once

#include "examples/klondike/rules/game.h"

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace klondike
{

/// Values as words, the same in saved games, settings and commands.

/// A whole text that is one decimal number of the type; empty for any other.
template <typename Number> std::optional<Number> NumberFromText(std::string_view text)
{
    Number number{};
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, number);
    return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

/// A number, or "unlimited".
std::string RedealsText(const std::optional<std::uint32_t>& redeals);
/// False, and nothing written, for any other text.
bool ReadRedeals(std::string_view text, std::optional<std::uint32_t>& redeals);

/// "none", "standard" or "vegas".
std::string ScoringText(Scoring scoring);
/// False, and nothing written, for any other text.
bool ReadScoring(std::string_view text, Scoring& scoring);

} // namespace klondike
