// SPDX-License-Identifier: MIT
#include "examples/klondike/rules/value_text.h"

namespace klondike
{

namespace
{

constexpr std::string_view kUnlimited = "unlimited";

} // namespace

std::string RedealsText(const std::optional<std::uint32_t>& redeals)
{
    return redeals ? std::to_string(*redeals) : std::string(kUnlimited);
}

bool ReadRedeals(std::string_view text, std::optional<std::uint32_t>& redeals)
{
    const auto number = NumberFromText<std::uint32_t>(text);
    if (number || text == kUnlimited) {
        redeals = number;
        return true;
    }
    return false;
}

std::string ScoringText(Scoring scoring)
{
    switch (scoring) {
    case Scoring::None:
        return "none";
    case Scoring::Standard:
        return "standard";
    case Scoring::Vegas:
        break;
    }
    return "vegas";
}

bool ReadScoring(std::string_view text, Scoring& scoring)
{
    for (const Scoring candidate : {Scoring::None, Scoring::Standard, Scoring::Vegas}) {
        if (text == ScoringText(candidate)) {
            scoring = candidate;
            return true;
        }
    }
    return false;
}

} // namespace klondike
